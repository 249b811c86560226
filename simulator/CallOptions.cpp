// Restrictions, options and lines.
#include "CallOptions.h"

#include "Pins.h"
#include "PlatformCall.h"

#include "TAPI_CPHS.h"
#include "TAPI_CS.h"
#include "TAPI_FIXDIALING.h"
#include "TAPI_FTRDB.h"

using Simulator::Field;
using Simulator::Out;
using Simulator::platformCall;

namespace {

/** Reads one byte of the service state. */
_TAPI_RESULT_E readByte(const char *function, unsigned char ServiceState::*member, unsigned char *value)
{
    return platformCall(function, {Out(value)}, [=](PhoneState &phone) {
        *value = phone.services.*member;
        return TAPI_RESULT_SUCC;
    });
}

_TAPI_RESULT_E writeByte(const char *function, unsigned char ServiceState::*member, unsigned char value)
{
    return platformCall(
        function, {},
        [=](PhoneState &phone) {
            phone.services.*member = value;
            return TAPI_RESULT_SUCC;
        },
        value);
}

} // namespace

_TAPI_RESULT_E TAPI_FIXDIALING_GetAvailability(unsigned char selector, unsigned char *available)
{
    return platformCall(
        "TAPI_FIXDIALING_GetAvailability", {Out(available)},
        [=](PhoneState &phone) {
            *available = phone.services.fixedDialingAvailable;
            return TAPI_RESULT_SUCC;
        },
        selector);
}

_TAPI_RESULT_E TAPI_FIXDIALING_GetStatus(unsigned char selector, unsigned char *on)
{
    return platformCall(
        "TAPI_FIXDIALING_GetStatus", {Out(on)},
        [=](PhoneState &phone) {
            *on = phone.services.fixedDialing;
            return TAPI_RESULT_SUCC;
        },
        selector);
}

_TAPI_RESULT_E TAPI_FIXDIALING_SetStatus(unsigned char on, TAPI_PIN_A pin2)
{
    return platformCall(
        "TAPI_FIXDIALING_SetStatus", {},
        [=](PhoneState &phone) {
            const _TAPI_RESULT_E result =
                Simulator::verifyPin(phone.sim.pin2, Simulator::textOf(pin2, sizeof(TAPI_PIN_A)));
            if (result == TAPI_RESULT_SUCC)
                phone.services.fixedDialing = on;
            return result;
        },
        on, Field(pin2, sizeof(TAPI_PIN_A)));
}

int TAPI_FTRDB_GetAvailability(unsigned short featureId)
{
    return platformCall(
        "TAPI_FTRDB_GetAvailability", {},
        [=](PhoneState &) {
            return SimulatedPhone::instance().product().hasDatabaseFeature(featureId) ? 1 : 0;
        },
        featureId);
}

_TAPI_RESULT_E TAPI_FTRDB_GetState(unsigned short featureId, TAPI_DB_FEATURE_SETTING_T *setting)
{
    return platformCall(
        "TAPI_FTRDB_GetState", {Out(setting)},
        [=](PhoneState &phone) {
            const auto found = phone.services.featureSettings.find(featureId);
            *setting = found == phone.services.featureSettings.end() ? 0 : found->second;
            return TAPI_RESULT_SUCC;
        },
        featureId);
}

_TAPI_RESULT_E TAPI_CS_GetDtmfToneType(unsigned char *type)
{
    return readByte("TAPI_CS_GetDtmfToneType", &ServiceState::dtmfType, type);
}

_TAPI_RESULT_E TAPI_CS_SetDtmfToneType(unsigned char type)
{
    return writeByte("TAPI_CS_SetDtmfToneType", &ServiceState::dtmfType, type);
}

_TAPI_RESULT_E TAPI_CS_SetRestrictId(_TAPI_CALL_RESTRICT_ID_E id)
{
    return platformCall(
        "TAPI_CS_SetRestrictId", {},
        [id](PhoneState &phone) { return Simulator::setCallerIdRestriction(phone.services, id); }, id);
}

_TAPI_RESULT_E TAPI_CS_GetRestrictNextCallID(unsigned char *id)
{
    return readByte("TAPI_CS_GetRestrictNextCallID", &ServiceState::restrictNextCall, id);
}

_TAPI_RESULT_E TAPI_CS_SetRestrictNextCallID(unsigned char id)
{
    return writeByte("TAPI_CS_SetRestrictNextCallID", &ServiceState::restrictNextCall, id);
}

_TAPI_RESULT_E TAPI_CS_GetVoiceWaitingStatus(unsigned char *on)
{
    return readByte("TAPI_CS_GetVoiceWaitingStatus", &ServiceState::callWaiting, on);
}

_TAPI_RESULT_E TAPI_CS_SetVoiceWaitingStatus(unsigned char on)
{
    return writeByte("TAPI_CS_SetVoiceWaitingStatus", &ServiceState::callWaiting, on);
}

_TAPI_RESULT_E TAPI_CS_GetAutoRedialStatus(unsigned char *on)
{
    return readByte("TAPI_CS_GetAutoRedialStatus", &ServiceState::autoRedial, on);
}

_TAPI_RESULT_E TAPI_CS_SetAutoRedialStatus(unsigned char on)
{
    return writeByte("TAPI_CS_SetAutoRedialStatus", &ServiceState::autoRedial, on);
}

_TAPI_RESULT_E TAPI_CS_GetPendingCallDropToneStatus(unsigned char *on)
{
    return readByte("TAPI_CS_GetPendingCallDropToneStatus", &ServiceState::dropTone, on);
}

_TAPI_RESULT_E TAPI_CS_SetPendingCallDropToneStatus(unsigned char on)
{
    return writeByte("TAPI_CS_SetPendingCallDropToneStatus", &ServiceState::dropTone, on);
}

_TAPI_RESULT_E TAPI_CS_GetLine(signed char *index)
{
    return platformCall("TAPI_CS_GetLine", {Out(index)}, [index](PhoneState &phone) {
        *index = phone.services.line;
        return TAPI_RESULT_SUCC;
    });
}

_TAPI_RESULT_E TAPI_CS_SelectLine(signed char index)
{
    return platformCall(
        "TAPI_CS_SelectLine", {},
        [index](PhoneState &phone) { return Simulator::selectLine(phone.services, index); }, index);
}

_TAPI_RESULT_E TAPI_CPHS_GetLineLockStatus(unsigned char *locked)
{
    return readByte("TAPI_CPHS_GetLineLockStatus", &ServiceState::lineLock, locked);
}

_TAPI_RESULT_E TAPI_CPHS_SetLineLockStatus(unsigned char lock)
{
    return writeByte("TAPI_CPHS_SetLineLockStatus", &ServiceState::lineLock, lock);
}
