// What happens to the phone: calls come in and end, networks come and go, the card is pulled.
#pragma once

#include "Modem.h"

#include <string_view>

namespace AtModem {

/** What became of a call that somebody makes to the phone. */
struct IncomingCall {
    enum class Outcome { Rings, Forwarded, Busy, NotReachable };
    Outcome outcome = Outcome::NotReachable;
    unsigned char callId = 0;
    std::string forwardedTo;
};

/**
 * Somebody calls the phone; the network forwards what it was told to forward.
 * @param wasForwarded the caller has called another phone
 */
IncomingCall ring(Modem &modem, const std::string &number, bool withheld, bool wasForwarded = false);

/** @name The other side of a call
 * @{ */
bool remoteAnswers(Modem &modem, unsigned char callId);
bool remoteHangsUp(Modem &modem, unsigned char callId);
/** What the network tells of the other side: "hold" and the like. The modem passes it on and does nothing else. */
bool remoteActs(Modem &modem, unsigned char callId, std::string_view act);
/** @} */

/** False when there is no such network. */
bool setInRange(Modem &modem, const std::string &networkId, bool inRange);

/** The card is pulled or put in. */
void setCardInserted(Modem &modem, bool inserted);

/** While no card is in, another one is taken into the hand. One that was used before is as it was then. */
void takeCard(Modem &modem, unsigned int number);

/** The card gets power: it wants its PIN again, and is announced. */
void powerCard(Modem &modem);

/** The daemon's driver learns of a card that has become ready only by its coming and going. */
void announceCard(Modem &modem);

/** The network sends a text that nobody asked for. */
void notify(Modem &modem, const std::string &text);

/** Tells who dials that calls to this phone are forwarded, if they are. */
void remindOfForwarding(Modem &modem);

/** Follows a call that was dialled until the other side's phone rings. */
void followDialledCall(Modem &modem, unsigned char callId);

/** A call that was dialled is answered: its units are counted from now on. */
void startCharging(Modem &modem, unsigned char callId);

/** The state of a call in +CLCC. */
int listedState(const Modem &modem, const _TAPI_CALL_SESSION_S &call);

/** Forgets what is known of calls that are gone. */
void forgetEndedCalls(Modem &modem);

} // namespace AtModem
