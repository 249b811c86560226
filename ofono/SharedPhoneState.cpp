// Shared phone state, language, broadcasts and phone messages.
#include "Broadcaster.h"
#include "Calls.h"
#include "Card.h"
#include "Language.h"
#include "SharedState.h"

#include "PHONE_Msg.h"
#include "QCopChannel.h"
#include "UTIL_Language.h"
#include "UTIL_State.h"

using Handset::sharedState;

void UTIL_SetDialHyphenation(int mode)
{
    sharedState().dialHyphenation = mode;
}

int UTIL_GetCallChargeType()
{
    return sharedState().chargeTypePlusOne - 1;
}

void UTIL_SetCallChargeType(int type)
{
    sharedState().chargeTypePlusOne = type + 1;
}

void UTIL_SetRestrictId(int id)
{
    sharedState().restrictId = id;
}

int UTIL_GetRestrictNextId()
{
    return sharedState().restrictNextId;
}

void UTIL_SetRestrictNextId(int id)
{
    sharedState().restrictNextId = id;
}

int UTIL_GetPhoneLine()
{
    return sharedState().phoneLine;
}

void UTIL_SetPhoneLine(int index)
{
    sharedState().phoneLine = index;
}

void UTIL_SetCPHSCallForwardStatus(int status)
{
    sharedState().cphsForwarding = status;
}

/** The daemon does not read the mailbox of a two-line card. */
int UTIL_GetCphsVMStatus()
{
    return 0;
}

/** The card is not to be asked while there is none. */
int UTIL_GetSIMPinBatteryStatus()
{
    Ofono::Properties card;
    return Ofono::Card::read(card) == TAPI_RESULT_SIM_UNAVAILABLE ? 1 : 0;
}

void UTIL_SetPinStatus(int status)
{
    sharedState().pinStatus = status;
}

void UTIL_SetCardType(int type)
{
    sharedState().cardType = type;
}

void UTIL_SetActiveAccount(int position)
{
    sharedState().activeAccount = position;
}

int UTIL_GetIncomingCallStatus()
{
    Ofono::Calls calls;
    return calls.read(Ofono::Deadline::AtHand) == TAPI_RESULT_SUCC && calls.count(TAPI_CALL_STATE_RINGING) > 0
        ? 1
        : 0;
}

int UTIL_Language::getSystemLanguageId()
{
    return Handset::systemLanguage();
}

bool QCopChannel::send(const QByteArray &channel, const QByteArray &message)
{
    return Handset::broadcast(channel.constData(), message.constData());
}

PHONE_Msg::PHONE_Msg(QObject *parent, const char *name)
    : QObject(parent)
{
    if (name)
        setObjectName(QString::fromUtf8(name));
}

PHONE_Msg::~PHONE_Msg() = default;

bool PHONE_Msg::send(PHONE_MSG_TYPE_T type)
{
    return Handset::sendPhoneMessage(type);
}
