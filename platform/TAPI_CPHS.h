// Common PCN Handset Specification services of a two-line SIM.
#pragma once

#include "TAPI_RESULT.h"

extern "C" {

/** Forwarding flags of line 1 and line 2; a flag is 1 when that line is forwarded. */
_TAPI_RESULT_E TAPI_CPHS_GetCallDivertStatus(unsigned char *line1, unsigned char *line2);

_TAPI_RESULT_E TAPI_CPHS_GetLineLockStatus(unsigned char *locked);
_TAPI_RESULT_E TAPI_CPHS_SetLineLockStatus(unsigned char lock);
}
