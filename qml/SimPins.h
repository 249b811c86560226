// The PINs of the SIM. They are arguments only: no property, signal or text carries one.
#pragma once

#include "Subject.h"

namespace Kvq {

class SimPins : public Kvq::Subject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(Kvq::BoolSetting *pinRequested MEMBER m_pinRequested CONSTANT)
    Q_PROPERTY(Kvq::IntSetting *pin2Status MEMBER m_pin2Status CONSTANT)
    Q_PROPERTY(Kvq::IntSetting *upinStatus MEMBER m_upinStatus CONSTANT)

public:
    enum Pin { Pin1, Pin2, Upin };
    Q_ENUM(Pin)

    enum Status {
        Verified = TAPI_SECURITY_PIN_STATUS_VERIFIED,
        NotVerified = TAPI_SECURITY_PIN_STATUS_NOT_VERIFIED,
        Blocked = TAPI_SECURITY_PIN_STATUS_BLOCKED,
        NotUsed = TAPI_SECURITY_PIN_STATUS_NOT_USED,
    };
    Q_ENUM(Status)

    explicit SimPins(QObject *parent = nullptr);

    Q_INVOKABLE Kvq::Request *verify(Kvq::SimPins::Pin which, const QString &pin);
    Q_INVOKABLE Kvq::Request *change(Kvq::SimPins::Pin which, const QString &oldPin, const QString &newPin);
    Q_INVOKABLE Kvq::Request *unblock(Kvq::SimPins::Pin which, const QString &puk, const QString &newPin);
    /** Switches the request for PIN1 at power-on on. */
    Q_INVOKABLE Kvq::Request *enable(const QString &pin);

    /** On the engine's thread. */
    static _TAPI_RESULT_E changeNow(PHONE_ENG_Setup &setup, Pin which, const QString &oldPin,
                                    const QString &newPin);
    static _TAPI_RESULT_E unblockNow(Pin which, const QString &puk, const QString &newPin);

private:
    Request *pinRequest(Job job);

    BoolSetting *const m_pinRequested;
    IntSetting *const m_pin2Status = m_activity->setting<IntSetting>(&PHONE_ENG_Setup::readPin2Status);
    IntSetting *const m_upinStatus;
};

} // namespace Kvq
