// Voice calls in the call table.
#include "Calls.h"
#include "PlatformCall.h"

#include "TAPI_USSD.h"
#include "TAPI_VOICE.h"

using Simulator::Bytes;
using Simulator::findCall;
using Simulator::Out;
using Simulator::platformCall;
using Simulator::text;

unsigned char SimulatedPhone::ring(const std::string &number)
{
    return Simulator::ring(m_state.calls, number);
}

bool SimulatedPhone::remoteAnswers(unsigned char callId)
{
    return Simulator::remoteAnswers(m_state.calls, callId);
}

bool SimulatedPhone::remoteHangsUp(unsigned char callId)
{
    return Simulator::remoteHangsUp(m_state.calls, callId);
}

_TAPI_RESULT_E TAPI_VOICE_MakeCall(signed char option, unsigned char *dialString, unsigned char *callId)
{
    return platformCall(
        "TAPI_VOICE_MakeCall", {Out(callId)},
        [=](PhoneState &phone) { return Simulator::dial(phone.calls, text(dialString), callId); }, option,
        text(dialString));
}

_TAPI_RESULT_E TAPI_VOICE_MakeStkCall(unsigned char *dialString, _TAPI_VOICE_DIAL_CALL_TYPE_E dialType,
                                      unsigned char redialMode, unsigned int duration, unsigned char *callId)
{
    return platformCall(
        "TAPI_VOICE_MakeStkCall", {Out(callId)},
        [=](PhoneState &phone) { return Simulator::dial(phone.calls, text(dialString), callId); },
        text(dialString), dialType, redialMode, duration);
}

_TAPI_RESULT_E TAPI_VOICE_AnswerCall(unsigned char callId, _TAPI_VOICE_ANSWER_CALL_TYPE_E answerType)
{
    return platformCall(
        "TAPI_VOICE_AnswerCall", {},
        [=](PhoneState &phone) {
            return Simulator::answerCall(phone.calls, callId, answerType == TAPI_VOICE_ANSWER_RELEASE_ACTIVE);
        },
        callId, answerType);
}

_TAPI_RESULT_E TAPI_VOICE_DropCall(unsigned char callId, _TAPI_VOICE_DROP_CALL_TYPE_E dropType)
{
    return platformCall(
        "TAPI_VOICE_DropCall", {},
        [=](PhoneState &phone) { return Simulator::dropCalls(phone.calls, callId, dropType); }, callId,
        dropType);
}

_TAPI_RESULT_E TAPI_VOICE_HoldCall(unsigned char callId)
{
    return platformCall(
        "TAPI_VOICE_HoldCall", {},
        [=](PhoneState &phone) { return Simulator::holdCall(phone.calls, callId); }, callId);
}

_TAPI_RESULT_E TAPI_VOICE_RetrieveCall(unsigned char callId)
{
    return platformCall(
        "TAPI_VOICE_RetrieveCall", {},
        [=](PhoneState &phone) { return Simulator::retrieveCall(phone.calls, callId); }, callId);
}

_TAPI_RESULT_E TAPI_VOICE_SwitchCall(unsigned char firstCallId, unsigned char secondCallId)
{
    return platformCall(
        "TAPI_VOICE_SwitchCall", {},
        [=](PhoneState &phone) { return Simulator::switchCalls(phone.calls, firstCallId, secondCallId); },
        firstCallId, secondCallId);
}

_TAPI_RESULT_E TAPI_VOICE_CancelCall(unsigned char callId)
{
    return platformCall(
        "TAPI_VOICE_CancelCall", {},
        [=](PhoneState &phone) { return Simulator::cancelCall(phone.calls, callId); }, callId);
}

_TAPI_RESULT_E TAPI_VOICE_LinkCall(unsigned char firstCallId, unsigned char secondCallId)
{
    return platformCall(
        "TAPI_VOICE_LinkCall", {},
        [=](PhoneState &phone) { return Simulator::linkCalls(phone.calls, firstCallId, secondCallId); },
        firstCallId, secondCallId);
}

_TAPI_RESULT_E TAPI_VOICE_TransferCall(unsigned char callId, unsigned char *dialString,
                                       unsigned char *transferId)
{
    return platformCall(
        "TAPI_VOICE_TransferCall", {Out(transferId)},
        [=](PhoneState &phone) { return Simulator::transferCall(phone.calls, callId); }, callId,
        text(dialString));
}

_TAPI_RESULT_E TAPI_VOICE_JoinCall(unsigned char firstCallId, unsigned char secondCallId)
{
    return platformCall(
        "TAPI_VOICE_JoinCall", {},
        [=](PhoneState &phone) { return Simulator::joinCalls(phone.calls, firstCallId, secondCallId); },
        firstCallId, secondCallId);
}

_TAPI_RESULT_E TAPI_VOICE_SplitCall(unsigned char callId)
{
    return platformCall(
        "TAPI_VOICE_SplitCall", {},
        [=](PhoneState &phone) { return Simulator::splitCall(phone.calls, callId); }, callId);
}

_TAPI_RESULT_E TAPI_VOICE_RejectCall(unsigned char callId, _TAPI_VOICE_REJECT_CALL_TYPE_E rejectType)
{
    return platformCall(
        "TAPI_VOICE_RejectCall", {},
        [=](PhoneState &phone) { return Simulator::rejectCall(phone.calls, callId); }, callId, rejectType);
}

_TAPI_RESULT_E TAPI_VOICE_MuteCall(unsigned char mute)
{
    return platformCall(
        "TAPI_VOICE_MuteCall", {},
        [=](PhoneState &phone) {
            phone.calls.muted = mute != 0;
            return TAPI_RESULT_SUCC;
        },
        mute);
}

_TAPI_RESULT_E TAPI_VOICE_MakeDtmfTone(char key, _TAPI_VOICE_DTMF_KEY_STATUS_E keyStatus)
{
    return platformCall(
        "TAPI_VOICE_MakeDtmfTone", {},
        [=](PhoneState &phone) {
            if (keyStatus == TAPI_VOICE_DTMF_KEY_PRESSED)
                Simulator::sendTone(phone.calls, key);
            return TAPI_RESULT_SUCC;
        },
        key, keyStatus);
}

_TAPI_RESULT_E TAPI_VOICE_DTMFStringReq(unsigned char callId, unsigned char *digits)
{
    return platformCall(
        "TAPI_VOICE_DTMFStringReq", {},
        [=](PhoneState &phone) {
            if (!findCall(phone.calls, callId))
                return TAPI_RESULT_CALL_INVALID_ID;
            for (const unsigned char *digit = digits; *digit != 0; ++digit)
                Simulator::sendTone(phone.calls, static_cast<char>(*digit));
            return TAPI_RESULT_SUCC;
        },
        callId, text(digits));
}

_TAPI_RESULT_E TAPI_VOICE_MuteBeep()
{
    return platformCall("TAPI_VOICE_MuteBeep", {}, [](PhoneState &phone) {
        ++phone.calls.muteBeeps;
        return TAPI_RESULT_SUCC;
    });
}

_TAPI_RESULT_E TAPI_CALL_GetAllCallSessions(_TAPI_CALL_SESSION_TABLE_S *table)
{
    return platformCall("TAPI_CALL_GetAllCallSessions", {Out(table)}, [table](PhoneState &phone) {
        *table = phone.calls.table;
        return TAPI_RESULT_SUCC;
    });
}

_TAPI_RESULT_E TAPI_USSD_MakeRequest(_TAPI_USSD_REQ_APP_MSG_S *request)
{
    return platformCall(
        "TAPI_USSD_MakeRequest", {}, [](PhoneState &) { return TAPI_RESULT_SUCC; }, request->dataCodingScheme,
        Bytes(request->text, std::min<std::size_t>(request->length, sizeof request->text)));
}
