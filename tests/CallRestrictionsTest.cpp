// Call restrictions and options: fixed dialling, caller id, call waiting, redial, drop tone, DTMF.
#include "EngineTest.h"

#include <functional>
#include <tuple>

namespace {

using Engine = PHONE_ENG_Setup;
using RestrictId = _TAPI_CALL_RESTRICT_ID_E;

constexpr auto failure = static_cast<_TAPI_RESULT_E>(77);

class CallRestrictionsTest : public EngineTest {
protected:
    /** The same with the value that an operation gives to a caller who has another one. */
    template <typename Value>
    std::string read(_TAPI_RESULT_E (Engine::*operation)(Value &), int callers)
    {
        auto value = static_cast<Value>(callers);
        const _TAPI_RESULT_E result = (setup().*operation)(value);
        return std::to_string(static_cast<int>(value)) + ", " + after(result);
    }

    void answerByte(const std::string &function, _TAPI_RESULT_E result, int byte)
    {
        answer(function, result, {std::string(1, static_cast<char>(byte))});
    }
};

const std::string waitingRead =
    R"( SETUP_SET_Manager(4, false) SETUP_SET_Manager::getSettingInfo("Setup", "DisCMReq", true))"
    R"( "get config item PHONE_CALLSETUP_ITEM_CM_REQUEST status: )";

TEST_F(CallRestrictionsTest, FlagsAreOnOnlyWhenTheByteIsOne)
{
    const std::tuple<_TAPI_RESULT_E (Engine::*)(bool &), std::string, std::string> rows[] = {
        {&Engine::isFixedDialing, "TAPI_FIXDIALING_GetStatus", " | TAPI_FIXDIALING_GetStatus(1) |"},
        {&Engine::isAutoRedial, "TAPI_CS_GetAutoRedialStatus", " | TAPI_CS_GetAutoRedialStatus() |"},
        {&Engine::isCallDropTone, "TAPI_CS_GetPendingCallDropToneStatus",
         " | TAPI_CS_GetPendingCallDropToneStatus() |"},
        {&Engine::isCallWaiting, "TAPI_CS_GetVoiceWaitingStatus",
         waitingRead + R"(1\n" | TAPI_CS_GetVoiceWaitingStatus() | ~SETUP_SET_Manager())"}};
    for (const auto &[operation, function, asked] : rows) {
        for (const int byte : {0, 1, 2, 255}) {
            answerByte(function, TAPI_RESULT_SUCC, byte);
            EXPECT_EQ(read(operation, byte != 1), (byte == 1 ? "1, 0:" : "0, 0:") + asked) << byte;
            answerByte(function, failure, byte);
            EXPECT_EQ(read(operation, byte != 1), (byte == 1 ? "0, 77:" : "1, 77:") + asked) << byte;
        }
        answer(function, TAPI_RESULT_SUCC); // and nothing written
        EXPECT_EQ(read(operation, 1), "0, 0:" + asked);
    }
}

TEST_F(CallRestrictionsTest, RefusalClearsSomeFlagsAndKeepsTheOtherValues)
{
    refuse();
    EXPECT_EQ(read(&Engine::isFixedDialing, 1), "1, 32768:");
    EXPECT_EQ(read(&Engine::isCallWaiting, 1), "0, 32768:");
    EXPECT_EQ(read(&Engine::isAutoRedial, 1), "0, 32768:");
    EXPECT_EQ(read(&Engine::isCallDropTone, 1), "0, 32768:");
    EXPECT_EQ(read(&Engine::getDTMF, 42), "42, 32768:");
    EXPECT_EQ(read(&Engine::getCLIR, 42), "42, 32768:");
    EXPECT_EQ(read(&Engine::getNextCLIR, 42), "42, 32768:");
    EXPECT_EQ(after(setup().setCLIR(TAPI_CALL_RESTRICT_ID_INVOKE)), "32768:");
    EXPECT_EQ(after(setup().setNextCLIR(1)), "32768:");
}

TEST_F(CallRestrictionsTest, SettingsReachThePlatform)
{
    const QString digits = QStringLiteral("1234567890123456789012345");
    const std::string fullPin = R"(TAPI_FIXDIALING_SetStatus(1, "12345678901234567890"[21]))";
    Engine &engine = setup();
    const std::vector<PlatformWrite> rows = {
        {[&] { return engine.setDTMF(200); }, "TAPI_CS_SetDtmfToneType(200)"},
        {[&] { return engine.setCallWaiting(true); }, "TAPI_CS_SetVoiceWaitingStatus(1)"},
        {[&] { return engine.setCallWaiting(false); }, "TAPI_CS_SetVoiceWaitingStatus(0)"},
        {[&] { return engine.setAutoRedial(true); }, "TAPI_CS_SetAutoRedialStatus(1)"},
        {[&] { return engine.setAutoRedial(false); }, "TAPI_CS_SetAutoRedialStatus(0)"},
        {[&] { return engine.setCallDropTone(true); }, "TAPI_CS_SetPendingCallDropToneStatus(1)"},
        {[&] { return engine.setCallDropTone(false); }, "TAPI_CS_SetPendingCallDropToneStatus(0)"},
        {[&] { return engine.setFixedDialing(false, QStringLiteral("é1")); },
         "TAPI_FIXDIALING_SetStatus(0, \"\xe9\x31\"[21])"},
        {[&] { return engine.setFixedDialing(true, QString()); }, R"(TAPI_FIXDIALING_SetStatus(1, ""[21]))"},
        {[&] { return engine.setFixedDialing(true, digits.left(20)); }, fullPin},
        {[&] { return engine.setFixedDialing(true, digits.left(21)); }, fullPin},
        {[&] { return engine.setFixedDialing(true, digits); }, fullPin}};
    reachPlatform(rows);
}

TEST_F(CallRestrictionsTest, CardTellsWhetherFixedDialingIsThereAndGuardsIt)
{
    EXPECT_NE(setup().setFixedDialing(true, QStringLiteral("0000")), TAPI_RESULT_SUCC);
    EXPECT_FALSE(state().services.fixedDialing);
    EXPECT_EQ(setup().setFixedDialing(true, QStringLiteral("5678")), TAPI_RESULT_SUCC);
    EXPECT_TRUE(state().services.fixedDialing);
    events();
    refuse(); // no matter: whether it is available does not ask
    for (const int byte : {0, 1, 2}) {
        answerByte("TAPI_FIXDIALING_GetAvailability", failure, byte);
        EXPECT_EQ(after(setup().isFixedDialingAvailable()), "0: | TAPI_FIXDIALING_GetAvailability(1) |");
        answerByte("TAPI_FIXDIALING_GetAvailability", TAPI_RESULT_SUCC, byte);
        EXPECT_EQ(after(setup().isFixedDialingAvailable()),
                  std::to_string(byte == 1) + ": | TAPI_FIXDIALING_GetAvailability(1) |");
    }
}

TEST_F(CallRestrictionsTest, DtmfTypeIsPassedThrough)
{
    answerByte("TAPI_CS_GetDtmfToneType", failure, 9);
    EXPECT_EQ(read(&Engine::getDTMF, 42), "42, 77: | TAPI_CS_GetDtmfToneType() |");
    answerByte("TAPI_CS_GetDtmfToneType", TAPI_RESULT_SUCC, 200);
    EXPECT_EQ(read(&Engine::getDTMF, 42), "200, 0: | TAPI_CS_GetDtmfToneType() |");
    answer("TAPI_CS_GetDtmfToneType", TAPI_RESULT_SUCC); // and nothing written
    EXPECT_EQ(read(&Engine::getDTMF, 42), "0, 0: | TAPI_CS_GetDtmfToneType() |");
}

TEST_F(CallRestrictionsTest, CallerIdRestrictionIsTranslatedWhenReadButNotWhenSet)
{
    const std::tuple<_TAPI_RESULT_E, std::string, std::string> rows[] = {
        {TAPI_RESULT_SUCC, "0", "0"}, {TAPI_RESULT_SUCC, "1", "2"},   {TAPI_RESULT_SUCC, "2", "1"},
        {TAPI_RESULT_SUCC, "7", "0"}, {TAPI_RESULT_SUCC, "255", "0"}, {failure, "1", "0"}};
    for (const auto &[result, setting, id] : rows) {
        const std::string code = std::to_string(result);
        answerByte("TAPI_FTRDB_GetState", result, std::stoi(setting));
        EXPECT_EQ(read(&Engine::getCLIR, 42),
                  id + ", " + code + ": | TAPI_FTRDB_GetState(2236) | \"TAPI_FTRDB_GetState result=" + code
                      + ",TAPI_DB_FEATURE_SETTING_T =" + setting + R"(.\n" UTIL_SetRestrictId()" + id + ")");
    }
    EXPECT_EQ(locations(), std::set<std::string>{"utility/PHONE_ENG_Setup getCLIR"});
    for (const std::string id : {"0", "1", "2", "9"}) {
        const auto number = static_cast<RestrictId>(std::stoi(id));
        const std::string call = " | TAPI_CS_SetRestrictId(" + id + ") |";
        answer("TAPI_CS_SetRestrictId", TAPI_RESULT_SUCC);
        EXPECT_EQ(after(setup().setCLIR(number)), "0:" + call + " UTIL_SetRestrictId(" + id + ")");
        answer("TAPI_CS_SetRestrictId", failure);
        EXPECT_EQ(after(setup().setCLIR(number)), "77:" + call);
    }
}

TEST_F(CallRestrictionsTest, NextCallRestrictionIsReadOnlyWhileUnknown)
{
    const std::string known = "UTIL_GetRestrictNextId()";
    const std::string asked = known + " | TAPI_CS_GetRestrictNextCallID() | UTIL_SetRestrictNextId";
    // The mirror counts as one byte.
    const std::tuple<int, _TAPI_RESULT_E, int, std::string> rows[] = {
        {1, failure, 9, "1, 0: " + known},
        {257, failure, 9, "1, 0: " + known},
        {0, TAPI_RESULT_SUCC, 1, "1, 0: " + asked + "(1)"},
        {0, TAPI_RESULT_SUCC, 0, "0, 0: " + asked + "(0)"},
        {256, TAPI_RESULT_SUCC, 200, "200, 0: " + asked + "(200)"},
        {0, failure, 1, "2, 77: " + asked + "(2)"}};
    for (const auto &[mirror, result, byte, expected] : rows) {
        state().shared.restrictNextId = mirror;
        answerByte("TAPI_CS_GetRestrictNextCallID", result, byte);
        EXPECT_EQ(read(&Engine::getNextCLIR, 42), expected);
    }
    EXPECT_EQ(after(setup().setNextCLIR(200)),
              "0: | TAPI_CS_SetRestrictNextCallID(200) | UTIL_SetRestrictNextId(200)");
    answer("TAPI_CS_SetRestrictNextCallID", failure);
    EXPECT_EQ(after(setup().setNextCLIR(1)),
              "77: | TAPI_CS_SetRestrictNextCallID(1) | UTIL_SetRestrictNextId(2)");
}

TEST_F(CallRestrictionsTest, CallWaitingIsNotAskedWhenTheSettingForbids)
{
    const SettingsStore::Name name = {4, QStringLiteral("Setup"), QStringLiteral("DisCMReq")};
    ASSERT_TRUE(phone.settings().write(name, false));
    EXPECT_EQ(read(&Engine::isCallWaiting, 1), "1, 1:" + waitingRead + R"(0\n" ~SETUP_SET_Manager())");
    EXPECT_EQ(read(&Engine::isCallWaiting, 0), "0, 1:" + waitingRead + R"(0\n" ~SETUP_SET_Manager())");
    EXPECT_EQ(after(setup().setCallWaiting(true)), "0: | TAPI_CS_SetVoiceWaitingStatus(1) |");
}

} // namespace
