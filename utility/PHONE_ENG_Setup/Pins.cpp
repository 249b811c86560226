// PIN1, PIN2 and UPIN: verify, change, unblock, and how they stand.
#include "Broadcasts.h"
#include "PHONE_ENG_Setup.h"
#include "PinBuffer.h"
#include "Unit.h"

#include "UTIL_State.h"

namespace {

constexpr unsigned char pin1StatusSelector = 1;
constexpr unsigned char pin1RequestOn = 1;

constexpr int sharedPinRejected = 5;
constexpr int sharedPinRejectedFinal = 6;
constexpr int sharedPinAccepted = 7;

/** PIN1 and UPIN outcomes are published alike: the shared status first, then the broadcast. */
void publishOutcome(_TAPI_RESULT_E result)
{
    switch (result) {
    case TAPI_RESULT_SUCC:
        UTIL_SetPinStatus(sharedPinAccepted);
        Broadcasts::sendPinOutcome(true);
        break;
    case TAPI_RESULT_PIN_REJECTED:
        UTIL_SetPinStatus(sharedPinRejected);
        Broadcasts::sendPinOutcome(false);
        break;
    case TAPI_RESULT_PIN_REJECTED_FINAL:
        UTIL_SetPinStatus(sharedPinRejectedFinal);
        Broadcasts::sendPinOutcome(false);
        break;
    default:
        break;
    }
}

bool isUpinUsed(unsigned char qualifier)
{
    return qualifier != 0 && qualifier != 2;
}

} // namespace

_TAPI_RESULT_E PHONE_ENG_Setup::setupVerifySimPin(const QString &pin)
{
    PinBuffer pinBuffer(pin);
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_SECURITY_VerifyPinPassword(TAPI_SECURITY_PIN1, pinBuffer.data());
    LOG_TRACE();
    processPIN1ResultError(result);
    return result;
}

_TAPI_RESULT_E PHONE_ENG_Setup::changeSimPin(const QString &oldPin, const QString &newPin)
{
    PinBuffer oldBuffer(oldPin);
    PinBuffer newBuffer(newPin);
    LOG_SECRET(R"(PHONE_ENG_Setup::changeSimPin.old pin is %s,new pin is %s)", oldBuffer.text(),
               newBuffer.text());
    LOG_TRACE();
    const _TAPI_RESULT_E result =
        TAPI_SECURITY_ChangePinPassword(TAPI_SECURITY_PIN1, oldBuffer.data(), newBuffer.data());
    LOG_TRACE();
    LOG_MESSAGE(R"(TAPI_SECURITY_ChangePin1Password result %d)", static_cast<int>(result));
    processPIN1ResultError(result);
    return result;
}

_TAPI_RESULT_E PHONE_ENG_Setup::unblockingPin(const QString &puk, const QString &newPin)
{
    PinBuffer pukBuffer(puk);
    PinBuffer newBuffer(newPin);
    LOG_SECRET(R"(PHONE_ENG_Setup::unblockingPin.puk is %s,new pin is %s)", pukBuffer.text(),
               newBuffer.text());
    LOG_TRACE();
    const _TAPI_RESULT_E result =
        TAPI_SECURITY_UnblockPinPassword(TAPI_SECURITY_PIN1, pukBuffer.data(), newBuffer.data());
    LOG_TRACE();
    LOG_MESSAGE(R"(TAPI_SECURITY_UnblockPin1Password result %d)", static_cast<int>(result));
    processPIN1ResultError(result);
    return result;
}

_TAPI_RESULT_E PHONE_ENG_Setup::setupUnblockSimPin1(const QString &puk, const QString &newPin)
{
    PinBuffer pukBuffer(puk);
    PinBuffer newBuffer(newPin);
    LOG_TRACE();
    const _TAPI_RESULT_E result =
        TAPI_SECURITY_UnblockPinPassword(TAPI_SECURITY_PIN1, pukBuffer.data(), newBuffer.data());
    LOG_TRACE();
    processPIN1ResultError(result);
    return result;
}

_TAPI_RESULT_E PHONE_ENG_Setup::enablePin1(const QString &pin)
{
    PinBuffer pinBuffer(pin);
    return TAPI_SECURITY_SetPinStatus(TAPI_SECURITY_PIN1, pinBuffer.data(), pin1RequestOn);
}

bool PHONE_ENG_Setup::simPinIsOpen()
{
    unsigned char status = 0;
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_SECURITY_GetPin1Status(pin1StatusSelector, &status);
    LOG_TRACE();
    LOG_MESSAGE(R"(TAPI_SECURITY_GetPin1Status result %d)", static_cast<int>(result));
    if (result != TAPI_RESULT_SUCC) {
        LOG_MESSAGE(R"(TAPI_SECURITY_GetPin1Status failed.%d)", static_cast<int>(result));
        return false;
    }
    return status == pin1RequestOn;
}

void PHONE_ENG_Setup::processPIN1ResultError(_TAPI_RESULT_E result)
{
    publishOutcome(result);
}

_TAPI_RESULT_E PHONE_ENG_Setup::verifyPin2Code(const QString &pin2)
{
    PinBuffer pinBuffer(pin2);
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_SECURITY_VerifyPin2Password(pinBuffer.data());
    LOG_TRACE();
    return result;
}

_TAPI_RESULT_E PHONE_ENG_Setup::changeSimPin2(const QString &oldPin2, const QString &newPin2)
{
    PinBuffer oldBuffer(oldPin2);
    PinBuffer newBuffer(newPin2);
    LOG_SECRET(R"(PHONE_ENG_Setup::changeSimPin2.old pin is %s,new pin is %s)", oldBuffer.text(),
               newBuffer.text());
    LOG_TRACE();
    const _TAPI_RESULT_E result =
        TAPI_SECURITY_ChangePinPassword(TAPI_SECURITY_PIN2, oldBuffer.data(), newBuffer.data());
    LOG_TRACE();
    LOG_MESSAGE(R"(TAPI_SECURITY_ChangePin2Password result %d)", static_cast<int>(result));
    return result;
}

_TAPI_RESULT_E PHONE_ENG_Setup::unblockingPin2(const QString &puk2, const QString &newPin2)
{
    PinBuffer pukBuffer(puk2);
    PinBuffer newBuffer(newPin2);
    LOG_SECRET(R"(PHONE_ENG_Setup::unblockingPin2.puk is %s,new pin is %s)", pukBuffer.text(),
               newBuffer.text());
    LOG_TRACE();
    const _TAPI_RESULT_E result =
        TAPI_SECURITY_UnblockPinPassword(TAPI_SECURITY_PIN2, pukBuffer.data(), newBuffer.data());
    LOG_TRACE();
    LOG_MESSAGE(R"(TAPI_SECURITY_UnblockPin2Password result %d)", static_cast<int>(result));
    return result;
}

_TAPI_RESULT_E PHONE_ENG_Setup::readPin2Status(_TAPI_SECURITY_PIN_STATUS_E &status)
{
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_SECURITY_GetAnyPinStatus(TAPI_SECURITY_PIN2, &status);
    LOG_TRACE();
    LOG_MESSAGE(R"(PIN2 status = %d)", static_cast<int>(status));
    return result;
}

_TAPI_RESULT_E PHONE_ENG_Setup::setupVerifyUpin(const QString &upin)
{
    PinBuffer pinBuffer(upin);
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_SECURITY_VerifyPinPassword(TAPI_SECURITY_UPIN, pinBuffer.data());
    LOG_TRACE();
    processUPINResultError(result);
    return result;
}

_TAPI_RESULT_E PHONE_ENG_Setup::setupChangeUpin(const QString &oldUpin, const QString &newUpin)
{
    PinBuffer oldBuffer(oldUpin);
    PinBuffer newBuffer(newUpin);
    LOG_SECRET(R"(PHONE_ENG_Setup::changeSimPin.old UPIN is %s,new pin is %s)", oldBuffer.text(),
               newBuffer.text());
    LOG_TRACE();
    const _TAPI_RESULT_E result =
        TAPI_SECURITY_ChangePinPassword(TAPI_SECURITY_UPIN, oldBuffer.data(), newBuffer.data());
    LOG_TRACE();
    LOG_MESSAGE(R"(TAPI_SECURITY_ChangePin1Password result %d)", static_cast<int>(result));
    processUPINResultError(result);
    return result;
}

_TAPI_RESULT_E PHONE_ENG_Setup::setupUnblockUpin(const QString &puk, const QString &newUpin)
{
    PinBuffer pukBuffer(puk);
    PinBuffer newBuffer(newUpin);
    LOG_TRACE();
    const _TAPI_RESULT_E result =
        TAPI_SECURITY_UnblockPinPassword(TAPI_SECURITY_UPIN, pukBuffer.data(), newBuffer.data());
    LOG_TRACE();
    processUPINResultError(result);
    return result;
}

_TAPI_RESULT_E PHONE_ENG_Setup::getUpinStatus(_TAPI_SECURITY_PIN_STATUS_E *status)
{
    if (!status)
        return TAPI_RESULT_INVALID_PARAM;
    unsigned char qualifier = 0;
    const _TAPI_RESULT_E result = TAPI_SECURITY_GetUPINUsageQualifier(&qualifier);
    if (!isUpinUsed(qualifier)) {
        *status = TAPI_SECURITY_PIN_STATUS_NOT_USED;
        return result;
    }
    return TAPI_SECURITY_GetAnyPinStatus(TAPI_SECURITY_UPIN, status);
}

void PHONE_ENG_Setup::processUPINResultError(_TAPI_RESULT_E result)
{
    publishOutcome(result);
}
