// The telephony daemon over D-Bus.
#include "Daemon.h"
#include "Errors.h"
#include "Interfaces.h"
#include "LeftRequest.h"
#include "ServiceRequests.h"
#include "SharedAnswers.h"
#include "Watch.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <new>
#include <thread>
#include <utility>

#include <fcntl.h>
#include <pthread.h>
#include <systemd/sd-bus.h>
#include <unistd.h>

namespace Ofono {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

namespace {

constexpr char policyFile[] = "/etc/dbus-1/system.d/ofono.conf";

/** A refusal comes at once; what is not refused by then is under way. */
constexpr milliseconds refusalTime(300);

constexpr milliseconds firstPause(10);
constexpr milliseconds longestPause(100);

} // namespace

Daemon &Daemon::instance()
{
    // Never destroyed: an application may use the engine until the process is gone.
    static auto *const daemon = new Daemon;
    return *daemon;
}

Daemon::Daemon()
    : m_bus(Handset::BusConnection::Bus::System)
{
    pthread_atfork(nullptr, nullptr, [] { instance().leaveToParent(); });
}

_TAPI_RESULT_E Daemon::open()
{
    {
        const std::unique_lock lock(m_mutex, lengthOf(Deadline::AtHand));
        if (!lock)
            return TAPI_RESULT_BUSY;
        if (m_state == Link::Open && !m_bus.isAlive())
            lose();
        const Link before = std::exchange(m_state, m_state == Link::Lost ? Link::NeverOpened : m_state);
        const _TAPI_RESULT_E connected = connect();
        if (connected != TAPI_RESULT_SUCC) {
            m_state = before;
            return connected;
        }
    }
    return ask("/", {manager, "GetModems"}, steady_clock::now() + lengthOf(Deadline::AtHand)).result;
}

int Daemon::linkDescriptor()
{
    // While another thread waits for an answer the link is in use, so it is there.
    const std::unique_lock lock(m_mutex, std::try_to_lock);
    if (lock && m_state == Link::Open && !m_bus.isAlive())
        lose();
    else if (lock && m_state == Link::Given)
        connect();
    return m_linkDescriptor;
}

_TAPI_RESULT_E Daemon::request(const Request &request)
{
    Answer answer;
    return perform(request, true, answer);
}

_TAPI_RESULT_E Daemon::request(const Request &request, Answer &answer)
{
    return perform(request, true, answer);
}

_TAPI_RESULT_E Daemon::begin(const Request &request)
{
    Answer answer;
    return perform(request, false, answer);
}

_TAPI_RESULT_E Daemon::properties(const char *interface, Deadline deadline, Properties &properties)
{
    if (const Answer *const shared = SharedAnswers::find(interface)) {
        properties = shared->properties();
        return TAPI_RESULT_SUCC;
    }
    Answer answer;
    const _TAPI_RESULT_E result = request({interface, "GetProperties", {}, deadline}, answer);
    if (result == TAPI_RESULT_SUCC) {
        properties = answer.properties();
        SharedAnswers::keep(interface, std::move(answer));
    }
    return result;
}

_TAPI_RESULT_E Daemon::setProperty(const char *interface, const char *name, const Value &value,
                                   Deadline deadline)
{
    return request({interface, "SetProperty", {Value(name), {value, true}}, deadline});
}

bool Daemon::waitUntil(const std::function<bool()> &isSo, milliseconds limit)
{
    const Time end = steady_clock::now() + limit;
    Watch watch(end); // before the first look
    const auto look = [&isSo] {
        SharedAnswers::forget();
        return isSo();
    };
    while (!look()) {
        if (!watch.waitForChange(end))
            return look();
    }
    return true;
}

std::string Daemon::modem()
{
    std::string path;
    chooseModem(path, steady_clock::now() + lengthOf(Deadline::AtHand));
    return path;
}

void Daemon::lookAgain()
{
    m_choice.forget();
}

/** With the lock held. */
_TAPI_RESULT_E Daemon::connect()
{
    if (m_state == Link::Open)
        return TAPI_RESULT_SUCC;
    if (m_state == Link::Lost)
        return TAPI_RESULT_LINK_LOST;
    const int error = m_bus.open(lengthOf(Deadline::AtHand));
    if (error < 0) {
        park();
        switch (-error) {
        case ETIMEDOUT:
            return TAPI_RESULT_TIMED_OUT;
        case EACCES:
        case EPERM:
            return TAPI_RESULT_ACCESS_DENIED;
        default:
            return TAPI_RESULT_LINK_LOST;
        }
    }
    if (m_linkDescriptor == -1)
        m_linkDescriptor = fcntl(m_bus.descriptor(), F_DUPFD_CLOEXEC, 0);
    else
        dup3(m_bus.descriptor(), m_linkDescriptor, O_CLOEXEC);
    m_state = Link::Open;
    return TAPI_RESULT_SUCC;
}

/** With the lock held. */
void Daemon::lose()
{
    m_bus.close();
    m_state = Link::Lost;
    lookAgain();
    park();
}

/** Keeps the number of the link's descriptor from everything that would answer the probe. */
void Daemon::park() const noexcept
{
    if (m_linkDescriptor == -1)
        return;
    const int directory = ::open("/", O_PATH | O_CLOEXEC);
    dup3(directory, m_linkDescriptor, O_CLOEXEC);
    ::close(directory);
}

/** In a forked child, where only this thread lives on: a link of its own is opened when it asks. */
void Daemon::leaveToParent() noexcept
{
    new (&m_mutex) std::timed_mutex; // another thread of the parent may hold it
    m_choice.leaveToParent();
    m_bus.abandon();
    m_state = Link::NeverOpened;
    park();
}

/** Chooses the modem, asks it, and looks for the reason when nothing is there that could answer. */
_TAPI_RESULT_E Daemon::perform(const Request &request, bool waits, Answer &answer)
{
    if (std::string_view(request.method).substr(0, 3) != "Get")
        SharedAnswers::forget(); // it changes what they told
    const Time end = OneDeadline::endOf(request.deadline);
    std::string path;
    const _TAPI_RESULT_E chosen =
        chooseModem(path, waits ? end : std::min(end, steady_clock::now() + refusalTime));
    if (chosen != TAPI_RESULT_SUCC)
        return chosen;
    const std::string modem = path;
    path += request.object;
    Outcome outcome = ask(path, request, end, waits);
    if (outcome.nothingThere)
        return whyNothingIsThere(modem, request, end);
    answer = Answer(std::move(outcome.answer));
    return outcome.result;
}

/** Asks until the daemon is not occupied with another request, as long as there is time. */
Daemon::Outcome Daemon::ask(const std::string &path, const Request &request, Time end, bool waits)
{
    const Time lastTry = waits ? end : std::min(end, steady_clock::now() + refusalTime);
    for (milliseconds pause = firstPause;; pause = std::min(2 * pause, longestPause)) {
        Outcome outcome = exchange(path, request, end, waits);
        if (!outcome.inProgress || !freeLine(path, request, end) || steady_clock::now() + pause >= lastTry)
            return outcome;
        std::this_thread::sleep_for(pause);
    }
}

Daemon::Outcome Daemon::exchange(const std::string &path, const Request &request, Time end, bool waits)
{
    const std::unique_lock lock(m_mutex, end);
    // What is waited for, such as an emergency call, is never refused for that.
    if (!lock || (!waits && request.afterwards && !LeftRequest::hasRoom()))
        return {TAPI_RESULT_BUSY};
    const _TAPI_RESULT_E connected = connect();
    if (connected != TAPI_RESULT_SUCC)
        return {connected};
    m_bus.tidy();

    const Message call = messageOf(request, m_bus.get(), path);
    if (!call)
        return {m_bus.isAlive() ? TAPI_RESULT_INVALID_PARAM : failure(-ENOTCONN, nullptr, nullptr).result};
    std::string modem = path.substr(0, path.size() - request.object.size());
    auto exchange =
        std::make_unique<Exchange>(modem == "/" ? std::string() : std::move(modem), request.interface);
    const Time stayEnd = waits ? end : steady_clock::now() + refusalTime;
    int result = exchange->send(m_bus.get(), call.get(), stayEnd);
    if (result >= 0)
        result = exchange->wait(m_bus, stayEnd);
    if (result == -ETIMEDOUT) {
        if (request.afterwards)
            leave(std::move(exchange), request);
        return {waits ? TAPI_RESULT_TIMED_OUT : TAPI_RESULT_SUCC};
    }
    if (result < 0)
        return failure(result, nullptr, nullptr);
    Outcome outcome;
    outcome.nothingThere = !exchange->answer();
    if (outcome.nothingThere)
        return outcome;
    const sd_bus_error *const error = sd_bus_message_get_error(exchange->answer().get());
    if (error)
        return failure(-EIO, error->name, error->message);
    outcome.answer.reset(sd_bus_message_ref(exchange->answer().get()));
    if (!waits && request.afterwards) // the first answer to a service request may be a question
        leave(std::move(exchange), request);
    return outcome;
}

/** With the lock held. The request takes its connection along, and the next request opens another one. */
void Daemon::leave(std::unique_ptr<Exchange> exchange, const Request &request)
{
    m_state = Link::Given;
    if (!LeftRequest::follow(std::move(m_bus), std::move(exchange), request.afterwards))
        std::fprintf(stderr, "telephony: no thread can follow %s\n", request.method);
}

/**
 * Whether it makes sense to ask again when the daemon was occupied. While a service request is under way, which may take
 * as long as the subscriber takes, it does not; what this program has begun is ended for it.
 */
bool Daemon::freeLine(const std::string &path, const Request &request, Time end)
{
    if (!ServiceRequests::occupy(request.interface))
        return true;
    const Outcome asked = exchange(path, {supplementaryServices, "GetProperties"}, end, true);
    if (asked.result != TAPI_RESULT_SUCC)
        return true;
    const Answer answer(Message(sd_bus_message_ref(asked.answer.get())));
    if (answer.properties().text("State").value_or("idle") == "idle")
        return true;
    return ServiceRequests::areUnderWay()
        && exchange(path, {supplementaryServices, "Cancel"}, end, true).result == TAPI_RESULT_SUCC;
}

/** With the lock held. */
Daemon::Outcome Daemon::failure(int error, const char *name, const char *message)
{
    Outcome outcome;
    const std::string_view named = name ? name : "";
    outcome.result = name ? resultOf(named) : error == -ETIMEDOUT ? TAPI_RESULT_TIMED_OUT : TAPI_RESULT_FAIL;
    outcome.inProgress = isInProgress(named);
    outcome.nothingThere = isNothingThere(named);
    if (sd_bus_is_open(m_bus.get()) <= 0 || outcome.result == TAPI_RESULT_LINK_LOST) {
        lose();
        outcome.result = TAPI_RESULT_LINK_LOST;
        outcome.nothingThere = false;
    }
    if (outcome.result == TAPI_RESULT_SERVICE_DOWN)
        lookAgain();
    if (outcome.result == TAPI_RESULT_ACCESS_DENIED && !m_refusalReported) {
        m_refusalReported = true;
        std::fprintf(stderr, "telephony: the bus policy for %s (%s) keeps this program out: %s\n", service,
                     policyFile, message ? message : "no reason given");
    }
    return outcome;
}

_TAPI_RESULT_E Daemon::chooseModem(std::string &path, Time end)
{
    return m_choice.choose(
        path, end,
        [this, end](const std::string &object, const char *interface, const char *method, Answer &answer) {
            Outcome asked = ask(object, {interface, method}, end);
            answer = Answer(std::move(asked.answer));
            return asked.nothingThere ? TAPI_RESULT_FAIL : asked.result;
        });
}

/** The daemon only says that nothing is there. What a screen should say depends on why. */
_TAPI_RESULT_E Daemon::whyNothingIsThere(const std::string &modem, const Request &request, Time end)
{
    lookAgain();
    // What can be known is at hand, however little time the request has left.
    end = std::max(end, steady_clock::now() + lengthOf(Deadline::AtHand) / 4);
    Answer answer;
    Outcome asked = ask(modem, {modemInterface, "GetProperties"}, end);
    if (asked.nothingThere)
        return TAPI_RESULT_MODEM_OFFLINE;
    if (asked.result != TAPI_RESULT_SUCC)
        return asked.result;
    answer = Answer(std::move(asked.answer));
    const Properties state = answer.properties();
    if (!state.flag("Powered").value_or(false))
        return TAPI_RESULT_MODEM_OFFLINE;
    if (state.has("Interfaces", request.interface) || !request.object.empty())
        return request.interface == std::string_view(voiceCall) ? TAPI_RESULT_CALL_INVALID_ID
                                                                : TAPI_RESULT_FAIL;
    if (!state.has("Interfaces", simManager))
        return TAPI_RESULT_MODEM_OFFLINE;
    asked = ask(modem, {simManager, "GetProperties"}, end);
    if (asked.result != TAPI_RESULT_SUCC)
        return TAPI_RESULT_MODEM_OFFLINE;
    answer = Answer(std::move(asked.answer));
    const Properties card = answer.properties();
    if (!card.flag("Present").value_or(false) || card.text("PinRequired").value_or("none") != "none")
        return TAPI_RESULT_SIM_UNAVAILABLE;
    // What the driver can do appears within seconds after the modem went online, registration among the first.
    if (!state.flag("Online").value_or(false) || !state.has("Interfaces", networkRegistration))
        return TAPI_RESULT_MODEM_OFFLINE;
    return TAPI_RESULT_NOT_SUPPORTED;
}

} // namespace Ofono
