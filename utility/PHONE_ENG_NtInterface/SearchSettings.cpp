// How the modem looks for networks: mode, speed, band, and the tones that go with it.
#include "PHONE_ENG_NtInterface.h"
#include "Unit.h"

#include "TAPI_ACCE.h"
#include "TAPI_CS.h"
#include "UTIL_State.h"

bool PHONE_ENG_NtInterface::getSearchMode(_TAPI_NETWORK_SEARCH_MODE_E *mode)
{
    if (!mode)
        return false;
    LOG_TRACE();
    const _TAPI_RESULT_E code = TAPI_NETWORK_GetSearchMode(mode);
    LOG_TRACE();
    return result(code);
}

bool PHONE_ENG_NtInterface::setSearchMode(_TAPI_NETWORK_SEARCH_MODE_E mode)
{
    LOG_TRACE();
    const _TAPI_RESULT_E code = TAPI_NETWORK_SetSearchMode(mode);
    LOG_TRACE();
    return result(code);
}

bool PHONE_ENG_NtInterface::getSearchFreqency(_TAPI_NETWORK_SEARCH_SPEED_E *speed)
{
    if (!speed)
        return false;
    LOG_TRACE();
    const _TAPI_RESULT_E code = TAPI_NETWORK_GetSearchFrequency(speed);
    LOG_TRACE();
    return result(code);
}

bool PHONE_ENG_NtInterface::setSearchFreqency(_TAPI_NETWORK_SEARCH_SPEED_E speed)
{
    LOG_TRACE();
    const _TAPI_RESULT_E code = TAPI_NETWORK_SetSearchFrequency(speed);
    LOG_TRACE();
    return result(code);
}

bool PHONE_ENG_NtInterface::getBand(_TAPI_NETWORK_BAND_E *band)
{
    if (!band)
        return false;
    LOG_TRACE();
    const _TAPI_RESULT_E code = TAPI_NETWORK_GetBand(band);
    LOG_TRACE();
    LOG_MESSAGE(R"(In PHONE_ENG_NtInterface::getBand\n)");
    LOG_MESSAGE(R"(Band = %d\n)", static_cast<int>(*band));
    LOG_MESSAGE(R"(Ret = %d\n)", static_cast<int>(code));
    LOG_MESSAGE(R"(Out PHONE_ENG_NtInterface::getBand\n)");
    return result(code);
}

bool PHONE_ENG_NtInterface::setBand(_TAPI_NETWORK_BAND_E band)
{
    LOG_TRACE();
    _TAPI_NETWORK_BAND_E previousBand = TAPI_NETWORK_BAND_AUTOMATIC;
    const bool previousBandKnown = instance()->getBand(&previousBand);
    const _TAPI_RESULT_E code = TAPI_NETWORK_SetBand(band);
    if (UTIL_GetIncomingCallStatus() != 0) {
        if (previousBandKnown)
            TAPI_NETWORK_SetBand(previousBand);
        return false;
    }
    LOG_TRACE();
    LOG_MESSAGE(R"(In PHONE_ENG_NtInterface::setBand\n)");
    LOG_MESSAGE(R"(Band = %d\n)", static_cast<int>(band));
    LOG_MESSAGE(R"(Ret = %d\n)", static_cast<int>(code));
    LOG_MESSAGE(R"(Out PHONE_ENG_NtInterface::setBand\n)");
    return result(code);
}

bool PHONE_ENG_NtInterface::getServiceTone(bool &on)
{
    unsigned char status = 0;
    LOG_TRACE();
    const _TAPI_RESULT_E code = TAPI_ACCE_GetServiceTone(&status);
    LOG_TRACE();
    LOG_MESSAGE(R"(Ret = %d\n)", static_cast<int>(code));
    LOG_MESSAGE(R"(Ret = %d\n)", static_cast<int>(code));
    if (code != TAPI_RESULT_SUCC)
        return false;
    LOG_TRACE();
    on = status == 1;
    return true;
}

bool PHONE_ENG_NtInterface::setServiceTone(bool on)
{
    LOG_TRACE();
    const _TAPI_RESULT_E code = TAPI_ACCE_SetServiceTone(on ? 1 : 0);
    LOG_TRACE();
    LOG_MESSAGE(R"(Ret = %d\n)", static_cast<int>(code));
    LOG_MESSAGE(R"(Ret = %d\n)", static_cast<int>(code));
    return code == TAPI_RESULT_SUCC;
}

bool PHONE_ENG_NtInterface::getDropTone(bool &on)
{
    unsigned char status = 0;
    LOG_TRACE();
    const _TAPI_RESULT_E code = TAPI_CS_GetPendingCallDropToneStatus(&status);
    LOG_TRACE();
    LOG_MESSAGE(R"(Ret = %d\n)", static_cast<int>(code));
    LOG_MESSAGE(R"(Ret = %d\n)", static_cast<int>(code));
    if (code != TAPI_RESULT_SUCC)
        return false;
    LOG_TRACE();
    on = status == 1;
    return true;
}

bool PHONE_ENG_NtInterface::setDropTone(bool on)
{
    LOG_TRACE();
    const _TAPI_RESULT_E code = TAPI_CS_SetPendingCallDropToneStatus(on ? 1 : 0);
    LOG_TRACE();
    LOG_MESSAGE(R"(Ret = %d\n)", static_cast<int>(code));
    LOG_MESSAGE(R"(Ret = %d\n)", static_cast<int>(code));
    if (code != TAPI_RESULT_SUCC)
        return false;
    LOG_TRACE();
    return true;
}
