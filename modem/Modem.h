// The modem: the simulated phone's state behind commands, and what it tells without being asked.
#pragma once

#include "Agenda.h"
#include "Answer.h"
#include "AtLine.h"
#include "Session.h"

#include "PhoneState.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace AtModem {

/** What the modem does at the power key. */
enum class Power : int {
    Off = 0,     ///< the card is without power
    On = 1,      ///< everything
    Offline = 4, ///< the radio is off
};

/** What a modem knows of a call beyond the call table. */
struct CallDetails {
    unsigned int serial = 0; ///< tells a call from a later one with the same id
    bool alerting = false;   ///< the other side's phone rings
    bool withheld = false;   ///< the caller does not show its number
    bool toldWaiting = false;
};

/** A dialogue with the network by short texts. */
struct ServiceDialogue {
    bool open = false;
    std::string menu; ///< the texts sent so far
};

/** Amounts as the card counts them: units, of which the price of one is kept beside them. */
struct ChargeMeter {
    unsigned int lastCall = 0;
    unsigned int accumulated = 0;
    unsigned int maximum = 0; ///< 0 for no limit
};

/** A card as it is while it lies on the desk. */
struct Card {
    SimState sim;
    ChargeMeter charge;
};

/** What the modem does to a command because somebody asked for it at the prompt. */
struct Disturbance {
    Agenda::Duration delay = {};
    std::optional<Cme> refusal;
    int refusals = -1; ///< how many more; negative for all
};

/** A card that nobody has used yet, by its number from 1 to 9: they differ in what identifies them. */
Card newCard(unsigned int number);

class Modem {
public:
    Modem();

    /** @name The phone behind the commands
     * @{ */
    PhoneState phone;
    Power power = Power::Off;
    bool cardInserted = true;
    unsigned int cardNumber = 1; ///< which card lies in the modem, or did
    bool silent = false;         ///< hears and says nothing; what it was sent meanwhile waits
    bool registrationDenied = false;
    bool puk2Asked = false;  ///< the last command that needed PIN2 found it blocked
    int signalStrength = 22; ///< 0 to 31
    int microphoneVolume = 50;
    int speakerVolume = 50;
    unsigned int answerAfter = 0; ///< the other side answers after so many milliseconds; 0 when told to
    ChargeMeter charge;
    ServiceDialogue dialogue;
    std::map<unsigned char, CallDetails> callDetails;
    std::map<unsigned int, Card> pulledCards; ///< by their number, as they were when they were pulled
    /** @} */

    /** Everything as new; connections stay. */
    void reset();

    Agenda &agenda() { return m_agenda; }

    std::shared_ptr<Session> connect(Session::Writer writer);

    /** Answers one command. */
    Answer execute(Session &session, const Command &command);

    /** Is run after each answer: what the answer's effect makes the modem tell. */
    void afterAnswer();

    /** @name Tells all connections, or those that want to be told
     * @{ */
    void tell(const std::string &line, const std::function<bool(const Preferences &)> &wanted);
    void tell(const std::string &line, bool Preferences::*wanted);
    void tell(const std::string &line);
    /** @} */

    /** A number that no earlier call had. */
    unsigned int nextSerial() { return ++m_lastSerial; }

    /** @name The card and the network
     * @{ */
    bool isCardPowered() const { return cardInserted && power != Power::Off; }
    bool isPinRequired() const;
    bool isCardReady() const { return isCardPowered() && !isPinRequired(); }
    bool isRegistered() const;
    /** The status of +CREG. */
    int registrationStatus() const;
    /** Tells a changed registration, and registers anew where that is to be tried. */
    void updateRegistration();
    /** The card is powered up: its PINs are asked for again. */
    void resetCard();
    /** Lets the card judge a code. One that is wrong does not undo what a right one has opened before. */
    Answer judge(Pin &pin, const std::function<_TAPI_RESULT_E(Pin &pin)> &check);
    /** @} */

    /** @name Late and refused answers, by the name of the command in capitals
     * @{ */
    std::map<std::string, Disturbance> disturbances;
    Agenda::Duration delayOf(const std::vector<Command> &commands) const;
    /** @} */

    /** Is told of every line; the first argument is < for one from outside. */
    using Log = std::function<void(std::string_view direction, std::string_view line)>;
    void setLog(Log log) { m_log = std::move(log); }
    void log(std::string_view direction, const std::string &line) const;

private:
    Agenda m_agenda;
    std::vector<std::weak_ptr<Session>> m_sessions;
    int m_toldRegistration = 0;
    unsigned int m_lastSerial = 0;
    Log m_log;
};

} // namespace AtModem
