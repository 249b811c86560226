// Call forwarding: queries, requests, cancelling, and the forwarding indicator of a two-line SIM.
#include "../TextField.h"
#include "Broadcasts.h"
#include "Features.h"
#include "PHONE_ENG_Setup.h"
#include "Settings.h"
#include "Unit.h"

#include "SETUP_Utility.h"
#include "TAPI_CPHS.h"
#include "UTIL_State.h"

namespace {

constexpr unsigned char voiceClass = 1;
constexpr unsigned char dataClass = 2;
constexpr unsigned char faxClass = 4;

constexpr unsigned char noTimer = 255;
constexpr unsigned char fallbackTimer = 20;

void readDivertStatus(const _TAPI_CS_DIVERT_STATUS_S &status, bool &active, QString &number)
{
    number = TextField::read(status.number);
    active = status.status == 1;
}

/** No reply is the only condition that waits; the combined ones contain it. */
unsigned char timerFor(_TAPI_CS_DIVERT_WHEN_E when, int defaultTimer)
{
    switch (when) {
    case TAPI_CS_DIVERT_UNCONDITIONAL:
    case TAPI_CS_DIVERT_BUSY:
    case TAPI_CS_DIVERT_NOT_REACHABLE:
        return noTimer;
    default:
        return static_cast<unsigned char>(defaultTimer);
    }
}

} // namespace

int PHONE_ENG_Setup::getDefaultCallForwardTimer()
{
    const int stored = Settings::read(Settings::setupGroup, u"CallForwardTimer", 5);
    if (stored == noTimer)
        return noTimer;
    if (stored < 1 || stored > 30)
        return fallbackTimer;
    return (stored + 4) / 5 * 5;
}

_TAPI_RESULT_E PHONE_ENG_Setup::getVoiceCallsDivert(bool &active, QString &number,
                                                    _TAPI_CS_DIVERT_WHEN_E when)
{
    LOG_MESSAGE(R"(PHONE_ENG_Setup::getVoiceCallsDivert: active %d,number %s.)", active,
                number.toLatin1().constData());
    if (!setupCheckSystemStatus())
        return TAPI_RESULT_FAIL;
    LOG_MESSAGE(R"(PHONE_ENG_Setup::getVoiceCallsDivert: BP is OK.)");
    _TAPI_CS_DIVERT_STATUS_S status = {};
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_CS_GetDivertStatus(voiceClass, when, &status);
    LOG_TRACE();
    if (result == TAPI_RESULT_SUCC) {
        readDivertStatus(status, active, number);
        LOG_MESSAGE(R"(PHONE_ENG_Setup::getVoiceCallsDivert: Get Divert status succ. %s.)",
                    number.toLatin1().constData());
    }
    return result;
}

_TAPI_RESULT_E PHONE_ENG_Setup::getDataCallsDivert(bool &active, QString &number, _TAPI_CS_DIVERT_WHEN_E when)
{
    if (!setupCheckSystemStatus())
        return TAPI_RESULT_FAIL;
    _TAPI_CS_DIVERT_STATUS_S status = {};
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_CS_GetDivertStatus(dataClass, when, &status);
    LOG_TRACE();
    if (result == TAPI_RESULT_SUCC)
        readDivertStatus(status, active, number);
    LOG_MESSAGE(R"(PHONE_ENG_Setup::getDataCallsDivert.active %d,number %s.)", active,
                number.toLatin1().constData());
    return result;
}

_TAPI_RESULT_E PHONE_ENG_Setup::getFaxCallsDivert(bool &active, QString &number, _TAPI_CS_DIVERT_WHEN_E when)
{
    if (!setupCheckSystemStatus())
        return TAPI_RESULT_FAIL;
    _TAPI_CS_DIVERT_STATUS_S status = {};
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_CS_GetDivertStatus(faxClass, when, &status);
    LOG_TRACE();
    if (result == TAPI_RESULT_SUCC)
        readDivertStatus(status, active, number);
    LOG_MESSAGE(R"(PHONE_ENG_Setup::getFaxCallsDivert.active %d,number %s.)", active,
                number.toLatin1().constData());
    return result;
}

_TAPI_RESULT_E PHONE_ENG_Setup::divertVoiceCalls(bool enable, _TAPI_CS_DIVERT_WHEN_E when,
                                                 const QString &number)
{
    if (!setupCheckSystemStatus())
        return TAPI_RESULT_FAIL;
    LOG_MESSAGE(R"(PHONE_ENG_Setup::divertVoiceCalls,active %d ,number %s,when %d)", enable,
                number.toLatin1().constData(), static_cast<int>(when));
    const unsigned char timer = timerFor(when, getDefaultCallForwardTimer());
    TAPI_DIVERT_NUMBER_A field;
    TextField::fill(field, number);
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_CS_DivertCallToNumber(enable ? 1 : 0, voiceClass, when, field, timer);
    LOG_TRACE();
    return result;
}

_TAPI_RESULT_E PHONE_ENG_Setup::divertDataCalls(bool enable, _TAPI_CS_DIVERT_WHEN_E when,
                                                const QString &number)
{
    if (!setupCheckSystemStatus())
        return TAPI_RESULT_FAIL;
    LOG_MESSAGE(R"(PHONE_ENG_Setup::divertDataCalls.)");
    const unsigned char timer = timerFor(when, getDefaultCallForwardTimer());
    TAPI_DIVERT_NUMBER_A field;
    TextField::fill(field, number);
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_CS_DivertCallToNumber(enable ? 1 : 0, dataClass, when, field, timer);
    LOG_TRACE();
    return result;
}

_TAPI_RESULT_E PHONE_ENG_Setup::divertFaxCalls(bool enable, _TAPI_CS_DIVERT_WHEN_E when,
                                               const QString &number)
{
    if (!setupCheckSystemStatus())
        return TAPI_RESULT_FAIL;
    LOG_MESSAGE(R"(PHONE_ENG_Setup::divertFaxCalls.)");
    const unsigned char timer = timerFor(when, getDefaultCallForwardTimer());
    TAPI_DIVERT_NUMBER_A field;
    TextField::fill(field, number);
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_CS_DivertCallToNumber(enable ? 1 : 0, faxClass, when, field, timer);
    LOG_TRACE();
    return result;
}

_TAPI_RESULT_E PHONE_ENG_Setup::divertVoiceCallsWithTime(bool enable, const QString &number,
                                                         unsigned char time)
{
    if (!setupCheckSystemStatus())
        return TAPI_RESULT_FAIL;
    const unsigned char timer = time == 5 || time == 10 ? time : fallbackTimer;
    TAPI_DIVERT_NUMBER_A field;
    TextField::fill(field, number);
    LOG_TRACE();
    const _TAPI_RESULT_E result =
        TAPI_CS_DivertCallToNumber(enable ? 1 : 0, voiceClass, TAPI_CS_DIVERT_NO_REPLY, field, timer);
    LOG_TRACE();
    return result;
}

_TAPI_RESULT_E PHONE_ENG_Setup::cancelAllVoiceCallsDiverts()
{
    if (!setupCheckSystemStatus())
        return TAPI_RESULT_FAIL;
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_CS_CancelAllVoiceDivert();
    LOG_TRACE();
    if (result == TAPI_RESULT_SUCC)
        Broadcasts::sendForwardingNotice(false);
    return result;
}

_TAPI_RESULT_E PHONE_ENG_Setup::cancelAllCallsDiverts()
{
    if (!setupCheckSystemStatus())
        return TAPI_RESULT_FAIL;
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_CS_CancelAllDivert();
    LOG_TRACE();
    if (result == TAPI_RESULT_SUCC)
        Broadcasts::sendForwardingNotice(false);
    return result;
}

void PHONE_ENG_Setup::getCallForwardingFlag()
{
    SETUP_Utility product;
    if (!product.isFeatureAvailable(Features::cphs)) {
        LOG_MESSAGE(R"(Not CPHS phone. Update GNB status!)");
        return;
    }
    if (UTIL_GetSIMPinBatteryStatus() == 1)
        return;
    unsigned char line1 = 0;
    unsigned char line2 = 0;
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_CPHS_GetCallDivertStatus(&line1, &line2);
    LOG_TRACE();
    int status = 0;
    if (result == TAPI_RESULT_SUCC) {
        const bool line1Counts = product.isFeatureAvailable(Features::line1Forwarding);
        bool line2Counts = product.isFeatureAvailable(Features::secondLine);
        if (line2Counts) {
            line2Counts = product.isFeatureAvailable(Features::lineLock)
                ? product.isFeatureAvailable(Features::line2Forwarding)
                : line1Counts;
        }
        status = (line1Counts && line1 == 1 ? 1 : 0) + (line2Counts && line2 == 1 ? 2 : 0);
    }
    UTIL_SetCPHSCallForwardStatus(status);
    Broadcasts::sendIndicatorUpdate();
}
