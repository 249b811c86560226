// Broadcasts and phone messages on the session bus.
#include "Broadcaster.h"
#include "BusConnection.h"

#include <mutex>
#include <new>
#include <string>

#include <pthread.h>
#include <systemd/sd-bus.h>

namespace Handset {

namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr char path[] = "/org/kvq/Phone";
constexpr char interface[] = "org.kvq.Phone1";

/** A bus on the same machine shakes hands within a millisecond; one that does not is not worth a screen's time. */
constexpr milliseconds handshake(100);
/** How long a bus that did not shake hands is left alone. */
constexpr std::chrono::seconds rest(10);

/** Signals that a bus has not taken yet. One that stands still must not fill this program's memory. */
constexpr std::uint64_t mostWaiting = 64;

class Broadcaster {
public:
    static Broadcaster &instance()
    {
        // Never destroyed: an application may use the engine until the process is gone.
        static auto *const broadcaster = new Broadcaster;
        return *broadcaster;
    }

    template <typename... Arguments>
    bool emit(const char *member, const char *types, Arguments... arguments)
    {
        const std::scoped_lock lock(m_mutex);
        if (!connect())
            return false;
        m_bus.tidy();
        std::uint64_t waiting = 0;
        sd_bus *const bus = m_bus.get();
        if (sd_bus_get_n_queued_write(bus, &waiting) >= 0 && waiting > 0)
            sd_bus_process(bus, nullptr);
        if (waiting >= mostWaiting)
            return false;
        if (sd_bus_emit_signal(bus, path, interface, member, types, arguments...) >= 0)
            return true;
        if (!m_bus.isAlive())
            m_bus.close();
        return false;
    }

private:
    Broadcaster()
        : m_bus(BusConnection::Bus::Session)
    {
        pthread_atfork(nullptr, nullptr, [] {
            Broadcaster &self = instance();
            new (&self.m_mutex) std::mutex; // another thread of the parent may hold it
            self.m_bus.abandon();
        });
    }

    /** A bus that has gone is looked for again at once: it was restarted, or is not there and says so. */
    bool connect()
    {
        if (m_bus.get()) {
            m_bus.tidy();
            if (m_bus.isAlive())
                return true;
            m_bus.close();
        }
        const auto now = steady_clock::now();
        if (now < m_nextTry)
            return false;
        const bool opened = m_bus.open(handshake) == 0;
        if (!opened && steady_clock::now() - now >= handshake)
            m_nextTry = now + rest;
        return opened;
    }

    std::mutex m_mutex;
    BusConnection m_bus;
    steady_clock::time_point m_nextTry;
};

} // namespace

bool broadcast(std::string_view channel, std::string_view message)
{
    const std::string channelText(channel);
    const std::string messageText(message);
    return Broadcaster::instance().emit("Broadcast", "ss", channelText.c_str(), messageText.c_str());
}

bool sendPhoneMessage(unsigned int type)
{
    return Broadcaster::instance().emit("Message", "u", type);
}

} // namespace Handset
