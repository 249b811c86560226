// Call preferences: answering modes, reminders, alerts, hyphenation and their like.
#include "Features.h"
#include "PHONE_ENG_Setup.h"
#include "Settings.h"

#include "SETUP_Utility.h"
#include "UTIL_State.h"
#include "ZKbConfig.h"

bool PHONE_ENG_Setup::isReminder()
{
    return Settings::read(Settings::setupGroup, "reminder", true);
}

bool PHONE_ENG_Setup::setReminder(bool on)
{
    return Settings::write(*this, Settings::setupGroup, "reminder", on);
}

bool PHONE_ENG_Setup::isFlipAnswer()
{
    return Settings::read(Settings::setupGroup, "flipAnswer", false);
}

bool PHONE_ENG_Setup::setFlipAnswer(bool on)
{
    return Settings::write(*this, Settings::setupGroup, "flipAnswer", on);
}

bool PHONE_ENG_Setup::isAnykeyAnswer()
{
    return Settings::read(Settings::setupGroup, "anykeyAnswer", false);
}

bool PHONE_ENG_Setup::setAnykeyAnswer(bool on)
{
    return Settings::write(*this, Settings::setupGroup, "anykeyAnswer", on);
}

bool PHONE_ENG_Setup::isAutoAnswer()
{
    return Settings::read(Settings::setupGroup, "autoAnswer", false);
}

bool PHONE_ENG_Setup::setAutoAnswer(bool on)
{
    if (!setupCheckSystemStatus())
        return false;
    return Settings::write(*this, Settings::setupGroup, "autoAnswer", on);
}

bool PHONE_ENG_Setup::isPrepend()
{
    return Settings::read(Settings::setupGroup, "prepend", false);
}

bool PHONE_ENG_Setup::setPrepend(bool on)
{
    if (!setupCheckSystemStatus())
        return false;
    return Settings::write(*this, Settings::setupGroup, "prepend", on);
}

bool PHONE_ENG_Setup::isMsgAlert()
{
    return Settings::read(Settings::setupGroup, "msgAlert", false);
}

bool PHONE_ENG_Setup::setMsgAlert(bool on)
{
    if (!setupCheckSystemStatus())
        return false;
    return Settings::write(*this, Settings::setupGroup, "msgAlert", on);
}

bool PHONE_ENG_Setup::isRoamAlert()
{
    return Settings::read(Settings::setupGroup, "roamAlert", false);
}

bool PHONE_ENG_Setup::setRoamAlert(bool on)
{
    if (!setupCheckSystemStatus())
        return false;
    return Settings::write(*this, Settings::setupGroup, "roamAlert", on);
}

bool PHONE_ENG_Setup::isAutoFallbackVoiceCall()
{
    return Settings::read(Settings::setupGroup, "AutoFallbackVoiceCall", false);
}

bool PHONE_ENG_Setup::setAutoFallbackVoiceCall(bool on)
{
    if (!setupCheckSystemStatus())
        return false;
    return Settings::write(*this, Settings::setupGroup, "AutoFallbackVoiceCall", on);
}

bool PHONE_ENG_Setup::isHACOn()
{
    return Settings::read(Settings::setupGroup, "HearingAidCapability", false);
}

bool PHONE_ENG_Setup::setHAC(bool on)
{
    return Settings::write(*this, Settings::setupGroup, "HearingAidCapability", on);
}

bool PHONE_ENG_Setup::isHACEnabled()
{
    SETUP_Utility product;
    bool enabled = true;
    product.getFlexBit(Features::hearingAidFlexBit, enabled);
    return enabled;
}

bool PHONE_ENG_Setup::getAudibleTimer(int &timer)
{
    timer = Settings::read(Settings::setupGroup, "audibleTimer", -1);
    return true;
}

bool PHONE_ENG_Setup::setAudibleTimer(int timer)
{
    if (!setupCheckSystemStatus())
        return false;
    return Settings::write(*this, Settings::setupGroup, "audibleTimer", timer);
}

bool PHONE_ENG_Setup::getHyphenation(PHONE_SETUP_HYPHENATION_T &mode)
{
    SETUP_Utility product;
    if (!product.isFeatureAvailable(Features::hyphenation)) {
        mode = PHONE_SETUP_HYPHENATION_NOT_SUPPORTED;
        return false;
    }
    SETUP_SET_Manager store(AM_Global::CallSetup, false);
    const int stored = Settings::get(store, Settings::setupGroup, "HyphenSetting",
                                     static_cast<int>(PHONE_SETUP_HYPHENATION_DEFAULT));
    mode = static_cast<PHONE_SETUP_HYPHENATION_T>(stored);
    UTIL_SetDialHyphenation(stored);
    return true;
}

bool PHONE_ENG_Setup::setHyphenation(PHONE_SETUP_HYPHENATION_T mode)
{
    if (!setupCheckSystemStatus())
        return false;
    return Settings::write(*this, Settings::setupGroup, "HyphenSetting", static_cast<int>(mode),
                           UTIL_SetDialHyphenation);
}

bool PHONE_ENG_Setup::getSearchMode(PHONE_SETUP_SEARCH_MODE_T &mode)
{
    mode = static_cast<PHONE_SETUP_SEARCH_MODE_T>(Settings::read(
        Settings::setupGroup, "SearchMode", static_cast<int>(PHONE_SETUP_SEARCH_MODE_DEFAULT)));
    return true;
}

bool PHONE_ENG_Setup::setSearchMode(PHONE_SETUP_SEARCH_MODE_T mode)
{
    if (!setupCheckSystemStatus())
        return false;
    return Settings::write(*this, Settings::setupGroup, "SearchMode", static_cast<int>(mode));
}

bool PHONE_ENG_Setup::getMatchNumIndicate(int &indicate)
{
    indicate = Settings::read(Settings::matchingGroup, "MatchNumIndicate", 3);
    return true;
}

bool PHONE_ENG_Setup::getNddPrefix(QString &prefix)
{
    prefix = Settings::read(Settings::setupGroup, "NDDPrefix", QStringLiteral("0"));
    return true;
}

bool PHONE_ENG_Setup::isSupportedInputMethod(const QUuid &inputMethod)
{
    return ZKbConfig::isInputModeSupported(inputMethod);
}

bool PHONE_isAutoFallbackVoiceCall()
{
    return PHONE_ENG_Setup::instance()->isAutoFallbackVoiceCall();
}
