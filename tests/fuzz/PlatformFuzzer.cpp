// A platform that answers anything: arbitrary results and arbitrary bytes in every record. Whatever it says,
// the engine must not crash, read outside a record, hang or leak.
#include "PHONE_ENG_NtInterface.h"
#include "PHONE_ENG_Setup.h"
#include "PHONE_ENG_WrapTapi.h"
#include "SimulatedPhone.h"

#include "LogModule.h"

#include <QCoreApplication>

#include <fuzzer/FuzzedDataProvider.h>

#include <cstdio>
#include <vector>

namespace {

using Setup = PHONE_ENG_Setup;
using Net = PHONE_ENG_NtInterface;

/** Takes the platform's answers from the input; when that is used up every answer is 0. */
class HostilePlatform {
public:
    explicit HostilePlatform(FuzzedDataProvider &input)
        : m_input(input)
    {
    }

    const ScriptedAnswer *answer(std::string_view function)
    {
        // A descriptor of the process is not the platform's to make up, and one count has room for so many only.
        if (function == "TAPI_CLIENT_GetSyncSocketFd" || function == "TAPI_NETWORK_GetPlmnCount")
            return nullptr;
        m_answer.result = m_input.PickValueInArray<long long>({0, 0, 0, 1, 5, 0x8000, 0x800C, 0x8030, -1});
        m_answer.out.clear();
        for (int parameter = 0; parameter < 2; ++parameter)
            m_answer.out.push_back(
                m_input.ConsumeBytesAsString(m_input.ConsumeIntegralInRange<std::size_t>(0, 8000)));
        return &m_answer;
    }

private:
    FuzzedDataProvider &m_input;
    ScriptedAnswer m_answer;
};

void readPreferences(Setup &setup)
{
    int number = 0;
    QString text;
    QStringList list;
    bool flag = false;
    PHONE_SETUP_HYPHENATION_T hyphenation = {};
    PHONE_SETUP_SEARCH_MODE_T searchMode = {};
    PHONE_SETUP_CAMERA_MUTE_T mute = {};
    setup.isReminder();
    setup.getAudibleTimer(number);
    setup.getHyphenation(hyphenation);
    setup.getSearchMode(searchMode);
    setup.getMatchNumIndicate(number);
    setup.getNddPrefix(text);
    setup.isHACEnabled();
    setup.getTurboDialingList(list, false);
    setup.getTurboDialingLocation(1);
    setup.getCameraMute(mute);
    setup.getCameraOffImage();
    setup.getRVCAlertType(flag);
    setup.getRVCInvitationTimer(number);
    setup.getDefaultCallForwardTimer();
}

void readServices(Setup &setup)
{
    bool flag = false;
    int number = 0;
    unsigned char byte = 0;
    QString text;
    QString other;
    _TAPI_CALL_RESTRICT_ID_E restriction = {};
    setup.getVoiceCallsDivert(flag, text, TAPI_CS_DIVERT_BUSY);
    setup.getDataCallsDivert(flag, text, TAPI_CS_DIVERT_BUSY);
    setup.getFaxCallsDivert(flag, text, TAPI_CS_DIVERT_BUSY);
    setup.getCallForwardingFlag();
    setup.getAvailableCredit();
    setup.getTotalCallCost();
    setup.getTotalLifeTimer();
    setup.getTotalCallTime();
    setup.getMeterMax(text, flag);
    setup.getChargeType(byte);
    setup.getMeterDisplay(byte);
    setup.getPriceUnitCurrency(text, other);
    setup.isFixedDialingAvailable();
    setup.isFixedDialing(flag);
    setup.getDTMF(byte);
    setup.getCLIR(restriction);
    setup.getNextCLIR(byte);
    setup.isCallWaiting(flag);
    setup.isAutoRedial(flag);
    setup.isCallDropTone(flag);
    setup.currentLineNo(number);
    setup.setLineNo(2);
    setup.getLineLockStatus();
    setup.curLineLockStatus(number);
    setup.isVmHotKeysAvailable();
}

void readSim(Setup &setup)
{
    QString text[4];
    QStringList list;
    signed char limit = 0;
    unsigned char byte = 0;
    unsigned char count = 0;
    _TAPI_SECURITY_PIN_STATUS_E status = {};
    PHONE_BP_VERSION_INFO_S versions = {};
    unsigned char version[48] = {};
    setup.simPinIsOpen();
    setup.readPin2Status(status);
    setup.getUpinStatus(&status);
    setup.getMyNumber(text[0], text[1], text[2], text[3]);
    setup.getMyNumberList(list);
    setup.getMyNumberLimit(limit, limit);
    setup.getEFUpdateRule(1, byte);
    setup.getUSIMAccountList(list, byte, count);
    setup.getCurrentUSIMAccountTitle(text[0], count);
    setup.readIMEISerialNumber(text[0]);
    setup.getBpVersionInfo(&versions);
    setup.getBpVersion(version);
}

void readNetwork(Net &network)
{
    _TAPI_NETWORK_SEARCH_MODE_E mode = {};
    _TAPI_NETWORK_SEARCH_SPEED_E speed = {};
    _TAPI_NETWORK_BAND_E band = {};
    bool flag = false;
    unsigned int capacity = 0;
    QString text;
    QString other;
    std::vector<_TAPI_NETWORK_PLMN_INFO_S> known(network.getKwnownNetworksCnt());
    std::vector<_TAPI_PLMN_INFO_STRUCT_S> names(3);
    static _TAPI_NETWORK_PREFERRED_S preferred;
    network.getSearchMode(&mode);
    network.getSearchFreqency(&speed);
    network.getBand(&band);
    network.setBand(band);
    network.getServiceTone(flag);
    network.getDropTone(flag);
    network.getKnownNetworks(known.data());
    network.getNetworkName(QStringLiteral("00101"), text, other);
    network.getOperatorNameList(names.data(), static_cast<unsigned short>(names.size()));
    network.myListScreenIsAvailable();
    network.getPreferredNetworks(&preferred);
    network.delAllPreferredNetwork();
    network.getCapacityPreferedNetwork(&capacity);
    network.getServiceProviderName();
    PHONE_SET_IsHomeNetwork(QStringLiteral("001-01"));
}

void callControl()
{
    unsigned char number[] = "5551234";
    unsigned char callId = 0;
    int mode = 0;
    _TAPI_CALL_SESSION_TABLE_S table = {};
    PHONE_ENG_TAPI_CALL_VOICECALL_MakeReq(0, number, &callId);
    PHONE_ENG_TAPI_CALL_VOICECALL_AnswerReq(1, TAPI_VOICE_ANSWER_HOLD_ACTIVE);
    PHONE_ENG_TAPI_CALL_VOICECALL_ReleaseReq(1, TAPI_VOICE_DROP_ALL);
    PHONE_ENG_TAPI_CALL_VOICECALL_TransferReq(1, number);
    PHONE_ENG_TAPI_CALL_GetCallStatus(&table);
    PHONE_ENG_TAPI_GetTTYMode(mode);
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    static QCoreApplication application(*argc, *argv);
    libaplog_to_module_ptr = std::fopen("/dev/null", "w");
    SimulatedPhone::instance().settings().setFile(QStringLiteral("/nonexistent/settings.cbor"));
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    FuzzedDataProvider input(data, size);
    HostilePlatform platform(input);
    SimulatedPhone &phone = SimulatedPhone::instance();
    phone.reset();
    phone.openLink();
    const unsigned char part = input.ConsumeIntegralInRange<unsigned char>(0, 4);
    phone.setAnswerer([&](std::string_view function) { return platform.answer(function); });
    switch (part) {
    case 0:
        readPreferences(*Setup::instance());
        break;
    case 1:
        readServices(*Setup::instance());
        break;
    case 2:
        readSim(*Setup::instance());
        break;
    case 3:
        readNetwork(*Net::instance());
        break;
    default:
        callControl();
    }
    phone.setAnswerer(nullptr);
    return 0;
}
