// How long requests may take.
#pragma once

#include <chrono>

namespace Ofono {

/** How long a request may take. */
enum class Deadline {
    AtHand,  ///< what the daemon knows: 2 seconds
    Network, ///< what the modem, the card or the network must be asked for: 30 seconds
};

/** While it lives, all requests of its thread together have the time of one for the network. */
class OneDeadline {
public:
    OneDeadline();
    ~OneDeadline();

    OneDeadline(const OneDeadline &) = delete;
    OneDeadline &operator=(const OneDeadline &) = delete;

    /** When a request that is made now must have ended. */
    static std::chrono::steady_clock::time_point endOf(Deadline deadline);

private:
    const std::chrono::steady_clock::time_point m_before;
};

std::chrono::milliseconds lengthOf(Deadline deadline);

} // namespace Ofono
