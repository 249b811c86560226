// What the exported headers say about an operation.
#pragma once

#include "Operation.h"

namespace Console {

/** What an operation does, takes, gives and asks of the platform, a line each. */
QStringList helpOf(const Operation &operation);

} // namespace Console
