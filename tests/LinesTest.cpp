// Lines: selection, lock, hot keys.
#include "EngineTest.h"

#include <tuple>

namespace {

constexpr auto failure = static_cast<_TAPI_RESULT_E>(77);
const std::string all = R"( QCopChannel::send("Call_Forward_Notice", "Call_Forward_All"))";
const std::string notAll = R"( QCopChannel::send("Call_Forward_Notice", "Call_Forward_Not_All"))";
const std::string thenTold = R"( QCopChannel::send("/KVQ/PHONE/GNB_UPDATE", "UPDATE GNB"))"
                             R"( PHONE_Msg(false, "") PHONE_Msg::send(66) ~PHONE_Msg())";
const std::string entry = R"( "PHONE_ENG_Setup::getVoiceCallsDivert: active 0,number .")";
const std::string query =
    entry + R"( "PHONE_ENG_Setup::getVoiceCallsDivert: BP is OK." | TAPI_CS_GetDivertStatus(1, 0) |)";

using LinesTest = EngineTest;

TEST_F(LinesTest, SelectionTellsThePhoneInOrder)
{
    state().services.forwardings[{1, 1, 0}] = {true, "+4917", 255};
    const std::string answered = R"( "PHONE_ENG_Setup::getVoiceCallsDivert: Get Divert status succ. )";
    EXPECT_EQ(after(setup().setLineNo(2)),
              "0: | TAPI_CS_SelectLine(1) |" + query + answered + "+4917.\"" + all + " UTIL_SetPhoneLine(1)"
                  + thenTold);
    EXPECT_EQ(after(setup().setLineNo(1)),
              "0: | TAPI_CS_SelectLine(0) |" + query + answered + ".\"" + notAll + " UTIL_SetPhoneLine(0)"
                  + thenTold);
    // An unknown forwarding counts as none.
    answer("TAPI_CS_GetDivertStatus", failure, {std::string("\1\1+49", 6)});
    EXPECT_EQ(after(setup().setLineNo(2)),
              "0: | TAPI_CS_SelectLine(1) |" + query + notAll + " UTIL_SetPhoneLine(1)" + thenTold);
    refuse(); // only the forwarding query asks
    EXPECT_EQ(after(setup().setLineNo(2)),
              "0: | TAPI_CS_SelectLine(1) |" + entry + notAll + " UTIL_SetPhoneLine(1)" + thenTold);
}

TEST_F(LinesTest, SelectionThatFailsChangesNothingAndOtherLinesAreNotEvenTried)
{
    answer("TAPI_CS_SelectLine", failure);
    EXPECT_EQ(after(setup().setLineNo(2)), "77: | TAPI_CS_SelectLine(1) |");
    for (const int line : {0, 3, -1, 257, 258})
        EXPECT_EQ(after(setup().setLineNo(line)), "4:") << line;
}

TEST_F(LinesTest, CurrentLineIsPublishedAndCountsFromOne)
{
    refuse(); // no matter: nothing but the forwarding query asks
    const std::tuple<_TAPI_RESULT_E, std::vector<std::string>, std::string, int> rows[] = {
        {TAPI_RESULT_SUCC, {std::string(1, '\0')}, "0", 1},
        {TAPI_RESULT_SUCC, {"\1"}, "1", 2},
        {failure, {"\1"}, "1", 1},
        {failure, {"\xff"}, "-1", 1},
        {failure, {}, "0", 1}};
    for (const auto &[result, index, logged, expected] : rows) {
        answer("TAPI_CS_GetLine", result, index);
        int line = 42;
        EXPECT_EQ(after(setup().currentLineNo(line)),
                  std::to_string(result) + ": | TAPI_CS_GetLine() | \"PHONE_ENG_Setup::currentLineNo. "
                      + logged + "\" UTIL_SetPhoneLine(" + std::to_string(expected - 1) + ")");
        EXPECT_EQ(line, expected);
    }
    EXPECT_EQ(locations(), std::set<std::string>{"utility/PHONE_ENG_Setup currentLineNo"});
}

TEST_F(LinesTest, LockIsOneByteOfTheSim)
{
    refuse();
    EXPECT_EQ(after(setup().setLineLockStatus(0)), "0: | TAPI_CPHS_SetLineLockStatus(0) |");
    answer("TAPI_CPHS_SetLineLockStatus", failure);
    for (const int lock : {1, -1, 256})
        EXPECT_EQ(after(setup().setLineLockStatus(lock)), "77: | TAPI_CPHS_SetLineLockStatus(1) |");

    const std::string asked = " | TAPI_CPHS_GetLineLockStatus() |";
    const std::tuple<int, _TAPI_RESULT_E, std::string, int> rows[] = {
        {0, TAPI_RESULT_SUCC, "0: UTIL_GetSIMPinBatteryStatus()" + asked, 200},
        {2, TAPI_RESULT_SUCC, "0: UTIL_GetSIMPinBatteryStatus()" + asked, 200},
        {0, failure, "77: UTIL_GetSIMPinBatteryStatus()" + asked, 0},
        {1, TAPI_RESULT_SUCC, "32778: UTIL_GetSIMPinBatteryStatus()", 0}};
    for (const auto &[simStatus, result, expected, expectedStatus] : rows) {
        state().shared.simPinBattery = simStatus;
        answer("TAPI_CPHS_GetLineLockStatus", result, {"\xc8"});
        int status = 42;
        EXPECT_EQ(after(setup().curLineLockStatus(status)), expected);
        EXPECT_EQ(status, expectedStatus);
    }

    const std::string feature = " SETUP_Utility() SETUP_Utility::isFeatureAvailable(2258)";
    const auto lockStatus = [this] { return after(static_cast<unsigned int>(setup().getLineLockStatus())); };
    EXPECT_EQ(lockStatus(), "0:" + feature + asked + " ~SETUP_Utility()") << "the result, not the status";
    answer("TAPI_CPHS_GetLineLockStatus", failure, {"\xc8"});
    EXPECT_EQ(lockStatus(), "77:" + feature + asked + " ~SETUP_Utility()");
    phone.product().missingFeatures = {2258};
    EXPECT_EQ(lockStatus(), "0:" + feature + " ~SETUP_Utility()");
}

TEST_F(LinesTest, HotKeysStopAtTheFirstThatFails)
{
    // Line index, missing features, voice-mail status, answer, what is asked for (0: the voice-mail status).
    const std::tuple<int, std::set<unsigned short>, int, std::string, std::vector<int>> rows[] = {
        {0, {2007, 2189}, 1, "1:", {2040, 160, 0, 2168}},
        {0, {2168}, 1, "0:", {2040, 160, 0, 2168}},
        {256, {2168}, 1, "0:", {2040, 160, 0, 2168}}, // the index is a signed byte
        {1, {2168}, 1, "1:", {2040, 160, 0, 2007, 2189}},
        {-1, {2189}, 1, "0:", {2040, 160, 0, 2007, 2189}},
        {1, {2007}, 1, "0:", {2040, 160, 0, 2007}},
        {0, {}, 0, "0:", {2040, 160, 0}},
        {1, {}, 2, "0:", {2040, 160, 0}},
        {0, {160}, 1, "0:", {2040, 160}},
        {0, {2040}, 1, "0:", {2040}}};
    for (const auto &[index, missing, voiceMail, available, asked] : rows) {
        state().shared.phoneLine = index;
        state().shared.cphsVoiceMail = voiceMail;
        phone.product().missingFeatures = missing;
        std::string expected = available + " SETUP_Utility() UTIL_GetPhoneLine()";
        for (const int id : asked)
            expected += id == 0 ? " UTIL_GetCphsVMStatus()"
                                : " SETUP_Utility::isFeatureAvailable(" + std::to_string(id) + ")";
        EXPECT_EQ(after(setup().isVmHotKeysAvailable()), expected + " ~SETUP_Utility()");
    }
    EXPECT_EQ(after(setup().loadVoiceMailboxNumberFromSIM()), "0:");
}

} // namespace
