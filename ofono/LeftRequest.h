// Requests that nobody waits for any more.
#pragma once

#include "Answer.h"
#include "Exchange.h"
#include "Request.h"

#include <memory>

namespace Ofono {

/**
 * A request that the daemon has not answered when the time of whoever asked was over, or that is begun and left. It is
 * followed, with the connection that it went by, by a thread of its own until it is over.
 */
class LeftRequest {
public:
    using Time = Exchange::Time;

    /** Whether one more can be followed. */
    static bool hasRoom();
    /** Whether this process follows one to an interface. */
    static bool isFollowed(const char *interface);
    /** From now on @p afterwards has it, in another thread. False when the system has none. */
    static bool follow(Handset::BusConnection &&bus, std::unique_ptr<Exchange> exchange,
                       std::function<void(LeftRequest &)> afterwards);

    LeftRequest(Handset::BusConnection &&bus, std::unique_ptr<Exchange> exchange);
    ~LeftRequest();

    LeftRequest(const LeftRequest &) = delete;
    LeftRequest &operator=(const LeftRequest &) = delete;

    /** Null when it is not over by @p end, and when it ended without success. */
    std::optional<Answer> awaitAnswer(Time end = Time::max());
    bool isOver() const { return m_exchange->isOver(); }

    /** Another request to the same modem, by the same connection. The error's name; empty for a success. */
    std::string ask(const Request &request, Answer &answer);

private:
    Handset::BusConnection m_bus;
    const std::unique_ptr<Exchange> m_exchange;
};

} // namespace Ofono
