// The platform's feature database.
#pragma once

#include "TAPI_RESULT.h"

typedef unsigned char TAPI_DB_FEATURE_SETTING_T;

extern "C" {

/** Non-zero when the feature is available. */
int TAPI_FTRDB_GetAvailability(unsigned short featureId);
_TAPI_RESULT_E TAPI_FTRDB_GetState(unsigned short featureId, TAPI_DB_FEATURE_SETTING_T *setting);
}
