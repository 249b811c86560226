// What happens to the phone.
#include "Environment.h"

#include "Calls.h"
#include "Forwarding.h"
#include "Networks.h"

#include <algorithm>
#include <array>

namespace AtModem {

namespace {

constexpr Agenda::Duration ringInterval{2000};
constexpr Agenda::Duration alertingTime{200};
constexpr Agenda::Duration cardTime{100};
constexpr int internationalNumber = 145;
constexpr int otherNumber = 129;
constexpr int voice = 1;

_TAPI_CALL_SESSION_S *find(Modem &modem, unsigned char callId)
{
    return Simulator::findCall(modem.phone.calls, callId);
}

/** Whether a call waits beside another one. */
bool isWaiting(const Modem &modem, unsigned char callId)
{
    const _TAPI_CALL_SESSION_TABLE_S &table = modem.phone.calls.table;
    return std::any_of(table.sessions, table.sessions + table.count,
                       [callId](const _TAPI_CALL_SESSION_S &other) { return other.callId != callId; });
}

std::string quoted(const std::string &number)
{
    return '"' + number + "\","
        + std::to_string(number.rfind('+', 0) == 0 ? internationalNumber : otherNumber);
}

/** Tells of an incoming call until it is answered or gone. */
void announceCall(Modem &modem, unsigned char callId, unsigned int serial)
{
    const _TAPI_CALL_SESSION_S *const call = find(modem, callId);
    if (!call || call->state != TAPI_CALL_STATE_RINGING || modem.callDetails[callId].serial != serial)
        return;
    const bool withheld = modem.callDetails[callId].withheld;
    const std::string number = quoted(withheld ? std::string() : call->number);
    if (isWaiting(modem, callId)) {
        if (!std::exchange(modem.callDetails[callId].toldWaiting, true))
            modem.tell("+CCWA: " + number + ',' + std::to_string(voice), &Preferences::callWaiting);
    } else {
        modem.tell("RING", [](const Preferences &wanted) { return !wanted.extendedRing; });
        modem.tell("+CRING: VOICE", &Preferences::extendedRing);
        modem.tell("+CLIP: " + number + ",,,," + (withheld ? '1' : '0'), &Preferences::callerId);
    }
    modem.agenda().after(ringInterval, [&modem, callId, serial] { announceCall(modem, callId, serial); });
}

const Forwarding *forwarding(const Modem &modem, _TAPI_CS_DIVERT_WHEN_E when)
{
    return Simulator::activeForwarding(modem.phone.services, Simulator::voiceClass, when);
}

/** Where a call goes that the phone does not take. */
IncomingCall goesOn(const Forwarding *forwarding, IncomingCall::Outcome otherwise)
{
    if (forwarding)
        return {IncomingCall::Outcome::Forwarded, 0, forwarding->number};
    return {otherwise, 0, {}};
}

/** A call that nobody answers in time goes where it is forwarded to. */
void forwardLater(Modem &modem, unsigned char callId)
{
    const Forwarding *const onNoReply = forwarding(modem, TAPI_CS_DIVERT_NO_REPLY);
    if (!onNoReply)
        return;
    constexpr unsigned char longestTime = 30; // seconds
    const unsigned char time = std::min(onNoReply->noReplyTimer, longestTime);
    modem.agenda().after(
        std::chrono::seconds(time), [&modem, callId, serial = modem.callDetails[callId].serial] {
            const _TAPI_CALL_SESSION_S *const call = find(modem, callId);
            if (call && call->state == TAPI_CALL_STATE_RINGING && modem.callDetails[callId].serial == serial)
                remoteHangsUp(modem, callId);
        });
}

} // namespace

IncomingCall ring(Modem &modem, const std::string &number, bool withheld, bool wasForwarded)
{
    using Outcome = IncomingCall::Outcome;
    if (const Forwarding *const all = forwarding(modem, TAPI_CS_DIVERT_UNCONDITIONAL))
        return {Outcome::Forwarded, 0, all->number};
    if (!modem.isRegistered())
        return goesOn(forwarding(modem, TAPI_CS_DIVERT_NOT_REACHABLE), Outcome::NotReachable);
    const unsigned int calls = modem.phone.calls.table.count;
    const bool busy =
        calls > 0 && (modem.phone.services.callWaiting == 0 || Simulator::isRinging(modem.phone.calls));
    if (busy)
        return goesOn(forwarding(modem, TAPI_CS_DIVERT_BUSY), Outcome::Busy);
    const unsigned char callId = Simulator::ring(modem.phone.calls, number);
    if (callId == 0)
        return goesOn(forwarding(modem, TAPI_CS_DIVERT_BUSY), Outcome::Busy);
    modem.callDetails[callId] = {modem.nextSerial(), false, withheld, false};
    announceCall(modem, callId, modem.callDetails[callId].serial);
    if (wasForwarded)
        modem.tell("+CSSU: 0", &Preferences::incomingNotifications);
    forwardLater(modem, callId);
    return {Outcome::Rings, callId, {}};
}

bool remoteAnswers(Modem &modem, unsigned char callId)
{
    if (!Simulator::remoteAnswers(modem.phone.calls, callId))
        return false;
    startCharging(modem, callId);
    return true;
}

bool remoteHangsUp(Modem &modem, unsigned char callId)
{
    if (!Simulator::remoteHangsUp(modem.phone.calls, callId))
        return false;
    forgetEndedCalls(modem);
    modem.tell("NO CARRIER");
    return true;
}

bool remoteActs(Modem &modem, unsigned char callId, std::string_view act)
{
    struct RemoteAct {
        std::string_view name;
        _TAPI_CALL_STATE_E state; ///< in which it can happen
        const char *line;
        bool Preferences::*wanted;
    };
    static constexpr std::array<RemoteAct, 6> acts = {{
        {"hold", TAPI_CALL_STATE_ACTIVE, "+CSSU: 2", &Preferences::incomingNotifications},
        {"resume", TAPI_CALL_STATE_ACTIVE, "+CSSU: 3", &Preferences::incomingNotifications},
        {"join", TAPI_CALL_STATE_ACTIVE, "+CSSU: 4", &Preferences::incomingNotifications},
        {"forward", TAPI_CALL_STATE_DIALLING, "+CSSI: 2", &Preferences::outgoingNotifications},
        {"wait", TAPI_CALL_STATE_DIALLING, "+CSSI: 3", &Preferences::outgoingNotifications},
        {"bar", TAPI_CALL_STATE_DIALLING, "+CSSI: 6", &Preferences::outgoingNotifications},
    }};
    const _TAPI_CALL_SESSION_S *const call = find(modem, callId);
    const auto found =
        std::find_if(acts.begin(), acts.end(), [act](const RemoteAct &one) { return one.name == act; });
    if (!call || found == acts.end() || call->state != found->state)
        return false;
    modem.tell(found->line, found->wanted);
    return true;
}

bool setInRange(Modem &modem, const std::string &networkId, bool inRange)
{
    auto &networks = modem.phone.network.networks;
    const auto network = std::find_if(networks.begin(), networks.end(),
                                      [&](const Network &one) { return one.id == networkId; });
    if (network == networks.end())
        return false;
    const bool wasRegistered = modem.isRegistered();
    network->inRange = inRange;
    if (wasRegistered && !modem.isRegistered() && modem.phone.calls.table.count > 0) {
        modem.phone.calls.table = {};
        forgetEndedCalls(modem);
        modem.tell("NO CARRIER");
    }
    modem.updateRegistration();
    return true;
}

void setCardInserted(Modem &modem, bool inserted)
{
    if (modem.cardInserted == inserted)
        return;
    modem.cardInserted = inserted;
    modem.resetCard();
    if (!inserted) {
        modem.phone.calls.table = {};
        forgetEndedCalls(modem);
    }
    if (modem.power != Power::Off)
        modem.tell(inserted ? "+USIMSTATE: 1" : "+USIMSTATE: 0");
    modem.updateRegistration();
}

void takeCard(Modem &modem, unsigned int number)
{
    if (modem.cardInserted || modem.cardNumber == number)
        return;
    modem.pulledCards[modem.cardNumber] = {modem.phone.sim, modem.charge};
    const auto known = modem.pulledCards.find(number);
    const Card card = known == modem.pulledCards.end() ? newCard(number) : known->second;
    modem.phone.sim = card.sim;
    modem.charge = card.charge;
    modem.cardNumber = number;
}

void powerCard(Modem &modem)
{
    modem.resetCard();
    modem.agenda().after(cardTime, [&modem] {
        if (modem.isCardPowered())
            modem.tell("+USIMSTATE: 1");
    });
}

void announceCard(Modem &modem)
{
    modem.agenda().after(cardTime, [&modem] {
        if (!modem.isCardReady())
            return;
        modem.tell("+USIMSTATE: 0");
        modem.agenda().after(cardTime, [&modem] {
            if (modem.isCardPowered())
                modem.tell("+USIMSTATE: 1");
        });
    });
}

void notify(Modem &modem, const std::string &text)
{
    modem.tell("+CUSD: 0,\"" + text + "\",15", &Preferences::serviceData);
}

void remindOfForwarding(Modem &modem)
{
    if (forwarding(modem, TAPI_CS_DIVERT_UNCONDITIONAL))
        modem.tell("+CSSI: 0", &Preferences::outgoingNotifications);
    else if (forwarding(modem, TAPI_CS_DIVERT_BUSY) || forwarding(modem, TAPI_CS_DIVERT_NO_REPLY)
             || forwarding(modem, TAPI_CS_DIVERT_NOT_REACHABLE))
        modem.tell("+CSSI: 1", &Preferences::outgoingNotifications);
}

void followDialledCall(Modem &modem, unsigned char callId)
{
    const auto stillDialled = [&modem, callId, serial = modem.callDetails[callId].serial] {
        const _TAPI_CALL_SESSION_S *const call = find(modem, callId);
        return call && call->state == TAPI_CALL_STATE_DIALLING && modem.callDetails[callId].serial == serial;
    };
    modem.agenda().after(alertingTime, [&modem, callId, stillDialled] {
        if (stillDialled())
            modem.callDetails[callId].alerting = true;
    });
    if (modem.answerAfter == 0)
        return;
    modem.agenda().after(alertingTime + std::chrono::milliseconds(modem.answerAfter),
                         [&modem, callId, stillDialled] {
                             if (stillDialled())
                                 remoteAnswers(modem, callId);
                         });
}

int listedState(const Modem &modem, const _TAPI_CALL_SESSION_S &call)
{
    enum State { Active, Held, Dialling, Alerting, Incoming, Waiting };
    const auto details = modem.callDetails.find(call.callId);
    switch (call.state) {
    case TAPI_CALL_STATE_HELD:
        return Held;
    case TAPI_CALL_STATE_DIALLING:
        return details != modem.callDetails.end() && details->second.alerting ? Alerting : Dialling;
    case TAPI_CALL_STATE_RINGING:
        return isWaiting(modem, call.callId) ? Waiting : Incoming;
    default:
        return Active;
    }
}

void forgetEndedCalls(Modem &modem)
{
    for (auto details = modem.callDetails.begin(); details != modem.callDetails.end();) {
        if (find(modem, details->first))
            ++details;
        else
            details = modem.callDetails.erase(details);
    }
}

} // namespace AtModem
