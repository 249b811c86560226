// Call forwarding.
#include "Forwarding.h"

namespace Simulator {

namespace {

/** The single conditions that a condition names. */
std::vector<unsigned int> conditionsOf(_TAPI_CS_DIVERT_WHEN_E when)
{
    switch (when) {
    case TAPI_CS_DIVERT_ALL:
        return {0, 1, 2, 3};
    case TAPI_CS_DIVERT_ALL_CONDITIONAL:
        return {1, 2, 3};
    default:
        return {when};
    }
}

} // namespace

const Forwarding *activeForwarding(const ServiceState &services, unsigned char serviceClass,
                                   _TAPI_CS_DIVERT_WHEN_E when)
{
    for (const unsigned int condition : conditionsOf(when)) {
        const auto found = services.forwardings.find({services.line, serviceClass, condition});
        if (found != services.forwardings.end() && found->second.active)
            return &found->second;
    }
    return nullptr;
}

_TAPI_RESULT_E setForwarding(ServiceState &services, bool enable, unsigned int serviceClasses,
                             _TAPI_CS_DIVERT_WHEN_E when, const std::string &number,
                             unsigned char noReplyTimer)
{
    if (when > TAPI_CS_DIVERT_ALL_CONDITIONAL || (enable && number.empty()))
        return TAPI_RESULT_INVALID_PARAM;
    for (const unsigned char oneClass : forwardedClasses) {
        if ((serviceClasses & oneClass) == 0)
            continue;
        for (const unsigned int condition : conditionsOf(when)) {
            Forwarding &forwarding = services.forwardings[{services.line, oneClass, condition}];
            if (enable)
                forwarding = {true, number, noReplyTimer};
            else
                forwarding = {};
        }
    }
    return TAPI_RESULT_SUCC;
}

_TAPI_RESULT_E switchForwarding(ServiceState &services, bool on, unsigned int serviceClasses,
                                _TAPI_CS_DIVERT_WHEN_E when)
{
    _TAPI_RESULT_E result = TAPI_RESULT_FAIL;
    for (const unsigned int condition : conditionsOf(when)) {
        for (auto &[key, forwarding] : services.forwardings) {
            const auto &[line, serviceClass, forwardedOn] = key;
            if (line != services.line || (serviceClass & serviceClasses) == 0 || forwardedOn != condition
                || forwarding.number.empty())
                continue;
            forwarding.active = on;
            result = TAPI_RESULT_SUCC;
        }
    }
    return result;
}

void cancelForwardings(ServiceState &services, unsigned int serviceClasses)
{
    for (auto &[key, forwarding] : services.forwardings) {
        if (std::get<0>(key) == services.line && (std::get<1>(key) & serviceClasses) != 0)
            forwarding = {};
    }
}

bool isForwarded(const ServiceState &services, int line)
{
    const auto found = services.forwardings.find({line, voiceClass, TAPI_CS_DIVERT_UNCONDITIONAL});
    return found != services.forwardings.end() && found->second.active;
}

} // namespace Simulator
