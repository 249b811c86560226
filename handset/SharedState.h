// The phone state that all programs of the user share, until the phone restarts.
#pragma once

#include <array>
#include <atomic>
#include <cstdint>

namespace Handset {

/** A call that some program has seen, for counting the time of calls. */
struct SeenCall {
    std::atomic<std::int64_t> key;     ///< its start and its id in one; 0 for a free place
    std::atomic<std::int64_t> from;    ///< second from which it counts
    std::atomic<std::int64_t> to;      ///< second in which it was seen last
    std::atomic<std::int64_t> seen;    ///< the look that has seen it last
    std::atomic<std::int64_t> counted; ///< the look that has added it to the total; 0 while it lasts
};

/**
 * Tries of a PIN or PUK that the telephony service still tells although an accepted code has brought all of them back:
 * "pin", "pin2", "puk", "puk2". Each is the card's key with the number plus one in its lowest byte; 0 for none.
 */
using OutdatedTries = std::array<std::atomic<std::uint64_t>, 4>;

/**
 * What lies in the shared memory. Every value is atomic for itself, and all zero is how a phone starts, so there is
 * no moment in which another program could see a half of it.
 */
struct SharedState {
    std::atomic<std::uint32_t> layout;
    std::atomic<std::int32_t> dialHyphenation;
    std::atomic<std::int32_t> chargeTypePlusOne; ///< 0 while none is known
    std::atomic<std::int32_t> restrictId;
    std::atomic<std::int32_t> restrictNextId;
    std::atomic<std::int32_t> restrictNextCall; ///< goes with the next call that is dialled
    std::atomic<std::int32_t> phoneLine;
    std::atomic<std::int32_t> cphsForwarding;
    std::atomic<std::int32_t> pinStatus;
    std::atomic<std::int32_t> cardType;
    std::atomic<std::int32_t> activeAccount;
    std::int32_t reserved;
    std::atomic<std::int64_t> looks; ///< how often a program has looked at the calls
    std::array<SeenCall, 8> seenCalls;
    OutdatedTries outdatedTries;
    std::atomic<std::uint64_t> chosenModem; ///< the marks of a modem and its card; 0 while none was chosen
};
static_assert(std::atomic<std::int64_t>::is_always_lock_free);
static_assert(sizeof(SharedState) == 416);

/**
 * The state of this user: the file `kvq/phone-state` in XDG_RUNTIME_DIR, which only the user may read and which
 * the system empties at a restart. A folder or a file that is not as this program would make it is left alone, and so
 * is one that no space can be had for; this is told once on standard error, and this process then keeps a state of its
 * own.
 */
SharedState &sharedState();

} // namespace Handset
