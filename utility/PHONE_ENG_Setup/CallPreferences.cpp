// Call preferences: answering modes, reminders, alerts, hyphenation and their like.
#include "PHONE_ENG_Setup.h"
#include "Settings.h"

#include "SETUP_Utility.h"
#include "UTIL_State.h"
#include "ZKbConfig.h"

namespace {

constexpr unsigned short hyphenationFeature = 266;
constexpr unsigned short hearingAidFlexBit = 408;

} // namespace

bool PHONE_ENG_Setup::isReminder()
{
    return Settings::read(Settings::setupGroup(), QStringLiteral("reminder"), true);
}

bool PHONE_ENG_Setup::setReminder(bool on)
{
    return Settings::write(*this, Settings::setupGroup(), QStringLiteral("reminder"), on);
}

bool PHONE_ENG_Setup::isFlipAnswer()
{
    return Settings::read(Settings::setupGroup(), QStringLiteral("flipAnswer"), false);
}

bool PHONE_ENG_Setup::setFlipAnswer(bool on)
{
    return Settings::write(*this, Settings::setupGroup(), QStringLiteral("flipAnswer"), on);
}

bool PHONE_ENG_Setup::isAnykeyAnswer()
{
    return Settings::read(Settings::setupGroup(), QStringLiteral("anykeyAnswer"), false);
}

bool PHONE_ENG_Setup::setAnykeyAnswer(bool on)
{
    return Settings::write(*this, Settings::setupGroup(), QStringLiteral("anykeyAnswer"), on);
}

bool PHONE_ENG_Setup::isAutoAnswer()
{
    return Settings::read(Settings::setupGroup(), QStringLiteral("autoAnswer"), false);
}

bool PHONE_ENG_Setup::setAutoAnswer(bool on)
{
    if (!setupCheckSystemStatus())
        return false;
    return Settings::write(*this, Settings::setupGroup(), QStringLiteral("autoAnswer"), on);
}

bool PHONE_ENG_Setup::isPrepend()
{
    return Settings::read(Settings::setupGroup(), QStringLiteral("prepend"), false);
}

bool PHONE_ENG_Setup::setPrepend(bool on)
{
    if (!setupCheckSystemStatus())
        return false;
    return Settings::write(*this, Settings::setupGroup(), QStringLiteral("prepend"), on);
}

bool PHONE_ENG_Setup::isMsgAlert()
{
    return Settings::read(Settings::setupGroup(), QStringLiteral("msgAlert"), false);
}

bool PHONE_ENG_Setup::setMsgAlert(bool on)
{
    if (!setupCheckSystemStatus())
        return false;
    return Settings::write(*this, Settings::setupGroup(), QStringLiteral("msgAlert"), on);
}

bool PHONE_ENG_Setup::isRoamAlert()
{
    return Settings::read(Settings::setupGroup(), QStringLiteral("roamAlert"), false);
}

bool PHONE_ENG_Setup::setRoamAlert(bool on)
{
    if (!setupCheckSystemStatus())
        return false;
    return Settings::write(*this, Settings::setupGroup(), QStringLiteral("roamAlert"), on);
}

bool PHONE_ENG_Setup::isAutoFallbackVoiceCall()
{
    return Settings::read(Settings::setupGroup(), QStringLiteral("AutoFallbackVoiceCall"), false);
}

bool PHONE_ENG_Setup::setAutoFallbackVoiceCall(bool on)
{
    if (!setupCheckSystemStatus())
        return false;
    return Settings::write(*this, Settings::setupGroup(), QStringLiteral("AutoFallbackVoiceCall"), on);
}

bool PHONE_ENG_Setup::isHACOn()
{
    return Settings::read(Settings::setupGroup(), QStringLiteral("HearingAidCapability"), false);
}

bool PHONE_ENG_Setup::setHAC(bool on)
{
    return Settings::write(*this, Settings::setupGroup(), QStringLiteral("HearingAidCapability"), on);
}

bool PHONE_ENG_Setup::isHACEnabled()
{
    SETUP_Utility product;
    bool enabled = true;
    product.getFlexBit(hearingAidFlexBit, enabled);
    return enabled;
}

bool PHONE_ENG_Setup::getAudibleTimer(int &timer)
{
    timer = Settings::read(Settings::setupGroup(), QStringLiteral("audibleTimer"), -1);
    return true;
}

bool PHONE_ENG_Setup::setAudibleTimer(int timer)
{
    if (!setupCheckSystemStatus())
        return false;
    return Settings::write(*this, Settings::setupGroup(), QStringLiteral("audibleTimer"), timer);
}

bool PHONE_ENG_Setup::getHyphenation(PHONE_SETUP_HYPHENATION_T &mode)
{
    SETUP_Utility product;
    if (!product.isFeatureAvailable(hyphenationFeature)) {
        mode = PHONE_SETUP_HYPHENATION_NOT_SUPPORTED;
        return false;
    }
    const int stored = Settings::read(Settings::setupGroup(), QStringLiteral("HyphenSetting"),
                                      static_cast<int>(PHONE_SETUP_HYPHENATION_DEFAULT));
    mode = static_cast<PHONE_SETUP_HYPHENATION_T>(stored);
    UTIL_SetDialHyphenation(stored);
    return true;
}

bool PHONE_ENG_Setup::setHyphenation(PHONE_SETUP_HYPHENATION_T mode)
{
    if (!setupCheckSystemStatus())
        return false;
    return Settings::write(*this, Settings::setupGroup(), QStringLiteral("HyphenSetting"),
                           static_cast<int>(mode), [mode](bool stored) {
                               if (stored)
                                   UTIL_SetDialHyphenation(mode);
                           });
}

bool PHONE_ENG_Setup::getSearchMode(PHONE_SETUP_SEARCH_MODE_T &mode)
{
    mode = static_cast<PHONE_SETUP_SEARCH_MODE_T>(
        Settings::read(Settings::setupGroup(), QStringLiteral("SearchMode"),
                       static_cast<int>(PHONE_SETUP_SEARCH_MODE_DEFAULT)));
    return true;
}

bool PHONE_ENG_Setup::setSearchMode(PHONE_SETUP_SEARCH_MODE_T mode)
{
    if (!setupCheckSystemStatus())
        return false;
    return Settings::write(*this, Settings::setupGroup(), QStringLiteral("SearchMode"),
                           static_cast<int>(mode));
}

bool PHONE_ENG_Setup::getMatchNumIndicate(int &indicate)
{
    indicate = Settings::read(Settings::matchingGroup(), QStringLiteral("MatchNumIndicate"), 3);
    return true;
}

bool PHONE_ENG_Setup::getNddPrefix(QString &prefix)
{
    prefix = Settings::read(Settings::setupGroup(), QStringLiteral("NDDPrefix"), QStringLiteral("0"));
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
