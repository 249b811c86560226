// Call preferences: defaults, keys, guards and what a write publishes.
#include "EngineTest.h"

#include <QCoreApplication>
#include <QSignalSpy>

#include <cerrno>

namespace {

class CallPreferencesTest : public EngineTest { };

struct BoolPreference {
    const char *key;
    bool defaultValue;
    bool guarded;
    bool (PHONE_ENG_Setup::*get)();
    bool (PHONE_ENG_Setup::*set)(bool);
};

const BoolPreference boolPreferences[] = {
    {"reminder", true, false, &PHONE_ENG_Setup::isReminder, &PHONE_ENG_Setup::setReminder},
    {"flipAnswer", false, false, &PHONE_ENG_Setup::isFlipAnswer, &PHONE_ENG_Setup::setFlipAnswer},
    {"anykeyAnswer", false, false, &PHONE_ENG_Setup::isAnykeyAnswer, &PHONE_ENG_Setup::setAnykeyAnswer},
    {"autoAnswer", false, true, &PHONE_ENG_Setup::isAutoAnswer, &PHONE_ENG_Setup::setAutoAnswer},
    {"prepend", false, true, &PHONE_ENG_Setup::isPrepend, &PHONE_ENG_Setup::setPrepend},
    {"msgAlert", false, true, &PHONE_ENG_Setup::isMsgAlert, &PHONE_ENG_Setup::setMsgAlert},
    {"roamAlert", false, true, &PHONE_ENG_Setup::isRoamAlert, &PHONE_ENG_Setup::setRoamAlert},
    {"AutoFallbackVoiceCall", false, true, &PHONE_ENG_Setup::isAutoFallbackVoiceCall,
     &PHONE_ENG_Setup::setAutoFallbackVoiceCall},
    {"HearingAidCapability", false, false, &PHONE_ENG_Setup::isHACOn, &PHONE_ENG_Setup::setHAC},
};

Events written(const std::string &setting)
{
    return {"SETUP_SET_Manager(4, true)", "SETUP_SET_Manager::setSettingInfo(" + setting + ")",
            "~SETUP_SET_Manager()"};
}

Events readBack(const std::string &setting)
{
    return {"SETUP_SET_Manager(4, false)", "SETUP_SET_Manager::getSettingInfo(" + setting + ")",
            "~SETUP_SET_Manager()"};
}

TEST_F(CallPreferencesTest, SwitchesAreReadWithTheirDefaultsAndWritten)
{
    for (const BoolPreference &preference : boolPreferences) {
        SCOPED_TRACE(preference.key);
        const std::string name = std::string(R"("Setup", ")") + preference.key + R"(", )";
        const bool other = !preference.defaultValue;
        EXPECT_EQ((setup().*preference.get)(), preference.defaultValue);
        EXPECT_EQ(events(), readBack(name + (preference.defaultValue ? "true" : "false")));
        EXPECT_TRUE((setup().*preference.set)(other));
        EXPECT_EQ(events(), written(name + (other ? "true" : "false")));
        EXPECT_EQ((setup().*preference.get)(), other);
        events();
    }
    EXPECT_TRUE(PHONE_isAutoFallbackVoiceCall());
}

TEST_F(CallPreferencesTest, TheHookStopsTheGuardedSettersAndNoOthers)
{
    refuse();
    for (const BoolPreference &preference : boolPreferences) {
        SCOPED_TRACE(preference.key);
        const bool other = !preference.defaultValue;
        EXPECT_EQ((setup().*preference.set)(other), !preference.guarded);
        EXPECT_EQ(events().empty(), preference.guarded);
        EXPECT_EQ((setup().*preference.get)(), preference.guarded ? preference.defaultValue : other);
        events();
    }
    EXPECT_FALSE(setup().setAudibleTimer(1));
    EXPECT_FALSE(setup().setHyphenation(PHONE_SETUP_HYPHENATION_DEFAULT));
    EXPECT_FALSE(setup().setSearchMode(PHONE_SETUP_SEARCH_MODE_DEFAULT));
    EXPECT_TRUE(events().empty());
}

TEST_F(CallPreferencesTest, NumbersAndTextsHaveTheirDefaults)
{
    int timer = 0;
    int indicate = 0;
    QString prefix;
    auto mode = static_cast<PHONE_SETUP_SEARCH_MODE_T>(9);
    EXPECT_TRUE(setup().getAudibleTimer(timer));
    EXPECT_EQ(events(), readBack(R"("Setup", "audibleTimer", -1)"));
    EXPECT_TRUE(setup().getMatchNumIndicate(indicate));
    EXPECT_EQ(events(), readBack(R"("matching_indicate", "MatchNumIndicate", 3)"));
    EXPECT_TRUE(setup().getNddPrefix(prefix));
    EXPECT_EQ(events(), readBack(R"("Setup", "NDDPrefix", "0", false)"));
    EXPECT_TRUE(setup().getSearchMode(mode));
    EXPECT_EQ(timer, -1);
    EXPECT_EQ(indicate, 3);
    EXPECT_EQ(prefix, QStringLiteral("0"));
    EXPECT_EQ(mode, PHONE_SETUP_SEARCH_MODE_DEFAULT);
}

TEST_F(CallPreferencesTest, NumbersComeBackAsTheyWereStored)
{
    int timer = 0;
    auto searchMode = PHONE_SETUP_SEARCH_MODE_DEFAULT;
    EXPECT_TRUE(setup().setAudibleTimer(-2147483647));
    EXPECT_EQ(events(), written(R"("Setup", "audibleTimer", -2147483647)"));
    EXPECT_TRUE(setup().setSearchMode(static_cast<PHONE_SETUP_SEARCH_MODE_T>(4711)));
    EXPECT_EQ(events(), written(R"("Setup", "SearchMode", 4711)"));
    setup().getAudibleTimer(timer);
    setup().getSearchMode(searchMode);
    EXPECT_EQ(timer, -2147483647);
    EXPECT_EQ(searchMode, 4711);
}

TEST_F(CallPreferencesTest, HyphenationIsPublishedWhenReadOrStored)
{
    auto mode = static_cast<PHONE_SETUP_HYPHENATION_T>(9);
    EXPECT_TRUE(setup().getHyphenation(mode));
    EXPECT_EQ(mode, PHONE_SETUP_HYPHENATION_DEFAULT);
    EXPECT_EQ(
        events(),
        (Events{"SETUP_Utility()", "SETUP_Utility::isFeatureAvailable(266)", "SETUP_SET_Manager(4, false)",
                R"(SETUP_SET_Manager::getSettingInfo("Setup", "HyphenSetting", 0))",
                "UTIL_SetDialHyphenation(0)", "~SETUP_SET_Manager()", "~SETUP_Utility()"}));
    EXPECT_TRUE(setup().setHyphenation(static_cast<PHONE_SETUP_HYPHENATION_T>(7)));
    EXPECT_EQ(events(),
              (Events{"SETUP_SET_Manager(4, true)",
                      R"(SETUP_SET_Manager::setSettingInfo("Setup", "HyphenSetting", 7))",
                      "UTIL_SetDialHyphenation(7)", "~SETUP_SET_Manager()"}));
    EXPECT_TRUE(setup().getHyphenation(mode));
    EXPECT_EQ(mode, 7);

    answer("SETUP_SET_Manager::setSettingInfo", 0);
    state().shared.dialHyphenation = 7;
    EXPECT_FALSE(setup().setHyphenation(PHONE_SETUP_HYPHENATION_DEFAULT));
    EXPECT_EQ(state().shared.dialHyphenation, 7);
}

TEST_F(CallPreferencesTest, AProductWithoutHyphenationSaysSoAndTouchesNothing)
{
    phone.product().missingFeatures = {266};
    auto mode = PHONE_SETUP_HYPHENATION_DEFAULT;
    EXPECT_FALSE(setup().getHyphenation(mode));
    EXPECT_EQ(mode, PHONE_SETUP_HYPHENATION_NOT_SUPPORTED);
    EXPECT_EQ(events(),
              (Events{"SETUP_Utility()", "SETUP_Utility::isFeatureAvailable(266)", "~SETUP_Utility()"}));
    EXPECT_TRUE(setup().setHyphenation(mode)) << "the setter does not ask the product";
}

TEST_F(CallPreferencesTest, TheHearingAidBitIsIndependentOfTheSetting)
{
    EXPECT_TRUE(setup().isHACEnabled()) << "a product that does not know the bit";
    EXPECT_EQ(events(),
              (Events{"SETUP_Utility()", "SETUP_Utility::getFlexBit(408, true)", "~SETUP_Utility()"}));
    phone.product().flexBits[408] = false;
    setup().setHAC(true);
    EXPECT_FALSE(setup().isHACEnabled());
    EXPECT_TRUE(setup().isHACOn());
}

TEST_F(CallPreferencesTest, InputMethodsAreThePlatformsAnswer)
{
    const QUuid known(QStringLiteral("{01234567-89ab-cdef-0123-456789abcdef}"));
    phone.product().inputMethods = {known};
    EXPECT_TRUE(setup().isSupportedInputMethod(known));
    EXPECT_FALSE(setup().isSupportedInputMethod(QUuid()));
    EXPECT_EQ(calls().front(),
              R"(ZKbConfig::isInputModeSupported("{01234567-89ab-cdef-0123-456789abcdef}"))");
}

TEST_F(CallPreferencesTest, EachWriteThatFindsTheDiskFullRaisesOneSignal)
{
    QSignalSpy flashFull(&setup(), SIGNAL(flashFull()));
    ScriptedAnswer refusal;
    for (const int error : {ENOSPC, EACCES, ENOSPC}) {
        refusal.error = error;
        phone.script("SETUP_SET_Manager::setSettingInfo", refusal);
        EXPECT_FALSE(setup().setReminder(false));
    }
    EXPECT_EQ(flashFull.count(), 0);
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(flashFull.count(), 2);
}

} // namespace
