// A connection to a message bus: opened within a deadline, closed for good when the bus goes.
#pragma once

#include <chrono>
#include <functional>
#include <memory>

#include <sys/types.h>

struct sd_bus;

namespace Handset {

/**
 * One connection to the system's or the session's message bus.
 *
 * It has no thread and starts nothing by itself. It is not safe against use by two threads at once; its owner
 * keeps a lock. A forked child must abandon() it before anything else.
 */
class BusConnection {
public:
    enum class Bus { System, Session };

    explicit BusConnection(Bus bus);
    /** What is moved from is closed, and can be opened again. */
    BusConnection(BusConnection &&other) noexcept;
    ~BusConnection();

    BusConnection(const BusConnection &) = delete;
    BusConnection &operator=(const BusConnection &) = delete;

    /** Connects and shakes hands. 0, or the negative errno of what went wrong. */
    int open(std::chrono::milliseconds deadline);
    void close();

    /** Null while closed. */
    sd_bus *get() const { return m_connection.get(); }
    /** The socket, -1 while closed. */
    int descriptor() const { return m_descriptor; }
    /** Asks the socket whether the bus is still at its other end. */
    bool isAlive() const;
    /** Answers or drops what has come in unasked. */
    void tidy();
    /** Handles what comes in until that makes it so. 0, or a negative errno: -ETIMEDOUT when it is not so by then. */
    int serveUntil(const std::function<bool()> &isSo, std::chrono::steady_clock::time_point end);

    /** In a forked child: lets go of what is the parent's. Calls only what is allowed there. */
    void abandon() noexcept;

private:
    struct Close {
        void operator()(sd_bus *connection) const;
    };

    const Bus m_bus;
    std::unique_ptr<sd_bus, Close> m_connection;
    int m_descriptor = -1;
};

} // namespace Handset
