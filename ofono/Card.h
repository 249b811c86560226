// The card: what the daemon knows of it, and what a refused PIN meant.
#pragma once

#include "Daemon.h"

namespace Ofono::Card {

/** #TAPI_RESULT_SIM_UNAVAILABLE when there is none. */
_TAPI_RESULT_E read(Properties &card);

/** How the card stood before a request with a PIN or PUK, named as the daemon does: "pin", "pin2", "puk", "puk2". */
struct Before {
    const char *kind;
    std::optional<std::uint8_t> told; ///< tries that are left, as the daemon has it
    std::optional<std::uint8_t> left; ///< tries that are left
    bool identified;                  ///< the card had been read
};

Before before(const Properties &card, const char *kind);

/** True while a PUK, or nothing any more, opens what this PIN opens. */
bool isBlocked(const Properties &card, const char *kind);

/**
 * What a request with a PIN came to. The daemon answers every refusal alike and learns what is left of the tries about
 * two seconds later. So a failure becomes "rejected", or "finally rejected" after the last try, only when the
 * counter says so, or the card by asking for its PIN anew; else it stays a failure.
 */
_TAPI_RESULT_E outcomeOf(_TAPI_RESULT_E result, const Before &before);

/** 4 to 8 digits (3GPP TS 31.101). */
bool isPin(std::string_view code);
/** 8 digits. */
bool isPuk(std::string_view code);

} // namespace Ofono::Card
