// Call forwarding, as the network keeps it.
#include "Interfaces.h"
#include "Text.h"

#include "TAPI_CS.h"

using namespace Ofono;

_TAPI_RESULT_E TAPI_CS_GetDivertStatus(unsigned char, _TAPI_CS_DIVERT_WHEN_E, _TAPI_CS_DIVERT_STATUS_S *)
{
    return TAPI_RESULT_NOT_SUPPORTED;
}

_TAPI_RESULT_E TAPI_CS_DivertCallToNumber(unsigned char, unsigned char, _TAPI_CS_DIVERT_WHEN_E,
                                          TAPI_DIVERT_NUMBER_A, unsigned char)
{
    return TAPI_RESULT_NOT_SUPPORTED;
}

_TAPI_RESULT_E TAPI_CS_CancelAllVoiceDivert()
{
    return TAPI_RESULT_NOT_SUPPORTED;
}

_TAPI_RESULT_E TAPI_CS_CancelAllDivert()
{
    return TAPI_RESULT_NOT_SUPPORTED;
}
