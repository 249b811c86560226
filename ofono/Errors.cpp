// What the errors of the daemon and the bus mean.
#include "Errors.h"

#include <algorithm>
#include <array>

#include <systemd/sd-bus.h>

namespace Ofono {

namespace {

struct NamedResult {
    std::string_view error;
    _TAPI_RESULT_E result;
};

constexpr std::array<NamedResult, 24> results = {{
    {"org.ofono.Error.InvalidArguments", TAPI_RESULT_INVALID_PARAM},
    {"org.ofono.Error.InvalidFormat", TAPI_RESULT_INVALID_PARAM},
    {"org.ofono.Error.NotRecognized", TAPI_RESULT_INVALID_PARAM},
    {"org.ofono.Error.NotImplemented", TAPI_RESULT_NOT_SUPPORTED},
    {"org.ofono.Error.NotSupported", TAPI_RESULT_NOT_SUPPORTED},
    {"org.ofono.Error.NotAvailable", TAPI_RESULT_MODEM_OFFLINE},
    {"org.ofono.Error.InProgress", TAPI_RESULT_BUSY},
    {"org.ofono.Error.Timedout", TAPI_RESULT_TIMED_OUT},
    {"org.ofono.Error.SimNotReady", TAPI_RESULT_SIM_UNAVAILABLE},
    {SD_BUS_ERROR_ACCESS_DENIED, TAPI_RESULT_ACCESS_DENIED},
    {SD_BUS_ERROR_AUTH_FAILED, TAPI_RESULT_ACCESS_DENIED},
    {SD_BUS_ERROR_SERVICE_UNKNOWN, TAPI_RESULT_SERVICE_DOWN},
    {SD_BUS_ERROR_NAME_HAS_NO_OWNER, TAPI_RESULT_SERVICE_DOWN},
    {SD_BUS_ERROR_NO_REPLY, TAPI_RESULT_SERVICE_DOWN}, // what the bus says when the daemon dies with the call
    {SD_BUS_ERROR_DISCONNECTED, TAPI_RESULT_LINK_LOST},
    {SD_BUS_ERROR_NO_SERVER, TAPI_RESULT_LINK_LOST},
    {SD_BUS_ERROR_TIMEOUT, TAPI_RESULT_TIMED_OUT},
    {"org.freedesktop.DBus.Error.TimedOut", TAPI_RESULT_TIMED_OUT},
    {"System.Error.ETIMEDOUT", TAPI_RESULT_TIMED_OUT},
    {SD_BUS_ERROR_LIMITS_EXCEEDED, TAPI_RESULT_BUSY},
    {SD_BUS_ERROR_INVALID_ARGS, TAPI_RESULT_INVALID_PARAM},
    {"org.ofono.Error.Failed", TAPI_RESULT_FAIL},
    {"org.ofono.Error.NotAllowed", TAPI_RESULT_FAIL},
    {"org.ofono.Error.AccessDenied", TAPI_RESULT_FAIL}, // the network's answer, not the bus's
}};

constexpr std::array<std::string_view, 3> nothingThereErrors = {
    SD_BUS_ERROR_UNKNOWN_METHOD, SD_BUS_ERROR_UNKNOWN_OBJECT, SD_BUS_ERROR_UNKNOWN_INTERFACE};

} // namespace

_TAPI_RESULT_E resultOf(std::string_view error)
{
    for (const NamedResult &named : results) {
        if (named.error == error)
            return named.result;
    }
    return TAPI_RESULT_FAIL;
}

bool isInProgress(std::string_view error)
{
    return error == "org.ofono.Error.InProgress";
}

bool isNothingThere(std::string_view error)
{
    return std::find(nothingThereErrors.begin(), nothingThereErrors.end(), error) != nothingThereErrors.end();
}

} // namespace Ofono
