// What a settings file holds, in words.
#pragma once

#include <QStringList>

namespace Console {

/**
 * Lists a file: its name, and a line for each value.
 * @param file empty for the one in the user's data directory
 * @return what was wrong, or nothing
 */
QString listSettings(const QString &file, QStringList &lines);

} // namespace Console
