// During a call: tones, supplementary service strings, the call table, the mute beep.
#include "EngineTest.h"

namespace {

constexpr auto sendTone = PHONE_ENG_TAPI_CALL_VOICECALL_DtmfReq;
constexpr auto sendTones = PHONE_ENG_TAPI_CALL_VOICECALL_DtmfStringReq;
constexpr long long results[] = {0, 300, 0x8030};

const std::string unit = "utility/PHONE_ENG_WrapTapi PHONE_ENG_TAPI_";
const std::string toneWithheld = R"("\nActive call is PTT: do not send request for MakeDtmfTone\n")";
const std::string tonesWithheld = R"("\Call id is PTT: do not send request for DTMFStringReq\n")";

unsigned char digits[] = "12#p*";

Events tone(const std::string &question, const Events &outcome)
{
    Events events = {trace, "PHONE_ENG_PTTCallManager::instance()", "PHONE_ENG_PTTCallManager::" + question};
    events.insert(events.end(), outcome.begin(), outcome.end());
    return events;
}

class InCallRequestsTest : public EngineTest { };

TEST_F(InCallRequestsTest, ATonePassesUnlessAnyPushToTalkCallIsActive)
{
    phone.startPushToTalk(5, true);
    state().calls.pushToTalkCalls[0].active = false; // one on hold does no harm
    for (const long long result : results) {
        answer("TAPI_VOICE_MakeDtmfTone", result);
        EXPECT_EQ(sendTone('#', TAPI_VOICE_DTMF_KEY_PRESSED), result);
        EXPECT_EQ(events(), tone("getPTTActiveCallId()", {"TAPI_VOICE_MakeDtmfTone('#', 1)", trace}));
    }
    for (const int active : {0, 1, 254}) {
        answer("PHONE_ENG_PTTCallManager::getPTTActiveCallId", active);
        EXPECT_EQ(sendTone('0', TAPI_VOICE_DTMF_KEY_RELEASED), TAPI_RESULT_SUCC);
        EXPECT_EQ(events(), tone("getPTTActiveCallId()", {toneWithheld}));
    }
    EXPECT_EQ(locations(), std::set{unit + "CALL_VOICECALL_DtmfReq"});
}

TEST_F(InCallRequestsTest, ToneStringsPassToEveryCallButPushToTalkCalls)
{
    phone.startPushToTalk(5, true);
    for (const unsigned int callId : {0u, 3u, 255u}) {
        const std::string id = std::to_string(callId);
        const std::string sent = "TAPI_VOICE_DTMFStringReq(" + id + R"(, "12#p*"))";
        for (const long long result : results) {
            answer("TAPI_VOICE_DTMFStringReq", result);
            EXPECT_EQ(sendTones(static_cast<unsigned char>(callId), digits), result);
            EXPECT_EQ(events(), tone("isKodiakPTTCallId(" + id + ")", {sent, trace}));
        }
    }
    phone.setJournalEnabled(false); // it would read the string
    EXPECT_EQ(sendTones(3, nullptr), 0x8030);
    phone.setJournalEnabled(true);
    state().calls.pushToTalkCalls[0].active = false; // on hold it still is one
    EXPECT_EQ(sendTones(5, digits), TAPI_RESULT_SUCC);
    EXPECT_EQ(events(), tone("isKodiakPTTCallId(5)", {tonesWithheld}));
    answer("PHONE_ENG_PTTCallManager::isKodiakPTTCallId", 256);
    EXPECT_EQ(sendTones(3, digits), TAPI_RESULT_SUCC);
    EXPECT_EQ(events(), tone("isKodiakPTTCallId(3)", {tonesWithheld}));
    EXPECT_EQ(locations(), std::set{unit + "CALL_VOICECALL_DtmfStringReq"});
}

TEST_F(InCallRequestsTest, RecordsPassUnchangedUnlessTheyAreNull)
{
    EXPECT_EQ(PHONE_ENG_TAPI_USSD_Make_Req(nullptr), TAPI_RESULT_INVALID_PARAM);
    EXPECT_EQ(PHONE_ENG_TAPI_CALL_GetCallStatus(nullptr), TAPI_RESULT_INVALID_PARAM);
    EXPECT_EQ(events(), Events{});
    phone.startPushToTalk(5, false); // of no concern here
    _TAPI_USSD_REQ_APP_MSG_S request = {15, 3, {'*', '1', '#'}};
    _TAPI_CALL_SESSION_TABLE_S table = {};
    for (const long long result : results) {
        answer("TAPI_USSD_MakeRequest", result);
        EXPECT_EQ(PHONE_ENG_TAPI_USSD_Make_Req(&request), result);
        EXPECT_EQ(events(), (Events{trace, "TAPI_USSD_MakeRequest(15, <2a3123>)", trace}));

        const std::string filled(sizeof table, static_cast<char>(result + 1));
        answer("TAPI_CALL_GetAllCallSessions", result, {filled});
        EXPECT_EQ(PHONE_ENG_TAPI_CALL_GetCallStatus(&table), result);
        EXPECT_EQ(events(), (Events{trace, "TAPI_CALL_GetAllCallSessions()", trace}));
        EXPECT_EQ(bytesOf(table), filled);

        answer("TAPI_VOICE_MuteBeep", result);
        EXPECT_EQ(PHONE_ENG_TAPI_CALL_VOICECALL_Mute_Beep(), result);
        EXPECT_EQ(events(), (Events{trace, "TAPI_VOICE_MuteBeep()", trace}));
    }
    const std::string places[] = {unit + "USSD_Make_Req", unit + "CALL_GetCallStatus",
                                  unit + "CALL_VOICECALL_Mute_Beep"};
    EXPECT_THAT(locations(), testing::UnorderedElementsAreArray(places));
}

} // namespace
