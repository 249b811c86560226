// Service requests (USSD), which the network may leave open for as long as it likes.
#pragma once

#include "TAPI_RESULT.h"

#include <string_view>

namespace Ofono::ServiceRequests {

/** Begins one, or answers the network that asks something back. */
_TAPI_RESULT_E begin(const char *method, const char *text);

/** Whether one of this program is under way, the subscriber's answers included. */
bool areUnderWay();

/** Whether the daemon refuses an interface's requests while a service request is under way. */
bool occupy(std::string_view interface);

} // namespace Ofono::ServiceRequests
