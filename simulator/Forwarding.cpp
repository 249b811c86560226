// Call forwarding, as the network keeps it: by line, service class and condition.
#include "PlatformCall.h"

#include "TAPI_CPHS.h"
#include "TAPI_CS.h"

using Simulator::copyText;
using Simulator::Field;
using Simulator::Out;
using Simulator::platformCall;
using Simulator::textOf;

namespace {

constexpr std::array<unsigned char, 3> serviceClasses = {1, 2, 4};
constexpr unsigned char voiceClass = 1;

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

bool isForwarded(const PhoneState &phone, int line)
{
    const auto found = phone.services.forwardings.find({line, voiceClass, TAPI_CS_DIVERT_UNCONDITIONAL});
    return found != phone.services.forwardings.end() && found->second.active;
}

} // namespace

_TAPI_RESULT_E TAPI_CS_GetDivertStatus(unsigned char serviceClass, _TAPI_CS_DIVERT_WHEN_E when,
                                       _TAPI_CS_DIVERT_STATUS_S *status)
{
    return platformCall(
        "TAPI_CS_GetDivertStatus", {Out(status)},
        [=](PhoneState &phone) {
            if (when > TAPI_CS_DIVERT_ALL_CONDITIONAL)
                return TAPI_RESULT_INVALID_PARAM;
            *status = {};
            for (const unsigned int condition : conditionsOf(when)) {
                const auto found =
                    phone.services.forwardings.find({phone.services.line, serviceClass, condition});
                if (found != phone.services.forwardings.end() && found->second.active) {
                    status->status = 1;
                    copyText(status->number, sizeof status->number, found->second.number);
                    break;
                }
            }
            return TAPI_RESULT_SUCC;
        },
        serviceClass, when);
}

_TAPI_RESULT_E TAPI_CS_DivertCallToNumber(unsigned char enable, unsigned char serviceClass,
                                          _TAPI_CS_DIVERT_WHEN_E when, TAPI_DIVERT_NUMBER_A number,
                                          unsigned char noReplyTimer)
{
    return platformCall(
        "TAPI_CS_DivertCallToNumber", {},
        [=](PhoneState &phone) {
            const std::string target = textOf(number, sizeof(TAPI_DIVERT_NUMBER_A));
            if (when > TAPI_CS_DIVERT_ALL_CONDITIONAL || (enable == 1 && target.empty()))
                return TAPI_RESULT_INVALID_PARAM;
            for (const unsigned char oneClass : serviceClasses) {
                if ((serviceClass & oneClass) == 0)
                    continue;
                for (const unsigned int condition : conditionsOf(when)) {
                    Forwarding &forwarding =
                        phone.services.forwardings[{phone.services.line, oneClass, condition}];
                    if (enable == 1)
                        forwarding = {true, target, noReplyTimer};
                    else
                        forwarding = {};
                }
            }
            return TAPI_RESULT_SUCC;
        },
        enable, serviceClass, when, Field(number, sizeof(TAPI_DIVERT_NUMBER_A)), noReplyTimer);
}

_TAPI_RESULT_E TAPI_CS_CancelAllVoiceDivert()
{
    return platformCall("TAPI_CS_CancelAllVoiceDivert", {}, [](PhoneState &phone) {
        for (auto &[key, forwarding] : phone.services.forwardings) {
            if (std::get<0>(key) == phone.services.line && std::get<1>(key) == voiceClass)
                forwarding = {};
        }
        return TAPI_RESULT_SUCC;
    });
}

_TAPI_RESULT_E TAPI_CS_CancelAllDivert()
{
    return platformCall("TAPI_CS_CancelAllDivert", {}, [](PhoneState &phone) {
        for (auto &[key, forwarding] : phone.services.forwardings) {
            if (std::get<0>(key) == phone.services.line)
                forwarding = {};
        }
        return TAPI_RESULT_SUCC;
    });
}

_TAPI_RESULT_E TAPI_CPHS_GetCallDivertStatus(unsigned char *line1, unsigned char *line2)
{
    return platformCall("TAPI_CPHS_GetCallDivertStatus", {Out(line1), Out(line2)}, [=](PhoneState &phone) {
        *line1 = isForwarded(phone, 0) ? 1 : 0;
        *line2 = isForwarded(phone, 1) ? 1 : 0;
        return TAPI_RESULT_SUCC;
    });
}
