// The modem itself: dispatching commands, connections, card and registration.
#include "Modem.h"

#include "Commands.h"
#include "Environment.h"

#include "Networks.h"

#include <algorithm>
#include <array>
#include <unordered_map>

namespace AtModem {

namespace {

constexpr Agenda::Duration registrationTime{300};

using CommandTable = std::unordered_map<std::string_view, const CommandEntry *>;

const CommandTable &commandTable()
{
    static const CommandTable table = [] {
        CommandTable entries;
        for (const auto commands : {generalCommands(), deviceCommands(), callCommands(), callOptionCommands(),
                                    forwardingCommands(), meteringCommands(), securityCommands(),
                                    cardFileCommands(), networkCommands(), serviceDataCommands()}) {
            for (const CommandEntry &command : commands)
                entries.emplace(command.name, &command);
        }
        return entries;
    }();
    return table;
}

/** Why a command cannot be asked now; nothing when it can. */
std::optional<Cme> obstacle(const Modem &modem, Needs needs)
{
    if (needs == Needs::Nothing)
        return std::nullopt;
    if (!modem.isCardPowered())
        return Cme::SimNotInserted;
    if (needs == Needs::Card)
        return std::nullopt;
    if (modem.isPinRequired())
        return modem.phone.sim.pin1.triesLeft == 0 ? Cme::PukRequired : Cme::PinRequired;
    if (needs == Needs::Network && !modem.isRegistered())
        return Cme::NoNetworkService;
    return std::nullopt;
}

struct ErrorText {
    Cme error;
    const char *text;
};

constexpr auto errorTexts = std::to_array<ErrorText>({
    {Cme::PhoneFailure, "phone failure"},
    {Cme::OperationNotAllowed, "operation not allowed"},
    {Cme::OperationNotSupported, "operation not supported"},
    {Cme::SimNotInserted, "SIM not inserted"},
    {Cme::PinRequired, "SIM PIN required"},
    {Cme::PukRequired, "SIM PUK required"},
    {Cme::SimFailure, "SIM failure"},
    {Cme::SimBusy, "SIM busy"},
    {Cme::IncorrectPassword, "incorrect password"},
    {Cme::Pin2Required, "SIM PIN2 required"},
    {Cme::Puk2Required, "SIM PUK2 required"},
    {Cme::InvalidIndex, "invalid index"},
    {Cme::NoNetworkService, "no network service"},
    {Cme::NetworkTimeout, "network timeout"},
    {Cme::EmergencyOnly, "network not allowed - emergency calls only"},
    {Cme::IncorrectParameters, "incorrect parameters"},
    {Cme::Unknown, "unknown"},
});

} // namespace

Card newCard(unsigned int number)
{
    constexpr std::size_t varied = 5; // the first digit behind the network's code
    Card card = {{}, {0, 27, 400}};
    card.sim.pin1Request = 0; // a phone on the desk starts without asking; the lock can be switched on
    card.sim.imsi[varied] = static_cast<char>('0' + number - 1);
    return card;
}

const char *textOf(Cme error)
{
    const auto found = std::find_if(errorTexts.begin(), errorTexts.end(),
                                    [error](const ErrorText &entry) { return entry.error == error; });
    return found == errorTexts.end() ? "unknown" : found->text;
}

Modem::Modem()
{
    reset();
}

void Modem::reset()
{
    phone = {};
    const Card card = newCard(1);
    phone.sim = card.sim;
    charge = card.charge;
    power = Power::Off;
    cardInserted = true;
    cardNumber = 1;
    pulledCards.clear();
    silent = false;
    registrationDenied = false;
    puk2Asked = false;
    dialogue = {};
    callDetails.clear();
    disturbances.clear();
}

std::shared_ptr<Session> Modem::connect(Session::Writer writer)
{
    m_sessions.erase(std::remove_if(m_sessions.begin(), m_sessions.end(),
                                    [](const std::weak_ptr<Session> &session) { return session.expired(); }),
                     m_sessions.end());
    auto session = std::make_shared<Session>(*this, std::move(writer));
    m_sessions.push_back(session);
    return session;
}

Answer Modem::execute(Session &session, const Command &command)
{
    const auto found = commandTable().find(command.name);
    if (found == commandTable().end())
        return Answer::error(Cme::OperationNotSupported);
    const CommandEntry &entry = *found->second;
    const auto disturbance = disturbances.find(command.name);
    if (disturbance != disturbances.end() && disturbance->second.refusal
        && disturbance->second.refusals != 0) {
        if (disturbance->second.refusals > 0)
            --disturbance->second.refusals;
        return Answer::error(*disturbance->second.refusal);
    }
    if (command.form == Command::Form::Test && !entry.range.empty())
        return Answer::line(command.name + ": " + std::string(entry.range));
    if (const auto reason = obstacle(*this, entry.needs))
        return Answer::error(*reason);
    return entry.handle(*this, session, command);
}

void Modem::afterAnswer()
{
    forgetEndedCalls(*this);
    updateRegistration();
}

void Modem::tell(const std::string &line, const std::function<bool(const Preferences &)> &wanted)
{
    for (const std::weak_ptr<Session> &connection : m_sessions) {
        const auto session = connection.lock();
        if (session && wanted(session->preferences))
            session->tell(line);
    }
}

void Modem::tell(const std::string &line, bool Preferences::*wanted)
{
    tell(line, [wanted](const Preferences &preferences) { return preferences.*wanted; });
}

void Modem::tell(const std::string &line)
{
    tell(line, [](const Preferences &) { return true; });
}

bool Modem::isPinRequired() const
{
    return phone.sim.pin1.triesLeft == 0 || (phone.sim.pin1Request == 1 && !phone.sim.pin1.verified);
}

bool Modem::isRegistered() const
{
    return power == Power::On && isCardReady() && !registrationDenied
        && Simulator::registeredNetwork(phone.network) != nullptr;
}

int Modem::registrationStatus() const
{
    enum Status { NotRegistered = 0, Home = 1, Searching = 2, Denied = 3, Roaming = 5 };
    if (power != Power::On || !isCardReady())
        return NotRegistered;
    if (registrationDenied)
        return Denied;
    if (!isRegistered())
        return Searching;
    const std::string &network = phone.network.registeredId;
    return phone.sim.imsi.compare(0, network.size(), network) == 0 ? Home : Roaming;
}

void Modem::updateRegistration()
{
    const int status = registrationStatus();
    if (status == m_toldRegistration)
        return;
    m_toldRegistration = status;
    for (const std::weak_ptr<Session> &connection : m_sessions) {
        const auto session = connection.lock();
        if (!session || session->preferences.registration == 0)
            continue;
        std::string line = "+CREG: " + std::to_string(status);
        if (session->preferences.registration == 2 && isRegistered())
            line += R"(,"00C3","0000A1B2",2)";
        session->tell(line);
    }
    if (power == Power::On && isCardReady() && !isRegistered() && !registrationDenied
        && phone.network.searchMode == TAPI_NETWORK_SEARCH_AUTOMATIC) {
        m_agenda.after(registrationTime, [this] {
            if (phone.network.searchMode == TAPI_NETWORK_SEARCH_AUTOMATIC
                && Simulator::registerAnywhere(phone.network))
                updateRegistration();
        });
    }
}

void Modem::resetCard()
{
    for (Pin *const pin : {&phone.sim.pin1, &phone.sim.pin2, &phone.sim.upin})
        pin->verified = false;
    puk2Asked = false;
}

Answer Modem::judge(Pin &pin, const std::function<_TAPI_RESULT_E(Pin &pin)> &check)
{
    const bool wasVerified = pin.verified;
    const bool isPin2 = &pin == &phone.sim.pin2;
    const _TAPI_RESULT_E result = check(pin);
    const bool blocked = pin.triesLeft == 0;
    pin.verified = !blocked && (pin.verified || wasVerified);
    if (isPin2)
        puk2Asked = blocked;
    if (result == TAPI_RESULT_SUCC)
        return Answer::ok();
    if (blocked)
        return Answer::error(isPin2 ? Cme::Puk2Required : Cme::PukRequired);
    return Answer::error(Cme::IncorrectPassword);
}

Agenda::Duration Modem::delayOf(const std::vector<Command> &commands) const
{
    Agenda::Duration longest{0};
    for (const Command &command : commands) {
        const auto found = disturbances.find(command.name);
        if (found != disturbances.end())
            longest = std::max(longest, found->second.delay);
    }
    return longest;
}

void Modem::log(std::string_view direction, const std::string &line) const
{
    if (m_log)
        m_log(direction, maskSecrets(line));
}

} // namespace AtModem
