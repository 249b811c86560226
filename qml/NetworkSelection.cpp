// Looking for networks and registering on one.
#include "NetworkSelection.h"

#include <QDeadlineTimer>

#include <utility>

namespace Kvq {

namespace {

constexpr int shortestInterval = 50;

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
    bool hasHome = false;
    for (_TAPI_NETWORK_PLMN_INFO_S &network : networks) {
        const std::size_t length = strnlen(network.networkId, sizeof network.networkId);
        const QString id = QString::fromLatin1(network.networkId, static_cast<qsizetype>(length));
        // A network may be found more than once, in several technologies; a row a network.
        const auto isSame = [&id](const FoundNetwork &other) { return other.networkId == id; };
        if (id.isEmpty() || std::any_of(found.cbegin(), found.cend(), isSame))
            continue;
        // Each question reads the SIM, which has one home network.
        const bool isHome = !hasHome && PHONE_SET_IsHomeNetwork(id);
        hasHome = hasHome || isHome;
        found.append({id, Unicode2QStr(network.name, TAPI_NETWORK_NAME_UNITS), network.status, isHome});
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

/** What a search gives: the networks before it, and those that are known once its request is answered. */
struct Found {
    QList<FoundNetwork> before;
    QList<FoundNetwork> after;
};

/**
 * The search of the modem, which goes on when the page is left. Some platforms answer its request when it has ended;
 * others begin it and leave it, and tell no one of its end. Then it has ended when the list has changed, or when it has
 * lasted longer than any search does.
 */
class Search : public QObject {
    Q_OBJECT

public:
    static Search &instance()
    {
        static Search search;
        return search;
    }

    bool isUnderWay() const { return m_isUnderWay; }
    /** The list as it was read last, by whichever item. */
    const QList<FoundNetwork> &last() const { return m_last; }

    void requestAnswered(const Found &found, int limit)
    {
        // Nothing else fills an empty list while a request runs.
        m_endsWithRequest = m_endsWithRequest || (found.before.isEmpty() && !found.after.isEmpty());
        m_before = found.before;
        m_last = found.after;
        m_end.setRemainingTime(limit);
        set(!m_endsWithRequest && found.after == found.before && limit > 0);
    }

    /** @param networks null when the list could not be read */
    void looked(const QList<FoundNetwork> *networks)
    {
        if (networks)
            m_last = *networks;
        if (m_isUnderWay && ((networks && *networks != m_before) || m_end.hasExpired()))
            set(false);
    }

    void end() { set(false); }

Q_SIGNALS:
    void changed();

private:
    void set(bool underWay)
    {
        if (std::exchange(m_isUnderWay, underWay) != underWay)
            Q_EMIT changed();
    }

    QList<FoundNetwork> m_before;
    QList<FoundNetwork> m_last;
    QDeadlineTimer m_end;
    bool m_isUnderWay = false;
    bool m_endsWithRequest = false; ///< as this platform has shown
};

} // namespace

NetworkSelection::NetworkSelection(QObject *parent)
    : ListSubject(parent)
    , m_networks(addRows<FoundNetwork>(roles))
{
    m_activity->setReader(readAnswer, [this](const QVariant &networks) {
        m_networks->setConfirmed(networks.value<QList<FoundNetwork>>());
    });
    m_nextLook.setSingleShot(true);
    connect(&m_nextLook, &QTimer::timeout, m_activity, &Activity::readQuietly);
    connect(m_activity, &Activity::readingEnded, this, [this](bool success) {
        Search::instance().looked(success ? &m_networks->list() : nullptr);
        lookAgain();
    });
    connect(&Search::instance(), &Search::changed, this, [this] {
        Q_EMIT searchingChanged();
        lookAgain();
        // The item that saw the end has the list; the others do not look any more.
        if (!Search::instance().isUnderWay() && m_networks->list() != Search::instance().last())
            m_activity->readQuietly();
    });
    lookAgain();
}

bool NetworkSelection::isSearching() const
{
    return m_search || Search::instance().isUnderWay();
}

void NetworkSelection::setSearchInterval(int milliseconds)
{
    const int interval = std::max(shortestInterval, milliseconds);
    if (std::exchange(m_searchInterval, interval) != interval)
        Q_EMIT searchIntervalChanged();
}

void NetworkSelection::setSearchLimit(int milliseconds)
{
    const int limit = std::max(0, milliseconds);
    if (std::exchange(m_searchLimit, limit) != limit)
        Q_EMIT searchLimitChanged();
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
    if (!isSearching() || (m_search && m_search->cancel()))
        return;
    const Request *const request = m_activity->request(
        [](Engine &engine) { return Operations::answerOf(engine.network.cancelGetAvailableNetworks()); });
    connect(request, &Request::finished, request, &QObject::deleteLater); // no script holds it
    connect(request, &Request::answered, this, [](const Answer &answer) {
        if (answer.isSuccess()) // otherwise the modem goes on looking
            Search::instance().end();
    });
}

void NetworkSelection::lookAgain()
{
    if (!Search::instance().isUnderWay())
        m_nextLook.stop();
    else if (!m_activity->isReading())
        m_nextLook.start(m_searchInterval);
}

/** The networks found do not come with the search, so they are read after it. */
Request *NetworkSelection::look(bool (Network::*operation)())
{
    Request *const request = m_activity->request([operation](Engine &engine) {
        Found found;
        if (!readNetworks(engine, found.before))
            found.before.clear();
        if (!(engine.network.*operation)() || !readNetworks(engine, found.after))
            return Operations::answerOf(false);
        return Answer{TAPI_RESULT_SUCC, QVariant::fromValue(found)};
    });
    m_search = request;
    Q_EMIT searchingChanged();
    connect(request, &Request::answered, this, [this, request](const Answer &answer) {
        const auto found = answer.value.value<Found>();
        if (answer.isSuccess())
            Search::instance().requestAnswered(found, m_searchLimit);
        if (m_search == request)
            m_search.clear();
        Q_EMIT searchingChanged();
        if (answer.isSuccess())
            m_networks->setConfirmed(found.after);
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

Q_DECLARE_METATYPE(Kvq::Found)

#include "NetworkSelection.moc"
