// Voice calls: what each request refuses and asks, and who gets it, the modem or the push-to-talk service.
#include "EngineTest.h"

#include "KPTT_API_ReqDevice.h"
#include "PHONE_ENG_PTTCallManager.h"

#include <regex>

namespace {

using Id = unsigned char;

constexpr auto make = PHONE_ENG_TAPI_CALL_VOICECALL_MakeReq;
constexpr auto makeStk = PHONE_ENG_TAPI_CALL_VOICECALL_STK_MakeReq;
constexpr auto answerCall = PHONE_ENG_TAPI_CALL_VOICECALL_AnswerReq;
constexpr auto release = PHONE_ENG_TAPI_CALL_VOICECALL_ReleaseReq;
constexpr auto hold = PHONE_ENG_TAPI_CALL_VOICECALL_HoldReq;
constexpr auto swap = PHONE_ENG_TAPI_CALL_VOICECALL_SwitchReq;
constexpr auto cancel = PHONE_ENG_TAPI_CALL_VOICECALL_CancelReq;
constexpr auto link = PHONE_ENG_TAPI_CALL_VOICECALL_LinkReq;
constexpr auto transfer = PHONE_ENG_TAPI_CALL_VOICECALL_TransferReq;
constexpr auto join = PHONE_ENG_TAPI_CALL_VOICECALL_ConferenceReq;
constexpr auto split = POHONE_ENG_TAPI_CALL_VOICECALL_UnconferenceReq;
constexpr auto reject = PHONE_ENG_TAPI_CALL_VOICECALL_RejectReq;
constexpr auto mute = PHONE_ENG_TAPI_CALL_VOICECALL_MuteReq;

constexpr auto dropAll = TAPI_VOICE_DROP_ALL;
constexpr auto dropHeld = TAPI_VOICE_DROP_ALL_HELD;
constexpr auto holdActive = TAPI_VOICE_ANSWER_HOLD_ACTIVE;
constexpr auto emergency = TAPI_VOICE_DIAL_EMERGENCY;
constexpr auto largeRedial = static_cast<_TAPI_CALL_STK_REDIAL_E>(0x1FE);
constexpr auto largeReject = static_cast<_TAPI_VOICE_REJECT_CALL_TYPE_E>(0x01020304);

unsigned char number[] = "+49170p1";
unsigned char nothing[] = {0, '1', 0};
Id newId = 0;
Id newStkId = 0;

Events operator+(Events first, const Events &second)
{
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

struct Request {
    std::string function; ///< that logs, if one does
    _TAPI_RESULT_E (*send)();
    Events events;
};

class VoiceCallsTest : public EngineTest {
protected:
    VoiceCallsTest()
    {
        manager->state = 7;
        calls();
    }
    ~VoiceCallsTest() override { phone.setObserver(nullptr); }

    static Events asked(const std::string &question)
    {
        return {"PHONE_ENG_PTTCallManager::instance()", "PHONE_ENG_PTTCallManager::" + question};
    }
    static Events whether(int id) { return asked("isKodiakPTTCallId(" + std::to_string(id) + ")"); }
    static Events modem(const std::string &request) { return {trace, "TAPI_VOICE_" + request, trace}; }
    static Events service(const std::string &request, const Events &message = {})
    {
        return Events{"KPTT_API_ReqDevice()"} + message
            + Events{"KPTT_API_ReqDevice::" + request, "~KPTT_API_ReqDevice()"};
    }
    static Events holdMessage(const std::string &function)
    {
        return {R"("\nPTT PHONE_ENG_TAPI_CALL_VOICECALL_)" + function + R"(() LINE: Send holdCallReq\n")"};
    }

    void expectSent(const std::vector<Request> &requests)
    {
        for (const auto &[function, send, expected] : requests) {
            const bool viaService = expected.back() == "~KPTT_API_ReqDevice()";
            const std::string request =
                expected[expected.size() - (expected.back() == "TAPI_VOICE_HoldCall(3)" ? 1 : 2)];
            for (const long long answered : {0LL, 1LL, 256LL, 300LL, 0x8030LL, 0xFFFFFFFFLL}) {
                SCOPED_TRACE(testing::PrintToString(expected) + " answered " + std::to_string(answered));
                answer(request.substr(0, request.find('(')), answered, {"\x09"});
                EXPECT_EQ(send(), viaService && answered != 0 ? 300 : answered);
                EXPECT_EQ(eventsWithoutLines(), expected);
                EXPECT_EQ(locations(), function.empty() ? std::set<std::string>{} : places(function));
                EXPECT_EQ(manager->state, 7u);
            }
        }
    }

    /** The line number in a message is not the same for long. */
    Events eventsWithoutLines()
    {
        Events result = events();
        for (std::string &event : result)
            event = std::regex_replace(event, std::regex("\\(\\) [0-9]+:"), "() LINE:");
        return result;
    }

    static std::set<std::string> places(const std::string &function)
    {
        const std::string first = function == "UnconferenceReq" ? "POHONE" : "PHONE";
        return {"utility/PHONE_ENG_WrapTapi " + first + "_ENG_TAPI_CALL_VOICECALL_" + function};
    }

    PHONE_ENG_PTTCallManager *const manager = PHONE_ENG_PTTCallManager::instance();
};

TEST_F(VoiceCallsTest, ABadCallIdIsRefusedBeforeAnythingIsAsked)
{
    struct Row {
        _TAPI_RESULT_E code;
        _TAPI_RESULT_E (*send)(Id badId);
        Events events = {};
    };
    const std::vector<Row> rows = {
        {TAPI_RESULT_INVALID_PARAM, [](Id id) { return release(id, TAPI_VOICE_DROP_ONE); }},
        {TAPI_RESULT_INVALID_PARAM, [](Id id) { return release(id, dropAll); }},
        {TAPI_RESULT_INVALID_PARAM, [](Id id) { return reject(id, TAPI_VOICE_REJECT_BUSY); }},
        {TAPI_RESULT_CALL_INVALID_ID, [](Id id) { return hold(id, 1); }, {trace}},
        {TAPI_RESULT_CALL_INVALID_ID, [](Id id) { return hold(id, 0); }, {trace}},
        {TAPI_RESULT_CALL_INVALID_ID, [](Id id) { return swap(id, 3); }},
        {TAPI_RESULT_CALL_INVALID_ID, [](Id id) { return swap(5, id); }},
        {TAPI_RESULT_CALL_INVALID_ID, cancel},
        {TAPI_RESULT_CALL_INVALID_ID, [](Id id) { return link(id, 3); }},
        {TAPI_RESULT_CALL_INVALID_ID, [](Id id) { return link(5, id); }},
        {TAPI_RESULT_CALL_INVALID_ID, [](Id id) { return transfer(id, number); }},
        {TAPI_RESULT_CALL_INVALID_ID, [](Id id) { return transfer(id, nothing); }},
        {TAPI_RESULT_CALL_INVALID_ID, [](Id id) { return join(id, 3); }},
        {TAPI_RESULT_CALL_INVALID_ID, [](Id id) { return join(5, id); }},
        {TAPI_RESULT_CALL_INVALID_ID, split},
    };
    phone.startPushToTalk(5, false);
    for (std::size_t row = 0; row < rows.size(); ++row) {
        for (const Id badId : {Id{0}, Id{255}}) {
            SCOPED_TRACE(row);
            EXPECT_EQ(rows[row].send(badId), rows[row].code);
            EXPECT_EQ(events(), rows[row].events);
        }
    }
}

TEST_F(VoiceCallsTest, ACallWithoutNumberOrRoomForItsIdIsRefused)
{
    Id callId = 77;
    phone.startPushToTalk(5, true);
    EXPECT_EQ(make(0, number, nullptr), TAPI_RESULT_INVALID_PARAM);
    EXPECT_EQ(make(0, nothing, nullptr), TAPI_RESULT_INVALID_PARAM);
    EXPECT_EQ(make(0, nothing, &callId), TAPI_RESULT_INVALID_PARAM);
    EXPECT_EQ(makeStk(nothing, emergency, largeRedial, 0, nullptr), TAPI_RESULT_CALL_NO_NUMBER);
    EXPECT_EQ(makeStk(nothing, emergency, largeRedial, 0, &callId), TAPI_RESULT_CALL_NO_NUMBER);
    EXPECT_EQ(makeStk(number, emergency, largeRedial, 0, nullptr), TAPI_RESULT_INVALID_PARAM);
    EXPECT_EQ(transfer(3, nothing), TAPI_RESULT_CALL_NO_NUMBER);
    EXPECT_EQ(transfer(5, nothing), TAPI_RESULT_CALL_NO_NUMBER);
    EXPECT_EQ(callId, 77);
    EXPECT_EQ(events(), Events{});
}

TEST_F(VoiceCallsTest, TheModemGetsEveryRequestThatIsNotForAPushToTalkCall)
{
    phone.startPushToTalk(5, true);
    const Events answering = asked("getPTTActiveCallId()") + asked("isPTTAudioBufComplete(5)");
    const Events entry = {trace};
    expectSent({
        {"MakeReq", [] { return make(-128, number, &newId); }, modem(R"(MakeCall(-128, "+49170p1"))")},
        {"STK_MakeReq", [] { return makeStk(number, emergency, largeRedial, 70000, &newStkId); },
         modem(R"(MakeStkCall("+49170p1", 1, 254, 70000))")},
        {"AnswerReq", [] { return answerCall(3, holdActive); }, answering + modem("AnswerCall(3, 0)")},
        {"ReleaseReq", [] { return release(3, TAPI_VOICE_DROP_ONE); }, whether(3) + modem("DropCall(3, 0)")},
        {"ReleaseReq", [] { return release(254, dropHeld); }, whether(254) + modem("DropCall(254, 3)")},
        {"HoldReq", [] { return hold(3, 1); }, entry + whether(3) + Events{trace, "TAPI_VOICE_HoldCall(3)"}},
        {"HoldReq", [] { return hold(3, 0); }, entry + whether(3) + modem("RetrieveCall(3)")},
        {"HoldReq", [] { return hold(5, 0); }, entry + whether(5) + modem("RetrieveCall(5)")},
        {"HoldReq", [] { return hold(5, 255); }, entry + whether(5) + modem("RetrieveCall(5)")},
        {"SwitchReq", [] { return swap(3, 5); }, whether(3) + modem("SwitchCall(3, 5)")},
        {"CancelReq", [] { return cancel(1); }, whether(1) + modem("CancelCall(1)")},
        {"LinkReq", [] { return link(3, 254); }, whether(3) + whether(254) + modem("LinkCall(3, 254)")},
        {"TransferReq", [] { return transfer(3, number); },
         whether(3) + modem(R"(TransferCall(3, "+49170p1"))")},
        {"ConferenceReq", [] { return join(3, 1); }, whether(3) + whether(1) + modem("JoinCall(3, 1)")},
        {"UnconferenceReq", [] { return split(5); }, modem("SplitCall(5)")},
        {"RejectReq", [] { return reject(3, largeReject); }, whether(3) + modem("RejectCall(3, 16909060)")},
        {"MuteReq", [] { return mute(255); }, modem("MuteCall(255)")},
    });
    EXPECT_EQ(newId, 9);
    EXPECT_EQ(newStkId, 9);
}

TEST_F(VoiceCallsTest, WithoutPushToTalkEveryAnswerAndReleaseGoesToTheModem)
{
    refuse(); // the system status is no matter of calls
    const Events releasing = asked("isPTTCallInLine()") + whether(3);
    const Events answering = asked("getPTTActiveCallId()");
    expectSent({
        {"AnswerReq", [] { return answerCall(0, holdActive); }, answering + modem("AnswerCall(0, 0)")},
        {"AnswerReq", [] { return answerCall(255, TAPI_VOICE_ANSWER_RELEASE_ACTIVE); },
         answering + modem("AnswerCall(255, 1)")},
        {"ReleaseReq", [] { return release(3, dropAll); }, releasing + modem("DropCall(3, 1)")},
    });
}

TEST_F(VoiceCallsTest, TheServiceGetsTheRequestsForPushToTalkCalls)
{
    phone.startPushToTalk(5, false);
    expectSent({
        {"", [] { return release(5, dropHeld); }, whether(5) + service("releaseCallReq(<0500000003000000>)")},
        {"", [] { return release(3, dropAll); },
         asked("isPTTCallInLine()") + service("releaseCallReq(<0300000001000000>)")},
        {"HoldReq", [] { return hold(5, 1); },
         Events{trace} + whether(5) + service("holdCallReq(5)", holdMessage("HoldReq"))},
        {"", [] { return swap(5, 3); }, whether(5) + service("switchCallReq(<0503>)")},
        {"", [] { return cancel(5); }, whether(5) + service("releaseCallReq(<0500000000000000>)")},
        {"", [] { return link(5, 3); }, whether(5) + service("linkCallReq()")},
        {"", [] { return link(3, 5); }, whether(3) + whether(5) + service("linkCallReq()")},
        {"", [] { return transfer(5, number); }, whether(5) + service("transferCallReq()")},
        {"", [] { return join(5, 3); }, whether(5) + service("conferenceCallReq()")},
        {"", [] { return join(3, 5); }, whether(3) + whether(5) + service("conferenceCallReq()")},
        {"", [] { return reject(5, largeReject); },
         whether(5) + service("rejectCallReq(<0500000004030201>)")},
    });
}

TEST_F(VoiceCallsTest, AnyAnswerOfTheCallManagerButZeroMeansYes)
{
    const Events released = service("releaseCallReq(<0300000001000000>)");
    for (const int yes : {-1, 2, 256, 0x10000}) {
        answer("PHONE_ENG_PTTCallManager::isPTTCallInLine", 0);
        answer("PHONE_ENG_PTTCallManager::isKodiakPTTCallId", yes);
        answer("PHONE_ENG_PTTCallManager::getPTTActiveCallId", 0); // an id like any other here
        answer("PHONE_ENG_PTTCallManager::isPTTAudioBufComplete", yes);
        release(3, dropAll);
        EXPECT_EQ(calls(), asked("isPTTCallInLine()") + whether(3) + released) << yes;
        answer("PHONE_ENG_PTTCallManager::isPTTCallInLine", yes);
        release(3, dropAll);
        EXPECT_EQ(calls(), asked("isPTTCallInLine()") + released) << yes;
        answerCall(3, holdActive);
        EXPECT_EQ(calls().back(), "TAPI_VOICE_AnswerCall(3, 0)") << yes;
    }
}

TEST_F(VoiceCallsTest, AnsweringHoldsAPushToTalkCallThatStillPlays)
{
    Events held = asked("getPTTActiveCallId()") + asked("isPTTAudioBufComplete(5)")
        + service("holdCallReq(5)", holdMessage("AnswerReq"));
    phone.startPushToTalk(5, false);
    std::vector<unsigned int> states; // at the request, and when its channel goes
    phone.setObserver([&](const std::string &call, const std::string &) {
        if (call == "KPTT_API_ReqDevice::holdCallReq(5)" || call == "~KPTT_API_ReqDevice()")
            states.push_back(manager->state);
    });
    for (const int code : {1, -1, 0x8030, 0}) {
        if (code == 0)
            held.insert(held.end() - 1, "PHONE_ENG_PTTCallManager::instance()");
        answer("KPTT_API_ReqDevice::holdCallReq", code);
        EXPECT_EQ(answerCall(3, holdActive), code == 0 ? TAPI_RESULT_SUCC : TAPI_RESULT_CALL_REQ_FAIL);
        EXPECT_EQ(eventsWithoutLines(), held);
        EXPECT_EQ(locations(), places("AnswerReq"));
    }
    EXPECT_EQ(states, (std::vector{7u, 7u, 7u, 7u, 7u, 7u, 7u, 2u}));
}

} // namespace
