// What the daemon tells by itself.
#include "Watch.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <utility>

#include <systemd/sd-bus.h>

namespace Ofono {

namespace {

using std::chrono::milliseconds;

/** Everything that the daemon tells, and that it has come or gone itself. */
constexpr std::array<const char *, 2> allRules = {
    "type='signal',sender='org.ofono'",
    "type='signal',sender='org.freedesktop.DBus',member='NameOwnerChanged',arg0='org.ofono'",
};

} // namespace

Watch::Watch(Time end)
    : Watch(end, allRules)
{
}

Watch::Watch(Time end, std::span<const char *const> rules)
    : m_bus(Handset::BusConnection::Bus::System)
{
    const auto noteAnswer = [](sd_bus_message *answer, void *place, sd_bus_error *) {
        auto *const heard = static_cast<Heard *>(place);
        ++heard->answeredRules;
        heard->refused = heard->refused || sd_bus_message_is_method_error(answer, nullptr) > 0;
        return 0;
    };
    const auto noteChange = [](sd_bus_message *, void *place, sd_bus_error *) {
        static_cast<Heard *>(place)->changed = true;
        return 0;
    };
    const auto left = std::chrono::duration_cast<milliseconds>(end - std::chrono::steady_clock::now());
    int result = m_bus.open(std::max(left, milliseconds(0)));
    for (const char *const rule : rules) {
        if (result >= 0)
            result = sd_bus_add_match_async(m_bus.get(), nullptr, rule, noteChange, noteAnswer, &m_heard);
    }
    // The requests go by another connection, so the bus has to say that it has taken the rules.
    if (result >= 0)
        result = m_bus.serveUntil([&] { return m_heard.answeredRules == rules.size(); }, end);
    if (result < 0 || m_heard.refused)
        m_bus.close();
}

bool Watch::waitForChange(Time end)
{
    m_heard.changed = false;
    if (!m_bus.get() || m_bus.serveUntil([this] { return m_heard.changed; }, end) < 0)
        return false;
    m_bus.tidy(); // one look serves all the changes that have been heard by now
    return true;
}

std::optional<bool> Watch::hasHeard()
{
    const auto nothingIsEnough = [] { return false; };
    if (!m_bus.get())
        return std::nullopt;
    if (m_bus.serveUntil(nothingIsEnough, std::chrono::steady_clock::now()) != -ETIMEDOUT) {
        m_bus.close();
        return std::nullopt;
    }
    return std::exchange(m_heard.changed, false);
}

} // namespace Ofono
