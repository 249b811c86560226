// The call table.
#include "Calls.h"

#include <algorithm>
#include <cstring>

namespace Simulator {

namespace {

constexpr unsigned char noPushToTalkCall = 255; // what the push-to-talk library answers for none

/** Acts on one call that must be in one of two states. */
template <typename Action>
_TAPI_RESULT_E onCall(CallState &calls, unsigned char callId, _TAPI_CALL_STATE_E state,
                      _TAPI_CALL_STATE_E otherState, Action action)
{
    _TAPI_CALL_SESSION_S *const call = findCall(calls, callId);
    if (!call)
        return TAPI_RESULT_CALL_INVALID_ID;
    if (call->state != state && call->state != otherState)
        return TAPI_RESULT_FAIL;
    action(*call);
    return TAPI_RESULT_SUCC;
}

template <typename Action>
_TAPI_RESULT_E onTwoCalls(CallState &calls, unsigned char firstCallId, unsigned char secondCallId,
                          Action action)
{
    _TAPI_CALL_SESSION_S *const first = findCall(calls, firstCallId);
    _TAPI_CALL_SESSION_S *const second = findCall(calls, secondCallId);
    if (!first || !second || first == second)
        return TAPI_RESULT_CALL_INVALID_ID;
    action(*first, *second);
    return TAPI_RESULT_SUCC;
}

constexpr auto nothing = [](_TAPI_CALL_SESSION_S &) {};

void removeCall(CallState &calls, unsigned char callId)
{
    removeCalls(calls, [callId](const _TAPI_CALL_SESSION_S &call) { return call.callId == callId; });
}

/** Ends one call that must be in one of two states. */
_TAPI_RESULT_E endCall(CallState &calls, unsigned char callId, _TAPI_CALL_STATE_E state,
                       _TAPI_CALL_STATE_E otherState)
{
    const _TAPI_RESULT_E result = onCall(calls, callId, state, otherState, nothing);
    if (result == TAPI_RESULT_SUCC)
        removeCall(calls, callId);
    return result;
}

} // namespace

_TAPI_CALL_SESSION_S *findCall(CallState &calls, unsigned char callId)
{
    for (unsigned int call = 0; call < calls.table.count; ++call) {
        if (calls.table.sessions[call].callId == callId)
            return &calls.table.sessions[call];
    }
    return nullptr;
}

PushToTalkCall *findPushToTalkCall(CallState &calls, unsigned char callId)
{
    for (PushToTalkCall &call : calls.pushToTalkCalls) {
        if (call.callId != 0 && call.callId == callId)
            return &call;
    }
    return nullptr;
}

_TAPI_CALL_SESSION_S *addCall(CallState &calls, const char *number, _TAPI_CALL_STATE_E state, bool incoming)
{
    if (calls.table.count == TAPI_CALL_MAX_SESSIONS)
        return nullptr;
    unsigned char callId = 1;
    while (findCall(calls, callId) || findPushToTalkCall(calls, callId))
        ++callId;
    _TAPI_CALL_SESSION_S &call = calls.table.sessions[calls.table.count++];
    call = {};
    call.callId = callId;
    call.incoming = incoming ? 1 : 0;
    call.state = state;
    std::strncpy(call.number, number, sizeof call.number - 1);
    return &call;
}

void holdOthers(CallState &calls, unsigned char callId)
{
    for (unsigned int call = 0; call < calls.table.count; ++call) {
        _TAPI_CALL_SESSION_S &other = calls.table.sessions[call];
        if (other.callId != callId && other.state == TAPI_CALL_STATE_ACTIVE)
            other.state = TAPI_CALL_STATE_HELD;
    }
}

bool isRinging(const CallState &calls)
{
    return std::any_of(
        calls.table.sessions, calls.table.sessions + calls.table.count,
        [](const _TAPI_CALL_SESSION_S &call) { return call.state == TAPI_CALL_STATE_RINGING; });
}

_TAPI_RESULT_E dial(CallState &calls, const char *number, unsigned char *callId)
{
    const _TAPI_CALL_SESSION_S *const call = addCall(calls, number, TAPI_CALL_STATE_DIALLING, false);
    if (!call)
        return TAPI_RESULT_FAIL;
    holdOthers(calls, call->callId);
    *callId = call->callId;
    return TAPI_RESULT_SUCC;
}

_TAPI_RESULT_E answerCall(CallState &calls, unsigned char callId, bool releaseActive)
{
    const _TAPI_CALL_SESSION_S *const call = findCall(calls, callId);
    if (!call)
        return TAPI_RESULT_CALL_INVALID_ID;
    if (call->state != TAPI_CALL_STATE_RINGING)
        return TAPI_RESULT_FAIL;
    if (releaseActive)
        removeCalls(calls,
                    [](const _TAPI_CALL_SESSION_S &other) { return other.state == TAPI_CALL_STATE_ACTIVE; });
    holdOthers(calls, callId);
    if (_TAPI_CALL_SESSION_S *const answered = findCall(calls, callId)) // it may have moved in its table
        answered->state = TAPI_CALL_STATE_ACTIVE;
    return TAPI_RESULT_SUCC;
}

_TAPI_RESULT_E dropCalls(CallState &calls, unsigned char callId, _TAPI_VOICE_DROP_CALL_TYPE_E dropType)
{
    if (!findCall(calls, callId))
        return TAPI_RESULT_CALL_INVALID_ID;
    removeCalls(calls, [=](const _TAPI_CALL_SESSION_S &call) {
        switch (dropType) {
        case TAPI_VOICE_DROP_ALL:
            return true;
        case TAPI_VOICE_DROP_ALL_ACTIVE:
            return call.state == TAPI_CALL_STATE_ACTIVE;
        case TAPI_VOICE_DROP_ALL_HELD:
            return call.state == TAPI_CALL_STATE_HELD;
        default:
            return call.callId == callId;
        }
    });
    return TAPI_RESULT_SUCC;
}

_TAPI_RESULT_E holdCall(CallState &calls, unsigned char callId)
{
    return onCall(calls, callId, TAPI_CALL_STATE_ACTIVE, TAPI_CALL_STATE_ACTIVE,
                  [](_TAPI_CALL_SESSION_S &call) { call.state = TAPI_CALL_STATE_HELD; });
}

_TAPI_RESULT_E retrieveCall(CallState &calls, unsigned char callId)
{
    return onCall(calls, callId, TAPI_CALL_STATE_HELD, TAPI_CALL_STATE_HELD,
                  [&calls](_TAPI_CALL_SESSION_S &call) {
                      holdOthers(calls, call.callId);
                      call.state = TAPI_CALL_STATE_ACTIVE;
                  });
}

_TAPI_RESULT_E switchCalls(CallState &calls, unsigned char firstCallId, unsigned char secondCallId)
{
    return onTwoCalls(calls, firstCallId, secondCallId,
                      [](_TAPI_CALL_SESSION_S &first, _TAPI_CALL_SESSION_S &second) {
                          std::swap(first.state, second.state);
                      });
}

_TAPI_RESULT_E cancelCall(CallState &calls, unsigned char callId)
{
    return endCall(calls, callId, TAPI_CALL_STATE_DIALLING, TAPI_CALL_STATE_DIALLING);
}

_TAPI_RESULT_E linkCalls(CallState &calls, unsigned char firstCallId, unsigned char secondCallId)
{
    const _TAPI_RESULT_E result =
        onTwoCalls(calls, firstCallId, secondCallId, [](_TAPI_CALL_SESSION_S &, _TAPI_CALL_SESSION_S &) {});
    if (result == TAPI_RESULT_SUCC) {
        removeCall(calls, firstCallId);
        removeCall(calls, secondCallId);
    }
    return result;
}

_TAPI_RESULT_E transferCall(CallState &calls, unsigned char callId)
{
    return endCall(calls, callId, TAPI_CALL_STATE_ACTIVE, TAPI_CALL_STATE_HELD);
}

_TAPI_RESULT_E joinCalls(CallState &calls, unsigned char firstCallId, unsigned char secondCallId)
{
    return onTwoCalls(calls, firstCallId, secondCallId,
                      [](_TAPI_CALL_SESSION_S &first, _TAPI_CALL_SESSION_S &second) {
                          first.joined = second.joined = 1;
                          first.state = second.state = TAPI_CALL_STATE_ACTIVE;
                      });
}

_TAPI_RESULT_E splitCall(CallState &calls, unsigned char callId)
{
    _TAPI_CALL_SESSION_S *const call = findCall(calls, callId);
    if (!call)
        return TAPI_RESULT_CALL_INVALID_ID;
    if (call->joined == 0)
        return TAPI_RESULT_FAIL;
    call->joined = 0;
    holdOthers(calls, callId);
    unsigned int joined = 0;
    for (unsigned int other = 0; other < calls.table.count; ++other)
        joined += calls.table.sessions[other].joined;
    if (joined == 1) { // one call alone is no conference
        for (unsigned int other = 0; other < calls.table.count; ++other)
            calls.table.sessions[other].joined = 0;
    }
    return TAPI_RESULT_SUCC;
}

_TAPI_RESULT_E rejectCall(CallState &calls, unsigned char callId)
{
    return endCall(calls, callId, TAPI_CALL_STATE_RINGING, TAPI_CALL_STATE_RINGING);
}

void sendTone(CallState &calls, char key)
{
    calls.lastTone = key;
    ++calls.tones;
}

unsigned char ring(CallState &calls, const std::string &number)
{
    const _TAPI_CALL_SESSION_S *const call = addCall(calls, number.c_str(), TAPI_CALL_STATE_RINGING, true);
    return call ? call->callId : 0;
}

bool remoteAnswers(CallState &calls, unsigned char callId)
{
    return onCall(calls, callId, TAPI_CALL_STATE_DIALLING, TAPI_CALL_STATE_DIALLING,
                  [](_TAPI_CALL_SESSION_S &call) { call.state = TAPI_CALL_STATE_ACTIVE; })
        == TAPI_RESULT_SUCC;
}

bool remoteHangsUp(CallState &calls, unsigned char callId)
{
    return dropCalls(calls, callId, TAPI_VOICE_DROP_ONE) == TAPI_RESULT_SUCC;
}

bool startPushToTalk(CallState &calls, unsigned char callId, bool audioBufferComplete)
{
    if (callId == 0 || callId == noPushToTalkCall || findCall(calls, callId))
        return false;
    endPushToTalk(calls, callId);
    for (PushToTalkCall &call : calls.pushToTalkCalls) {
        if (call.callId == 0) {
            call = {callId, true, audioBufferComplete};
            return true;
        }
    }
    return false;
}

void endPushToTalk(CallState &calls, unsigned char callId)
{
    if (PushToTalkCall *const call = findPushToTalkCall(calls, callId))
        *call = {};
}

} // namespace Simulator
