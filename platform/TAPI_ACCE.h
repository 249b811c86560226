// Accessories, tones and the identity of the device and its subscriber.
#pragma once

#include "TAPI_RESULT.h"

/** Handed on as received. The numbers are this boundary's; a port translates them. */
enum _TAPI_USB_CABLE_STATUS_E : unsigned int {
    TAPI_USB_CABLE_DETACHED = 0,
    TAPI_USB_CABLE_ATTACHED = 1,
};

/** Handed on as received. The numbers are this boundary's; a port translates them. */
enum _TAPI_USB_CHARGING_E : unsigned int {
    TAPI_USB_CHARGING_OFF = 0,
    TAPI_USB_CHARGING_ON = 1,
};

/** Version strings of the baseband processor, each NUL-terminated. */
struct _TAPI_ACCE_BP_VERSION_INFO_S {
    char bpVer[48];
    char bpFlexVer[48];
    char dspVer[48];
    char technology[48];
};
static_assert(sizeof(_TAPI_ACCE_BP_VERSION_INFO_S) == 192);

typedef char TAPI_IMEI_A[17];            // at most 16 characters
typedef char TAPI_IMSI_A[16];            // at most 15 digits
typedef unsigned char TAPI_BP_VER_A[48]; // at most 47 characters

extern "C" {

_TAPI_RESULT_E TAPI_ACCE_SetSpeakerVolume(int volume);
_TAPI_RESULT_E TAPI_ACCE_NotifyAudioAccessoryStatus(unsigned short status);
_TAPI_RESULT_E TAPI_ACCE_SetUsbCableStatus(_TAPI_USB_CABLE_STATUS_E cable, _TAPI_USB_CHARGING_E charging);

/** The tone is on when the byte is 1. */
_TAPI_RESULT_E TAPI_ACCE_GetServiceTone(unsigned char *on);
_TAPI_RESULT_E TAPI_ACCE_SetServiceTone(unsigned char on);

_TAPI_RESULT_E TAPI_ACCE_GetImei(TAPI_IMEI_A imei);
_TAPI_RESULT_E TAPI_ACCE_GetImsi(TAPI_IMSI_A imsi);
_TAPI_RESULT_E TAPI_ACCE_GetBpVersionInfo(_TAPI_ACCE_BP_VERSION_INFO_S *info);
_TAPI_RESULT_E TAPI_ACCE_GetBpVersion(TAPI_BP_VER_A version);
}
