// Text telephone mode. The platform numbers the four modes differently from the engine's callers.
#pragma once

#include "TAPI_RESULT.h"

extern "C" {

_TAPI_RESULT_E TAPI_TTY_GetTtyMode(unsigned char *mode);
_TAPI_RESULT_E TAPI_TTY_SetTtyMode(unsigned char mode);
}
