// What requests that were made together ask for is asked for once.
#include "Desk.h"
#include "FakeDaemon.h"

#include "TAPI_CS.h"
#include "TAPI_NETWORK.h"

#include <QAbstractEventDispatcher>
#include <QVariant>

#include <csignal>

#include <systemd/sd-bus.h>

namespace {

class SharedOnOfono : public testing::Test {
protected:
    static void SetUpTestSuite() { Desk::end("daemon", SIGTERM); }
    ~SharedOnOfono() override { beginTurn(0); }

    static void beginTurn(int number)
    {
        QAbstractEventDispatcher::instance()->setProperty("kvqTurn", number);
    }

    /** How often properties are asked for while the meter is read twice, with something in between. */
    int questions(const std::function<void()> &between)
    {
        readMeter();
        const int before = m_questions;
        between();
        readMeter();
        return m_questions - before;
    }

    static void readMeter()
    {
        TAPI_METER_TEXT_A credit = {};
        EXPECT_EQ(TAPI_CS_GetRemainCredit(credit), TAPI_RESULT_SUCC);
        EXPECT_STREQ(credit, "5");
    }

    int m_questions = 0;
    const FakeDaemon m_daemon{withOneModem([this](std::string_view method, sd_bus_message *answer) {
        if (method != "GetProperties")
            return;
        ++m_questions;
        sd_bus_message_append(answer, "a{sv}", 3, "Present", "b", 1, "AccumulatedCallMeter", "u", 2U,
                              "AccumulatedCallMeterMaximum", "u", 7U);
    })};
};

} // namespace

TEST_F(SharedOnOfono, OneQuestionATurn)
{
    const auto nothing = [] {};
    EXPECT_EQ(questions(nothing), 1) << "without a turn";
    beginTurn(1);
    EXPECT_EQ(questions(nothing), 0) << "in one turn";
    EXPECT_EQ(questions([] { beginTurn(2); }), 1) << "in the next turn";
    EXPECT_EQ(questions([] { TAPI_NETWORK_SetBand(TAPI_NETWORK_BAND_WCDMA); }), 1) << "after a write";
    EXPECT_EQ(questions([] { beginTurn(0); }), 1) << "after the turn";
}
