// Restrictions, options and lines.
#include "Card.h"
#include "Interfaces.h"
#include "NextCall.h"
#include "PhoneSettings.h"

#include "Product.h"
#include "SharedState.h"

#include "TAPI_CPHS.h"
#include "TAPI_CS.h"
#include "TAPI_FIXDIALING.h"
#include "TAPI_FTRDB.h"

#include <array>

using namespace Ofono;

namespace {

constexpr unsigned short callerIdFeature = 2236;

constexpr char toneKey[] = "dtmfToneType";
constexpr char autoRedialKey[] = "autoRedial";
constexpr char dropToneKey[] = "callDropTone";

/** The ways to show the own number, as the feature database numbers them. */
struct CallerId {
    _TAPI_CALL_RESTRICT_ID_E id;
    TAPI_DB_FEATURE_SETTING_T setting;
};

constexpr std::array<CallerId, callerIdNames.size()> callerIds = {{
    {TAPI_CALL_RESTRICT_ID_NETWORK, 0},
    {TAPI_CALL_RESTRICT_ID_INVOKE, 2},
    {TAPI_CALL_RESTRICT_ID_SUPPRESS, 1},
}};

/** The first read of these settings asks the network, the later ones do not. */
_TAPI_RESULT_E readSettings(Properties &settings)
{
    return Daemon::instance().properties(callSettings, Deadline::Network, settings);
}

} // namespace

/** The daemon knows fixed dialling only while it is on; what a card could do it does not tell. */
_TAPI_RESULT_E TAPI_FIXDIALING_GetAvailability(unsigned char selector, unsigned char *available)
{
    return TAPI_FIXDIALING_GetStatus(selector, available);
}

_TAPI_RESULT_E TAPI_FIXDIALING_GetStatus(unsigned char, unsigned char *on)
{
    Properties card;
    const _TAPI_RESULT_E result = Card::read(card);
    if (result != TAPI_RESULT_SUCC)
        return result;
    const bool status = card.flag("FixedDialing").value_or(false);
    if (!status && !Card::isKnown(card))
        return TAPI_RESULT_SIM_UNAVAILABLE; // not read yet
    *on = status ? 1 : 0;
    return TAPI_RESULT_SUCC;
}

_TAPI_RESULT_E TAPI_FIXDIALING_SetStatus(unsigned char, TAPI_PIN_A)
{
    return TAPI_RESULT_NOT_SUPPORTED;
}

int TAPI_FTRDB_GetAvailability(unsigned short featureId)
{
    return Handset::Product::instance().hasDatabaseFeature(featureId) ? 1 : 0;
}

_TAPI_RESULT_E TAPI_FTRDB_GetState(unsigned short featureId, TAPI_DB_FEATURE_SETTING_T *setting)
{
    if (featureId != callerIdFeature)
        return TAPI_RESULT_NOT_SUPPORTED;
    Properties settings;
    const _TAPI_RESULT_E result = readSettings(settings);
    if (result != TAPI_RESULT_SUCC)
        return result;
    const auto text = settings.text("HideCallerId");
    for (const CallerId &callerId : callerIds) {
        if (text == callerIdNames[callerId.id]) {
            *setting = callerId.setting;
            return TAPI_RESULT_SUCC;
        }
    }
    return TAPI_RESULT_FAIL;
}

_TAPI_RESULT_E TAPI_CS_SetRestrictId(_TAPI_CALL_RESTRICT_ID_E id)
{
    for (const CallerId &callerId : callerIds) {
        if (callerId.id == id)
            return Daemon::instance().setProperty(callSettings, "HideCallerId", callerIdNames[callerId.id]);
    }
    return TAPI_RESULT_INVALID_PARAM;
}

_TAPI_RESULT_E TAPI_CS_GetRestrictNextCallID(unsigned char *id)
{
    *id = static_cast<unsigned char>(Handset::sharedState().restrictNextCall);
    return TAPI_RESULT_SUCC;
}

_TAPI_RESULT_E TAPI_CS_SetRestrictNextCallID(unsigned char id)
{
    if (id > TAPI_CALL_RESTRICT_ID_SUPPRESS)
        return TAPI_RESULT_INVALID_PARAM;
    Handset::sharedState().restrictNextCall = id;
    return TAPI_RESULT_SUCC;
}

_TAPI_RESULT_E TAPI_CS_GetVoiceWaitingStatus(unsigned char *on)
{
    Properties settings;
    const _TAPI_RESULT_E result = readSettings(settings);
    if (result != TAPI_RESULT_SUCC)
        return result;
    const auto text = settings.text("VoiceCallWaiting");
    if (!text)
        return TAPI_RESULT_FAIL;
    *on = *text == "enabled" ? 1 : 0;
    return TAPI_RESULT_SUCC;
}

_TAPI_RESULT_E TAPI_CS_SetVoiceWaitingStatus(unsigned char on)
{
    return Daemon::instance().setProperty(callSettings, "VoiceCallWaiting", on == 1 ? "enabled" : "disabled");
}

_TAPI_RESULT_E TAPI_CS_GetDtmfToneType(unsigned char *type)
{
    return PhoneSettings::readByte(toneKey, type);
}

_TAPI_RESULT_E TAPI_CS_SetDtmfToneType(unsigned char type)
{
    return PhoneSettings::write(toneKey, type);
}

_TAPI_RESULT_E TAPI_CS_GetAutoRedialStatus(unsigned char *on)
{
    return PhoneSettings::readByte(autoRedialKey, on);
}

_TAPI_RESULT_E TAPI_CS_SetAutoRedialStatus(unsigned char on)
{
    return PhoneSettings::write(autoRedialKey, on);
}

_TAPI_RESULT_E TAPI_CS_GetPendingCallDropToneStatus(unsigned char *on)
{
    return PhoneSettings::readByte(dropToneKey, on);
}

_TAPI_RESULT_E TAPI_CS_SetPendingCallDropToneStatus(unsigned char on)
{
    return PhoneSettings::write(dropToneKey, on);
}

/** A card has one line here, and that one is selected. */
_TAPI_RESULT_E TAPI_CS_GetLine(signed char *index)
{
    *index = 0;
    return TAPI_RESULT_SUCC;
}

_TAPI_RESULT_E TAPI_CS_SelectLine(signed char index)
{
    switch (index) {
    case 0:
        return TAPI_RESULT_SUCC;
    case 1:
        return TAPI_RESULT_NOT_SUPPORTED;
    default:
        return TAPI_RESULT_INVALID_PARAM;
    }
}

/** The flag that the card keeps for its one line. The daemon knows it only while the modem is online. */
_TAPI_RESULT_E TAPI_CPHS_GetCallDivertStatus(unsigned char *line1, unsigned char *line2)
{
    const OneDeadline deadline;
    Properties modem;
    Properties card;
    Properties forwarding;
    _TAPI_RESULT_E result = Card::read(card);
    if (result == TAPI_RESULT_SUCC && !Card::isKnown(card))
        return TAPI_RESULT_SIM_UNAVAILABLE;
    if (result == TAPI_RESULT_SUCC)
        result = Daemon::instance().properties(modemInterface, Deadline::AtHand, modem);
    if (result == TAPI_RESULT_SUCC && !modem.flag("Online").value_or(false))
        return TAPI_RESULT_MODEM_OFFLINE;
    if (result == TAPI_RESULT_SUCC) // the first time the daemon asks the network too
        result = Daemon::instance().properties(callForwarding, Deadline::Network, forwarding);
    if (result != TAPI_RESULT_SUCC)
        return result;
    const auto flag = forwarding.flag("ForwardingFlagOnSim");
    if (!flag)
        return TAPI_RESULT_NOT_SUPPORTED;
    *line1 = *flag ? 1 : 0;
    *line2 = 0;
    return TAPI_RESULT_SUCC;
}

_TAPI_RESULT_E TAPI_CPHS_GetLineLockStatus(unsigned char *)
{
    return TAPI_RESULT_NOT_SUPPORTED;
}

_TAPI_RESULT_E TAPI_CPHS_SetLineLockStatus(unsigned char)
{
    return TAPI_RESULT_NOT_SUPPORTED;
}
