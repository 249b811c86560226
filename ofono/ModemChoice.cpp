// Which of the daemon's modems this phone uses.
#include "ModemChoice.h"
#include "Interfaces.h"

#include "Product.h"
#include "SharedState.h"

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <new>
#include <optional>
#include <string_view>
#include <vector>

#include <systemd/sd-bus.h>

namespace Ofono {

namespace {

using std::chrono::steady_clock;

struct Modem {
    std::string path;
    bool powered = false;
    bool tellsOfCard = false;
};

/** A text in a number that is not 0 (FNV-1a). */
std::uint32_t markOf(std::string_view text)
{
    constexpr std::uint32_t basis = 2166136261U;
    constexpr std::uint32_t prime = 16777619U;
    std::uint32_t mark = basis;
    for (const char character : text)
        mark = (mark ^ static_cast<unsigned char>(character)) * prime;
    return mark != 0 ? mark : 1;
}

/** A choice: the mark of the modem's path and that of its card, 0 while the card's number is not known. */
struct Choice {
    std::uint32_t modem = 0;
    std::uint32_t card = 0;

    static Choice of(std::uint64_t whole)
    {
        return {static_cast<std::uint32_t>(whole >> 32U), static_cast<std::uint32_t>(whole)};
    }
    std::uint64_t whole() const { return (std::uint64_t(modem) << 32U) | card; }
};

std::atomic<std::uint64_t> &sharedChoice()
{
    return Handset::sharedState().chosenModem;
}

/** What names the modem whatever programs have chosen. Empty when nothing does. */
std::string named()
{
    const char *const variable = secure_getenv("KVQ_MODEM");
    return variable && *variable ? variable : Handset::Product::instance().modem;
}

bool isPath(const std::string &text)
{
    if (sd_bus_object_path_is_valid(text.c_str()) > 0)
        return true;
    static std::atomic<bool> told = false;
    if (!told.exchange(true))
        std::fprintf(stderr, "telephony: KVQ_MODEM is no path of a modem, such as /ril_0: %s\n",
                     text.c_str());
    return false;
}

/** The modems, those that are powered first; not all when there is no time for it. */
std::vector<Modem> modemsOf(const Answer &answer, ModemChoice::Time end)
{
    std::vector<Modem> modems;
    answer.objects([&modems, end](std::string_view path, const Properties &properties) {
        Modem modem;
        modem.path = path;
        modem.powered = properties.flag("Powered").value_or(false);
        modem.tellsOfCard = modem.powered && properties.has("Interfaces", simManager);
        modems.push_back(std::move(modem));
        return steady_clock::now() < end;
    });
    std::stable_partition(modems.begin(), modems.end(), [](const Modem &modem) { return modem.powered; });
    return modems;
}

/** The mark of the card in a modem: nothing when there is none, 0 while its number is not known. */
std::optional<std::uint32_t> cardIn(const Modem &modem, const ModemChoice::Ask &ask)
{
    Answer answer;
    if (!modem.tellsOfCard || ask(modem.path, simManager, "GetProperties", answer) != TAPI_RESULT_SUCC)
        return std::nullopt;
    const Properties card = answer.properties();
    if (!card.flag("Present").value_or(false))
        return std::nullopt;
    const auto number = card.text("CardIdentifier");
    return number && !number->empty() ? markOf(*number) : 0;
}

} // namespace

_TAPI_RESULT_E ModemChoice::choose(std::string &path, Time end, const Ask &ask)
{
    {
        const std::scoped_lock lock(m_mutex);
        path = m_path;
        if (!path.empty() && (m_choice == 0 || m_choice == sharedChoice()))
            return TAPI_RESULT_SUCC;
    }
    path = named();
    if (path.empty())
        return look(path, end, ask);
    if (!isPath(path))
        return TAPI_RESULT_MODEM_OFFLINE;
    remember(path, 0);
    return TAPI_RESULT_SUCC;
}

/** Finds the chosen modem, or chooses one when no program has done it yet. */
_TAPI_RESULT_E ModemChoice::look(std::string &path, Time end, const Ask &ask)
{
    Answer answer;
    const _TAPI_RESULT_E listed = ask("/", manager, "GetModems", answer);
    if (listed != TAPI_RESULT_SUCC)
        return listed;
    std::vector<Modem> modems = modemsOf(answer, end);
    std::uint64_t now = sharedChoice();
    const Choice chosen = Choice::of(now);
    const auto isChosen = [&chosen](const Modem &modem) { return markOf(modem.path) == chosen.modem; };
    const auto settle = [&](const Modem &modem, std::uint32_t card) {
        path = modem.path;
        const Choice choice = {markOf(modem.path), card != 0 ? card : chosen.card};
        if (choice.whole() != now && !sharedChoice().compare_exchange_strong(now, choice.whole()))
            return false; // another program was faster
        if (card != 0 || choice.card == 0)
            remember(path, choice.whole());
        return true;
    };
    std::stable_partition(modems.begin(), modems.end(), isChosen);
    for (const Modem &modem : modems) {
        if (steady_clock::now() >= end)
            return TAPI_RESULT_TIMED_OUT;
        const auto card = cardIn(modem, ask);
        const bool serves = now == 0 || isChosen(modem) || (card && *card != 0 && *card == chosen.card);
        if (card && serves)
            return settle(modem, *card) ? TAPI_RESULT_SUCC : look(path, end, ask);
    }
    // Without any card: the one that was chosen, or for now the first, such as for an emergency call.
    const bool isThere = !modems.empty() && (now == 0 || isChosen(modems.front()));
    path = isThere ? modems.front().path : std::string();
    return isThere ? TAPI_RESULT_SUCC : TAPI_RESULT_MODEM_OFFLINE;
}

void ModemChoice::remember(const std::string &path, std::uint64_t choice)
{
    const std::scoped_lock lock(m_mutex);
    m_path = path;
    m_choice = choice;
}

void ModemChoice::forget()
{
    const std::scoped_lock lock(m_mutex);
    m_path.clear();
}

void ModemChoice::leaveToParent() noexcept
{
    new (&m_mutex) std::mutex; // another thread of the parent may hold it
    new (&m_path) std::string; // or have been writing here
}

} // namespace Ofono
