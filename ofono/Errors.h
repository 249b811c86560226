// What the errors of the daemon and the bus mean.
#pragma once

#include "TAPI_RESULT.h"

#include <string_view>

namespace Ofono {

_TAPI_RESULT_E resultOf(std::string_view error);

/** The daemon is occupied with another request. */
bool isInProgress(std::string_view error);

/** There is no such object, interface or method now. */
bool isNothingThere(std::string_view error);

} // namespace Ofono
