// Calls whose request has timed out: they are not placed unseen.
#include "Desk.h"

#include <csignal>

using Desk::tell;

namespace {

class LateCallsOnOfono : public OfonoTest {
protected:
    ~LateCallsOnOfono() override { Desk::byHand("/phone org.ofono.VoiceCallManager.HangupAll"); }

    static std::string calls() { return Desk::byHand("/phone org.ofono.VoiceCallManager.GetCalls"); }

    static bool has(const std::string &number) { return calls().find(number) != std::string::npos; }

    static _TAPI_RESULT_E dial(std::string number)
    {
        unsigned char callId = 0;
        return PHONE_ENG_TAPI_CALL_VOICECALL_MakeReq(0, reinterpret_cast<unsigned char *>(number.data()),
                                                     &callId);
    }
};

} // namespace

/** A modem that falls silent and wakes places the call. It is ended at once, and nothing but it. */
TEST_F(LateCallsOnOfono, HangsUpWhatIsPlacedTooLate)
{
    EXPECT_EQ(dial("05551"), TAPI_RESULT_SUCC);
    tell(".answer 1");
    EXPECT_TRUE(Desk::becomes([] { return calls().find("active") != std::string::npos; }));
    tell(".silence on");
    const Desk::Traffic traffic;
    EXPECT_EQ(dial("05552"), TAPI_RESULT_TIMED_OUT);
    EXPECT_TRUE(traffic.has("D05552"));
    EXPECT_FALSE(traffic.has("+CHLD=1")); // that releases one call
    tell(".silence off");
    traffic.waitFor("+CHLD=1");
    EXPECT_TRUE(Desk::becomes([] { return has("05551") && !has("05552"); })) << calls();
    // What is dialled afterwards is dialled.
    EXPECT_TRUE(Desk::becomes([] { return dial("05553") == TAPI_RESULT_SUCC; }));
    EXPECT_TRUE(has("05551") && has("05553")) << calls();
}

/** What a daemon is told while it stands still it does when it goes on, so it is not told. */
TEST_F(LateCallsOnOfono, PlacesNoCallWhenTheDaemonGoesOn)
{
    EXPECT_FALSE(has("05554")); // the modem is chosen
    const Desk::Traffic traffic;
    Desk::end("daemon", SIGSTOP);
    EXPECT_EQ(dial("05554"), TAPI_RESULT_TIMED_OUT);
    Desk::end("daemon", SIGCONT);
    EXPECT_EQ(dial("05555"), TAPI_RESULT_SUCC); // asked after it
    EXPECT_TRUE(traffic.has("D05555"));
    EXPECT_FALSE(traffic.has("D05554"));
}
