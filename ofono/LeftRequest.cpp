// Requests that nobody waits for any more.
#include "LeftRequest.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <mutex>
#include <system_error>
#include <thread>

#include <pthread.h>
#include <unistd.h>

namespace Ofono {

namespace {

/** A daemon that answers nothing must not be given more and more; the bus counts the connections too. */
constexpr std::size_t mostRequests = 16;

/** The requests that are followed, for whoever wants to know, and for a forked child, which has none of the threads. */
class Followed {
public:
    static Followed &instance()
    {
        // Never destroyed: a thread may follow a request until the process is gone.
        static auto *const followed = new Followed;
        return *followed;
    }

    /** Whether one of an interface is followed. */
    bool has(std::string_view interface)
    {
        const std::scoped_lock lock(m_mutex);
        return std::any_of(m_entries.begin(), m_entries.end(), [interface](const Entry &entry) {
            return entry.socket != none && entry.interface == interface;
        });
    }

    bool hasRoom()
    {
        const std::scoped_lock lock(m_mutex);
        return find(none) != m_entries.end();
    }

    /** Puts the request of another socket in its place. */
    void replace(int before, int socket, std::string_view interface)
    {
        const std::scoped_lock lock(m_mutex);
        const auto entry = find(before);
        if (entry != m_entries.end())
            *entry = {socket, interface};
    }

    static constexpr int none = -1;

private:
    struct Entry {
        int socket = none;
        std::string_view interface = {};
    };

    Followed()
    {
        pthread_atfork([] { instance().m_mutex.lock(); }, [] { instance().m_mutex.unlock(); },
                       [] { instance().leaveToParent(); });
    }

    void leaveToParent() noexcept
    {
        for (Entry &entry : m_entries) {
            if (entry.socket != none)
                close(entry.socket);
            entry = {};
        }
        m_mutex.unlock();
    }

    auto find(int socket) -> std::array<Entry, mostRequests>::iterator
    {
        return std::find_if(m_entries.begin(), m_entries.end(),
                            [socket](const Entry &entry) { return entry.socket == socket; });
    }

    std::mutex m_mutex; ///< held for moments only
    std::array<Entry, mostRequests> m_entries;
};

} // namespace

bool LeftRequest::hasRoom()
{
    return Followed::instance().hasRoom();
}

bool LeftRequest::isFollowed(const char *interface)
{
    return Followed::instance().has(interface);
}

bool LeftRequest::follow(Handset::BusConnection &&bus, std::unique_ptr<Exchange> exchange,
                         std::function<void(LeftRequest &)> afterwards)
{
    auto left = std::make_unique<LeftRequest>(std::move(bus), std::move(exchange));
    sigset_t all;
    sigset_t before;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before); // signals are for the threads of the application
    bool started = true;
    try {
        std::thread([left = std::move(left), afterwards = std::move(afterwards)] {
            afterwards(*left);
        }).detach();
    } catch (const std::system_error &) {
        started = false;
    }
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
    return started;
}

LeftRequest::LeftRequest(Handset::BusConnection &&bus, std::unique_ptr<Exchange> exchange)
    : m_bus(std::move(bus))
    , m_exchange(std::move(exchange))
{
    Followed::instance().replace(Followed::none, m_bus.descriptor(), m_exchange->interface());
}

LeftRequest::~LeftRequest()
{
    Followed::instance().replace(m_bus.descriptor(), Followed::none, {});
}

std::optional<Answer> LeftRequest::awaitAnswer(Time end)
{
    if (m_exchange->wait(m_bus, end) < 0 || !m_exchange->answer()
        || sd_bus_message_is_method_error(m_exchange->answer().get(), nullptr) > 0)
        return std::nullopt;
    return Answer(Message(sd_bus_message_ref(m_exchange->answer().get())));
}

std::string LeftRequest::ask(const Request &request, Answer &answer)
{
    const std::string path = m_exchange->modem() + std::string(request.object);
    const Message call = messageOf(request, m_bus.get(), path);
    Exchange exchange(m_exchange->modem(), request.interface);
    const Time end = std::chrono::steady_clock::now() + lengthOf(request.deadline);
    if (!call || exchange.send(m_bus.get(), call.get(), end) < 0 || exchange.wait(m_bus, end) < 0
        || !exchange.answer())
        return SD_BUS_ERROR_DISCONNECTED;
    const sd_bus_error *const error = sd_bus_message_get_error(exchange.answer().get());
    if (error)
        return error->name;
    answer = Answer(Message(sd_bus_message_ref(exchange.answer().get())));
    return {};
}

} // namespace Ofono
