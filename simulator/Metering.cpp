// Advice of charge.
#include "PlatformCall.h"

#include "TAPI_CS.h"

using Simulator::copyText;
using Simulator::Field;
using Simulator::Out;
using Simulator::platformCall;
using Simulator::textOf;

namespace {

constexpr std::size_t meterSize = sizeof(TAPI_METER_TEXT_A);

} // namespace

_TAPI_RESULT_E TAPI_CS_GetRemainCredit(TAPI_METER_TEXT_A credit)
{
    return platformCall("TAPI_CS_GetRemainCredit", {Out(credit, meterSize)}, [credit](PhoneState &phone) {
        copyText(credit, meterSize, phone.services.remainingCredit);
        return TAPI_RESULT_SUCC;
    });
}

_TAPI_RESULT_E TAPI_CS_GetCallMeter(TAPI_METER_TEXT_A meter)
{
    return platformCall("TAPI_CS_GetCallMeter", {Out(meter, meterSize)}, [meter](PhoneState &phone) {
        copyText(meter, meterSize, phone.services.callMeter);
        return TAPI_RESULT_SUCC;
    });
}

_TAPI_RESULT_E TAPI_CS_GetCallMeterMax(TAPI_METER_TEXT_A maximum)
{
    return platformCall("TAPI_CS_GetCallMeterMax", {Out(maximum, meterSize)}, [maximum](PhoneState &phone) {
        copyText(maximum, meterSize, phone.services.callMeterMax);
        return TAPI_RESULT_SUCC;
    });
}

_TAPI_RESULT_E TAPI_CS_SetCallMeterMax(TAPI_METER_TEXT_A maximum)
{
    return platformCall(
        "TAPI_CS_SetCallMeterMax", {},
        [maximum](PhoneState &phone) {
            phone.services.callMeterMax = textOf(maximum, meterSize);
            return TAPI_RESULT_SUCC;
        },
        Field(maximum, meterSize));
}

_TAPI_RESULT_E TAPI_CS_ResetCallMeter()
{
    return platformCall("TAPI_CS_ResetCallMeter", {}, [](PhoneState &phone) {
        phone.services.callMeter = "0.00";
        return TAPI_RESULT_SUCC;
    });
}

_TAPI_RESULT_E TAPI_CS_GetLeftCallTime(_TAPI_CS_CALL_TIME_S *time)
{
    return platformCall("TAPI_CS_GetLeftCallTime", {Out(time)}, [time](PhoneState &phone) {
        *time = phone.services.leftCallTime;
        return TAPI_RESULT_SUCC;
    });
}

_TAPI_RESULT_E TAPI_CS_GetTotalCallTime(_TAPI_CS_CALL_TIME_S *time)
{
    return platformCall("TAPI_CS_GetTotalCallTime", {Out(time)}, [time](PhoneState &phone) {
        *time = phone.services.totalCallTime;
        return TAPI_RESULT_SUCC;
    });
}

_TAPI_RESULT_E TAPI_CS_ResetCallTime()
{
    return platformCall("TAPI_CS_ResetCallTime", {}, [](PhoneState &phone) {
        phone.services.totalCallTime = {};
        return TAPI_RESULT_SUCC;
    });
}

_TAPI_RESULT_E TAPI_CS_GetChargeType(unsigned char *type)
{
    return platformCall("TAPI_CS_GetChargeType", {Out(type)}, [type](PhoneState &phone) {
        *type = phone.services.chargeType;
        return TAPI_RESULT_SUCC;
    });
}

_TAPI_RESULT_E TAPI_CS_SetChargeType(unsigned char type)
{
    return platformCall(
        "TAPI_CS_SetChargeType", {},
        [type](PhoneState &phone) {
            phone.services.chargeType = type;
            return TAPI_RESULT_SUCC;
        },
        type);
}

_TAPI_RESULT_E TAPI_CS_GetChargeDisplay(unsigned char *display)
{
    return platformCall("TAPI_CS_GetChargeDisplay", {Out(display)}, [display](PhoneState &phone) {
        *display = phone.services.chargeDisplay;
        return TAPI_RESULT_SUCC;
    });
}

_TAPI_RESULT_E TAPI_CS_SetChargeDisplay(unsigned char display)
{
    return platformCall(
        "TAPI_CS_SetChargeDisplay", {},
        [display](PhoneState &phone) {
            phone.services.chargeDisplay = display;
            return TAPI_RESULT_SUCC;
        },
        display);
}

_TAPI_RESULT_E TAPI_CS_GetPriceUnit(_TAPI_CS_PRICE_UNIT_S *price)
{
    return platformCall("TAPI_CS_GetPriceUnit", {Out(price)}, [price](PhoneState &phone) {
        copyText(price->currency, sizeof price->currency, phone.services.currency);
        copyText(price->price, sizeof price->price, phone.services.price);
        return TAPI_RESULT_SUCC;
    });
}

_TAPI_RESULT_E TAPI_CS_SetPriceUnit(_TAPI_CS_PRICE_UNIT_S price)
{
    return platformCall(
        "TAPI_CS_SetPriceUnit", {},
        [&price](PhoneState &phone) {
            phone.services.currency = textOf(price.currency, sizeof price.currency);
            phone.services.price = textOf(price.price, sizeof price.price);
            return TAPI_RESULT_SUCC;
        },
        Field(price.currency, sizeof price.currency), Field(price.price, sizeof price.price));
}
