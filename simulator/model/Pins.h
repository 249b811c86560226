// How the card judges PINs and PUKs.
#pragma once

#include "PhoneState.h"

namespace Simulator {

constexpr int pinTries = 3;
constexpr int pukTries = 10;

/** Null when the card knows no such PIN. */
Pin *pinOf(SimState &sim, _TAPI_SECURITY_PIN_TYPE_E type);

/** 4 to 8 digits (3GPP TS 31.101). */
bool isAcceptablePin(const std::string &code);

/** A wrong PIN costs a try; the last one blocks the PIN. */
_TAPI_RESULT_E verifyPin(Pin &pin, const std::string &code);

/** Checks the old PIN, whether or not it is requested. */
_TAPI_RESULT_E changePin(Pin &pin, const std::string &oldCode, const std::string &newCode);

/** A wrong PUK costs one of its own tries; the last one blocks the PIN for ever. */
_TAPI_RESULT_E unblockPin(Pin &pin, const std::string &puk, const std::string &newCode);

/** Switches the request for PIN1 after checking it. */
_TAPI_RESULT_E requestPin1(SimState &sim, const std::string &code, unsigned char on);

} // namespace Simulator
