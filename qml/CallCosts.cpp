// Meters and their limits.
#include "CallCosts.h"

namespace Kvq {

namespace {

Answer readMaximum(Engine &engine)
{
    QString maximum;
    bool limited = false;
    const _TAPI_RESULT_E result = engine.setup.getMeterMax(maximum, limited);
    return Operations::answerOf(result, maximum);
}

/** The platform composes the text, so what it took is read. */
Answer writeMaximum(Engine &engine, const QVariant &value)
{
    const _TAPI_RESULT_E result = engine.setup.setMeterMax(value.toString());
    if (result != TAPI_RESULT_SUCC)
        return Operations::answerOf(result);
    const Answer taken = readMaximum(engine);
    return {TAPI_RESULT_SUCC, taken.isSuccess() ? taken.value : QVariant()};
}

Answer readPrice(Engine &engine)
{
    Price price;
    const _TAPI_RESULT_E result = engine.setup.getPriceUnitCurrency(price.unitPrice, price.currency);
    return {result, result == TAPI_RESULT_SUCC ? QVariant::fromValue(price) : QVariant()};
}

Answer writePrice(Engine &engine, const QVariant &value)
{
    const auto price = value.value<Price>();
    return Operations::answerOf(engine.setup.setPriceUnitCurrency(price.unitPrice, price.currency));
}

} // namespace

PriceSetting::PriceSetting(QObject *item)
    : Setting(QVariant::fromValue(Price()), readPrice, writePrice, item)
{
}

void PriceSetting::setPrice(const QString &unitPrice, const QString &currency)
{
    write(QVariant::fromValue(Price{unitPrice, currency}));
}

CallCosts::CallCosts(QObject *parent)
    : Subject(parent)
    , m_maximum(m_activity->custom<TextSetting>(readMaximum, writeMaximum))
    , m_price(m_activity->add(new PriceSetting(this)))
{
    connect(m_maximum, &Setting::valueChanged, this, &CallCosts::limitedChanged);
    // What is left and what was spent is told in what was set.
    for (Setting *const cause : std::initializer_list<Setting *>{m_maximum, m_price, m_chargeType}) {
        for (Setting *const effect : {m_credit, m_totalCost, m_remainingTime, m_maximum})
            connect(cause, &Setting::confirmed, effect, &Setting::refresh);
    }
}

bool CallCosts::isLimited() const
{
    const QString maximum = m_maximum->value();
    bool isNumber = false;
    const bool isZero = maximum.toDouble(&isNumber) == 0 && isNumber; // the engine takes 0.50 for none, too
    return !maximum.isEmpty() && !isZero;
}

void CallCosts::removeMaximum()
{
    m_maximum->setValue(QStringLiteral("0"));
}

Request *CallCosts::resetCosts()
{
    return reset(&Setup::resetCallMeter);
}

Request *CallCosts::resetTime()
{
    return reset(&Setup::resetCallTime);
}

Request *CallCosts::reset(_TAPI_RESULT_E (Setup::*operation)())
{
    Request *const request = m_activity->request(
        [operation](Engine &engine) { return Operations::answerOf((engine.setup.*operation)()); });
    connect(request, &Request::answered, this, [this](const Answer &answer) {
        if (!answer.isSuccess())
            return;
        for (Setting *const setting : {m_credit, m_totalCost, m_remainingTime, m_totalTime})
            setting->refresh();
    });
    return request;
}

} // namespace Kvq
