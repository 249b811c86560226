// Result codes of the telephony client library.
#pragma once

/**
 * Result of a telephony request: 0 for success, any other value names a failure.
 *
 * A platform defines many more values than stand here; these are the ones that the engine produces
 * or tests itself. Every other value passes through the engine unchanged.
 */
enum _TAPI_RESULT_E : unsigned int {
    TAPI_RESULT_SUCC = 0,
    TAPI_RESULT_INVALID_PARAM = 4,
    TAPI_RESULT_CALL_REQ_FAIL = 300,
    TAPI_RESULT_CALL_NO_NUMBER = 301,
    TAPI_RESULT_CALL_INVALID_ID = 303,
    TAPI_RESULT_FAIL = 0x8000,
    TAPI_RESULT_SIM_UNAVAILABLE = 0x800A,
    TAPI_RESULT_PIN_REJECTED = 0x800C,
    TAPI_RESULT_PIN_REJECTED_FINAL = 0x8030,
};

using TAPI_RESULT_E = _TAPI_RESULT_E;
