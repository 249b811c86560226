// A service in the daemon's place on the private bus, which answers whatever a test wants.
#pragma once

#include <functional>
#include <string_view>
#include <thread>

struct sd_bus;
struct sd_bus_message;

class FakeDaemon {
public:
    /** Answers a call: with a new message to send, with null for silence. */
    using Answerer = std::function<sd_bus_message *(sd_bus_message *call)>;

    explicit FakeDaemon(Answerer answerer);
    ~FakeDaemon();

    FakeDaemon(const FakeDaemon &) = delete;
    FakeDaemon &operator=(const FakeDaemon &) = delete;

private:
    void serve(sd_bus *bus);

    const Answerer m_answerer;
    int m_stop = -1; ///< an event descriptor
    std::thread m_thread;
};

/** A daemon with one modem; @p fill writes the answers to everything else that it is asked. */
FakeDaemon::Answerer withOneModem(std::function<void(std::string_view method, sd_bus_message *answer)> fill);
