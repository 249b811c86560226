// A service in the daemon's place.
#include "FakeDaemon.h"
#include "Desk.h"

#include <gtest/gtest.h>

#include <array>

#include <poll.h>
#include <sys/eventfd.h>
#include <systemd/sd-bus.h>
#include <unistd.h>

FakeDaemon::FakeDaemon(Answerer answerer)
    : m_answerer(std::move(answerer))
    , m_stop(eventfd(0, EFD_CLOEXEC))
{
    sd_bus *bus = nullptr;
    EXPECT_GE(sd_bus_open_system(&bus), 0);
    // The bus may not have noticed yet that the daemon has ended.
    EXPECT_TRUE(Desk::becomes([bus] { return sd_bus_request_name(bus, "org.ofono", 0) >= 0; }));
    m_thread = std::thread([this, bus] { serve(bus); });
}

FakeDaemon::~FakeDaemon()
{
    eventfd_write(m_stop, 1);
    m_thread.join();
    close(m_stop);
}

void FakeDaemon::serve(sd_bus *bus)
{
    for (bool stopped = false; !stopped;) {
        sd_bus_message *call = nullptr;
        int processed = 0;
        while ((processed = sd_bus_process(bus, &call)) > 0) {
            if (call && sd_bus_message_is_method_call(call, nullptr, nullptr) > 0) {
                sd_bus_message *const answer = m_answerer(call);
                if (answer)
                    sd_bus_send(bus, answer, nullptr);
                sd_bus_message_unref(answer);
            }
            sd_bus_message_unref(call);
            call = nullptr;
        }
        if (processed < 0)
            break;
        std::array<pollfd, 2> sources = {{{sd_bus_get_fd(bus), POLLIN, 0}, {m_stop, POLLIN, 0}}};
        if (sd_bus_get_events(bus) > 0)
            sources[0].events = static_cast<short>(sd_bus_get_events(bus));
        poll(sources.data(), sources.size(), -1);
        stopped = sources[1].revents != 0;
    }
    sd_bus_flush_close_unref(bus);
}

FakeDaemon::Answerer withOneModem(std::function<void(std::string_view method, sd_bus_message *answer)> fill)
{
    return [fill = std::move(fill)](sd_bus_message *call) {
        sd_bus_message *answer = nullptr;
        sd_bus_message_new_method_return(call, &answer);
        const std::string_view method = sd_bus_message_get_member(call);
        if (method == "GetModems")
            sd_bus_message_append(answer, "a(oa{sv})", 1, "/phone", 1, "Powered", "b", 1);
        else
            fill(method, answer);
        return answer;
    };
}
