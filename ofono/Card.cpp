// The card.
#include "Card.h"
#include "Interfaces.h"
#include "Presence.h"
#include "SharedAnswers.h"
#include "Text.h"

#include "SharedState.h"

#include <algorithm>
#include <array>
#include <atomic>

namespace Ofono::Card {

namespace {

struct Kind {
    std::string_view name;
    const char *puk;       ///< what is asked for when this is blocked; null when nothing is
    std::uint8_t allTries; ///< what a card gives
};

constexpr std::array<Kind, 4> kinds = {{
    {pinKinds[0].pin, pinKinds[0].puk, 3},
    {pinKinds[1].pin, pinKinds[1].puk, 3},
    {pinKinds[0].puk, nullptr, 10},
    {pinKinds[1].puk, nullptr, 10},
}};

std::size_t indexOf(std::string_view name)
{
    const auto *const found =
        std::find_if(kinds.begin(), kinds.end() - 1, [name](const Kind &kind) { return kind.name == name; });
    return static_cast<std::size_t>(found - kinds.begin());
}

constexpr std::uint64_t triesMask = 0xFF;

/** The same in all programs, whatever they were built with (FNV-1a). 0 for no card. */
std::uint64_t keyOf(std::string_view card)
{
    if (card.empty())
        return 0;
    std::uint64_t hash = 0xCBF29CE484222325;
    for (const char character : card)
        hash = (hash ^ static_cast<unsigned char>(character)) * 0x100000001B3;
    return hash & ~triesMask;
}

/** What the daemon tells while it may not have noticed that an accepted PIN has all its tries again. */
std::atomic<std::uint64_t> &outdatedTries(const char *kind)
{
    return Handset::sharedState().outdatedTries[indexOf(kind)];
}

std::uint64_t outdatedTries(std::uint64_t card, std::uint8_t told)
{
    return card | (told + 1U);
}

/** The daemon takes about two seconds to ask for the counters. */
std::chrono::milliseconds counterTime()
{
    return 2 * Daemon::lengthOf(Deadline::AtHand);
}

/** The time after which a card without own numbers is taken for what it seems to be: 10 seconds. */
std::chrono::milliseconds settlingTime()
{
    return 5 * Daemon::lengthOf(Deadline::AtHand);
}

} // namespace

_TAPI_RESULT_E read(Properties &card)
{
    const _TAPI_RESULT_E result = Daemon::instance().properties(simManager, Deadline::AtHand, card);
    if (result != TAPI_RESULT_SUCC)
        return result;
    if (card.flag("Present").value_or(false))
        return TAPI_RESULT_SUCC;
    Daemon::instance().lookAgain(); // it may have been put into another modem
    return TAPI_RESULT_SIM_UNAVAILABLE;
}

_TAPI_RESULT_E read(Properties &card, Stay &stay)
{
    thread_local std::uint64_t lastPresence = 0; // whose answers may be shared
    Presence &presence = Presence::instance();
    const auto readOnce = [&] {
        stay.presence = presence.isListening() ? presence.number() : 0;
        if (stay.presence == 0 || std::exchange(lastPresence, stay.presence) != stay.presence)
            SharedAnswers::forget(); // they may be of an earlier presence
        const _TAPI_RESULT_E result = read(card);
        stay.card = result == TAPI_RESULT_SUCC ? identityOf(card) : std::string();
        return result;
    };
    _TAPI_RESULT_E result = readOnce();
    if (result == TAPI_RESULT_SUCC && stay.presence == 0 && presence.number() != 0)
        result = readOnce(); // what there was before anybody listened may be gone
    stay.modem = Daemon::instance().modem();
    return result;
}

std::string identityOf(const Properties &card)
{
    const auto number = card.text("CardIdentifier");
    return std::string(number ? *number : card.text("SubscriberIdentity").value_or(""));
}

bool isKnown(const Properties &card)
{
    return card.text("SubscriberIdentity").has_value();
}

bool areOwnNumbersKnown(const Properties &card, const Stay &stay)
{
    static std::atomic<std::uint64_t> known = 0;
    static std::atomic<std::uint64_t> seen = 0;
    static std::atomic<std::chrono::steady_clock::time_point> seenAt;
    if (!isKnown(card))
        return false;
    const auto numbers = card.texts("SubscriberNumbers");
    const bool areRead = numbers && (!numbers->empty() || card.text("ServiceProviderName"));
    if (areRead || stay.presence == 0)
        return areRead;
    const auto now = std::chrono::steady_clock::now();
    if (seen != stay.presence) {
        seenAt = now;
        seen = stay.presence;
    } else if (now - seenAt.load() >= settlingTime()) {
        known = stay.presence;
    }
    return known == stay.presence;
}

Before before(const Properties &card, const char *kind)
{
    const std::uint64_t key = keyOf(identityOf(card));
    const auto told = card.byteOf("Retries", kind);
    const bool outdated = told && outdatedTries(kind) == outdatedTries(key, *told);
    return {kind, key, told, outdated ? kinds[indexOf(kind)].allTries : told, isKnown(card)};
}

bool isBlocked(const Properties &card, const char *name)
{
    const char *const puk = kinds[indexOf(name)].puk;
    return card.byteOf("Retries", name).value_or(1) == 0
        || (puk && card.text("PinRequired").value_or("") == puk);
}

_TAPI_RESULT_E outcomeOf(_TAPI_RESULT_E result, const Before &before)
{
    const std::uint8_t allTries = kinds[indexOf(before.kind)].allTries;
    if (result == TAPI_RESULT_SUCC && before.card != 0 && before.told && *before.told < allTries)
        outdatedTries(before.kind) = outdatedTries(before.card, *before.told);
    if (result != TAPI_RESULT_FAIL)
        return result;
    _TAPI_RESULT_E seen = TAPI_RESULT_SUCC;
    bool blocked = false;
    bool asksAnew = false;
    std::optional<std::uint8_t> left = before.told;
    Daemon::waitUntil(
        [&] {
            Properties card;
            seen = read(card);
            if (seen != TAPI_RESULT_SUCC)
                return seen == TAPI_RESULT_SERVICE_DOWN || seen == TAPI_RESULT_LINK_LOST;
            left = card.byteOf("Retries", before.kind);
            blocked = isBlocked(card, before.kind);
            asksAnew = before.known && !isKnown(card);
            // All tries are what an earlier success has brought back, however late; a refusal leaves fewer.
            return blocked || asksAnew || (left && left != before.told && *left < allTries);
        },
        counterTime());
    if (seen != TAPI_RESULT_SUCC)
        return seen;
    if (asksAnew) // the daemon reads the card again, and may enter a PIN that it remembers
        Daemon::waitUntil(
            [] {
                Properties card;
                return read(card) == TAPI_RESULT_SUCC && isKnown(card);
            },
            Daemon::lengthOf(Deadline::AtHand));
    if (blocked)
        return TAPI_RESULT_PIN_REJECTED_FINAL;
    // More than was told means that what was told was old, and still one has been lost of what there really was.
    const bool counted = left && (left < before.left || (left > before.told && *left < allTries));
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
