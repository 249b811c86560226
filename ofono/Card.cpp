// The card.
#include "Card.h"
#include "Interfaces.h"
#include "Text.h"

namespace Ofono::Card {

namespace {

/** The daemon takes about two seconds to ask for the counters. */
constexpr std::chrono::milliseconds counterTime(5000);

const char *pukOf(std::string_view kind)
{
    return kind == "pin" ? "puk" : kind == "pin2" ? "puk2" : nullptr;
}

} // namespace

_TAPI_RESULT_E read(Properties &card)
{
    const _TAPI_RESULT_E result = Daemon::instance().properties(simManager, Deadline::AtHand, card);
    if (result != TAPI_RESULT_SUCC)
        return result;
    if (card.flag("Present").value_or(false))
        return TAPI_RESULT_SUCC;
    Daemon::instance().forgetModem(); // another one may have a card
    return TAPI_RESULT_SIM_UNAVAILABLE;
}

Tries triesOf(const Properties &card, const char *kind)
{
    return {kind, card.byteOf("Retries", kind)};
}

bool isBlocked(const Properties &card, const char *kind)
{
    const char *const puk = pukOf(kind);
    return card.byteOf("Retries", kind).value_or(1) == 0
        || (puk && card.text("PinRequired").value_or("") == puk);
}

_TAPI_RESULT_E outcomeOf(_TAPI_RESULT_E result, const Tries &before)
{
    if (result != TAPI_RESULT_FAIL)
        return result;
    bool final = false;
    const bool counted = Daemon::waitUntil(
        [&] {
            Properties card;
            if (read(card) != TAPI_RESULT_SUCC)
                return false;
            const auto left = card.byteOf("Retries", before.kind);
            final = isBlocked(card, before.kind);
            return final || (left && left != before.left);
        },
        counterTime);
    if (final)
        return TAPI_RESULT_PIN_REJECTED_FINAL;
    return counted ? TAPI_RESULT_PIN_REJECTED : TAPI_RESULT_FAIL;
}

bool isPin(std::string_view code)
{
    return isDigits(code) && code.size() >= 4 && code.size() <= 8;
}

bool isPuk(std::string_view code)
{
    return isDigits(code) && code.size() == 8;
}

} // namespace Ofono::Card
