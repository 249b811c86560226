// Supplementary services and call settings of the network, the SIM and the modem.
#pragma once

#include "TAPI_RESULT.h"

#include <cstddef>

/** Forwarding reasons, numbered as in 3GPP TS 27.007 (+CCFC). The numbers are this boundary's; a port translates them. */
enum _TAPI_CS_DIVERT_WHEN_E : unsigned int {
    TAPI_CS_DIVERT_UNCONDITIONAL = 0,
    TAPI_CS_DIVERT_BUSY = 1,
    TAPI_CS_DIVERT_NO_REPLY = 2,
    TAPI_CS_DIVERT_NOT_REACHABLE = 3,
    TAPI_CS_DIVERT_ALL = 4,
    TAPI_CS_DIVERT_ALL_CONDITIONAL = 5,
};

/**
 * Caller-id restriction. The engine produces 0, 1 and 2 and passes every other value through. The numbers are this
 * boundary's; a port translates them.
 */
enum _TAPI_CALL_RESTRICT_ID_E : unsigned int {
    TAPI_CALL_RESTRICT_ID_NETWORK = 0,
    TAPI_CALL_RESTRICT_ID_INVOKE = 1,
    TAPI_CALL_RESTRICT_ID_SUPPRESS = 2,
};

/** State of one forwarding; the engine reads the status byte and the number. */
struct _TAPI_CS_DIVERT_STATUS_S {
    unsigned char status; ///< 1 while the forwarding is active
    unsigned char reserved;
    char number[70]; ///< forwarded-to number, Latin-1, NUL-terminated
};
static_assert(sizeof(_TAPI_CS_DIVERT_STATUS_S) == 72);
static_assert(offsetof(_TAPI_CS_DIVERT_STATUS_S, number) == 2);

/** Currency and price of one charging unit, both Latin-1 and NUL-terminated. */
struct _TAPI_CS_PRICE_UNIT_S {
    char currency[41];
    char price[30];
};
static_assert(sizeof(_TAPI_CS_PRICE_UNIT_S) == 71);
static_assert(offsetof(_TAPI_CS_PRICE_UNIT_S, price) == 41);

struct _TAPI_CS_CALL_TIME_S {
    unsigned int hours;
    unsigned char minutes;
    unsigned char seconds;
};
static_assert(offsetof(_TAPI_CS_CALL_TIME_S, minutes) == 4);
static_assert(offsetof(_TAPI_CS_CALL_TIME_S, seconds) == 5);

typedef char TAPI_DIVERT_NUMBER_A[43]; // at most 42 characters
typedef char TAPI_METER_TEXT_A[101];   // at most 100 characters

extern "C" {

/**
 * Forwarding. Service classes are the bits of 3GPP TS 27.007 (+CCFC): 1 voice, 2 data, 4 fax.
 * The no-reply timer is in seconds: 5, 10, 15, 20, 25 or 30, or 255 for none.
 */
_TAPI_RESULT_E TAPI_CS_GetDivertStatus(unsigned char serviceClass, _TAPI_CS_DIVERT_WHEN_E when,
                                       _TAPI_CS_DIVERT_STATUS_S *status);
_TAPI_RESULT_E TAPI_CS_DivertCallToNumber(unsigned char enable, unsigned char serviceClass,
                                          _TAPI_CS_DIVERT_WHEN_E when, TAPI_DIVERT_NUMBER_A number,
                                          unsigned char noReplyTimer);
_TAPI_RESULT_E TAPI_CS_CancelAllVoiceDivert();
_TAPI_RESULT_E TAPI_CS_CancelAllDivert();

/** Advice of charge (3GPP TS 22.024, 22.086). Amounts are texts composed by the platform. */
_TAPI_RESULT_E TAPI_CS_GetRemainCredit(TAPI_METER_TEXT_A credit);
_TAPI_RESULT_E TAPI_CS_GetCallMeter(TAPI_METER_TEXT_A meter);
_TAPI_RESULT_E TAPI_CS_GetCallMeterMax(TAPI_METER_TEXT_A maximum);
_TAPI_RESULT_E TAPI_CS_SetCallMeterMax(TAPI_METER_TEXT_A maximum);
_TAPI_RESULT_E TAPI_CS_ResetCallMeter();
_TAPI_RESULT_E TAPI_CS_GetLeftCallTime(_TAPI_CS_CALL_TIME_S *time);
_TAPI_RESULT_E TAPI_CS_GetTotalCallTime(_TAPI_CS_CALL_TIME_S *time);
_TAPI_RESULT_E TAPI_CS_ResetCallTime();
_TAPI_RESULT_E TAPI_CS_GetChargeType(unsigned char *type);
_TAPI_RESULT_E TAPI_CS_SetChargeType(unsigned char type);
_TAPI_RESULT_E TAPI_CS_GetChargeDisplay(unsigned char *display);
_TAPI_RESULT_E TAPI_CS_SetChargeDisplay(unsigned char display);
_TAPI_RESULT_E TAPI_CS_GetPriceUnit(_TAPI_CS_PRICE_UNIT_S *price);
_TAPI_RESULT_E TAPI_CS_SetPriceUnit(_TAPI_CS_PRICE_UNIT_S price);

/** Restrictions and options. Flags are single bytes: 1 is on, every other value is off. */
_TAPI_RESULT_E TAPI_CS_GetDtmfToneType(unsigned char *type);
_TAPI_RESULT_E TAPI_CS_SetDtmfToneType(unsigned char type);
_TAPI_RESULT_E TAPI_CS_SetRestrictId(_TAPI_CALL_RESTRICT_ID_E id);
_TAPI_RESULT_E TAPI_CS_GetRestrictNextCallID(unsigned char *id);
_TAPI_RESULT_E TAPI_CS_SetRestrictNextCallID(unsigned char id);
_TAPI_RESULT_E TAPI_CS_GetVoiceWaitingStatus(unsigned char *on);
_TAPI_RESULT_E TAPI_CS_SetVoiceWaitingStatus(unsigned char on);
_TAPI_RESULT_E TAPI_CS_GetAutoRedialStatus(unsigned char *on);
_TAPI_RESULT_E TAPI_CS_SetAutoRedialStatus(unsigned char on);
_TAPI_RESULT_E TAPI_CS_GetPendingCallDropToneStatus(unsigned char *on);
_TAPI_RESULT_E TAPI_CS_SetPendingCallDropToneStatus(unsigned char on);

/** Lines. An index is the line number minus 1. */
_TAPI_RESULT_E TAPI_CS_GetLine(signed char *index);
_TAPI_RESULT_E TAPI_CS_SelectLine(signed char index);
}
