// What is to happen later: actions by their due time.
#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <optional>

namespace AtModem {

/** Time comes from outside, so that a test needs none. */
class Agenda {
public:
    using Time = std::chrono::steady_clock::time_point;
    using Duration = std::chrono::milliseconds;
    using Action = std::function<void()>;

    Time now() const { return m_now; }

    void after(Duration delay, Action action);

    /** Moves on to a time and does all that is due until then, in order. */
    void advanceTo(Time time);

    /** When the next action is due; nothing while there is none. */
    std::optional<Time> nextDue() const;

private:
    Time m_now = {};
    std::multimap<Time, Action> m_actions;
};

} // namespace AtModem
