// How long this phone's calls have lasted, added up from the calls that its programs have seen.
#pragma once

#include "Calls.h"

namespace Ofono::CallTimes {

/** To be taken before the daemon is asked for its calls. */
std::int64_t beginLook();
/** Counts the calls there are, and adds those that have ended to the total. */
void see(const std::vector<Call> &calls, std::int64_t begun);

/** Seconds of all calls that were seen, those included that last. */
int total();
_TAPI_RESULT_E reset();

} // namespace Ofono::CallTimes
