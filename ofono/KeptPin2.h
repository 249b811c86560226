// A verified PIN2, kept for the requests that need it.
#pragma once

#include <chrono>
#include <mutex>
#include <string>
#include <string_view>

namespace Ofono {

/**
 * The requests that change the meter carry no PIN2, the daemon wants one with each. So the PIN2 that was verified last
 * is kept for a minute: in a page of its own that is never swapped out, never in a core file and empty in a forked
 * child. It is wiped when the minute is over and somebody looks, after any failure, and at exit.
 */
class KeptPin2 {
public:
    static KeptPin2 &instance();

    void keep(std::string_view pin2);
    void wipe();
    bool isKept();

    /** Calls @p use with the PIN2. False when none is kept. */
    template <typename Use>
    bool with(Use use)
    {
        const std::scoped_lock lock(m_mutex);
        if (!isFresh())
            return false;
        use(static_cast<const char *>(m_page));
        return true;
    }

private:
    KeptPin2();
    ~KeptPin2();

    bool isFresh();
    void erase();

    std::recursive_mutex m_mutex; ///< a failed use wipes it
    char *m_page;                 ///< null when no page could be locked: then nothing is kept
    std::chrono::steady_clock::time_point m_end;
};

} // namespace Ofono
