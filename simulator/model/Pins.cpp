// PINs and PUKs.
#include "Pins.h"

namespace Simulator {

Pin *pinOf(SimState &sim, _TAPI_SECURITY_PIN_TYPE_E type)
{
    switch (type) {
    case TAPI_SECURITY_PIN1:
        return &sim.pin1;
    case TAPI_SECURITY_PIN2:
        return &sim.pin2;
    case TAPI_SECURITY_UPIN:
        return &sim.upin;
    }
    return nullptr;
}

bool isAcceptablePin(const std::string &code)
{
    return code.size() >= 4 && code.size() <= 8 && code.find_first_not_of("0123456789") == std::string::npos;
}

_TAPI_RESULT_E verifyPin(Pin &pin, const std::string &code)
{
    if (pin.triesLeft == 0)
        return TAPI_RESULT_PIN_REJECTED_FINAL;
    pin.verified = code == pin.code;
    if (pin.verified) {
        pin.triesLeft = pinTries;
        return TAPI_RESULT_SUCC;
    }
    --pin.triesLeft;
    return pin.triesLeft == 0 ? TAPI_RESULT_PIN_REJECTED_FINAL : TAPI_RESULT_PIN_REJECTED;
}

_TAPI_RESULT_E changePin(Pin &pin, const std::string &oldCode, const std::string &newCode)
{
    if (!isAcceptablePin(newCode))
        return TAPI_RESULT_INVALID_PARAM;
    const _TAPI_RESULT_E result = verifyPin(pin, oldCode);
    if (result == TAPI_RESULT_SUCC)
        pin.code = newCode;
    return result;
}

_TAPI_RESULT_E unblockPin(Pin &pin, const std::string &puk, const std::string &newCode)
{
    if (!isAcceptablePin(newCode))
        return TAPI_RESULT_INVALID_PARAM;
    if (pin.pukTriesLeft == 0)
        return TAPI_RESULT_PIN_REJECTED_FINAL;
    if (puk != pin.puk) {
        --pin.pukTriesLeft;
        return pin.pukTriesLeft == 0 ? TAPI_RESULT_PIN_REJECTED_FINAL : TAPI_RESULT_PIN_REJECTED;
    }
    pin.code = newCode;
    pin.triesLeft = pinTries;
    pin.pukTriesLeft = pukTries;
    pin.verified = true;
    return TAPI_RESULT_SUCC;
}

_TAPI_RESULT_E requestPin1(SimState &sim, const std::string &code, unsigned char on)
{
    const _TAPI_RESULT_E result = verifyPin(sim.pin1, code);
    if (result == TAPI_RESULT_SUCC)
        sim.pin1Request = on;
    return result;
}

} // namespace Simulator
