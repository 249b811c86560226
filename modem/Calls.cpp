// Voice calls.
#include "Commands.h"
#include "Environment.h"

#include "CallOptions.h"
#include "Calls.h"

#include <algorithm>
#include <set>

namespace AtModem {

namespace {

using Form = Command::Form;

constexpr int internationalNumber = 145;
constexpr int otherNumber = 129;

_TAPI_CALL_SESSION_TABLE_S &table(Modem &modem)
{
    return modem.phone.calls.table;
}

/** The first call in a state; null when there is none. */
_TAPI_CALL_SESSION_S *firstIn(Modem &modem, _TAPI_CALL_STATE_E state)
{
    _TAPI_CALL_SESSION_S *const end = table(modem).sessions + table(modem).count;
    _TAPI_CALL_SESSION_S *const found =
        std::find_if(table(modem).sessions, end,
                     [state](const _TAPI_CALL_SESSION_S &call) { return call.state == state; });
    return found == end ? nullptr : found;
}

bool has(Modem &modem, _TAPI_CALL_STATE_E state)
{
    return firstIn(modem, state) != nullptr;
}

void release(Modem &modem, std::initializer_list<_TAPI_CALL_STATE_E> states)
{
    Simulator::removeCalls(modem.phone.calls, [states](const _TAPI_CALL_SESSION_S &call) {
        return std::find(states.begin(), states.end(), call.state) != states.end();
    });
}

void change(Modem &modem, _TAPI_CALL_STATE_E from, _TAPI_CALL_STATE_E to)
{
    for (unsigned int call = 0; call < table(modem).count; ++call) {
        if (table(modem).sessions[call].state == from)
            table(modem).sessions[call].state = to;
    }
}

Answer result(_TAPI_RESULT_E outcome)
{
    return outcome == TAPI_RESULT_SUCC ? Answer::ok() : Answer::error(Cme::OperationNotAllowed);
}

bool isEmergency(const std::string &number)
{
    static const std::set<std::string> numbers = {"112", "911", "08", "000", "110", "118", "119", "999"};
    return numbers.count(number) == 1;
}

/** What is dialled, without the marks that say how. */
struct DialString {
    std::string number;
    bool voice = false;
    bool valid = false;
};

DialString readDialString(std::string text)
{
    DialString dialled;
    if (!text.empty() && text.back() == ';') {
        dialled.voice = true;
        text.pop_back();
    }
    while (!text.empty() && std::string_view("IiGg").find(text.back()) != std::string_view::npos)
        text.pop_back();
    for (const std::string_view prefix : {"*31#", "#31#"}) {
        if (text.compare(0, prefix.size(), prefix) == 0)
            text.erase(0, prefix.size());
    }
    const std::size_t digits = text.rfind('+', 0) == 0 ? 1 : 0;
    dialled.valid = text.size() > digits && text.size() < sizeof(_TAPI_CALL_SESSION_S::number)
        && text.find_first_not_of("0123456789*#ABCabc", digits) == std::string::npos;
    dialled.number = std::move(text);
    return dialled;
}

Answer dial(Modem &modem, Session &, const Command &command)
{
    const DialString dialled = readDialString(command.text(0));
    if (!dialled.valid)
        return Answer::error(Cme::IncorrectParameters);
    if (!dialled.voice)
        return Answer::noCarrier();
    const bool reachable = isEmergency(dialled.number) ? modem.power == Power::On : modem.isRegistered();
    if (!reachable)
        return Answer::error(Cme::NoNetworkService);
    const bool occupied = has(modem, TAPI_CALL_STATE_DIALLING) || has(modem, TAPI_CALL_STATE_RINGING)
        || (has(modem, TAPI_CALL_STATE_ACTIVE) && has(modem, TAPI_CALL_STATE_HELD));
    unsigned char callId = 0;
    if (occupied || Simulator::dial(modem.phone.calls, dialled.number.c_str(), &callId) != TAPI_RESULT_SUCC)
        return Answer::error(Cme::OperationNotAllowed);
    modem.callDetails[callId] = {};
    modem.callDetails[callId].serial = modem.nextSerial();
    remindOfForwarding(modem);
    followDialledCall(modem, callId);
    return Answer::ok();
}

Answer answer(Modem &modem, Session &, const Command &)
{
    const _TAPI_CALL_SESSION_S *const ringing = firstIn(modem, TAPI_CALL_STATE_RINGING);
    if (!ringing)
        return Answer::noCarrier();
    return result(Simulator::answerCall(modem.phone.calls, ringing->callId, false));
}

/** Ends what is heard or dialled, or else what comes in; held and waiting calls stay. */
Answer hangUp(Modem &modem, Session &, const Command &)
{
    if (has(modem, TAPI_CALL_STATE_ACTIVE) || has(modem, TAPI_CALL_STATE_DIALLING))
        release(modem, {TAPI_CALL_STATE_ACTIVE, TAPI_CALL_STATE_DIALLING});
    else
        release(modem, {TAPI_CALL_STATE_RINGING});
    return Answer::ok();
}

Answer list(Modem &modem, Session &, const Command &)
{
    Answer answer;
    for (unsigned int position = 0; position < table(modem).count; ++position) {
        const _TAPI_CALL_SESSION_S &call = table(modem).sessions[position];
        const auto details = modem.callDetails.find(call.callId);
        const bool withheld = details != modem.callDetails.end() && details->second.withheld;
        std::string line = "+CLCC: " + std::to_string(call.callId) + ',' + std::to_string(call.incoming) + ','
            + std::to_string(listedState(modem, call)) + ",0," + std::to_string(call.joined);
        if (!withheld)
            line += ",\"" + std::string(call.number) + "\","
                + std::to_string(call.number[0] == '+' ? internationalNumber : otherNumber);
        answer.lines.push_back(std::move(line));
    }
    return answer;
}

/** Accepts the waiting call, else the held ones. */
void acceptOther(Modem &modem)
{
    if (const _TAPI_CALL_SESSION_S *const ringing = firstIn(modem, TAPI_CALL_STATE_RINGING))
        Simulator::answerCall(modem.phone.calls, ringing->callId, false);
    else
        change(modem, TAPI_CALL_STATE_HELD, TAPI_CALL_STATE_ACTIVE);
}

/** Active calls on hold; then the waiting call, or the held ones, instead. */
void swap(Modem &modem)
{
    if (has(modem, TAPI_CALL_STATE_RINGING)) {
        acceptOther(modem);
        return;
    }
    for (unsigned int position = 0; position < table(modem).count; ++position) {
        _TAPI_CALL_SESSION_S &call = table(modem).sessions[position];
        if (call.state == TAPI_CALL_STATE_ACTIVE)
            call.state = TAPI_CALL_STATE_HELD;
        else if (call.state == TAPI_CALL_STATE_HELD)
            call.state = TAPI_CALL_STATE_ACTIVE;
    }
}

Answer join(Modem &modem)
{
    if (!has(modem, TAPI_CALL_STATE_ACTIVE) || !has(modem, TAPI_CALL_STATE_HELD))
        return Answer::error(Cme::OperationNotAllowed);
    for (unsigned int position = 0; position < table(modem).count; ++position) {
        _TAPI_CALL_SESSION_S &call = table(modem).sessions[position];
        if (call.state == TAPI_CALL_STATE_ACTIVE || call.state == TAPI_CALL_STATE_HELD) {
            call.state = TAPI_CALL_STATE_ACTIVE;
            call.joined = 1;
        }
    }
    return Answer::ok();
}

/** Connects the other sides with each other. */
Answer transfer(Modem &modem)
{
    if (!has(modem, TAPI_CALL_STATE_HELD)
        || !(has(modem, TAPI_CALL_STATE_ACTIVE) || has(modem, TAPI_CALL_STATE_DIALLING)))
        return Answer::error(Cme::OperationNotAllowed);
    release(modem, {TAPI_CALL_STATE_ACTIVE, TAPI_CALL_STATE_HELD, TAPI_CALL_STATE_DIALLING});
    return Answer::ok();
}

/** A private word with one call of a conference, or with one of two calls. */
Answer talkPrivately(Modem &modem, unsigned char callId)
{
    const _TAPI_CALL_SESSION_S *const call = Simulator::findCall(modem.phone.calls, callId);
    if (!call || has(modem, TAPI_CALL_STATE_RINGING))
        return Answer::error(Cme::OperationNotAllowed);
    if (call->joined == 1) {
        // The held side has room for one call or conference only.
        if (has(modem, TAPI_CALL_STATE_HELD) && call->state == TAPI_CALL_STATE_ACTIVE)
            return Answer::error(Cme::OperationNotAllowed);
        return result(Simulator::splitCall(modem.phone.calls, callId));
    }
    if (call->state == TAPI_CALL_STATE_ACTIVE)
        return Answer::ok();
    return result(Simulator::retrieveCall(modem.phone.calls, callId));
}

/** A conference of one is an ordinary call. */
void dissolveConference(Modem &modem)
{
    unsigned int joined = 0;
    for (unsigned int position = 0; position < table(modem).count; ++position)
        joined += table(modem).sessions[position].joined;
    for (unsigned int position = 0; position < table(modem).count && joined == 1; ++position)
        table(modem).sessions[position].joined = 0;
}

Answer holdCommand(Modem &modem, const std::string &operation)
{
    constexpr int indexedRelease = 1;
    constexpr int indexedPrivate = 2;
    if (operation.size() == 2 && operation[1] >= '1' && operation[1] <= '9') {
        const auto callId = static_cast<unsigned char>(operation[1] - '0');
        switch (operation[0] - '0') {
        case indexedRelease:
            return result(Simulator::dropCalls(modem.phone.calls, callId, TAPI_VOICE_DROP_ONE));
        case indexedPrivate:
            return talkPrivately(modem, callId);
        default:
            return Answer::error(Cme::IncorrectParameters);
        }
    }
    if (operation.size() != 1)
        return Answer::error(Cme::IncorrectParameters);
    switch (operation[0]) {
    case '0':
        if (has(modem, TAPI_CALL_STATE_RINGING))
            release(modem, {TAPI_CALL_STATE_RINGING});
        else
            release(modem, {TAPI_CALL_STATE_HELD});
        return Answer::ok();
    case '1':
        release(modem, {TAPI_CALL_STATE_ACTIVE});
        acceptOther(modem);
        return Answer::ok();
    case '2':
        swap(modem);
        return Answer::ok();
    case '3':
        return join(modem);
    case '4':
        return transfer(modem);
    default:
        return Answer::error(Cme::IncorrectParameters);
    }
}

Answer hold(Modem &modem, Session &, const Command &command)
{
    if (command.form != Form::Set)
        return Answer::error(Cme::IncorrectParameters);
    if (table(modem).count == 0)
        return Answer::error(Cme::OperationNotAllowed);
    const Answer answer = holdCommand(modem, command.text(0));
    dissolveConference(modem);
    return answer;
}

/** The other side is sent to another number before the call is answered. */
Answer deflect(Modem &modem, Session &, const Command &command)
{
    const _TAPI_CALL_SESSION_S *const ringing = firstIn(modem, TAPI_CALL_STATE_RINGING);
    if (command.form != Form::Set || command.text(0).empty() || !ringing)
        return Answer::error(Cme::OperationNotAllowed);
    return result(Simulator::rejectCall(modem.phone.calls, ringing->callId));
}

Answer sendTones(Modem &modem, Session &, const Command &command)
{
    constexpr std::string_view keys = "0123456789*#ABCD";
    if (command.form != Form::Set || !command.has(0))
        return Answer::error(Cme::IncorrectParameters);
    if (!has(modem, TAPI_CALL_STATE_ACTIVE))
        return Answer::error(Cme::OperationNotAllowed);
    for (const Parameter &parameter : command.parameters) {
        if (parameter.text.size() != 1 || keys.find(parameter.text[0]) == std::string_view::npos)
            return Answer::error(Cme::IncorrectParameters);
    }
    for (const Parameter &parameter : command.parameters)
        Simulator::sendTone(modem.phone.calls, parameter.text[0]);
    return Answer::ok();
}

Answer toneLength(Modem &modem, Session &, const Command &command)
{
    if (command.form == Form::Read)
        return Answer::line("+VTD: " + std::to_string(modem.phone.services.dtmfType));
    const auto length = command.number(0);
    constexpr int longest = 255;
    if (command.form != Form::Set || !length || *length > longest)
        return Answer::error(Cme::IncorrectParameters);
    modem.phone.services.dtmfType = static_cast<unsigned char>(*length);
    return Answer::ok();
}

constexpr std::array<CommandEntry, 9> commands = {{
    {"D", Needs::Nothing, "", dial},
    {"A", Needs::Ready, "", answer},
    {"H", Needs::Nothing, "", hangUp},
    {"+CHUP", Needs::Nothing, "", hangUp},
    {"+CLCC", Needs::Nothing, "", list},
    {"+CHLD", Needs::Nothing, "(0,1,1x,2,2x,3,4)", hold},
    {"+CTFR", Needs::Network, "", deflect},
    {"+VTS", Needs::Nothing, "(0-9,*,#,A,B,C,D)", sendTones},
    {"+VTD", Needs::Nothing, "(0-255)", toneLength},
}};

} // namespace

std::span<const CommandEntry> callCommands()
{
    return commands;
}

} // namespace AtModem
