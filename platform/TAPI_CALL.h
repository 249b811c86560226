// The call table.
#pragma once

#include "TAPI_RESULT.h"

/** State of a call. The numbers are this boundary's; a port translates them. */
enum _TAPI_CALL_STATE_E : unsigned int {
    TAPI_CALL_STATE_IDLE = 0,
    TAPI_CALL_STATE_DIALLING = 1,
    TAPI_CALL_STATE_RINGING = 2,
    TAPI_CALL_STATE_ACTIVE = 3,
    TAPI_CALL_STATE_HELD = 4,
};

/**
 * The layouts of a session and of the table are the platform's; the engine hands the table on and
 * does not depend on them.
 */
struct _TAPI_CALL_SESSION_S {
    unsigned char callId;
    unsigned char joined;   ///< 1 while the call takes part in a joined (conference) call
    unsigned char incoming; ///< 1 for a call that came in
    unsigned char reserved;
    _TAPI_CALL_STATE_E state;
    char number[44]; ///< Latin-1, NUL-terminated
};

constexpr unsigned int TAPI_CALL_MAX_SESSIONS = 8;

struct _TAPI_CALL_SESSION_TABLE_S {
    unsigned int count;
    _TAPI_CALL_SESSION_S sessions[TAPI_CALL_MAX_SESSIONS];
};

extern "C" {

_TAPI_RESULT_E TAPI_CALL_GetAllCallSessions(_TAPI_CALL_SESSION_TABLE_S *table);
}
