// The networks around the phone.
#include "Networks.h"
#include "PlatformCall.h"

#include "TAPI_NETWORK.h"

using Simulator::copyText;
using Simulator::Field;
using Simulator::findNetwork;
using Simulator::Out;
using Simulator::platformCall;
using Simulator::textOf;

namespace {

enum NetworkStatus : unsigned short { Available = 1, Registered = 2, Forbidden = 3 };

void fillName(TAPI_NETWORK_NAME_A &field, const QString &name)
{
    std::fill(std::begin(field), std::end(field), static_cast<unsigned short>(0));
    std::size_t unit = 0;
    for (const QChar character : name.left(static_cast<int>(TAPI_NETWORK_NAME_UNITS)))
        field[unit++] = character.unicode();
}

QString longName(const Network &network, unsigned char languageFlag)
{
    return languageFlag == 1 ? network.secondLongName : network.longName;
}

_TAPI_RESULT_E search(PhoneState &phone)
{
    Simulator::searchNetworks(phone.network);
    return TAPI_RESULT_SUCC;
}

_TAPI_RESULT_E cancel(PhoneState &)
{
    return TAPI_RESULT_SUCC;
}

} // namespace

_TAPI_RESULT_E TAPI_NETWORK_GetSearchMode(_TAPI_NETWORK_SEARCH_MODE_E *mode)
{
    return platformCall("TAPI_NETWORK_GetSearchMode", {Out(mode)}, [=](PhoneState &phone) {
        *mode = phone.network.searchMode;
        return TAPI_RESULT_SUCC;
    });
}

_TAPI_RESULT_E TAPI_NETWORK_SetSearchMode(_TAPI_NETWORK_SEARCH_MODE_E mode)
{
    return platformCall(
        "TAPI_NETWORK_SetSearchMode", {},
        [=](PhoneState &phone) {
            phone.network.searchMode = mode;
            return TAPI_RESULT_SUCC;
        },
        mode);
}

_TAPI_RESULT_E TAPI_NETWORK_GetSearchFrequency(_TAPI_NETWORK_SEARCH_SPEED_E *speed)
{
    return platformCall("TAPI_NETWORK_GetSearchFrequency", {Out(speed)}, [=](PhoneState &phone) {
        *speed = phone.network.searchSpeed;
        return TAPI_RESULT_SUCC;
    });
}

_TAPI_RESULT_E TAPI_NETWORK_SetSearchFrequency(_TAPI_NETWORK_SEARCH_SPEED_E speed)
{
    return platformCall(
        "TAPI_NETWORK_SetSearchFrequency", {},
        [=](PhoneState &phone) {
            phone.network.searchSpeed = speed;
            return TAPI_RESULT_SUCC;
        },
        speed);
}

_TAPI_RESULT_E TAPI_NETWORK_GetBand(_TAPI_NETWORK_BAND_E *band)
{
    return platformCall("TAPI_NETWORK_GetBand", {Out(band)}, [=](PhoneState &phone) {
        *band = phone.network.band;
        return TAPI_RESULT_SUCC;
    });
}

_TAPI_RESULT_E TAPI_NETWORK_SetBand(_TAPI_NETWORK_BAND_E band)
{
    return platformCall(
        "TAPI_NETWORK_SetBand", {},
        [=](PhoneState &phone) {
            phone.network.band = band;
            return TAPI_RESULT_SUCC;
        },
        band);
}

_TAPI_RESULT_E TAPI_NETWORK_FindNewNetworks()
{
    return platformCall("TAPI_NETWORK_FindNewNetworks", {}, search);
}

_TAPI_RESULT_E TAPI_NETWORK_CancelFindNewNetworks()
{
    return platformCall("TAPI_NETWORK_CancelFindNewNetworks", {}, cancel);
}

_TAPI_RESULT_E TAPI_NETWORK_RescanNetwork()
{
    return platformCall("TAPI_NETWORK_RescanNetwork", {}, search);
}

_TAPI_RESULT_E TAPI_NETWORK_GetAvailableNetwork()
{
    return platformCall("TAPI_NETWORK_GetAvailableNetwork", {}, search);
}

_TAPI_RESULT_E TAPI_NETWORK_CancelGetAvailableNetworks()
{
    return platformCall("TAPI_NETWORK_CancelGetAvailableNetworks", {}, cancel);
}

_TAPI_RESULT_E TAPI_NETWORK_GetPlmnCount(unsigned short *count)
{
    return platformCall("TAPI_NETWORK_GetPlmnCount", {Out(count)}, [=](PhoneState &phone) {
        const auto &networks = phone.network.networks;
        *count = static_cast<unsigned short>(std::count_if(
            networks.begin(), networks.end(), [](const Network &network) { return network.known; }));
        return TAPI_RESULT_SUCC;
    });
}

_TAPI_RESULT_E TAPI_NETWORK_GetPlmnList(_TAPI_NETWORK_PLMN_INFO_S *networks)
{
    return platformCall("TAPI_NETWORK_GetPlmnList", {}, [=](PhoneState &phone) {
        _TAPI_NETWORK_PLMN_INFO_S *next = networks;
        for (const Network &network : phone.network.networks) {
            if (!network.known)
                continue;
            copyText(next->networkId, sizeof next->networkId, network.id);
            fillName(next->name, network.longName);
            if (network.id == phone.network.registeredId)
                next->status = Registered;
            else
                next->status = network.acceptsRegistration ? Available : Forbidden;
            ++next;
        }
        return TAPI_RESULT_SUCC;
    });
}

_TAPI_RESULT_E TAPI_NETWORK_RegisterOperator(TAPI_NETWORK_ID_A networkId)
{
    return platformCall(
        "TAPI_NETWORK_RegisterOperator", {},
        [=](PhoneState &phone) {
            return Simulator::registerWith(phone.network, textOf(networkId, sizeof(TAPI_NETWORK_ID_A)));
        },
        Field(networkId, sizeof(TAPI_NETWORK_ID_A)));
}

_TAPI_RESULT_E TAPI_NETWORK_GetChosenPlmnName(TAPI_NETWORK_PLMN_ID_A networkId, unsigned char languageFlag,
                                              _TAPI_NETWORK_PLMN_NAME_S *names)
{
    return platformCall(
        "TAPI_NETWORK_GetChosenPlmnName", {Out(names)},
        [=](PhoneState &phone) {
            const Network *const network =
                findNetwork(phone.network, textOf(networkId, sizeof(TAPI_NETWORK_PLMN_ID_A)));
            if (!network)
                return TAPI_RESULT_FAIL;
            fillName(names->longName, longName(*network, languageFlag));
            fillName(names->shortName, languageFlag == 1 ? network->secondShortName : network->shortName);
            return TAPI_RESULT_SUCC;
        },
        Field(networkId, sizeof(TAPI_NETWORK_PLMN_ID_A)), languageFlag);
}

_TAPI_RESULT_E TAPI_NETWORK_GetOperatorNameList(_TAPI_PLMN_INFO_STRUCT_S *names, unsigned short count,
                                                unsigned char languageFlag)
{
    return platformCall(
        "TAPI_NETWORK_GetOperatorNameList", {Out(names, count * sizeof *names)},
        [=](PhoneState &phone) {
            for (unsigned short entry = 0; entry < count; ++entry) {
                const Network *const network =
                    findNetwork(phone.network, textOf(names[entry].networkId, sizeof names[entry].networkId));
                fillName(names[entry].name, network ? longName(*network, languageFlag) : QString());
            }
            return TAPI_RESULT_SUCC;
        },
        count, languageFlag);
}

_TAPI_RESULT_E TAPI_NETWORK_GetPreferredOperator(_TAPI_NETWORK_PREFERRED_S *list, unsigned char languageFlag)
{
    return platformCall(
        "TAPI_NETWORK_GetPreferredOperator", {Out(list)},
        [=](PhoneState &phone) {
            list->count = 0;
            for (const auto &[position, id] : phone.network.preferred) {
                if (list->count == TAPI_NETWORK_MAX_PREFERRED)
                    break;
                _TAPI_NETWORK_PREFERRED_ENTRY_S &entry = list->entries[list->count++];
                entry = {};
                entry.priority = static_cast<int>(position);
                copyText(entry.networkId, sizeof entry.networkId, id);
                if (const Network *const network = findNetwork(phone.network, id))
                    fillName(entry.name, longName(*network, languageFlag));
            }
            return TAPI_RESULT_SUCC;
        },
        languageFlag);
}

_TAPI_RESULT_E TAPI_NETWORK_SetPreferredOperator(unsigned int priority, TAPI_NETWORK_ID_A networkId)
{
    return platformCall(
        "TAPI_NETWORK_SetPreferredOperator", {},
        [=](PhoneState &phone) {
            if (priority >= phone.network.preferredCapacity)
                return TAPI_RESULT_INVALID_PARAM;
            phone.network.preferred[priority] = textOf(networkId, sizeof(TAPI_NETWORK_ID_A));
            return TAPI_RESULT_SUCC;
        },
        priority, Field(networkId, sizeof(TAPI_NETWORK_ID_A)));
}

_TAPI_RESULT_E TAPI_NETWORK_DeleteSelectedOperator(unsigned int priority)
{
    return platformCall(
        "TAPI_NETWORK_DeleteSelectedOperator", {},
        [=](PhoneState &phone) {
            return phone.network.preferred.erase(priority) == 1 ? TAPI_RESULT_SUCC : TAPI_RESULT_FAIL;
        },
        priority);
}

_TAPI_RESULT_E TAPI_NETWORK_GetTotalPreferredOperatorNumber(unsigned int *capacity)
{
    return platformCall("TAPI_NETWORK_GetTotalPreferredOperatorNumber", {Out(capacity)},
                        [=](PhoneState &phone) {
                            *capacity = phone.network.preferredCapacity;
                            return TAPI_RESULT_SUCC;
                        });
}

_TAPI_RESULT_E TAPI_NETWORK_GetServiceProviderName(_TAPI_NETWORK_SERVICE_PROVIDER_S *provider)
{
    return platformCall("TAPI_NETWORK_GetServiceProviderName", {Out(provider)}, [=](PhoneState &phone) {
        provider->displayCondition = phone.sim.providerDisplayCondition;
        fillName(provider->name, phone.sim.providerName);
        return TAPI_RESULT_SUCC;
    });
}
