// The push-to-talk library: its call manager and its service.
#include "PlatformCall.h"

#include "KPTT_API_ReqDevice.h"
#include "PHONE_ENG_PTTCallManager.h"

using Simulator::Bytes;
using Simulator::platformCall;

namespace {

constexpr unsigned char noCall = 255;

PushToTalkCall *find(CallState &calls, unsigned char callId)
{
    for (PushToTalkCall &call : calls.pushToTalkCalls) {
        if (call.callId != 0 && call.callId == callId)
            return &call;
    }
    return nullptr;
}

/** The service's answer, and what an accepted request does. */
template <typename Action>
int serve(PhoneState &phone, Action action)
{
    if (!phone.calls.pushToTalkAccepts)
        return 1;
    action(phone.calls);
    return 0;
}

void end(CallState &calls, unsigned char callId)
{
    if (PushToTalkCall *const call = find(calls, callId))
        *call = {};
}

} // namespace

bool SimulatedPhone::startPushToTalk(unsigned char callId, bool audioBufferComplete)
{
    if (callId == 0 || callId == noCall)
        return false;
    end(m_state.calls, callId);
    for (PushToTalkCall &call : m_state.calls.pushToTalkCalls) {
        if (call.callId == 0) {
            call = {callId, true, audioBufferComplete};
            return true;
        }
    }
    return false;
}

PHONE_ENG_PTTCallManager *PHONE_ENG_PTTCallManager::instance()
{
    static PHONE_ENG_PTTCallManager manager = {};
    platformCall("PHONE_ENG_PTTCallManager::instance", {}, [](PhoneState &) {});
    return &manager;
}

unsigned char PHONE_ENG_PTTCallManager::getPTTActiveCallId()
{
    return platformCall("PHONE_ENG_PTTCallManager::getPTTActiveCallId", {}, [](PhoneState &phone) {
        for (const PushToTalkCall &call : phone.calls.pushToTalkCalls) {
            if (call.callId != 0 && call.active)
                return call.callId;
        }
        return noCall;
    });
}

int PHONE_ENG_PTTCallManager::isPTTAudioBufComplete(unsigned char callId)
{
    return platformCall(
        "PHONE_ENG_PTTCallManager::isPTTAudioBufComplete", {},
        [callId](PhoneState &phone) {
            const PushToTalkCall *const call = find(phone.calls, callId);
            return call && call->audioBufferComplete ? 1 : 0;
        },
        callId);
}

int PHONE_ENG_PTTCallManager::isPTTCallInLine()
{
    return platformCall("PHONE_ENG_PTTCallManager::isPTTCallInLine", {}, [](PhoneState &phone) {
        for (const PushToTalkCall &call : phone.calls.pushToTalkCalls) {
            if (call.callId != 0)
                return 1;
        }
        return 0;
    });
}

int PHONE_ENG_PTTCallManager::isKodiakPTTCallId(unsigned char callId)
{
    return platformCall(
        "PHONE_ENG_PTTCallManager::isKodiakPTTCallId", {},
        [callId](PhoneState &phone) { return find(phone.calls, callId) ? 1 : 0; }, callId);
}

KPTT_API_ReqDevice::KPTT_API_ReqDevice()
{
    platformCall("KPTT_API_ReqDevice", {}, [](PhoneState &) {});
}

KPTT_API_ReqDevice::~KPTT_API_ReqDevice()
{
    platformCall("~KPTT_API_ReqDevice", {}, [](PhoneState &) {});
}

int KPTT_API_ReqDevice::holdCallReq(unsigned char callId)
{
    return platformCall(
        "KPTT_API_ReqDevice::holdCallReq", {},
        [callId](PhoneState &phone) {
            return serve(phone, [callId](CallState &calls) {
                if (PushToTalkCall *const call = find(calls, callId))
                    call->active = false;
            });
        },
        callId);
}

int KPTT_API_ReqDevice::releaseCallReq(_KPTT_RELEASE_CALL_REQ_S *request)
{
    return platformCall(
        "KPTT_API_ReqDevice::releaseCallReq", {},
        [request](PhoneState &phone) {
            return serve(phone, [request](CallState &calls) {
                if (request->dropType == TAPI_VOICE_DROP_ALL)
                    calls.pushToTalkCalls = {};
                else
                    end(calls, request->callId);
            });
        },
        Bytes(request, sizeof *request));
}

int KPTT_API_ReqDevice::switchCallReq(_KPTT_SWITCH_CALL_REQ_S *request)
{
    return platformCall(
        "KPTT_API_ReqDevice::switchCallReq", {},
        [request](PhoneState &phone) {
            return serve(phone, [request](CallState &calls) {
                PushToTalkCall *const first = find(calls, request->firstCallId);
                PushToTalkCall *const second = find(calls, request->secondCallId);
                if (first && second)
                    std::swap(first->active, second->active);
                else if (first)
                    first->active = !first->active;
            });
        },
        Bytes(request, sizeof *request));
}

int KPTT_API_ReqDevice::rejectCallReq(_KPTT_REJECT_CALL_REQ_S *request)
{
    return platformCall(
        "KPTT_API_ReqDevice::rejectCallReq", {},
        [request](PhoneState &phone) {
            return serve(phone, [request](CallState &calls) { end(calls, request->callId); });
        },
        Bytes(request, sizeof *request));
}

int KPTT_API_ReqDevice::linkCallReq()
{
    return platformCall("KPTT_API_ReqDevice::linkCallReq", {},
                        [](PhoneState &phone) { return serve(phone, [](CallState &) {}); });
}

int KPTT_API_ReqDevice::transferCallReq()
{
    return platformCall("KPTT_API_ReqDevice::transferCallReq", {},
                        [](PhoneState &phone) { return serve(phone, [](CallState &) {}); });
}

int KPTT_API_ReqDevice::conferenceCallReq()
{
    return platformCall("KPTT_API_ReqDevice::conferenceCallReq", {},
                        [](PhoneState &phone) { return serve(phone, [](CallState &) {}); });
}
