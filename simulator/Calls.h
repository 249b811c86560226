// The call table: what happens to the calls in it. Shared by the voice requests and by what a phone's
// environment does.
#pragma once

#include "PhoneState.h"

namespace Simulator {

/** Null when there is no such call. */
_TAPI_CALL_SESSION_S *findCall(CallState &calls, unsigned char callId);

/** Adds a call. Null when the table is full. */
_TAPI_CALL_SESSION_S *addCall(CallState &calls, const char *number, _TAPI_CALL_STATE_E state, bool incoming);

template <typename Condition>
void removeCalls(CallState &calls, Condition condition)
{
    unsigned int kept = 0;
    for (unsigned int call = 0; call < calls.table.count; ++call) {
        if (!condition(calls.table.sessions[call]))
            calls.table.sessions[kept++] = calls.table.sessions[call];
    }
    calls.table.count = kept;
}

/** Puts every active call but one on hold. */
void holdOthers(CallState &calls, unsigned char callId);

} // namespace Simulator
