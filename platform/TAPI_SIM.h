// Elementary files of the SIM.
#pragma once

#include "TAPI_RESULT.h"

#include <cstddef>

struct _TAPI_SIM_FILE_INFO_S {
    unsigned char reserved1[9];
    unsigned char updateRule;
    unsigned char reserved2[38];
};
static_assert(sizeof(_TAPI_SIM_FILE_INFO_S) == 48);
static_assert(offsetof(_TAPI_SIM_FILE_INFO_S, updateRule) == 9);

extern "C" {

/** The engine passes 0 for the three arguments after the file identifier. */
_TAPI_RESULT_E TAPI_SIM_GetUSIMFileInfo(unsigned char fileId, unsigned int application, unsigned int path,
                                        unsigned int record, _TAPI_SIM_FILE_INFO_S *info);
}
