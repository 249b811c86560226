// The prompt on standard input: edited lines on a terminal, plain lines from a pipe.
#pragma once

#include "Prompt.h"
#include "Server.h"

namespace AtModem {

class Terminal {
public:
    Terminal(Server &server, Prompt &prompt);
    ~Terminal();
    Terminal(const Terminal &) = delete;
    Terminal &operator=(const Terminal &) = delete;

    /** Shows a text above the line that is being edited. */
    void show(const std::string &text);

    /** Whether a line was mistaken that no one could correct. */
    bool hasMistakes() const { return m_mistaken; }

    /** Runs a line; null for the end of the input. */
    void runLine(const char *line);

private:
    bool readEdited();
    bool readPlain();

    Server &m_server;
    Prompt &m_prompt;
    const bool m_interactive;
    bool m_open = true;
    bool m_mistaken = false;
    std::string m_line;
};

} // namespace AtModem
