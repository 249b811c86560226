// The device: its identity, volumes and the text telephone.
#include "Commands.h"

namespace AtModem {

namespace {

using Form = Command::Form;

Answer manufacturer(Modem &, Session &, const Command &)
{
    return Answer::line("Call setup engine");
}

Answer model(Modem &, Session &, const Command &)
{
    return Answer::line("Simulated phone");
}

Answer revision(Modem &modem, Session &, const Command &)
{
    return Answer::line(modem.phone.device.bpVersion);
}

Answer serialNumber(Modem &modem, Session &, const Command &command)
{
    return command.form == Form::Test ? Answer::ok() : Answer::line(modem.phone.device.imei);
}

Answer subscriber(Modem &modem, Session &, const Command &command)
{
    return command.form == Form::Test ? Answer::ok() : Answer::line(modem.phone.sim.imsi);
}

/** A volume in per cent, read by ? and set by a number. */
Answer volume(int &level, const Command &command)
{
    if (command.form == Form::Read)
        return Answer::line(command.name + ": " + std::to_string(level));
    const auto value = command.number(0);
    if (command.form != Form::Set || !value || *value > 100)
        return Answer::error(Cme::IncorrectParameters);
    level = *value;
    return Answer::ok();
}

Answer speaker(Modem &modem, Session &, const Command &command)
{
    return volume(modem.speakerVolume, command);
}

Answer microphone(Modem &modem, Session &, const Command &command)
{
    return volume(modem.microphoneVolume, command);
}

Answer mute(Modem &modem, Session &, const Command &command)
{
    bool &muted = modem.phone.calls.muted;
    if (command.form == Form::Read)
        return Answer::line(std::string("+CMUT: ") + (muted ? "1" : "0"));
    const auto value = command.number(0);
    if (command.form != Form::Set || !value || *value > 1)
        return Answer::error(Cme::IncorrectParameters);
    muted = *value == 1;
    return Answer::ok();
}

Answer textTelephone(Modem &modem, Session &, const Command &command)
{
    if (command.form == Form::Read)
        return Answer::line("+PTTY: " + std::to_string(modem.phone.device.ttyMode));
    const auto mode = command.number(0);
    if (command.form != Form::Set || !mode || *mode > 3)
        return Answer::error(Cme::IncorrectParameters);
    modem.phone.device.ttyMode = static_cast<unsigned char>(*mode);
    return Answer::ok();
}

constexpr std::array<CommandEntry, 14> commands = {{
    {"+CGMI", Needs::Nothing, "", manufacturer},
    {"+GMI", Needs::Nothing, "", manufacturer},
    {"+CGMM", Needs::Nothing, "", model},
    {"+GMM", Needs::Nothing, "", model},
    {"+CGMR", Needs::Nothing, "", revision},
    {"+GMR", Needs::Nothing, "", revision},
    {"+CGSN", Needs::Nothing, "", serialNumber},
    {"+GSN", Needs::Nothing, "", serialNumber},
    {"+CIMI", Needs::Ready, "", subscriber},
    {"+CLVL", Needs::Nothing, "(0-100)", speaker},
    {"+VGS", Needs::Nothing, "(0-100)", speaker},
    {"+VGM", Needs::Nothing, "(0-100)", microphone},
    {"+CMUT", Needs::Nothing, "(0,1)", mute},
    {"+PTTY", Needs::Nothing, "(0-3)", textTelephone},
}};

} // namespace

std::span<const CommandEntry> deviceCommands()
{
    return commands;
}

} // namespace AtModem
