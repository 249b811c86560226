// The prompt: a line editor with history and completion.
#pragma once

#include "Session.h"

namespace Console {

/**
 * Reads lines until the end of the input or .quit. An interrupt drops the line that is being typed.
 * False when a line that nobody could mend was a mistake.
 */
bool runPrompt(Session &session);

} // namespace Console
