// The simulated phone through its entry point: what a program does to it that does not link it.
#include "PHONE_ENG_WrapTapi.h"
#include "SimulatedPhone.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

namespace {

using namespace std::chrono_literals;

class SimulatedPhoneControlTest : public testing::Test {
protected:
    SimulatedPhoneControlTest()
    {
        m_phone->reset();
        SimulatedPhone::instance().setJournalEnabled(true);
    }
    ~SimulatedPhoneControlTest() override { m_phone->reset(); }

    /** "" when the phone tells nothing of the subject. */
    std::string fact(const std::string &subject)
    {
        for (const SimulatedPhoneControl::Fact &fact : m_phone->facts()) {
            if (fact.subject == subject)
                return fact.text;
        }
        return {};
    }

    SimulatedPhoneControl *m_phone = findSimulatedPhone();
};

TEST_F(SimulatedPhoneControlTest, APhoneIsActedOnWhileALateAnswerIsOnItsWay)
{
    ASSERT_TRUE(m_phone->setDelay("TAPI_VOICE_MuteBeep", 24h));
    std::vector<std::string> calls;
    std::atomic<bool> answered = false;
    m_phone->setObserver(
        [&](const std::string &call, const std::string &answer) { calls.push_back(call + " = " + answer); });
    std::thread caller([&] {
        PHONE_ENG_TAPI_CALL_VOICECALL_Mute_Beep();
        answered = true;
    });
    SimulatedPhone &phone = SimulatedPhone::instance();
    for (bool isAsked = false; !isAsked; std::this_thread::yield()) {
        const std::lock_guard lock(phone.mutex());
        isAsked = !phone.takeJournal().empty();
    }
    EXPECT_EQ(m_phone->ring("5551234"), 1);
    EXPECT_FALSE(answered);
    m_phone->setDelay("*", 0ms); // the call that waits is answered too
    caller.join();
    m_phone->setObserver(nullptr);
    EXPECT_EQ(calls, std::vector<std::string>{"TAPI_VOICE_MuteBeep() = 0"});
    EXPECT_EQ(fact("call 1"), "5551234 ringing, came in");
    EXPECT_TRUE(m_phone->remoteHangsUp(1));
    EXPECT_FALSE(m_phone->remoteHangsUp(1));
    EXPECT_EQ(fact("call 1"), "");

    constexpr auto late = 50ms;
    ASSERT_TRUE(m_phone->setDelay("TAPI_VOICE_MuteBeep", late));
    const auto begin = std::chrono::steady_clock::now();
    PHONE_ENG_TAPI_CALL_VOICECALL_Mute_Beep();
    EXPECT_GE(std::chrono::steady_clock::now() - begin, late);
}

TEST_F(SimulatedPhoneControlTest, FunctionsAreNamedWholeOrByTheirBeginning)
{
    ScriptedAnswer busy;
    busy.result = 7;
    EXPECT_TRUE(m_phone->setAnswer("TAPI_VOICE_Mute*", busy));
    EXPECT_EQ(PHONE_ENG_TAPI_CALL_VOICECALL_Mute_Beep(), 7);
    EXPECT_EQ(PHONE_ENG_TAPI_CALL_VOICECALL_MuteReq(1), 7);
    EXPECT_TRUE(m_phone->clearAnswer("TAPI_VOICE_MuteBeep"));
    EXPECT_EQ(PHONE_ENG_TAPI_CALL_VOICECALL_Mute_Beep(), TAPI_RESULT_SUCC);
    EXPECT_EQ(fact("TAPI_VOICE_MuteCall"), "answers 7");
    EXPECT_TRUE(m_phone->clearAnswer("*"));
    EXPECT_EQ(fact("TAPI_VOICE_MuteCall"), "");
    for (const char *const unknown : {"", "TAPI_VOICE_Mute", "TAPI_NO_*"}) {
        EXPECT_FALSE(m_phone->setAnswer(unknown, busy)) << unknown;
        EXPECT_FALSE(m_phone->setDelay(unknown, 5ms)) << unknown;
    }
}

TEST_F(SimulatedPhoneControlTest, TheTriesThatAreLeftAreTold)
{
    PhoneState &state = SimulatedPhone::instance().state();
    EXPECT_EQ(fact("PIN1"), "not verified, 3 tries left (PUK: 10 tries left)");
    state.sim.pin1.triesLeft = 1;
    EXPECT_EQ(fact("PIN1"), "not verified, 1 try left (PUK: 10 tries left)");
    state.sim.pin1.triesLeft = 0;
    EXPECT_EQ(fact("PIN1"), "blocked, PUK: 10 tries left");
    state.sim.pin1.pukTriesLeft = 0;
    EXPECT_EQ(fact("PIN1"), "blocked for good, PUK: 0 tries left");
}

} // namespace
