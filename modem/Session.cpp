// One connection to the modem.
#include "Session.h"

#include "Modem.h"

namespace AtModem {

namespace {

constexpr std::size_t maxLineLength = 4096;
constexpr std::size_t maxWaitingLines = 64;

} // namespace

Session::Session(Modem &modem, Writer writer)
    : m_modem(modem)
    , m_writer(std::move(writer))
{
}

void Session::receive(std::string_view bytes)
{
    for (const char byte : bytes) {
        if (preferences.echo)
            write(std::string(1, byte));
        if (byte == '\r') {
            if (std::exchange(m_lineTooLong, false))
                answer(Answer::syntaxError());
            else
                run(std::move(m_line));
            m_line.clear();
        } else if (byte == '\b' || byte == '\x7F') {
            if (!m_line.empty())
                m_line.pop_back();
        } else if (static_cast<unsigned char>(byte) < 0x20) {
            continue;
        } else if (m_line.size() == maxLineLength) {
            m_lineTooLong = true;
        } else {
            m_line += byte;
        }
    }
}

void Session::run(std::string line)
{
    if (line.find_first_not_of(' ') == std::string::npos)
        return;
    // Who never waits for an answer loses the lines that nobody can remember.
    if (m_waiting.size() < maxWaitingLines)
        m_waiting.push_back(std::move(line));
    if (!m_busy)
        runNext();
}

void Session::runNext()
{
    while (!m_busy && !m_waiting.empty()) {
        const std::string line = std::move(m_waiting.front());
        m_waiting.pop_front();
        m_modem.log("<", line);
        const auto commands = parseLine(line);
        if (!commands) {
            answer(Answer::syntaxError());
            continue;
        }
        const Agenda::Duration delay = m_modem.delayOf(*commands);
        if (delay.count() == 0) {
            execute(*commands);
            continue;
        }
        m_busy = true;
        // The command goes its way even when the connection is gone before it is answered.
        m_modem.agenda().after(delay, [self = shared_from_this(), commands = *commands] {
            self->execute(commands);
            self->m_busy = false;
            self->runNext();
        });
    }
}

void Session::execute(const std::vector<Command> &commands)
{
    Answer whole;
    for (const Command &command : commands) {
        Answer one = m_modem.execute(*this, command);
        whole.result = one.result;
        whole.reason = one.reason;
        whole.lines.insert(whole.lines.end(), std::make_move_iterator(one.lines.begin()),
                           std::make_move_iterator(one.lines.end()));
        if (one.result != Answer::Result::Ok)
            break;
    }
    answer(whole);
    m_modem.afterAnswer();
}

void Session::answer(const Answer &answer)
{
    for (const std::string &line : answer.lines)
        tell(line);
    switch (answer.result) {
    case Answer::Result::Ok:
        tell(preferences.verbose ? "OK" : "0");
        break;
    case Answer::Result::NoCarrier:
        tell(preferences.verbose ? "NO CARRIER" : "3");
        break;
    case Answer::Result::SyntaxError:
        tell(preferences.verbose ? "ERROR" : "4");
        break;
    case Answer::Result::Error:
        if (preferences.errorFormat == 0)
            tell(preferences.verbose ? "ERROR" : "4");
        else if (preferences.errorFormat == 1)
            tell("+CME ERROR: " + std::to_string(static_cast<int>(answer.reason)));
        else
            tell(std::string("+CME ERROR: ") + textOf(answer.reason));
        break;
    }
}

void Session::tell(const std::string &line)
{
    m_modem.log(">", line);
    write("\r\n" + line + "\r\n");
}

void Session::write(const std::string &text)
{
    if (m_writer)
        m_writer(text);
}

} // namespace AtModem
