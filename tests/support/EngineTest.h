// What every test of the engine stands on: a new simulated phone, a captured log, a hook that can refuse.
#pragma once

#include "PHONE_ENG_NtInterface.h"
#include "PHONE_ENG_Setup.h"
#include "PHONE_ENG_WrapTapi.h"
#include "SimulatedPhone.h"

#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <type_traits>
#include <vector>

/** What happened, in order. */
using Events = std::vector<std::string>;

/** A trace in an Events list. */
inline const std::string trace = "|";

/** The record of a scripted answer, byte for byte. */
template <typename Record>
std::string bytesOf(const Record &record)
{
    static_assert(std::is_trivially_copyable_v<Record>);
    return {reinterpret_cast<const char *>(&record), sizeof record};
}

class EngineTest : public testing::Test {
protected:
    EngineTest();
    ~EngineTest() override;

    PHONE_ENG_Setup &setup() { return *PHONE_ENG_Setup::instance(); }
    PHONE_ENG_NtInterface &network() { return *PHONE_ENG_NtInterface::instance(); }
    PhoneState &state() { return phone.state(); }

    /** The system-status hook refuses from now on. */
    void refuse();

    /** Scripts the answer of a platform function. */
    void answer(const std::string &function, long long result, std::vector<std::string> out = {});

    /**
     * Platform calls and log lines since the last look, in order. A platform call stands as it is
     * described in the journal, a bare trace as "|", a message as its text in quotes.
     */
    Events events();
    /** The same in one text, each event after a space. */
    std::string journal();
    /** The same behind what an operation gave. */
    std::string after(const std::string &result) { return result + ':' + journal(); }
    std::string after(unsigned int result) { return after(std::to_string(result)); }
    /** The platform calls alone. */
    Events calls();
    /** The messages alone, without quotes. */
    Events messages();
    /** The places that have logged since the last look: "utility/PHONE_ENG_Setup getChargeType". */
    std::set<std::string> locations();

    /** An operation, and the one platform call that it makes, as the journal describes it. */
    struct PlatformWrite {
        std::function<_TAPI_RESULT_E()> operation;
        std::string call;
    };
    /** Each makes its call and gives the platform's result on. With the hook refusing, it makes none. Refuses from then on. */
    void reachPlatform(const std::vector<PlatformWrite> &writes);

    QString settingsFile() const;

    /** What the console, another program of the phone, says to an operation with the same settings. */
    std::string inAnotherProcess(const char *line) const;

    SimulatedPhone &phone = SimulatedPhone::instance();

private:
    Events take();
    void hear(const std::string &line);
    static ssize_t write(void *test, const char *data, std::size_t size);

    QTemporaryDir m_directory;
    std::FILE *m_log = nullptr;
    std::string m_line;
    std::set<std::string> m_locations;
};
