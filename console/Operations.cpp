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

/** A text as the NUL-terminated byte string that call control takes. */
unsigned char *bytes(QByteArray &text)
{
    return reinterpret_cast<unsigned char *>(text.data());
}

template <typename Function>
Operation adapted(const char *face, const char *name, Function function, const char *names)
{
    return operation(face, name, std::function(function), names);
}

/** An overload has a name of its own here. */
Operation documentedAs(const char *name, int declaration, Operation operation)
{
    operation.documented = QString::fromLatin1(name);
    operation.declaration = declaration;
    return operation;
}

QStringList knownNetworks(bool &listed)
{
    Net *const network = Net::instance();
    const unsigned short count = network->getKwnownNetworksCnt();
    // A count that was scripted does not keep the phone from listing all that it knows.
    constexpr std::size_t enough = 256;
    std::vector<_TAPI_NETWORK_PLMN_INFO_S> networks(std::max<std::size_t>(count, enough));
    listed = network->getKnownNetworks(networks.data());
    networks.resize(count);
    QStringList lines;
    for (_TAPI_NETWORK_PLMN_INFO_S &known : networks) {
        constexpr std::array states = {"unknown", "available", "registered", "forbidden"};
        lines +=
            QStringLiteral("%1 %2, %3")
                .arg(QString::fromLatin1(known.networkId), Unicode2QStr(known.name, TAPI_NETWORK_NAME_UNITS),
                     QString::fromLatin1(states[known.status % states.size()]));
    }
    return lines;
}

std::vector<Operation> callControl()
{
    return {
        operation(plain, "PHONE_ENG_TAPI_initiation", &PHONE_ENG_TAPI_initiation),
        operation(plain, "PHONE_ENG_IsTapiDeviceActive", &PHONE_ENG_IsTapiDeviceActive),
        adapted(
            plain, "PHONE_ENG_TAPI_CALL_VOICECALL_MakeReq",
            [](signed char option, const QString &number, unsigned char &callId) {
                QByteArray text = number.toLatin1();
                return PHONE_ENG_TAPI_CALL_VOICECALL_MakeReq(option, bytes(text), &callId);
            },
            "option number callId"),
        adapted(
            plain, "PHONE_ENG_TAPI_CALL_VOICECALL_STK_MakeReq",
            [](const QString &number, _TAPI_VOICE_DIAL_CALL_TYPE_E dialType, _TAPI_CALL_STK_REDIAL_E redial,
               unsigned int duration, unsigned char &callId) {
                QByteArray text = number.toLatin1();
                return PHONE_ENG_TAPI_CALL_VOICECALL_STK_MakeReq(bytes(text), dialType, redial, duration,
                                                                 &callId);
            },
            "number dialType redial duration callId"),
        operation(plain, "PHONE_ENG_TAPI_CALL_VOICECALL_AnswerReq", &PHONE_ENG_TAPI_CALL_VOICECALL_AnswerReq,
                  "callId answerType"),
        operation(plain, "PHONE_ENG_TAPI_CALL_VOICECALL_ReleaseReq",
                  &PHONE_ENG_TAPI_CALL_VOICECALL_ReleaseReq, "callId dropType"),
        operation(plain, "PHONE_ENG_TAPI_CALL_VOICECALL_HoldReq", &PHONE_ENG_TAPI_CALL_VOICECALL_HoldReq,
                  "callId hold"),
        operation(plain, "PHONE_ENG_TAPI_CALL_VOICECALL_SwitchReq", &PHONE_ENG_TAPI_CALL_VOICECALL_SwitchReq,
                  "firstCallId secondCallId"),
        operation(plain, "PHONE_ENG_TAPI_CALL_VOICECALL_CancelReq", &PHONE_ENG_TAPI_CALL_VOICECALL_CancelReq,
                  "callId"),
        operation(plain, "PHONE_ENG_TAPI_CALL_VOICECALL_LinkReq", &PHONE_ENG_TAPI_CALL_VOICECALL_LinkReq,
                  "firstCallId secondCallId"),
        adapted(
            plain, "PHONE_ENG_TAPI_CALL_VOICECALL_TransferReq",
            [](unsigned char callId, const QString &number) {
                QByteArray text = number.toLatin1();
                return PHONE_ENG_TAPI_CALL_VOICECALL_TransferReq(callId, bytes(text));
            },
            "callId number"),
        operation(plain, "PHONE_ENG_TAPI_CALL_VOICECALL_ConferenceReq",
                  &PHONE_ENG_TAPI_CALL_VOICECALL_ConferenceReq, "firstCallId secondCallId"),
        operation(plain, "POHONE_ENG_TAPI_CALL_VOICECALL_UnconferenceReq",
                  &POHONE_ENG_TAPI_CALL_VOICECALL_UnconferenceReq, "callId"),
        operation(plain, "PHONE_ENG_TAPI_CALL_VOICECALL_RejectReq", &PHONE_ENG_TAPI_CALL_VOICECALL_RejectReq,
                  "callId rejectType"),
        operation(plain, "PHONE_ENG_TAPI_CALL_VOICECALL_MuteReq", &PHONE_ENG_TAPI_CALL_VOICECALL_MuteReq,
                  "mute"),
        adapted(
            plain, "PHONE_ENG_TAPI_USSD_Make_Req",
            [](const QString &text) {
                _TAPI_USSD_REQ_APP_MSG_S request = {};
                const QByteArray latin1 = text.toLatin1().left(static_cast<int>(sizeof request.text));
                request.length = static_cast<unsigned char>(latin1.size());
                std::memcpy(request.text, latin1.constData(), static_cast<std::size_t>(latin1.size()));
                return PHONE_ENG_TAPI_USSD_Make_Req(&request);
            },
            "text"),
        operation(plain, "PHONE_ENG_TAPI_CALL_VOICECALL_DtmfReq", &PHONE_ENG_TAPI_CALL_VOICECALL_DtmfReq,
                  "key keyStatus"),
        adapted(
            plain, "PHONE_ENG_TAPI_CALL_VOICECALL_DtmfStringReq",
            [](unsigned char callId, const QString &digits) {
                QByteArray text = digits.toLatin1();
                return PHONE_ENG_TAPI_CALL_VOICECALL_DtmfStringReq(callId, bytes(text));
            },
            "callId digits"),
        operation(plain, "PHONE_ENG_TAPI_CALL_GetCallStatus", &PHONE_ENG_TAPI_CALL_GetCallStatus, "calls"),
        operation(plain, "PHONE_ENG_TAPI_CALL_VOICECALL_Mute_Beep", &PHONE_ENG_TAPI_CALL_VOICECALL_Mute_Beep),
        operation(plain, "PHONE_ENG_TAPI_set_speaker_volume", &PHONE_ENG_TAPI_set_speaker_volume, "volume"),
        operation(plain, "PHONE_ENG_TAPI_audio_accessory_status", &PHONE_ENG_TAPI_audio_accessory_status,
                  "status"),
        operation(plain, "PHONE_ENG_TAPI_GetTTYMode", &PHONE_ENG_TAPI_GetTTYMode, "mode"),
        operation(plain, "PHONE_ENG_TAPI_SetTTYMode", &PHONE_ENG_TAPI_SetTTYMode, "mode"),
        operation(plain, "PHONE_ENG_TAPI_SetUSBDriverMode", &PHONE_ENG_TAPI_SetUSBDriverMode,
                  "cable charging"),
    };
}

std::vector<Operation> settings()
{
    return {
        adapted(
            setupFace, "instance", [] { return Setup::instance() != nullptr; }, ""),
        operation(setupFace, "destruction", &Setup::destruction),
        operation("className", &Setup::className),
        operation("checkFlashFull", &Setup::checkFlashFull),
        operation(setupFace, "setupCheckSystemStatus", &Setup::setupCheckSystemStatus),
        operation(setupFace, "isTapiDeviceActive", &Setup::isTapiDeviceActive),

        operation("isReminder", &Setup::isReminder),
        operation("setReminder", &Setup::setReminder, "on"),
        operation("isFlipAnswer", &Setup::isFlipAnswer),
        operation("setFlipAnswer", &Setup::setFlipAnswer, "on"),
        operation("isAnykeyAnswer", &Setup::isAnykeyAnswer),
        operation("setAnykeyAnswer", &Setup::setAnykeyAnswer, "on"),
        operation("isAutoAnswer", &Setup::isAutoAnswer),
        operation("setAutoAnswer", &Setup::setAutoAnswer, "on"),
        operation("isPrepend", &Setup::isPrepend),
        operation("setPrepend", &Setup::setPrepend, "on"),
        operation("isMsgAlert", &Setup::isMsgAlert),
        operation("setMsgAlert", &Setup::setMsgAlert, "on"),
        operation("isRoamAlert", &Setup::isRoamAlert),
        operation("setRoamAlert", &Setup::setRoamAlert, "on"),
        operation("isAutoFallbackVoiceCall", &Setup::isAutoFallbackVoiceCall),
        operation("setAutoFallbackVoiceCall", &Setup::setAutoFallbackVoiceCall, "on"),
        operation(plain, "PHONE_isAutoFallbackVoiceCall", &PHONE_isAutoFallbackVoiceCall),
        operation("isHACOn", &Setup::isHACOn),
        operation("setHAC", &Setup::setHAC, "on"),
        operation("isHACEnabled", &Setup::isHACEnabled),
        operation("getAudibleTimer", &Setup::getAudibleTimer, "timer"),
        operation("setAudibleTimer", &Setup::setAudibleTimer, "timer"),
        operation("getHyphenation", &Setup::getHyphenation, "mode"),
        operation("setHyphenation", &Setup::setHyphenation, "mode"),
        operation("getSearchMode", &Setup::getSearchMode, "mode"),
        operation("setSearchMode", &Setup::setSearchMode, "mode"),
        operation("getMatchNumIndicate", &Setup::getMatchNumIndicate, "indicate"),
        operation("getNddPrefix", &Setup::getNddPrefix, "prefix"),
        operation("isSupportedInputMethod", &Setup::isSupportedInputMethod, "inputMethod"),

        operation("isOneTouchNumber", &Setup::isOneTouchNumber, "slot number"),
        operation("getTurboDialing", &Setup::getTurboDialing, "slot full"),
        operation("getTurboDialingList", &Setup::getTurboDialingList, "list full"),
        operation("setTurboDialing",
                  static_cast<bool (Setup::*)(int, const QString &)>(&Setup::setTurboDialing), "slot number"),
        documentedAs("setTurboDialing", 2,
                     operation("setTurboDialingList",
                               static_cast<bool (Setup::*)(const QStringList &)>(&Setup::setTurboDialing),
                               "numbers...")),
        operation("getTurboDialingLocation", &Setup::getTurboDialingLocation, "slot"),
        operation("setTurboDialingLocation", &Setup::setTurboDialingLocation, "slot location"),

        operation("getCameraMute", &Setup::getCameraMute, "mute"),
        operation("setCameraMute", &Setup::setCameraMute, "mute"),
        operation("getCameraOffImage", &Setup::getCameraOffImage),
        operation("getDefaultCameraOffImage", &Setup::getDefaultCameraOffImage),
        operation("setCameraOffImage", &Setup::setCameraOffImage, "path"),
        operation("getRVCAlertType", &Setup::getRVCAlertType, "alert"),
        operation("setRVCAlertType", &Setup::setRVCAlertType, "alert"),
        operation("getRVCInvitationTimer", &Setup::getRVCInvitationTimer, "timeout"),
        operation(plain, "PHONE_GetCameraMute", &PHONE_GetCameraMute, "mute"),
        operation(plain, "PHONE_GetCameraOffImage", &PHONE_GetCameraOffImage),
    };
}

std::vector<Operation> services()
{
    return {
        operation("getDefaultCallForwardTimer", &Setup::getDefaultCallForwardTimer),
        operation("getVoiceCallsDivert", &Setup::getVoiceCallsDivert, "active number when"),
        operation("getDataCallsDivert", &Setup::getDataCallsDivert, "active number when"),
        operation("getFaxCallsDivert", &Setup::getFaxCallsDivert, "active number when"),
        operation("divertVoiceCalls", &Setup::divertVoiceCalls, "enable when number"),
        operation("divertDataCalls", &Setup::divertDataCalls, "enable when number"),
        operation("divertFaxCalls", &Setup::divertFaxCalls, "enable when number"),
        operation("divertVoiceCallsWithTime", &Setup::divertVoiceCallsWithTime, "enable number time"),
        operation("cancelAllVoiceCallsDiverts", &Setup::cancelAllVoiceCallsDiverts),
        operation("cancelAllCallsDiverts", &Setup::cancelAllCallsDiverts),
        operation("getCallForwardingFlag", &Setup::getCallForwardingFlag),
        adapted(
            setupFace, "updateCFFlag", [] { QMetaObject::invokeMethod(Setup::instance(), "updateCFFlag"); },
            ""),

        operation("getAvailableCredit", &Setup::getAvailableCredit),
        operation("getTotalCallCost", &Setup::getTotalCallCost),
        operation("getTotalLifeTimer", &Setup::getTotalLifeTimer),
        operation("getTotalCallTime", &Setup::getTotalCallTime),
        operation("getMeterMax", &Setup::getMeterMax, "max flag"),
        operation("setMeterMax", &Setup::setMeterMax, "max"),
        operation("disableCMM", &Setup::disableCMM),
        operation("getChargeType", &Setup::getChargeType, "type"),
        operation("setChargeType", &Setup::setChargeType, "type"),
        operation("getMeterDisplay", &Setup::getMeterDisplay, "display"),
        operation("setMeterDisplay", &Setup::setMeterDisplay, "display"),
        operation("resetCallMeter", &Setup::resetCallMeter),
        operation("resetCallTime", &Setup::resetCallTime),
        operation("getPriceUnitCurrency", &Setup::getPriceUnitCurrency, "unit currency"),
        operation("setPriceUnitCurrency", &Setup::setPriceUnitCurrency, "unit currency"),

        operation("isFixedDialingAvailable", &Setup::isFixedDialingAvailable),
        operation("isFixedDialing", &Setup::isFixedDialing, "on"),
        operation("setFixedDialing", &Setup::setFixedDialing, "on pin2"),
        operation("getDTMF", &Setup::getDTMF, "type"),
        operation("setDTMF", &Setup::setDTMF, "type"),
        operation("getCLIR", &Setup::getCLIR, "id"),
        operation("setCLIR", &Setup::setCLIR, "id"),
        operation("getNextCLIR", &Setup::getNextCLIR, "id"),
        operation("setNextCLIR", &Setup::setNextCLIR, "id"),
        operation("isCallWaiting", &Setup::isCallWaiting, "on"),
        operation("setCallWaiting", &Setup::setCallWaiting, "on"),
        operation("isAutoRedial", &Setup::isAutoRedial, "on"),
        operation("setAutoRedial", &Setup::setAutoRedial, "on"),
        operation("isCallDropTone", &Setup::isCallDropTone, "on"),
        operation("setCallDropTone", &Setup::setCallDropTone, "on"),

        operation("currentLineNo", &Setup::currentLineNo, "line"),
        operation("setLineNo", &Setup::setLineNo, "line"),
        operation("getLineLockStatus", &Setup::getLineLockStatus),
        operation("setLineLockStatus", &Setup::setLineLockStatus, "lock"),
        operation("curLineLockStatus", &Setup::curLineLockStatus, "status"),
        operation("isVmHotKeysAvailable", &Setup::isVmHotKeysAvailable),
        operation("loadVoiceMailboxNumberFromSIM", &Setup::loadVoiceMailboxNumberFromSIM),
    };
}

std::vector<Operation> sim()
{
    return {
        operation(setupFace, "setupVerifySimPin", &Setup::setupVerifySimPin, "pin"),
        operation("changeSimPin", &Setup::changeSimPin, "oldPin newPin"),
        operation("unblockingPin", &Setup::unblockingPin, "puk newPin"),
        operation(setupFace, "setupUnblockSimPin1", &Setup::setupUnblockSimPin1, "puk newPin"),
        operation(setupFace, "enablePin1", &Setup::enablePin1, "pin"),
        operation("simPinIsOpen", &Setup::simPinIsOpen),
        operation(setupFace, "processPIN1ResultError", &Setup::processPIN1ResultError, "result"),
        operation("verifyPin2Code", &Setup::verifyPin2Code, "pin2"),
        operation("changeSimPin2", &Setup::changeSimPin2, "oldPin2 newPin2"),
        operation(setupFace, "unblockingPin2", &Setup::unblockingPin2, "puk2 newPin2"),
        operation("readPin2Status", &Setup::readPin2Status, "status"),
        operation(setupFace, "setupVerifyUpin", &Setup::setupVerifyUpin, "upin"),
        operation("setupChangeUpin", &Setup::setupChangeUpin, "oldUpin newUpin"),
        operation(setupFace, "setupUnblockUpin", &Setup::setupUnblockUpin, "puk newUpin"),
        operation("getUpinStatus", &Setup::getUpinStatus, "status"),
        operation(setupFace, "processUPINResultError", &Setup::processUPINResultError, "result"),

        operation("getMyNumber", &Setup::getMyNumber, "number1 name1 number2 name2"),
        operation("setMyNumber", &Setup::setMyNumber, "line number name"),
        operation("deleteMyNumber", &Setup::deleteMyNumber, "line"),
        operation("getMyNumberList", &Setup::getMyNumberList, "list"),
        operation("getMyNumberLimit", &Setup::getMyNumberLimit, "maxNumberLength maxNameLength"),
        operation("getEFUpdateRule", &Setup::getEFUpdateRule, "fileId rule"),

        operation("getUSIMAccountList", &Setup::getUSIMAccountList, "list activeIndex count"),
        operation("getCurrentUSIMAccountTitle", &Setup::getCurrentUSIMAccountTitle, "title count"),
        operation("readIMEISerialNumber", &Setup::readIMEISerialNumber, "imei"),
        operation("getBpVersionInfo", &Setup::getBpVersionInfo, "versions"),
        adapted(
            setupFace, "getBpVersion",
            [](QString &version) {
                TAPI_BP_VER_A text = {};
                const Result result = Setup::instance()->getBpVersion(text);
                version = QString::fromLatin1(reinterpret_cast<const char *>(text));
                return result;
            },
            "version"),
        operation("isShowBpPanic", &Setup::isShowBpPanic),
    };
}

std::vector<Operation> networkSelection()
{
    return {
        adapted(
            netFace, "instance", [] { return Net::instance() != nullptr; }, ""),
        operation(netFace, "destroy", &Net::destroy),
        operation("destruction", &Net::destruction),
        operation("className", &Net::className),
        operation("result", &Net::result, "code"),

        operation("getSearchMode", &Net::getSearchMode, "mode"),
        operation("setSearchMode", &Net::setSearchMode, "mode"),
        operation("getSearchFreqency", &Net::getSearchFreqency, "speed"),
        operation("setSearchFreqency", &Net::setSearchFreqency, "speed"),
        operation("getBand", &Net::getBand, "band"),
        operation("setBand", &Net::setBand, "band"),
        operation("getServiceTone", &Net::getServiceTone, "on"),
        operation("setServiceTone", &Net::setServiceTone, "on"),
        operation("getDropTone", &Net::getDropTone, "on"),
        operation("setDropTone", &Net::setDropTone, "on"),

        operation("findNewNetwork", &Net::findNewNetwork),
        operation("rescanNetwork", &Net::rescanNetwork),
        operation("getAvailableNetworks", &Net::getAvailableNetworks),
        operation("cancelGetAvailableNetworks", &Net::cancelGetAvailableNetworks),
        operation("cancelFindNewNetworks", &Net::cancelFindNewNetworks),
        operation("getKwnownNetworksCnt", &Net::getKwnownNetworksCnt),
        adapted(
            netFace, "getKnownNetworks",
            [](QStringList &networks) {
                bool listed = false;
                networks = knownNetworks(listed);
                return listed;
            },
            "networks"),
        operation("registerNetwork", &Net::registerNetwork, "networkId"),
        operation("getNetworkName", &Net::getNetworkName, "networkId shortName longName"),
        adapted(
            netFace, "getOperatorNameList",
            [](const QStringList &networkIds, QStringList &names) {
                std::vector<_TAPI_PLMN_INFO_STRUCT_S> entries(static_cast<std::size_t>(networkIds.size()));
                for (std::size_t entry = 0; entry < entries.size(); ++entry)
                    std::strncpy(entries[entry].networkId,
                                 networkIds.at(static_cast<int>(entry)).toLatin1().constData(),
                                 sizeof entries[entry].networkId - 1);
                const bool listed = Net::instance()->getOperatorNameList(
                    entries.data(), static_cast<unsigned short>(entries.size()));
                for (_TAPI_PLMN_INFO_STRUCT_S &entry : entries)
                    names += Unicode2QStr(entry.name, TAPI_NETWORK_NAME_UNITS);
                return listed;
            },
            "networkIds... names"),
        operation("myListScreenIsAvailable", &Net::myListScreenIsAvailable),

        operation("getPreferredNetworks", &Net::getPreferredNetworks, "list"),
        operation("addPreferredNetwork", &Net::addPreferredNetwork, "priority networkId"),
        operation("delPreferredNetwork", &Net::delPreferredNetwork, "priority"),
        operation("delAllPreferredNetwork", &Net::delAllPreferredNetwork),
        adapted(
            netFace, "reorderNetworkPriority",
            [](unsigned int oldPriority, unsigned int newPriority, const QString &networkId) {
                QString id = networkId;
                return Net::instance()->reorderNetworkPriority(oldPriority, newPriority, id);
            },
            "oldPriority newPriority networkId"),
        operation("getCapacityPreferedNetwork", &Net::getCapacityPreferedNetwork, "capacity"),

        operation("getServiceProviderName", &Net::getServiceProviderName),
        operation(plain, "PHONE_SET_IsHomeNetwork", &PHONE_SET_IsHomeNetwork, "networkId"),
        adapted(
            plain, "Unicode2QStr",
            [](const QString &text, unsigned short maxUnits) {
                std::vector<unsigned short> field(text.utf16(), text.utf16() + text.size());
                field.resize(std::max<std::size_t>(field.size(), maxUnits));
                return Unicode2QStr(field.data(), maxUnits);
            },
            "text maxUnits"),
    };
}

} // namespace

const std::vector<Operation> &operations()
{
    static const std::vector<Operation> all = [] {
        std::vector<Operation> list;
        for (auto *const group : {&callControl, &settings, &services, &sim, &networkSelection}) {
            for (Operation &operation : group())
                list.push_back(std::move(operation));
        }
        return list;
    }();
    return all;
}

} // namespace Console
