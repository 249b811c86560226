// Every operation of the exported interface, a line each.
#include "Operation.h"

#include "PHONE_ENG_WrapTapi.h"

#include <QMetaObject>

#include <cstring>

namespace Console {

namespace {

using Setup = PHONE_ENG_Setup;
using Net = PHONE_ENG_NtInterface;
using Result = _TAPI_RESULT_E;

constexpr char setupFace[] = "PHONE_ENG_Setup";
constexpr char netFace[] = "PHONE_ENG_NtInterface";
constexpr char plain[] = "";

/** An overload has a name of its own here. */
constexpr Entry documentedAs(const char *name, int declaration, Entry entry)
{
    entry.documented = name;
    entry.declaration = declaration;
    return entry;
}

/** A text as the NUL-terminated byte string that call control takes. */
unsigned char *bytes(QByteArray &text)
{
    return reinterpret_cast<unsigned char *>(text.data());
}

// What takes or gives values in records is called with words by these.

template <typename Object>
bool isThere()
{
    return Object::instance() != nullptr;
}

Result dial(signed char option, const QString &number, unsigned char &callId)
{
    QByteArray text = number.toLatin1();
    return PHONE_ENG_TAPI_CALL_VOICECALL_MakeReq(option, bytes(text), &callId);
}

Result dialForCard(const QString &number, _TAPI_VOICE_DIAL_CALL_TYPE_E dialType,
                   _TAPI_CALL_STK_REDIAL_E redial, unsigned int duration, unsigned char &callId)
{
    QByteArray text = number.toLatin1();
    return PHONE_ENG_TAPI_CALL_VOICECALL_STK_MakeReq(bytes(text), dialType, redial, duration, &callId);
}

Result transfer(unsigned char callId, const QString &number)
{
    QByteArray text = number.toLatin1();
    return PHONE_ENG_TAPI_CALL_VOICECALL_TransferReq(callId, bytes(text));
}

Result requestService(const QString &text)
{
    _TAPI_USSD_REQ_APP_MSG_S request = {};
    const QByteArray latin1 = text.toLatin1().left(static_cast<int>(sizeof request.text));
    request.length = static_cast<unsigned char>(latin1.size());
    std::memcpy(request.text, latin1.constData(), static_cast<std::size_t>(latin1.size()));
    return PHONE_ENG_TAPI_USSD_Make_Req(&request);
}

Result sendTones(unsigned char callId, const QString &digits)
{
    QByteArray text = digits.toLatin1();
    return PHONE_ENG_TAPI_CALL_VOICECALL_DtmfStringReq(callId, bytes(text));
}

void updateForwardingFlag()
{
    QMetaObject::invokeMethod(Setup::instance(), "updateCFFlag");
}

Result basebandVersion(QString &version)
{
    TAPI_BP_VER_A text = {};
    const Result result = Setup::instance()->getBpVersion(text);
    version = QString::fromLatin1(reinterpret_cast<const char *>(text));
    return result;
}

bool knownNetworks(QStringList &lines)
{
    Net *const network = Net::instance();
    const unsigned short count = network->getKwnownNetworksCnt();
    // A count that was scripted does not keep the phone from listing all that it knows.
    constexpr std::size_t enough = 256;
    std::vector<_TAPI_NETWORK_PLMN_INFO_S> networks(std::max<std::size_t>(count, enough));
    const bool listed = network->getKnownNetworks(networks.data());
    networks.resize(count);
    for (_TAPI_NETWORK_PLMN_INFO_S &known : networks) {
        constexpr std::array states = {"unknown", "available", "registered", "forbidden"};
        lines +=
            QStringLiteral("%1 %2, %3")
                .arg(QString::fromLatin1(known.networkId), Unicode2QStr(known.name, TAPI_NETWORK_NAME_UNITS),
                     QString::fromLatin1(states[known.status % states.size()]));
    }
    return listed;
}

bool operatorNames(const QStringList &networkIds, QStringList &names)
{
    std::vector<_TAPI_PLMN_INFO_STRUCT_S> entries(static_cast<std::size_t>(networkIds.size()));
    for (std::size_t entry = 0; entry < entries.size(); ++entry)
        std::strncpy(entries[entry].networkId, networkIds.at(static_cast<int>(entry)).toLatin1().constData(),
                     sizeof entries[entry].networkId - 1);
    const bool listed =
        Net::instance()->getOperatorNameList(entries.data(), static_cast<unsigned short>(entries.size()));
    for (_TAPI_PLMN_INFO_STRUCT_S &entry : entries)
        names += Unicode2QStr(entry.name, TAPI_NETWORK_NAME_UNITS);
    return listed;
}

bool reorder(unsigned int oldPriority, unsigned int newPriority, const QString &networkId)
{
    QString id = networkId;
    return Net::instance()->reorderNetworkPriority(oldPriority, newPriority, id);
}

QString textOfUnits(const QString &text, unsigned short maxUnits)
{
    std::vector<unsigned short> field(text.utf16(), text.utf16() + text.size());
    field.resize(std::max<std::size_t>(field.size(), maxUnits));
    return Unicode2QStr(field.data(), maxUnits);
}

constexpr Entry callControl[] = {
    operation<&PHONE_ENG_TAPI_initiation>(plain, "PHONE_ENG_TAPI_initiation"),
    operation<&PHONE_ENG_IsTapiDeviceActive>(plain, "PHONE_ENG_IsTapiDeviceActive"),
    operation<&dial>(plain, "PHONE_ENG_TAPI_CALL_VOICECALL_MakeReq", "option number callId"),
    operation<&dialForCard>(plain, "PHONE_ENG_TAPI_CALL_VOICECALL_STK_MakeReq",
                            "number dialType redial duration callId"),
    operation<&PHONE_ENG_TAPI_CALL_VOICECALL_AnswerReq>(plain, "PHONE_ENG_TAPI_CALL_VOICECALL_AnswerReq",
                                                        "callId answerType"),
    operation<&PHONE_ENG_TAPI_CALL_VOICECALL_ReleaseReq>(plain, "PHONE_ENG_TAPI_CALL_VOICECALL_ReleaseReq",
                                                         "callId dropType"),
    operation<&PHONE_ENG_TAPI_CALL_VOICECALL_HoldReq>(plain, "PHONE_ENG_TAPI_CALL_VOICECALL_HoldReq",
                                                      "callId hold"),
    operation<&PHONE_ENG_TAPI_CALL_VOICECALL_SwitchReq>(plain, "PHONE_ENG_TAPI_CALL_VOICECALL_SwitchReq",
                                                        "firstCallId secondCallId"),
    operation<&PHONE_ENG_TAPI_CALL_VOICECALL_CancelReq>(plain, "PHONE_ENG_TAPI_CALL_VOICECALL_CancelReq",
                                                        "callId"),
    operation<&PHONE_ENG_TAPI_CALL_VOICECALL_LinkReq>(plain, "PHONE_ENG_TAPI_CALL_VOICECALL_LinkReq",
                                                      "firstCallId secondCallId"),
    operation<&transfer>(plain, "PHONE_ENG_TAPI_CALL_VOICECALL_TransferReq", "callId number"),
    operation<&PHONE_ENG_TAPI_CALL_VOICECALL_ConferenceReq>(
        plain, "PHONE_ENG_TAPI_CALL_VOICECALL_ConferenceReq", "firstCallId secondCallId"),
    operation<&POHONE_ENG_TAPI_CALL_VOICECALL_UnconferenceReq>(
        plain, "POHONE_ENG_TAPI_CALL_VOICECALL_UnconferenceReq", "callId"),
    operation<&PHONE_ENG_TAPI_CALL_VOICECALL_RejectReq>(plain, "PHONE_ENG_TAPI_CALL_VOICECALL_RejectReq",
                                                        "callId rejectType"),
    operation<&PHONE_ENG_TAPI_CALL_VOICECALL_MuteReq>(plain, "PHONE_ENG_TAPI_CALL_VOICECALL_MuteReq", "mute"),
    operation<&requestService>(plain, "PHONE_ENG_TAPI_USSD_Make_Req", "text"),
    operation<&PHONE_ENG_TAPI_CALL_VOICECALL_DtmfReq>(plain, "PHONE_ENG_TAPI_CALL_VOICECALL_DtmfReq",
                                                      "key keyStatus"),
    operation<&sendTones>(plain, "PHONE_ENG_TAPI_CALL_VOICECALL_DtmfStringReq", "callId digits"),
    operation<&PHONE_ENG_TAPI_CALL_GetCallStatus>(plain, "PHONE_ENG_TAPI_CALL_GetCallStatus", "calls"),
    operation<&PHONE_ENG_TAPI_CALL_VOICECALL_Mute_Beep>(plain, "PHONE_ENG_TAPI_CALL_VOICECALL_Mute_Beep"),
    operation<&PHONE_ENG_TAPI_set_speaker_volume>(plain, "PHONE_ENG_TAPI_set_speaker_volume", "volume"),
    operation<&PHONE_ENG_TAPI_audio_accessory_status>(plain, "PHONE_ENG_TAPI_audio_accessory_status",
                                                      "status"),
    operation<&PHONE_ENG_TAPI_GetTTYMode>(plain, "PHONE_ENG_TAPI_GetTTYMode", "mode"),
    operation<&PHONE_ENG_TAPI_SetTTYMode>(plain, "PHONE_ENG_TAPI_SetTTYMode", "mode"),
    operation<&PHONE_ENG_TAPI_SetUSBDriverMode>(plain, "PHONE_ENG_TAPI_SetUSBDriverMode", "cable charging"),
};

constexpr Entry settings[] = {
    operation<&isThere<Setup>>(setupFace, "instance"),
    operation<&Setup::destruction>(setupFace, "destruction"),
    operation<&Setup::className>("className"),
    operation<&Setup::checkFlashFull>("checkFlashFull"),
    operation<&Setup::setupCheckSystemStatus>(setupFace, "setupCheckSystemStatus"),
    operation<&Setup::isTapiDeviceActive>(setupFace, "isTapiDeviceActive"),

    operation<&Setup::isReminder>("isReminder"),
    operation<&Setup::setReminder>("setReminder", "on"),
    operation<&Setup::isFlipAnswer>("isFlipAnswer"),
    operation<&Setup::setFlipAnswer>("setFlipAnswer", "on"),
    operation<&Setup::isAnykeyAnswer>("isAnykeyAnswer"),
    operation<&Setup::setAnykeyAnswer>("setAnykeyAnswer", "on"),
    operation<&Setup::isAutoAnswer>("isAutoAnswer"),
    operation<&Setup::setAutoAnswer>("setAutoAnswer", "on"),
    operation<&Setup::isPrepend>("isPrepend"),
    operation<&Setup::setPrepend>("setPrepend", "on"),
    operation<&Setup::isMsgAlert>("isMsgAlert"),
    operation<&Setup::setMsgAlert>("setMsgAlert", "on"),
    operation<&Setup::isRoamAlert>("isRoamAlert"),
    operation<&Setup::setRoamAlert>("setRoamAlert", "on"),
    operation<&Setup::isAutoFallbackVoiceCall>("isAutoFallbackVoiceCall"),
    operation<&Setup::setAutoFallbackVoiceCall>("setAutoFallbackVoiceCall", "on"),
    operation<&PHONE_isAutoFallbackVoiceCall>(plain, "PHONE_isAutoFallbackVoiceCall"),
    operation<&Setup::isHACOn>("isHACOn"),
    operation<&Setup::setHAC>("setHAC", "on"),
    operation<&Setup::isHACEnabled>("isHACEnabled"),
    operation<&Setup::getAudibleTimer>("getAudibleTimer", "timer"),
    operation<&Setup::setAudibleTimer>("setAudibleTimer", "timer"),
    operation<&Setup::getHyphenation>("getHyphenation", "mode"),
    operation<&Setup::setHyphenation>("setHyphenation", "mode"),
    operation<&Setup::getSearchMode>("getSearchMode", "mode"),
    operation<&Setup::setSearchMode>("setSearchMode", "mode"),
    operation<&Setup::getMatchNumIndicate>("getMatchNumIndicate", "indicate"),
    operation<&Setup::getNddPrefix>("getNddPrefix", "prefix"),
    operation<&Setup::isSupportedInputMethod>("isSupportedInputMethod", "inputMethod"),

    operation<&Setup::isOneTouchNumber>("isOneTouchNumber", "slot number"),
    operation<&Setup::getTurboDialing>("getTurboDialing", "slot full"),
    operation<&Setup::getTurboDialingList>("getTurboDialingList", "list full"),
    operation<static_cast<bool (Setup::*)(int, const QString &)>(&Setup::setTurboDialing)>("setTurboDialing",
                                                                                           "slot number"),
    documentedAs("setTurboDialing", 2,
                 operation<static_cast<bool (Setup::*)(const QStringList &)>(&Setup::setTurboDialing)>(
                     "setTurboDialingList", "numbers...")),
    operation<&Setup::getTurboDialingLocation>("getTurboDialingLocation", "slot"),
    operation<&Setup::setTurboDialingLocation>("setTurboDialingLocation", "slot location"),

    operation<&Setup::getCameraMute>("getCameraMute", "mute"),
    operation<&Setup::setCameraMute>("setCameraMute", "mute"),
    operation<&Setup::getCameraOffImage>("getCameraOffImage"),
    operation<&Setup::getDefaultCameraOffImage>("getDefaultCameraOffImage"),
    operation<&Setup::setCameraOffImage>("setCameraOffImage", "path"),
    operation<&Setup::getRVCAlertType>("getRVCAlertType", "alert"),
    operation<&Setup::setRVCAlertType>("setRVCAlertType", "alert"),
    operation<&Setup::getRVCInvitationTimer>("getRVCInvitationTimer", "timeout"),
    operation<&PHONE_GetCameraMute>(plain, "PHONE_GetCameraMute", "mute"),
    operation<&PHONE_GetCameraOffImage>(plain, "PHONE_GetCameraOffImage"),
};

constexpr Entry services[] = {
    operation<&Setup::getDefaultCallForwardTimer>("getDefaultCallForwardTimer"),
    operation<&Setup::getVoiceCallsDivert>("getVoiceCallsDivert", "active number when"),
    operation<&Setup::getDataCallsDivert>("getDataCallsDivert", "active number when"),
    operation<&Setup::getFaxCallsDivert>("getFaxCallsDivert", "active number when"),
    operation<&Setup::divertVoiceCalls>("divertVoiceCalls", "enable when number"),
    operation<&Setup::divertDataCalls>("divertDataCalls", "enable when number"),
    operation<&Setup::divertFaxCalls>("divertFaxCalls", "enable when number"),
    operation<&Setup::divertVoiceCallsWithTime>("divertVoiceCallsWithTime", "enable number time"),
    operation<&Setup::cancelAllVoiceCallsDiverts>("cancelAllVoiceCallsDiverts"),
    operation<&Setup::cancelAllCallsDiverts>("cancelAllCallsDiverts"),
    operation<&Setup::getCallForwardingFlag>("getCallForwardingFlag"),
    operation<&updateForwardingFlag>(setupFace, "updateCFFlag"),

    operation<&Setup::getAvailableCredit>("getAvailableCredit"),
    operation<&Setup::getTotalCallCost>("getTotalCallCost"),
    operation<&Setup::getTotalLifeTimer>("getTotalLifeTimer"),
    operation<&Setup::getTotalCallTime>("getTotalCallTime"),
    operation<&Setup::getMeterMax>("getMeterMax", "max flag"),
    operation<&Setup::setMeterMax>("setMeterMax", "max"),
    operation<&Setup::disableCMM>("disableCMM"),
    operation<&Setup::getChargeType>("getChargeType", "type"),
    operation<&Setup::setChargeType>("setChargeType", "type"),
    operation<&Setup::getMeterDisplay>("getMeterDisplay", "display"),
    operation<&Setup::setMeterDisplay>("setMeterDisplay", "display"),
    operation<&Setup::resetCallMeter>("resetCallMeter"),
    operation<&Setup::resetCallTime>("resetCallTime"),
    operation<&Setup::getPriceUnitCurrency>("getPriceUnitCurrency", "unit currency"),
    operation<&Setup::setPriceUnitCurrency>("setPriceUnitCurrency", "unit currency"),

    operation<&Setup::isFixedDialingAvailable>("isFixedDialingAvailable"),
    operation<&Setup::isFixedDialing>("isFixedDialing", "on"),
    operation<&Setup::setFixedDialing>("setFixedDialing", "on pin2"),
    operation<&Setup::getDTMF>("getDTMF", "type"),
    operation<&Setup::setDTMF>("setDTMF", "type"),
    operation<&Setup::getCLIR>("getCLIR", "id"),
    operation<&Setup::setCLIR>("setCLIR", "id"),
    operation<&Setup::getNextCLIR>("getNextCLIR", "id"),
    operation<&Setup::setNextCLIR>("setNextCLIR", "id"),
    operation<&Setup::isCallWaiting>("isCallWaiting", "on"),
    operation<&Setup::setCallWaiting>("setCallWaiting", "on"),
    operation<&Setup::isAutoRedial>("isAutoRedial", "on"),
    operation<&Setup::setAutoRedial>("setAutoRedial", "on"),
    operation<&Setup::isCallDropTone>("isCallDropTone", "on"),
    operation<&Setup::setCallDropTone>("setCallDropTone", "on"),

    operation<&Setup::currentLineNo>("currentLineNo", "line"),
    operation<&Setup::setLineNo>("setLineNo", "line"),
    operation<&Setup::getLineLockStatus>("getLineLockStatus"),
    operation<&Setup::setLineLockStatus>("setLineLockStatus", "lock"),
    operation<&Setup::curLineLockStatus>("curLineLockStatus", "status"),
    operation<&Setup::isVmHotKeysAvailable>("isVmHotKeysAvailable"),
    operation<&Setup::loadVoiceMailboxNumberFromSIM>("loadVoiceMailboxNumberFromSIM"),
};

constexpr Entry sim[] = {
    operation<&Setup::setupVerifySimPin>(setupFace, "setupVerifySimPin", "pin"),
    operation<&Setup::changeSimPin>("changeSimPin", "oldPin newPin"),
    operation<&Setup::unblockingPin>("unblockingPin", "puk newPin"),
    operation<&Setup::setupUnblockSimPin1>(setupFace, "setupUnblockSimPin1", "puk newPin"),
    operation<&Setup::enablePin1>(setupFace, "enablePin1", "pin"),
    operation<&Setup::simPinIsOpen>("simPinIsOpen"),
    operation<&Setup::processPIN1ResultError>(setupFace, "processPIN1ResultError", "result"),
    operation<&Setup::verifyPin2Code>("verifyPin2Code", "pin2"),
    operation<&Setup::changeSimPin2>("changeSimPin2", "oldPin2 newPin2"),
    operation<&Setup::unblockingPin2>(setupFace, "unblockingPin2", "puk2 newPin2"),
    operation<&Setup::readPin2Status>("readPin2Status", "status"),
    operation<&Setup::setupVerifyUpin>(setupFace, "setupVerifyUpin", "upin"),
    operation<&Setup::setupChangeUpin>("setupChangeUpin", "oldUpin newUpin"),
    operation<&Setup::setupUnblockUpin>(setupFace, "setupUnblockUpin", "puk newUpin"),
    operation<&Setup::getUpinStatus>("getUpinStatus", "status"),
    operation<&Setup::processUPINResultError>(setupFace, "processUPINResultError", "result"),

    operation<&Setup::getMyNumber>("getMyNumber", "number1 name1 number2 name2"),
    operation<&Setup::setMyNumber>("setMyNumber", "line number name"),
    operation<&Setup::deleteMyNumber>("deleteMyNumber", "line"),
    operation<&Setup::getMyNumberList>("getMyNumberList", "list"),
    operation<&Setup::getMyNumberLimit>("getMyNumberLimit", "maxNumberLength maxNameLength"),
    operation<&Setup::getEFUpdateRule>("getEFUpdateRule", "fileId rule"),

    operation<&Setup::getUSIMAccountList>("getUSIMAccountList", "list activeIndex count"),
    operation<&Setup::getCurrentUSIMAccountTitle>("getCurrentUSIMAccountTitle", "title count"),
    operation<&Setup::readIMEISerialNumber>("readIMEISerialNumber", "imei"),
    operation<&Setup::getBpVersionInfo>("getBpVersionInfo", "versions"),
    operation<&basebandVersion>(setupFace, "getBpVersion", "version"),
    operation<&Setup::isShowBpPanic>("isShowBpPanic"),
};

constexpr Entry networkSelection[] = {
    operation<&isThere<Net>>(netFace, "instance"),
    operation<&Net::destroy>(netFace, "destroy"),
    operation<&Net::destruction>("destruction"),
    operation<&Net::className>("className"),
    operation<&Net::result>("result", "code"),

    operation<&Net::getSearchMode>("getSearchMode", "mode"),
    operation<&Net::setSearchMode>("setSearchMode", "mode"),
    operation<&Net::getSearchFreqency>("getSearchFreqency", "speed"),
    operation<&Net::setSearchFreqency>("setSearchFreqency", "speed"),
    operation<&Net::getBand>("getBand", "band"),
    operation<&Net::setBand>("setBand", "band"),
    operation<&Net::getServiceTone>("getServiceTone", "on"),
    operation<&Net::setServiceTone>("setServiceTone", "on"),
    operation<&Net::getDropTone>("getDropTone", "on"),
    operation<&Net::setDropTone>("setDropTone", "on"),

    operation<&Net::findNewNetwork>("findNewNetwork"),
    operation<&Net::rescanNetwork>("rescanNetwork"),
    operation<&Net::getAvailableNetworks>("getAvailableNetworks"),
    operation<&Net::cancelGetAvailableNetworks>("cancelGetAvailableNetworks"),
    operation<&Net::cancelFindNewNetworks>("cancelFindNewNetworks"),
    operation<&Net::getKwnownNetworksCnt>("getKwnownNetworksCnt"),
    operation<&knownNetworks>(netFace, "getKnownNetworks", "networks"),
    operation<&Net::registerNetwork>("registerNetwork", "networkId"),
    operation<&Net::getNetworkName>("getNetworkName", "networkId shortName longName"),
    operation<&operatorNames>(netFace, "getOperatorNameList", "networkIds... names"),
    operation<&Net::myListScreenIsAvailable>("myListScreenIsAvailable"),

    operation<&Net::getPreferredNetworks>("getPreferredNetworks", "list"),
    operation<&Net::addPreferredNetwork>("addPreferredNetwork", "priority networkId"),
    operation<&Net::delPreferredNetwork>("delPreferredNetwork", "priority"),
    operation<&Net::delAllPreferredNetwork>("delAllPreferredNetwork"),
    operation<&reorder>(netFace, "reorderNetworkPriority", "oldPriority newPriority networkId"),
    operation<&Net::getCapacityPreferedNetwork>("getCapacityPreferedNetwork", "capacity"),

    operation<&Net::getServiceProviderName>("getServiceProviderName"),
    operation<&PHONE_SET_IsHomeNetwork>(plain, "PHONE_SET_IsHomeNetwork", "networkId"),
    operation<&textOfUnits>(plain, "Unicode2QStr", "text maxUnits"),
};

} // namespace

const std::vector<Operation> &operations()
{
    static const std::vector<Operation> all = [] {
        std::vector<Operation> list;
        for (const std::span<const Entry> group :
             {std::span<const Entry>(callControl), std::span<const Entry>(settings),
              std::span<const Entry>(services), std::span<const Entry>(sim),
              std::span<const Entry>(networkSelection)})
            for (const Entry &entry : group)
                list.emplace_back(entry);
        return list;
    }();
    return all;
}

} // namespace Console
