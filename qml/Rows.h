// The rows of a model.
#pragma once

#include "ListSubject.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <set>
#include <utility>
#include <vector>

namespace Kvq {

/**
 * The rows of a model: what the phone has, and on top of it the changes that were asked for and are not
 * answered yet. A change that fails goes, and the rows are what they were without it.
 *
 * Row has `key()`, by which a row is the same row after a reading, and `==`.
 */
template <typename Row>
class Rows final : public RowsBase {
public:
    using List = QList<Row>;
    using Change = std::function<void(List &)>;

    template <std::size_t roleCount>
    Rows(ListSubject &model, const std::array<Role<Row>, roleCount> &roles)
        : m_model(model)
        , m_roles(roles.begin(), roles.end())
    {
    }

    int count() const override { return static_cast<int>(m_shown.size()); }
    QVariant value(int row, int role) const override
    {
        const int number = role - Qt::UserRole;
        if (number < 0 || number >= static_cast<int>(m_roles.size()))
            return {};
        return m_roles[static_cast<std::size_t>(number)].value(m_shown.at(row));
    }
    QHash<int, QByteArray> roleNames() const override
    {
        QHash<int, QByteArray> names;
        for (std::size_t role = 0; role < m_roles.size(); ++role)
            names.insert(Qt::UserRole + static_cast<int>(role), m_roles[role].name);
        return names;
    }

    /** The rows as they are shown. */
    const List &list() const { return m_shown; }

    /** What the phone has. */
    void setConfirmed(List rows)
    {
        m_confirmed = std::move(rows);
        keep();
        show();
    }

    void inherit(const QVariant &list) override
    {
        if (!list.canConvert<List>())
            return;
        m_confirmed = list.value<List>();
        keep(); // the reading that the model took before is older
        show();
    }

    /** Shows a change and makes the request; what it gives is a List, or nothing when all is as asked. */
    Request *change(Activity &activity, Change change, Job job)
    {
        Request *const request = activity.request(std::move(job));
        const unsigned int number = ++m_changesMade;
        m_changes.emplace(number, std::move(change));
        show();
        QObject::connect(request, &Request::answered, &m_model, [this, number](const Answer &answer) {
            const Change ended = std::move(m_changes.at(number));
            m_changes.erase(number);
            if (answer.value.template canConvert<List>())
                m_confirmed = answer.value.template value<List>();
            else if (answer.isSuccess())
                ended(m_confirmed);
            keep();
            show();
        });
        return request;
    }

private:
    using Key = std::decay_t<decltype(std::declval<const Row &>().key())>;

    void keep() { m_model.m_activity->keepList(QVariant::fromValue(m_confirmed)); }

    /** Whoever hears of a change may make another one, which is then shown after this one. */
    void show()
    {
        m_showAgain = true;
        if (std::exchange(m_isShowing, true))
            return;
        const auto countBefore = m_shown.size();
        while (std::exchange(m_showAgain, false))
            showOnce();
        m_isShowing = false;
        if (m_shown.size() != countBefore)
            Q_EMIT m_model.countChanged();
    }

    void showOnce()
    {
        List next = m_confirmed;
        for (const auto &[number, change] : m_changes)
            change(next);
        if (next == m_shown)
            return;
        std::vector<Key> keys = keysOf(m_shown);
        const std::vector<Key> wantedKeys = keysOf(next);
        const std::set<Key> wanted(wantedKeys.begin(), wantedKeys.end());
        for (int row = count() - 1; row >= 0; --row) {
            if (wanted.count(keys[static_cast<std::size_t>(row)]) != 0)
                continue;
            m_model.beginRemoveRows({}, row, row);
            m_shown.removeAt(row);
            keys.erase(keys.begin() + row);
            m_model.endRemoveRows();
        }
        const std::set<Key> kept(keys.begin(), keys.end());
        for (int row = 0; row < static_cast<int>(next.size()); ++row) {
            const Key &key = wantedKeys[static_cast<std::size_t>(row)];
            // A row that is new need not be looked for.
            const auto place = keys.begin() + row;
            const auto found = kept.count(key) != 0 ? std::find(place, keys.end(), key) : keys.end();
            if (found == keys.end()) {
                m_model.beginInsertRows({}, row, row);
                m_shown.insert(row, next.at(row));
                keys.insert(place, key);
                m_model.endInsertRows();
                continue;
            }
            if (found != place) {
                const int from = static_cast<int>(found - keys.begin());
                m_model.beginMoveRows({}, from, from, {}, row);
                m_shown.move(from, row);
                std::rotate(place, found, found + 1);
                m_model.endMoveRows();
            }
            if (!(m_shown.at(row) == next.at(row))) {
                m_shown[row] = next.at(row);
                const QModelIndex index = m_model.index(row);
                Q_EMIT m_model.dataChanged(index, index);
            }
        }
    }

    static std::vector<Key> keysOf(const List &rows)
    {
        std::vector<Key> keys;
        keys.reserve(static_cast<std::size_t>(rows.size()));
        std::transform(rows.cbegin(), rows.cend(), std::back_inserter(keys),
                       [](const Row &row) { return row.key(); });
        return keys;
    }

    ListSubject &m_model;
    const std::vector<Role<Row>> m_roles;
    List m_shown;
    List m_confirmed;
    std::map<unsigned int, Change> m_changes; ///< in flight, in the order of asking
    unsigned int m_changesMade = 0;
    bool m_isShowing = false;
    bool m_showAgain = false;
};

} // namespace Kvq
