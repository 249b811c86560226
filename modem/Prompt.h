// The modem's own commands: what happens to the phone, and how the modem answers.
#pragma once

#include "Modem.h"

#include <string>
#include <string_view>
#include <vector>

namespace AtModem {

class Prompt {
public:
    enum class Status { Done, Mistake, Quit };

    /** What a line came to: text to show, which ends with a newline unless it is empty. */
    struct Reply {
        Status status = Status::Done;
        std::string text;
    };

    explicit Prompt(Modem &modem);
    Prompt(const Prompt &) = delete;
    Prompt &operator=(const Prompt &) = delete;

    /** Runs a line: a command, or an AT command line that is answered here. */
    Reply run(std::string_view line);

    /** The names of the commands that begin with a text. */
    std::vector<std::string> completions(std::string_view begin) const;

    /** Where the traffic is shown that .log switches on. */
    void setLogSink(std::function<void(const std::string &text)> sink) { m_logSink = std::move(sink); }
    void setLogShown(bool shown);

private:
    Reply runAtLine(std::string_view line);

    Modem &m_modem;
    std::shared_ptr<Session> m_session;
    std::string m_answers;
    std::function<void(const std::string &)> m_logSink;
};

} // namespace AtModem
