// One connection to the modem: its line buffer, its format and what it wants to be told.
#pragma once

#include "Answer.h"
#include "AtLine.h"

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace AtModem {

class Modem;

/** What a connection chose; a new one starts with these. */
struct Preferences {
    bool echo = true;
    bool verbose = true;
    int errorFormat = 0; ///< +CMEE: 0 plain, 1 numbers, 2 words
    int operatorFormat = 0;
    std::string characterSet = "GSM";

    int registration = 0; ///< +CREG: 1 the status, 2 the cell too
    bool extendedRing = false;
    bool callerId = false;
    bool callWaiting = false;
    bool outgoingNotifications = false; ///< +CSSN, first value
    bool incomingNotifications = false; ///< +CSSN, second value
    bool connectedId = false;
    bool calledId = false;
    bool callerName = false;
    bool serviceData = false; ///< +CUSD
    bool charge = false;      ///< +CAOC
    bool creditWarning = false;
};

class Session : public std::enable_shared_from_this<Session> {
public:
    using Writer = std::function<void(std::string_view bytes)>;

    Session(Modem &modem, Writer writer);

    /** Takes what came in; complete lines are run, one after the other. */
    void receive(std::string_view bytes);

    /** The other end is gone: what is still to be done is done, and told to nobody. */
    void disconnect() { m_writer = nullptr; }

    /** Tells something that nobody asked for. */
    void tell(const std::string &line);

    Preferences preferences;

private:
    void run(std::string line);
    void runNext();
    void execute(const std::vector<Command> &commands);
    void answer(const Answer &answer);
    void write(const std::string &text);

    Modem &m_modem;
    Writer m_writer;
    std::string m_line;
    bool m_lineTooLong = false;
    std::deque<std::string> m_waiting;
    bool m_busy = false; ///< a line waits for its late answer
};

} // namespace AtModem
