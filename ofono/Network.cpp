// The networks around the phone.
#include "Card.h"
#include "Interfaces.h"
#include "LeftRequest.h"
#include "PhoneSettings.h"
#include "SharedAnswers.h"
#include "Text.h"

#include "TAPI_NETWORK.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <mutex>

#include <pthread.h>

using namespace Ofono;

namespace {

constexpr char speedKey[] = "searchFrequency";

/** More than a search finds anywhere; what a daemon tells beyond is not looked at. */
constexpr std::size_t mostOperators = 250;

struct Operator {
    std::string id; ///< country and network code
    std::string name;
    unsigned short status = 0;
};

unsigned short statusOf(std::string_view text)
{
    static constexpr std::array<std::string_view, 4> statuses = {"unknown", "available", "current",
                                                                 "forbidden"};
    const auto found = std::find(statuses.begin(), statuses.end(), text);
    return found == statuses.end() ? static_cast<unsigned short>(0)
                                   : static_cast<unsigned short>(found - statuses.begin());
}

constexpr unsigned short currentStatus = 2;

bool isNetworkId(std::string_view id)
{
    return isDigits(id) && (id.size() == 5 || id.size() == 6);
}

/** The networks that the daemon knows, by the last search. */
_TAPI_RESULT_E readOperators(std::vector<Operator> &operators)
{
    static constexpr char question[] = "GetOperators";
    const Answer *const shared = SharedAnswers::find(question);
    Answer asked;
    const _TAPI_RESULT_E result =
        shared ? TAPI_RESULT_SUCC : Daemon::instance().request({networkRegistration, question}, asked);
    if (result != TAPI_RESULT_SUCC)
        return result;
    (shared ? *shared : asked).objects([&](std::string_view, const Properties &properties) {
        Operator known;
        known.id = std::string(properties.text("MobileCountryCode").value_or(""))
            + std::string(properties.text("MobileNetworkCode").value_or(""));
        known.name = properties.text("Name").value_or("");
        known.status = statusOf(properties.text("Status").value_or(""));
        if (isNetworkId(known.id))
            operators.push_back(std::move(known));
        return operators.size() < mostOperators;
    });
    if (!shared)
        SharedAnswers::keep(question, std::move(asked));
    return TAPI_RESULT_SUCC;
}

const Operator *find(const std::vector<Operator> &operators, std::string_view id)
{
    const auto found = std::find_if(operators.begin(), operators.end(),
                                    [id](const Operator &known) { return known.id == id; });
    return found == operators.end() ? nullptr : &*found;
}

/** A network id as an application writes it: the codes, with or without a dash between them. */
std::string networkIdOf(const void *field, std::size_t size)
{
    std::string id(textOf(field, size));
    const auto dash = id.find('-');
    if (dash != std::string::npos)
        id.erase(dash, 1);
    return id;
}

/** Accepted is not yet registered: what became of it stands in the operator's status. */
_TAPI_RESULT_E registerWith(const std::string &id)
{
    const OneDeadline deadline;
    const std::string object = "/operator/" + id;
    const _TAPI_RESULT_E result =
        Daemon::instance().request({networkOperator, "Register", {}, Deadline::Network, object});
    if (result != TAPI_RESULT_SUCC)
        return result;
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
        OneDeadline::endOf(Deadline::Network) - std::chrono::steady_clock::now());
    const bool done = Daemon::waitUntil(
        [&] {
            std::vector<Operator> operators;
            if (readOperators(operators) != TAPI_RESULT_SUCC)
                return false;
            const Operator *const asked = find(operators, id);
            return asked && asked->status == currentStatus;
        },
        left);
    return done ? TAPI_RESULT_SUCC : TAPI_RESULT_TIMED_OUT;
}

/** What the daemon knew before the last search that this program has begun. */
class BeforeSearch {
public:
    static BeforeSearch &instance()
    {
        static auto *const before = new BeforeSearch;
        return *before;
    }

    void keep(std::vector<Operator> operators)
    {
        const std::scoped_lock lock(m_mutex);
        m_operators = std::move(operators);
    }

    std::vector<Operator> operators()
    {
        const std::scoped_lock lock(m_mutex);
        return m_operators;
    }

private:
    BeforeSearch()
    {
        pthread_atfork([] { instance().m_mutex.lock(); }, [] { instance().m_mutex.unlock(); },
                       [] { instance().m_mutex.unlock(); });
    }

    std::mutex m_mutex; ///< held for moments only
    std::vector<Operator> m_operators;
};

bool isSearching()
{
    return LeftRequest::isFollowed(networkRegistration);
}

/**
 * A search takes up to minutes. It is begun, and when the daemon has answered GetPlmnCount() tells what has been found.
 * Until then it tells what it did before, so that a change is the search's result.
 */
_TAPI_RESULT_E search()
{
    if (isSearching())
        return TAPI_RESULT_SUCC;
    std::vector<Operator> known;
    const _TAPI_RESULT_E result = readOperators(known);
    if (result != TAPI_RESULT_SUCC)
        return result;
    BeforeSearch::instance().keep(std::move(known));
    return Daemon::instance().begin(
        {networkRegistration, "Scan", {}, Deadline::Network, {}, false, [](LeftRequest &scan) {
             scan.awaitAnswer();
         }});
}

/** The networks as they are told to the user. */
_TAPI_RESULT_E readList(std::vector<Operator> &operators)
{
    if (!isSearching())
        return readOperators(operators);
    operators = BeforeSearch::instance().operators();
    return TAPI_RESULT_SUCC;
}

_TAPI_RESULT_E readRegistration(Properties &registration)
{
    return Daemon::instance().properties(networkRegistration, Deadline::AtHand, registration);
}

/** What GetPlmnCount() has told this thread, and so the room that its list has. */
thread_local std::size_t toldCount = 0;

bool startsWith(std::string_view text, std::string_view beginning)
{
    return text.substr(0, beginning.size()) == beginning;
}

} // namespace

_TAPI_RESULT_E TAPI_NETWORK_GetSearchMode(_TAPI_NETWORK_SEARCH_MODE_E *mode)
{
    Properties registration;
    const _TAPI_RESULT_E result = readRegistration(registration);
    if (result != TAPI_RESULT_SUCC)
        return result;
    const auto text = registration.text("Mode");
    if (!text)
        return TAPI_RESULT_FAIL;
    *mode = *text == "manual" ? TAPI_NETWORK_SEARCH_MANUAL : TAPI_NETWORK_SEARCH_AUTOMATIC;
    return TAPI_RESULT_SUCC;
}

/** The daemon becomes manual by choosing a network, so it is told to choose the one that serves the phone now. */
_TAPI_RESULT_E TAPI_NETWORK_SetSearchMode(_TAPI_NETWORK_SEARCH_MODE_E mode)
{
    if (mode != TAPI_NETWORK_SEARCH_AUTOMATIC && mode != TAPI_NETWORK_SEARCH_MANUAL)
        return TAPI_RESULT_INVALID_PARAM;
    Properties registration;
    const _TAPI_RESULT_E result = readRegistration(registration);
    if (result != TAPI_RESULT_SUCC)
        return result;
    const std::string_view now = registration.text("Mode").value_or("");
    if (mode == TAPI_NETWORK_SEARCH_AUTOMATIC) {
        return startsWith(now, "auto")
            ? TAPI_RESULT_SUCC
            : Daemon::instance().request({networkRegistration, "Register", {}, Deadline::Network});
    }
    if (now == "manual")
        return TAPI_RESULT_SUCC;
    if (now == "auto-only")
        return TAPI_RESULT_NOT_SUPPORTED;
    std::vector<Operator> operators;
    const _TAPI_RESULT_E listed = readOperators(operators);
    if (listed != TAPI_RESULT_SUCC)
        return listed;
    const auto current = std::find_if(operators.begin(), operators.end(),
                                      [](const Operator &known) { return known.status == currentStatus; });
    return current == operators.end() ? TAPI_RESULT_FAIL : registerWith(current->id);
}

_TAPI_RESULT_E TAPI_NETWORK_GetSearchFrequency(_TAPI_NETWORK_SEARCH_SPEED_E *speed)
{
    *speed =
        static_cast<_TAPI_NETWORK_SEARCH_SPEED_E>(PhoneSettings::read(speedKey, TAPI_NETWORK_SEARCH_MEDIUM));
    return TAPI_RESULT_SUCC;
}

_TAPI_RESULT_E TAPI_NETWORK_SetSearchFrequency(_TAPI_NETWORK_SEARCH_SPEED_E speed)
{
    return speed > TAPI_NETWORK_SEARCH_CONTINUOUS ? TAPI_RESULT_INVALID_PARAM
                                                  : PhoneSettings::write(speedKey, static_cast<int>(speed));
}

/** The daemon knows single bands. Each of the two pairs stands for either of its bands. */
_TAPI_RESULT_E TAPI_NETWORK_GetBand(_TAPI_NETWORK_BAND_E *band)
{
    Properties radio;
    const _TAPI_RESULT_E result = Daemon::instance().properties(radioSettings, Deadline::Network, radio);
    if (result != TAPI_RESULT_SUCC)
        return result;
    const auto gsm = radio.text("GsmBand");
    const std::string_view technology = radio.text("TechnologyPreference").value_or("any");
    if (technology == "umts")
        *band = TAPI_NETWORK_BAND_WCDMA;
    else if (gsm && (startsWith(*gsm, "900") || *gsm == "1800"))
        *band = TAPI_NETWORK_BAND_GSM_900_1800;
    else if (gsm && (*gsm == "850" || *gsm == "1900"))
        *band = TAPI_NETWORK_BAND_GSM_850_1900;
    else if (technology == "any" && gsm.value_or("any") == "any")
        *band = TAPI_NETWORK_BAND_AUTOMATIC;
    else
        return TAPI_RESULT_NOT_SUPPORTED;
    return TAPI_RESULT_SUCC;
}

/** One band of a pair would shut the phone out of the other, so pairs cannot be set. */
_TAPI_RESULT_E TAPI_NETWORK_SetBand(_TAPI_NETWORK_BAND_E band)
{
    switch (band) {
    case TAPI_NETWORK_BAND_WCDMA:
        return Daemon::instance().setProperty(radioSettings, "TechnologyPreference", "umts");
    case TAPI_NETWORK_BAND_GSM_900_1800:
    case TAPI_NETWORK_BAND_GSM_850_1900:
        return TAPI_RESULT_NOT_SUPPORTED;
    case TAPI_NETWORK_BAND_AUTOMATIC:
        break;
    default:
        return TAPI_RESULT_INVALID_PARAM;
    }
    Properties radio;
    const _TAPI_RESULT_E result = Daemon::instance().properties(radioSettings, Deadline::Network, radio);
    if (result != TAPI_RESULT_SUCC)
        return result;
    for (const char *const property : {"GsmBand", "TechnologyPreference"}) {
        if (radio.text(property).value_or("any") == "any")
            continue;
        const _TAPI_RESULT_E freed = Daemon::instance().setProperty(radioSettings, property, "any");
        if (freed != TAPI_RESULT_SUCC)
            return freed;
    }
    return TAPI_RESULT_SUCC;
}

_TAPI_RESULT_E TAPI_NETWORK_FindNewNetworks()
{
    return search();
}

_TAPI_RESULT_E TAPI_NETWORK_RescanNetwork()
{
    return search();
}

_TAPI_RESULT_E TAPI_NETWORK_GetAvailableNetwork()
{
    return search();
}

_TAPI_RESULT_E TAPI_NETWORK_CancelFindNewNetworks()
{
    return TAPI_RESULT_NOT_SUPPORTED;
}

_TAPI_RESULT_E TAPI_NETWORK_CancelGetAvailableNetworks()
{
    return TAPI_RESULT_NOT_SUPPORTED;
}

_TAPI_RESULT_E TAPI_NETWORK_GetPlmnCount(unsigned short *count)
{
    std::vector<Operator> operators;
    const _TAPI_RESULT_E result = readList(operators);
    if (result != TAPI_RESULT_SUCC)
        return result;
    toldCount = operators.size();
    *count = static_cast<unsigned short>(operators.size());
    return TAPI_RESULT_SUCC;
}

/** The list has room for what this thread was told; a search since then may have found more, or fewer. */
_TAPI_RESULT_E TAPI_NETWORK_GetPlmnList(_TAPI_NETWORK_PLMN_INFO_S *networks)
{
    std::vector<Operator> operators;
    const _TAPI_RESULT_E result = readList(operators);
    if (result != TAPI_RESULT_SUCC)
        return result;
    operators.resize(toldCount);
    for (const Operator &known : operators) {
        _TAPI_NETWORK_PLMN_INFO_S &network = *networks++;
        fillLatin1(network.networkId, known.id);
        fillUnits(network.name, TAPI_NETWORK_NAME_UNITS, known.name);
        network.status = known.status;
    }
    return TAPI_RESULT_SUCC;
}

_TAPI_RESULT_E TAPI_NETWORK_RegisterOperator(TAPI_NETWORK_ID_A networkId)
{
    const std::string id = networkIdOf(networkId, sizeof(TAPI_NETWORK_ID_A));
    return isNetworkId(id) ? registerWith(id) : TAPI_RESULT_INVALID_PARAM;
}

/** The daemon has one name for a network, in the language that the network sends it in. */
_TAPI_RESULT_E TAPI_NETWORK_GetChosenPlmnName(TAPI_NETWORK_PLMN_ID_A networkId, unsigned char,
                                              _TAPI_NETWORK_PLMN_NAME_S *names)
{
    std::vector<Operator> operators;
    const _TAPI_RESULT_E result = readOperators(operators);
    if (result != TAPI_RESULT_SUCC)
        return result;
    const Operator *const known = find(operators, networkIdOf(networkId, sizeof(TAPI_NETWORK_PLMN_ID_A)));
    if (!known)
        return TAPI_RESULT_FAIL;
    *names = {};
    fillUnits(names->longName, TAPI_NETWORK_NAME_UNITS, known->name);
    fillUnits(names->shortName, TAPI_NETWORK_NAME_UNITS, known->name);
    return TAPI_RESULT_SUCC;
}

/** A network that is not known keeps an empty name. */
_TAPI_RESULT_E TAPI_NETWORK_GetOperatorNameList(_TAPI_PLMN_INFO_STRUCT_S *names, unsigned short count,
                                                unsigned char)
{
    std::vector<Operator> operators;
    const _TAPI_RESULT_E result = readOperators(operators);
    if (result != TAPI_RESULT_SUCC)
        return result;
    for (_TAPI_PLMN_INFO_STRUCT_S *entry = names; entry != names + count; ++entry) {
        const Operator *const known = find(operators, networkIdOf(entry->networkId, sizeof entry->networkId));
        fillUnits(entry->name, TAPI_NETWORK_NAME_UNITS, known ? known->name : std::string());
    }
    return TAPI_RESULT_SUCC;
}

_TAPI_RESULT_E TAPI_NETWORK_GetPreferredOperator(_TAPI_NETWORK_PREFERRED_S *, unsigned char)
{
    return TAPI_RESULT_NOT_SUPPORTED;
}

_TAPI_RESULT_E TAPI_NETWORK_SetPreferredOperator(unsigned int, TAPI_NETWORK_ID_A)
{
    return TAPI_RESULT_NOT_SUPPORTED;
}

_TAPI_RESULT_E TAPI_NETWORK_DeleteSelectedOperator(unsigned int)
{
    return TAPI_RESULT_NOT_SUPPORTED;
}

_TAPI_RESULT_E TAPI_NETWORK_GetTotalPreferredOperatorNumber(unsigned int *)
{
    return TAPI_RESULT_NOT_SUPPORTED;
}

/** The daemon does not tell the display condition; 0 leaves it to the screen. */
_TAPI_RESULT_E TAPI_NETWORK_GetServiceProviderName(_TAPI_NETWORK_SERVICE_PROVIDER_S *provider)
{
    Properties card;
    const _TAPI_RESULT_E result = Card::read(card);
    if (result != TAPI_RESULT_SUCC)
        return result;
    const auto name = card.text("ServiceProviderName");
    if (!name)
        return TAPI_RESULT_FAIL; // the card has none, or has not been read yet
    *provider = {};
    fillUnits(provider->name, TAPI_NETWORK_NAME_UNITS, *name);
    return TAPI_RESULT_SUCC;
}
