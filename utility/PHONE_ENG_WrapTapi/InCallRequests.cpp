// Requests during a call: supplementary service strings, tones, the call table and the mute beep.
#include "PHONE_ENG_WrapTapi.h"
#include "PushToTalk.h"
#include "Unit.h"

_TAPI_RESULT_E PHONE_ENG_TAPI_USSD_Make_Req(_TAPI_USSD_REQ_APP_MSG_S *request)
{
    if (!request)
        return TAPI_RESULT_INVALID_PARAM;
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_USSD_MakeRequest(request);
    LOG_TRACE();
    return result;
}

_TAPI_RESULT_E PHONE_ENG_TAPI_CALL_VOICECALL_DtmfReq(char key, _TAPI_VOICE_DTMF_KEY_STATUS_E keyStatus)
{
    LOG_TRACE();
    if (PushToTalk::activeCallId() != PushToTalk::noActiveCall) {
        LOG_MESSAGE(R"(\nActive call is PTT: do not send request for MakeDtmfTone\n)");
        return TAPI_RESULT_SUCC;
    }
    const _TAPI_RESULT_E result = TAPI_VOICE_MakeDtmfTone(key, keyStatus);
    LOG_TRACE();
    return result;
}

_TAPI_RESULT_E PHONE_ENG_TAPI_CALL_VOICECALL_DtmfStringReq(unsigned char callId, unsigned char *digits)
{
    LOG_TRACE();
    if (PushToTalk::isPushToTalk(callId)) {
        LOG_MESSAGE(R"(\Call id is PTT: do not send request for DTMFStringReq\n)");
        return TAPI_RESULT_SUCC;
    }
    const _TAPI_RESULT_E result = TAPI_VOICE_DTMFStringReq(callId, digits);
    LOG_TRACE();
    return result;
}

_TAPI_RESULT_E PHONE_ENG_TAPI_CALL_GetCallStatus(_TAPI_CALL_SESSION_TABLE_S *table)
{
    if (!table)
        return TAPI_RESULT_INVALID_PARAM;
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_CALL_GetAllCallSessions(table);
    LOG_TRACE();
    return result;
}

_TAPI_RESULT_E PHONE_ENG_TAPI_CALL_VOICECALL_Mute_Beep()
{
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_VOICE_MuteBeep();
    LOG_TRACE();
    return result;
}
