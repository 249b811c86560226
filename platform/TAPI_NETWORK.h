// Network selection.
#pragma once

#include "TAPI_RESULT.h"

#include <cstddef>

/** Who chooses the network. Handed on as received. The numbers are this boundary's; a port translates them. */
enum _TAPI_NETWORK_SEARCH_MODE_E : unsigned int {
    TAPI_NETWORK_SEARCH_AUTOMATIC = 0,
    TAPI_NETWORK_SEARCH_MANUAL = 1,
};

/** How often a lost network is looked for. The numbers are this boundary's; a port translates them. */
enum _TAPI_NETWORK_SEARCH_SPEED_E : unsigned int {
    TAPI_NETWORK_SEARCH_SLOW = 0,
    TAPI_NETWORK_SEARCH_MEDIUM = 1,
    TAPI_NETWORK_SEARCH_FAST = 2,
    TAPI_NETWORK_SEARCH_CONTINUOUS = 3,
};

/** Handed on as received. The numbers are this boundary's; a port translates them. */
enum _TAPI_NETWORK_BAND_E : unsigned int {
    TAPI_NETWORK_BAND_AUTOMATIC = 0,
    TAPI_NETWORK_BAND_GSM_900_1800 = 1,
    TAPI_NETWORK_BAND_GSM_850_1900 = 2,
    TAPI_NETWORK_BAND_WCDMA = 3,
};

typedef char TAPI_NETWORK_ID_A[16];      // at most 15 characters
typedef char TAPI_NETWORK_PLMN_ID_A[12]; // at most 11 characters

/** A name field: UCS-2 units in the processor's byte order; a full field carries no terminator. */
constexpr std::size_t TAPI_NETWORK_NAME_UNITS = 25;
typedef unsigned short TAPI_NETWORK_NAME_A[TAPI_NETWORK_NAME_UNITS];

/** One network that a search found. The layout is the platform's; the engine does not depend on it. */
struct _TAPI_NETWORK_PLMN_INFO_S {
    char networkId[12];
    TAPI_NETWORK_NAME_A name;
    unsigned short status; ///< 0 unknown, 1 available, 2 registered, 3 forbidden
};

/** One operator name. The layout is the platform's; the engine does not depend on it. */
struct _TAPI_PLMN_INFO_STRUCT_S {
    char networkId[12]; ///< in: the network asked for
    TAPI_NETWORK_NAME_A name;
};

/** One preferred network; the engine reads the priority only. */
struct _TAPI_NETWORK_PREFERRED_ENTRY_S {
    int priority;
    char networkId[16];
    TAPI_NETWORK_NAME_A name;
    unsigned short reserved;
};
static_assert(sizeof(_TAPI_NETWORK_PREFERRED_ENTRY_S) == 72);

constexpr int TAPI_NETWORK_MAX_PREFERRED = 100;

struct _TAPI_NETWORK_PREFERRED_S {
    int count;
    _TAPI_NETWORK_PREFERRED_ENTRY_S entries[TAPI_NETWORK_MAX_PREFERRED];
};
static_assert(sizeof(_TAPI_NETWORK_PREFERRED_S) == 4 + 100 * 72);
static_assert(offsetof(_TAPI_NETWORK_PREFERRED_S, entries) == 4);

/** The names of one network. */
struct _TAPI_NETWORK_PLMN_NAME_S {
    unsigned char reserved1[12];
    TAPI_NETWORK_NAME_A longName;
    TAPI_NETWORK_NAME_A shortName;
    unsigned char reserved2[34];
};
static_assert(sizeof(_TAPI_NETWORK_PLMN_NAME_S) == 146);
static_assert(offsetof(_TAPI_NETWORK_PLMN_NAME_S, longName) == 12);
static_assert(offsetof(_TAPI_NETWORK_PLMN_NAME_S, shortName) == 62);

/** The service provider name of the SIM (EF SPN, 3GPP TS 31.102). */
struct _TAPI_NETWORK_SERVICE_PROVIDER_S {
    unsigned char displayCondition;
    unsigned char reserved;
    TAPI_NETWORK_NAME_A name;
};
static_assert(sizeof(_TAPI_NETWORK_SERVICE_PROVIDER_S) == 52);
static_assert(offsetof(_TAPI_NETWORK_SERVICE_PROVIDER_S, name) == 2);

extern "C" {

_TAPI_RESULT_E TAPI_NETWORK_GetSearchMode(_TAPI_NETWORK_SEARCH_MODE_E *mode);
_TAPI_RESULT_E TAPI_NETWORK_SetSearchMode(_TAPI_NETWORK_SEARCH_MODE_E mode);
_TAPI_RESULT_E TAPI_NETWORK_GetSearchFrequency(_TAPI_NETWORK_SEARCH_SPEED_E *speed);
_TAPI_RESULT_E TAPI_NETWORK_SetSearchFrequency(_TAPI_NETWORK_SEARCH_SPEED_E speed);
_TAPI_RESULT_E TAPI_NETWORK_GetBand(_TAPI_NETWORK_BAND_E *band);
_TAPI_RESULT_E TAPI_NETWORK_SetBand(_TAPI_NETWORK_BAND_E band);

_TAPI_RESULT_E TAPI_NETWORK_FindNewNetworks();
_TAPI_RESULT_E TAPI_NETWORK_CancelFindNewNetworks();
_TAPI_RESULT_E TAPI_NETWORK_RescanNetwork();
_TAPI_RESULT_E TAPI_NETWORK_GetAvailableNetwork();
_TAPI_RESULT_E TAPI_NETWORK_CancelGetAvailableNetworks();
_TAPI_RESULT_E TAPI_NETWORK_GetPlmnCount(unsigned short *count);
/** Fills as many records as TAPI_NETWORK_GetPlmnCount reported. */
_TAPI_RESULT_E TAPI_NETWORK_GetPlmnList(_TAPI_NETWORK_PLMN_INFO_S *networks);
_TAPI_RESULT_E TAPI_NETWORK_RegisterOperator(TAPI_NETWORK_ID_A networkId);

/** The language flag of the three name-returning requests is 1 or 0. */
_TAPI_RESULT_E TAPI_NETWORK_GetChosenPlmnName(TAPI_NETWORK_PLMN_ID_A networkId, unsigned char languageFlag,
                                              _TAPI_NETWORK_PLMN_NAME_S *names);
_TAPI_RESULT_E TAPI_NETWORK_GetOperatorNameList(_TAPI_PLMN_INFO_STRUCT_S *names, unsigned short count,
                                                unsigned char languageFlag);
_TAPI_RESULT_E TAPI_NETWORK_GetPreferredOperator(_TAPI_NETWORK_PREFERRED_S *list, unsigned char languageFlag);

_TAPI_RESULT_E TAPI_NETWORK_SetPreferredOperator(unsigned int priority, TAPI_NETWORK_ID_A networkId);
_TAPI_RESULT_E TAPI_NETWORK_DeleteSelectedOperator(unsigned int priority);
_TAPI_RESULT_E TAPI_NETWORK_GetTotalPreferredOperatorNumber(unsigned int *capacity);
_TAPI_RESULT_E TAPI_NETWORK_GetServiceProviderName(_TAPI_NETWORK_SERVICE_PROVIDER_S *provider);
}
