// Voice calls, and what sounds in them.
#include "Calls.h"
#include "DialledSecret.h"
#include "Interfaces.h"
#include "LateCalls.h"
#include "NextCall.h"
#include "ServiceRequests.h"
#include "Text.h"

#include "TAPI_USSD.h"
#include "TAPI_VOICE.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <thread>

using namespace Ofono;

namespace {

constexpr std::size_t longestNumber = 80;
constexpr std::size_t longestTones = 255;
constexpr std::size_t tonesAtOnce = 3;

/** Longer than a request that found the daemon occupied waits until it tries again. */
constexpr std::chrono::milliseconds pauseBetweenTones(120);

constexpr int stringsInUcs2 = 0x48;

/** What is done when a request has timed out and is carried out later. */
using Afterwards = std::function<void(LeftRequest &)>;

_TAPI_RESULT_E manageCalls(const char *method, std::vector<Argument> arguments = {},
                           Afterwards afterwards = {})
{
    return Daemon::instance().request({voiceCallManager,
                                       method,
                                       std::move(arguments),
                                       Deadline::Network,
                                       {},
                                       false,
                                       std::move(afterwards)});
}

_TAPI_RESULT_E actOn(const Call &call, const char *method, std::vector<Argument> arguments = {},
                     Afterwards afterwards = {})
{
    return Daemon::instance().request({voiceCall, method, std::move(arguments), Deadline::Network,
                                       call.object, false, std::move(afterwards)});
}

/** Acts on the call of that id, with all the calls there are at hand. */
template <typename Action>
_TAPI_RESULT_E withCall(unsigned char callId, Action action)
{
    const OneDeadline deadline;
    Calls calls;
    const _TAPI_RESULT_E result = calls.read(Deadline::Network);
    if (result != TAPI_RESULT_SUCC)
        return result;
    const Call *const call = calls.find(callId);
    return call ? action(calls, *call) : TAPI_RESULT_CALL_INVALID_ID;
}

template <typename Action>
_TAPI_RESULT_E withCalls(unsigned char firstCallId, unsigned char secondCallId, Action action)
{
    return withCall(firstCallId, [&](const Calls &calls, const Call &first) {
        const Call *const second = calls.find(secondCallId);
        return second && second != &first ? action(calls, first, *second) : TAPI_RESULT_CALL_INVALID_ID;
    });
}

/** The calls of a state are one party when they are one call or one conference. */
bool areOneParty(const Calls &calls, _TAPI_CALL_STATE_E state)
{
    return std::all_of(calls.all().begin(), calls.all().end(), [&](const Call &call) {
        return call.state != state || call.joined || calls.count(state) == 1;
    });
}

bool oneActiveOneHeld(const Call &first, const Call &second)
{
    return (first.state == TAPI_CALL_STATE_ACTIVE && second.state == TAPI_CALL_STATE_HELD)
        || (first.state == TAPI_CALL_STATE_HELD && second.state == TAPI_CALL_STATE_ACTIVE);
}

/**
 * Swaps the active and the held party, and waits until the daemon has seen it. With a call that rings the same request
 * would answer that call, and with one that is dialled it is anybody's guess what a network does.
 */
_TAPI_RESULT_E swap(const Calls &calls, const Call &call, _TAPI_CALL_STATE_E wanted)
{
    if (calls.count(TAPI_CALL_STATE_RINGING) != 0 || calls.count(TAPI_CALL_STATE_DIALLING) != 0
        || !areOneParty(calls, TAPI_CALL_STATE_ACTIVE) || !areOneParty(calls, TAPI_CALL_STATE_HELD))
        return TAPI_RESULT_FAIL;
    const _TAPI_RESULT_E result = manageCalls("SwapCalls");
    if (result != TAPI_RESULT_SUCC)
        return result;
    Calls now;
    const bool done = Daemon::waitUntil(
        [&] {
            const Call *const found =
                now.read(Deadline::AtHand) == TAPI_RESULT_SUCC ? now.find(call.id) : nullptr;
            return !found || found->state == wanted;
        },
        Daemon::lengthOf(Deadline::AtHand));
    return done ? TAPI_RESULT_SUCC : TAPI_RESULT_TIMED_OUT;
}

/** Ends the calls that match; the first refusal is the result, after all have been tried. */
template <typename Matches>
_TAPI_RESULT_E hangUp(const Calls &calls, Matches matches)
{
    _TAPI_RESULT_E result = TAPI_RESULT_SUCC;
    for (const Call &call : calls.all()) {
        if (!matches(call))
            continue;
        const _TAPI_RESULT_E ended = actOn(call, "Hangup");
        // A call that has ended by itself is what was asked for.
        if (result == TAPI_RESULT_SUCC && ended != TAPI_RESULT_CALL_INVALID_ID)
            result = ended;
    }
    return result;
}

bool isDialString(std::string_view text)
{
    if (!text.empty() && text.front() == '+')
        text.remove_prefix(1);
    return !text.empty() && text.size() <= longestNumber
        && text.find_first_not_of("0123456789*#") == std::string_view::npos;
}

_TAPI_RESULT_E dial(const unsigned char *dialString, _TAPI_CALL_RESTRICT_ID_E callerId, unsigned char *callId)
{
    std::string number = withoutPunctuation(textOf(dialString, 2 * longestNumber));
    const Wiper wiper(number);
    if (!isDialString(number))
        return TAPI_RESULT_INVALID_PARAM;
    NextCall choice; // put back when the call is refused
    if (callerId == TAPI_CALL_RESTRICT_ID_NETWORK)
        callerId = choice.take();
    const OneDeadline deadline;
    const _TAPI_RESULT_E answers = manageCalls("GetCalls");
    if (answers != TAPI_RESULT_SUCC) // a daemon that stands still would place the call when it goes on
        return answers;
    Answer answer;
    const char *const hide = callerIdNames[callerId];
    const _TAPI_RESULT_E result = Daemon::instance().request({voiceCallManager,
                                                              "Dial",
                                                              {Value(number.c_str()), Value(hide)},
                                                              Deadline::Network,
                                                              {},
                                                              Handset::carriesSecret(number),
                                                              LateCalls::hangUp},
                                                             answer);
    if (result != TAPI_RESULT_SUCC)
        return result;
    choice.use();
    const unsigned char id = callIdOf(answer.path().value_or(""));
    if (id == 0)
        return TAPI_RESULT_FAIL;
    *callId = id;
    return TAPI_RESULT_SUCC;
}

bool isTones(std::string_view text)
{
    return !text.empty() && text.size() <= longestTones
        && text.find_first_not_of("0123456789*#ABCDabcd,") == std::string_view::npos;
}

/** As the daemon takes them: pauses and letters have another form there. */
std::string asDaemonHasThem(std::string_view tones)
{
    std::string translated;
    for (const char tone : tones) {
        const bool isLetter = tone >= 'a' && tone <= 'd';
        translated += tone == ',' ? 'p' : isLetter ? static_cast<char>(tone - 'a' + 'A') : tone;
    }
    return translated;
}

_TAPI_RESULT_E sendTones(const std::string &tones)
{
    return manageCalls("SendTones", {Value(tones.c_str())});
}

/**
 * While tones sound the daemon takes no other request about calls, hanging up included. So they are sent a few at a
 * time, with a pause in which a request that waits gets its turn, and only as long as the call is what it was.
 */
_TAPI_RESULT_E sendTonesInPieces(const Call &call, const std::string &tones)
{
    for (std::size_t position = 0; position < tones.size(); position += tonesAtOnce) {
        if (position > 0) {
            std::this_thread::sleep_for(pauseBetweenTones);
            Calls calls;
            const _TAPI_RESULT_E result = calls.read(Deadline::Network);
            const Call *const now = calls.find(call.id);
            if (result != TAPI_RESULT_SUCC)
                return result;
            if (!now || now->startTime != call.startTime)
                return TAPI_RESULT_CALL_INVALID_ID;
            if (now->state != TAPI_CALL_STATE_ACTIVE)
                return TAPI_RESULT_FAIL;
        }
        const _TAPI_RESULT_E result = sendTones(tones.substr(position, tonesAtOnce));
        if (result != TAPI_RESULT_SUCC)
            return result;
    }
    return TAPI_RESULT_SUCC;
}

/** The text of a service request as UTF-8; empty when it is none. */
std::string serviceString(const _TAPI_USSD_REQ_APP_MSG_S &request)
{
    const std::size_t length = std::min<std::size_t>(request.length, sizeof request.text);
    std::string text;
    text.reserve(length); // a text that grows leaves its beginnings behind
    if (request.dataCodingScheme == stringsInUcs2) {
        for (std::size_t position = 0; position + 1 < length; position += 2) {
            // The daemon takes what can be keyed in.
            text += request.text[position] == 0 ? static_cast<char>(request.text[position + 1]) : '\0';
        }
    } else {
        text = textOf(request.text, length);
    }
    const auto isPlain = [](char character) { return character >= ' ' && character <= '~'; };
    if (!std::all_of(text.begin(), text.end(), isPlain)) {
        explicit_bzero(text.data(), text.size());
        text.clear();
    }
    return text;
}

} // namespace

/**
 * @p option tells how the own number is shown to the other side: 0 as chosen for the next call or else as
 * subscribed, 1 hides it, 2 shows it.
 */
_TAPI_RESULT_E TAPI_VOICE_MakeCall(signed char option, unsigned char *dialString, unsigned char *callId)
{
    if (option < 0 || option >= static_cast<int>(callerIdNames.size()))
        return TAPI_RESULT_INVALID_PARAM;
    return dial(dialString, static_cast<_TAPI_CALL_RESTRICT_ID_E>(option), callId);
}

/** Emergency numbers are known to the daemon. How long to try again is for the phone's dialler. */
_TAPI_RESULT_E TAPI_VOICE_MakeStkCall(unsigned char *dialString, _TAPI_VOICE_DIAL_CALL_TYPE_E, unsigned char,
                                      unsigned int, unsigned char *callId)
{
    return dial(dialString, TAPI_CALL_RESTRICT_ID_NETWORK, callId);
}

_TAPI_RESULT_E TAPI_VOICE_AnswerCall(unsigned char callId, _TAPI_VOICE_ANSWER_CALL_TYPE_E answerType)
{
    return withCall(callId, [answerType](const Calls &, const Call &call) {
        if (!call.isRinging)
            return TAPI_RESULT_FAIL;
        if (!call.waits)
            return actOn(call, "Answer");
        return manageCalls(answerType == TAPI_VOICE_ANSWER_RELEASE_ACTIVE ? "ReleaseAndAnswer"
                                                                          : "HoldAndAnswer");
    });
}

_TAPI_RESULT_E TAPI_VOICE_DropCall(unsigned char callId, _TAPI_VOICE_DROP_CALL_TYPE_E dropType)
{
    return withCall(callId, [dropType](const Calls &calls, const Call &named) {
        switch (dropType) {
        case TAPI_VOICE_DROP_ONE:
            return actOn(named, "Hangup");
        case TAPI_VOICE_DROP_ALL:
            return manageCalls("HangupAll");
        case TAPI_VOICE_DROP_ALL_ACTIVE:
            return hangUp(calls, [](const Call &call) { return call.state == TAPI_CALL_STATE_ACTIVE; });
        case TAPI_VOICE_DROP_ALL_HELD:
            return hangUp(calls, [](const Call &call) { return call.state == TAPI_CALL_STATE_HELD; });
        }
        return TAPI_RESULT_INVALID_PARAM;
    });
}

/** With a held call beside it a swap would also retrieve that one, which nobody asked for. */
_TAPI_RESULT_E TAPI_VOICE_HoldCall(unsigned char callId)
{
    return withCall(callId, [](const Calls &calls, const Call &call) {
        if (call.state != TAPI_CALL_STATE_ACTIVE || calls.count(TAPI_CALL_STATE_HELD) != 0)
            return TAPI_RESULT_FAIL;
        return swap(calls, call, TAPI_CALL_STATE_HELD);
    });
}

/** The active party, if there is one, is held by it. */
_TAPI_RESULT_E TAPI_VOICE_RetrieveCall(unsigned char callId)
{
    return withCall(callId, [](const Calls &calls, const Call &call) {
        return call.state == TAPI_CALL_STATE_HELD ? swap(calls, call, TAPI_CALL_STATE_ACTIVE)
                                                  : TAPI_RESULT_FAIL;
    });
}

_TAPI_RESULT_E TAPI_VOICE_SwitchCall(unsigned char firstCallId, unsigned char secondCallId)
{
    return withCalls(
        firstCallId, secondCallId, [](const Calls &calls, const Call &first, const Call &second) {
            return oneActiveOneHeld(first, second) ? swap(calls, first, second.state) : TAPI_RESULT_FAIL;
        });
}

_TAPI_RESULT_E TAPI_VOICE_CancelCall(unsigned char callId)
{
    return withCall(callId, [](const Calls &, const Call &call) {
        return call.state == TAPI_CALL_STATE_DIALLING ? actOn(call, "Hangup") : TAPI_RESULT_FAIL;
    });
}

/** Connects the two parties with each other and leaves. */
_TAPI_RESULT_E TAPI_VOICE_LinkCall(unsigned char firstCallId, unsigned char secondCallId)
{
    return withCalls(
        firstCallId, secondCallId, [](const Calls &calls, const Call &first, const Call &second) {
            const bool dialledOneHeld =
                (first.state == TAPI_CALL_STATE_DIALLING && second.state == TAPI_CALL_STATE_HELD)
                || (first.state == TAPI_CALL_STATE_HELD && second.state == TAPI_CALL_STATE_DIALLING);
            if (calls.all().size() != 2 || !(dialledOneHeld || oneActiveOneHeld(first, second)))
                return TAPI_RESULT_FAIL;
            return manageCalls("Transfer", {}, LateCalls::tell);
        });
}

/** A call that rings can be sent on. The daemon has no request that would send on one that is answered. */
_TAPI_RESULT_E TAPI_VOICE_TransferCall(unsigned char callId, unsigned char *dialString,
                                       unsigned char *transferId)
{
    const std::string number = withoutPunctuation(textOf(dialString, 2 * longestNumber));
    if (!isDialString(number))
        return TAPI_RESULT_INVALID_PARAM;
    return withCall(callId, [&](const Calls &, const Call &call) {
        if (!call.isRinging)
            return TAPI_RESULT_NOT_SUPPORTED;
        const _TAPI_RESULT_E result = actOn(call, "Deflect", {Value(number.c_str())}, LateCalls::tell);
        if (result == TAPI_RESULT_SUCC)
            *transferId = call.id;
        return result;
    });
}

_TAPI_RESULT_E TAPI_VOICE_JoinCall(unsigned char firstCallId, unsigned char secondCallId)
{
    return withCalls(firstCallId, secondCallId, [](const Calls &, const Call &first, const Call &second) {
        return oneActiveOneHeld(first, second) ? manageCalls("CreateMultiparty") : TAPI_RESULT_FAIL;
    });
}

_TAPI_RESULT_E TAPI_VOICE_SplitCall(unsigned char callId)
{
    return withCall(callId, [](const Calls &, const Call &call) {
        if (!call.joined)
            return TAPI_RESULT_FAIL;
        const std::string path = Daemon::instance().modem() + call.object;
        return manageCalls("PrivateChat", {Value(ObjectPath{path.c_str()})});
    });
}

/** The other side hears the same for both types: the daemon knows one way to refuse a call. */
_TAPI_RESULT_E TAPI_VOICE_RejectCall(unsigned char callId, _TAPI_VOICE_REJECT_CALL_TYPE_E)
{
    return withCall(callId, [](const Calls &, const Call &call) {
        return call.isRinging ? actOn(call, "Hangup") : TAPI_RESULT_FAIL;
    });
}

_TAPI_RESULT_E TAPI_VOICE_MuteCall(unsigned char mute)
{
    return Daemon::instance().setProperty(callVolume, "Muted", mute != 0);
}

/** The daemon sounds a tone for its own time when the key goes down, so there is nothing to do when it goes up. */
_TAPI_RESULT_E TAPI_VOICE_MakeDtmfTone(char key, _TAPI_VOICE_DTMF_KEY_STATUS_E keyStatus)
{
    const std::string tone(1, key);
    if (!isTones(tone) || key == ',')
        return TAPI_RESULT_INVALID_PARAM;
    return keyStatus == TAPI_VOICE_DTMF_KEY_PRESSED ? sendTones(asDaemonHasThem(tone)) : TAPI_RESULT_SUCC;
}

_TAPI_RESULT_E TAPI_VOICE_DTMFStringReq(unsigned char callId, unsigned char *digits)
{
    if (!digits)
        return TAPI_RESULT_INVALID_PARAM;
    const std::string tones(textOf(digits, longestTones + 1));
    if (!isTones(tones))
        return TAPI_RESULT_INVALID_PARAM;
    Calls calls;
    const _TAPI_RESULT_E result = calls.read(Deadline::Network);
    if (result != TAPI_RESULT_SUCC)
        return result;
    const Call *const call = calls.find(callId);
    if (!call)
        return TAPI_RESULT_CALL_INVALID_ID;
    return call->state == TAPI_CALL_STATE_ACTIVE ? sendTonesInPieces(*call, asDaemonHasThem(tones))
                                                 : TAPI_RESULT_FAIL;
}

_TAPI_RESULT_E TAPI_VOICE_MuteBeep()
{
    return TAPI_RESULT_NOT_SUPPORTED;
}

_TAPI_RESULT_E TAPI_CALL_GetAllCallSessions(_TAPI_CALL_SESSION_TABLE_S *table)
{
    Calls calls;
    const _TAPI_RESULT_E result = calls.read(Deadline::AtHand);
    if (result != TAPI_RESULT_SUCC)
        return result;
    _TAPI_CALL_SESSION_TABLE_S filled = {};
    for (const Call &call : calls.all()) {
        if (filled.count == TAPI_CALL_MAX_SESSIONS)
            break;
        _TAPI_CALL_SESSION_S &session = filled.sessions[filled.count++];
        session.callId = call.id;
        session.joined = call.joined ? 1 : 0;
        session.incoming = call.isRinging ? 1 : 0; // the daemon does not tell it of a call that is answered
        session.state = call.state;
        fillLatin1(session.number, call.number);
    }
    *table = filled;
    return TAPI_RESULT_SUCC;
}

/**
 * The network's answer may take as long as the subscriber takes, so it is not waited for. While the network waits for the
 * subscriber, the request is what the subscriber answers.
 */
_TAPI_RESULT_E TAPI_USSD_MakeRequest(_TAPI_USSD_REQ_APP_MSG_S *request)
{
    std::string text = serviceString(*request);
    const Wiper wiper(text);
    if (text.empty())
        return TAPI_RESULT_INVALID_PARAM;
    Properties services;
    const _TAPI_RESULT_E result =
        Daemon::instance().properties(supplementaryServices, Deadline::AtHand, services);
    if (result != TAPI_RESULT_SUCC)
        return result;
    const bool isAsked = services.text("State") == "user-response";
    return ServiceRequests::begin(isAsked ? "Respond" : "Initiate", text.c_str());
}
