// The two lines of a CPHS SIM: selection, lock and voice-mail hot keys.
#include "Broadcasts.h"
#include "Features.h"
#include "PHONE_ENG_Setup.h"
#include "Unit.h"

#include "PHONE_Msg.h"
#include "SETUP_Utility.h"
#include "TAPI_CPHS.h"
#include "UTIL_State.h"

namespace {

constexpr int firstLine = 1;
constexpr int lastLine = 2;

} // namespace

_TAPI_RESULT_E PHONE_ENG_Setup::currentLineNo(int &line)
{
    signed char index = 0;
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_CS_GetLine(&index);
    LOG_TRACE();
    LOG_MESSAGE(R"(PHONE_ENG_Setup::currentLineNo. %d)", index);
    if (result != TAPI_RESULT_SUCC)
        index = 0;
    UTIL_SetPhoneLine(index);
    line = index + 1;
    return result;
}

_TAPI_RESULT_E PHONE_ENG_Setup::setLineNo(int line)
{
    if (line < firstLine || line > lastLine)
        return TAPI_RESULT_INVALID_PARAM;
    const auto index = static_cast<signed char>(line - 1);
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_CS_SelectLine(index);
    LOG_TRACE();
    if (result != TAPI_RESULT_SUCC)
        return result;
    bool forwarded = false;
    QString number = QStringLiteral("");
    getVoiceCallsDivert(forwarded, number, TAPI_CS_DIVERT_UNCONDITIONAL);
    Broadcasts::sendForwardingNotice(forwarded);
    UTIL_SetPhoneLine(index);
    Broadcasts::sendIndicatorUpdate();
    PHONE_Msg message(nullptr, nullptr);
    message.send(PHONE_Msg::PHONE_MSG_LINE_CHANGED);
    return TAPI_RESULT_SUCC;
}

int PHONE_ENG_Setup::getLineLockStatus()
{
    SETUP_Utility product;
    if (!product.isFeatureAvailable(Features::lineLock))
        return 0;
    unsigned char locked = 0;
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_CPHS_GetLineLockStatus(&locked);
    LOG_TRACE();
    return static_cast<int>(result);
}

_TAPI_RESULT_E PHONE_ENG_Setup::setLineLockStatus(int lock)
{
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_CPHS_SetLineLockStatus(lock != 0 ? 1 : 0);
    LOG_TRACE();
    return result;
}

_TAPI_RESULT_E PHONE_ENG_Setup::curLineLockStatus(int &status)
{
    if (UTIL_GetSIMPinBatteryStatus() == 1) {
        status = 0;
        return TAPI_RESULT_SIM_UNAVAILABLE;
    }
    unsigned char locked = 0;
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_CPHS_GetLineLockStatus(&locked);
    LOG_TRACE();
    status = result == TAPI_RESULT_SUCC ? locked : 0;
    return result;
}

bool PHONE_ENG_Setup::isVmHotKeysAvailable() const
{
    SETUP_Utility product;
    const auto index = static_cast<signed char>(UTIL_GetPhoneLine());
    if (!product.isFeatureAvailable(Features::cphs) || !product.isFeatureAvailable(Features::voiceMailHotKeys)
        || UTIL_GetCphsVMStatus() != 1)
        return false;
    if (index == 0)
        return product.isFeatureAvailable(Features::line1HotKeys);
    return product.isFeatureAvailable(Features::secondLine)
        && product.isFeatureAvailable(Features::line2HotKeys);
}

bool PHONE_ENG_Setup::loadVoiceMailboxNumberFromSIM()
{
    return false;
}
