// PINs, PUKs and facility locks.
#include "Commands.h"
#include "Environment.h"

#include "Pins.h"

namespace AtModem {

namespace {

using Form = Command::Form;

constexpr int activate = 1;
constexpr int query = 2;

/** What the card waits for: the name that +CPIN has for it. */
const char *requiredCode(const Modem &modem)
{
    if (modem.phone.sim.pin1.triesLeft == 0)
        return "SIM PUK";
    if (modem.isPinRequired())
        return "SIM PIN";
    return modem.puk2Asked ? "SIM PUK2" : "READY";
}

/** Enters a PIN, or a PUK with a new PIN, where the card waits for one. */
Answer enterPin(Modem &modem, Session &, const Command &command)
{
    if (command.form == Form::Read)
        return Answer::line(std::string("+CPIN: ") + requiredCode(modem));
    const std::string &code = command.text(0);
    const bool withPuk = command.parameters.size() > 1;
    Pin &pin1 = modem.phone.sim.pin1;
    if (command.form != Form::Set || code.empty() || command.parameters.size() > 2)
        return Answer::error(Cme::IncorrectParameters);
    if (!modem.isPinRequired()) {
        // The PUK2 and a new PIN2 may come this way too, once PIN2 is blocked.
        Pin &pin2 = modem.phone.sim.pin2;
        if (!withPuk || pin2.triesLeft > 0)
            return Answer::error(Cme::OperationNotAllowed);
        return modem.judge(pin2, [&](Pin &pin) { return Simulator::unblockPin(pin, code, command.text(1)); });
    }
    if (pin1.triesLeft == 0 && !withPuk)
        return Answer::error(Cme::PukRequired);
    if (!withPuk && !Simulator::isAcceptablePin(code))
        return Answer::error(Cme::IncorrectPassword);
    Answer answer = modem.judge(pin1, [&](Pin &pin) {
        return withPuk && pin.triesLeft == 0 ? Simulator::unblockPin(pin, code, command.text(1))
                                             : Simulator::verifyPin(pin, code);
    });
    if (answer.result == Answer::Result::Ok)
        announceCard(modem);
    return answer;
}

/** The tries that are left: of PIN1, PUK1, PIN2 and PUK2. */
Answer triesLeft(Modem &modem, Session &, const Command &)
{
    const SimState &sim = modem.phone.sim;
    Answer answer;
    const std::array<std::pair<const char *, int>, 4> counters = {{
        {"SIM PIN", sim.pin1.triesLeft},
        {"SIM PUK", sim.pin1.pukTriesLeft},
        {"SIM PIN2", sim.pin2.triesLeft},
        {"SIM PUK2", sim.pin2.pukTriesLeft},
    }};
    for (const auto &[name, tries] : counters) {
        const int all = std::string_view(name).find("PUK") != std::string_view::npos ? Simulator::pukTries
                                                                                     : Simulator::pinTries;
        answer.lines.push_back(std::string("+CPINR: ") + name + ',' + std::to_string(tries) + ','
                               + std::to_string(all));
    }
    return answer;
}

/** The same in one line, as several makers have it. */
Answer triesInOneLine(Modem &modem, Session &, const Command &)
{
    const SimState &sim = modem.phone.sim;
    return Answer::line("+EPINC: " + std::to_string(sim.pin1.triesLeft) + ','
                        + std::to_string(sim.pin2.triesLeft) + ',' + std::to_string(sim.pin1.pukTriesLeft)
                        + ',' + std::to_string(sim.pin2.pukTriesLeft));
}

Answer lockPin1(Modem &modem, const Command &command, int mode)
{
    SimState &sim = modem.phone.sim;
    if (mode == query)
        return Answer::line("+CLCK: " + std::to_string(sim.pin1Request));
    if (!Simulator::isAcceptablePin(command.text(2)))
        return Answer::error(Cme::IncorrectPassword);
    return modem.judge(sim.pin1, [&](Pin &) {
        return Simulator::requestPin1(sim, command.text(2), mode == activate ? 1 : 0);
    });
}

Answer lockFixedDialling(Modem &modem, const Command &command, int mode)
{
    ServiceState &services = modem.phone.services;
    if (mode == query)
        return Answer::line("+CLCK: " + std::to_string(services.fixedDialing));
    if (!Simulator::isAcceptablePin(command.text(2)))
        return Answer::error(Cme::IncorrectPassword);
    Answer answer = modem.judge(modem.phone.sim.pin2,
                                [&](Pin &pin) { return Simulator::verifyPin(pin, command.text(2)); });
    if (answer.result == Answer::Result::Ok)
        services.fixedDialing = mode == activate ? 1 : 0;
    return answer;
}

/** Call barring: the network has none, and says so. */
Answer barring(Modem &modem, int mode)
{
    if (!modem.isRegistered())
        return Answer::error(Cme::NoNetworkService);
    return mode == query ? Answer::line("+CLCK: 0,1") : Answer::error(Cme::OperationNotSupported);
}

Answer facilityLock(Modem &modem, Session &, const Command &command)
{
    const auto mode = command.number(1);
    if (command.form != Form::Set || !mode || *mode > query)
        return Answer::error(Cme::IncorrectParameters);
    const std::string &facility = command.text(0);
    if (facility == "SC")
        return lockPin1(modem, command, *mode);
    if (facility == "FD")
        return lockFixedDialling(modem, command, *mode);
    for (const std::string_view barred : {"AO", "OI", "OX", "AI", "IR", "AB", "AG", "AC"}) {
        if (facility == barred)
            return barring(modem, *mode);
    }
    // Locks of the device to a card or a network: there are none. PIN2 cannot be switched off.
    for (const std::string_view lock : {"P2", "PS", "PN", "PU", "PP", "PC", "PF"}) {
        if (facility == lock)
            return *mode == query ? Answer::line("+CLCK: 0") : Answer::error(Cme::OperationNotSupported);
    }
    return Answer::error(Cme::OperationNotSupported);
}

Answer changePassword(Modem &modem, Session &, const Command &command)
{
    const std::string &facility = command.text(0);
    if (command.form != Form::Set || (facility != "SC" && facility != "P2"))
        return Answer::error(command.form == Form::Set ? Cme::OperationNotSupported
                                                       : Cme::IncorrectParameters);
    Pin &pin = facility == "SC" ? modem.phone.sim.pin1 : modem.phone.sim.pin2;
    if (!Simulator::isAcceptablePin(command.text(1)))
        return Answer::error(Cme::IncorrectPassword);
    return modem.judge(pin,
                       [&](Pin &one) { return Simulator::changePin(one, command.text(1), command.text(2)); });
}

/** P2 stands there because the daemon changes only what is named. */
constexpr std::string_view facilities = R"(("SC","FD","P2","AO","OI","OX","AI","IR","AB","AG","AC"))";

constexpr std::array<CommandEntry, 5> commands = {{
    {"+CPIN", Needs::Card, "", enterPin},
    {"+CPINR", Needs::Card, "", triesLeft},
    {"+EPINC", Needs::Card, "", triesInOneLine},
    {"+CLCK", Needs::Card, facilities, facilityLock},
    {"+CPWD", Needs::Card, R"(("SC",8),("P2",8))", changePassword},
}};

} // namespace

std::span<const CommandEntry> securityCommands()
{
    return commands;
}

} // namespace AtModem
