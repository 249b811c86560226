// Result codes of the telephony client library.
#pragma once

/**
 * Result of a telephony request: 0 for success, any other value names a failure.
 *
 * A platform defines many more values than stand here; these are the ones that the engine produces
 * or tests itself. Every other value passes through the engine unchanged. The numbers are this boundary's; a port
 * translates them.
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

    // What a platform of this boundary answers for reasons that lie outside a request. The engine only passes them on.
    TAPI_RESULT_NOT_SUPPORTED = 0x9000, ///< the platform, its modem or the network has no such service
    TAPI_RESULT_TIMED_OUT = 0x9001,     ///< no answer in time; the request may still take effect
    TAPI_RESULT_BUSY = 0x9002,          ///< another request was in progress for the whole deadline
    TAPI_RESULT_SERVICE_DOWN = 0x9003,  ///< the telephony service does not run, or died meanwhile
    TAPI_RESULT_MODEM_OFFLINE = 0x9004, ///< no modem, or it is off or offline
    TAPI_RESULT_LINK_LOST = 0x9005,     ///< the link to the telephony service is gone until opened again
    TAPI_RESULT_ACCESS_DENIED = 0x9006, ///< the system's policy keeps this program from the telephony service
    TAPI_RESULT_PIN2_NEEDED = 0x9007,   ///< the request needs the PIN2, which must be verified first
};

using TAPI_RESULT_E = _TAPI_RESULT_E;
