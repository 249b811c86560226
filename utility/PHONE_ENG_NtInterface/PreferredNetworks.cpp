// The preferred network list of the SIM.
#include "../TextField.h"
#include "NetworkNames.h"
#include "PHONE_ENG_NtInterface.h"
#include "Unit.h"

#include <algorithm>

namespace {

/**
 * The list is a transparent file of five bytes an entry and at most 65535 bytes (3GPP TS 31.102, ETSI
 * TS 102 221), so no SIM has a position above this one. A record that names one must not keep the phone
 * deleting for hours: above it, only the positions that the record names are deleted.
 */
constexpr int highestPosition = 65535 / 5 - 1;

/** The highest position below @p limit that an entry of the list names, -1 when there is none. */
int nextPosition(const _TAPI_NETWORK_PREFERRED_S &list, int limit)
{
    int next = -1;
    for (int entry = std::clamp(list.count, 0, TAPI_NETWORK_MAX_PREFERRED) - 1; entry >= 0; --entry) {
        if (list.entries[entry].priority < limit)
            next = std::max(next, list.entries[entry].priority);
    }
    return next;
}

} // namespace

bool PHONE_ENG_NtInterface::getPreferredNetworks(_TAPI_NETWORK_PREFERRED_S *list)
{
    if (!list)
        return false;
    const unsigned char languageFlag = NetworkNames::languageFlag();
    LOG_TRACE();
    const _TAPI_RESULT_E code = TAPI_NETWORK_GetPreferredOperator(list, languageFlag);
    LOG_TRACE();
    LOG_MESSAGE(R"(TAPI_NETWORK_GetPreferredOperat Return value = %d\n)", static_cast<int>(code));
    return result(code);
}

bool PHONE_ENG_NtInterface::addPreferredNetwork(unsigned int priority, const QString &networkId)
{
    if (!NetworkNames::fits<TAPI_NETWORK_ID_A>(networkId)) {
        LOG_MESSAGE(R"(network id %s is too long)", networkId.toLatin1().constData());
        return false;
    }
    TAPI_NETWORK_ID_A id;
    TextField::fill(id, networkId);
    LOG_TRACE();
    const _TAPI_RESULT_E code = TAPI_NETWORK_SetPreferredOperator(priority, id);
    LOG_TRACE();
    LOG_MESSAGE(R"(In PHONE_ENG_NtInterface::addPreferredNetwork\n)");
    LOG_MESSAGE(R"(priority = %d\n)", static_cast<int>(priority));
    LOG_MESSAGE(R"(networkid = %s\n)", TextField::bytes(id).constData());
    LOG_MESSAGE(R"(Ret = %d\n)", static_cast<int>(code));
    LOG_MESSAGE(R"(Out PHONE_ENG_NtInterface::addPreferredNetwork\n)");
    if (code != TAPI_RESULT_SUCC)
        return result(code);
    LOG_TRACE();
    Q_EMIT preferredChanged(); // a receiver may have destroyed the object
    return true;
}

bool PHONE_ENG_NtInterface::delPreferredNetwork(unsigned int priority)
{
    LOG_TRACE();
    const _TAPI_RESULT_E code = TAPI_NETWORK_DeleteSelectedOperator(priority);
    LOG_TRACE();
    LOG_MESSAGE(R"(In PHONE_ENG_NtInterface::delPreferredNetwork\n)");
    LOG_MESSAGE(R"(priority = %d\n)", static_cast<int>(priority));
    LOG_MESSAGE(R"(Ret = %d\n)", static_cast<int>(code));
    LOG_MESSAGE(R"(Out PHONE_ENG_NtInterface::delPreferredNetwork\n)");
    if (code != TAPI_RESULT_SUCC)
        return result(code);
    LOG_TRACE();
    Q_EMIT preferredChanged(); // a receiver may have destroyed the object
    return true;
}

bool PHONE_ENG_NtInterface::delAllPreferredNetwork()
{
    _TAPI_NETWORK_PREFERRED_S list = {};
    if (!getPreferredNetworks(&list))
        return false;
    int max = -1;
    for (int entry = std::clamp(list.count, 0, TAPI_NETWORK_MAX_PREFERRED) - 1; entry >= 0; --entry) {
        const int priority = list.entries[entry].priority;
        LOG_MESSAGE(R"(priority = %d\n)", priority);
        LOG_MESSAGE(R"(max = %d\n)", max);
        max = std::max(max, priority);
    }
    for (int position = max; position > highestPosition; position = nextPosition(list, position)) {
        LOG_TRACE();
        TAPI_NETWORK_DeleteSelectedOperator(static_cast<unsigned int>(position));
        LOG_TRACE();
    }
    for (int position = std::min(max, highestPosition); position >= 0; --position) {
        LOG_TRACE();
        TAPI_NETWORK_DeleteSelectedOperator(static_cast<unsigned int>(position));
        LOG_TRACE();
    }
    LOG_MESSAGE(R"(In PHONE_ENG_NtInterface::delAllPreferredNetwork\n)");
    LOG_MESSAGE(R"(Max = %d\n)", max);
    LOG_MESSAGE(R"(Out PHONE_ENG_NtInterface::delAllPreferredNetwork\n)");
    Q_EMIT preferredChanged();
    return true;
}

bool PHONE_ENG_NtInterface::reorderNetworkPriority(unsigned int oldPriority, unsigned int newPriority,
                                                   QString &networkId)
{
    LOG_MESSAGE(R"(In PHONE_ENG_NtInterface::reorderNetworkPriority\n)");
    if (!NetworkNames::fits<TAPI_NETWORK_ID_A>(networkId)) {
        LOG_MESSAGE(R"(network id %s is too long)", networkId.toLatin1().constData());
        return false;
    }
    LOG_TRACE();
    const _TAPI_RESULT_E deleted = TAPI_NETWORK_DeleteSelectedOperator(oldPriority);
    LOG_TRACE();
    if (deleted != TAPI_RESULT_SUCC) {
        LOG_TRACE();
        return false;
    }
    TAPI_NETWORK_ID_A id;
    TextField::fill(id, networkId);
    LOG_TRACE();
    const _TAPI_RESULT_E added = TAPI_NETWORK_SetPreferredOperator(newPriority, id);
    LOG_TRACE();
    if (added != TAPI_RESULT_SUCC)
        LOG_TRACE();
    // The old position is empty by now, whether or not the new one is filled.
    Q_EMIT preferredChanged();
    return added == TAPI_RESULT_SUCC;
}

bool PHONE_ENG_NtInterface::getCapacityPreferedNetwork(unsigned int *capacity)
{
    LOG_MESSAGE(R"(In PHONE_ENG_NtInterface::getCapacityPreferedNetwork\n)");
    if (!capacity)
        return false;
    LOG_TRACE();
    const _TAPI_RESULT_E code = TAPI_NETWORK_GetTotalPreferredOperatorNumber(capacity);
    LOG_TRACE();
    LOG_MESSAGE(R"(ret = %d\n)", static_cast<int>(code));
    LOG_MESSAGE(R"(Capacity = %d\n)", static_cast<int>(*capacity));
    return result(code);
}
