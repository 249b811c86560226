// Options of calls: lines, and whether the caller's number is shown.
#pragma once

#include "PhoneState.h"

namespace Simulator {

/** Selects a line by its index. A locked line cannot be left. */
_TAPI_RESULT_E selectLine(ServiceState &services, signed char index);

/** @name The caller-id restriction, which the feature database keeps
 * @{ */
_TAPI_RESULT_E setCallerIdRestriction(ServiceState &services, _TAPI_CALL_RESTRICT_ID_E id);
_TAPI_CALL_RESTRICT_ID_E callerIdRestriction(const ServiceState &services);
/** @} */

} // namespace Simulator
