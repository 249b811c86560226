// Device controls: speaker volume, audio accessories, text telephone, USB.
#include "EngineTest.h"

#include <climits>

namespace {

const std::string unit = "utility/PHONE_ENG_WrapTapi PHONE_ENG_TAPI_";
constexpr auto largeCable = static_cast<_TAPI_USB_CABLE_STATUS_E>(0x100);
constexpr auto largeCharging = static_cast<_TAPI_USB_CHARGING_E>(0x201);

class DeviceRequestsTest : public EngineTest { };

TEST_F(DeviceRequestsTest, ControlsPassThroughUnchanged)
{
    struct Row {
        const char *function;
        _TAPI_RESULT_E (*send)();
        std::string call;
    };
    const Row rows[] = {
        {"set_speaker_volume", [] { return PHONE_ENG_TAPI_set_speaker_volume(INT_MIN); },
         "TAPI_ACCE_SetSpeakerVolume(-2147483648)"},
        {"audio_accessory_status", [] { return PHONE_ENG_TAPI_audio_accessory_status(0xFFFF); },
         "TAPI_ACCE_NotifyAudioAccessoryStatus(65535)"},
        {"SetUSBDriverMode", [] { return PHONE_ENG_TAPI_SetUSBDriverMode(largeCable, largeCharging); },
         "TAPI_ACCE_SetUsbCableStatus(256, 513)"},
        {"SetTTYMode", [] { return PHONE_ENG_TAPI_SetTTYMode(2); }, "TAPI_TTY_SetTtyMode(3)"},
    };
    phone.startPushToTalk(5, false);
    for (const Row &row : rows) {
        for (const long long result : {0LL, 300LL, 0x8030LL}) {
            SCOPED_TRACE(row.call);
            answer(row.call.substr(0, row.call.find('(')), result);
            EXPECT_EQ(row.send(), result);
            EXPECT_EQ(events(), (Events{trace, row.call, trace}));
            EXPECT_EQ(locations(), std::set{unit + row.function});
        }
    }
}

TEST_F(DeviceRequestsTest, TheTextTelephoneModeIsTranslatedWhenRead)
{
    const struct {
        long long result;
        int platformMode;
        int mode;
    } rows[] = {{0, 0, 3},    {0, 1, 0},    {0, 2, 1},  {0, 3, 2},    {0, 4, 77},
                {0, 128, 77}, {0, 255, 77}, {1, 1, 77}, {300, 0, 77}, {0x8030, 3, 77}};
    for (const auto &[result, platformMode, expected] : rows) {
        SCOPED_TRACE(platformMode);
        int mode = 77;
        answer("TAPI_TTY_GetTtyMode", result, {std::string(1, static_cast<char>(platformMode))});
        EXPECT_EQ(PHONE_ENG_TAPI_GetTTYMode(mode), result);
        EXPECT_EQ(mode, expected);
        EXPECT_EQ(events(), (Events{trace, "TAPI_TTY_GetTtyMode()", trace}));
    }
    EXPECT_EQ(locations(), std::set{unit + "GetTTYMode"});
}

TEST_F(DeviceRequestsTest, TheTextTelephoneModeIsTranslatedWhenSet)
{
    const std::pair<int, std::string> modes[] = {{0, "1"},   {1, "2"},       {2, "3"},      {3, "0"},
                                                 {4, "0"},   {7, "0"},       {-1, "0"},     {256, "0"},
                                                 {257, "0"}, {INT_MIN, "0"}, {INT_MAX, "0"}};
    for (const auto &[mode, expected] : modes) {
        SCOPED_TRACE(mode);
        EXPECT_EQ(PHONE_ENG_TAPI_SetTTYMode(mode), TAPI_RESULT_SUCC);
        EXPECT_EQ(events(), (Events{trace, "TAPI_TTY_SetTtyMode(" + expected + ")", trace}));
    }
}

} // namespace
