// What is read from the daemon, set through it and read back; what the phone keeps; and what there is not.
#include "Desk.h"

#include <algorithm>
#include <functional>
#include <vector>

using Desk::text;

namespace {

using SettingsOnOfono = OfonoTest;

} // namespace

TEST_F(SettingsOnOfono, TellsWhoTheDeviceAndTheSubscriberAre)
{
    QString imei;
    EXPECT_EQ(setup().readIMEISerialNumber(imei), TAPI_RESULT_SUCC);
    EXPECT_EQ(imei, text("350077523237513"));
    unsigned char version[48] = {};
    EXPECT_EQ(setup().getBpVersion(version), TAPI_RESULT_SUCC);
    EXPECT_STREQ(reinterpret_cast<const char *>(version), "R2.04.1");
    PHONE_BP_VERSION_INFO_S versions = {};
    EXPECT_EQ(setup().getBpVersionInfo(&versions), TAPI_RESULT_SUCC);
    EXPECT_STREQ(versions.bpVer, "R2.04.1");
    EXPECT_STREQ(versions.technology, "umts");
    EXPECT_TRUE(PHONE_SET_IsHomeNetwork(text("001-01")));
    EXPECT_EQ(network().getServiceProviderName().name, text("Test Mobile"));
}

/** Each is set to another value than it has, read back, and seen by hand where the daemon keeps it. */
TEST_F(SettingsOnOfono, SetsAndReadsBack)
{
    struct Setting {
        const char *name;
        std::function<int(int)> set;
        std::function<int()> get; ///< negative for a failure
        std::vector<int> values;
        const char *interface; ///< null for what the phone keeps
        const char *shown;     ///< by the daemon, for the last value
    };
    unsigned char byte = 0;
    bool flag = false;
    _TAPI_CALL_RESTRICT_ID_E id = TAPI_CALL_RESTRICT_ID_NETWORK;
    const auto got = [](_TAPI_RESULT_E result, int value) { return result == TAPI_RESULT_SUCC ? value : -1; };
    const auto done = [](_TAPI_RESULT_E result) { return static_cast<int>(result); };
    const std::vector<Setting> settings = {
        {"caller id",
         [&](int v) { return done(setup().setCLIR(static_cast<_TAPI_CALL_RESTRICT_ID_E>(v))); },
         [&] {
             const auto r = setup().getCLIR(id);
             return got(r, static_cast<int>(id));
         },
         {1, 2, 0, 1},
         "CallSettings",
         "HideCallerId variant enabled"},
        {"call waiting",
         [&](int v) { return done(setup().setCallWaiting(v == 1)); },
         [&] {
             const auto r = setup().isCallWaiting(flag);
             return got(r, flag);
         },
         {0, 1, 0},
         "CallSettings",
         "VoiceCallWaiting variant disabled"},
        {"text telephone",
         [&](int v) { return done(PHONE_ENG_TAPI_SetTTYMode(v)); },
         [&] {
             int mode = -1;
             PHONE_ENG_TAPI_GetTTYMode(mode);
             return mode;
         },
         {0, 3, 0},
         "TextTelephony",
         "Enabled variant boolean true"},
        {"redial",
         [&](int v) { return done(setup().setAutoRedial(v == 1)); },
         [&] {
             const auto r = setup().isAutoRedial(flag);
             return got(r, flag);
         },
         {1, 0, 1},
         nullptr,
         nullptr},
        {"drop tone",
         [&](int v) { return done(setup().setCallDropTone(v == 1)); },
         [&] {
             const auto r = setup().isCallDropTone(flag);
             return got(r, flag);
         },
         {1, 0, 1},
         nullptr,
         nullptr},
        {"tone length",
         [&](int v) { return done(setup().setDTMF(static_cast<unsigned char>(v))); },
         [&] {
             const auto r = setup().getDTMF(byte);
             return got(r, byte);
         },
         {1, 0, 255},
         nullptr,
         nullptr},
        {"charge display",
         [&](int v) { return done(setup().setMeterDisplay(static_cast<unsigned char>(v))); },
         [&] {
             const auto r = setup().getMeterDisplay(byte);
             return got(r, byte);
         },
         {1, 2, 0},
         nullptr,
         nullptr},
        {"service tone",
         [&](int v) { return network().setServiceTone(v == 1) ? 0 : 1; },
         [&] { return network().getServiceTone(flag) ? static_cast<int>(flag) : -1; },
         {1, 0, 1},
         nullptr,
         nullptr},
        {"search speed",
         [&](int v) {
             return network().setSearchFreqency(static_cast<_TAPI_NETWORK_SEARCH_SPEED_E>(v)) ? 0 : 1;
         },
         [&] {
             _TAPI_NETWORK_SEARCH_SPEED_E speed = TAPI_NETWORK_SEARCH_SLOW;
             return network().getSearchFreqency(&speed) ? static_cast<int>(speed) : -1;
         },
         {3, 0, 2},
         nullptr,
         nullptr},
        {"search mode",
         [&](int v) { return network().setSearchMode(static_cast<_TAPI_NETWORK_SEARCH_MODE_E>(v)) ? 0 : 1; },
         [&] {
             _TAPI_NETWORK_SEARCH_MODE_E mode = TAPI_NETWORK_SEARCH_AUTOMATIC;
             return network().getSearchMode(&mode) ? static_cast<int>(mode) : -1;
         },
         {1, 0},
         "NetworkRegistration",
         "Mode variant auto"},
    };
    for (const Setting &setting : settings) {
        SCOPED_TRACE(setting.name);
        for (const int value : setting.values) {
            EXPECT_EQ(setting.set(value), 0) << value;
            EXPECT_TRUE(Desk::becomes([&] { return setting.get() == value; })) << value;
        }
        if (setting.interface) {
            std::string shown =
                Desk::byHand("/phone org.ofono." + std::string(setting.interface) + ".GetProperties");
            shown.erase(
                std::unique(shown.begin(), shown.end(), [](char a, char b) { return a == ' ' && b == ' '; }),
                shown.end());
            EXPECT_NE(shown.find(setting.shown), std::string::npos) << shown;
        }
    }
}

TEST_F(SettingsOnOfono, SetsVolumeAndMute)
{
    EXPECT_EQ(PHONE_ENG_TAPI_set_speaker_volume(37), TAPI_RESULT_SUCC);
    EXPECT_EQ(PHONE_ENG_TAPI_set_speaker_volume(101), TAPI_RESULT_INVALID_PARAM);
    EXPECT_EQ(PHONE_ENG_TAPI_CALL_VOICECALL_MuteReq(1), TAPI_RESULT_SUCC);
    const auto shows = [](const char *property) {
        return Desk::becomes([property] {
            const std::string shown = Desk::byHand("/phone org.ofono.CallVolume.GetProperties");
            return shown.find(property) != std::string::npos;
        });
    };
    EXPECT_TRUE(shows("byte 37"));
    EXPECT_TRUE(shows("boolean true"));
    EXPECT_EQ(PHONE_ENG_TAPI_CALL_VOICECALL_MuteReq(0), TAPI_RESULT_SUCC);
    EXPECT_TRUE(shows("boolean false"));
}

/** Never a pretended success, and at once. */
TEST_F(SettingsOnOfono, SaysWhatThereIsNot)
{
    unsigned char byte = 0;
    int status = 0;
    QStringList list;
    _TAPI_SECURITY_PIN_STATUS_E pinStatus = TAPI_SECURITY_PIN_STATUS_VERIFIED;
    _TAPI_NETWORK_PREFERRED_S preferred = {};
    unsigned int capacity = 0;
    const _TAPI_RESULT_E missing = TAPI_RESULT_NOT_SUPPORTED;
    EXPECT_EQ(setup().setFixedDialing(true, text("5678")), missing);
    EXPECT_EQ(setup().setupVerifyUpin(text("2468")), missing);
    EXPECT_EQ(setup().setupChangeUpin(text("2468"), text("1111")), missing);
    EXPECT_EQ(setup().setupUnblockUpin(text("13572468"), text("1111")), missing);
    EXPECT_EQ(setup().getUpinStatus(&pinStatus), missing);
    unsigned char accounts = 3; // whatever was there before
    EXPECT_EQ(setup().getUSIMAccountList(list, byte, accounts), missing);
    EXPECT_EQ(accounts, 0);
    EXPECT_TRUE(list.isEmpty());
    EXPECT_EQ(setup().getEFUpdateRule(1, byte), missing);
    EXPECT_EQ(setup().setLineNo(2), missing);
    EXPECT_EQ(setup().setLineLockStatus(1), missing);
    EXPECT_EQ(setup().curLineLockStatus(status), missing);
    EXPECT_EQ(setup().getChargeType(byte), missing);
    EXPECT_EQ(setup().setChargeType(1), missing);
    EXPECT_EQ(PHONE_ENG_TAPI_CALL_VOICECALL_Mute_Beep(), missing);
    EXPECT_EQ(PHONE_ENG_TAPI_audio_accessory_status(1), missing);
    EXPECT_EQ(PHONE_ENG_TAPI_SetUSBDriverMode(TAPI_USB_CABLE_ATTACHED, TAPI_USB_CHARGING_ON), missing);
    EXPECT_EQ(PHONE_ENG_TAPI_SetTTYMode(2), missing);
    EXPECT_TRUE(setup().getTotalLifeTimer().isNull());
    _TAPI_NETWORK_BAND_E band = TAPI_NETWORK_BAND_WCDMA;
    EXPECT_TRUE(network().getBand(&band));
    EXPECT_EQ(band, TAPI_NETWORK_BAND_AUTOMATIC);
    EXPECT_TRUE(network().setBand(TAPI_NETWORK_BAND_AUTOMATIC)); // as it is
    EXPECT_FALSE(network().setBand(TAPI_NETWORK_BAND_GSM_900_1800));
    EXPECT_FALSE(network().setBand(TAPI_NETWORK_BAND_WCDMA)); // the modem's driver cannot
    EXPECT_FALSE(network().getPreferredNetworks(&preferred));
    EXPECT_FALSE(network().addPreferredNetwork(0, text("00101")));
    EXPECT_FALSE(network().delPreferredNetwork(0));
    EXPECT_FALSE(network().getCapacityPreferedNetwork(&capacity));
    EXPECT_FALSE(network().cancelFindNewNetworks());
    EXPECT_FALSE(network().cancelGetAvailableNetworks());
}

TEST_F(SettingsOnOfono, RefusesWhatMakesNoSense)
{
    EXPECT_EQ(setup().setCLIR(static_cast<_TAPI_CALL_RESTRICT_ID_E>(3)), TAPI_RESULT_INVALID_PARAM);
    EXPECT_EQ(setup().setMyNumber(1, text("12a4"), text("x")), TAPI_RESULT_INVALID_PARAM);
    EXPECT_EQ(setup().setMyNumber(0, text("1234"), text("x")), TAPI_RESULT_INVALID_PARAM);
    EXPECT_EQ(setup().setMyNumber(1, text("123456789012345678901"), QString()), TAPI_RESULT_INVALID_PARAM);
    EXPECT_EQ(setup().deleteMyNumber(200), TAPI_RESULT_INVALID_PARAM);
    EXPECT_EQ(setup().setPriceUnitCurrency(text("1,5"), text("EUR")), TAPI_RESULT_INVALID_PARAM);
    EXPECT_EQ(setup().setPriceUnitCurrency(text("1.5"), text("Euro")), TAPI_RESULT_INVALID_PARAM);
    EXPECT_EQ(setup().setMeterMax(text("many")), TAPI_RESULT_INVALID_PARAM);
    EXPECT_FALSE(network().registerNetwork(text("/../x")));
    QString name;
    EXPECT_FALSE(network().getNetworkName(text("99999"), name, name));
}

TEST_F(SettingsOnOfono, KeepsNumbersOnTheCardAndNamesBesideThem)
{
    const auto list = [this] {
        QStringList numbers;
        EXPECT_EQ(setup().getMyNumberList(numbers), TAPI_RESULT_SUCC);
        return numbers;
    };
    EXPECT_EQ(setup().setMyNumber(1, text("+49 170-1"), text("Home")), TAPI_RESULT_SUCC);
    EXPECT_EQ(setup().setMyNumber(2, text("0172"), QString::fromUtf8("Büro")), TAPI_RESULT_SUCC);
    EXPECT_EQ(setup().setMyNumber(3, text("0173"), text("Boat")), TAPI_RESULT_SUCC);
    EXPECT_EQ(list(),
              (QStringList{text("Home"), text("+491701"), QString::fromUtf8("Büro"), text("0172"),
                           text("Boat"), text("0173")}));
    EXPECT_EQ(setup().setMyNumber(5, text("0175"), text("gap")), TAPI_RESULT_INVALID_PARAM);
    EXPECT_EQ(setup().deleteMyNumber(2), TAPI_RESULT_SUCC);
    EXPECT_EQ(list(), (QStringList{text("Home"), text("+491701"), text("Boat"), text("0173")}));
    QString number1;
    QString name1;
    QString number2;
    QString name2;
    EXPECT_EQ(setup().getMyNumber(number1, name1, number2, name2), TAPI_RESULT_SUCC);
    EXPECT_EQ(number2 + name2, text("0173Boat"));
    EXPECT_EQ(setup().deleteMyNumber(2), TAPI_RESULT_SUCC);
    signed char numberLength = 0;
    signed char nameLength = 0;
    EXPECT_EQ(setup().getMyNumberLimit(numberLength, nameLength), TAPI_RESULT_SUCC);
    EXPECT_EQ(numberLength, 20);
    EXPECT_EQ(nameLength, 50);
    // One more than the card has records for: the daemon refuses, and nothing has changed.
    for (int record = 2; record <= 20; ++record) {
        if (setup().setMyNumber(record, text("01"), QString()) != TAPI_RESULT_SUCC)
            break;
    }
    const auto full = list().size();
    EXPECT_EQ(setup().setMyNumber(static_cast<int>(full / 2) + 1, text("01"), QString()),
              TAPI_RESULT_INVALID_PARAM);
    EXPECT_EQ(list().size(), full);
}

TEST_F(SettingsOnOfono, FindsNetworksAndRegistersByHand)
{
    EXPECT_TRUE(network().findNewNetwork());
    EXPECT_TRUE(Desk::becomes([this] { return network().getKwnownNetworksCnt() == 3; }));
    std::vector<_TAPI_NETWORK_PLMN_INFO_S> networks(network().getKwnownNetworksCnt());
    ASSERT_TRUE(network().getKnownNetworks(networks.data()));
    QStringList seen;
    for (auto &known : networks)
        seen << text(known.networkId) + QLatin1Char(' ') + Unicode2QStr(known.name, TAPI_NETWORK_NAME_UNITS)
                + QLatin1Char(' ') + QString::number(known.status);
    seen.sort();
    EXPECT_EQ(seen,
              (QStringList{text("00101 Test Mobile 2"), text("00102 Second Network 1"),
                           text("00103 Closed Network 3")}));
    QString shortName;
    QString longName;
    EXPECT_TRUE(network().getNetworkName(text("00102"), shortName, longName));
    EXPECT_EQ(longName, text("Second Network"));
    EXPECT_TRUE(network().registerNetwork(text("001-02")));
    _TAPI_NETWORK_SEARCH_MODE_E mode = TAPI_NETWORK_SEARCH_AUTOMATIC;
    EXPECT_TRUE(network().getSearchMode(&mode));
    EXPECT_EQ(mode, TAPI_NETWORK_SEARCH_MANUAL);
    EXPECT_FALSE(network().registerNetwork(text("00103"))); // the network says no
    EXPECT_FALSE(network().registerNetwork(text("00177"))); // nobody knows it
    EXPECT_TRUE(network().setSearchMode(TAPI_NETWORK_SEARCH_AUTOMATIC));
}
