// Voice call requests, and their routing to the push-to-talk service.
#include "PHONE_ENG_WrapTapi.h"
#include "PushToTalk.h"
#include "Unit.h"

#include "KPTT_API_ReqDevice.h"

namespace {

constexpr unsigned char holdFlag = 1;

/** Tells the call manager that a voice call put its active call on hold. */
constexpr unsigned int heldForVoiceCall = 2;

bool namesACall(unsigned char callId)
{
    return callId != 0 && callId != 255;
}

bool isEmpty(const unsigned char *dialString)
{
    return dialString[0] == 0;
}

} // namespace

_TAPI_RESULT_E PHONE_ENG_TAPI_CALL_VOICECALL_MakeReq(signed char option, unsigned char *dialString,
                                                     unsigned char *callId)
{
    if (!callId)
        return TAPI_RESULT_INVALID_PARAM;
    if (isEmpty(dialString))
        return TAPI_RESULT_INVALID_PARAM;
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_VOICE_MakeCall(option, dialString, callId);
    LOG_TRACE();
    return result;
}

_TAPI_RESULT_E PHONE_ENG_TAPI_CALL_VOICECALL_STK_MakeReq(unsigned char *dialString,
                                                         _TAPI_VOICE_DIAL_CALL_TYPE_E dialType,
                                                         _TAPI_CALL_STK_REDIAL_E redial,
                                                         unsigned int duration, unsigned char *callId)
{
    if (isEmpty(dialString))
        return TAPI_RESULT_CALL_NO_NUMBER;
    if (!callId)
        return TAPI_RESULT_INVALID_PARAM;
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_VOICE_MakeStkCall(
        dialString, dialType, static_cast<unsigned char>(redial & 0xFF), duration, callId);
    LOG_TRACE();
    return result;
}

_TAPI_RESULT_E PHONE_ENG_TAPI_CALL_VOICECALL_AnswerReq(unsigned char callId,
                                                       _TAPI_VOICE_ANSWER_CALL_TYPE_E answerType)
{
    const unsigned char active = PushToTalk::activeCallId();
    if (active != PushToTalk::noActiveCall
        && PHONE_ENG_PTTCallManager::instance()->isPTTAudioBufComplete(active) == 0) {
        KPTT_API_ReqDevice device;
        LOG_MESSAGE(R"(\nPTT %s() %d: Send holdCallReq\n)", __func__, __LINE__);
        const _TAPI_RESULT_E result = PushToTalk::resultOf(device.holdCallReq(active));
        if (result == TAPI_RESULT_SUCC)
            PHONE_ENG_PTTCallManager::instance()->state = heldForVoiceCall;
        return result;
    }
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_VOICE_AnswerCall(callId, answerType);
    LOG_TRACE();
    return result;
}

_TAPI_RESULT_E PHONE_ENG_TAPI_CALL_VOICECALL_ReleaseReq(unsigned char callId,
                                                        _TAPI_VOICE_DROP_CALL_TYPE_E dropType)
{
    if (!namesACall(callId))
        return TAPI_RESULT_INVALID_PARAM;
    if ((dropType == TAPI_VOICE_DROP_ALL && PHONE_ENG_PTTCallManager::instance()->isPTTCallInLine() != 0)
        || PushToTalk::isPushToTalk(callId)) {
        KPTT_API_ReqDevice device;
        _KPTT_RELEASE_CALL_REQ_S request = {};
        request.callId = callId;
        request.dropType = dropType;
        return PushToTalk::resultOf(device.releaseCallReq(&request));
    }
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_VOICE_DropCall(callId, dropType);
    LOG_TRACE();
    return result;
}

_TAPI_RESULT_E PHONE_ENG_TAPI_CALL_VOICECALL_HoldReq(unsigned char callId, unsigned char hold)
{
    LOG_TRACE();
    if (!namesACall(callId))
        return TAPI_RESULT_CALL_INVALID_ID;
    const bool pushToTalk = PushToTalk::isPushToTalk(callId);
    if (hold != holdFlag) {
        LOG_TRACE();
        const _TAPI_RESULT_E result = TAPI_VOICE_RetrieveCall(callId);
        LOG_TRACE();
        return result;
    }
    if (pushToTalk) {
        KPTT_API_ReqDevice device;
        LOG_MESSAGE(R"(\nPTT %s() %d: Send holdCallReq\n)", __func__, __LINE__);
        return PushToTalk::resultOf(device.holdCallReq(callId));
    }
    LOG_TRACE();
    return TAPI_VOICE_HoldCall(callId);
}

_TAPI_RESULT_E PHONE_ENG_TAPI_CALL_VOICECALL_SwitchReq(unsigned char firstCallId, unsigned char secondCallId)
{
    if (!namesACall(firstCallId) || !namesACall(secondCallId))
        return TAPI_RESULT_CALL_INVALID_ID;
    if (PushToTalk::isPushToTalk(firstCallId)) {
        KPTT_API_ReqDevice device;
        _KPTT_SWITCH_CALL_REQ_S request = {};
        request.firstCallId = firstCallId;
        request.secondCallId = secondCallId;
        return PushToTalk::resultOf(device.switchCallReq(&request));
    }
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_VOICE_SwitchCall(firstCallId, secondCallId);
    LOG_TRACE();
    return result;
}

_TAPI_RESULT_E PHONE_ENG_TAPI_CALL_VOICECALL_CancelReq(unsigned char callId)
{
    if (!namesACall(callId))
        return TAPI_RESULT_CALL_INVALID_ID;
    if (PushToTalk::isPushToTalk(callId)) {
        KPTT_API_ReqDevice device;
        _KPTT_RELEASE_CALL_REQ_S request = {};
        request.callId = callId;
        request.dropType = TAPI_VOICE_DROP_ONE;
        return PushToTalk::resultOf(device.releaseCallReq(&request));
    }
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_VOICE_CancelCall(callId);
    LOG_TRACE();
    return result;
}

_TAPI_RESULT_E PHONE_ENG_TAPI_CALL_VOICECALL_LinkReq(unsigned char firstCallId, unsigned char secondCallId)
{
    if (!namesACall(firstCallId) || !namesACall(secondCallId))
        return TAPI_RESULT_CALL_INVALID_ID;
    if (PushToTalk::isPushToTalk(firstCallId) || PushToTalk::isPushToTalk(secondCallId)) {
        KPTT_API_ReqDevice device;
        return PushToTalk::resultOf(device.linkCallReq());
    }
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_VOICE_LinkCall(firstCallId, secondCallId);
    LOG_TRACE();
    return result;
}

_TAPI_RESULT_E PHONE_ENG_TAPI_CALL_VOICECALL_TransferReq(unsigned char callId, unsigned char *dialString)
{
    if (!namesACall(callId))
        return TAPI_RESULT_CALL_INVALID_ID;
    if (isEmpty(dialString))
        return TAPI_RESULT_CALL_NO_NUMBER;
    if (PushToTalk::isPushToTalk(callId)) {
        KPTT_API_ReqDevice device;
        return PushToTalk::resultOf(device.transferCallReq());
    }
    unsigned char transferId = 0;
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_VOICE_TransferCall(callId, dialString, &transferId);
    LOG_TRACE();
    return result;
}

_TAPI_RESULT_E PHONE_ENG_TAPI_CALL_VOICECALL_ConferenceReq(unsigned char firstCallId,
                                                           unsigned char secondCallId)
{
    if (!namesACall(firstCallId) || !namesACall(secondCallId))
        return TAPI_RESULT_CALL_INVALID_ID;
    if (PushToTalk::isPushToTalk(firstCallId) || PushToTalk::isPushToTalk(secondCallId)) {
        KPTT_API_ReqDevice device;
        return PushToTalk::resultOf(device.conferenceCallReq());
    }
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_VOICE_JoinCall(firstCallId, secondCallId);
    LOG_TRACE();
    return result;
}

_TAPI_RESULT_E POHONE_ENG_TAPI_CALL_VOICECALL_UnconferenceReq(unsigned char callId)
{
    if (!namesACall(callId))
        return TAPI_RESULT_CALL_INVALID_ID;
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_VOICE_SplitCall(callId);
    LOG_TRACE();
    return result;
}

_TAPI_RESULT_E PHONE_ENG_TAPI_CALL_VOICECALL_RejectReq(unsigned char callId,
                                                       _TAPI_VOICE_REJECT_CALL_TYPE_E rejectType)
{
    if (!namesACall(callId))
        return TAPI_RESULT_INVALID_PARAM;
    if (PushToTalk::isPushToTalk(callId)) {
        KPTT_API_ReqDevice device;
        _KPTT_REJECT_CALL_REQ_S request = {};
        request.callId = callId;
        request.rejectType = rejectType;
        return PushToTalk::resultOf(device.rejectCallReq(&request));
    }
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_VOICE_RejectCall(callId, rejectType);
    LOG_TRACE();
    return result;
}

_TAPI_RESULT_E PHONE_ENG_TAPI_CALL_VOICECALL_MuteReq(unsigned char mute)
{
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_VOICE_MuteCall(mute);
    LOG_TRACE();
    return result;
}
