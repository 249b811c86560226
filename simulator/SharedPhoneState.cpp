// Shared phone state, language, broadcasts and phone messages.
#include "Calls.h"
#include "PlatformCall.h"

#include "PHONE_Msg.h"
#include "QCopChannel.h"
#include "UTIL_Language.h"
#include "UTIL_State.h"

using Simulator::platformCall;

void UTIL_SetDialHyphenation(int mode)
{
    platformCall(
        "UTIL_SetDialHyphenation", {}, [mode](PhoneState &phone) { phone.shared.dialHyphenation = mode; },
        mode);
}

int UTIL_GetCallChargeType()
{
    return platformCall("UTIL_GetCallChargeType", {},
                        [](PhoneState &phone) { return phone.shared.chargeType; });
}

void UTIL_SetCallChargeType(int type)
{
    platformCall(
        "UTIL_SetCallChargeType", {}, [type](PhoneState &phone) { phone.shared.chargeType = type; }, type);
}

void UTIL_SetRestrictId(int id)
{
    platformCall(
        "UTIL_SetRestrictId", {}, [id](PhoneState &phone) { phone.shared.restrictId = id; }, id);
}

int UTIL_GetRestrictNextId()
{
    return platformCall("UTIL_GetRestrictNextId", {},
                        [](PhoneState &phone) { return phone.shared.restrictNextId; });
}

void UTIL_SetRestrictNextId(int id)
{
    platformCall(
        "UTIL_SetRestrictNextId", {}, [id](PhoneState &phone) { phone.shared.restrictNextId = id; }, id);
}

int UTIL_GetPhoneLine()
{
    return platformCall("UTIL_GetPhoneLine", {}, [](PhoneState &phone) { return phone.shared.phoneLine; });
}

void UTIL_SetPhoneLine(int index)
{
    platformCall(
        "UTIL_SetPhoneLine", {}, [index](PhoneState &phone) { phone.shared.phoneLine = index; }, index);
}

void UTIL_SetCPHSCallForwardStatus(int status)
{
    platformCall(
        "UTIL_SetCPHSCallForwardStatus", {},
        [status](PhoneState &phone) { phone.shared.cphsForwarding = status; }, status);
}

int UTIL_GetCphsVMStatus()
{
    return platformCall("UTIL_GetCphsVMStatus", {},
                        [](PhoneState &phone) { return phone.shared.cphsVoiceMail; });
}

int UTIL_GetSIMPinBatteryStatus()
{
    return platformCall("UTIL_GetSIMPinBatteryStatus", {},
                        [](PhoneState &phone) { return phone.shared.simPinBattery; });
}

void UTIL_SetPinStatus(int status)
{
    platformCall(
        "UTIL_SetPinStatus", {}, [status](PhoneState &phone) { phone.shared.pinStatus = status; }, status);
}

void UTIL_SetCardType(int type)
{
    platformCall(
        "UTIL_SetCardType", {}, [type](PhoneState &phone) { phone.shared.cardType = type; }, type);
}

void UTIL_SetActiveAccount(int position)
{
    platformCall(
        "UTIL_SetActiveAccount", {}, [position](PhoneState &phone) { phone.shared.activeAccount = position; },
        position);
}

int UTIL_GetIncomingCallStatus()
{
    return platformCall("UTIL_GetIncomingCallStatus", {}, [](PhoneState &phone) {
        return phone.shared.incomingCall == 0 && Simulator::isRinging(phone.calls)
            ? 1
            : phone.shared.incomingCall;
    });
}

int UTIL_Language::getSystemLanguageId()
{
    return platformCall("UTIL_Language::getSystemLanguageId", {},
                        [](PhoneState &) { return SimulatedPhone::instance().language(); });
}

/** Broadcasts stay in the journal: on a session bus they would tell the user's own programs of a phone that is none. */
bool QCopChannel::send(const QByteArray &channel, const QByteArray &message)
{
    return platformCall(
        "QCopChannel::send", {}, [](PhoneState &) { return true; }, channel, message);
}

PHONE_Msg::PHONE_Msg(QObject *parent, const char *name)
    : QObject(parent)
{
    platformCall(
        "PHONE_Msg", {}, [](PhoneState &) {}, parent != nullptr, name ? name : "");
}

PHONE_Msg::~PHONE_Msg()
{
    platformCall("~PHONE_Msg", {}, [](PhoneState &) {});
}

bool PHONE_Msg::send(PHONE_MSG_TYPE_T type)
{
    return platformCall(
        "PHONE_Msg::send", {}, [](PhoneState &) { return true; }, type);
}
