// Push-to-talk calls: which they are, and how their service's answers read.
#pragma once

#include "PHONE_ENG_PTTCallManager.h"
#include "TAPI_RESULT.h"

namespace PushToTalk {

constexpr unsigned char noActiveCall = 255;

/** The manager may come and go between two questions, so it is asked for afresh each time. */
inline unsigned char activeCallId()
{
    return PHONE_ENG_PTTCallManager::instance()->getPTTActiveCallId();
}

inline bool isPushToTalk(unsigned char callId)
{
    return PHONE_ENG_PTTCallManager::instance()->isKodiakPTTCallId(callId) != 0;
}

/** The service's own code goes no further. */
inline _TAPI_RESULT_E resultOf(int answer)
{
    return answer == 0 ? TAPI_RESULT_SUCC : TAPI_RESULT_CALL_REQ_FAIL;
}

} // namespace PushToTalk
