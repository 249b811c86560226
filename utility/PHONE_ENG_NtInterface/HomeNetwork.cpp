// The service provider name, the home-network test, and the conversion of name fields.
#include "../TextField.h"
#include "PHONE_ENG_NtInterface.h"
#include "Unit.h"

#include "TAPI_ACCE.h"

namespace {

/** Country code and the first two digits of the network code. */
constexpr int homeDigits = 5;

} // namespace

PHONE_SERVICE_PROVIDER_S PHONE_ENG_NtInterface::getServiceProviderName()
{
    LOG_MESSAGE(R"(In PHONE_ENG_NtInterface::getServiceProviderName\n)");
    _TAPI_NETWORK_SERVICE_PROVIDER_S record = {};
    LOG_TRACE();
    const _TAPI_RESULT_E code = TAPI_NETWORK_GetServiceProviderName(&record);
    LOG_TRACE();
    LOG_MESSAGE(R"(ret = %d\n)", static_cast<int>(code));
    PHONE_SERVICE_PROVIDER_S provider = {record.displayCondition, QStringLiteral("")};
    if (code == TAPI_RESULT_SUCC) {
        LOG_TRACE();
        provider.name = Unicode2QStr(record.name, TAPI_NETWORK_NAME_UNITS);
    }
    return provider;
}

QString Unicode2QStr(unsigned short *field, unsigned short maxUnits)
{
    QString text;
    for (unsigned short unit = 0; unit < maxUnits && field[unit] != 0; ++unit)
        text.append(QChar(field[unit]));
    return text;
}

bool PHONE_SET_IsHomeNetwork(const QString &networkId)
{
    TAPI_IMSI_A imsi = {};
    LOG_TRACE();
    const _TAPI_RESULT_E code = TAPI_ACCE_GetImsi(imsi);
    LOG_TRACE();
    if (code != TAPI_RESULT_SUCC)
        return false;
    LOG_TRACE();
    QString id = networkId;
    const auto dash = id.indexOf(QLatin1Char('-'));
    if (dash >= 0)
        id.remove(dash, 1);
    return id == TextField::read(imsi).left(homeDigits);
}
