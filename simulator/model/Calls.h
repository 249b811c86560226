// The calls of a phone: what can be done with those in the call table, and what happens to them.
#pragma once

#include "PhoneState.h"

#include "TAPI_VOICE.h"

namespace Simulator {

/** Null when there is no such call. */
_TAPI_CALL_SESSION_S *findCall(CallState &calls, unsigned char callId);

/** Null when there is no such push-to-talk call. */
PushToTalkCall *findPushToTalkCall(CallState &calls, unsigned char callId);

/** Adds a call, under an id that no other call has. Null when the table is full. */
_TAPI_CALL_SESSION_S *addCall(CallState &calls, const char *number, _TAPI_CALL_STATE_E state, bool incoming);

template <typename Condition>
void removeCalls(CallState &calls, Condition condition)
{
    unsigned int kept = 0;
    for (unsigned int call = 0; call < calls.table.count; ++call) {
        if (!condition(calls.table.sessions[call]))
            calls.table.sessions[kept++] = calls.table.sessions[call];
    }
    calls.table.count = kept;
}

/** Puts every active call but one on hold. */
void holdOthers(CallState &calls, unsigned char callId);

/** Whether a call rings that nobody has answered yet. */
bool isRinging(const CallState &calls);

/** @name What the user does
 * @{ */
_TAPI_RESULT_E dial(CallState &calls, const char *number, unsigned char *callId);
/** Holds the active calls, or releases them first. */
_TAPI_RESULT_E answerCall(CallState &calls, unsigned char callId, bool releaseActive);
_TAPI_RESULT_E dropCalls(CallState &calls, unsigned char callId, _TAPI_VOICE_DROP_CALL_TYPE_E dropType);
_TAPI_RESULT_E holdCall(CallState &calls, unsigned char callId);
_TAPI_RESULT_E retrieveCall(CallState &calls, unsigned char callId);
_TAPI_RESULT_E switchCalls(CallState &calls, unsigned char firstCallId, unsigned char secondCallId);
_TAPI_RESULT_E cancelCall(CallState &calls, unsigned char callId);
/** Connects the other sides of two calls with each other and leaves both. */
_TAPI_RESULT_E linkCalls(CallState &calls, unsigned char firstCallId, unsigned char secondCallId);
_TAPI_RESULT_E transferCall(CallState &calls, unsigned char callId);
_TAPI_RESULT_E joinCalls(CallState &calls, unsigned char firstCallId, unsigned char secondCallId);
_TAPI_RESULT_E splitCall(CallState &calls, unsigned char callId);
_TAPI_RESULT_E rejectCall(CallState &calls, unsigned char callId);
void sendTone(CallState &calls, char key);
/** @} */

/** @name What happens to the phone
 * @{ */
/** A call comes in. Returns its id, 0 when the call table is full. */
unsigned char ring(CallState &calls, const std::string &number);
/** The other side answers a call that was dialled. */
bool remoteAnswers(CallState &calls, unsigned char callId);
/** The other side hangs up, or gives up calling. */
bool remoteHangsUp(CallState &calls, unsigned char callId);
/** A push-to-talk call begins to play. False when there is no room for it or its id is a voice call's. */
bool startPushToTalk(CallState &calls, unsigned char callId, bool audioBufferComplete);
/** @} */

void endPushToTalk(CallState &calls, unsigned char callId);

} // namespace Simulator
