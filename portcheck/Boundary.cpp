// The boundary itself: memory that is the engine's, objects that the engine makes, and what an absent setting gives.
#include "Conformance.h"

#include "KPTT_API_ReqDevice.h"
#include "PHONE_ENG_PTTCallManager.h"
#include "PHONE_Msg.h"
#include "SETUP_SET_Manager.h"
#include "SETUP_Utility.h"
#include "TAPI_ACCE.h"
#include "TAPI_CALL.h"
#include "TAPI_CLIENT.h"
#include "TAPI_CS.h"
#include "TAPI_NETWORK.h"
#include "TAPI_OWNNUMBER.h"
#include "TAPI_SECURITY.h"
#include "TAPI_SIM.h"
#include "TAPI_TTY.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <new>

namespace Conformance {

namespace {

constexpr unsigned char untouched = 0xA5;

/** Memory of a size with guards around it. */
template <typename Contents>
struct Guarded {
    Guarded()
    {
        before.fill(untouched);
        after.fill(untouched);
    }
    bool isIntact() const
    {
        const auto isUntouched = [](unsigned char byte) { return byte == untouched; };
        return std::all_of(before.begin(), before.end(), isUntouched)
            && std::all_of(after.begin(), after.end(), isUntouched);
    }

    std::array<unsigned char, 64> before;
    alignas(std::max_align_t) std::array<unsigned char, sizeof(Contents)> contents = {};
    std::array<unsigned char, 256> after;
};

/** A request that fills a record, text or flag keeps within it. */
template <typename Record, typename Request>
Check keepsWithin(const char *function, Request request)
{
    return {"boundary", std::string(function) + " keeps within its record", [request] {
                openSession();
                Guarded<Record> guarded;
                const _TAPI_RESULT_E result =
                    request(*static_cast<Record *>(static_cast<void *>(guarded.contents.data())));
                expect(guarded.isIntact(), "writes outside of " + std::to_string(sizeof(Record)) + " bytes");
                if (result != TAPI_RESULT_NOT_SUPPORTED && result != TAPI_RESULT_SUCC)
                    leave("answers " + std::to_string(result));
                answered(result);
            }};
}

/** An object that the engine makes keeps within the room that its header gives it. */
template <typename Object, typename Use, typename... Arguments>
Check keepsItsRoom(const char *name, Use use, Arguments... arguments)
{
    return {"boundary", std::string(name) + " keeps within its room", [=] {
                Guarded<Object> guarded;
                auto *const object = new (guarded.contents.data()) Object(arguments...);
                use(*object);
                object->~Object();
                expect(guarded.isIntact(), "writes outside of " + std::to_string(sizeof(Object)) + " bytes");
            }};
}

void absentSettingsGiveTheirDefaults()
{
    SETUP_SET_Manager settings(AM_Global::CallSetup, true);
    const QString group = QStringLiteral("kvq-port-check");
    const QString key = QStringLiteral("absent");
    for (const bool preset : {false, true}) {
        bool flag = !preset;
        settings.getSettingInfo(group, key, flag, preset);
        expect(flag == preset, "a truth value is not its default");
        int number = 0;
        settings.getSettingInfo(group, key, number, preset ? -7 : 1234567);
        expect(number == (preset ? -7 : 1234567), "a number is not its default");
        QString text = QStringLiteral("other");
        settings.getSettingInfo(group, key, text, QStringLiteral("a default"), preset);
        expect(text == QStringLiteral("a default"), "a text is not its default");
    }
}

void anUnknownFlexBitLeavesTheValue()
{
    constexpr unsigned short unknownBit = 65535;
    SETUP_Utility utility;
    for (const bool preset : {false, true}) {
        bool value = preset;
        if (utility.getFlexBit(unknownBit, value))
            leave("this product knows bit 65535");
        expect(value == preset, "the value has changed");
    }
}

void thePushToTalkManagerHasAState()
{
    PHONE_ENG_PTTCallManager *const manager = PHONE_ENG_PTTCallManager::instance();
    expect(manager != nullptr, "there is no object");
    expect(manager == PHONE_ENG_PTTCallManager::instance(), "the second question gives another object");
    const unsigned int state = manager->state; // NOLINT(clang-analyzer-core.NullDereference): looked at above
    manager->state = 2;
    const bool kept = PHONE_ENG_PTTCallManager::instance()->state == 2;
    manager->state = state;
    expect(kept, "the state word is not kept");
    if (manager->getPTTActiveCallId() == 255)
        expect(manager->isKodiakPTTCallId(255) == 0, "255, which is no call, counts as a push-to-talk call");
}

void theSocketStaysTheSame()
{
    openSession();
    const int first = TAPI_CLIENT_GetSyncSocketFd();
    expect(first >= 0, "there is no socket after the client was opened");
    expect(TAPI_CLIENT_GetSyncSocketFd() == first, "the second question gives another descriptor");
}

} // namespace

std::vector<Check> boundaryChecks()
{
    const auto nothing = [](auto &) {};
    return {
        keepsItsRoom<SETUP_SET_Manager>(
            "SETUP_SET_Manager",
            [](SETUP_SET_Manager &settings) {
                QString text;
                settings.getSettingInfo(QStringLiteral("Setup"), QStringLiteral("NDDPrefix"), text, QString(),
                                        false);
            },
            AM_Global::CallSetup, false),
        keepsItsRoom<SETUP_Utility>("SETUP_Utility",
                                    [](SETUP_Utility &utility) { utility.isFeatureAvailable(266); }),
        keepsItsRoom<KPTT_API_ReqDevice>("KPTT_API_ReqDevice", nothing),
        keepsItsRoom<PHONE_Msg>("PHONE_Msg", nothing, nullptr, "kvq-port-check"),
        {"boundary", "the push-to-talk manager is one object with a state", thePushToTalkManagerHasAState},
        {"boundary", "an absent setting gives its default", absentSettingsGiveTheirDefaults},
        {"boundary", "an unknown flex bit leaves the value", anUnknownFlexBitLeavesTheValue},
        {"boundary", "the client's socket stays the same", theSocketStaysTheSame},

        keepsWithin<TAPI_IMEI_A>("TAPI_ACCE_GetImei", [](auto &text) { return TAPI_ACCE_GetImei(text); }),
        keepsWithin<TAPI_IMSI_A>("TAPI_ACCE_GetImsi", [](auto &text) { return TAPI_ACCE_GetImsi(text); }),
        keepsWithin<TAPI_BP_VER_A>("TAPI_ACCE_GetBpVersion",
                                   [](auto &text) { return TAPI_ACCE_GetBpVersion(text); }),
        keepsWithin<_TAPI_ACCE_BP_VERSION_INFO_S>(
            "TAPI_ACCE_GetBpVersionInfo", [](auto &record) { return TAPI_ACCE_GetBpVersionInfo(&record); }),
        keepsWithin<_TAPI_CALL_SESSION_TABLE_S>(
            "TAPI_CALL_GetAllCallSessions", [](auto &table) { return TAPI_CALL_GetAllCallSessions(&table); }),
        keepsWithin<_TAPI_CS_DIVERT_STATUS_S>(
            "TAPI_CS_GetDivertStatus",
            [](auto &status) { return TAPI_CS_GetDivertStatus(1, TAPI_CS_DIVERT_NO_REPLY, &status); }),
        keepsWithin<TAPI_METER_TEXT_A>("TAPI_CS_GetRemainCredit",
                                       [](auto &text) { return TAPI_CS_GetRemainCredit(text); }),
        keepsWithin<TAPI_METER_TEXT_A>("TAPI_CS_GetCallMeter",
                                       [](auto &text) { return TAPI_CS_GetCallMeter(text); }),
        keepsWithin<TAPI_METER_TEXT_A>("TAPI_CS_GetCallMeterMax",
                                       [](auto &text) { return TAPI_CS_GetCallMeterMax(text); }),
        keepsWithin<_TAPI_CS_CALL_TIME_S>("TAPI_CS_GetTotalCallTime",
                                          [](auto &time) { return TAPI_CS_GetTotalCallTime(&time); }),
        keepsWithin<_TAPI_CS_PRICE_UNIT_S>("TAPI_CS_GetPriceUnit",
                                           [](auto &price) { return TAPI_CS_GetPriceUnit(&price); }),
        keepsWithin<unsigned char>("TAPI_CS_GetVoiceWaitingStatus",
                                   [](auto &flag) { return TAPI_CS_GetVoiceWaitingStatus(&flag); }),
        keepsWithin<signed char>("TAPI_CS_GetLine", [](auto &line) { return TAPI_CS_GetLine(&line); }),
        keepsWithin<unsigned char>("TAPI_TTY_GetTtyMode",
                                   [](auto &mode) { return TAPI_TTY_GetTtyMode(&mode); }),
        keepsWithin<_TAPI_OWNNUMBER_ENTRY_S>(
            "TAPI_OWNNUMBER_GetEntry", [](auto &entry) { return TAPI_OWNNUMBER_GetEntry(1, 1, &entry); }),
        keepsWithin<_TAPI_OWNNUMBER_RANGE_S>("TAPI_OWNNUMBER_GetRange",
                                             [](auto &range) { return TAPI_OWNNUMBER_GetRange(&range); }),
        keepsWithin<_TAPI_SECURITY_PIN_STATUS_E>(
            "TAPI_SECURITY_GetAnyPinStatus",
            [](auto &status) { return TAPI_SECURITY_GetAnyPinStatus(TAPI_SECURITY_PIN2, &status); }),
        keepsWithin<_TAPI_SIM_FILE_INFO_S>(
            "TAPI_SIM_GetUSIMFileInfo",
            [](auto &info) { return TAPI_SIM_GetUSIMFileInfo(0, 0, 0, 0, &info); }),
        keepsWithin<_TAPI_NETWORK_PREFERRED_S>(
            "TAPI_NETWORK_GetPreferredOperator",
            [](auto &list) { return TAPI_NETWORK_GetPreferredOperator(&list, 0); }),
        keepsWithin<_TAPI_NETWORK_SERVICE_PROVIDER_S>(
            "TAPI_NETWORK_GetServiceProviderName",
            [](auto &provider) { return TAPI_NETWORK_GetServiceProviderName(&provider); }),
    };
}

} // namespace Conformance
