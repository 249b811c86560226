// What the daemon tells by itself, for whoever waits for a change.
#pragma once

#include "BusConnection.h"

#include <chrono>

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

    Watch(const Watch &) = delete;
    Watch &operator=(const Watch &) = delete;

    /** Waits for the next change. False when there was none by @p end, or none can be heard any more. */
    bool waitForChange(Time end);

private:
    struct Heard {
        unsigned int answeredRules = 0;
        bool refused = false;
        bool changed = false;
    };

    Handset::BusConnection m_bus;
    Heard m_heard;
};

} // namespace Ofono
