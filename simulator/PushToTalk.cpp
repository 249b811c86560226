// The push-to-talk library: its call manager and its service.
#include "Calls.h"
#include "PlatformCall.h"

#include "KPTT_API_ReqDevice.h"
#include "PHONE_ENG_PTTCallManager.h"

using Simulator::Bytes;
using Simulator::endPushToTalk;
using Simulator::findPushToTalkCall;
using Simulator::platformCall;

namespace {

constexpr unsigned char noCall = 255;

/** The service's answer, and what an accepted request does. */
template <typename Action>
int serve(PhoneState &phone, Action action)
{
    if (!phone.calls.pushToTalkAccepts)
        return 1;
    action(phone.calls);
    return 0;
}

} // namespace

bool SimulatedPhone::startPushToTalk(unsigned char callId, bool audioBufferComplete)
{
    return Simulator::startPushToTalk(m_state.calls, callId, audioBufferComplete);
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
            const PushToTalkCall *const call = findPushToTalkCall(phone.calls, callId);
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
        [callId](PhoneState &phone) { return findPushToTalkCall(phone.calls, callId) ? 1 : 0; }, callId);
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
                if (PushToTalkCall *const call = findPushToTalkCall(calls, callId))
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
                    endPushToTalk(calls, request->callId);
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
                PushToTalkCall *const first = findPushToTalkCall(calls, request->firstCallId);
                PushToTalkCall *const second = findPushToTalkCall(calls, request->secondCallId);
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
            return serve(phone, [request](CallState &calls) { endPushToTalk(calls, request->callId); });
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
