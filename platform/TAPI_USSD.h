// Unstructured supplementary service data.
#pragma once

#include "TAPI_RESULT.h"

/** The layout is the platform's; the engine hands the record on and does not depend on it. */
struct _TAPI_USSD_REQ_APP_MSG_S {
    unsigned char dataCodingScheme;
    unsigned char length;
    unsigned char text[182];
};

extern "C" {

_TAPI_RESULT_E TAPI_USSD_MakeRequest(_TAPI_USSD_REQ_APP_MSG_S *request);
}
