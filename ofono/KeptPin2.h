// A verified PIN2, kept for the request that needs it.
#pragma once

#include "Card.h"

#include <atomic>
#include <mutex>
#include <string_view>
#include <thread>

namespace Ofono {

/**
 * The requests that change the meter carry no PIN2, the daemon wants one with each. So the PIN2 that was verified last
 * is kept for the next of them, a minute at most: in a page of its own that is never swapped out, never in a core file
 * and empty in a forked child. It belongs to the card that took it and is worth nothing once that was pulled, put in
 * again or not. It is wiped after its use, by a thread when the minute is over, after any failure, and at exit; from
 * then on none is kept.
 */
class KeptPin2 {
public:
    static KeptPin2 &instance();

    void keep(std::string_view pin2, const Card::Stay &stay);
    void wipe();
    bool isKept(const Card::Stay &stay);

    /** Calls @p use with the PIN2 of that stay and wipes it, whatever comes of it. False when none is kept. */
    template <typename Use>
    bool with(const Card::Stay &stay, Use use)
    {
        const std::scoped_lock lock(m_mutex);
        if (!isFresh(stay))
            return false;
        const Wipe afterwards{*this};
        use(static_cast<const char *>(m_page));
        return true;
    }

private:
    struct Wipe {
        KeptPin2 &kept;
        ~Wipe() { kept.erase(); }
    };

    KeptPin2();

    void keepNoMore();
    bool startWatch();
    void watch();
    void leaveToParent() noexcept;
    bool isFresh();
    bool isFresh(const Card::Stay &stay);
    void erase();

    std::mutex m_mutex; ///< held as long as a PIN2 is used
    char *m_page;       ///< null when no page could be locked: then nothing is kept
    Card::Stay m_stay;  ///< of the card that has taken it
    long m_end = 0;     ///< second since the phone was switched on, its sleep included
    int m_timer = -1;
    std::thread m_watcher;
    std::atomic<bool> m_ended = false;
};

} // namespace Ofono
