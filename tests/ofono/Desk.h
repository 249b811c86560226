// The desk that a test stands on: bus, modem and daemon are started by scripts/desk.sh, which runs the test.
#pragma once

#include "PHONE_ENG_NtInterface.h"
#include "PHONE_ENG_Setup.h"
#include "PHONE_ENG_WrapTapi.h"

#include <QString>

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <ios>
#include <map>
#include <string>

#include <sys/types.h>

namespace Desk {

/** Whether the script has set one up. */
bool isThere();

/** A subcommand of the script, which must succeed: "tell .ring 555", "daemon", "bus", "online". */
void script(const std::string &command);
/** A command of the modem's prompt. */
void tell(const std::string &command);
/** The same, and what it shows. */
std::string told(const std::string &command);

/** As if no program had chosen a modem yet. */
void forgetModem();

/** The process id of "bus", "modem" or "daemon". */
pid_t idOf(const char *program);
void end(const char *program, int signal);

/** Calls a method of the daemon by hand, as another program would; its answer as text, empty for a refusal. */
std::string byHand(const std::string &arguments);

/** Runs some of these tests in a program of its own. @p environment goes to it. Whether they passed. */
bool runApart(const char *tests, const std::map<std::string, std::string> &environment);

/** Looks again and again, for a minute: only what hangs takes that long. */
bool becomes(const std::function<bool()> &isSo);

/** Seconds that it takes, for what must not end too early. */
double secondsOf(const std::function<void()> &action);

/** What the daemon asks the modem, from now on. */
class Traffic {
public:
    Traffic();

    /** Waits until the daemon has sent an AT command that begins so. */
    void waitFor(const std::string &command) const;
    bool has(const std::string &command) const;

private:
    std::streamoff m_begin = 0;
};

inline QString text(const char *latin1)
{
    return QString::fromLatin1(latin1);
}

} // namespace Desk

/** The engine on the daemon. */
class OfonoTest : public testing::Test {
protected:
    OfonoTest();

    PHONE_ENG_Setup &setup() { return *PHONE_ENG_Setup::instance(); }
    PHONE_ENG_NtInterface &network() { return *PHONE_ENG_NtInterface::instance(); }
};
