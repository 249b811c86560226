// Looking for networks and registering on one.
#include "NetworkSelection.h"

namespace Kvq {

namespace {

constexpr std::array<Role<FoundNetwork>, 4> roles = {{
    {"networkId", [](const FoundNetwork &network) { return QVariant(network.networkId); }},
    {"name", [](const FoundNetwork &network) { return QVariant(network.name); }},
    {"status", [](const FoundNetwork &network) { return QVariant(network.status); }},
    {"home", [](const FoundNetwork &network) { return QVariant(network.home); }},
}};

bool readNetworks(Engine &engine, QList<FoundNetwork> &found)
{
    const unsigned short count = engine.network.getKwnownNetworksCnt();
    if (count == 0)
        return true;
    std::vector<_TAPI_NETWORK_PLMN_INFO_S> networks(count);
    if (!engine.network.getKnownNetworks(networks.data()))
        return false;
    for (_TAPI_NETWORK_PLMN_INFO_S &network : networks) {
        const std::size_t length = strnlen(network.networkId, sizeof network.networkId);
        const QString id = QString::fromLatin1(network.networkId, static_cast<qsizetype>(length));
        // A network may be found more than once, in several technologies; a row a network.
        const auto isSame = [&id](const FoundNetwork &other) { return other.networkId == id; };
        if (id.isEmpty() || std::any_of(found.cbegin(), found.cend(), isSame))
            continue;
        found.append({id, Unicode2QStr(network.name, TAPI_NETWORK_NAME_UNITS), network.status,
                      PHONE_SET_IsHomeNetwork(id)});
    }
    return true;
}

Answer readAnswer(Engine &engine)
{
    QList<FoundNetwork> networks;
    if (!readNetworks(engine, networks))
        return Operations::answerOf(TAPI_RESULT_FAIL);
    return {TAPI_RESULT_SUCC, QVariant::fromValue(networks)};
}

} // namespace

NetworkSelection::NetworkSelection(QObject *parent)
    : ListSubject(parent)
    , m_networks(addRows<FoundNetwork>(roles))
{
    m_activity->setReader(readAnswer, [this](const QVariant &networks) {
        m_networks->setConfirmed(networks.value<QList<FoundNetwork>>());
    });
}

Request *NetworkSelection::search()
{
    return look(&Network::getAvailableNetworks);
}

Request *NetworkSelection::rescan()
{
    return look(&Network::rescanNetwork);
}

void NetworkSelection::cancelSearch()
{
    if (!m_search || m_search->cancel())
        return;
    m_activity->request(
        [](Engine &engine) { return Operations::answerOf(engine.network.cancelGetAvailableNetworks()); });
}

/** The networks found do not come with the search, so they are read after it. */
Request *NetworkSelection::look(bool (Network::*operation)())
{
    Request *const request = m_networks->change(
        *m_activity, [](QList<FoundNetwork> &) {},
        [operation](Engine &engine) {
            return (engine.network.*operation)() ? readAnswer(engine) : Operations::answerOf(false);
        });
    m_search = request;
    Q_EMIT searchingChanged();
    connect(request, &Request::answered, this, [this, request] {
        if (m_search != request)
            return;
        m_search.clear();
        Q_EMIT searchingChanged();
    });
    return request;
}

Request *NetworkSelection::registerOn(const QString &networkId)
{
    return m_networks->change(
        *m_activity, [](QList<FoundNetwork> &) {},
        [networkId](Engine &engine) {
            return engine.network.registerNetwork(networkId) ? readAnswer(engine)
                                                             : Operations::answerOf(false);
        });
}

} // namespace Kvq
