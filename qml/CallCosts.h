// What calls cost: credit, meters, limits and the price of a unit.
#pragma once

#include "Subject.h"

namespace Kvq {

/** The price of one charging unit. */
struct Price {
    QString unitPrice;
    QString currency;

    bool operator==(const Price &) const = default;
};

/** A setting of two texts that are written together. */
class PriceSetting : public Kvq::Setting {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Settings are properties of other types")
    Q_PROPERTY(QString unitPrice READ unitPrice NOTIFY valueChanged)
    Q_PROPERTY(QString currency READ currency NOTIFY valueChanged)

public:
    explicit PriceSetting(QObject *item);

    QString unitPrice() const { return shown().value<Price>().unitPrice; }
    QString currency() const { return shown().value<Price>().currency; }

    Q_INVOKABLE void setPrice(const QString &unitPrice, const QString &currency);
};

class CallCosts : public Kvq::Subject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(Kvq::TextSetting *credit MEMBER m_credit CONSTANT)
    Q_PROPERTY(Kvq::TextSetting *totalCost MEMBER m_totalCost CONSTANT)
    Q_PROPERTY(Kvq::TextSetting *remainingTime MEMBER m_remainingTime CONSTANT)
    Q_PROPERTY(Kvq::TextSetting *totalTime MEMBER m_totalTime CONSTANT)
    Q_PROPERTY(Kvq::TextSetting *maximum MEMBER m_maximum CONSTANT)
    Q_PROPERTY(bool limited READ isLimited NOTIFY limitedChanged)
    Q_PROPERTY(Kvq::IntSetting *chargeType MEMBER m_chargeType CONSTANT)
    Q_PROPERTY(Kvq::IntSetting *display MEMBER m_display CONSTANT)
    Q_PROPERTY(Kvq::PriceSetting *price MEMBER m_price CONSTANT)

public:
    enum ChargeType { Units, Currency };
    Q_ENUM(ChargeType)

    enum Display { NotShown, Shown };
    Q_ENUM(Display)

    explicit CallCosts(QObject *parent = nullptr);

    bool isLimited() const;
    /** Writes maximum. */
    Q_INVOKABLE void removeMaximum();
    Q_INVOKABLE Kvq::Request *resetCosts();
    Q_INVOKABLE Kvq::Request *resetTime();

Q_SIGNALS:
    void limitedChanged();

private:
    using Setup = PHONE_ENG_Setup;

    Request *reset(_TAPI_RESULT_E (Setup::*operation)());

    TextSetting *const m_credit = m_activity->setting<TextSetting>(&Setup::getAvailableCredit);
    TextSetting *const m_totalCost = m_activity->setting<TextSetting>(&Setup::getTotalCallCost);
    TextSetting *const m_remainingTime = m_activity->setting<TextSetting>(&Setup::getTotalLifeTimer);
    TextSetting *const m_totalTime = m_activity->setting<TextSetting>(&Setup::getTotalCallTime);
    TextSetting *const m_maximum;
    IntSetting *const m_chargeType =
        m_activity->setting<IntSetting>(&Setup::getChargeType, &Setup::setChargeType);
    IntSetting *const m_display =
        m_activity->setting<IntSetting>(&Setup::getMeterDisplay, &Setup::setMeterDisplay);
    PriceSetting *const m_price;
};

} // namespace Kvq

Q_DECLARE_METATYPE(Kvq::Price)
