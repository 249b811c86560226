// PINs and the USIM applications of the card.
#include "Pins.h"
#include "PlatformCall.h"

#include "TAPI_SECURITY.h"

using Simulator::Field;
using Simulator::Out;
using Simulator::pinOf;
using Simulator::platformCall;
using Simulator::verifyPin;

namespace {

constexpr std::size_t pinSize = sizeof(TAPI_PIN_A);
constexpr auto usimFailure = static_cast<_TAPI_RESULT_E>(1);

std::string pinText(const unsigned char *pin)
{
    return Simulator::textOf(pin, pinSize);
}

} // namespace

_TAPI_RESULT_E TAPI_SECURITY_VerifyPinPassword(_TAPI_SECURITY_PIN_TYPE_E type, TAPI_PIN_A pin)
{
    return platformCall(
        "TAPI_SECURITY_VerifyPinPassword", {},
        [=](PhoneState &phone) {
            Pin *const kept = pinOf(phone.sim, type);
            return kept ? verifyPin(*kept, pinText(pin)) : TAPI_RESULT_INVALID_PARAM;
        },
        type, Field(pin, pinSize));
}

_TAPI_RESULT_E TAPI_SECURITY_ChangePinPassword(_TAPI_SECURITY_PIN_TYPE_E type, TAPI_PIN_A oldPin,
                                               TAPI_PIN_A newPin)
{
    return platformCall(
        "TAPI_SECURITY_ChangePinPassword", {},
        [=](PhoneState &phone) {
            Pin *const kept = pinOf(phone.sim, type);
            return kept ? Simulator::changePin(*kept, pinText(oldPin), pinText(newPin))
                        : TAPI_RESULT_INVALID_PARAM;
        },
        type, Field(oldPin, pinSize), Field(newPin, pinSize));
}

_TAPI_RESULT_E TAPI_SECURITY_UnblockPinPassword(_TAPI_SECURITY_PIN_TYPE_E type, TAPI_PIN_A puk,
                                                TAPI_PIN_A newPin)
{
    return platformCall(
        "TAPI_SECURITY_UnblockPinPassword", {},
        [=](PhoneState &phone) {
            Pin *const kept = pinOf(phone.sim, type);
            return kept ? Simulator::unblockPin(*kept, pinText(puk), pinText(newPin))
                        : TAPI_RESULT_INVALID_PARAM;
        },
        type, Field(puk, pinSize), Field(newPin, pinSize));
}

_TAPI_RESULT_E TAPI_SECURITY_VerifyPin2Password(TAPI_PIN_A pin2)
{
    return platformCall(
        "TAPI_SECURITY_VerifyPin2Password", {},
        [=](PhoneState &phone) { return verifyPin(phone.sim.pin2, pinText(pin2)); }, Field(pin2, pinSize));
}

_TAPI_RESULT_E TAPI_SECURITY_SetPinStatus(_TAPI_SECURITY_PIN_TYPE_E type, TAPI_PIN_A pin, unsigned char on)
{
    return platformCall(
        "TAPI_SECURITY_SetPinStatus", {},
        [=](PhoneState &phone) {
            if (type != TAPI_SECURITY_PIN1)
                return TAPI_RESULT_INVALID_PARAM;
            return Simulator::requestPin1(phone.sim, pinText(pin), on);
        },
        type, Field(pin, pinSize), on);
}

_TAPI_RESULT_E TAPI_SECURITY_GetPin1Status(unsigned char selector, unsigned char *status)
{
    return platformCall(
        "TAPI_SECURITY_GetPin1Status", {Out(status)},
        [=](PhoneState &phone) {
            *status = phone.sim.pin1Request;
            return TAPI_RESULT_SUCC;
        },
        selector);
}

_TAPI_RESULT_E TAPI_SECURITY_GetAnyPinStatus(_TAPI_SECURITY_PIN_TYPE_E type,
                                             _TAPI_SECURITY_PIN_STATUS_E *status)
{
    return platformCall(
        "TAPI_SECURITY_GetAnyPinStatus", {Out(status)},
        [=](PhoneState &phone) {
            const Pin *const kept = pinOf(phone.sim, type);
            if (!kept)
                return TAPI_RESULT_INVALID_PARAM;
            if (kept->triesLeft == 0)
                *status = TAPI_SECURITY_PIN_STATUS_BLOCKED;
            else
                *status = kept->verified ? TAPI_SECURITY_PIN_STATUS_VERIFIED
                                         : TAPI_SECURITY_PIN_STATUS_NOT_VERIFIED;
            return TAPI_RESULT_SUCC;
        },
        type);
}

_TAPI_RESULT_E TAPI_SECURITY_GetUPINUsageQualifier(unsigned char *qualifier)
{
    return platformCall("TAPI_SECURITY_GetUPINUsageQualifier", {Out(qualifier)}, [=](PhoneState &phone) {
        *qualifier = phone.sim.upinQualifier;
        return TAPI_RESULT_SUCC;
    });
}

_TAPI_RESULT_E TAPI_SECURITY_GetNumOfUsim(unsigned char *count)
{
    return platformCall("TAPI_SECURITY_GetNumOfUsim", {Out(count)}, [=](PhoneState &phone) {
        *count = static_cast<unsigned char>(std::min<std::size_t>(phone.sim.usimLabels.size(), 255));
        return TAPI_RESULT_SUCC;
    });
}

_TAPI_RESULT_E TAPI_SECURITY_GetUsimList(unsigned char *activeIndex, unsigned char count,
                                         _TAPI_SECURITY_ADF_INFO_S *applications)
{
    return platformCall(
        "TAPI_SECURITY_GetUsimList", {Out(activeIndex), Out(applications, count * sizeof *applications)},
        [=](PhoneState &phone) {
            if (count > phone.sim.usimLabels.size())
                return usimFailure;
            for (unsigned char number = 0; number < count; ++number) {
                const QString &label = phone.sim.usimLabels[number];
                _TAPI_SECURITY_ADF_INFO_S &application = applications[number];
                application = {};
                application.adfIndex = static_cast<unsigned char>(number + 1);
                unsigned char length = 0;
                for (const QChar character : label.left(sizeof application.label / 2)) {
                    application.label[length++] = static_cast<unsigned char>(character.unicode() & 0xFF);
                    application.label[length++] = static_cast<unsigned char>(character.unicode() >> 8);
                }
                application.labelLength = length;
            }
            *activeIndex = phone.sim.activeUsim;
            return TAPI_RESULT_SUCC;
        },
        count);
}
