// Accessories, tones, text telephone, and the identity of the device and its subscriber.
#include "PlatformCall.h"

#include "TAPI_ACCE.h"
#include "TAPI_TTY.h"

using Simulator::copyText;
using Simulator::Out;
using Simulator::platformCall;

_TAPI_RESULT_E TAPI_TTY_GetTtyMode(unsigned char *mode)
{
    return platformCall("TAPI_TTY_GetTtyMode", {Out(mode)}, [mode](PhoneState &phone) {
        *mode = phone.device.ttyMode;
        return TAPI_RESULT_SUCC;
    });
}

_TAPI_RESULT_E TAPI_TTY_SetTtyMode(unsigned char mode)
{
    return platformCall(
        "TAPI_TTY_SetTtyMode", {},
        [mode](PhoneState &phone) {
            if (mode > 3)
                return TAPI_RESULT_INVALID_PARAM;
            phone.device.ttyMode = mode;
            return TAPI_RESULT_SUCC;
        },
        mode);
}

_TAPI_RESULT_E TAPI_ACCE_SetSpeakerVolume(int volume)
{
    return platformCall(
        "TAPI_ACCE_SetSpeakerVolume", {},
        [volume](PhoneState &phone) {
            if (volume < 0 || volume > 100)
                return TAPI_RESULT_INVALID_PARAM;
            phone.device.speakerVolume = volume;
            return TAPI_RESULT_SUCC;
        },
        volume);
}

_TAPI_RESULT_E TAPI_ACCE_NotifyAudioAccessoryStatus(unsigned short status)
{
    return platformCall(
        "TAPI_ACCE_NotifyAudioAccessoryStatus", {},
        [status](PhoneState &phone) {
            phone.device.accessoryStatus = status;
            return TAPI_RESULT_SUCC;
        },
        status);
}

_TAPI_RESULT_E TAPI_ACCE_SetUsbCableStatus(_TAPI_USB_CABLE_STATUS_E cable, _TAPI_USB_CHARGING_E charging)
{
    return platformCall(
        "TAPI_ACCE_SetUsbCableStatus", {},
        [=](PhoneState &phone) {
            phone.device.usbCable = cable;
            phone.device.usbCharging = charging;
            return TAPI_RESULT_SUCC;
        },
        cable, charging);
}

_TAPI_RESULT_E TAPI_ACCE_GetServiceTone(unsigned char *on)
{
    return platformCall("TAPI_ACCE_GetServiceTone", {Out(on)}, [on](PhoneState &phone) {
        *on = phone.device.serviceTone;
        return TAPI_RESULT_SUCC;
    });
}

_TAPI_RESULT_E TAPI_ACCE_SetServiceTone(unsigned char on)
{
    return platformCall(
        "TAPI_ACCE_SetServiceTone", {},
        [on](PhoneState &phone) {
            phone.device.serviceTone = on;
            return TAPI_RESULT_SUCC;
        },
        on);
}

_TAPI_RESULT_E TAPI_ACCE_GetImei(TAPI_IMEI_A imei)
{
    return platformCall("TAPI_ACCE_GetImei", {Out(imei, sizeof(TAPI_IMEI_A))}, [imei](PhoneState &phone) {
        copyText(imei, sizeof(TAPI_IMEI_A), phone.device.imei);
        return TAPI_RESULT_SUCC;
    });
}

_TAPI_RESULT_E TAPI_ACCE_GetImsi(TAPI_IMSI_A imsi)
{
    return platformCall("TAPI_ACCE_GetImsi", {Out(imsi, sizeof(TAPI_IMSI_A))}, [imsi](PhoneState &phone) {
        copyText(imsi, sizeof(TAPI_IMSI_A), phone.sim.imsi);
        return TAPI_RESULT_SUCC;
    });
}

_TAPI_RESULT_E TAPI_ACCE_GetBpVersionInfo(_TAPI_ACCE_BP_VERSION_INFO_S *info)
{
    return platformCall("TAPI_ACCE_GetBpVersionInfo", {Out(info)}, [info](PhoneState &phone) {
        copyText(info->bpVer, sizeof info->bpVer, phone.device.bpVersion);
        copyText(info->bpFlexVer, sizeof info->bpFlexVer, phone.device.bpFlexVersion);
        copyText(info->dspVer, sizeof info->dspVer, phone.device.dspVersion);
        copyText(info->technology, sizeof info->technology, phone.device.technology);
        return TAPI_RESULT_SUCC;
    });
}

_TAPI_RESULT_E TAPI_ACCE_GetBpVersion(TAPI_BP_VER_A version)
{
    return platformCall("TAPI_ACCE_GetBpVersion", {Out(version, sizeof(TAPI_BP_VER_A))},
                        [version](PhoneState &phone) {
                            copyText(version, sizeof(TAPI_BP_VER_A), phone.device.bpVersion);
                            return TAPI_RESULT_SUCC;
                        });
}
