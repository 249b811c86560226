// How long an event loop stands still through the fault of its own program.
#pragma once

#include <QTimer>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <utility>

/**
 * A timer turns every other millisecond in the event loop of the thread that made it; the longest time between two turns
 * is the gap. Time for which the program was ready to run and the machine had no processor for it does not count, so a
 * busy machine gives the same answer as a quiet one. All else counts: the thread's own work, and whatever it waits for.
 *
 * Every thread of the program counts as the program: the one that is watched may wait for a lock whose holder the
 * machine keeps from running.
 */
class EventLoopWatch {
public:
    EventLoopWatch()
    {
        m_turn.setTimerType(Qt::PreciseTimer);
        QObject::connect(&m_turn, &QTimer::timeout, &m_turn, [this] { noteTurn(); });
    }

    void start()
    {
        m_longestGap = {};
        m_lastTurn = ownTime();
        m_turn.start(2);
    }
    /** Ends the watch. */
    std::chrono::milliseconds longestGap()
    {
        m_turn.stop();
        noteTurn();
        return std::chrono::duration_cast<std::chrono::milliseconds>(m_longestGap);
    }

private:
    using Time = std::chrono::nanoseconds;

    void noteTurn()
    {
        const Time now = ownTime();
        m_longestGap = std::max(m_longestGap, now - m_lastTurn);
        m_lastTurn = now;
    }

    /** A clock that stands still while the program is kept from running. */
    Time ownTime()
    {
        Time kept = keptFromRunning();
        for (;;) {
            const Time now = std::chrono::steady_clock::now().time_since_epoch();
            const Time keptBefore = std::exchange(kept, keptFromRunning());
            // Where they differ it happened between the two readings, which then do not fit together.
            if (kept == keptBefore)
                return now - kept;
        }
    }

    /** In all, as the scheduler counts it. Always the same where the kernel does not tell. */
    Time keptFromRunning()
    {
        std::error_code gone; // a thread may end meanwhile
        for (const auto &thread : std::filesystem::directory_iterator("/proc/self/task", gone)) {
            long long ran = 0;
            long long kept = 0;
            std::ifstream(thread.path() / "schedstat") >> ran >> kept;
            Time &known = m_keptByThread[thread.path().filename()];
            if (Time(kept) < known) // another thread has its number now
                known = {};
            m_kept += Time(kept) - std::exchange(known, Time(kept));
        }
        return m_kept;
    }

    QTimer m_turn;
    std::map<std::string, Time> m_keptByThread;
    Time m_kept{};
    Time m_lastTurn{};
    Time m_longestGap{};
};
