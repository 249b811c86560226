// The card: what the daemon knows of it, and what a refused PIN meant.
#pragma once

#include "Daemon.h"

#include <array>
#include <cstdint>
#include <string>

namespace Ofono::Card {

/** A PIN, and what opens it when it is blocked, as the daemon names them. */
struct PinKind {
    const char *pin;
    const char *puk;
};

/** By _TAPI_SECURITY_PIN_TYPE_E; the daemon knows no UPIN. */
constexpr std::array<PinKind, 2> pinKinds = {{{"pin", "puk"}, {"pin2", "puk2"}}};

/** One card in one modem, from when it was put in until it is pulled. */
struct Stay {
    std::uint64_t presence = 0; ///< 0 when nobody would hear that it is pulled
    std::string modem;
    std::string card;

    bool operator==(const Stay &other) const
    {
        return presence != 0 && presence == other.presence && modem == other.modem && card == other.card;
    }
};

/** #TAPI_RESULT_SIM_UNAVAILABLE when there is none. */
_TAPI_RESULT_E read(Properties &card);
/** The same, with the stay that what was read belongs to. */
_TAPI_RESULT_E read(Properties &card, Stay &stay);

/** Tells the card from others: its own number, or the subscriber's. Empty while neither is known. */
std::string identityOf(const Properties &card);

/**
 * Whether the daemon has read the card, which takes it seconds and a PIN. Until then lists are empty and flags false,
 * and mean nothing. It begins anew when the card is put in again, or asks for its PIN anew.
 */
bool isKnown(const Properties &card);

/**
 * Whether an empty list of own numbers means that the card holds none. The daemon reads them some time after what
 * isKnown() goes by, but before the provider's name. A card without a name is given ten seconds from when this
 * process has first seen it.
 */
bool areOwnNumbersKnown(const Properties &card, const Stay &stay);

/** How the card stood before a request with a PIN or PUK, named as the daemon does: "pin", "pin2", "puk", "puk2". */
struct Before {
    const char *kind;
    std::uint64_t card;               ///< its key; 0 while none is known
    std::optional<std::uint8_t> told; ///< tries that are left, as the daemon has it
    std::optional<std::uint8_t> left; ///< tries that are left
    bool known;                       ///< the card had been read
};

Before before(const Properties &card, const char *kind);

/** True while a PUK, or nothing any more, opens what this PIN opens. */
bool isBlocked(const Properties &card, const char *kind);

/**
 * What a request with a PIN came to. The daemon answers every refusal alike and learns what is left of the tries about
 * two seconds later. So a failure becomes "rejected", or "finally rejected" after the last try, only when the
 * counter says so, or the card by asking for its PIN anew; else it stays a failure. When the daemon or the card goes
 * meanwhile, that is the outcome: the try may have counted.
 */
_TAPI_RESULT_E outcomeOf(_TAPI_RESULT_E result, const Before &before);

/** 4 to 8 digits (3GPP TS 31.101). */
bool isPin(std::string_view code);
/** 8 digits. */
bool isPuk(std::string_view code);

} // namespace Ofono::Card
