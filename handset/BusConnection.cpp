// A connection to a message bus.
#include "BusConnection.h"

#include <algorithm>
#include <cerrno>
#include <utility>

#include <poll.h>
#include <sys/socket.h>
#include <systemd/sd-bus.h>
#include <unistd.h>

namespace Handset {

using std::chrono::duration_cast;
using std::chrono::microseconds;
using std::chrono::steady_clock;

void BusConnection::Close::operator()(sd_bus *connection) const
{
    // A child that was forked meanwhile may hold the socket too, and the bus would go on to fill it.
    shutdown(sd_bus_get_fd(connection), SHUT_RDWR);
    sd_bus_close(connection);
    sd_bus_unref(connection);
}

BusConnection::BusConnection(Bus bus)
    : m_bus(bus)
{
}

BusConnection::BusConnection(BusConnection &&other) noexcept
    : m_bus(other.m_bus)
    , m_connection(std::move(other.m_connection))
    , m_descriptor(std::exchange(other.m_descriptor, -1))
{
}

BusConnection::~BusConnection() = default;

int BusConnection::open(std::chrono::milliseconds deadline)
{
    const auto end = steady_clock::now() + deadline;
    close();
    sd_bus *connection = nullptr;
    int result = m_bus == Bus::System ? sd_bus_open_system(&connection) : sd_bus_open_user(&connection);
    m_connection.reset(connection);
    // A call would shake hands by itself, but wait for a bus that does not answer as long as it takes.
    if (result >= 0)
        result = serveUntil([connection] { return sd_bus_is_ready(connection) > 0; }, end);
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

int BusConnection::serveUntil(const std::function<bool()> &isSo, steady_clock::time_point end)
{
    int result = 0;
    while (result >= 0 && !isSo()) {
        result = sd_bus_process(m_connection.get(), nullptr);
        if (result != 0)
            continue;
        const auto left = duration_cast<microseconds>(end - steady_clock::now());
        if (left.count() <= 0)
            return -ETIMEDOUT;
        result = sd_bus_wait(m_connection.get(), static_cast<std::uint64_t>(left.count()));
        if (result == -EINTR) // a signal handler has run
            result = 0;
    }
    return std::min(result, 0);
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
