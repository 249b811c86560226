// Advice of charge: the card's meter, its maximum and price, and the time of calls.
//
// Amounts are in the card's currency when it holds a price, with two decimals, and in units when it does not.
#include "CallTimes.h"
#include "Calls.h"
#include "Card.h"
#include "Interfaces.h"
#include "KeptPin2.h"
#include "Meter.h"
#include "PhoneSettings.h"
#include "Text.h"

#include "TAPI_CS.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>

using namespace Ofono;

namespace {

constexpr char accumulated[] = "AccumulatedCallMeter";
constexpr char maximumProperty[] = "AccumulatedCallMeterMaximum";
constexpr char priceProperty[] = "PricePerUnit";
constexpr char currencyProperty[] = "Currency";
constexpr char displayKey[] = "chargeDisplay";

constexpr std::uint32_t mostUnits = 0xFFFFFF; ///< three bytes on the card

_TAPI_RESULT_E readMeter(Properties &meter)
{
    return Daemon::instance().properties(callMeter, Deadline::Network, meter);
}

double priceOf(const Properties &meter)
{
    const double price = meter.real(priceProperty).value_or(0);
    return std::isfinite(price) && price > 0 ? price : 0;
}

void fillAmount(TAPI_METER_TEXT_A field, std::uint32_t units, double price)
{
    if (price > 0)
        std::snprintf(field, sizeof(TAPI_METER_TEXT_A), "%.2f", units * price);
    else
        std::snprintf(field, sizeof(TAPI_METER_TEXT_A), "%u", units);
}

/** A decimal number with nothing around it, by the point whatever the locale. */
std::optional<double> parsedNumber(std::string_view text)
{
    double number = 0;
    const char *const end = text.data() + text.size();
    const auto parsed = std::from_chars(text.data(), end, number, std::chars_format::fixed);
    return parsed.ec == std::errc() && parsed.ptr == end && std::isfinite(number) && number >= 0
        ? std::optional(number)
        : std::nullopt;
}

_TAPI_RESULT_E readAmount(const char *name, TAPI_METER_TEXT_A field)
{
    Properties meter;
    const _TAPI_RESULT_E result = readMeter(meter);
    if (result != TAPI_RESULT_SUCC)
        return result;
    const auto units = meter.number(name);
    if (!units)
        return TAPI_RESULT_FAIL;
    fillAmount(field, *units, priceOf(meter));
    return TAPI_RESULT_SUCC;
}

_TAPI_RESULT_E writeWithPin2(const char *name, const Value &value, const char *pin2)
{
    return Daemon::instance().request(
        {callMeter, "SetProperty", {Value(name), {value, true}, Value(pin2)}, Deadline::Network, {}, true});
}

/** Passes a failure on; after it the PIN2 is not kept for another try. */
_TAPI_RESULT_E failedBeforeUse(_TAPI_RESULT_E result)
{
    KeptPin2::instance().wipe();
    return result;
}

/** A change that needs the PIN2, with the one that was verified last. The next change needs it verified again. */
template <typename Change>
_TAPI_RESULT_E withKeptPin2(Change change)
{
    Properties card;
    Card::Stay stay;
    const _TAPI_RESULT_E read = Card::read(card, stay);
    if (read != TAPI_RESULT_SUCC)
        return failedBeforeUse(read);
    const Card::Before before = Card::before(card, "pin2");
    _TAPI_RESULT_E result = TAPI_RESULT_PIN2_NEEDED;
    KeptPin2::instance().with(stay, [&](const char *pin2) { result = change(pin2); });
    return Card::outcomeOf(result, before);
}

void splitTime(int seconds, _TAPI_CS_CALL_TIME_S &time)
{
    time.hours = static_cast<unsigned int>(seconds / 3600);
    time.minutes = static_cast<unsigned char>(seconds / 60 % 60);
    time.seconds = static_cast<unsigned char>(seconds % 60);
}

bool isCurrency(std::string_view text)
{
    return text.size() == 3 && std::all_of(text.begin(), text.end(), [](char letter) {
               return (letter >= 'A' && letter <= 'Z') || (letter >= 'a' && letter <= 'z');
           });
}

} // namespace

_TAPI_RESULT_E Meter::checkPin2(const char *pin2)
{
    const OneDeadline deadline;
    Properties meter;
    const _TAPI_RESULT_E result = readMeter(meter);
    if (result != TAPI_RESULT_SUCC)
        return result;
    const auto maximum = meter.number(maximumProperty);
    return maximum ? writeWithPin2(maximumProperty, *maximum, pin2) : TAPI_RESULT_FAIL;
}

/** What the maximum leaves. Without a maximum no credit runs out. */
_TAPI_RESULT_E TAPI_CS_GetRemainCredit(TAPI_METER_TEXT_A credit)
{
    Properties meter;
    const _TAPI_RESULT_E result = readMeter(meter);
    if (result != TAPI_RESULT_SUCC)
        return result;
    const auto maximum = meter.number(maximumProperty);
    const auto used = meter.number(accumulated);
    if (!maximum || !used)
        return TAPI_RESULT_FAIL;
    if (*maximum == 0)
        return TAPI_RESULT_NOT_SUPPORTED;
    fillAmount(credit, *maximum > *used ? *maximum - *used : 0, priceOf(meter));
    return TAPI_RESULT_SUCC;
}

_TAPI_RESULT_E TAPI_CS_GetCallMeter(TAPI_METER_TEXT_A meter)
{
    return readAmount(accumulated, meter);
}

_TAPI_RESULT_E TAPI_CS_GetCallMeterMax(TAPI_METER_TEXT_A maximum)
{
    return readAmount(maximumProperty, maximum);
}

/** An amount becomes whole units, never more than it pays for. 0 lifts the maximum, so an amount must not become 0. */
_TAPI_RESULT_E TAPI_CS_SetCallMeterMax(TAPI_METER_TEXT_A maximum)
{
    const OneDeadline deadline;
    const auto amount = parsedNumber(textOf(maximum, sizeof(TAPI_METER_TEXT_A)));
    if (!amount)
        return TAPI_RESULT_INVALID_PARAM;
    Properties meter;
    const _TAPI_RESULT_E result = readMeter(meter);
    if (result != TAPI_RESULT_SUCC)
        return failedBeforeUse(result);
    constexpr double roundingError = 1e-6;
    const double price = priceOf(meter);
    const double units = price > 0 ? std::floor(*amount / price + roundingError) : *amount;
    if (units > mostUnits || units != std::floor(units) || (units == 0 && *amount > 0))
        return TAPI_RESULT_INVALID_PARAM;
    return withKeptPin2([units](const char *pin2) {
        return writeWithPin2(maximumProperty, static_cast<std::uint32_t>(units), pin2);
    });
}

_TAPI_RESULT_E TAPI_CS_ResetCallMeter()
{
    return withKeptPin2([](const char *pin2) {
        return Daemon::instance().request({callMeter, "Reset", {Value(pin2)}, Deadline::Network, {}, true});
    });
}

_TAPI_RESULT_E TAPI_CS_GetLeftCallTime(_TAPI_CS_CALL_TIME_S *)
{
    return TAPI_RESULT_NOT_SUPPORTED;
}

_TAPI_RESULT_E TAPI_CS_GetTotalCallTime(_TAPI_CS_CALL_TIME_S *time)
{
    Calls calls;
    calls.read(Deadline::AtHand); // counts those that last; without it what was counted before stands
    splitTime(CallTimes::total(), *time);
    return TAPI_RESULT_SUCC;
}

_TAPI_RESULT_E TAPI_CS_ResetCallTime()
{
    return CallTimes::reset();
}

_TAPI_RESULT_E TAPI_CS_GetChargeType(unsigned char *)
{
    return TAPI_RESULT_NOT_SUPPORTED;
}

_TAPI_RESULT_E TAPI_CS_SetChargeType(unsigned char)
{
    return TAPI_RESULT_NOT_SUPPORTED;
}

_TAPI_RESULT_E TAPI_CS_GetChargeDisplay(unsigned char *display)
{
    return PhoneSettings::readByte(displayKey, display);
}

_TAPI_RESULT_E TAPI_CS_SetChargeDisplay(unsigned char display)
{
    return PhoneSettings::write(displayKey, display);
}

_TAPI_RESULT_E TAPI_CS_GetPriceUnit(_TAPI_CS_PRICE_UNIT_S *price)
{
    Properties meter;
    const _TAPI_RESULT_E result = readMeter(meter);
    if (result != TAPI_RESULT_SUCC)
        return result;
    std::array<char, 32> text = {};
    const auto written = std::to_chars(text.data(), text.data() + text.size() - 1, priceOf(meter));
    fillLatin1(price->price, {text.data(), static_cast<std::size_t>(written.ptr - text.data())});
    fillLatin1(price->currency, meter.text(currencyProperty).value_or(""));
    return TAPI_RESULT_SUCC;
}

/** Price and currency are two writes. When the second fails the first is taken back. */
_TAPI_RESULT_E TAPI_CS_SetPriceUnit(_TAPI_CS_PRICE_UNIT_S price)
{
    const auto amount = parsedNumber(textOf(price.price, sizeof price.price));
    const std::string currency(textOf(price.currency, sizeof price.currency));
    if (!amount || !isCurrency(currency))
        return TAPI_RESULT_INVALID_PARAM;
    Properties meter;
    const _TAPI_RESULT_E result = readMeter(meter);
    if (result != TAPI_RESULT_SUCC)
        return failedBeforeUse(result);
    return withKeptPin2([&](const char *pin2) {
        bool priced = false;
        const auto write = [&] {
            const OneDeadline deadline;
            const _TAPI_RESULT_E first = writeWithPin2(priceProperty, *amount, pin2);
            priced = first == TAPI_RESULT_SUCC;
            return priced ? writeWithPin2(currencyProperty, currency.c_str(), pin2) : first;
        };
        const _TAPI_RESULT_E written = write();
        if (priced && written != TAPI_RESULT_SUCC)
            writeWithPin2(priceProperty, priceOf(meter), pin2); // with a time of its own
        return written;
    });
}
