// Call restrictions and network call options: fixed dialling, tones, caller id, waiting, redial.
#include "PHONE_ENG_Setup.h"
#include "PinBuffer.h"
#include "Settings.h"
#include "Unit.h"

#include "TAPI_FIXDIALING.h"
#include "TAPI_FTRDB.h"
#include "UTIL_State.h"

namespace {

constexpr unsigned char fixedDialingSelector = 1;
constexpr unsigned short callerIdFeature = 2236;
constexpr unsigned char nextRestrictionOnFailure = 2;

/** What isCallWaiting() returns when a setting keeps it from asking. */
constexpr auto callWaitingNotAsked = static_cast<_TAPI_RESULT_E>(1);

/** The feature database numbers the restrictions differently from the network. */
_TAPI_CALL_RESTRICT_ID_E restrictionOf(TAPI_DB_FEATURE_SETTING_T setting)
{
    switch (setting) {
    case 1:
        return TAPI_CALL_RESTRICT_ID_SUPPRESS;
    case 2:
        return TAPI_CALL_RESTRICT_ID_INVOKE;
    default:
        return TAPI_CALL_RESTRICT_ID_NETWORK;
    }
}

} // namespace

bool PHONE_ENG_Setup::isFixedDialingAvailable()
{
    unsigned char available = 0;
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_FIXDIALING_GetAvailability(fixedDialingSelector, &available);
    LOG_TRACE();
    return result == TAPI_RESULT_SUCC && available == 1;
}

_TAPI_RESULT_E PHONE_ENG_Setup::isFixedDialing(bool &on)
{
    if (!setupCheckSystemStatus())
        return TAPI_RESULT_FAIL;
    unsigned char status = 0;
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_FIXDIALING_GetStatus(fixedDialingSelector, &status);
    LOG_TRACE();
    if (result == TAPI_RESULT_SUCC)
        on = status == 1;
    return result;
}

_TAPI_RESULT_E PHONE_ENG_Setup::setFixedDialing(bool on, const QString &pin2)
{
    if (!setupCheckSystemStatus())
        return TAPI_RESULT_FAIL;
    PinBuffer pin(pin2);
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_FIXDIALING_SetStatus(on ? 1 : 0, pin.data());
    LOG_TRACE();
    return result;
}

_TAPI_RESULT_E PHONE_ENG_Setup::getDTMF(unsigned char &type)
{
    if (!setupCheckSystemStatus())
        return TAPI_RESULT_FAIL;
    unsigned char answer = 0;
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_CS_GetDtmfToneType(&answer);
    LOG_TRACE();
    if (result == TAPI_RESULT_SUCC)
        type = answer;
    return result;
}

_TAPI_RESULT_E PHONE_ENG_Setup::setDTMF(unsigned char type)
{
    if (!setupCheckSystemStatus())
        return TAPI_RESULT_FAIL;
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_CS_SetDtmfToneType(type);
    LOG_TRACE();
    return result;
}

_TAPI_RESULT_E PHONE_ENG_Setup::getCLIR(_TAPI_CALL_RESTRICT_ID_E &id)
{
    if (!setupCheckSystemStatus())
        return TAPI_RESULT_FAIL;
    TAPI_DB_FEATURE_SETTING_T setting = 0;
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_FTRDB_GetState(callerIdFeature, &setting);
    LOG_TRACE();
    LOG_MESSAGE(R"(TAPI_FTRDB_GetState result=%d,TAPI_DB_FEATURE_SETTING_T =%d.\n)", static_cast<int>(result),
                setting);
    id = result == TAPI_RESULT_SUCC ? restrictionOf(setting) : TAPI_CALL_RESTRICT_ID_NETWORK;
    UTIL_SetRestrictId(static_cast<int>(id));
    return result;
}

_TAPI_RESULT_E PHONE_ENG_Setup::setCLIR(_TAPI_CALL_RESTRICT_ID_E id)
{
    if (!setupCheckSystemStatus())
        return TAPI_RESULT_FAIL;
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_CS_SetRestrictId(id);
    LOG_TRACE();
    if (result == TAPI_RESULT_SUCC)
        UTIL_SetRestrictId(static_cast<int>(id));
    return result;
}

_TAPI_RESULT_E PHONE_ENG_Setup::getNextCLIR(unsigned char &id)
{
    if (!setupCheckSystemStatus())
        return TAPI_RESULT_FAIL;
    const auto mirrored = static_cast<unsigned char>(UTIL_GetRestrictNextId());
    if (mirrored != 0) {
        id = mirrored;
        return TAPI_RESULT_SUCC;
    }
    unsigned char answer = 0;
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_CS_GetRestrictNextCallID(&answer);
    LOG_TRACE();
    id = result == TAPI_RESULT_SUCC ? answer : nextRestrictionOnFailure;
    UTIL_SetRestrictNextId(id);
    return result;
}

_TAPI_RESULT_E PHONE_ENG_Setup::setNextCLIR(unsigned char id)
{
    if (!setupCheckSystemStatus())
        return TAPI_RESULT_FAIL;
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_CS_SetRestrictNextCallID(id);
    LOG_TRACE();
    UTIL_SetRestrictNextId(result == TAPI_RESULT_SUCC ? id : nextRestrictionOnFailure);
    return result;
}

_TAPI_RESULT_E PHONE_ENG_Setup::isCallWaiting(bool &on)
{
    if (!setupCheckSystemStatus()) {
        on = false;
        return TAPI_RESULT_FAIL;
    }
    SETUP_SET_Manager store(AM_Global::CallSetup, false);
    const bool asksNetwork = Settings::get(store, Settings::setupGroup, u"DisCMReq", true);
    LOG_MESSAGE(R"(get config item PHONE_CALLSETUP_ITEM_CM_REQUEST status: %d\n)", asksNetwork);
    if (!asksNetwork)
        return callWaitingNotAsked;
    unsigned char status = 0;
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_CS_GetVoiceWaitingStatus(&status);
    LOG_TRACE();
    if (result == TAPI_RESULT_SUCC)
        on = status == 1;
    return result;
}

_TAPI_RESULT_E PHONE_ENG_Setup::setCallWaiting(bool on)
{
    if (!setupCheckSystemStatus())
        return TAPI_RESULT_FAIL;
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_CS_SetVoiceWaitingStatus(on ? 1 : 0);
    LOG_TRACE();
    return result;
}

_TAPI_RESULT_E PHONE_ENG_Setup::isAutoRedial(bool &on)
{
    if (!setupCheckSystemStatus()) {
        on = false;
        return TAPI_RESULT_FAIL;
    }
    unsigned char status = 0;
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_CS_GetAutoRedialStatus(&status);
    LOG_TRACE();
    if (result == TAPI_RESULT_SUCC)
        on = status == 1;
    return result;
}

_TAPI_RESULT_E PHONE_ENG_Setup::setAutoRedial(bool on)
{
    if (!setupCheckSystemStatus())
        return TAPI_RESULT_FAIL;
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_CS_SetAutoRedialStatus(on ? 1 : 0);
    LOG_TRACE();
    return result;
}

_TAPI_RESULT_E PHONE_ENG_Setup::isCallDropTone(bool &on)
{
    if (!setupCheckSystemStatus()) {
        on = false;
        return TAPI_RESULT_FAIL;
    }
    unsigned char status = 0;
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_CS_GetPendingCallDropToneStatus(&status);
    LOG_TRACE();
    if (result == TAPI_RESULT_SUCC)
        on = status == 1;
    return result;
}

_TAPI_RESULT_E PHONE_ENG_Setup::setCallDropTone(bool on)
{
    if (!setupCheckSystemStatus())
        return TAPI_RESULT_FAIL;
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_CS_SetPendingCallDropToneStatus(on ? 1 : 0);
    LOG_TRACE();
    return result;
}
