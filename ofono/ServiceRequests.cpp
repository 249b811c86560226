// Service requests.
#include "ServiceRequests.h"
#include "Daemon.h"
#include "Interfaces.h"
#include "LeftRequest.h"
#include "Watch.h"

namespace Ofono::ServiceRequests {

namespace {

/** A network that has not answered by then does not answer: a minute. */
std::chrono::milliseconds longestSilence()
{
    return 2 * lengthOf(Deadline::Network);
}

bool isIdle(LeftRequest &request)
{
    Answer answer;
    return !request.ask({supplementaryServices, "GetProperties"}, answer).empty()
        || answer.properties().text("State").value_or("idle") == "idle";
}

/** Until the dialogue that it belongs to is over. */
void follow(LeftRequest &request)
{
    const auto end = std::chrono::steady_clock::now() + longestSilence();
    Watch watch(end); // before the first look
    request.awaitAnswer(end);
    Answer answer;
    if (!request.isOver())
        request.ask({supplementaryServices, "Cancel"}, answer);
    while (!isIdle(request) && watch.waitForChange(Watch::Time::max())) { }
}

} // namespace

_TAPI_RESULT_E begin(const char *method, const char *text)
{
    return Daemon::instance().begin({supplementaryServices,
                                     method,
                                     {Value(text)},
                                     Deadline::Network,
                                     {},
                                     true, // it may carry a PIN
                                     follow});
}

bool areUnderWay()
{
    return LeftRequest::isFollowed(supplementaryServices);
}

bool occupy(std::string_view interface)
{
    return interface == callForwarding || interface == callSettings || interface == supplementaryServices;
}

} // namespace Ofono::ServiceRequests
