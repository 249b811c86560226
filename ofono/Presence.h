// Whether the card has been there all the time.
#pragma once

#include "Watch.h"

#include <cstdint>
#include <mutex>
#include <optional>

namespace Ofono {

/**
 * Numbers the presences of cards: as long as the number stays the same, no card, no modem and no daemon has come or
 * gone, and no card was read anew. It listens from the first question on, so that a removal is noticed although nobody
 * asked while the card was out.
 */
class Presence {
public:
    static Presence &instance();

    /** 0 when that cannot be heard. What is read of the card before it listens may belong to an earlier presence. */
    std::uint64_t number();
    bool isListening();

private:
    Presence();

    void leaveToParent() noexcept;

    std::mutex m_mutex; ///< guards the rest
    std::optional<Watch> m_watch;
    std::uint64_t m_number = 1;
};

} // namespace Ofono
