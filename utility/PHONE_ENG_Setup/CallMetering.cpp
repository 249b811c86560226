// Call metering: credit, cost, timers, the meter's maximum, charge type and the price of a unit.
#include "../TextField.h"
#include "PHONE_ENG_Setup.h"
#include "Unit.h"

#include "UTIL_State.h"

namespace {

QString noAmount()
{
    return QStringLiteral("0.00");
}

QString durationText(const _TAPI_CS_CALL_TIME_S &time)
{
    return QStringLiteral("%1:%2:%3")
        .arg(time.hours)
        .arg(static_cast<unsigned int>(time.minutes))
        .arg(static_cast<unsigned int>(time.seconds));
}

} // namespace

QString PHONE_ENG_Setup::getAvailableCredit()
{
    if (!setupCheckSystemStatus())
        return noAmount();
    if (!isTapiDeviceActive()) {
        LOG_MESSAGE(R"(PHONE_ENG_Setup::%s. tapi service is not active.)", __func__);
        return noAmount();
    }
    TAPI_METER_TEXT_A credit = {};
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_CS_GetRemainCredit(credit);
    LOG_TRACE();
    if (result != TAPI_RESULT_SUCC) {
        LOG_MESSAGE(R"(PHONE_ENG_Setup::getAvailableCredit. read credit remain failed.%d)",
                    static_cast<int>(result));
        return noAmount();
    }
    return TextField::read(credit);
}

QString PHONE_ENG_Setup::getTotalCallCost()
{
    if (!setupCheckSystemStatus())
        return noAmount();
    if (!isTapiDeviceActive()) {
        LOG_MESSAGE(R"(PHONE_ENG_Setup::%s. tapi service is not active.)", __func__);
        return noAmount();
    }
    TAPI_METER_TEXT_A cost = {};
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_CS_GetCallMeter(cost);
    LOG_TRACE();
    if (result != TAPI_RESULT_SUCC) {
        LOG_MESSAGE(R"(PHONE_ENG_Setup::getTotalCallCost. TAPI_CS_GetCallMeter failed.%d)",
                    static_cast<int>(result));
        return noAmount();
    }
    return TextField::read(cost);
}

QString PHONE_ENG_Setup::getTotalLifeTimer()
{
    if (!setupCheckSystemStatus())
        return {};
    if (!isTapiDeviceActive()) {
        LOG_MESSAGE(R"(PHONE_ENG_Setup::%s. tapi service is not active.)", __func__);
        return {};
    }
    _TAPI_CS_CALL_TIME_S time = {};
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_CS_GetLeftCallTime(&time);
    LOG_TRACE();
    if (result != TAPI_RESULT_SUCC) {
        LOG_MESSAGE(R"(PHONE_ENG_Setup::getTotalLifeTimer. TAPI_CS_GetLeftCallTime failed.%d)",
                    static_cast<int>(result));
        return {};
    }
    return durationText(time);
}

QString PHONE_ENG_Setup::getTotalCallTime()
{
    if (!setupCheckSystemStatus())
        return {};
    if (!isTapiDeviceActive()) {
        LOG_MESSAGE(R"(PHONE_ENG_Setup::%s. tapi service is not active.)", __func__);
        return {};
    }
    _TAPI_CS_CALL_TIME_S time = {};
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_CS_GetTotalCallTime(&time);
    LOG_TRACE();
    if (result != TAPI_RESULT_SUCC) {
        LOG_MESSAGE(R"(PHONE_ENG_Setup::getTotalCallTime. TAPI_CS_GetTotalCallTime failed.%d)",
                    static_cast<int>(result));
        return {};
    }
    return durationText(time);
}

_TAPI_RESULT_E PHONE_ENG_Setup::getMeterMax(QString &max, bool &flag)
{
    if (!setupCheckSystemStatus())
        return TAPI_RESULT_FAIL;
    TAPI_METER_TEXT_A maximum = {};
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_CS_GetCallMeterMax(maximum);
    LOG_TRACE();
    if (result == TAPI_RESULT_SUCC) {
        max = TextField::read(maximum);
        flag = maximum[0] != '0';
    }
    LOG_MESSAGE(R"(MAX METER=%s.\n)", max.toLatin1().constData());
    return result;
}

_TAPI_RESULT_E PHONE_ENG_Setup::setMeterMax(const QString &max)
{
    if (!setupCheckSystemStatus())
        return TAPI_RESULT_FAIL;
    TAPI_METER_TEXT_A maximum;
    TextField::fill(maximum, max);
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_CS_SetCallMeterMax(maximum);
    LOG_TRACE();
    return result;
}

_TAPI_RESULT_E PHONE_ENG_Setup::disableCMM()
{
    return setMeterMax(QStringLiteral("0"));
}

_TAPI_RESULT_E PHONE_ENG_Setup::getChargeType(unsigned char &type)
{
    const int cached = UTIL_GetCallChargeType();
    if (cached >= 0) {
        type = static_cast<unsigned char>(cached);
        return TAPI_RESULT_SUCC;
    }
    if (!setupCheckSystemStatus())
        return TAPI_RESULT_FAIL;
    unsigned char answer = 0;
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_CS_GetChargeType(&answer);
    LOG_TRACE();
    if (result == TAPI_RESULT_SUCC) {
        type = answer;
        UTIL_SetCallChargeType(answer);
    }
    return result;
}

_TAPI_RESULT_E PHONE_ENG_Setup::setChargeType(unsigned char type)
{
    if (!setupCheckSystemStatus())
        return TAPI_RESULT_FAIL;
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_CS_SetChargeType(type);
    LOG_TRACE();
    if (result == TAPI_RESULT_SUCC)
        UTIL_SetCallChargeType(type);
    return result;
}

_TAPI_RESULT_E PHONE_ENG_Setup::getMeterDisplay(unsigned char &display)
{
    if (!setupCheckSystemStatus())
        return TAPI_RESULT_FAIL;
    unsigned char answer = 0;
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_CS_GetChargeDisplay(&answer);
    LOG_TRACE();
    if (result == TAPI_RESULT_SUCC)
        display = answer;
    return result;
}

_TAPI_RESULT_E PHONE_ENG_Setup::setMeterDisplay(unsigned char display)
{
    if (!setupCheckSystemStatus())
        return TAPI_RESULT_FAIL;
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_CS_SetChargeDisplay(display);
    LOG_TRACE();
    return result;
}

_TAPI_RESULT_E PHONE_ENG_Setup::resetCallMeter()
{
    if (!setupCheckSystemStatus())
        return TAPI_RESULT_FAIL;
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_CS_ResetCallMeter();
    LOG_TRACE();
    return result;
}

_TAPI_RESULT_E PHONE_ENG_Setup::resetCallTime()
{
    if (!setupCheckSystemStatus())
        return TAPI_RESULT_FAIL;
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_CS_ResetCallTime();
    LOG_TRACE();
    return result;
}

_TAPI_RESULT_E PHONE_ENG_Setup::setPriceUnitCurrency(const QString &unit, const QString &currency)
{
    if (!setupCheckSystemStatus())
        return TAPI_RESULT_FAIL;
    _TAPI_CS_PRICE_UNIT_S price = {};
    TextField::fill(price.price, unit);
    TextField::fill(price.currency, currency);
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_CS_SetPriceUnit(price);
    LOG_TRACE();
    return result;
}

_TAPI_RESULT_E PHONE_ENG_Setup::getPriceUnitCurrency(QString &unit, QString &currency)
{
    if (!setupCheckSystemStatus())
        return TAPI_RESULT_FAIL;
    // The platform may write one byte past its record.
    struct {
        _TAPI_CS_PRICE_UNIT_S price;
        char spare;
    } reply = {};
    static_assert(sizeof reply == 72);
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_CS_GetPriceUnit(&reply.price);
    LOG_TRACE();
    if (result == TAPI_RESULT_SUCC) {
        unit = TextField::read(reply.price.price);
        currency = TextField::read(reply.price.currency);
    }
    LOG_MESSAGE(R"(UNIT=%s,currency=%s.\n)", unit.toLatin1().constData(), currency.toLatin1().constData());
    return result;
}
