// Options of calls: whose numbers are shown, call waiting, what is told.
#include "Commands.h"

#include "CallOptions.h"

namespace AtModem {

namespace {

using Form = Command::Form;

constexpr int provisioned = 1;
constexpr int notProvisioned = 0;

/** Reads a flag of the connection with what the network has for the service, or sets it. */
Answer presentation(bool &flag, const Command &command, int network)
{
    if (command.form == Form::Read)
        return Answer::line(command.name + ": " + (flag ? '1' : '0') + ',' + std::to_string(network));
    const auto value = command.number(0, 0);
    if (!value || *value > 1)
        return Answer::error(Cme::IncorrectParameters);
    flag = *value == 1;
    return Answer::ok();
}

Answer callerId(Modem &, Session &session, const Command &command)
{
    return presentation(session.preferences.callerId, command, provisioned);
}

Answer connectedId(Modem &, Session &session, const Command &command)
{
    return presentation(session.preferences.connectedId, command, provisioned);
}

Answer calledId(Modem &, Session &session, const Command &command)
{
    return presentation(session.preferences.calledId, command, notProvisioned);
}

Answer callerName(Modem &, Session &session, const Command &command)
{
    return presentation(session.preferences.callerName, command, notProvisioned);
}

/** Whether the other side may hide its number: what the network has, no flag of ours. */
Answer connectedRestriction(Modem &, Session &, const Command &)
{
    return Answer::line("+COLR: " + std::to_string(notProvisioned));
}

/** The own number: 0 as subscribed, 1 hidden, 2 shown; the second value is the network's default. */
Answer ownId(Modem &modem, Session &, const Command &command)
{
    constexpr int temporaryShown = 4;
    if (command.form == Form::Read)
        return Answer::line("+CLIR: " + std::to_string(Simulator::callerIdRestriction(modem.phone.services))
                            + ',' + std::to_string(temporaryShown));
    const auto restriction = command.number(0);
    if (command.form != Form::Set || !restriction
        || Simulator::setCallerIdRestriction(modem.phone.services,
                                             static_cast<_TAPI_CALL_RESTRICT_ID_E>(*restriction))
            != TAPI_RESULT_SUCC)
        return Answer::error(Cme::IncorrectParameters);
    return Answer::ok();
}

/** +CCWA=<told>[,<mode>[,<classes>]]: 0 off, 1 on, 2 query. */
Answer callWaiting(Modem &modem, Session &session, const Command &command)
{
    constexpr int query = 2;
    constexpr int voice = 1;
    constexpr int allClasses = 7;
    if (command.form == Form::Read)
        return Answer::line(std::string("+CCWA: ") + (session.preferences.callWaiting ? '1' : '0'));
    const auto told = command.number(0, session.preferences.callWaiting ? 1 : 0);
    const auto mode = command.number(1, -1);
    const auto classes = command.number(2, allClasses);
    if (command.form != Form::Set || !told || *told > 1 || !mode || *mode > query || !classes)
        return Answer::error(Cme::IncorrectParameters);
    if (*mode >= 0 && !modem.isRegistered())
        return Answer::error(Cme::NoNetworkService);
    session.preferences.callWaiting = *told == 1;
    unsigned char &on = modem.phone.services.callWaiting;
    if (*mode == query)
        return Answer::line("+CCWA: " + std::to_string(on) + ',' + std::to_string(voice));
    if (*mode >= 0 && (*classes & voice) != 0)
        on = static_cast<unsigned char>(*mode);
    return Answer::ok();
}

Answer extendedRing(Modem &, Session &session, const Command &command)
{
    if (command.form == Form::Read)
        return Answer::line(std::string("+CRC: ") + (session.preferences.extendedRing ? '1' : '0'));
    const auto value = command.number(0, 0);
    if (!value || *value > 1)
        return Answer::error(Cme::IncorrectParameters);
    session.preferences.extendedRing = *value == 1;
    return Answer::ok();
}

Answer notifications(Modem &, Session &session, const Command &command)
{
    Preferences &preferences = session.preferences;
    if (command.form == Form::Read)
        return Answer::line(std::string("+CSSN: ") + (preferences.outgoingNotifications ? '1' : '0') + ','
                            + (preferences.incomingNotifications ? '1' : '0'));
    const auto outgoing = command.number(0, 0);
    const auto incoming = command.number(1, 0);
    if (!outgoing || *outgoing > 1 || !incoming || *incoming > 1)
        return Answer::error(Cme::IncorrectParameters);
    preferences.outgoingNotifications = *outgoing == 1;
    preferences.incomingNotifications = *incoming == 1;
    return Answer::ok();
}

constexpr std::array<CommandEntry, 9> commands = {{
    {"+CLIP", Needs::Nothing, "(0,1)", callerId},
    {"+COLP", Needs::Nothing, "(0,1)", connectedId},
    {"+CDIP", Needs::Nothing, "(0,1)", calledId},
    {"+CNAP", Needs::Nothing, "(0,1)", callerName},
    {"+COLR", Needs::Network, "", connectedRestriction},
    {"+CLIR", Needs::Ready, "(0-2)", ownId},
    {"+CCWA", Needs::Nothing, "(0,1)", callWaiting},
    {"+CRC", Needs::Nothing, "(0,1)", extendedRing},
    {"+CSSN", Needs::Nothing, "(0,1),(0,1)", notifications},
}};

} // namespace

std::span<const CommandEntry> callOptionCommands()
{
    return commands;
}

} // namespace AtModem
