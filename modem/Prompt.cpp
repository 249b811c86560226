// The modem's own commands.
#include "Prompt.h"

#include "Environment.h"

#include "Networks.h"
#include "Pins.h"

#include <algorithm>
#include <charconv>

namespace AtModem {

namespace {

using Words = std::vector<std::string>;
using Reply = Prompt::Reply;
using Status = Prompt::Status;

Reply mistake(const std::string &reason)
{
    return {Status::Mistake, "error: " + reason + '\n'};
}

Reply said(const std::string &text)
{
    return {Status::Done, text + '\n'};
}

Words split(std::string_view line)
{
    Words words;
    std::string word;
    bool quoted = false;
    bool begun = false;
    for (const char character : line) {
        if (character == '"') {
            quoted = !quoted;
            begun = true;
        } else if (character == ' ' && !quoted) {
            if (begun)
                words.push_back(std::exchange(word, {}));
            begun = false;
        } else {
            word += character;
            begun = true;
        }
    }
    if (begun)
        words.push_back(word);
    return words;
}

std::optional<unsigned int> readNumber(const std::string &word, unsigned int largest)
{
    unsigned int number = 0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
    if (error != std::errc() || end != word.data() + word.size() || number > largest)
        return std::nullopt;
    return number;
}

std::string capitals(std::string word)
{
    for (char &character : word) {
        if (character >= 'a' && character <= 'z')
            character = static_cast<char>(character - 'a' + 'A');
    }
    return word;
}

/** The name of a command as the table has it, from what a user types: AT+CCFC, +ccfc or D. */
std::string commandName(const std::string &word)
{
    const std::string name = capitals(word);
    return name.rfind("AT", 0) == 0 ? name.substr(2) : name;
}

/** The call that is meant when none is named: the only one there is. */
std::optional<unsigned char> callOf(const Modem &modem, const Words &words)
{
    if (words.size() > 1) {
        constexpr unsigned int largestId = 255;
        const auto id = readNumber(words[1], largestId);
        return id ? std::optional(static_cast<unsigned char>(*id)) : std::nullopt;
    }
    const _TAPI_CALL_SESSION_TABLE_S &table = modem.phone.calls.table;
    return table.count == 1 ? std::optional(table.sessions[0].callId) : std::nullopt;
}

Reply onCall(Modem &modem, const Words &words, bool (*act)(Modem &, unsigned char), const char *otherwise)
{
    const auto callId = callOf(modem, words);
    if (!callId)
        return mistake("expected the id of a call; .state shows them");
    return act(modem, *callId) ? Reply() : mistake(otherwise);
}

Reply ringPhone(Modem &modem, const Words &words)
{
    const auto has = [&words](const char *word) {
        return std::find(words.begin() + 2, words.end(), word) != words.end();
    };
    const bool withheld = has("withheld");
    const bool wasForwarded = has("forwarded");
    constexpr std::size_t maxLength = 43;
    const std::string &number = words[1];
    const auto options = static_cast<std::size_t>(withheld) + static_cast<std::size_t>(wasForwarded);
    if (words.size() - 2 != options || number.empty() || number.size() > maxLength
        || number.find_first_not_of("+0123456789*#") != std::string::npos)
        return mistake("expected a number of at most 43 digits, withheld, forwarded");
    const IncomingCall call = ring(modem, number, withheld, wasForwarded);
    switch (call.outcome) {
    case IncomingCall::Outcome::Rings:
        return said("call " + std::to_string(call.callId) + " rings");
    case IncomingCall::Outcome::Forwarded:
        return said("the network forwards the call to " + call.forwardedTo);
    case IncomingCall::Outcome::Busy:
        return said("the caller hears that the phone is busy");
    default:
        return said("the caller hears that the phone cannot be reached");
    }
}

Reply remoteCommand(Modem &modem, const Words &words)
{
    const auto callId = callOf(modem, Words(words.begin() + 1, words.end()));
    if (!callId || !remoteActs(modem, *callId, words[1]))
        return mistake(
            "expected hold, resume or join with an active call, forward, wait or bar with a dialled one");
    return {};
}

Reply answerAfter(Modem &modem, const Words &words)
{
    constexpr unsigned int longest = 3600000;
    const auto time = words[1] == "off" ? 0 : readNumber(words[1], longest);
    if (!time)
        return mistake("expected milliseconds or off");
    modem.answerAfter = *time;
    return {};
}

Reply network(Modem &modem, const Words &words)
{
    const bool comes = words[1] == "returns";
    if (!comes && words[1] != "vanishes")
        return mistake("expected vanishes or returns");
    if (words.size() > 2)
        return setInRange(modem, words[2], comes) ? Reply()
                                                  : mistake("there is no such network; .state shows them");
    for (const Network &one : modem.phone.network.networks)
        setInRange(modem, one.id, comes);
    return {};
}

Reply card(Modem &modem, const Words &words)
{
    if (words[1] != "in" && words[1] != "out")
        return mistake("expected in or out");
    if (words.size() > 2) {
        constexpr unsigned int mostCards = 9;
        const auto number = readNumber(words[2], mostCards);
        if (words[1] == "out" || !number || *number == 0)
            return mistake("expected the number of the card that is put in, 1 to 9");
        if (modem.cardInserted)
            return mistake("there is a card in already");
        takeCard(modem, *number);
    }
    setCardInserted(modem, words[1] == "in");
    return {};
}

Reply silence(Modem &modem, const Words &words)
{
    if (words[1] != "on" && words[1] != "off")
        return mistake("expected on or off");
    modem.silent = words[1] == "on";
    return {};
}

Reply delay(Modem &modem, const Words &words)
{
    constexpr unsigned int longest = 3600000;
    const auto time = words[2] == "off" ? 0 : readNumber(words[2], longest);
    if (!time)
        return mistake("expected milliseconds or off");
    modem.disturbances[commandName(words[1])].delay = Agenda::Duration(*time);
    return {};
}

Reply lock(Modem &modem, const Words &words)
{
    const bool opened = words[1] == "open";
    if (words[1] != "on" && words[1] != "off" && !opened)
        return mistake("expected on, off or open");
    modem.phone.sim.pin1Request = words[1] == "off" ? 0 : 1;
    if (opened)
        modem.phone.sim.pin1.verified = true;
    return {};
}

/** All that a card holds is read by one command. */
Reply lateCard(Modem &modem, const Words &words)
{
    return delay(modem, {words[0], "AT+CRSM", words[1]});
}

Reply refuse(Modem &modem, const Words &words)
{
    constexpr unsigned int largestError = 255;
    constexpr unsigned int most = 1000000;
    const auto error = words.size() > 2 ? readNumber(words[2], largestError) : 100;
    const auto times = words.size() > 3 ? readNumber(words[3], most) : most;
    if (!error || !times || *times == 0)
        return mistake("expected an error number and how often");
    Disturbance &disturbance = modem.disturbances[commandName(words[1])];
    disturbance.refusal = static_cast<Cme>(*error);
    disturbance.refusals = words.size() > 3 ? static_cast<int>(*times) : -1;
    return {};
}

Reply pass(Modem &modem, const Words &words)
{
    if (words.size() == 1)
        modem.disturbances.clear();
    else
        modem.disturbances.erase(commandName(words[1]));
    return {};
}

Reply signal(Modem &modem, const Words &words)
{
    constexpr unsigned int strongest = 31;
    const auto strength = readNumber(words[1], strongest);
    if (!strength)
        return mistake("expected a strength from 0 to 31");
    modem.signalStrength = static_cast<int>(*strength);
    return {};
}

Reply notifyUser(Modem &modem, const Words &words)
{
    notify(modem, words[1]);
    return {};
}

Reply resetModem(Modem &modem, const Words &)
{
    modem.reset();
    modem.updateRegistration();
    return {};
}

// The state in words

const char *callState(const Modem &modem, const _TAPI_CALL_SESSION_S &call)
{
    constexpr std::array<const char *, 6> names = {"active",   "held",     "dialling",
                                                   "alerting", "incoming", "waiting"};
    return names[static_cast<std::size_t>(listedState(modem, call))];
}

void appendCalls(std::string &text, const Modem &modem)
{
    const _TAPI_CALL_SESSION_TABLE_S &table = modem.phone.calls.table;
    if (table.count == 0)
        text += "calls: none\n";
    for (unsigned int position = 0; position < table.count; ++position) {
        const _TAPI_CALL_SESSION_S &call = table.sessions[position];
        text += "call " + std::to_string(call.callId) + ": " + callState(modem, call)
            + (call.incoming == 1 ? ", from " : ", to ") + call.number
            + (call.joined == 1 ? ", in a conference" : "") + '\n';
    }
}

void appendForwardings(std::string &text, const Modem &modem)
{
    constexpr std::array<const char *, 4> conditions = {"always", "when busy", "on no reply",
                                                        "when not reachable"};
    const std::map<unsigned char, const char *> classes = {
        {1, "voice"}, {4, "fax"}, {8, "messages"}, {16, "synchronous data"}, {32, "data"}};
    bool any = false;
    for (const auto &[key, forwarding] : modem.phone.services.forwardings) {
        const auto &[line, serviceClass, condition] = key;
        const auto name = classes.find(serviceClass);
        if (forwarding.number.empty() || name == classes.end() || condition >= conditions.size())
            continue;
        any = true;
        text += std::string("forwarding of ") + name->second + ' ' + conditions[condition] + ": "
            + forwarding.number;
        if (condition == TAPI_CS_DIVERT_NO_REPLY)
            text += " after " + std::to_string(forwarding.noReplyTimer) + " s";
        text += forwarding.active ? "\n" : ", switched off\n";
    }
    if (!any)
        text += "forwarding: none\n";
}

void appendPin(std::string &text, const char *name, const Pin &pin)
{
    text += std::string(name) + ": " + std::to_string(pin.triesLeft) + " tries left, "
        + std::to_string(pin.pukTriesLeft) + " for its PUK";
    text += pin.triesLeft == 0 ? ", blocked\n" : pin.verified ? ", verified\n" : "\n";
}

Reply state(Modem &modem, const Words &)
{
    const PhoneState &phone = modem.phone;
    std::string text;
    text += modem.power == Power::On ? "power: on\n"
        : modem.power == Power::Off  ? "power: off\n"
                                     : "power: on, radio off\n";
    text += "card " + std::to_string(modem.cardNumber);
    text += !modem.cardInserted ? ": pulled\n"
        : modem.isPinRequired() ? ": wants a PIN or PUK\n"
                                : ": ready\n";
    text += std::string("PIN lock: ") + (phone.sim.pin1Request == 1 ? "on\n" : "off\n");
    appendPin(text, "PIN", phone.sim.pin1);
    appendPin(text, "PIN2", phone.sim.pin2);
    for (const OwnNumber &own : phone.sim.ownNumbers) {
        if (!own.number.empty())
            text += "own number: " + own.number + " (" + own.name.toStdString() + ")\n";
    }
    for (const Network &one : phone.network.networks) {
        text += "network " + one.id + ": " + one.longName.toStdString();
        if (!one.inRange)
            text += ", out of range\n";
        else if (modem.isRegistered() && one.id == phone.network.registeredId)
            text += ", registered\n";
        else
            text += one.acceptsRegistration ? "\n" : ", refuses\n";
    }
    text += std::string("selection of networks: ")
        + (phone.network.searchMode == TAPI_NETWORK_SEARCH_AUTOMATIC ? "automatic\n" : "manual\n");
    appendCalls(text, modem);
    if (phone.calls.tones > 0)
        text +=
            "tones heard: " + std::to_string(phone.calls.tones) + ", the last " + phone.calls.lastTone + '\n';
    appendForwardings(text, modem);
    text += std::string("call waiting: ") + (phone.services.callWaiting == 1 ? "on\n" : "off\n");
    text += "meter: " + std::to_string(modem.charge.lastCall) + " units in the last call, "
        + std::to_string(modem.charge.accumulated) + " in all, at most "
        + std::to_string(modem.charge.maximum) + "; a unit costs " + phone.services.price + ' '
        + phone.services.currency + '\n';
    text += "text telephone: " + std::to_string(phone.device.ttyMode) + '\n';
    if (modem.silent)
        text += "the modem is silent\n";
    for (const auto &[name, disturbance] : modem.disturbances) {
        if (disturbance.delay.count() > 0)
            text += "answers late: AT" + name + ", " + std::to_string(disturbance.delay.count()) + " ms\n";
        if (disturbance.refusal && disturbance.refusals != 0)
            text += "refuses: AT" + name + ", error " + std::to_string(static_cast<int>(*disturbance.refusal))
                + '\n';
    }
    return {Status::Done, text};
}

Reply help(Modem &modem, const Words &words);

struct PromptCommand {
    std::string_view name;
    std::string_view arguments;
    std::string_view description;
    std::size_t least; ///< words that it takes, without its name
    std::size_t most;
    Reply (*run)(Modem &modem, const Words &words);
};

constexpr std::array<PromptCommand, 20> commands = {{
    {".ring", "NUMBER [withheld] [forwarded]", "A call comes in.", 1, 3, ringPhone},
    {".answer", "[CALL]", "The other side answers a call that was dialled.", 0, 1,
     [](Modem &modem, const Words &words) {
         return onCall(modem, words, remoteAnswers, "no such call is being dialled");
     }},
    {".hangup", "[CALL]", "The other side hangs up, or gives up calling.", 0, 1,
     [](Modem &modem, const Words &words) {
         return onCall(modem, words, remoteHangsUp, "there is no such call");
     }},
    {".remote", "ACT [CALL]",
     "The other side does hold, resume, join; with a call that is dialled forward, wait, bar.", 1, 2,
     remoteCommand},
    {".answer-after", "MS|off", "The other side answers by itself, some time after its phone rings.", 1, 1,
     answerAfter},
    {".network", "vanishes|returns [ID]", "A network, or all of them.", 1, 2, network},
    {".signal", "STRENGTH", "The strength of the signal, 0 to 31.", 1, 1, signal},
    {".card", "out|in [NUMBER]", "The card is pulled or put in, or another one of nine.", 1, 2, card},
    {".lock", "on|off|open", "Whether the card asks for PIN1 when it is powered; open: and was given it.", 1,
     1, lock},
    {".late", "MS|off", "What the card holds becomes known late, each part so much.", 1, 1, lateCard},
    {".notify", "TEXT", "The network sends a text that nobody asked for.", 1, 1, notifyUser},
    {".delay", "COMMAND MS|off", "An AT command is carried out and answered late.", 2, 2, delay},
    {".refuse", "COMMAND [ERROR [TIMES]]", "An AT command is refused, with the error 100 or another one.", 1,
     3, refuse},
    {".silence", "on|off", "The modem hears and says nothing; then it does what it was told meanwhile.", 1, 1,
     silence},
    {".pass", "[COMMAND]", "An AT command, or every one, is answered by itself again.", 0, 1, pass},
    {".state", "", "The phone, its card and its network in words.", 0, 0, state},
    {".reset", "", "Everything as new; connections stay.", 0, 0, resetModem},
    {".log", "on|off", "Shows the AT traffic, PINs masked.", 1, 1, nullptr},
    {".help", "", "Shows the commands.", 0, 0, help},
    {"quit", "", "Ends the modem.", 0, 0,
     [](Modem &, const Words &) {
         return Reply{Status::Quit, {}};
     }},
}};

Reply help(Modem &, const Words &)
{
    constexpr std::size_t column = 34;
    std::string text;
    for (const PromptCommand &command : commands) {
        std::string usage = std::string(command.name) + ' ' + std::string(command.arguments);
        usage.resize(std::max(column, usage.size() + 1), ' ');
        text += usage + std::string(command.description) + '\n';
    }
    return {Status::Done, text + "AT...                             An AT command line, answered here.\n"};
}

} // namespace

Prompt::Prompt(Modem &modem)
    : m_modem(modem)
    // Not one of the modem's connections: what is told to those would only pile up here.
    , m_session(std::make_shared<Session>(modem, [this](std::string_view bytes) { m_answers += bytes; }))
{
    m_session->preferences.echo = false;
    m_session->preferences.errorFormat = 2;
}

Prompt::Reply Prompt::run(std::string_view line)
{
    const Words words = split(line);
    if (words.empty() || words.front().front() == '#')
        return {};
    const std::string name = words.front() == ".quit" ? "quit" : words.front();
    const auto *const command = std::find_if(commands.begin(), commands.end(),
                                             [&](const PromptCommand &one) { return one.name == name; });
    if (command == commands.end()) {
        if (capitals(name).rfind("AT", 0) == 0)
            return runAtLine(line);
        return mistake("there is no command " + name + "; .help shows them");
    }
    if (words.size() - 1 < command->least || words.size() - 1 > command->most)
        return mistake("usage: " + name + ' ' + std::string(command->arguments));
    if (command->run) {
        Reply reply = command->run(m_modem, words);
        m_modem.afterAnswer();
        return reply;
    }
    if (words[1] != "on" && words[1] != "off")
        return mistake("expected on or off");
    setLogShown(words[1] == "on");
    return {};
}

Prompt::Reply Prompt::runAtLine(std::string_view line)
{
    m_answers.clear();
    m_session->receive(line);
    m_session->receive("\r");
    Reply reply;
    for (std::size_t begin = 0; begin < m_answers.size();) {
        const std::size_t end = std::min(m_answers.find("\r\n", begin), m_answers.size());
        if (end > begin)
            reply.text += m_answers.substr(begin, end - begin) + '\n';
        begin = end + 2;
    }
    return reply;
}

std::vector<std::string> Prompt::completions(std::string_view begin) const
{
    std::vector<std::string> names;
    for (const PromptCommand &command : commands) {
        if (command.name.substr(0, begin.size()) == begin)
            names.emplace_back(command.name);
    }
    return names;
}

void Prompt::setLogShown(bool shown)
{
    if (!shown) {
        m_modem.setLog(nullptr);
        return;
    }
    m_modem.setLog([this](std::string_view direction, std::string_view line) {
        if (m_logSink)
            m_logSink(std::string(direction) + ' ' + std::string(line) + '\n');
    });
}

} // namespace AtModem
