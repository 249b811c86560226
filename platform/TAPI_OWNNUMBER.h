// The subscriber's own numbers on the SIM (EF MSISDN, 3GPP TS 31.102).
#pragma once

#include "TAPI_RESULT.h"

#include <cstddef>

typedef char TAPI_PHONE_NUMBER_A[42];             // at most 41 characters
typedef unsigned char TAPI_PHONEBOOK_NAME_A[102]; // UCS-2, low byte first, at most 50 characters

struct [[gnu::packed]] _TAPI_OWNNUMBER_ENTRY_S {
    unsigned short index; ///< 1 for the first record of the card
    TAPI_PHONE_NUMBER_A number;
    TAPI_PHONEBOOK_NAME_A name;
    unsigned char reserved;
};
static_assert(sizeof(_TAPI_OWNNUMBER_ENTRY_S) == 147);
static_assert(offsetof(_TAPI_OWNNUMBER_ENTRY_S, number) == 2);
static_assert(offsetof(_TAPI_OWNNUMBER_ENTRY_S, name) == 44);
static_assert(offsetof(_TAPI_OWNNUMBER_ENTRY_S, reserved) == 146);

struct _TAPI_OWNNUMBER_RANGE_S {
    unsigned char maxNumberLength;
    unsigned char maxNameLength;
};

struct _TAPI_OWNNUMBER_CAPACITY_S {
    unsigned char reserved[6];
    unsigned short total; ///< own-number records that the card holds
};
static_assert(sizeof(_TAPI_OWNNUMBER_CAPACITY_S) == 8);
static_assert(offsetof(_TAPI_OWNNUMBER_CAPACITY_S, total) == 6);

extern "C" {

/** Fills @p count records, starting with the 1-based record @p firstIndex. */
_TAPI_RESULT_E TAPI_OWNNUMBER_GetEntry(unsigned short firstIndex, unsigned short count,
                                       _TAPI_OWNNUMBER_ENTRY_S *entries);
_TAPI_RESULT_E TAPI_OWNNUMBER_SaveEntry(short index, TAPI_PHONE_NUMBER_A number, TAPI_PHONEBOOK_NAME_A name);
_TAPI_RESULT_E TAPI_OWNNUMBER_DeleteEntry(short index);
_TAPI_RESULT_E TAPI_OWNNUMBER_GetCapacity(_TAPI_OWNNUMBER_CAPACITY_S *capacity);
_TAPI_RESULT_E TAPI_OWNNUMBER_GetRange(_TAPI_OWNNUMBER_RANGE_S *range);
_TAPI_RESULT_E TAPI_OWNNUMBER_GetExtAvailable(unsigned short *available);
_TAPI_RESULT_E TAPI_OWNNUMBER_GetExtRange(unsigned short *extRange);
}
