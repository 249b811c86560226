// The telephony daemon over D-Bus.
#include "Daemon.h"
#include "Interfaces.h"
#include "Watch.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <new>
#include <thread>
#include <utility>

#include <fcntl.h>
#include <pthread.h>
#include <systemd/sd-bus.h>
#include <unistd.h>

namespace Ofono {

using std::chrono::duration_cast;
using std::chrono::microseconds;
using std::chrono::milliseconds;
using std::chrono::steady_clock;

namespace {

constexpr char service[] = "org.ofono";
constexpr char policyFile[] = "/etc/dbus-1/system.d/ofono.conf";

/** A refusal comes at once; what is not refused by then is under way. */
constexpr milliseconds refusalTime(300);

constexpr milliseconds firstPause(10);
constexpr milliseconds longestPause(100);

struct NamedResult {
    std::string_view error;
    _TAPI_RESULT_E result;
};

constexpr std::array<NamedResult, 24> results = {{
    {"org.ofono.Error.InvalidArguments", TAPI_RESULT_INVALID_PARAM},
    {"org.ofono.Error.InvalidFormat", TAPI_RESULT_INVALID_PARAM},
    {"org.ofono.Error.NotRecognized", TAPI_RESULT_INVALID_PARAM},
    {"org.ofono.Error.NotImplemented", TAPI_RESULT_NOT_SUPPORTED},
    {"org.ofono.Error.NotSupported", TAPI_RESULT_NOT_SUPPORTED},
    {"org.ofono.Error.NotAvailable", TAPI_RESULT_MODEM_OFFLINE},
    {"org.ofono.Error.InProgress", TAPI_RESULT_BUSY},
    {"org.ofono.Error.Timedout", TAPI_RESULT_TIMED_OUT},
    {"org.ofono.Error.SimNotReady", TAPI_RESULT_SIM_UNAVAILABLE},
    {SD_BUS_ERROR_ACCESS_DENIED, TAPI_RESULT_ACCESS_DENIED},
    {SD_BUS_ERROR_AUTH_FAILED, TAPI_RESULT_ACCESS_DENIED},
    {SD_BUS_ERROR_SERVICE_UNKNOWN, TAPI_RESULT_SERVICE_DOWN},
    {SD_BUS_ERROR_NAME_HAS_NO_OWNER, TAPI_RESULT_SERVICE_DOWN},
    {SD_BUS_ERROR_NO_REPLY, TAPI_RESULT_SERVICE_DOWN}, // what the bus says when the daemon dies with the call
    {SD_BUS_ERROR_DISCONNECTED, TAPI_RESULT_LINK_LOST},
    {SD_BUS_ERROR_NO_SERVER, TAPI_RESULT_LINK_LOST},
    {SD_BUS_ERROR_TIMEOUT, TAPI_RESULT_TIMED_OUT},
    {"org.freedesktop.DBus.Error.TimedOut", TAPI_RESULT_TIMED_OUT},
    {"System.Error.ETIMEDOUT", TAPI_RESULT_TIMED_OUT},
    {SD_BUS_ERROR_LIMITS_EXCEEDED, TAPI_RESULT_BUSY},
    {SD_BUS_ERROR_INVALID_ARGS, TAPI_RESULT_INVALID_PARAM},
    {"org.ofono.Error.Failed", TAPI_RESULT_FAIL},
    {"org.ofono.Error.NotAllowed", TAPI_RESULT_FAIL},
    {"org.ofono.Error.AccessDenied", TAPI_RESULT_FAIL}, // the network's answer, not the bus's
}};

constexpr std::array<std::string_view, 3> nothingThereErrors = {
    SD_BUS_ERROR_UNKNOWN_METHOD, SD_BUS_ERROR_UNKNOWN_OBJECT, SD_BUS_ERROR_UNKNOWN_INTERFACE};

_TAPI_RESULT_E resultOf(std::string_view error)
{
    for (const NamedResult &named : results) {
        if (named.error == error)
            return named.result;
    }
    return TAPI_RESULT_FAIL;
}

/** KVQ_OFONO_DEADLINE_MS shortens both deadlines, for tests that wait for them. */
milliseconds atHandLength()
{
    static const milliseconds length = [] {
        const char *const text = secure_getenv("KVQ_OFONO_DEADLINE_MS");
        const long value = text ? std::strtol(text, nullptr, 10) : 0;
        return value > 0 && value <= 60000 ? milliseconds(value) : milliseconds(2000);
    }();
    return length;
}

constexpr int networkFactor = 15;

int append(sd_bus_message *message, char type, const void *value, bool inVariant)
{
    const char contents[] = {type, '\0'};
    int result = inVariant ? sd_bus_message_open_container(message, SD_BUS_TYPE_VARIANT, contents) : 0;
    if (result >= 0)
        result = sd_bus_message_append_basic(message, type, value);
    return result >= 0 && inVariant ? sd_bus_message_close_container(message) : result;
}

int appendList(sd_bus_message *message, const Texts &texts, bool inVariant)
{
    int result = inVariant ? sd_bus_message_open_container(message, SD_BUS_TYPE_VARIANT, "as") : 0;
    if (result >= 0)
        result = sd_bus_message_open_container(message, SD_BUS_TYPE_ARRAY, "s");
    for (const std::string &text : texts) {
        if (result >= 0)
            result = sd_bus_message_append_basic(message, SD_BUS_TYPE_STRING, text.c_str());
    }
    if (result >= 0)
        result = sd_bus_message_close_container(message);
    return result >= 0 && inVariant ? sd_bus_message_close_container(message) : result;
}

struct Append {
    sd_bus_message *message;
    bool inVariant;

    int operator()(bool value) const
    {
        const int flag = value ? 1 : 0;
        return append(message, SD_BUS_TYPE_BOOLEAN, &flag, inVariant);
    }
    int operator()(std::uint8_t value) const { return append(message, SD_BUS_TYPE_BYTE, &value, inVariant); }
    int operator()(std::uint16_t value) const
    {
        return append(message, SD_BUS_TYPE_UINT16, &value, inVariant);
    }
    int operator()(std::uint32_t value) const
    {
        return append(message, SD_BUS_TYPE_UINT32, &value, inVariant);
    }
    int operator()(double value) const { return append(message, SD_BUS_TYPE_DOUBLE, &value, inVariant); }
    int operator()(const char *value) const { return append(message, SD_BUS_TYPE_STRING, value, inVariant); }
    int operator()(ObjectPath value) const
    {
        return append(message, SD_BUS_TYPE_OBJECT_PATH, value.text, inVariant);
    }
    int operator()(const Texts *value) const { return appendList(message, *value, inVariant); }
};

struct FreeError {
    sd_bus_error error = {nullptr, nullptr, 0};

    FreeError() = default;
    FreeError(const FreeError &) = delete;
    FreeError &operator=(const FreeError &) = delete;
    ~FreeError() { sd_bus_error_free(&error); }
};

struct FreeSlot {
    void operator()(sd_bus_slot *slot) const { sd_bus_slot_unref(slot); }
};

std::uint64_t microsecondsUntil(steady_clock::time_point end)
{
    const auto left = duration_cast<microseconds>(end - steady_clock::now());
    return left.count() > 0 ? static_cast<std::uint64_t>(left.count()) : 1;
}

int keepAnswer(sd_bus_message *message, void *place, sd_bus_error *)
{
    static_cast<Message *>(place)->reset(sd_bus_message_ref(message));
    return 1;
}

} // namespace

std::optional<std::string_view> Answer::path() const
{
    const char *path = nullptr;
    if (sd_bus_message_rewind(m_message.get(), 1) < 0
        || sd_bus_message_read_basic(m_message.get(), SD_BUS_TYPE_OBJECT_PATH, &path) <= 0)
        return std::nullopt;
    return path;
}

Properties Answer::properties() const
{
    sd_bus_message *const message = m_message.get();
    if (sd_bus_message_rewind(message, 1) < 0
        || sd_bus_message_enter_container(message, SD_BUS_TYPE_ARRAY, "{sv}") <= 0)
        return {};
    return Properties(message);
}

void Answer::objects(const std::function<void(std::string_view path, const Properties &)> &visit) const
{
    sd_bus_message *const message = m_message.get();
    if (sd_bus_message_rewind(message, 1) < 0
        || sd_bus_message_enter_container(message, SD_BUS_TYPE_ARRAY, "(oa{sv})") <= 0)
        return;
    while (sd_bus_message_enter_container(message, SD_BUS_TYPE_STRUCT, "oa{sv}") > 0) {
        const char *path = nullptr;
        if (sd_bus_message_read_basic(message, SD_BUS_TYPE_OBJECT_PATH, &path) <= 0
            || sd_bus_message_enter_container(message, SD_BUS_TYPE_ARRAY, "{sv}") <= 0)
            return;
        visit(path, Properties(message));
        while (sd_bus_message_at_end(message, 0) == 0) {
            if (sd_bus_message_skip(message, "{sv}") < 0)
                return;
        }
        for (int container = 0; container < 2; ++container) { // the properties, the modem
            if (sd_bus_message_exit_container(message) < 0)
                return;
        }
    }
}

Properties Answer::forwardingRules() const
{
    sd_bus_message *const message = m_message.get();
    if (sd_bus_message_rewind(message, 1) < 0 || sd_bus_message_skip(message, "s") < 0
        || sd_bus_message_enter_container(message, SD_BUS_TYPE_VARIANT, "(ssa{sv})") <= 0
        || sd_bus_message_enter_container(message, SD_BUS_TYPE_STRUCT, "ssa{sv}") <= 0
        || sd_bus_message_skip(message, "ss") < 0
        || sd_bus_message_enter_container(message, SD_BUS_TYPE_ARRAY, "{sv}") <= 0)
        return {};
    return Properties(message);
}

namespace {

thread_local steady_clock::time_point latestEnd = steady_clock::time_point::max();

} // namespace

OneDeadline::OneDeadline()
    : m_before(std::exchange(latestEnd, endOf(Deadline::Network)))
{
}

OneDeadline::~OneDeadline()
{
    latestEnd = m_before;
}

steady_clock::time_point OneDeadline::endOf(Deadline deadline)
{
    return std::min(steady_clock::now() + Daemon::lengthOf(deadline), latestEnd);
}

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
    return m_linkDescriptor;
}

_TAPI_RESULT_E Daemon::request(const Request &request)
{
    Message answer;
    return perform(request, true, answer);
}

_TAPI_RESULT_E Daemon::request(const Request &request, Answer &answer)
{
    return perform(request, true, answer.m_message);
}

_TAPI_RESULT_E Daemon::begin(const Request &request)
{
    Message answer;
    return perform(request, false, answer);
}

_TAPI_RESULT_E Daemon::properties(const char *interface, Deadline deadline, Properties &properties)
{
    Answer answer;
    const _TAPI_RESULT_E result = request({interface, "GetProperties", {}, deadline}, answer);
    if (result == TAPI_RESULT_SUCC)
        properties = answer.properties();
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
    while (!isSo()) {
        if (!watch.waitForChange(end))
            return isSo();
    }
    return true;
}

milliseconds Daemon::lengthOf(Deadline deadline)
{
    return deadline == Deadline::AtHand ? atHandLength() : networkFactor * atHandLength();
}

std::string Daemon::modem()
{
    std::string path;
    chooseModem(path, steady_clock::now() + lengthOf(Deadline::AtHand));
    return path;
}

void Daemon::forgetModem()
{
    const std::scoped_lock lock(m_modemMutex);
    m_modem.clear();
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
    forgetModem();
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
    new (&m_modemMutex) std::mutex;
    new (&m_modem) std::string; // or have been writing here
    m_bus.abandon();
    m_state = Link::NeverOpened;
    park();
}

/** Chooses the modem, asks it, and looks for the reason when nothing is there that could answer. */
_TAPI_RESULT_E Daemon::perform(const Request &request, bool waits, Message &answer)
{
    const Time end = OneDeadline::endOf(request.deadline);
    std::string path;
    const _TAPI_RESULT_E chosen = chooseModem(path, end);
    if (chosen != TAPI_RESULT_SUCC)
        return chosen;
    const std::string modem = path;
    path += request.object;
    Outcome outcome = waits ? ask(path, request, end) : exchange(path, request, end, false);
    if (outcome.nothingThere)
        return whyNothingIsThere(modem, request, end);
    answer = std::move(outcome.answer);
    return outcome.result;
}

/** Asks until the daemon is not occupied with another request, as long as there is time. */
Daemon::Outcome Daemon::ask(const std::string &path, const Request &request, Time end)
{
    for (milliseconds pause = firstPause;; pause = std::min(2 * pause, longestPause)) {
        Outcome outcome = exchange(path, request, end, true);
        if (!outcome.inProgress || steady_clock::now() + pause >= end)
            return outcome;
        std::this_thread::sleep_for(pause);
    }
}

Daemon::Outcome Daemon::exchange(const std::string &path, const Request &request, Time end, bool waits)
{
    const std::unique_lock lock(m_mutex, end);
    if (!lock)
        return {TAPI_RESULT_BUSY};
    const _TAPI_RESULT_E connected = connect();
    if (connected != TAPI_RESULT_SUCC)
        return {connected};
    m_bus.tidy();

    sd_bus_message *raw = nullptr;
    int result = sd_bus_message_new_method_call(m_bus.get(), &raw, service, path.c_str(), request.interface,
                                                request.method);
    const Message message(raw);
    if (result >= 0 && request.secret)
        result = sd_bus_message_sensitive(raw);
    for (const Argument &argument : request.arguments) {
        if (result >= 0)
            result = std::visit(Append{raw, argument.inVariant}, argument.value);
    }
    if (result < 0) // a text that is no text, or a path that is no path
        return {m_bus.isAlive() ? TAPI_RESULT_INVALID_PARAM : failure(-ENOTCONN, nullptr, nullptr).result};

    Message answer;
    FreeError failed;
    if (waits) {
        sd_bus_message *reply = nullptr;
        result = sd_bus_call(m_bus.get(), raw, microsecondsUntil(end), &failed.error, &reply);
        answer.reset(reply);
        if (result < 0)
            return failure(result, failed.error.name, failed.error.message);
    } else {
        sd_bus_slot *slot = nullptr;
        result = sd_bus_call_async(m_bus.get(), &slot, raw, keepAnswer, &answer, UINT64_MAX);
        const std::unique_ptr<sd_bus_slot, FreeSlot> pending(slot);
        const Time refusalEnd = steady_clock::now() + refusalTime;
        while (result >= 0 && !answer && steady_clock::now() < refusalEnd) {
            result = sd_bus_process(m_bus.get(), nullptr);
            if (result == 0)
                result = sd_bus_wait(m_bus.get(), microsecondsUntil(refusalEnd));
        }
        if (result < 0)
            return failure(result, nullptr, nullptr);
        const sd_bus_error *const error = answer ? sd_bus_message_get_error(answer.get()) : nullptr;
        if (error)
            return failure(-EIO, error->name, error->message);
    }
    Outcome outcome;
    outcome.answer = std::move(answer);
    return outcome;
}

/** With the lock held. */
Daemon::Outcome Daemon::failure(int error, const char *name, const char *message)
{
    Outcome outcome;
    const std::string_view named = name ? name : "";
    outcome.result = name ? resultOf(named) : error == -ETIMEDOUT ? TAPI_RESULT_TIMED_OUT : TAPI_RESULT_FAIL;
    outcome.inProgress = named == "org.ofono.Error.InProgress";
    for (const std::string_view nothing : nothingThereErrors)
        outcome.nothingThere = outcome.nothingThere || named == nothing;
    if (sd_bus_is_open(m_bus.get()) <= 0 || outcome.result == TAPI_RESULT_LINK_LOST) {
        lose();
        outcome.result = TAPI_RESULT_LINK_LOST;
        outcome.nothingThere = false;
    }
    if (outcome.result == TAPI_RESULT_SERVICE_DOWN)
        forgetModem();
    if (outcome.result == TAPI_RESULT_ACCESS_DENIED && !m_refusalReported) {
        m_refusalReported = true;
        std::fprintf(stderr, "telephony: the bus policy for %s (%s) keeps this program out: %s\n", service,
                     policyFile, message ? message : "no reason given");
    }
    return outcome;
}

_TAPI_RESULT_E Daemon::chooseModem(std::string &path, Time end)
{
    {
        const std::scoped_lock lock(m_modemMutex);
        path = m_modem;
    }
    if (!path.empty())
        return TAPI_RESULT_SUCC;
    if (const char *const named = secure_getenv("KVQ_MODEM")) {
        path = named;
        return sd_bus_object_path_is_valid(named) > 0 ? TAPI_RESULT_SUCC : TAPI_RESULT_MODEM_OFFLINE;
    }
    Answer modems;
    Outcome listed = ask("/", {manager, "GetModems"}, end);
    if (listed.result != TAPI_RESULT_SUCC)
        return listed.result;
    modems.m_message = std::move(listed.answer);
    std::string withCard;
    bool powered = false;
    modems.objects([&](std::string_view candidate, const Properties &properties) {
        if (!withCard.empty())
            return;
        const bool isPowered = properties.flag("Powered").value_or(false);
        if (path.empty() || (isPowered && !powered))
            path = candidate;
        powered = powered || isPowered;
        if (!isPowered || !properties.has("Interfaces", simManager))
            return;
        Answer card;
        Outcome asked = ask(std::string(candidate), {simManager, "GetProperties"}, end);
        if (asked.result != TAPI_RESULT_SUCC)
            return;
        card.m_message = std::move(asked.answer);
        if (card.properties().flag("Present").value_or(false))
            withCard = candidate;
    });
    if (!withCard.empty()) {
        path = withCard;
        const std::scoped_lock lock(m_modemMutex);
        m_modem = withCard;
    }
    return path.empty() ? TAPI_RESULT_MODEM_OFFLINE : TAPI_RESULT_SUCC;
}

/** The daemon only says that nothing is there. What a screen should say depends on why. */
_TAPI_RESULT_E Daemon::whyNothingIsThere(const std::string &modem, const Request &request, Time end)
{
    forgetModem();
    // What can be known is at hand, however little time the request has left.
    end = std::max(end, steady_clock::now() + lengthOf(Deadline::AtHand) / 4);
    Answer answer;
    Outcome asked = ask(modem, {modemInterface, "GetProperties"}, end);
    if (asked.nothingThere)
        return TAPI_RESULT_MODEM_OFFLINE;
    if (asked.result != TAPI_RESULT_SUCC)
        return asked.result;
    answer.m_message = std::move(asked.answer);
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
    answer.m_message = std::move(asked.answer);
    const Properties card = answer.properties();
    if (!card.flag("Present").value_or(false) || card.text("PinRequired").value_or("none") != "none")
        return TAPI_RESULT_SIM_UNAVAILABLE;
    // What the driver can do appears within seconds after the modem went online, registration among the first.
    if (!state.flag("Online").value_or(false) || !state.has("Interfaces", networkRegistration))
        return TAPI_RESULT_MODEM_OFFLINE;
    return TAPI_RESULT_NOT_SUPPORTED;
}

} // namespace Ofono
