// The presences of cards, as the daemon tells them.
#include "Presence.h"
#include "Daemon.h"

#include <array>
#include <new>

#include <pthread.h>

namespace Ofono {

namespace {

/** Few messages, so that they may wait for the next question, however late it comes. */
constexpr std::array<const char *, 6> cardRules = {
    "type='signal',sender='org.ofono',interface='org.ofono.SimManager',arg0='Present'",
    "type='signal',sender='org.ofono',interface='org.ofono.SimManager',arg0='CardIdentifier'",
    "type='signal',sender='org.ofono',interface='org.ofono.SimManager',arg0='SubscriberIdentity'",
    "type='signal',sender='org.ofono',interface='org.ofono.Modem',arg0='Powered'",
    "type='signal',sender='org.ofono',interface='org.ofono.Manager'",
    "type='signal',sender='org.freedesktop.DBus',member='NameOwnerChanged',arg0='org.ofono'",
};

} // namespace

Presence &Presence::instance()
{
    // Never destroyed: an application may use the engine until the process is gone.
    static auto *const presence = new Presence;
    return *presence;
}

Presence::Presence()
{
    pthread_atfork(nullptr, nullptr, [] { instance().leaveToParent(); });
}

std::uint64_t Presence::number()
{
    const std::scoped_lock lock(m_mutex);
    if (m_watch && m_watch->hasHeard() == std::optional(false))
        return m_number;
    ++m_number;
    if (m_watch && m_watch->isListening())
        return m_number;
    m_watch.emplace(OneDeadline::endOf(Deadline::AtHand), cardRules);
    return m_watch->isListening() ? m_number : 0;
}

bool Presence::isListening()
{
    const std::scoped_lock lock(m_mutex);
    return m_watch && m_watch->isListening();
}

/** In a forked child, where only this thread lives on: it listens by itself when it asks. */
void Presence::leaveToParent() noexcept
{
    new (&m_mutex) std::mutex;
    if (m_watch)
        m_watch->abandon();
}

} // namespace Ofono
