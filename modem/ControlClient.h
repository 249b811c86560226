// Telling a running modem something through its control socket.
#pragma once

#include <string>

namespace AtModem {

/** Sends one line and shows what it came to. Returns the exit status: 0, 1 without a modem, 2 for a mistake. */
int tellModem(const std::string &controlPath, const std::string &line);

/** A prompt whose lines go to the modem: edited on a terminal, plain ones from a pipe. The same exit status. */
int runRemotePrompt(const std::string &controlPath);

} // namespace AtModem
