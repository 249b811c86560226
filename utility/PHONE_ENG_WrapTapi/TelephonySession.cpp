// The telephony session: opening the client, and the probe of its link.
#include "PHONE_ENG_WrapTapi.h"
#include "Unit.h"

#include "TAPI_CLIENT.h"

#include <array>
#include <cerrno>

#include <sys/ioctl.h>

namespace {

constexpr std::array<_TAPI_CLIENT_SERVICE_S, 13> serviceTable = {{
    {0, 2},
    {0, 8},
    {0, 10},
    {0, 14},
    {0, 13},
    {0, 9},
    {0, 7},
    {0, 4},
    {0, 22},
    {0, 11},
    {0, 17},
    {0, 19},
    {0, 6},
}};
static_assert(sizeof serviceTable == 26);

constexpr int noDescriptor = -1;

int probedDescriptor = noDescriptor;
bool descriptorCaptured = false;

} // namespace

_TAPI_RESULT_E PHONE_ENG_TAPI_initiation()
{
    auto services = serviceTable; // the platform may write to it
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_CLIENT_Init(services.data(), static_cast<int>(services.size()));
    LOG_TRACE();
    return result;
}

bool PHONE_ENG_IsTapiDeviceActive()
{
    LOG_TRACE();
    const int descriptor = TAPI_CLIENT_GetSyncSocketFd();
    LOG_TRACE();
    if (!descriptorCaptured && descriptor != noDescriptor) {
        probedDescriptor = descriptor;
        descriptorCaptured = true;
    }
    if (probedDescriptor == noDescriptor)
        return false;
    for (;;) {
        int pendingBytes = 0;
        if (ioctl(probedDescriptor, FIONREAD, &pendingBytes) >= 0)
            return true;
        switch (errno) {
        case EINTR:
            errno = 0;
            continue;
        case EFAULT:
            return true;
        default:
            probedDescriptor = noDescriptor;
            return false;
        }
    }
}
