// The simulated phone's state in words, a subject a line.
#include "Facts.h"

#include "Calls.h"

#include <algorithm>

namespace Simulator {

namespace {

std::string number(long long value)
{
    return std::to_string(value);
}

template <std::size_t Count>
std::string word(const std::array<const char *, Count> &words, std::size_t value)
{
    return value < Count ? words[value] : number(static_cast<long long>(value));
}

std::string onOff(bool on)
{
    return on ? "on" : "off";
}

std::string tries(int count)
{
    return number(count) + (count == 1 ? " try left" : " tries left");
}

/** What a user who forgot it needs to know of a PIN; never the PIN. */
std::string pinFact(const Pin &pin)
{
    const std::string puk = "PUK: " + tries(pin.pukTriesLeft);
    if (pin.pukTriesLeft == 0)
        return "blocked for good, " + puk;
    if (pin.triesLeft == 0)
        return "blocked, " + puk;
    return (pin.verified ? "verified, " : "not verified, ") + tries(pin.triesLeft) + " (" + puk + ")";
}

std::string callFact(const _TAPI_CALL_SESSION_S &call)
{
    constexpr std::array states = {"idle", "dialling", "ringing", "active", "held"};
    std::string text = call.number;
    text += ' ';
    text += word(states, call.state);
    if (call.incoming == 1)
        text += ", came in";
    if (call.joined == 1)
        text += ", joined";
    return text;
}

std::string forwardingFact(const Forwarding &forwarding)
{
    std::string text = "to " + forwarding.number;
    if (forwarding.noReplyTimer != 0 && forwarding.noReplyTimer != 255)
        text += " after " + number(forwarding.noReplyTimer) + " s";
    return text;
}

std::string forwardingSubject(const ForwardingKey &key)
{
    constexpr std::array conditions = {"always", "when busy", "on no reply", "when not reachable"};
    const auto &[line, serviceClass, condition] = key;
    const char *const service = serviceClass == 1 ? "voice" : serviceClass == 2 ? "data" : "fax";
    return "forwarding of line " + number(line + 1) + ", " + service + ' ' + word(conditions, condition);
}

std::string answerFact(const ScriptedAnswer &answer)
{
    std::string text = "answers " + number(answer.result);
    if (answer.error == ENOSPC)
        text += ", disk full";
    if (answer.times > 0)
        text += ", " + number(answer.times) + (answer.times == 1 ? " time" : " times");
    return text;
}

} // namespace

std::vector<SimulatedPhoneControl::Fact> facts(const SimulatedPhone &phone)
{
    const PhoneState &state = phone.state();
    const SharedState &shared = state.shared;
    std::vector<SimulatedPhoneControl::Fact> facts;
    const auto add = [&facts](std::string subject, std::string text) {
        facts.push_back({std::move(subject), std::move(text)});
    };

    add("link", phone.linkDescriptor() < 0 ? "down" : "up");
    add("line",
        number(state.services.line + 1) + (state.services.lineLock == 1 ? ", locked" : ", not locked"));

    add("SIM", shared.simPinBattery == 1 ? "not to be asked" : "may be asked");
    add("PIN1", pinFact(state.sim.pin1) + (state.sim.pin1Request == 1 ? "" : ", not asked for"));
    add("PIN2", pinFact(state.sim.pin2));
    add("UPIN", pinFact(state.sim.upin));

    for (unsigned int call = 0; call < state.calls.table.count; ++call)
        add("call " + number(state.calls.table.sessions[call].callId),
            callFact(state.calls.table.sessions[call]));
    for (const PushToTalkCall &call : state.calls.pushToTalkCalls) {
        if (call.callId != 0)
            add("push-to-talk call " + number(call.callId), call.active ? "active" : "held");
    }
    add("push-to-talk service", state.calls.pushToTalkAccepts ? "accepts" : "refuses");
    add("microphone", state.calls.muted ? "muted" : "open");

    add("call waiting", onOff(state.services.callWaiting == 1));
    add("fixed dialling", onOff(state.services.fixedDialing == 1));
    for (const auto &[key, forwarding] : state.services.forwardings) {
        if (forwarding.active)
            add(forwardingSubject(key), forwardingFact(forwarding));
    }
    add("network", state.network.registeredId.empty() ? "none" : state.network.registeredId);
    add("preferred networks", number(static_cast<long long>(state.network.preferred.size())));

    // What other programs read of the shared state; negative and 0 mean that nothing is known.
    constexpr std::array pinStates = {"rejected", "rejected for good", "accepted"};
    constexpr std::array restrictions = {"network", "invoke", "suppress"};
    constexpr std::array forwardedLines = {"none", "line 1", "line 2", "both lines"};
    add("shared incoming call", shared.incomingCall != 0 || isRinging(state.calls) ? "yes" : "no");
    add("shared line", number(shared.phoneLine + 1));
    add("shared forwarding indicator", word(forwardedLines, static_cast<std::size_t>(shared.cphsForwarding)));
    add("shared PIN outcome",
        shared.pinStatus < 5 ? "none" : word(pinStates, static_cast<std::size_t>(shared.pinStatus - 5)));
    add("shared card",
        shared.cardType == 1 ? "USIM, application " + number(shared.activeAccount)
                             : "without USIM applications");
    add("shared charge type", shared.chargeType < 0 ? "not known" : number(shared.chargeType));
    const auto restriction = [&](int id) { return word(restrictions, static_cast<std::size_t>(id)); };
    add("shared caller id",
        restriction(shared.restrictId) + ", next call "
            + (shared.restrictNextId == 0 ? "not known" : restriction(shared.restrictNextId)));
    add("shared hyphenation", number(shared.dialHyphenation));

    for (const unsigned short feature : phone.product().missingFeatures)
        add("missing feature", number(feature));
    add("language", number(phone.language()));
    for (const auto &[function, answer] : phone.scripts())
        add(function, answerFact(answer));
    for (const auto &[function, delay] : phone.delays())
        add(function, "answers " + number(delay.count()) + " ms later");
    return facts;
}

} // namespace Simulator
