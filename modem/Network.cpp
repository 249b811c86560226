// Operators, registration and signal.
#include "Commands.h"

#include "Networks.h"

namespace AtModem {

namespace {

using Form = Command::Form;

constexpr int utran = 2;

/** Names go out in the default alphabet; what it has no letter for becomes a question mark. */
std::string plain(const QString &name)
{
    std::string text;
    for (const QChar character : name)
        text += character.unicode() >= 0x20 && character.unicode() < 0x7F && character != QLatin1Char('"')
            ? character.toLatin1()
            : '?';
    return text;
}

enum OperatorStatus { Available = 1, Current = 2, Forbidden = 3 };

int statusOf(const Modem &modem, const Network &network)
{
    if (modem.isRegistered() && network.id == modem.phone.network.registeredId)
        return Current;
    return network.acceptsRegistration ? Available : Forbidden;
}

Answer search(Modem &modem)
{
    Simulator::searchNetworks(modem.phone.network);
    std::string line = "+COPS: ";
    for (const Network &network : modem.phone.network.networks) {
        if (network.known)
            line += '(' + std::to_string(statusOf(modem, network)) + ",\"" + plain(network.longName) + "\",\""
                + plain(network.shortName) + "\",\"" + network.id + "\"," + std::to_string(utran) + "),";
    }
    return Answer::line(line + ",(0,1,2,3,4),(0,1,2)");
}

std::string currentOperator(const Modem &modem, int format)
{
    const bool automatic = modem.phone.network.searchMode == TAPI_NETWORK_SEARCH_AUTOMATIC;
    std::string line = std::string("+COPS: ") + (automatic ? '0' : '1');
    const Network *const network =
        modem.isRegistered() ? Simulator::registeredNetwork(modem.phone.network) : nullptr;
    if (!network)
        return line;
    const std::array<std::string, 3> names = {plain(network->longName), plain(network->shortName),
                                              network->id};
    return line + ',' + std::to_string(format) + ",\"" + names[static_cast<std::size_t>(format)] + "\","
        + std::to_string(utran);
}

/** Null when no network has that name, in that format. */
const Network *findByName(const Modem &modem, int format, const std::string &name)
{
    for (const Network &network : modem.phone.network.networks) {
        const std::array<std::string, 3> names = {plain(network.longName), plain(network.shortName),
                                                  network.id};
        if (names[static_cast<std::size_t>(format)] == name)
            return &network;
    }
    return nullptr;
}

/** A network that was chosen by hand; a refusal leaves the phone where it was, unless it must go. */
Answer registerManually(Modem &modem, int format, const std::string &name, bool orElseAutomatic)
{
    const Network *const network = findByName(modem, format, name);
    NetworkState &networks = modem.phone.network;
    if (network && Simulator::registerWith(networks, network->id) == TAPI_RESULT_SUCC) {
        networks.searchMode = TAPI_NETWORK_SEARCH_MANUAL;
        return Answer::ok();
    }
    if (orElseAutomatic && Simulator::registerAnywhere(networks)) {
        networks.searchMode = TAPI_NETWORK_SEARCH_AUTOMATIC;
        return Answer::ok();
    }
    return Answer::error(network && network->inRange ? Cme::EmergencyOnly : Cme::NoNetworkService);
}

/** +COPS=<mode>[,<format>[,<operator>[,<technology>]]] */
Answer operators(Modem &modem, Session &session, const Command &command)
{
    enum Mode { Automatic, Manual, Deregister, SetFormat, ManualThenAutomatic };
    constexpr int lastFormat = 2;
    if (command.form == Form::Read)
        return Answer::line(currentOperator(modem, session.preferences.operatorFormat));
    if (modem.power != Power::On)
        return Answer::error(Cme::NoNetworkService);
    if (command.form == Form::Test)
        return search(modem);
    const auto mode = command.number(0);
    const auto format = command.number(1, session.preferences.operatorFormat);
    if (command.form != Form::Set || !mode || !format || *format > lastFormat)
        return Answer::error(Cme::IncorrectParameters);
    NetworkState &networks = modem.phone.network;
    switch (*mode) {
    case Automatic:
        networks.searchMode = TAPI_NETWORK_SEARCH_AUTOMATIC;
        return Simulator::registerAnywhere(networks) ? Answer::ok() : Answer::error(Cme::NoNetworkService);
    case Manual:
    case ManualThenAutomatic:
        return registerManually(modem, *format, command.text(2), *mode == ManualThenAutomatic);
    case Deregister:
        networks.searchMode = TAPI_NETWORK_SEARCH_MANUAL;
        networks.registeredId.clear();
        return Answer::ok();
    case SetFormat:
        session.preferences.operatorFormat = *format;
        return Answer::ok();
    default:
        return Answer::error(Cme::IncorrectParameters);
    }
}

Answer registration(Modem &modem, Session &session, const Command &command)
{
    if (command.form == Form::Read) {
        const int told = session.preferences.registration;
        std::string line =
            "+CREG: " + std::to_string(told) + ',' + std::to_string(modem.registrationStatus());
        if (told == 2 && modem.isRegistered())
            line += R"(,"00C3","0000A1B2",)" + std::to_string(utran);
        return Answer::line(line);
    }
    const auto told = command.number(0, 0);
    if (!told || *told > 2)
        return Answer::error(Cme::IncorrectParameters);
    session.preferences.registration = *told;
    return Answer::ok();
}

Answer signalQuality(Modem &modem, Session &, const Command &)
{
    constexpr int unknown = 99;
    return Answer::line("+CSQ: " + std::to_string(modem.isRegistered() ? modem.signalStrength : unknown) + ','
                        + std::to_string(unknown));
}

/** The indicators of the phone, of which a daemon follows the signal. */
Answer indicators(Modem &modem, Session &, const Command &command)
{
    constexpr int highestStrength = 31;
    constexpr int bars = 5;
    if (command.form == Form::Test)
        return Answer::line(
            "+CIND: (\"battchg\",(0-5)),(\"signal\",(0-5)),(\"service\",(0,1)),(\"call\",(0,1)),"
            "(\"roam\",(0,1))");
    if (command.form != Form::Read)
        return Answer::error(Cme::OperationNotSupported);
    const int signal = modem.isRegistered() ? modem.signalStrength * bars / highestStrength : 0;
    return Answer::line("+CIND: 4," + std::to_string(signal) + ',' + (modem.isRegistered() ? '1' : '0') + ','
                        + (modem.phone.calls.table.count > 0 ? '1' : '0') + ','
                        + (modem.registrationStatus() == 5 ? '1' : '0'));
}

Answer indicatorReports(Modem &, Session &, const Command &command)
{
    return command.form == Form::Read ? Answer::line("+CMER: 3,0,0,1,0") : Answer::ok();
}

constexpr std::array<CommandEntry, 5> commands = {{
    {"+COPS", Needs::Ready, "", operators},
    {"+CREG", Needs::Nothing, "(0-2)", registration},
    {"+CSQ", Needs::Nothing, "(0-31,99),(99)", signalQuality},
    {"+CIND", Needs::Nothing, "", indicators},
    {"+CMER", Needs::Nothing, "(0,3),(0),(0),(0,1),(0)", indicatorReports},
}};

} // namespace

std::span<const CommandEntry> networkCommands()
{
    return commands;
}

} // namespace AtModem
