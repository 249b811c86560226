// The requests that a PIN needs, by which PIN it is.
#include "SimPins.h"

#include "Secret.h"

namespace Kvq {

namespace {

_TAPI_RESULT_E verifyPin(PHONE_ENG_Setup &setup, SimPins::Pin which, const QString &pin)
{
    switch (which) {
    case SimPins::Pin1:
        return PHONE_ENG_Setup::setupVerifySimPin(pin);
    case SimPins::Pin2:
        return setup.verifyPin2Code(pin);
    case SimPins::Upin:
        return PHONE_ENG_Setup::setupVerifyUpin(pin);
    }
    return TAPI_RESULT_INVALID_PARAM;
}

/** A failure reads as "not requested". So that is believed only while the SIM tells of its PIN2. */
Answer isPinRequested(Engine &engine)
{
    if (engine.setup.simPinIsOpen())
        return {TAPI_RESULT_SUCC, true};
    _TAPI_SECURITY_PIN_STATUS_E status = TAPI_SECURITY_PIN_STATUS_NOT_USED;
    const _TAPI_RESULT_E result = engine.setup.readPin2Status(status);
    if (result == TAPI_RESULT_NOT_SUPPORTED)
        return {TAPI_RESULT_SUCC, false};
    return Operations::answerOf(result, false);
}

} // namespace

_TAPI_RESULT_E SimPins::changeNow(PHONE_ENG_Setup &setup, Pin which, const QString &oldPin,
                                  const QString &newPin)
{
    switch (which) {
    case Pin1:
        return setup.changeSimPin(oldPin, newPin);
    case Pin2:
        return setup.changeSimPin2(oldPin, newPin);
    case Upin:
        return setup.setupChangeUpin(oldPin, newPin);
    }
    return TAPI_RESULT_INVALID_PARAM;
}

_TAPI_RESULT_E SimPins::unblockNow(Pin which, const QString &puk, const QString &newPin)
{
    switch (which) {
    case Pin1: // of the two operations for PIN1, the one that does not log
        return PHONE_ENG_Setup::setupUnblockSimPin1(puk, newPin);
    case Pin2:
        return PHONE_ENG_Setup::unblockingPin2(puk, newPin);
    case Upin:
        return PHONE_ENG_Setup::setupUnblockUpin(puk, newPin);
    }
    return TAPI_RESULT_INVALID_PARAM;
}

SimPins::SimPins(QObject *parent)
    : Subject(parent)
    , m_pinRequested(m_activity->custom<BoolSetting>(isPinRequested))
    , m_upinStatus(m_activity->custom<IntSetting>([](Engine &engine) {
        _TAPI_SECURITY_PIN_STATUS_E status = TAPI_SECURITY_PIN_STATUS_NOT_USED;
        const _TAPI_RESULT_E result = engine.setup.getUpinStatus(&status);
        return Operations::answerOf(result, status);
    }))
{
}

Request *SimPins::verify(Pin which, const QString &pin)
{
    return pinRequest([which, secret = Secret(pin)](Engine &engine) {
        return secret.with(
            [&](const QString &text) { return Operations::answerOf(verifyPin(engine.setup, which, text)); });
    });
}

Request *SimPins::change(Pin which, const QString &oldPin, const QString &newPin)
{
    return pinRequest([which, oldSecret = Secret(oldPin), newSecret = Secret(newPin)](Engine &engine) {
        return oldSecret.with([&](const QString &oldText) {
            return newSecret.with([&](const QString &newText) {
                return Operations::answerOf(changeNow(engine.setup, which, oldText, newText));
            });
        });
    });
}

Request *SimPins::unblock(Pin which, const QString &puk, const QString &newPin)
{
    return pinRequest([which, pukSecret = Secret(puk), newSecret = Secret(newPin)](Engine &) {
        return pukSecret.with([&](const QString &pukText) {
            return newSecret.with([&](const QString &newText) {
                return Operations::answerOf(unblockNow(which, pukText, newText));
            });
        });
    });
}

Request *SimPins::enable(const QString &pin)
{
    return pinRequest([secret = Secret(pin)](Engine &) {
        return secret.with(
            [](const QString &text) { return Operations::answerOf(PHONE_ENG_Setup::enablePin1(text)); });
    });
}

/** A wrong PIN changes what the SIM tells of its PINs as much as a right one. */
Request *SimPins::pinRequest(Job job)
{
    Request *const request = m_activity->request(std::move(job));
    connect(request, &Request::answered, this, [this] { m_activity->refreshSettings(); });
    return request;
}

} // namespace Kvq
