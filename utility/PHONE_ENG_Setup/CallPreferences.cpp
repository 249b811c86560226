// Call preferences: answering modes, reminders, alerts, hyphenation and their like.
#include "Features.h"
#include "PHONE_ENG_Setup.h"
#include "Settings.h"

#include "SETUP_Utility.h"
#include "UTIL_State.h"
#include "ZKbConfig.h"

bool PHONE_ENG_Setup::isReminder()
{
    return Settings::read(Settings::setupGroup, u"reminder", true);
}

bool PHONE_ENG_Setup::setReminder(bool on)
{
    return Settings::write(*this, Settings::setupGroup, u"reminder", on);
}

bool PHONE_ENG_Setup::isFlipAnswer()
{
    return Settings::read(Settings::setupGroup, u"flipAnswer", false);
}

bool PHONE_ENG_Setup::setFlipAnswer(bool on)
{
    return Settings::write(*this, Settings::setupGroup, u"flipAnswer", on);
}

bool PHONE_ENG_Setup::isAnykeyAnswer()
{
    return Settings::read(Settings::setupGroup, u"anykeyAnswer", false);
}

bool PHONE_ENG_Setup::setAnykeyAnswer(bool on)
{
    return Settings::write(*this, Settings::setupGroup, u"anykeyAnswer", on);
}

bool PHONE_ENG_Setup::isAutoAnswer()
{
    return Settings::read(Settings::setupGroup, u"autoAnswer", false);
}

bool PHONE_ENG_Setup::setAutoAnswer(bool on)
{
    if (!setupCheckSystemStatus())
        return false;
    return Settings::write(*this, Settings::setupGroup, u"autoAnswer", on);
}

bool PHONE_ENG_Setup::isPrepend()
{
    return Settings::read(Settings::setupGroup, u"prepend", false);
}

bool PHONE_ENG_Setup::setPrepend(bool on)
{
    if (!setupCheckSystemStatus())
        return false;
    return Settings::write(*this, Settings::setupGroup, u"prepend", on);
}

bool PHONE_ENG_Setup::isMsgAlert()
{
    return Settings::read(Settings::setupGroup, u"msgAlert", false);
}

bool PHONE_ENG_Setup::setMsgAlert(bool on)
{
    if (!setupCheckSystemStatus())
        return false;
    return Settings::write(*this, Settings::setupGroup, u"msgAlert", on);
}

bool PHONE_ENG_Setup::isRoamAlert()
{
    return Settings::read(Settings::setupGroup, u"roamAlert", false);
}

bool PHONE_ENG_Setup::setRoamAlert(bool on)
{
    if (!setupCheckSystemStatus())
        return false;
    return Settings::write(*this, Settings::setupGroup, u"roamAlert", on);
}

bool PHONE_ENG_Setup::isAutoFallbackVoiceCall()
{
    return Settings::read(Settings::setupGroup, u"AutoFallbackVoiceCall", false);
}

bool PHONE_ENG_Setup::setAutoFallbackVoiceCall(bool on)
{
    if (!setupCheckSystemStatus())
        return false;
    return Settings::write(*this, Settings::setupGroup, u"AutoFallbackVoiceCall", on);
}

bool PHONE_ENG_Setup::isHACOn()
{
    return Settings::read(Settings::setupGroup, u"HearingAidCapability", false);
}

bool PHONE_ENG_Setup::setHAC(bool on)
{
    return Settings::write(*this, Settings::setupGroup, u"HearingAidCapability", on);
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
    timer = Settings::read(Settings::setupGroup, u"audibleTimer", -1);
    return true;
}

bool PHONE_ENG_Setup::setAudibleTimer(int timer)
{
    if (!setupCheckSystemStatus())
        return false;
    return Settings::write(*this, Settings::setupGroup, u"audibleTimer", timer);
}

bool PHONE_ENG_Setup::getHyphenation(PHONE_SETUP_HYPHENATION_T &mode)
{
    SETUP_Utility product;
    if (!product.isFeatureAvailable(Features::hyphenation)) {
        mode = PHONE_SETUP_HYPHENATION_NOT_SUPPORTED;
        return false;
    }
    SETUP_SET_Manager store(AM_Global::CallSetup, false);
    const int stored = Settings::get(store, Settings::setupGroup, u"HyphenSetting",
                                     static_cast<int>(PHONE_SETUP_HYPHENATION_DEFAULT));
    mode = static_cast<PHONE_SETUP_HYPHENATION_T>(stored);
    UTIL_SetDialHyphenation(stored);
    return true;
}

bool PHONE_ENG_Setup::setHyphenation(PHONE_SETUP_HYPHENATION_T mode)
{
    if (!setupCheckSystemStatus())
        return false;
    return Settings::write(*this, Settings::setupGroup, u"HyphenSetting", static_cast<int>(mode),
                           UTIL_SetDialHyphenation);
}

bool PHONE_ENG_Setup::getSearchMode(PHONE_SETUP_SEARCH_MODE_T &mode)
{
    mode = static_cast<PHONE_SETUP_SEARCH_MODE_T>(Settings::read(
        Settings::setupGroup, u"SearchMode", static_cast<int>(PHONE_SETUP_SEARCH_MODE_DEFAULT)));
    return true;
}

bool PHONE_ENG_Setup::setSearchMode(PHONE_SETUP_SEARCH_MODE_T mode)
{
    if (!setupCheckSystemStatus())
        return false;
    return Settings::write(*this, Settings::setupGroup, u"SearchMode", static_cast<int>(mode));
}

bool PHONE_ENG_Setup::getMatchNumIndicate(int &indicate)
{
    indicate = Settings::read(Settings::matchingGroup, u"MatchNumIndicate", 3);
    return true;
}

bool PHONE_ENG_Setup::getNddPrefix(QString &prefix)
{
    prefix = Settings::read(Settings::setupGroup, u"NDDPrefix", QStringLiteral("0"));
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
