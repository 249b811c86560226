// Call forwarding: queries, requests, cancelling, the indicator of a two-line SIM.
#include "EngineTest.h"

#include <QMetaObject>

#include <climits>
#include <tuple>

namespace {

using namespace std::string_literals;

using When = _TAPI_CS_DIVERT_WHEN_E;

constexpr auto failure = static_cast<_TAPI_RESULT_E>(77);
const std::string notice = R"( QCopChannel::send("Call_Forward_Notice", "Call_Forward_Not_All"))";
const std::string update = R"( QCopChannel::send("/KVQ/PHONE/GNB_UPDATE", "UPDATE GNB"))";
const std::string refreshed = "0: SETUP_Utility() SETUP_Utility::isFeatureAvailable(2040)";
const std::string flagsAsked = " UTIL_GetSIMPinBatteryStatus() | TAPI_CPHS_GetCallDivertStatus() |";
const std::string timerRead =
    R"( SETUP_SET_Manager(4, false) SETUP_SET_Manager::getSettingInfo("Setup", "CallForwardTimer", 5))"
    R"( ~SETUP_SET_Manager())";

class CallForwardingTest : public EngineTest {
protected:
    /** Refreshes the forwarding indicator through its slot; gives 0 as the result. */
    std::string refresh()
    {
        const bool invoked = QMetaObject::invokeMethod(&setup(), "updateCFFlag", Qt::DirectConnection);
        return after(invoked ? 0 : 1);
    }

    void storeTimer(int seconds)
    {
        const SettingsStore::Name name = {4, QStringLiteral("Setup"), QStringLiteral("CallForwardTimer")};
        ASSERT_TRUE(phone.settings().write(name, seconds));
    }
};

TEST_F(CallForwardingTest, DefaultTimerIsRoundedUpToOneThatTheNetworkKnows)
{
    EXPECT_EQ(after(static_cast<unsigned int>(setup().getDefaultCallForwardTimer())), "5:" + timerRead);
    const std::pair<int, int> rows[] = {{0, 20},   {-1, 20},  {INT_MIN, 20}, {1, 5},    {5, 5},    {6, 10},
                                        {10, 10},  {11, 15},  {15, 15},      {16, 20},  {20, 20},  {21, 25},
                                        {25, 25},  {26, 30},  {30, 30},      {31, 20},  {254, 20}, {255, 255},
                                        {256, 20}, {261, 20}, {511, 20},     {-251, 20}};
    for (const auto &[stored, timer] : rows) {
        storeTimer(stored);
        EXPECT_EQ(setup().getDefaultCallForwardTimer(), timer) << stored;
    }
}

struct Query {
    std::string name;
    _TAPI_RESULT_E (PHONE_ENG_Setup::*ask)(bool &, QString &, When);
    std::string call, onEntry, onceAllowed, onSuccess, onFailure;
};

// The caller comes with true and "caller"; the network answers not active and "+4912".
const Query queries[] = {
    {"getVoiceCallsDivert", &PHONE_ENG_Setup::getVoiceCallsDivert, " | TAPI_CS_GetDivertStatus(1, 9) |",
     R"( "PHONE_ENG_Setup::getVoiceCallsDivert: active 1,number caller.")",
     R"( "PHONE_ENG_Setup::getVoiceCallsDivert: BP is OK.")",
     R"( "PHONE_ENG_Setup::getVoiceCallsDivert: Get Divert status succ. +4912.")", ""},
    {"getDataCallsDivert", &PHONE_ENG_Setup::getDataCallsDivert, " | TAPI_CS_GetDivertStatus(2, 9) |", "", "",
     R"( "PHONE_ENG_Setup::getDataCallsDivert.active 0,number +4912.")",
     R"( "PHONE_ENG_Setup::getDataCallsDivert.active 1,number caller.")"},
    {"getFaxCallsDivert", &PHONE_ENG_Setup::getFaxCallsDivert, " | TAPI_CS_GetDivertStatus(4, 9) |", "", "",
     R"( "PHONE_ENG_Setup::getFaxCallsDivert.active 0,number +4912.")",
     R"( "PHONE_ENG_Setup::getFaxCallsDivert.active 1,number caller.")"},
};

TEST_F(CallForwardingTest, QueryDeliversWhatTheNetworkAnswersAndLogsIt)
{
    const auto ask = [this](const Query &query) {
        bool active = true;
        QString number = QStringLiteral("caller");
        const _TAPI_RESULT_E result = (setup().*query.ask)(active, number, static_cast<When>(9));
        return std::to_string(active) + ' ' + number.toStdString() + ' ' + after(result);
    };
    for (const Query &query : queries) {
        const std::string asked = query.onEntry + query.onceAllowed + query.call;
        answer("TAPI_CS_GetDivertStatus", failure, {"\1\1+4912"});
        EXPECT_EQ(ask(query), "1 caller 77:" + asked + query.onFailure);
        for (const int status : {0, 2, 129, 255}) { // every status but 1 is off
            answer("TAPI_CS_GetDivertStatus", TAPI_RESULT_SUCC, {static_cast<char>(status) + "\1+4912\0"s});
            EXPECT_EQ(ask(query), "0 +4912 0:" + asked + query.onSuccess);
        }
        EXPECT_EQ(locations(), std::set{"utility/PHONE_ENG_Setup " + query.name});
        answer("TAPI_CS_GetDivertStatus", TAPI_RESULT_SUCC, {"\1\1\xe9" + std::string(69, '7')});
        EXPECT_THAT(ask(query), testing::StartsWith("1 é" + std::string(69, '7') + " 0:")) << "full field";
        locations();
    }
    refuse();
    for (const Query &query : queries)
        EXPECT_EQ(ask(query), "1 caller 32768:" + query.onEntry);
}

using Request = _TAPI_RESULT_E (PHONE_ENG_Setup::*)(bool, When, const QString &);
const std::tuple<std::string, Request, std::string> requests[] = {
    {"divertVoiceCalls", &PHONE_ENG_Setup::divertVoiceCalls, "1"},
    {"divertDataCalls", &PHONE_ENG_Setup::divertDataCalls, "2"},
    {"divertFaxCalls", &PHONE_ENG_Setup::divertFaxCalls, "4"},
};

TEST_F(CallForwardingTest, RequestCarriesTheTimerOfItsCondition)
{
    const std::pair<int, std::string> rows[] = {{0, "255"}, {1, "255"}, {2, "15"}, {3, "255"},
                                                {4, "15"},  {5, "15"},  {6, "15"}, {255, "15"}};
    storeTimer(12);
    answer("TAPI_CS_DivertCallToNumber", failure);
    for (const auto &[name, send, serviceClass] : requests) {
        for (const auto &[condition, timer] : rows) {
            const std::string flag = condition % 2 == 0 ? "1" : "0";
            const std::string when = std::to_string(condition);
            std::string expected = "77: \"PHONE_ENG_Setup::" + name;
            expected += serviceClass == "1" ? ",active " + flag + " ,number +49,when " + when : ".";
            expected += '"' + timerRead + " | TAPI_CS_DivertCallToNumber(" + flag + ", " + serviceClass;
            expected += ", " + when + ", \"+49\"[43], " + timer + ") |";
            const QString number = QStringLiteral("+49");
            EXPECT_EQ(after((setup().*send)(flag == "1", static_cast<When>(condition), number)), expected);
        }
        EXPECT_EQ(locations(), std::set{"utility/PHONE_ENG_Setup " + name});
    }
}

TEST_F(CallForwardingTest, RequestWithTimeKnowsFiveTenAndTwenty)
{
    const std::pair<unsigned char, std::string> rows[] = {{0, "20"},  {5, "5"},   {6, "20"},  {10, "10"},
                                                          {15, "20"}, {20, "20"}, {30, "20"}, {255, "20"}};
    const QString number = QStringLiteral("110");
    for (const auto &[time, timer] : rows) {
        const std::string rest = R"(, 1, 2, "110"[43], )" + timer + ") |";
        answer("TAPI_CS_DivertCallToNumber", TAPI_RESULT_SUCC);
        EXPECT_EQ(after(setup().divertVoiceCallsWithTime(true, number, time)),
                  "0: | TAPI_CS_DivertCallToNumber(1" + rest);
        answer("TAPI_CS_DivertCallToNumber", failure);
        EXPECT_EQ(after(setup().divertVoiceCallsWithTime(false, number, time)),
                  "77: | TAPI_CS_DivertCallToNumber(0" + rest);
    }
}

TEST_F(CallForwardingTest, NumbersAreCutToTheirField)
{
    const std::string digits = "12345678901234567890123456789012345678901234567890";
    for (const std::size_t length : {0U, 1U, 42U, 43U, 50U}) {
        const QString number = QString::fromStdString(digits.substr(0, length));
        for (const auto &[name, send, serviceClass] : requests)
            (setup().*send)(true, TAPI_CS_DIVERT_BUSY, number);
        setup().divertVoiceCallsWithTime(true, number, 5);
        const std::string field = ", \"" + digits.substr(0, std::min<std::size_t>(length, 42)) + "\"[43], ";
        EXPECT_THAT(calls(), testing::Contains(testing::HasSubstr(field)).Times(4));
    }
}

TEST_F(CallForwardingTest, CancellingIsAnnouncedWhenItSucceeds)
{
    PHONE_ENG_Setup &engine = setup();
    EXPECT_EQ(after(engine.cancelAllVoiceCallsDiverts()), "0: | TAPI_CS_CancelAllVoiceDivert() |" + notice);
    EXPECT_EQ(after(engine.cancelAllCallsDiverts()), "0: | TAPI_CS_CancelAllDivert() |" + notice);
    answer("TAPI_CS_CancelAllVoiceDivert", failure);
    answer("TAPI_CS_CancelAllDivert", failure);
    EXPECT_EQ(after(engine.cancelAllVoiceCallsDiverts()), "77: | TAPI_CS_CancelAllVoiceDivert() |");
    EXPECT_EQ(after(engine.cancelAllCallsDiverts()), "77: | TAPI_CS_CancelAllDivert() |");
    refuse();
    EXPECT_EQ(after(engine.cancelAllVoiceCallsDiverts()), "32768:");
    EXPECT_EQ(after(engine.cancelAllCallsDiverts()), "32768:");
    for (const auto &[name, send, serviceClass] : requests)
        EXPECT_EQ(after((engine.*send)(true, TAPI_CS_DIVERT_BUSY, QStringLiteral("1"))), "32768:");
    EXPECT_EQ(after(engine.divertVoiceCallsWithTime(true, QStringLiteral("1"), 5)), "32768:");
}

TEST_F(CallForwardingTest, IndicatorFollowsTheFeaturesOfTheProduct)
{
    const unsigned short features[] = {2003, 2007, 2258, 2171};
    // How many of these are asked for and the status of two forwarded lines; bit n stands for lacking the nth.
    const std::pair<int, int> rows[] = {{4, 3}, {4, 2}, {2, 1}, {2, 0}, {3, 3}, {3, 0}, {2, 1}, {2, 0},
                                        {4, 1}, {4, 0}, {2, 1}, {2, 0}, {3, 3}, {3, 0}, {2, 1}, {2, 0}};
    answer("TAPI_CPHS_GetCallDivertStatus", TAPI_RESULT_SUCC, {"\1", "\1"});
    for (unsigned int lacking = 0; lacking < std::size(rows); ++lacking) {
        const auto &[asked, status] = rows[lacking];
        std::string expected = refreshed + flagsAsked;
        phone.product().missingFeatures.clear();
        for (int n = 0; n < 4; ++n) {
            if ((lacking >> n & 1) != 0)
                phone.product().missingFeatures.insert(features[n]);
            if (n < asked)
                expected += " SETUP_Utility::isFeatureAvailable(" + std::to_string(features[n]) + ")";
        }
        expected += " UTIL_SetCPHSCallForwardStatus(" + std::to_string(status) + ")" + update;
        EXPECT_EQ(refresh(), expected + " ~SETUP_Utility()");
    }
}

TEST_F(CallForwardingTest, IndicatorCountsOnlyFlagsThatAreOne)
{
    const std::tuple<std::string, std::string, int> rows[] = {
        {"\2", "\2", 0}, {"\1", "\2", 1}, {"\2", "\1", 2}, {"\1", "\xff", 1}, {"", "", 0}};
    for (const auto &[line1, line2, status] : rows) {
        answer("TAPI_CPHS_GetCallDivertStatus", TAPI_RESULT_SUCC, {line1, line2});
        refresh();
        EXPECT_EQ(state().shared.cphsForwarding, status);
    }
}

TEST_F(CallForwardingTest, IndicatorWithoutAnswerShowsNothingOrStays)
{
    refuse(); // no matter: the refresh does not ask
    answer("TAPI_CPHS_GetCallDivertStatus", failure, {"\1", "\1"});
    state().shared.simPinBattery = 2;
    EXPECT_EQ(refresh(),
              refreshed + flagsAsked + " UTIL_SetCPHSCallForwardStatus(0)" + update + " ~SETUP_Utility()");
    state().shared.simPinBattery = 1;
    EXPECT_EQ(refresh(), refreshed + " UTIL_GetSIMPinBatteryStatus() ~SETUP_Utility()");
    phone.product().missingFeatures = {2040};
    EXPECT_EQ(refresh(), refreshed + R"( "Not CPHS phone. Update GNB status!" ~SETUP_Utility())");
    EXPECT_EQ(locations(), std::set{"utility/PHONE_ENG_Setup getCallForwardingFlag"s});
}

TEST_F(CallForwardingTest, NetworkRemembersByLineClassAndCondition)
{
    setup().divertVoiceCallsWithTime(true, QStringLiteral("+49"), 10);
    setup().setLineNo(2);
    setup().divertFaxCalls(true, TAPI_CS_DIVERT_ALL_CONDITIONAL, QStringLiteral("3"));
    const std::map<ForwardingKey, Forwarding> &kept = state().services.forwardings;
    EXPECT_EQ(kept.size(), 4U);
    EXPECT_EQ(kept.at(ForwardingKey(1, 4, 3)).number, "3");
    EXPECT_EQ(kept.at(ForwardingKey(0, 1, 2)).noReplyTimer, 10);
}

} // namespace
