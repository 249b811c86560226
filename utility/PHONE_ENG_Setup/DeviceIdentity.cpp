// What device this is: IMEI and the versions of its baseband processor.
#include "../TextField.h"
#include "PHONE_ENG_Setup.h"
#include "Unit.h"

#include "TAPI_ACCE.h"

#include <cstring>

namespace {

constexpr char emptyVersion[] = " BP Version is NULL! ";
static_assert(sizeof emptyVersion == 22);

} // namespace

_TAPI_RESULT_E PHONE_ENG_Setup::readIMEISerialNumber(QString &imei)
{
    TAPI_IMEI_A number = {};
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_ACCE_GetImei(number);
    LOG_TRACE();
    imei = TextField::read(number);
    return result;
}

TAPI_RESULT_E PHONE_ENG_Setup::getBpVersionInfo(PHONE_BP_VERSION_INFO_S *info)
{
    if (!info)
        return TAPI_RESULT_INVALID_PARAM;
    _TAPI_ACCE_BP_VERSION_INFO_S reply = {};
    LOG_TRACE();
    const TAPI_RESULT_E result = TAPI_ACCE_GetBpVersionInfo(&reply);
    LOG_TRACE();
    if (result != TAPI_RESULT_SUCC) {
        LOG_MESSAGE(R"(%s::%s  TAPI_ACCE_GetBpVersionInfo()   false !!!!!!*****************\n)", unitPath,
                    __func__);
        return result;
    }
    PHONE_BP_VERSION_INFO_S versions; // as the platform left them, but terminated
    TextField::fill(versions.bpVer, TextField::bytes(reply.bpVer));
    TextField::fill(versions.bpFlexVer, TextField::bytes(reply.bpFlexVer));
    TextField::fill(versions.dspVer, TextField::bytes(reply.dspVer));
    TextField::fill(versions.technology, TextField::bytes(reply.technology));
    LOG_MESSAGE(R"(%s::%s \n bpVer =%s \n)", unitPath, __func__, versions.bpVer);
    LOG_MESSAGE(R"(%s::%s \n bpFlexVer =%s \n)", unitPath, __func__, versions.bpFlexVer);
    LOG_MESSAGE(R"(%s::%s \n dspVer =%s \n)", unitPath, __func__, versions.dspVer);
    LOG_MESSAGE(R"(%s::%s \n technology =%s \n)", unitPath, __func__, versions.technology);
    TextField::copy(info->bpVer, TextField::bytes(versions.bpVer));
    TextField::copy(info->bpFlexVer, TextField::bytes(versions.bpFlexVer));
    TextField::copy(info->dspVer, TextField::bytes(versions.dspVer));
    TextField::copy(info->technology, TextField::bytes(versions.technology));
    return result;
}

_TAPI_RESULT_E PHONE_ENG_Setup::getBpVersion(unsigned char *version)
{
    if (!version)
        return TAPI_RESULT_INVALID_PARAM;
    TAPI_BP_VER_A reply = {};
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_ACCE_GetBpVersion(reply);
    LOG_TRACE();
    if (result != TAPI_RESULT_SUCC)
        return result;
    TAPI_BP_VER_A text;
    TextField::fill(text, TextField::bytes(reply));
    LOG_MESSAGE(R"(%s::%s  TAPI_RESULT_SUCC tapiVer =%s \n)", unitPath, __func__,
                reinterpret_cast<const char *>(text));
    if (text[0] == 0)
        std::memcpy(text, emptyVersion, sizeof emptyVersion);
    std::memcpy(version, text, std::strlen(reinterpret_cast<const char *>(text)) + 1);
    LOG_MESSAGE(R"(%s::%s  002 PhonebPVer =%s \n)", unitPath, __func__,
                reinterpret_cast<const char *>(version));
    return result;
}

bool PHONE_ENG_Setup::isShowBpPanic()
{
    return true;
}
