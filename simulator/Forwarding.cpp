// Call forwarding, as the network keeps it: by line, service class and condition.
#include "Forwarding.h"

#include "PlatformCall.h"

#include "TAPI_CPHS.h"
#include "TAPI_CS.h"

using Simulator::copyText;
using Simulator::Field;
using Simulator::Out;
using Simulator::platformCall;
using Simulator::textOf;

_TAPI_RESULT_E TAPI_CS_GetDivertStatus(unsigned char serviceClass, _TAPI_CS_DIVERT_WHEN_E when,
                                       _TAPI_CS_DIVERT_STATUS_S *status)
{
    return platformCall(
        "TAPI_CS_GetDivertStatus", {Out(status)},
        [=](PhoneState &phone) {
            if (when > TAPI_CS_DIVERT_ALL_CONDITIONAL)
                return TAPI_RESULT_INVALID_PARAM;
            *status = {};
            if (const auto *const active = Simulator::activeForwarding(phone.services, serviceClass, when)) {
                status->status = 1;
                copyText(status->number, sizeof status->number, active->number);
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
            return Simulator::setForwarding(phone.services, enable == 1, serviceClass, when,
                                            textOf(number, sizeof(TAPI_DIVERT_NUMBER_A)), noReplyTimer);
        },
        enable, serviceClass, when, Field(number, sizeof(TAPI_DIVERT_NUMBER_A)), noReplyTimer);
}

_TAPI_RESULT_E TAPI_CS_CancelAllVoiceDivert()
{
    return platformCall("TAPI_CS_CancelAllVoiceDivert", {}, [](PhoneState &phone) {
        Simulator::cancelForwardings(phone.services, Simulator::voiceClass);
        return TAPI_RESULT_SUCC;
    });
}

_TAPI_RESULT_E TAPI_CS_CancelAllDivert()
{
    return platformCall("TAPI_CS_CancelAllDivert", {}, [](PhoneState &phone) {
        Simulator::cancelForwardings(phone.services, Simulator::allClasses);
        return TAPI_RESULT_SUCC;
    });
}

_TAPI_RESULT_E TAPI_CPHS_GetCallDivertStatus(unsigned char *line1, unsigned char *line2)
{
    return platformCall("TAPI_CPHS_GetCallDivertStatus", {Out(line1), Out(line2)}, [=](PhoneState &phone) {
        *line1 = Simulator::isForwarded(phone.services, 0) ? 1 : 0;
        *line2 = Simulator::isForwarded(phone.services, 1) ? 1 : 0;
        return TAPI_RESULT_SUCC;
    });
}
