// Manual network selection: searching, listing, registering, and the names of networks.
#include "../TextField.h"
#include "NetworkNames.h"
#include "PHONE_ENG_NtInterface.h"
#include "Unit.h"

#include "TAPI_FTRDB.h"

namespace {

constexpr unsigned short operatorNamesFeature = 2037;
constexpr unsigned short operatorListFeature = 2144;

} // namespace

bool PHONE_ENG_NtInterface::findNewNetwork()
{
    LOG_TRACE();
    const _TAPI_RESULT_E code = TAPI_NETWORK_FindNewNetworks();
    LOG_TRACE();
    LOG_MESSAGE(R"(ret = %d\n)", static_cast<int>(code));
    return result(code);
}

bool PHONE_ENG_NtInterface::rescanNetwork()
{
    LOG_TRACE();
    const _TAPI_RESULT_E code = TAPI_NETWORK_RescanNetwork();
    LOG_TRACE();
    LOG_MESSAGE(R"(ret = %d\n)", static_cast<int>(code));
    return result(code);
}

bool PHONE_ENG_NtInterface::getAvailableNetworks()
{
    LOG_TRACE();
    const _TAPI_RESULT_E code = TAPI_NETWORK_GetAvailableNetwork();
    LOG_TRACE();
    return result(code);
}

bool PHONE_ENG_NtInterface::cancelGetAvailableNetworks()
{
    LOG_TRACE();
    const _TAPI_RESULT_E code = TAPI_NETWORK_CancelGetAvailableNetworks();
    LOG_TRACE();
    return result(code);
}

bool PHONE_ENG_NtInterface::cancelFindNewNetworks()
{
    LOG_TRACE();
    const _TAPI_RESULT_E code = TAPI_NETWORK_CancelFindNewNetworks();
    LOG_TRACE();
    return result(code);
}

unsigned short PHONE_ENG_NtInterface::getKwnownNetworksCnt()
{
    unsigned short count = 0;
    LOG_TRACE();
    TAPI_NETWORK_GetPlmnCount(&count);
    LOG_TRACE();
    return count;
}

bool PHONE_ENG_NtInterface::getKnownNetworks(_TAPI_NETWORK_PLMN_INFO_S *networks)
{
    LOG_TRACE();
    const _TAPI_RESULT_E code = TAPI_NETWORK_GetPlmnList(networks);
    LOG_TRACE();
    if (code != TAPI_RESULT_SUCC)
        return false;
    LOG_TRACE();
    return true;
}

bool PHONE_ENG_NtInterface::registerNetwork(const QString &networkId)
{
    LOG_MESSAGE(R"(In PHONE_ENG_NtInterface::registerNetwork\n)");
    if (!NetworkNames::fits<TAPI_NETWORK_ID_A>(networkId)) {
        LOG_MESSAGE(R"(network id %s is too long)", networkId.toLatin1().constData());
        return false;
    }
    TAPI_NETWORK_ID_A id;
    TextField::fill(id, networkId);
    LOG_TRACE();
    const _TAPI_RESULT_E code = TAPI_NETWORK_RegisterOperator(id);
    LOG_TRACE();
    LOG_MESSAGE(R"(id = %s\n)", TextField::bytes(id).constData());
    LOG_MESSAGE(R"(Ret = %d\n)", static_cast<int>(code));
    return result(code);
}

bool PHONE_ENG_NtInterface::getNetworkName(const QString &networkId, QString &shortName, QString &longName)
{
    if (!NetworkNames::fits<TAPI_NETWORK_PLMN_ID_A>(networkId)) {
        LOG_MESSAGE(R"(network id %s is too long)", networkId.toLatin1().constData());
        return false;
    }
    const unsigned char languageFlag = NetworkNames::languageFlag();
    _TAPI_NETWORK_PLMN_NAME_S names = {};
    TAPI_NETWORK_PLMN_ID_A id;
    TextField::fill(id, networkId);
    LOG_TRACE();
    const _TAPI_RESULT_E code = TAPI_NETWORK_GetChosenPlmnName(id, languageFlag, &names);
    LOG_TRACE();
    if (code != TAPI_RESULT_SUCC) {
        LOG_TRACE();
        return false;
    }
    shortName = Unicode2QStr(names.shortName, TAPI_NETWORK_NAME_UNITS);
    longName = Unicode2QStr(names.longName, TAPI_NETWORK_NAME_UNITS);
    return true;
}

bool PHONE_ENG_NtInterface::getOperatorNameList(_TAPI_PLMN_INFO_STRUCT_S *names, unsigned short count)
{
    if (!names || count == 0)
        return false;
    const unsigned char languageFlag = NetworkNames::languageFlag();
    LOG_TRACE();
    const _TAPI_RESULT_E code = TAPI_NETWORK_GetOperatorNameList(names, count, languageFlag);
    LOG_TRACE();
    if (code != TAPI_RESULT_SUCC) {
        LOG_TRACE();
        return false;
    }
    return true;
}

bool PHONE_ENG_NtInterface::myListScreenIsAvailable()
{
    const bool operatorNames = TAPI_FTRDB_GetAvailability(operatorNamesFeature) != 0;
    const bool operatorList = TAPI_FTRDB_GetAvailability(operatorListFeature) != 0;
    LOG_MESSAGE(R"(eonsAvail = %d\n)", operatorNames);
    LOG_MESSAGE(R"(oplAvail = %d\n)", operatorList);
    return !(operatorNames && operatorList);
}
