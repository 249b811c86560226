// Voice calls in the call table.
#include "Calls.h"
#include "PlatformCall.h"

#include "TAPI_USSD.h"
#include "TAPI_VOICE.h"

using Simulator::addCall;
using Simulator::Bytes;
using Simulator::findCall;
using Simulator::holdOthers;
using Simulator::Out;
using Simulator::platformCall;
using Simulator::removeCalls;
using Simulator::text;

namespace Simulator {

_TAPI_CALL_SESSION_S *findCall(CallState &calls, unsigned char callId)
{
    for (unsigned int call = 0; call < calls.table.count; ++call) {
        if (calls.table.sessions[call].callId == callId)
            return &calls.table.sessions[call];
    }
    return nullptr;
}

_TAPI_CALL_SESSION_S *addCall(CallState &calls, const char *number, _TAPI_CALL_STATE_E state, bool incoming)
{
    if (calls.table.count == TAPI_CALL_MAX_SESSIONS)
        return nullptr;
    unsigned char callId = 1;
    while (findCall(calls, callId))
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

} // namespace Simulator

namespace {

_TAPI_RESULT_E dial(PhoneState &phone, const unsigned char *dialString, unsigned char *callId)
{
    const _TAPI_CALL_SESSION_S *const call =
        addCall(phone.calls, text(dialString), TAPI_CALL_STATE_DIALLING, false);
    if (!call)
        return TAPI_RESULT_FAIL;
    holdOthers(phone.calls, call->callId);
    *callId = call->callId;
    return TAPI_RESULT_SUCC;
}

/** Acts on one call that must be in one of two states. */
template <typename Action>
_TAPI_RESULT_E onCall(PhoneState &phone, unsigned char callId, _TAPI_CALL_STATE_E state,
                      _TAPI_CALL_STATE_E otherState, Action action)
{
    _TAPI_CALL_SESSION_S *const call = findCall(phone.calls, callId);
    if (!call)
        return TAPI_RESULT_CALL_INVALID_ID;
    if (call->state != state && call->state != otherState)
        return TAPI_RESULT_FAIL;
    action(*call);
    return TAPI_RESULT_SUCC;
}

template <typename Action>
_TAPI_RESULT_E onTwoCalls(PhoneState &phone, unsigned char firstCallId, unsigned char secondCallId,
                          Action action)
{
    _TAPI_CALL_SESSION_S *const first = findCall(phone.calls, firstCallId);
    _TAPI_CALL_SESSION_S *const second = findCall(phone.calls, secondCallId);
    if (!first || !second || first == second)
        return TAPI_RESULT_CALL_INVALID_ID;
    action(*first, *second);
    return TAPI_RESULT_SUCC;
}

void removeCall(PhoneState &phone, unsigned char callId)
{
    removeCalls(phone.calls, [callId](const _TAPI_CALL_SESSION_S &call) { return call.callId == callId; });
}

} // namespace

unsigned char SimulatedPhone::ring(const std::string &number)
{
    const _TAPI_CALL_SESSION_S *const call =
        addCall(m_state.calls, number.c_str(), TAPI_CALL_STATE_RINGING, true);
    return call ? call->callId : 0;
}

bool SimulatedPhone::remoteAnswers(unsigned char callId)
{
    return onCall(m_state, callId, TAPI_CALL_STATE_DIALLING, TAPI_CALL_STATE_DIALLING,
                  [](_TAPI_CALL_SESSION_S &call) { call.state = TAPI_CALL_STATE_ACTIVE; })
        == TAPI_RESULT_SUCC;
}

bool SimulatedPhone::remoteHangsUp(unsigned char callId)
{
    const bool found = findCall(m_state.calls, callId) != nullptr;
    removeCall(m_state, callId);
    return found;
}

_TAPI_RESULT_E TAPI_VOICE_MakeCall(signed char option, unsigned char *dialString, unsigned char *callId)
{
    return platformCall(
        "TAPI_VOICE_MakeCall", {Out(callId)},
        [=](PhoneState &phone) { return dial(phone, dialString, callId); }, option, text(dialString));
}

_TAPI_RESULT_E TAPI_VOICE_MakeStkCall(unsigned char *dialString, _TAPI_VOICE_DIAL_CALL_TYPE_E dialType,
                                      unsigned char redialMode, unsigned int duration, unsigned char *callId)
{
    return platformCall(
        "TAPI_VOICE_MakeStkCall", {Out(callId)},
        [=](PhoneState &phone) { return dial(phone, dialString, callId); }, text(dialString), dialType,
        redialMode, duration);
}

_TAPI_RESULT_E TAPI_VOICE_AnswerCall(unsigned char callId, _TAPI_VOICE_ANSWER_CALL_TYPE_E answerType)
{
    return platformCall(
        "TAPI_VOICE_AnswerCall", {},
        [=](PhoneState &phone) {
            const _TAPI_CALL_SESSION_S *const call = findCall(phone.calls, callId);
            if (!call)
                return TAPI_RESULT_CALL_INVALID_ID;
            if (call->state != TAPI_CALL_STATE_RINGING)
                return TAPI_RESULT_FAIL;
            if (answerType == TAPI_VOICE_ANSWER_RELEASE_ACTIVE)
                removeCalls(phone.calls, [](const _TAPI_CALL_SESSION_S &other) {
                    return other.state == TAPI_CALL_STATE_ACTIVE;
                });
            holdOthers(phone.calls, callId);
            findCall(phone.calls, callId)->state = TAPI_CALL_STATE_ACTIVE;
            return TAPI_RESULT_SUCC;
        },
        callId, answerType);
}

_TAPI_RESULT_E TAPI_VOICE_DropCall(unsigned char callId, _TAPI_VOICE_DROP_CALL_TYPE_E dropType)
{
    return platformCall(
        "TAPI_VOICE_DropCall", {},
        [=](PhoneState &phone) {
            if (!findCall(phone.calls, callId))
                return TAPI_RESULT_CALL_INVALID_ID;
            removeCalls(phone.calls, [=](const _TAPI_CALL_SESSION_S &call) {
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
        },
        callId, dropType);
}

_TAPI_RESULT_E TAPI_VOICE_HoldCall(unsigned char callId)
{
    return platformCall(
        "TAPI_VOICE_HoldCall", {},
        [=](PhoneState &phone) {
            return onCall(phone, callId, TAPI_CALL_STATE_ACTIVE, TAPI_CALL_STATE_ACTIVE,
                          [](_TAPI_CALL_SESSION_S &call) { call.state = TAPI_CALL_STATE_HELD; });
        },
        callId);
}

_TAPI_RESULT_E TAPI_VOICE_RetrieveCall(unsigned char callId)
{
    return platformCall(
        "TAPI_VOICE_RetrieveCall", {},
        [=](PhoneState &phone) {
            return onCall(phone, callId, TAPI_CALL_STATE_HELD, TAPI_CALL_STATE_HELD,
                          [&](_TAPI_CALL_SESSION_S &call) {
                              holdOthers(phone.calls, callId);
                              call.state = TAPI_CALL_STATE_ACTIVE;
                          });
        },
        callId);
}

_TAPI_RESULT_E TAPI_VOICE_SwitchCall(unsigned char firstCallId, unsigned char secondCallId)
{
    return platformCall(
        "TAPI_VOICE_SwitchCall", {},
        [=](PhoneState &phone) {
            return onTwoCalls(phone, firstCallId, secondCallId,
                              [](_TAPI_CALL_SESSION_S &first, _TAPI_CALL_SESSION_S &second) {
                                  std::swap(first.state, second.state);
                              });
        },
        firstCallId, secondCallId);
}

_TAPI_RESULT_E TAPI_VOICE_CancelCall(unsigned char callId)
{
    return platformCall(
        "TAPI_VOICE_CancelCall", {},
        [=](PhoneState &phone) {
            const _TAPI_RESULT_E result = onCall(phone, callId, TAPI_CALL_STATE_DIALLING,
                                                 TAPI_CALL_STATE_DIALLING, [](_TAPI_CALL_SESSION_S &) {});
            if (result == TAPI_RESULT_SUCC)
                removeCall(phone, callId);
            return result;
        },
        callId);
}

_TAPI_RESULT_E TAPI_VOICE_LinkCall(unsigned char firstCallId, unsigned char secondCallId)
{
    return platformCall(
        "TAPI_VOICE_LinkCall", {},
        [=](PhoneState &phone) {
            const _TAPI_RESULT_E result = onTwoCalls(phone, firstCallId, secondCallId,
                                                     [](_TAPI_CALL_SESSION_S &, _TAPI_CALL_SESSION_S &) {});
            if (result == TAPI_RESULT_SUCC) {
                removeCall(phone, firstCallId);
                removeCall(phone, secondCallId);
            }
            return result;
        },
        firstCallId, secondCallId);
}

_TAPI_RESULT_E TAPI_VOICE_TransferCall(unsigned char callId, unsigned char *dialString,
                                       unsigned char *transferId)
{
    return platformCall(
        "TAPI_VOICE_TransferCall", {Out(transferId)},
        [=](PhoneState &phone) {
            const _TAPI_RESULT_E result = onCall(phone, callId, TAPI_CALL_STATE_ACTIVE, TAPI_CALL_STATE_HELD,
                                                 [](_TAPI_CALL_SESSION_S &) {});
            if (result == TAPI_RESULT_SUCC)
                removeCall(phone, callId);
            return result;
        },
        callId, text(dialString));
}

_TAPI_RESULT_E TAPI_VOICE_JoinCall(unsigned char firstCallId, unsigned char secondCallId)
{
    return platformCall(
        "TAPI_VOICE_JoinCall", {},
        [=](PhoneState &phone) {
            return onTwoCalls(phone, firstCallId, secondCallId,
                              [](_TAPI_CALL_SESSION_S &first, _TAPI_CALL_SESSION_S &second) {
                                  first.joined = second.joined = 1;
                                  first.state = second.state = TAPI_CALL_STATE_ACTIVE;
                              });
        },
        firstCallId, secondCallId);
}

_TAPI_RESULT_E TAPI_VOICE_SplitCall(unsigned char callId)
{
    return platformCall(
        "TAPI_VOICE_SplitCall", {},
        [=](PhoneState &phone) {
            _TAPI_CALL_SESSION_S *const call = findCall(phone.calls, callId);
            if (!call)
                return TAPI_RESULT_CALL_INVALID_ID;
            if (call->joined == 0)
                return TAPI_RESULT_FAIL;
            call->joined = 0;
            holdOthers(phone.calls, callId);
            unsigned int joined = 0;
            for (unsigned int other = 0; other < phone.calls.table.count; ++other)
                joined += phone.calls.table.sessions[other].joined;
            if (joined == 1) { // one call alone is no conference
                for (unsigned int other = 0; other < phone.calls.table.count; ++other)
                    phone.calls.table.sessions[other].joined = 0;
            }
            return TAPI_RESULT_SUCC;
        },
        callId);
}

_TAPI_RESULT_E TAPI_VOICE_RejectCall(unsigned char callId, _TAPI_VOICE_REJECT_CALL_TYPE_E rejectType)
{
    return platformCall(
        "TAPI_VOICE_RejectCall", {},
        [=](PhoneState &phone) {
            const _TAPI_RESULT_E result = onCall(phone, callId, TAPI_CALL_STATE_RINGING,
                                                 TAPI_CALL_STATE_RINGING, [](_TAPI_CALL_SESSION_S &) {});
            if (result == TAPI_RESULT_SUCC)
                removeCall(phone, callId);
            return result;
        },
        callId, rejectType);
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
            if (keyStatus == TAPI_VOICE_DTMF_KEY_PRESSED) {
                phone.calls.lastTone = key;
                ++phone.calls.tones;
            }
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
            for (const unsigned char *digit = digits; *digit != 0; ++digit) {
                phone.calls.lastTone = static_cast<char>(*digit);
                ++phone.calls.tones;
            }
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
