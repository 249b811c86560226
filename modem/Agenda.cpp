// Actions by their due time.
#include "Agenda.h"

#include <algorithm>
#include <utility>

namespace AtModem {

void Agenda::after(Duration delay, Action action)
{
    m_actions.emplace(m_now + delay, std::move(action));
}

void Agenda::advanceTo(Time time)
{
    while (!m_actions.empty() && m_actions.begin()->first <= time) {
        const auto due = m_actions.begin();
        const Action action = std::move(due->second);
        m_now = std::max(m_now, due->first);
        m_actions.erase(due);
        action();
    }
    m_now = std::max(m_now, time);
}

std::optional<Agenda::Time> Agenda::nextDue() const
{
    if (m_actions.empty())
        return std::nullopt;
    return m_actions.begin()->first;
}

} // namespace AtModem
