// What the daemon tells by itself, for whoever waits for a change.
#pragma once

#include "BusConnection.h"

#include <chrono>
#include <cstddef>
#include <optional>
#include <span>

namespace Ofono {

/**
 * Hears every change that the daemon tells from the moment that it exists, so that a change between a look and the
 * wait after it is not lost. It listens on a connection of its own: the one of the requests hears no signals.
 */
class Watch {
public:
    using Time = std::chrono::steady_clock::time_point;

    /** Has to be listening by @p end. */
    explicit Watch(Time end);
    /** Hears only what these match rules of the bus let through. */
    Watch(Time end, std::span<const char *const> rules);

    Watch(const Watch &) = delete;
    Watch &operator=(const Watch &) = delete;

    /** Waits for the next change. False when there was none by @p end, or none can be heard any more. */
    bool waitForChange(Time end);
    /** Whether there was a change since this was asked last. Nothing when none can be heard any more. */
    std::optional<bool> hasHeard();
    bool isListening() const { return m_bus.get() != nullptr; }

    /** In a forked child: lets go of what is the parent's. Calls only what is allowed there. */
    void abandon() noexcept { m_bus.abandon(); }

private:
    struct Heard {
        std::size_t answeredRules = 0;
        bool refused = false;
        bool changed = false;
    };

    Handset::BusConnection m_bus;
    Heard m_heard;
};

} // namespace Ofono
