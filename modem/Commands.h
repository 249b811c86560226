// The commands, a table a subject.
#pragma once

#include "Modem.h"

#include <span>

namespace AtModem {

/** What a command needs before it is worth asking. */
enum class Needs {
    Nothing,
    Card,    ///< a powered card
    Ready,   ///< a card that wants no PIN1
    Network, ///< a registered phone
};

struct CommandEntry {
    std::string_view name;
    Needs needs;
    /** What the test form answers after the name; empty when the handler answers it itself. */
    std::string_view range;
    Answer (*handle)(Modem &modem, Session &session, const Command &command);
};

std::span<const CommandEntry> generalCommands();
std::span<const CommandEntry> deviceCommands();
std::span<const CommandEntry> callCommands();
std::span<const CommandEntry> callOptionCommands();
std::span<const CommandEntry> forwardingCommands();
std::span<const CommandEntry> meteringCommands();
std::span<const CommandEntry> securityCommands();
std::span<const CommandEntry> cardFileCommands();
std::span<const CommandEntry> networkCommands();
std::span<const CommandEntry> serviceDataCommands();

} // namespace AtModem
