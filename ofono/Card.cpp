// The card.
#include "Card.h"
#include "Interfaces.h"
#include "Text.h"

#include <algorithm>
#include <array>
#include <atomic>

namespace Ofono::Card {

namespace {

struct Kind {
    std::string_view name;
    const char *puk;       ///< what is asked for when this is blocked; null when nothing is
    std::uint8_t allTries; ///< what a card gives
    /** Set while the daemon may not have noticed that an accepted PIN has all its tries again: what it tells then. */
    std::atomic<int> outdated = -1;
};

std::array<Kind, 4> kinds = {
    {{"pin", "puk", 3}, {"pin2", "puk2", 3}, {"puk", nullptr, 10}, {"puk2", nullptr, 10}}};

Kind &kindOf(std::string_view name)
{
    return *std::find_if(kinds.begin(), kinds.end() - 1,
                         [name](const Kind &kind) { return kind.name == name; });
}

/** The daemon takes about two seconds to ask for the counters. */
std::chrono::milliseconds counterTime()
{
    return 2 * Daemon::lengthOf(Deadline::AtHand);
}

bool isIdentified(const Properties &card)
{
    return card.text("SubscriberIdentity").has_value();
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

Before before(const Properties &card, const char *name)
{
    Kind &kind = kindOf(name);
    const auto told = card.byteOf("Retries", name);
    if (told && *told != kind.outdated)
        kind.outdated = -1;
    return {name, told, told && kind.outdated != -1 ? kind.allTries : told, isIdentified(card)};
}

bool isBlocked(const Properties &card, const char *name)
{
    const char *const puk = kindOf(name).puk;
    return card.byteOf("Retries", name).value_or(1) == 0
        || (puk && card.text("PinRequired").value_or("") == puk);
}

_TAPI_RESULT_E outcomeOf(_TAPI_RESULT_E result, const Before &before)
{
    Kind &kind = kindOf(before.kind);
    if (result == TAPI_RESULT_SUCC && before.told && *before.told < kind.allTries)
        kind.outdated = *before.told;
    if (result != TAPI_RESULT_FAIL)
        return result;
    bool blocked = false;
    bool asksAnew = false;
    std::optional<std::uint8_t> left = before.told;
    Daemon::waitUntil(
        [&] {
            Properties card;
            if (read(card) != TAPI_RESULT_SUCC)
                return false;
            left = card.byteOf("Retries", before.kind);
            blocked = isBlocked(card, before.kind);
            asksAnew = before.identified && !isIdentified(card);
            // All tries are what an earlier success has brought back, however late; a refusal leaves fewer.
            return blocked || asksAnew || (left && left != before.told && *left < kind.allTries);
        },
        counterTime());
    if (asksAnew) // the daemon reads the card again, and may enter a PIN that it remembers
        Daemon::waitUntil(
            [] {
                Properties card;
                return read(card) == TAPI_RESULT_SUCC && isIdentified(card);
            },
            Daemon::lengthOf(Deadline::AtHand));
    if (blocked)
        return TAPI_RESULT_PIN_REJECTED_FINAL;
    // More than was told means that what was told was old, and still one has been lost of what there really was.
    const bool counted = left && (left < before.left || (left > before.told && *left < kind.allTries));
    return counted || asksAnew ? TAPI_RESULT_PIN_REJECTED : TAPI_RESULT_FAIL;
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
