// A connection to a message bus.
#include "BusConnection.h"

#include <cerrno>

#include <poll.h>
#include <systemd/sd-bus.h>
#include <unistd.h>

namespace Handset {

using std::chrono::duration_cast;
using std::chrono::microseconds;
using std::chrono::steady_clock;

void BusConnection::Close::operator()(sd_bus *connection) const
{
    sd_bus_close(connection);
    sd_bus_unref(connection);
}

BusConnection::BusConnection(Bus bus)
    : m_bus(bus)
{
}

BusConnection::~BusConnection() = default;

int BusConnection::open(std::chrono::milliseconds deadline)
{
    const auto end = steady_clock::now() + deadline;
    close();
    sd_bus *connection = nullptr;
    const int opened = m_bus == Bus::System ? sd_bus_open_system(&connection) : sd_bus_open_user(&connection);
    m_connection.reset(connection);
    int result = opened;
    // A call would shake hands by itself, but wait for a bus that does not answer as long as it takes.
    while (result >= 0 && sd_bus_is_ready(connection) <= 0) {
        result = sd_bus_process(connection, nullptr);
        if (result != 0)
            continue;
        const auto left = duration_cast<microseconds>(end - steady_clock::now());
        result = left.count() <= 0 ? -ETIMEDOUT
                                   : sd_bus_wait(connection, static_cast<std::uint64_t>(left.count()));
    }
    if (result < 0) {
        close();
        return result;
    }
    m_descriptor = sd_bus_get_fd(connection);
    return 0;
}

void BusConnection::close()
{
    m_connection.reset();
    m_descriptor = -1;
}

bool BusConnection::isAlive() const
{
    if (!m_connection || sd_bus_is_open(m_connection.get()) <= 0)
        return false;
    pollfd socket = {m_descriptor, 0, 0};
    return poll(&socket, 1, 0) == 0;
}

void BusConnection::tidy()
{
    std::uint64_t waiting = 0;
    while (m_connection && sd_bus_get_n_queued_read(m_connection.get(), &waiting) >= 0 && waiting > 0) {
        if (sd_bus_process(m_connection.get(), nullptr) <= 0)
            return;
    }
}

void BusConnection::abandon() noexcept
{
    if (!m_connection)
        return;
    // Closing it properly would write to the parent's socket, so its memory stays behind.
    static_cast<void>(m_connection.release());
    ::close(m_descriptor);
    m_descriptor = -1;
}

} // namespace Handset
