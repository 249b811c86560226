// The lines of the table in docs/ofono.md that no subject of these tests reaches, asked as the engine asks them.
#include "Desk.h"

#include "KPTT_API_ReqDevice.h"
#include "PHONE_ENG_PTTCallManager.h"
#include "PHONE_Msg.h"
#include "QCopChannel.h"
#include "SETUP_Utility.h"
#include "TAPI_CS.h"
#include "TAPI_FIXDIALING.h"
#include "TAPI_FTRDB.h"
#include "TAPI_NETWORK.h"
#include "TAPI_OWNNUMBER.h"
#include "TAPI_SECURITY.h"
#include "UTIL_State.h"
#include "ZKbConfig.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <fstream>

namespace {

using SettingsOnOfono = OfonoTest;

constexpr _TAPI_RESULT_E done = TAPI_RESULT_SUCC;
constexpr _TAPI_RESULT_E missing = TAPI_RESULT_NOT_SUPPORTED;

/** Whether the state that the user's programs share holds that value. */
bool isShared(std::int32_t value)
{
    std::ifstream file(std::string(std::getenv("XDG_RUNTIME_DIR")) + "/kvq/phone-state", std::ios::binary);
    std::array<std::int32_t, 64> state = {};
    file.read(reinterpret_cast<char *>(state.data()), sizeof state);
    return std::find(state.begin(), state.end(), value) != state.end();
}

} // namespace

TEST_F(SettingsOnOfono, AnswersForTheCardAndTheNetworks)
{
    unsigned char byte = 9;
    EXPECT_EQ(TAPI_FIXDIALING_GetStatus(0, &byte), done);
    EXPECT_EQ(byte, 0);
    byte = 9;
    EXPECT_EQ(TAPI_FIXDIALING_GetAvailability(0, &byte), done);
    EXPECT_EQ(byte, 0);
    signed char line = 9;
    EXPECT_EQ(TAPI_CS_GetLine(&line), done);
    EXPECT_EQ(line, 0); // the first
    EXPECT_EQ(TAPI_CS_SelectLine(0), done);
    unsigned short range = 0;
    EXPECT_EQ(TAPI_OWNNUMBER_GetExtRange(&range), missing);
    EXPECT_EQ(TAPI_SECURITY_GetUsimList(&byte, 0, nullptr), missing);

    // One search at a time.
    EXPECT_TRUE(Desk::becomes([] { return TAPI_NETWORK_RescanNetwork() == done; }));
    EXPECT_TRUE(Desk::becomes([] { return TAPI_NETWORK_GetAvailableNetwork() == done; }));
    std::array<_TAPI_PLMN_INFO_STRUCT_S, 2> names = {};
    std::strcpy(names[0].networkId, "00102");
    std::strcpy(names[1].networkId, "99999");
    const auto nameOf = [](_TAPI_PLMN_INFO_STRUCT_S &entry) {
        return Unicode2QStr(entry.name, TAPI_NETWORK_NAME_UNITS);
    };
    EXPECT_TRUE(Desk::becomes([&] {
        return TAPI_NETWORK_GetOperatorNameList(names.data(), 2, 0) == done && !nameOf(names[0]).isEmpty();
    }));
    EXPECT_EQ(nameOf(names[0]), Desk::text("Second Network"));
    EXPECT_TRUE(nameOf(names[1]).isEmpty());
}

TEST_F(SettingsOnOfono, AnswersWhatThePhoneDoesItself)
{
    EXPECT_EQ(TAPI_FTRDB_GetAvailability(2037), 1);
    EXPECT_EQ(TAPI_FTRDB_GetAvailability(2144), 0);
    SETUP_Utility product;
    EXPECT_TRUE(product.isFeatureAvailable(266));
    EXPECT_FALSE(product.isFeatureAvailable(2007));
    bool bit = true;
    EXPECT_FALSE(product.getFlexBit(408, bit));
    EXPECT_TRUE(bit);
    EXPECT_FALSE(ZKbConfig::isInputModeSupported(QUuid()));

    const std::array<void (*)(int), 9> setters = {
        UTIL_SetDialHyphenation, UTIL_SetRestrictId,    UTIL_SetRestrictNextId,
        UTIL_SetPhoneLine,       UTIL_SetPinStatus,     UTIL_SetCPHSCallForwardStatus,
        UTIL_SetCardType,        UTIL_SetActiveAccount, [](int type) { UTIL_SetCallChargeType(type - 1); }};
    int value = 7000;
    for (const auto set : setters) {
        set(++value);
        EXPECT_TRUE(isShared(value)) << value;
    }
    EXPECT_EQ(UTIL_GetRestrictNextId(), 7003);
    EXPECT_EQ(UTIL_GetPhoneLine(), 7004);
    EXPECT_EQ(UTIL_GetCallChargeType(), 7008);
    for (const auto set : setters)
        set(0);
    EXPECT_EQ(UTIL_GetCphsVMStatus(), 0);
    EXPECT_EQ(UTIL_GetSIMPinBatteryStatus(), 0);
    EXPECT_EQ(UTIL_GetIncomingCallStatus(), 0);
    Desk::tell(".ring 0777");
    EXPECT_TRUE(Desk::becomes([] { return UTIL_GetIncomingCallStatus() == 1; }));
    Desk::tell(".hangup");
    EXPECT_TRUE(Desk::becomes([] { return UTIL_GetIncomingCallStatus() == 0; }));

    EXPECT_TRUE(QCopChannel::send("channel", "message"));
    EXPECT_TRUE(PHONE_Msg(nullptr, "message").send(PHONE_Msg::PHONE_MSG_LINE_CHANGED));

    EXPECT_EQ(PHONE_ENG_PTTCallManager::instance()->isPTTAudioBufComplete(1), 0);
    KPTT_API_ReqDevice pushToTalk;
    _KPTT_RELEASE_CALL_REQ_S release = {};
    _KPTT_SWITCH_CALL_REQ_S swap = {};
    _KPTT_REJECT_CALL_REQ_S reject = {};
    for (const int refusal :
         {pushToTalk.holdCallReq(1), pushToTalk.releaseCallReq(&release), pushToTalk.switchCallReq(&swap),
          pushToTalk.rejectCallReq(&reject), pushToTalk.linkCallReq(), pushToTalk.transferCallReq(),
          pushToTalk.conferenceCallReq()})
        EXPECT_NE(refusal, 0);
}
