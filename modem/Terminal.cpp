// The prompt on standard input.
#include "Terminal.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>

#include <editline/readline.h>

namespace AtModem {

namespace {

constexpr std::size_t maxLineLength = 4096;

// The line-editing library's callbacks take no context of their own.
Terminal *editingTerminal = nullptr;
const Prompt *completingPrompt = nullptr;

char *nextCandidate(const char *text, int state)
{
    static std::vector<std::string> candidates;
    static std::size_t next = 0;
    if (state == 0) {
        candidates = completingPrompt->completions(text);
        next = 0;
    }
    return next < candidates.size() ? strdup(candidates[next++].c_str()) : nullptr;
}

char **complete(const char *text, int start, int)
{
    rl_attempted_completion_over = 1;
    return start == 0 ? rl_completion_matches(text, nextCandidate) : nullptr;
}

} // namespace

Terminal::Terminal(Server &server, Prompt &prompt)
    : m_server(server)
    , m_prompt(prompt)
    , m_interactive(isatty(STDIN_FILENO) == 1)
{
    if (!m_interactive) {
        server.watch(STDIN_FILENO, [this] { return readPlain(); });
        return;
    }
    completingPrompt = &prompt;
    rl_readline_name = "kvq-modem";
    rl_attempted_completion_function = complete;
    rl_basic_word_break_characters = " ";
    using_history();
    editingTerminal = this;
    rl_callback_handler_install("modem> ", [](char *line) {
        const std::unique_ptr<char, decltype(&std::free)> owned(line, &std::free);
        editingTerminal->runLine(line);
    });
    server.watch(STDIN_FILENO, [this] { return readEdited(); });
}

Terminal::~Terminal()
{
    if (m_interactive)
        rl_callback_handler_remove();
}

bool Terminal::readEdited()
{
    rl_callback_read_char();
    return m_open;
}

bool Terminal::readPlain()
{
    std::array<char, 1024> buffer = {};
    const ssize_t received = read(STDIN_FILENO, buffer.data(), buffer.size());
    if (received <= 0)
        return false;
    for (const char byte : std::string_view(buffer.data(), static_cast<std::size_t>(received))) {
        if (byte == '\n')
            runLine(std::exchange(m_line, {}).c_str());
        else if (m_line.size() < maxLineLength)
            m_line += byte;
    }
    return m_open;
}

void Terminal::runLine(const char *line)
{
    if (!line) { // the end of the input ends the modem
        m_open = false;
        m_server.stop();
        return;
    }
    if (m_interactive && *line != '\0' && maskSecrets(line) == line)
        add_history(line);
    const Prompt::Reply reply = m_prompt.run(line);
    std::fputs(reply.text.c_str(), reply.status == Prompt::Status::Mistake ? stderr : stdout);
    std::fflush(stdout);
    m_mistaken = m_mistaken || (!m_interactive && reply.status == Prompt::Status::Mistake);
    if (reply.status == Prompt::Status::Quit) {
        m_open = false;
        m_server.stop();
    }
}

void Terminal::show(const std::string &text)
{
    if (m_interactive)
        std::fputs("\r\033[K", stdout);
    std::fputs(text.c_str(), stdout);
    std::fflush(stdout);
    if (m_interactive)
        rl_forced_update_display();
}

} // namespace AtModem
