// How the card judges PINs and PUKs.
#pragma once

#include "PhoneState.h"

namespace Simulator {

/** A wrong PIN costs a try; the last one blocks the PIN. */
_TAPI_RESULT_E verifyPin(Pin &pin, const std::string &code);

} // namespace Simulator
