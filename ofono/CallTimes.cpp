// How long this phone's calls have lasted.
//
// The daemon tells only when a call began. So each look at the calls notes in the shared state until when a call was
// seen, whichever program looks, and the first look without it adds its time to the total.
//
// Programs take turns at that, and each look has a number. What a program has asked the daemon may be out of date when its
// turn comes: a call that another one has seen since is not taken for ended, and one that was counted since is not
// taken for a new one.
#include "CallTimes.h"
#include "PhoneSettings.h"

#include "FileLock.h"
#include "SettingsFile.h"
#include "SharedState.h"

#include <algorithm>
#include <ctime>
#include <limits>
#include <optional>
#include <utility>

namespace Ofono::CallTimes {

using Handset::SeenCall;
using Handset::sharedState;

namespace {

constexpr char totalKey[] = "callSeconds";

/** No call lasts longer; a start that lies further back is a mistake of some clock. */
constexpr std::int64_t longestCall = std::int64_t{7} * 24 * 3600;
constexpr std::int64_t longestTotal = std::numeric_limits<int>::max();

/** A program is done with its turn in microseconds, unless it has to add a call to the total. */
constexpr std::chrono::milliseconds patience(500);

std::int64_t now()
{
    return std::time(nullptr);
}

/** Seconds since 1970 of a time such as "2026-02-03T04:05:06+0000". */
std::optional<std::int64_t> parsedTime(const std::string &text)
{
    std::tm time = {};
    const char *const end = strptime(text.c_str(), "%Y-%m-%dT%H:%M:%S%z", &time);
    if (!end || *end != '\0')
        return std::nullopt;
    const long offset = time.tm_gmtoff;
    return timegm(&time) - offset;
}

/** A call that the daemon has told of. */
struct PresentCall {
    std::int64_t key; ///< its start and its id in one
    std::int64_t start;
};

std::int64_t lengthOf(const SeenCall &seen)
{
    return std::clamp<std::int64_t>(seen.to - seen.from, 0, longestCall);
}

bool lasts(const SeenCall &seen)
{
    return seen.key != 0 && seen.counted == 0;
}

/** The place of a call, else the one that can be spared best; null when eight calls last. */
SeenCall *placeFor(std::int64_t key)
{
    auto &places = sharedState().seenCalls;
    const auto known =
        std::find_if(places.begin(), places.end(), [key](const SeenCall &seen) { return seen.key == key; });
    if (known != places.end())
        return &*known;
    const auto spare =
        std::min_element(places.begin(), places.end(), [](const SeenCall &one, const SeenCall &other) {
            return std::pair(lasts(one), one.counted.load()) < std::pair(lasts(other), other.counted.load());
        });
    return lasts(*spare) ? nullptr : &*spare;
}

void note(const PresentCall &call, std::int64_t begun, std::int64_t look)
{
    SeenCall *const seen = placeFor(call.key);
    if (!seen || (seen->key == call.key && seen->counted > begun))
        return;
    if (seen->key != call.key || seen->counted != 0)
        seen->from = call.start;
    seen->key = call.key;
    seen->to = now();
    seen->seen = look;
    seen->counted = 0;
}

/** The turn to count, beside the file of the total. */
class Turn {
public:
    Turn()
    {
        std::string file;
        m_ours = !SettingsFile::resolve(PhoneSettings::store().file().toStdString(), file)
            && !m_lock.take(file + "-calls", patience);
    }

    explicit operator bool() const { return m_ours; }

private:
    FileLock m_lock;
    bool m_ours = false;
};

} // namespace

std::int64_t beginLook()
{
    return sharedState().looks;
}

void see(const std::vector<Call> &calls, std::int64_t begun)
{
    std::vector<PresentCall> present;
    for (const Call &call : calls) {
        const auto start = parsedTime(call.startTime);
        if (start && *start > 0 && call.state != TAPI_CALL_STATE_RINGING)
            present.push_back({*start * 256 + call.id, *start});
    }
    auto &places = sharedState().seenCalls;
    if (present.empty() && std::none_of(places.begin(), places.end(), lasts))
        return;
    const Turn turn;
    if (!turn)
        return; // the next look will do
    const std::int64_t look = ++sharedState().looks;
    for (const PresentCall &call : present)
        note(call, begun, look);
    for (SeenCall &seen : places) {
        const bool isPresent = std::any_of(present.begin(), present.end(),
                                           [&seen](const PresentCall &call) { return call.key == seen.key; });
        if (!lasts(seen) || isPresent || seen.seen > begun)
            continue;
        const std::int64_t sum = PhoneSettings::read(totalKey, 0) + lengthOf(seen);
        if (PhoneSettings::write(totalKey, static_cast<int>(std::min<std::int64_t>(sum, longestTotal)))
            == TAPI_RESULT_SUCC)
            seen.counted = look;
    }
}

int total()
{
    std::int64_t seconds = PhoneSettings::read(totalKey, 0);
    for (const SeenCall &seen : sharedState().seenCalls) {
        if (lasts(seen))
            seconds += lengthOf(seen);
    }
    return static_cast<int>(std::min<std::int64_t>(seconds, longestTotal));
}

_TAPI_RESULT_E reset()
{
    const Turn turn;
    if (!turn)
        return TAPI_RESULT_BUSY;
    const _TAPI_RESULT_E result = PhoneSettings::write(totalKey, 0);
    for (SeenCall &seen : sharedState().seenCalls) {
        if (result == TAPI_RESULT_SUCC)
            seen.from = now(); // a call that lasts counts from here
    }
    return result;
}

} // namespace Ofono::CallTimes
