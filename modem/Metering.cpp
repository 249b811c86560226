// Advice of charge: the meters of the card.
#include "Commands.h"

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
std::optional<Cme> pin2Obstacle(Modem &modem, const std::string &code)
{
    Pin &pin2 = modem.phone.sim.pin2;
    if (pin2.triesLeft == 0)
        return Cme::Puk2Required;
    if (code.empty())
        return pin2.verified ? std::nullopt : std::optional(Cme::Pin2Required);
    if (!Simulator::isAcceptablePin(code))
        return Cme::IncorrectParameters;
    switch (Simulator::verifyPin(pin2, code)) {
    case TAPI_RESULT_SUCC:
        return std::nullopt;
    case TAPI_RESULT_PIN_REJECTED_FINAL:
        return Cme::Puk2Required;
    default:
        return Cme::IncorrectPassword;
    }
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
    if (const auto reason = pin2Obstacle(modem, command.text(0)))
        return Answer::error(*reason);
    modem.charge.accumulated = 0;
    return Answer::ok();
}

Answer maximum(Modem &modem, Session &, const Command &command)
{
    if (command.form == Form::Read)
        return Answer::line("+CAMM: " + meterText(modem.charge.maximum));
    const auto units = command.has(0) ? readMeter(command.text(0)) : 0;
    if (!units || *units > largestMeter)
        return Answer::error(Cme::IncorrectParameters);
    if (const auto reason = pin2Obstacle(modem, command.text(1)))
        return Answer::error(*reason);
    modem.charge.maximum = *units;
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
    if (const auto reason = pin2Obstacle(modem, command.text(2)))
        return Answer::error(*reason);
    services.currency = command.text(0);
    services.price = command.text(1);
    return Answer::ok();
}

constexpr std::array<CommandEntry, 4> commands = {{
    {"+CAOC", Needs::Ready, "(0-2)", adviceOfCharge},
    {"+CACM", Needs::Ready, "", accumulated},
    {"+CAMM", Needs::Ready, "", maximum},
    {"+CPUC", Needs::Ready, "", price},
}};

} // namespace

std::span<const CommandEntry> meteringCommands()
{
    return commands;
}

} // namespace AtModem
