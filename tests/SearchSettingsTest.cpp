// How the modem looks for networks: search mode, speed, band, service and drop tones.
#include "EngineTest.h"

namespace {

using Network = PHONE_ENG_NtInterface;

const std::string failure = R"( "Failed to call tapi function ret = 5!\n")";

class SearchSettingsTest : public EngineTest {
protected:
    /** A getter and a setter that do no more than ask the platform. */
    template <typename Value>
    void checkSetting(bool (Network::*get)(Value *), bool (Network::*set)(Value), const std::string &name)
    {
        const std::string getCall = " | TAPI_NETWORK_Get" + name + "() |";
        const std::string setCall = " | TAPI_NETWORK_Set" + name;
        Value value = static_cast<Value>(7);
        EXPECT_TRUE((network().*set)(static_cast<Value>(1)));
        EXPECT_EQ(journal(), setCall + "(1) |");
        EXPECT_TRUE((network().*get)(&value));
        EXPECT_EQ(value, static_cast<Value>(1));
        EXPECT_EQ(journal(), getCall);
        EXPECT_FALSE((network().*get)(nullptr));
        EXPECT_EQ(journal(), "");

        answer("TAPI_NETWORK_Get" + name, 5);
        answer("TAPI_NETWORK_Set" + name, 5);
        EXPECT_FALSE((network().*get)(&value));
        EXPECT_EQ(journal(), getCall + failure);
        EXPECT_FALSE((network().*set)(static_cast<Value>(0xFFFFFFFF)));
        EXPECT_EQ(journal(), setCall + "(4294967295) |" + failure);
    }
};

TEST_F(SearchSettingsTest, ModeAndSpeedAreHandedOn)
{
    checkSetting(&Network::getSearchMode, &Network::setSearchMode, "SearchMode");
    checkSetting(&Network::getSearchFreqency, &Network::setSearchFreqency, "SearchFrequency");
}

/** What an access to the band logs after it. */
std::string bandLog(const std::string &function, const std::string &band, int code)
{
    return R"( "In PHONE_ENG_NtInterface::)" + function + R"(\n" "Band = )" + band + R"(\n" "Ret = )"
        + std::to_string(code) + R"(\n" "Out PHONE_ENG_NtInterface::)" + function + R"(\n")"
        + (code == 0 ? "" : failure);
}

TEST_F(SearchSettingsTest, BandReadIsLogged)
{
    _TAPI_NETWORK_BAND_E band = TAPI_NETWORK_BAND_WCDMA;
    answer("TAPI_NETWORK_GetBand", 0, {"\xff\xff\xff\xff"});
    EXPECT_TRUE(network().getBand(&band));
    EXPECT_EQ(band, static_cast<_TAPI_NETWORK_BAND_E>(0xFFFFFFFF));
    EXPECT_EQ(journal(), " | TAPI_NETWORK_GetBand() |" + bandLog("getBand", "-1", 0));
    EXPECT_EQ(locations(), std::set<std::string>{"utility/PHONE_ENG_NtInterface getBand"});
    EXPECT_FALSE(network().getBand(nullptr));
    EXPECT_EQ(journal(), "");
}

TEST_F(SearchSettingsTest, BandIsWrittenFirstAndPutBackWhenACallComesIn)
{
    const struct {
        int readResult, writeResult, incomingCall;
        bool putBack, success;
    } rows[] = {
        {0, 0, 0, false, true},  {0, 5, 0, false, false}, {5, 0, 0, false, true},  {0, 0, 1, true, false},
        {0, 0, -1, true, false}, {0, 5, 1, true, false},  {5, 0, 1, false, false},
    };
    for (const auto &row : rows) {
        // A failing read may leave something behind that is no band in use.
        answer("TAPI_NETWORK_GetBand", row.readResult, {bytesOf(TAPI_NETWORK_BAND_GSM_850_1900)});
        answer("TAPI_NETWORK_SetBand", row.writeResult);
        state().shared.incomingCall = row.incomingCall;
        EXPECT_EQ(network().setBand(TAPI_NETWORK_BAND_WCDMA), row.success);
        EXPECT_EQ(journal(),
                  " | | TAPI_NETWORK_GetBand() |" + bandLog("getBand", "2", row.readResult)
                      + " TAPI_NETWORK_SetBand(3) UTIL_GetIncomingCallStatus()"
                      + (row.putBack ? " TAPI_NETWORK_SetBand(2)" : "")
                      + (row.incomingCall ? "" : " |" + bandLog("setBand", "3", row.writeResult)));
    }
}

TEST_F(SearchSettingsTest, TonesAreOnExactlyForOne)
{
    using Getter = bool (Network::*)(bool &);
    using Setter = bool (Network::*)(bool);
    const std::tuple<Getter, Setter, std::string, std::string, std::string> tones[] = {
        {&Network::getServiceTone, &Network::setServiceTone, "TAPI_ACCE_GetServiceTone",
         "TAPI_ACCE_SetServiceTone", ""},
        {&Network::getDropTone, &Network::setDropTone, "TAPI_CS_GetPendingCallDropToneStatus",
         "TAPI_CS_SetPendingCallDropToneStatus", " |"},
    };
    const std::string success = R"( | "Ret = 0\n" "Ret = 0\n")";
    const std::string refusal = R"( | "Ret = 5\n" "Ret = 5\n")";
    for (const auto &[get, set, getCall, setCall, afterSetting] : tones) {
        for (const char byte : {'\0', '\1', '\2', '\xff'}) {
            bool on = byte != 1;
            answer(getCall, 5, {std::string(1, byte)});
            EXPECT_FALSE((network().*get)(on));
            EXPECT_EQ(on, byte != 1) << int(byte);
            EXPECT_EQ(journal(), " | " + getCall + "()" + refusal);
            answer(getCall, 0, {std::string(1, byte)});
            EXPECT_TRUE((network().*get)(on));
            EXPECT_EQ(on, byte == 1) << int(byte);
            EXPECT_EQ(journal(), " | " + getCall + "()" + success + " |");
            EXPECT_TRUE((network().*set)(on));
            EXPECT_EQ(journal(), " | " + setCall + (on ? "(1)" : "(0)") + success + afterSetting);
        }
        answer(getCall, 0); // and nothing written
        bool on = true;
        EXPECT_TRUE((network().*get)(on));
        EXPECT_FALSE(on);
        journal();
        answer(setCall, 5);
        EXPECT_FALSE((network().*set)(true));
        EXPECT_EQ(journal(), " | " + setCall + "(1)" + refusal);
    }
}

} // namespace
