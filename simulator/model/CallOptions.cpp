// Lines and the caller-id restriction.
#include "CallOptions.h"

#include <algorithm>

namespace Simulator {

namespace {

constexpr unsigned short callerIdFeature = 2236;

/** The feature database numbers invocation and suppression the other way round. */
constexpr std::array<_TAPI_CALL_RESTRICT_ID_E, 3> restrictionBySetting = {
    TAPI_CALL_RESTRICT_ID_NETWORK, TAPI_CALL_RESTRICT_ID_SUPPRESS, TAPI_CALL_RESTRICT_ID_INVOKE};

} // namespace

_TAPI_RESULT_E selectLine(ServiceState &services, signed char index)
{
    if (index != 0 && index != 1)
        return TAPI_RESULT_INVALID_PARAM;
    if (services.lineLock == 1 && index != services.line)
        return TAPI_RESULT_FAIL;
    services.line = index;
    return TAPI_RESULT_SUCC;
}

_TAPI_RESULT_E setCallerIdRestriction(ServiceState &services, _TAPI_CALL_RESTRICT_ID_E id)
{
    const auto setting = std::find(restrictionBySetting.begin(), restrictionBySetting.end(), id);
    if (setting == restrictionBySetting.end())
        return TAPI_RESULT_INVALID_PARAM;
    services.featureSettings[callerIdFeature] =
        static_cast<unsigned char>(setting - restrictionBySetting.begin());
    return TAPI_RESULT_SUCC;
}

_TAPI_CALL_RESTRICT_ID_E callerIdRestriction(const ServiceState &services)
{
    const auto found = services.featureSettings.find(callerIdFeature);
    if (found == services.featureSettings.end() || found->second >= restrictionBySetting.size())
        return TAPI_CALL_RESTRICT_ID_NETWORK;
    return restrictionBySetting[found->second];
}

} // namespace Simulator
