// The prompt: a line editor with history and completion.
#pragma once

#include "Session.h"

namespace Console {

/** Reads lines until the end of the input or .quit. */
void runPrompt(Session &session);

} // namespace Console
