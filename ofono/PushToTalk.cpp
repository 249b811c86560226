// The push-to-talk library. The daemon has no such service: no call is one, and every request is refused.
#include "KPTT_API_ReqDevice.h"
#include "PHONE_ENG_PTTCallManager.h"

namespace {

constexpr unsigned char noCall = 255;
constexpr int refused = 1;

} // namespace

PHONE_ENG_PTTCallManager *PHONE_ENG_PTTCallManager::instance()
{
    static PHONE_ENG_PTTCallManager manager = {};
    return &manager;
}

unsigned char PHONE_ENG_PTTCallManager::getPTTActiveCallId()
{
    return noCall;
}

int PHONE_ENG_PTTCallManager::isPTTAudioBufComplete(unsigned char)
{
    return 0;
}

int PHONE_ENG_PTTCallManager::isPTTCallInLine()
{
    return 0;
}

int PHONE_ENG_PTTCallManager::isKodiakPTTCallId(unsigned char)
{
    return 0;
}

KPTT_API_ReqDevice::KPTT_API_ReqDevice() = default;
KPTT_API_ReqDevice::~KPTT_API_ReqDevice() = default;

int KPTT_API_ReqDevice::holdCallReq(unsigned char)
{
    return refused;
}

int KPTT_API_ReqDevice::releaseCallReq(_KPTT_RELEASE_CALL_REQ_S *)
{
    return refused;
}

int KPTT_API_ReqDevice::switchCallReq(_KPTT_SWITCH_CALL_REQ_S *)
{
    return refused;
}

int KPTT_API_ReqDevice::rejectCallReq(_KPTT_REJECT_CALL_REQ_S *)
{
    return refused;
}

int KPTT_API_ReqDevice::linkCallReq()
{
    return refused;
}

int KPTT_API_ReqDevice::transferCallReq()
{
    return refused;
}

int KPTT_API_ReqDevice::conferenceCallReq()
{
    return refused;
}
