// PINs and the USIM applications of the card.
#pragma once

#include "TAPI_RESULT.h"

#include <cstddef>

/** Which PIN. The numbers are this boundary's; a port translates them. */
enum _TAPI_SECURITY_PIN_TYPE_E : unsigned int {
    TAPI_SECURITY_PIN1 = 0,
    TAPI_SECURITY_PIN2 = 1,
    TAPI_SECURITY_UPIN = 2, ///< universal PIN of a USIM
};

/** State of a PIN. The engine writes 3 itself. The numbers are this boundary's; a port translates them. */
enum _TAPI_SECURITY_PIN_STATUS_E : unsigned int {
    TAPI_SECURITY_PIN_STATUS_VERIFIED = 0,
    TAPI_SECURITY_PIN_STATUS_NOT_VERIFIED = 1,
    TAPI_SECURITY_PIN_STATUS_BLOCKED = 2,
    TAPI_SECURITY_PIN_STATUS_NOT_USED = 3,
};

/** A PIN or PUK: at most 20 characters, zero-filled to its end. */
typedef unsigned char TAPI_PIN_A[21];

/** One USIM application (application dedicated file) of the card. */
struct [[gnu::packed]] _TAPI_SECURITY_ADF_INFO_S {
    unsigned char adfIndex;
    unsigned char reserved;
    unsigned char labelLength; ///< bytes of the label in use, two a character
    unsigned char label[66];   ///< UCS-2, low byte first
};
static_assert(sizeof(_TAPI_SECURITY_ADF_INFO_S) == 69);
static_assert(offsetof(_TAPI_SECURITY_ADF_INFO_S, label) == 3);

extern "C" {

_TAPI_RESULT_E TAPI_SECURITY_VerifyPinPassword(_TAPI_SECURITY_PIN_TYPE_E type, TAPI_PIN_A pin);
_TAPI_RESULT_E TAPI_SECURITY_ChangePinPassword(_TAPI_SECURITY_PIN_TYPE_E type, TAPI_PIN_A oldPin,
                                               TAPI_PIN_A newPin);
_TAPI_RESULT_E TAPI_SECURITY_UnblockPinPassword(_TAPI_SECURITY_PIN_TYPE_E type, TAPI_PIN_A puk,
                                                TAPI_PIN_A newPin);
_TAPI_RESULT_E TAPI_SECURITY_VerifyPin2Password(TAPI_PIN_A pin2);

/** Switches the request for a PIN on (1) or off (0) after checking the PIN. */
_TAPI_RESULT_E TAPI_SECURITY_SetPinStatus(_TAPI_SECURITY_PIN_TYPE_E type, TAPI_PIN_A pin, unsigned char on);

/** The status byte is 1 while the PIN1 request is switched on. The engine passes 1 first. */
_TAPI_RESULT_E TAPI_SECURITY_GetPin1Status(unsigned char selector, unsigned char *status);
_TAPI_RESULT_E TAPI_SECURITY_GetAnyPinStatus(_TAPI_SECURITY_PIN_TYPE_E type,
                                             _TAPI_SECURITY_PIN_STATUS_E *status);

/** The qualifier is 0 or 2 when the card does not use the UPIN. */
_TAPI_RESULT_E TAPI_SECURITY_GetUPINUsageQualifier(unsigned char *qualifier);

/** Both USIM requests answer 1 for a failure; the engine lets every other result pass. */
_TAPI_RESULT_E TAPI_SECURITY_GetNumOfUsim(unsigned char *count);
/** Fills @p count records and the 1-based position of the active application. */
_TAPI_RESULT_E TAPI_SECURITY_GetUsimList(unsigned char *activeIndex, unsigned char count,
                                         _TAPI_SECURITY_ADF_INFO_S *applications);
}
