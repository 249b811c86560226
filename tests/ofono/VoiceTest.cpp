// Voice calls through the daemon.
#include "Desk.h"
#include "MemorySearch.h"

#include <csignal>
#include <thread>

using Desk::tell;
using Desk::text;

namespace {

class VoiceOnOfono : public OfonoTest {
protected:
    ~VoiceOnOfono() override
    {
        Desk::byHand("/phone org.ofono.VoiceCallManager.HangupAll");
        EXPECT_TRUE(Desk::becomes([] { return calls().empty(); })) << calls();
    }

    /** Every call as "id:state", with a + for one in a conference: 1 dialling, 2 ringing, 3 active, 4 held. */
    static std::string calls()
    {
        _TAPI_CALL_SESSION_TABLE_S table = {};
        if (PHONE_ENG_TAPI_CALL_GetCallStatus(&table) != TAPI_RESULT_SUCC)
            return "!";
        std::string shown;
        for (unsigned int call = 0; call < table.count; ++call) {
            shown += (shown.empty() ? "" : " ") + std::to_string(table.sessions[call].callId) + ':'
                + std::to_string(table.sessions[call].state) + (table.sessions[call].joined ? "+" : "");
        }
        return shown;
    }

    static bool become(const std::string &wanted)
    {
        return Desk::becomes([&] { return calls() == wanted; });
    }

    /** The id, 0 when the call is refused. */
    static unsigned char dial(const std::string &number, signed char option = 0)
    {
        std::string dialString = number;
        unsigned char callId = 0;
        PHONE_ENG_TAPI_CALL_VOICECALL_MakeReq(option, reinterpret_cast<unsigned char *>(dialString.data()),
                                              &callId);
        return callId;
    }

    /** An active call with that id, the others held. */
    static void talk(unsigned char id, const std::string &others = {})
    {
        EXPECT_EQ(dial("0555" + std::to_string(id)), id);
        tell(".answer " + std::to_string(id));
        EXPECT_TRUE(become((others.empty() ? "" : others + ' ') + std::to_string(id) + ":3")) << calls();
    }
};

constexpr _TAPI_RESULT_E done = TAPI_RESULT_SUCC;
constexpr _TAPI_RESULT_E refused = TAPI_RESULT_FAIL;

} // namespace

TEST_F(VoiceOnOfono, DialsAndHoldsAndRetrieves)
{
    const unsigned char first = dial("+49 (30) 123-45");
    EXPECT_EQ(first, 1);
    EXPECT_TRUE(become("1:1"));
    _TAPI_CALL_SESSION_TABLE_S table = {};
    EXPECT_EQ(PHONE_ENG_TAPI_CALL_GetCallStatus(&table), done);
    EXPECT_STREQ(table.sessions[0].number, "+493012345");
    EXPECT_EQ(dial("0556"), 0); // the daemon dials one at a time
    EXPECT_EQ(PHONE_ENG_TAPI_CALL_VOICECALL_HoldReq(1, 1), refused);
    tell(".answer 1");
    EXPECT_TRUE(become("1:3"));
    EXPECT_EQ(PHONE_ENG_TAPI_CALL_VOICECALL_HoldReq(1, 0), refused);
    EXPECT_EQ(PHONE_ENG_TAPI_CALL_VOICECALL_HoldReq(1, 1), done);
    EXPECT_EQ(calls(), "1:4");
    EXPECT_EQ(PHONE_ENG_TAPI_CALL_VOICECALL_HoldReq(1, 0), done);
    EXPECT_EQ(calls(), "1:3");
    EXPECT_EQ(PHONE_ENG_TAPI_CALL_VOICECALL_HoldReq(9, 1), TAPI_RESULT_CALL_INVALID_ID);
    EXPECT_EQ(PHONE_ENG_TAPI_CALL_VOICECALL_CancelReq(1), refused); // it is no longer being dialled
    EXPECT_EQ(PHONE_ENG_TAPI_CALL_VOICECALL_ReleaseReq(1, TAPI_VOICE_DROP_ONE), done);
    EXPECT_TRUE(become(""));
    EXPECT_EQ(dial("0555"), 1);
    EXPECT_EQ(PHONE_ENG_TAPI_CALL_VOICECALL_CancelReq(1), done);
    EXPECT_TRUE(become(""));
    std::string cardsNumber = "0557";
    unsigned char callId = 0;
    EXPECT_EQ(PHONE_ENG_TAPI_CALL_VOICECALL_STK_MakeReq(reinterpret_cast<unsigned char *>(cardsNumber.data()),
                                                        {}, {}, 0, &callId),
              done);
    EXPECT_EQ(callId, 1);
    EXPECT_TRUE(become("1:1"));
}

TEST_F(VoiceOnOfono, SwapsTwoCallsOnlyAsAsked)
{
    talk(1);
    talk(2, "1:4");
    EXPECT_EQ(PHONE_ENG_TAPI_CALL_VOICECALL_HoldReq(2, 1), refused); // would retrieve the other
    EXPECT_EQ(PHONE_ENG_TAPI_CALL_VOICECALL_SwitchReq(1, 2), done);
    EXPECT_EQ(calls(), "1:3 2:4");
    EXPECT_EQ(PHONE_ENG_TAPI_CALL_VOICECALL_HoldReq(2, 0), done);
    EXPECT_EQ(calls(), "1:4 2:3");
    tell(".ring 0777");
    EXPECT_TRUE(become("1:4 2:3 3:2"));
    EXPECT_EQ(PHONE_ENG_TAPI_CALL_VOICECALL_SwitchReq(1, 2), refused); // would answer the third
    EXPECT_EQ(PHONE_ENG_TAPI_CALL_VOICECALL_RejectReq(3, TAPI_VOICE_REJECT_BUSY), done);
    EXPECT_TRUE(become("1:4 2:3"));
    EXPECT_EQ(PHONE_ENG_TAPI_CALL_VOICECALL_ConferenceReq(1, 2), done);
    EXPECT_TRUE(become("1:3+ 2:3+")) << calls();
    EXPECT_EQ(POHONE_ENG_TAPI_CALL_VOICECALL_UnconferenceReq(2), done);
    EXPECT_TRUE(become("1:4 2:3")) << calls();
    EXPECT_EQ(POHONE_ENG_TAPI_CALL_VOICECALL_UnconferenceReq(2), refused);
    EXPECT_EQ(PHONE_ENG_TAPI_CALL_VOICECALL_LinkReq(1, 2), done);
    EXPECT_TRUE(become("")) << calls();
}

TEST_F(VoiceOnOfono, AnswersAndDropsByType)
{
    tell(".ring 0777");
    EXPECT_TRUE(become("1:2"));
    EXPECT_EQ(PHONE_ENG_TAPI_CALL_VOICECALL_ReleaseReq(2, TAPI_VOICE_DROP_ONE), TAPI_RESULT_CALL_INVALID_ID);
    EXPECT_EQ(PHONE_ENG_TAPI_CALL_VOICECALL_AnswerReq(1, TAPI_VOICE_ANSWER_HOLD_ACTIVE), done);
    EXPECT_TRUE(become("1:3"));
    EXPECT_EQ(PHONE_ENG_TAPI_CALL_VOICECALL_AnswerReq(1, TAPI_VOICE_ANSWER_HOLD_ACTIVE), refused);
    tell(".ring 0778");
    EXPECT_TRUE(become("1:3 2:2"));
    EXPECT_EQ(PHONE_ENG_TAPI_CALL_VOICECALL_AnswerReq(2, TAPI_VOICE_ANSWER_HOLD_ACTIVE), done);
    EXPECT_TRUE(become("1:4 2:3")) << calls();
    EXPECT_EQ(PHONE_ENG_TAPI_CALL_VOICECALL_ReleaseReq(1, TAPI_VOICE_DROP_ALL_ACTIVE), done);
    EXPECT_TRUE(become("1:4")) << calls();
    EXPECT_EQ(PHONE_ENG_TAPI_CALL_VOICECALL_ReleaseReq(1, TAPI_VOICE_DROP_ALL_HELD), done);
    EXPECT_TRUE(become("")) << calls();
    talk(1);
    tell(".ring 0779");
    EXPECT_TRUE(become("1:3 2:2"));
    EXPECT_EQ(PHONE_ENG_TAPI_CALL_VOICECALL_AnswerReq(2, TAPI_VOICE_ANSWER_RELEASE_ACTIVE), done);
    EXPECT_TRUE(become("2:3")) << calls();
    EXPECT_EQ(PHONE_ENG_TAPI_CALL_VOICECALL_ReleaseReq(2, TAPI_VOICE_DROP_ALL), done);
    EXPECT_TRUE(become("")) << calls();
}

TEST_F(VoiceOnOfono, UsesTheChoiceForTheNextCallOnce)
{
    const auto dialled = [](const std::string &number, signed char option) {
        EXPECT_NE(dial(number, option), 0);
        EXPECT_EQ(PHONE_ENG_TAPI_CALL_VOICECALL_ReleaseReq(1, TAPI_VOICE_DROP_ALL), done);
        EXPECT_TRUE(become(""));
    };
    unsigned char id = 9;
    EXPECT_EQ(setup().setNextCLIR(3), TAPI_RESULT_INVALID_PARAM);
    EXPECT_EQ(setup().setNextCLIR(TAPI_CALL_RESTRICT_ID_INVOKE), done);
    EXPECT_EQ(setup().getNextCLIR(id), done);
    EXPECT_EQ(id, TAPI_CALL_RESTRICT_ID_INVOKE);
    EXPECT_EQ(dial("0x55"), 0); // refused, so the choice waits for the next one
    dialled("05551",
            TAPI_CALL_RESTRICT_ID_SUPPRESS); // shown by its own option, which leaves the choice alone
    dialled("05552", 0);
    EXPECT_EQ(setup().getNextCLIR(id), done);
    EXPECT_EQ(id, TAPI_CALL_RESTRICT_ID_NETWORK);
    dialled("05553", 0);
    dialled("05554", TAPI_CALL_RESTRICT_ID_INVOKE);
    EXPECT_EQ(dial("05555", 3), 0);
    EXPECT_EQ(dial("05555", -1), 0);
    // Hidden is I, shown is i, as subscribed is neither (3GPP TS 27.007, D).
    EXPECT_EQ(
        std::system(
            "grep -o '> ATD05[0-9]*[Ii]*;' \"$KVQ_DESK/daemon.log\" | sort -u | grep -c -x -e '> ATD05551i;' "
            "-e '> ATD05552I;' -e '> ATD05553;' -e '> ATD05554I;' | grep -qx 4"),
        0);
}

TEST_F(VoiceOnOfono, SendsTonesAndReleasesWhileTheySound)
{
    std::string tones = "1*D";
    const auto bytes = [](std::string &digits) { return reinterpret_cast<unsigned char *>(digits.data()); };
    EXPECT_NE(PHONE_ENG_TAPI_CALL_VOICECALL_DtmfStringReq(1, bytes(tones)), done);
    talk(1);
    EXPECT_EQ(PHONE_ENG_TAPI_CALL_VOICECALL_DtmfReq('5', TAPI_VOICE_DTMF_KEY_PRESSED), done);
    EXPECT_EQ(PHONE_ENG_TAPI_CALL_VOICECALL_DtmfReq('5', TAPI_VOICE_DTMF_KEY_RELEASED), done);
    EXPECT_EQ(PHONE_ENG_TAPI_CALL_VOICECALL_DtmfReq('x', TAPI_VOICE_DTMF_KEY_PRESSED),
              TAPI_RESULT_INVALID_PARAM);
    EXPECT_EQ(PHONE_ENG_TAPI_CALL_VOICECALL_DtmfStringReq(1, bytes(tones)), done);
    std::string mistaken = "12e";
    EXPECT_EQ(PHONE_ENG_TAPI_CALL_VOICECALL_DtmfStringReq(1, bytes(mistaken)), TAPI_RESULT_INVALID_PARAM);
    tell(".delay +VTS 300");
    const Desk::Traffic traffic;
    std::thread other([] { Desk::byHand("/phone org.ofono.VoiceCallManager.SendTones string:123"); });
    traffic.waitFor("+VTS");
    EXPECT_EQ(PHONE_ENG_TAPI_CALL_VOICECALL_ReleaseReq(1, TAPI_VOICE_DROP_ALL), done);
    other.join();
    tell(".delay +VTS off");
    EXPECT_TRUE(become(""));
}

TEST_F(VoiceOnOfono, TransfersWhatRingsAndCountsTheTime)
{
    std::string target = "0888";
    auto *const number = reinterpret_cast<unsigned char *>(target.data());
    EXPECT_EQ(setup().resetCallTime(), done);
    EXPECT_EQ(setup().getTotalCallTime(), text("0:0:0"));
    talk(1);
    EXPECT_EQ(PHONE_ENG_TAPI_CALL_VOICECALL_TransferReq(1, number), TAPI_RESULT_NOT_SUPPORTED);
    EXPECT_TRUE(Desk::becomes([this] { return setup().getTotalCallTime() >= text("0:0:2"); }));
    EXPECT_EQ(PHONE_ENG_TAPI_CALL_VOICECALL_ReleaseReq(1, TAPI_VOICE_DROP_ALL), done);
    EXPECT_TRUE(become(""));
    EXPECT_GE(setup().getTotalCallTime(), text("0:0:2"));
    EXPECT_EQ(setup().resetCallTime(), done);
    EXPECT_EQ(setup().getTotalCallTime(), text("0:0:0"));
    tell(".ring 0777");
    EXPECT_TRUE(become("1:2"));
    EXPECT_EQ(PHONE_ENG_TAPI_CALL_VOICECALL_TransferReq(1, number), done);
    EXPECT_TRUE(become("")) << calls();
}

/** The network's menu waits for the subscriber; the request does not wait for either. */
TEST_F(VoiceOnOfono, BeginsAServiceDialogueWithoutWaiting)
{
    _TAPI_USSD_REQ_APP_MSG_S request = {0x0F, 5, "*100#"};
    Desk::end("modem", SIGSTOP); // so nothing is answered
    EXPECT_EQ(PHONE_ENG_TAPI_USSD_Make_Req(&request), done);
    Desk::end("modem", SIGCONT);
    const auto stateIs = [](const char *state) {
        return Desk::byHand("/phone org.ofono.SupplementaryServices.GetProperties").find(state)
            != std::string::npos;
    };
    request = {0x0F, 5, "*123#"}; // a menu, which stays open until it is answered
    EXPECT_TRUE(Desk::becomes([&] { return PHONE_ENG_TAPI_USSD_Make_Req(&request) == done; }));
    EXPECT_TRUE(Desk::becomes([&] { return stateIs("user-response"); }));
    _TAPI_USSD_REQ_APP_MSG_S answer = {0x0F, 1, "1"};
    EXPECT_EQ(PHONE_ENG_TAPI_USSD_Make_Req(&answer), done);
    EXPECT_TRUE(Desk::becomes([&] { return stateIs("idle"); }));
    request.text[1] = 7;
    EXPECT_EQ(PHONE_ENG_TAPI_USSD_Make_Req(&request), TAPI_RESULT_INVALID_PARAM);
    request = {};
    EXPECT_EQ(PHONE_ENG_TAPI_USSD_Make_Req(&request), TAPI_RESULT_INVALID_PARAM);
}

/** Who changes a PIN by dialling trusts the phone as much as who does it on a page. */
TEST_F(VoiceOnOfono, LeavesNoDialledPinInMemory)
{
    const auto write = [](unsigned char *place, std::string_view procedure) {
        place = std::copy(procedure.begin(), procedure.end(), place);
        for (const unsigned char digit : MemorySearch::hidden)
            *place++ = digit ^ MemorySearch::mask;
        *place++ = '#';
        return place;
    };
    EXPECT_EQ(MemorySearch::findInMemory(), 0U);
    for (const char *const procedure : {"**04*", "**05*", "*33*"}) {
        std::array<unsigned char, 64> number = {};
        write(number.data(), procedure);
        unsigned char callId = 0;
        PHONE_ENG_TAPI_CALL_VOICECALL_MakeReq(0, number.data(), &callId);
        explicit_bzero(number.data(), number.size());
        EXPECT_EQ(MemorySearch::findInMemory(), 0U) << "dialled " << procedure;

        _TAPI_USSD_REQ_APP_MSG_S request = {};
        request.length = static_cast<unsigned char>(write(request.text, procedure) - request.text);
        PHONE_ENG_TAPI_USSD_Make_Req(&request);
        explicit_bzero(&request, sizeof request);
        EXPECT_EQ(MemorySearch::findInMemory(), 0U) << "requested " << procedure;
    }
}
