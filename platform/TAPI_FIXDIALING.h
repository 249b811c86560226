// Fixed dialling numbers.
#pragma once

#include "TAPI_SECURITY.h"

extern "C" {

/** The engine passes 1 as the first argument of both reads; the byte is 1 for yes. */
_TAPI_RESULT_E TAPI_FIXDIALING_GetAvailability(unsigned char selector, unsigned char *available);
_TAPI_RESULT_E TAPI_FIXDIALING_GetStatus(unsigned char selector, unsigned char *on);

/** Switches fixed dialling on (1) or off (0); the platform checks the PIN2. */
_TAPI_RESULT_E TAPI_FIXDIALING_SetStatus(unsigned char on, TAPI_PIN_A pin2);
}
