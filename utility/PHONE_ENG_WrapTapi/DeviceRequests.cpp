// Device controls passed on to the modem: volume, accessories, text telephone, USB.
#include "PHONE_ENG_WrapTapi.h"
#include "Unit.h"

#include "TAPI_TTY.h"

namespace {

constexpr int modeCount = 4;

/** The platform numbers the modes one ahead of the engine's callers; its 0 is their last one. */
int callerMode(unsigned char platformMode)
{
    return (platformMode + modeCount - 1) % modeCount;
}

unsigned char platformMode(int callerMode)
{
    return callerMode >= 0 && callerMode < modeCount - 1 ? static_cast<unsigned char>(callerMode + 1) : 0;
}

} // namespace

_TAPI_RESULT_E PHONE_ENG_TAPI_set_speaker_volume(int volume)
{
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_ACCE_SetSpeakerVolume(volume);
    LOG_TRACE();
    return result;
}

_TAPI_RESULT_E PHONE_ENG_TAPI_audio_accessory_status(unsigned short status)
{
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_ACCE_NotifyAudioAccessoryStatus(status);
    LOG_TRACE();
    return result;
}

_TAPI_RESULT_E PHONE_ENG_TAPI_GetTTYMode(int &mode)
{
    unsigned char answer = modeCount;
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_TTY_GetTtyMode(&answer);
    LOG_TRACE();
    if (result == TAPI_RESULT_SUCC && answer < modeCount)
        mode = callerMode(answer);
    return result;
}

_TAPI_RESULT_E PHONE_ENG_TAPI_SetTTYMode(int mode)
{
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_TTY_SetTtyMode(platformMode(mode));
    LOG_TRACE();
    return result;
}

_TAPI_RESULT_E PHONE_ENG_TAPI_SetUSBDriverMode(_TAPI_USB_CABLE_STATUS_E cable, _TAPI_USB_CHARGING_E charging)
{
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_ACCE_SetUsbCableStatus(cable, charging);
    LOG_TRACE();
    return result;
}
