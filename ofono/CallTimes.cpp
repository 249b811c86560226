// How long this phone's calls have lasted.
//
// The daemon tells only when a call began. So each look at the calls notes in the shared state until when a call was
// seen, whichever program looks, and the first look without it adds its time to the total.
#include "CallTimes.h"
#include "PhoneSettings.h"

#include "SharedState.h"

#include <algorithm>
#include <ctime>
#include <optional>

namespace Ofono::CallTimes {

namespace {

constexpr char totalKey[] = "callSeconds";

/** No call lasts longer; a start that lies further back is a mistake of some clock. */
constexpr std::int64_t longestCall = std::int64_t{7} * 24 * 3600;

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

std::int64_t keyOf(const Call &call, std::int64_t start)
{
    return start * 256 + call.id;
}

std::int64_t lengthOf(const Handset::SeenCall &seen)
{
    return std::clamp<std::int64_t>(seen.to - seen.from, 0, longestCall);
}

void note(const Call &call, std::int64_t start)
{
    const std::int64_t key = keyOf(call, start);
    auto &places = Handset::sharedState().seenCalls;
    for (Handset::SeenCall &seen : places) {
        if (seen.key == key) {
            seen.to = now();
            return;
        }
    }
    for (Handset::SeenCall &seen : places) {
        std::int64_t free = 0;
        if (!seen.key.compare_exchange_strong(free, key))
            continue;
        seen.from = start;
        seen.to = now();
        return;
    }
}

} // namespace

void see(const std::vector<Call> &calls)
{
    std::vector<std::int64_t> present;
    for (const Call &call : calls) {
        const auto start = parsedTime(call.startTime);
        if (!start || *start <= 0 || call.state == TAPI_CALL_STATE_RINGING)
            continue;
        present.push_back(keyOf(call, *start));
        note(call, *start);
    }
    for (Handset::SeenCall &seen : Handset::sharedState().seenCalls) {
        std::int64_t key = seen.key;
        if (key == 0 || std::find(present.begin(), present.end(), key) != present.end())
            continue;
        const std::int64_t length = lengthOf(seen);
        if (seen.key.compare_exchange_strong(key, 0)) // one program adds it
            PhoneSettings::write(totalKey, PhoneSettings::read(totalKey, 0) + static_cast<int>(length));
    }
}

int total()
{
    std::int64_t seconds = PhoneSettings::read(totalKey, 0);
    for (const Handset::SeenCall &seen : Handset::sharedState().seenCalls) {
        if (seen.key != 0)
            seconds += lengthOf(seen);
    }
    return static_cast<int>(seconds);
}

_TAPI_RESULT_E reset()
{
    for (Handset::SeenCall &seen : Handset::sharedState().seenCalls)
        seen.from = now(); // a call that lasts counts from here
    return PhoneSettings::write(totalKey, 0);
}

} // namespace Ofono::CallTimes
