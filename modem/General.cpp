// Commands about the connection and the modem as a whole.
#include "Commands.h"
#include "Environment.h"

namespace AtModem {

namespace {

using Form = Command::Form;

Answer accept(Modem &, Session &, const Command &)
{
    return Answer::ok();
}

/** Sets a flag of the connection; without a number it is switched off, as V.250 says. */
Answer setFlag(bool &flag, const Command &command)
{
    const auto value = command.number(0, 0);
    if (!value || *value > 1)
        return Answer::syntaxError();
    flag = *value == 1;
    return Answer::ok();
}

Answer echo(Modem &, Session &session, const Command &command)
{
    return setFlag(session.preferences.echo, command);
}

Answer verbose(Modem &, Session &session, const Command &command)
{
    return setFlag(session.preferences.verbose, command);
}

Answer defaults(Modem &, Session &session, const Command &)
{
    const bool echoes = session.preferences.echo;
    session.preferences = {};
    session.preferences.echo = echoes;
    return Answer::ok();
}

Answer errorFormat(Modem &, Session &session, const Command &command)
{
    if (command.form == Form::Read)
        return Answer::line("+CMEE: " + std::to_string(session.preferences.errorFormat));
    const auto format = command.number(0, 0);
    if (command.form != Form::Set || !format || *format > 2)
        return Answer::error(Cme::IncorrectParameters);
    session.preferences.errorFormat = *format;
    return Answer::ok();
}

Answer characterSet(Modem &, Session &session, const Command &command)
{
    if (command.form == Form::Read)
        return Answer::line("+CSCS: \"" + session.preferences.characterSet + '"');
    if (command.form != Form::Set || (command.text(0) != "GSM" && command.text(0) != "IRA"))
        return Answer::error(Cme::IncorrectParameters);
    session.preferences.characterSet = command.text(0);
    return Answer::ok();
}

/** The power key: off, on, or the radio off. */
Answer functionality(Modem &modem, Session &, const Command &command)
{
    if (command.form == Form::Read)
        return Answer::line("+CFUN: " + std::to_string(static_cast<int>(modem.power)));
    const auto level = command.number(0);
    if (command.form != Form::Set || !level || (*level != 0 && *level != 1 && *level != 4))
        return Answer::error(Cme::IncorrectParameters);
    const Power before = modem.power;
    modem.power = static_cast<Power>(*level);
    if (before == Power::Off && modem.power != Power::Off)
        powerCard(modem);
    if (modem.power != Power::On) {
        modem.phone.calls.table = {};
        modem.dialogue = {};
    }
    return Answer::ok();
}

Answer simState(Modem &modem, Session &, const Command &)
{
    return Answer::line(std::string("+SIMSTATE: ") + (modem.isCardPowered() ? "1" : "0"));
}

Answer capabilities(Modem &, Session &, const Command &)
{
    return Answer::line("+GCAP: +CGSM");
}

Answer battery(Modem &, Session &, const Command &)
{
    return Answer::line("+CBC: 0,80");
}

constexpr std::array<CommandEntry, 12> commands = {{
    {"E", Needs::Nothing, "", echo},
    {"V", Needs::Nothing, "", verbose},
    {"Z", Needs::Nothing, "", defaults},
    {"&F", Needs::Nothing, "", defaults},
    {"&C", Needs::Nothing, "", accept},
    {"&D", Needs::Nothing, "", accept},
    {"+CMEE", Needs::Nothing, "(0-2)", errorFormat},
    {"+CSCS", Needs::Nothing, R"(("GSM","IRA"))", characterSet},
    {"+CFUN", Needs::Nothing, "(0,1,4),(0)", functionality},
    {"+SIMSTATE", Needs::Nothing, "", simState},
    {"+GCAP", Needs::Nothing, "", capabilities},
    {"+CBC", Needs::Nothing, "(0-3),(0-100)", battery},
}};

} // namespace

std::span<const CommandEntry> generalCommands()
{
    return commands;
}

} // namespace AtModem
