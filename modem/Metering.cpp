// Advice of charge: the meters of the card.
#include "Commands.h"
#include "Environment.h"

#include "Calls.h"
#include "Pins.h"

#include <array>
#include <charconv>
#include <cstdio>

namespace AtModem {

namespace {

using Form = Command::Form;

constexpr unsigned int largestMeter = 0xFFFFFF;

/** The card counts in three bytes. */
std::string meterText(unsigned int units)
{
    std::array<char, 16> text = {};
    std::snprintf(text.data(), text.size(), "\"%06X\"", units);
    return text.data();
}

std::optional<unsigned int> readMeter(const std::string &text)
{
    constexpr std::size_t maxDigits = 6;
    constexpr int hexadecimal = 16;
    unsigned int units = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), units, hexadecimal);
    if (text.empty() || text.size() > maxDigits || error != std::errc() || end != text.data() + text.size())
        return std::nullopt;
    return units;
}

/** The card writes its meters for who knows the PIN2, or has shown before that it does. */
Answer askPin2(Modem &modem, const std::string &code)
{
    Pin &pin2 = modem.phone.sim.pin2;
    if (pin2.triesLeft == 0)
        return Answer::error(Cme::Puk2Required);
    if (code.empty())
        return pin2.verified ? Answer::ok() : Answer::error(Cme::Pin2Required);
    if (!Simulator::isAcceptablePin(code))
        return Answer::error(Cme::IncorrectParameters);
    return modem.judge(pin2, [&code](Pin &pin) { return Simulator::verifyPin(pin, code); });
}

/** Does what needs PIN2 once it is given. */
template <typename Action>
Answer withPin2(Modem &modem, const std::string &code, Action action)
{
    Answer answer = askPin2(modem, code);
    if (answer.result == Answer::Result::Ok)
        action();
    return answer;
}

/** +CAOC: the charge of the last or current call, or whether it is told as it grows. */
Answer adviceOfCharge(Modem &modem, Session &session, const Command &command)
{
    if (command.form == Form::Read)
        return Answer::line(std::string("+CAOC: ") + (session.preferences.charge ? '2' : '1'));
    const auto mode = command.number(0, 0);
    switch (mode.value_or(-1)) {
    case 0:
        return Answer::line("+CAOC: " + meterText(modem.charge.lastCall));
    case 1:
    case 2:
        session.preferences.charge = *mode == 2;
        return Answer::ok();
    default:
        return Answer::error(Cme::IncorrectParameters);
    }
}

Answer accumulated(Modem &modem, Session &, const Command &command)
{
    if (command.form == Form::Read)
        return Answer::line("+CACM: " + meterText(modem.charge.accumulated));
    return withPin2(modem, command.text(0), [&modem] { modem.charge.accumulated = 0; });
}

Answer maximum(Modem &modem, Session &, const Command &command)
{
    if (command.form == Form::Read)
        return Answer::line("+CAMM: " + meterText(modem.charge.maximum));
    const auto units = command.has(0) ? readMeter(command.text(0)) : 0;
    if (!units || *units > largestMeter)
        return Answer::error(Cme::IncorrectParameters);
    return withPin2(modem, command.text(1), [&] { modem.charge.maximum = *units; });
}

Answer creditWarning(Modem &, Session &session, const Command &command)
{
    bool &told = session.preferences.creditWarning;
    if (command.form == Form::Read)
        return Answer::line(std::string("+CCWE: ") + (told ? '1' : '0'));
    const auto value = command.number(0, 0);
    if (!value || *value > 1)
        return Answer::error(Cme::IncorrectParameters);
    told = *value == 1;
    return Answer::ok();
}

bool isPrice(const std::string &text)
{
    constexpr std::size_t maxLength = 20;
    return !text.empty() && text.size() <= maxLength
        && text.find_first_not_of("0123456789.") == std::string::npos && text.find('.') == text.rfind('.')
        && text != ".";
}

Answer price(Modem &modem, Session &, const Command &command)
{
    ServiceState &services = modem.phone.services;
    if (command.form == Form::Read)
        return Answer::line("+CPUC: \"" + services.currency + "\",\"" + services.price + '"');
    constexpr std::size_t currencyLength = 3;
    if (command.form != Form::Set || command.text(0).size() != currencyLength || !isPrice(command.text(1)))
        return Answer::error(Cme::IncorrectParameters);
    return withPin2(modem, command.text(2), [&] {
        services.currency = command.text(0);
        services.price = command.text(1);
    });
}

constexpr std::array<CommandEntry, 5> commands = {{
    {"+CAOC", Needs::Ready, "(0-2)", adviceOfCharge},
    {"+CACM", Needs::Ready, "", accumulated},
    {"+CAMM", Needs::Ready, "", maximum},
    {"+CCWE", Needs::Nothing, "(0,1)", creditWarning},
    {"+CPUC", Needs::Ready, "", price},
}};

constexpr Agenda::Duration unitTime{10000};
constexpr unsigned int unitsBeforeTheEnd = 3; // half a minute, as 3GPP TS 27.007 has it for the warning

/** One unit more, as long as a call lasts. */
void charge(Modem &modem, unsigned char callId, unsigned int serial)
{
    const _TAPI_CALL_SESSION_S *const call = Simulator::findCall(modem.phone.calls, callId);
    const auto details = modem.callDetails.find(callId);
    if (!call || call->state == TAPI_CALL_STATE_DIALLING || details == modem.callDetails.end()
        || details->second.serial != serial)
        return;
    ChargeMeter &meter = modem.charge;
    if (meter.maximum != 0 && meter.accumulated >= meter.maximum) {
        remoteHangsUp(modem, callId); // the credit is used up
        return;
    }
    ++meter.lastCall;
    ++meter.accumulated;
    modem.tell("+CCCM: " + meterText(meter.lastCall), &Preferences::charge);
    if (meter.maximum != 0 && meter.maximum - meter.accumulated == unitsBeforeTheEnd)
        modem.tell("+CCWV", &Preferences::creditWarning);
    modem.agenda().after(unitTime, [&modem, callId, serial] { charge(modem, callId, serial); });
}

} // namespace

void startCharging(Modem &modem, unsigned char callId)
{
    modem.charge.lastCall = 0;
    charge(modem, callId, modem.callDetails[callId].serial);
}

std::span<const CommandEntry> meteringCommands()
{
    return commands;
}

} // namespace AtModem
