// The telephony client and the log library.
#include "PlatformCall.h"

#include "LogModule.h"
#include "LogStream.h"
#include "TAPI_CLIENT.h"

using Simulator::Bytes;
using Simulator::platformCall;

std::FILE *libaplog_to_module_ptr = openLogStream(); // set when the library is loaded, before the first line

_TAPI_RESULT_E TAPI_CLIENT_Init(_TAPI_CLIENT_SERVICE_S *services, int count)
{
    return platformCall(
        "TAPI_CLIENT_Init", {},
        [](PhoneState &) {
            SimulatedPhone::instance().openLink();
            return TAPI_RESULT_SUCC;
        },
        Bytes(services, static_cast<std::size_t>(count) * sizeof *services), count);
}

int TAPI_CLIENT_GetSyncSocketFd()
{
    return platformCall("TAPI_CLIENT_GetSyncSocketFd", {},
                        [](PhoneState &) { return SimulatedPhone::instance().linkDescriptor(); });
}
