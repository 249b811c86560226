// The card's call meter, and the PIN2 that its changes need.
#pragma once

#include "Daemon.h"

namespace Ofono::Meter {

/** Has the card look at a PIN2: writes the maximum as it is. */
_TAPI_RESULT_E checkPin2(const char *pin2);

} // namespace Ofono::Meter
