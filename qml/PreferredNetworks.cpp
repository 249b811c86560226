// The preferred list: read whole, changed by writing the positions that differ.
#include "PreferredNetworks.h"

#include <QSet>

namespace Kvq {

namespace {

using List = QList<PreferredNetwork>;

constexpr std::array<Role<PreferredNetwork>, 3> roles = {{
    {"networkId", [](const PreferredNetwork &network) { return QVariant(network.networkId); }},
    {"name", [](const PreferredNetwork &network) { return QVariant(network.name); }},
    {"position", [](const PreferredNetwork &network) { return QVariant(network.position); }},
}};

/** What a reading of the SIM gives. */
struct PreferredList {
    List networks;
    unsigned int capacity = 0;
};

void countOccurrences(List &networks)
{
    QHash<QString, int> seen;
    for (PreferredNetwork &network : networks)
        network.occurrence = seen[network.networkId]++;
}

bool readNetworks(PHONE_ENG_NtInterface &network, List &networks)
{
    const auto list = std::make_unique<_TAPI_NETWORK_PREFERRED_S>();
    if (!network.getPreferredNetworks(list.get()))
        return false;
    const int count = std::clamp(list->count, 0, TAPI_NETWORK_MAX_PREFERRED);
    for (int row = 0; row < count; ++row) {
        _TAPI_NETWORK_PREFERRED_ENTRY_S &entry = list->entries[row];
        const std::size_t length = strnlen(entry.networkId, sizeof entry.networkId);
        networks.append({QString::fromLatin1(entry.networkId, static_cast<qsizetype>(length)),
                         Unicode2QStr(entry.name, TAPI_NETWORK_NAME_UNITS), entry.priority, 0});
    }
    std::stable_sort(networks.begin(), networks.end(),
                     [](const auto &left, const auto &right) { return left.position < right.position; });
    countOccurrences(networks);
    return true;
}

Answer readAnswer(Engine &engine)
{
    PreferredList list;
    if (!readNetworks(engine.network, list.networks))
        return Operations::answerOf(false);
    if (!engine.network.getCapacityPreferedNetwork(&list.capacity))
        list.capacity = 0;
    return {TAPI_RESULT_SUCC, QVariant::fromValue(list)};
}

/** Gives each entry a position: those in use first, then the lowest that are free. */
void givePositions(List &networks, const List &before)
{
    std::vector<int> positions;
    QSet<int> used;
    for (const PreferredNetwork &network : before) {
        positions.push_back(network.position);
        used.insert(network.position);
    }
    for (int position = 0; positions.size() < static_cast<std::size_t>(networks.size()); ++position) {
        if (!used.contains(position))
            positions.push_back(position);
    }
    std::sort(positions.begin(), positions.end());
    for (int row = 0; row < static_cast<int>(networks.size()); ++row)
        networks[row].position = positions[static_cast<std::size_t>(row)];
    countOccurrences(networks);
}

const PreferredNetwork *atPosition(const List &networks, int position)
{
    const auto found = std::find_if(networks.cbegin(), networks.cend(),
                                    [position](const auto &network) { return network.position == position; });
    return found == networks.cend() ? nullptr : &*found;
}

/** Writes what differs. A write to a position that is in use takes the place of what was there. */
bool writeDifferences(PHONE_ENG_NtInterface &network, const List &before, const List &after)
{
    for (const PreferredNetwork &entry : after) {
        CallSetupWorker::instance().letCallControlPass();
        const PreferredNetwork *const old = atPosition(before, entry.position);
        if ((!old || old->networkId != entry.networkId)
            && !network.addPreferredNetwork(static_cast<unsigned int>(entry.position), entry.networkId))
            return false;
    }
    return std::all_of(before.crbegin(), before.crend(), [&](const PreferredNetwork &entry) {
        return atPosition(after, entry.position)
            || network.delPreferredNetwork(static_cast<unsigned int>(entry.position));
    });
}

} // namespace

PreferredNetworks::PreferredNetworks(QObject *parent)
    : ListSubject(parent)
    , m_networks(addRows<PreferredNetwork>(roles))
{
    m_activity->setReader(readAnswer, [this](const QVariant &value) {
        const auto list = value.value<PreferredList>();
        m_capacity = static_cast<int>(list.capacity);
        Q_EMIT capacityChanged();
        m_networks->setConfirmed(list.networks);
    });
}

Request *PreferredNetworks::add(const QString &networkId)
{
    return rewrite([networkId](List &networks) { networks.append({networkId, {}, 0, 0}); });
}

Request *PreferredNetworks::insert(int row, const QString &networkId)
{
    return rewrite([row, networkId](List &networks) {
        networks.insert(std::clamp(row, 0, static_cast<int>(networks.size())), {networkId, {}, 0, 0});
    });
}

Request *PreferredNetworks::remove(int row)
{
    // The entry, not the row: an earlier change that fails moves rows.
    const QString key = row >= 0 && row < count() ? m_networks->list().at(row).key() : QString();
    return rewrite([key](List &networks) {
        networks.removeIf([&key](const PreferredNetwork &network) { return network.key() == key; });
    });
}

Request *PreferredNetworks::move(int from, int to)
{
    const QString key = from >= 0 && from < count() ? m_networks->list().at(from).key() : QString();
    return rewrite([key, to](List &networks) {
        for (int row = 0; row < static_cast<int>(networks.size()); ++row) {
            if (networks.at(row).key() == key) {
                networks.move(row, std::clamp(to, 0, static_cast<int>(networks.size()) - 1));
                return;
            }
        }
    });
}

Request *PreferredNetworks::clear()
{
    return m_networks->change(
        *m_activity, [](List &networks) { networks.clear(); },
        [](Engine &engine) {
            if (!engine.network.delAllPreferredNetwork())
                return Operations::answerOf(false);
            List left;
            if (!readNetworks(engine.network, left))
                return Operations::answerOf(true);
            // Deletions that failed are not reported; what is left tells.
            return Answer{left.isEmpty() ? TAPI_RESULT_SUCC : TAPI_RESULT_FAIL, QVariant::fromValue(left)};
        });
}

/**
 * Changes the list. The change is made to what the SIM has when its turn comes, so that it does not undo what
 * another one did meanwhile. When a write fails, the SIM gets back what it had.
 */
Request *PreferredNetworks::rewrite(const Change &change)
{
    const auto changed = [change](List &networks) {
        const List before = networks;
        change(networks);
        givePositions(networks, before);
    };
    return m_networks->change(*m_activity, changed, [changed](Engine &engine) {
        List before;
        if (!readNetworks(engine.network, before))
            return Operations::answerOf(false);
        List after = before;
        changed(after);
        const bool success = writeDifferences(engine.network, before, after);
        List taken;
        const bool isKnown = readNetworks(engine.network, taken);
        if (!success && isKnown) {
            writeDifferences(engine.network, taken, before);
            taken.clear();
            readNetworks(engine.network, taken);
        }
        return Answer{success ? TAPI_RESULT_SUCC : TAPI_RESULT_FAIL,
                      isKnown ? QVariant::fromValue(taken) : QVariant()};
    });
}

} // namespace Kvq

Q_DECLARE_METATYPE(Kvq::PreferredList)
