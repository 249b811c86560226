// The simulated phone itself: journal, scripts, link, and how calls are described.
#include "SimulatedPhone.h"

#include "Language.h"
#include "PlatformCall.h"

#include <sys/socket.h>
#include <unistd.h>

/** Both ends of the client's socket. */
struct SimulatedPhone::Link {
    Link()
    {
        if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0)
            ends = {-1, -1};
    }
    ~Link()
    {
        for (const int end : ends) {
            if (end >= 0)
                close(end);
        }
    }
    Link(const Link &) = delete;
    Link &operator=(const Link &) = delete;

    std::array<int, 2> ends = {-1, -1};
};

namespace {

const Handset::Product &product()
{
    static const auto *const product = [] {
        auto *const complete = new Handset::Product;
        complete->missingFeatures.clear();
        complete->readNamed();
        return complete;
    }();
    return *product;
}

} // namespace

SimulatedPhone::SimulatedPhone()
    : m_product(::product())
{
}

SimulatedPhone::~SimulatedPhone() = default;

SimulatedPhone &SimulatedPhone::instance()
{
    // Never destroyed: an application may use the engine until the process is gone.
    static auto *const phone = new SimulatedPhone;
    return *phone;
}

void SimulatedPhone::reset()
{
    m_state = {};
    m_product = ::product();
    m_language.reset();
    m_link.reset();
    m_journal.clear();
    m_scripts.clear();
    m_delays.clear();
    m_delayed = false;
    m_delayTakenAway.notify_all();
    m_answerer = nullptr;
}

int SimulatedPhone::language() const
{
    return m_language.value_or(Handset::systemLanguage());
}

void SimulatedPhone::note(std::string entry)
{
    const std::lock_guard lock(m_mutex);
    if (m_journalEnabled)
        m_journal.push_back(std::move(entry));
}

std::vector<std::string> SimulatedPhone::takeJournal()
{
    return std::exchange(m_journal, {});
}

void SimulatedPhone::setObserver(Observer observer)
{
    const std::lock_guard lock(m_mutex);
    m_observer = std::move(observer);
    m_observed = m_observer != nullptr;
}

void SimulatedPhone::tellObserver(const std::string &call, const std::string &answer)
{
    const std::lock_guard lock(m_mutex);
    if (m_observer)
        m_observer(call, answer);
}

void SimulatedPhone::script(const std::string &function, ScriptedAnswer answer)
{
    if (answer.times == 0)
        m_scripts.erase(function);
    else
        m_scripts[function] = std::move(answer);
}

void SimulatedPhone::clearScript(const std::string &function)
{
    m_scripts.erase(function);
}

const ScriptedAnswer *SimulatedPhone::scriptedAnswer(std::string_view function)
{
    const auto found = m_scripts.find(function);
    if (found == m_scripts.end())
        return m_answerer ? m_answerer(function) : nullptr;
    if (found->second.times < 0)
        return &found->second;
    m_lastAnswer = found->second;
    if (--found->second.times <= 0)
        m_scripts.erase(found);
    return &m_lastAnswer;
}

void SimulatedPhone::setDelay(const std::string &function, std::chrono::milliseconds delay)
{
    if (delay.count() > 0)
        m_delays[function] = delay;
    else
        m_delays.erase(function);
    m_delayed = !m_delays.empty();
    m_delayTakenAway.notify_all();
}

void SimulatedPhone::waitForAnswer(std::string_view function)
{
    if (!m_delayed)
        return;
    std::unique_lock lock(m_mutex);
    const auto found = m_delays.find(function);
    if (found == m_delays.end())
        return;
    const auto answerTime = std::chrono::steady_clock::now() + found->second;
    m_delayTakenAway.wait_until(lock, answerTime, [&] { return m_delays.find(function) == m_delays.end(); });
}

void SimulatedPhone::openLink()
{
    if (!m_link)
        m_link = std::make_unique<Link>();
}

void SimulatedPhone::closeLink()
{
    m_link.reset();
}

int SimulatedPhone::linkDescriptor() const
{
    return m_link ? m_link->ends[0] : -1;
}

namespace Simulator {

namespace {

void appendQuoted(std::string &text, const char *bytes, std::size_t size)
{
    constexpr char hexDigits[] = "0123456789abcdef";
    text += '"';
    for (std::size_t position = 0; position < size; ++position) {
        const auto byte = static_cast<unsigned char>(bytes[position]);
        if (byte == '"' || byte == '\\') {
            text += '\\';
            text += bytes[position];
        } else if (byte < 0x20 || byte == 0x7F) {
            text += {'\\', 'x', hexDigits[byte >> 4], hexDigits[byte & 15]};
        } else {
            text += bytes[position];
        }
    }
    text += '"';
}

} // namespace

void append(std::string &text, const Field &field)
{
    const std::size_t length = strnlen(field.data, field.size);
    const bool zeroFilled =
        std::all_of(field.data + length, field.data + field.size, [](char byte) { return byte == 0; });
    appendQuoted(text, field.data, zeroFilled ? length : field.size);
    text += '[' + std::to_string(field.size) + ']';
    if (length == field.size)
        text += " unterminated";
}

void append(std::string &text, const Bytes &bytes)
{
    constexpr char hexDigits[] = "0123456789abcdef";
    text += '<';
    for (std::size_t position = 0; position < bytes.size; ++position)
        text += {hexDigits[bytes.data[position] >> 4], hexDigits[bytes.data[position] & 15]};
    text += '>';
}

void append(std::string &text, const QString &value)
{
    append(text, value.toUtf8());
}

void append(std::string &text, const QByteArray &value)
{
    appendQuoted(text, value.constData(), static_cast<std::size_t>(value.size()));
}

void append(std::string &text, const char *value)
{
    appendQuoted(text, value, std::strlen(value));
}

void append(std::string &text, bool value)
{
    text += value ? "true" : "false";
}

void append(std::string &text, char value)
{
    text += '\'';
    text += value;
    text += '\'';
}

} // namespace Simulator
