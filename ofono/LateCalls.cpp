// Calls that come into being when nobody waits for them any more.
#include "LateCalls.h"
#include "Errors.h"
#include "Interfaces.h"

#include <algorithm>
#include <cstdio>
#include <thread>

namespace Ofono::LateCalls {

namespace {

using std::chrono::milliseconds;

constexpr milliseconds firstPause(10);
constexpr milliseconds longestPause(100);

/** The number at the other end; nothing when there is no such call. */
std::optional<std::string> numberOf(LeftRequest &dialled, std::string_view object)
{
    Answer answer;
    if (!dialled.ask({voiceCall, "GetProperties", {}, Deadline::Network, object}, answer).empty())
        return std::nullopt;
    return std::string(answer.properties().text("LineIdentification").value_or(""));
}

} // namespace

void hangUp(LeftRequest &dialled)
{
    const auto placed = dialled.awaitAnswer();
    const std::string_view path = placed ? placed->path().value_or("") : "";
    if (path.rfind('/') == std::string_view::npos)
        return;
    const std::string object(path.substr(path.rfind('/')));
    const auto number = numberOf(dialled, object);
    // The daemon may be occupied. Meanwhile this call may have ended, and a later one have its path.
    for (milliseconds pause = firstPause; number && numberOf(dialled, object) == number;
         pause = std::min(2 * pause, longestPause)) {
        Answer answer;
        const std::string error = dialled.ask({voiceCall, "Hangup", {}, Deadline::Network, object}, answer);
        if (error.empty())
            std::fputs("telephony: hung up a call that was placed after its request had timed out\n", stderr);
        if (!isInProgress(error))
            return;
        std::this_thread::sleep_for(pause);
    }
}

void tell(LeftRequest &sentOn)
{
    if (sentOn.awaitAnswer())
        std::fputs("telephony: a call was sent on after its request had timed out\n", stderr);
}

} // namespace Ofono::LateCalls
