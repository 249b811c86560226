// The skeleton of a port: everything declared is defined, and nothing is supported yet.
#pragma once

#include <QString>

namespace PortCheck {

/** Writes the skeleton into a folder that is new or empty. Returns what was wrong, or nothing. */
QString writeSkeleton(const QString &folder);

} // namespace PortCheck
