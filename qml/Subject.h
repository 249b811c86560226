// What items have in common: settings, requests, and a state made of theirs.
#pragma once

#include "Operations.h"
#include "Request.h"
#include "Setting.h"

#include <QAbstractListModel>
#include <QQmlParserStatus>

#include <algorithm>
#include <array>
#include <iterator>
#include <set>
#include <utility>
#include <vector>

namespace Kvq {

/** Keeps the settings and requests of one item together. */
class Activity : public QObject {
    Q_OBJECT

public:
    /** @param urgency of the item's readings and requests, and of the writes of its settings */
    explicit Activity(QObject *item, Urgency urgency);

    CallSetup::State state() const { return m_state; }
    int result() const { return m_result; }
    bool isAvailable() const { return m_available; }
    bool isStale() const { return m_stale; }
    bool refreshesItself() const { return m_autoRefresh; }
    void setRefreshesItself(bool on);

    /** A setting of the item: read by one member of the engine and, if it can be, written by another. */
    template <typename SettingType, typename Get>
    SettingType *setting(Get get)
    {
        return add(new SettingType(Operations::reader(get), nullptr, parent()));
    }
    template <typename SettingType, typename Get, typename Set>
    SettingType *setting(Get get, Set set)
    {
        return add(new SettingType(Operations::reader(get), Operations::writer(set), parent()));
    }
    /** A setting with a reader and a writer of its own. */
    template <typename SettingType>
    SettingType *custom(Setting::Reader reader, Setting::Writer writer = nullptr)
    {
        return add(new SettingType(std::move(reader), std::move(writer), parent()));
    }
    template <typename SettingType>
    SettingType *add(SettingType *setting)
    {
        addSetting(setting);
        return setting;
    }

    using Take = std::function<void(const QVariant &)>;
    /** Whether what was read is still of use to an item that is made later. */
    enum class Keeping { Kept, ForNow };
    /** What refresh() reads besides the settings. */
    void setReader(Job job, Take take, Keeping keeping = Keeping::Kept);
    /**
     * Begins with what an item of the same type has last known.
     * @return its list, which may be newer than its reading; invalid for none
     */
    QVariant begin();
    /** A list as the phone has it. */
    void keepList(const QVariant &list);

    void refresh();
    void refreshSettings();
    /** The reader alone. One reading at a time: a wish that comes meanwhile is met by one more. */
    void read();
    /** The same without the item showing that it is busy, for what it reads by itself. */
    void readQuietly();
    bool isReading() const { return m_reading; }
    /** Of the reader's last run. */
    int readResult() const { return m_readResult; }
    void cancel();

    Request *request(Job job);

Q_SIGNALS:
    void changed();
    void autoRefreshChanged();
    void readingEnded(bool success);

private:
    void addSetting(Setting *setting);
    ValueName name(ValueName::Place place) const { return {m_type, place, 0}; }
    bool keeps() const { return m_type && m_keeping == Keeping::Kept; }
    void startReading();
    void readEnded(const Answer &answer);
    void update();

    std::vector<Setting *> m_settings;
    std::vector<QPointer<Request>> m_requests; ///< in flight
    const Urgency m_urgency;
    const QMetaObject *m_type = nullptr; ///< of the item, once it has begun
    Job m_reader;
    Take m_take;
    Keeping m_keeping = Keeping::Kept;
    bool m_staleReading = false; ///< what is shown was read for an item before this one
    QPointer<Ticket> m_reading;
    bool m_readAgain = false;
    bool m_readsQuietly = false;
    bool m_hasRead = false;
    int m_readResult = TAPI_RESULT_SUCC;
    int m_requestResult = TAPI_RESULT_SUCC;
    bool m_autoRefresh = true;
    CallSetup::State m_state = CallSetup::Unknown;
    int m_result = TAPI_RESULT_SUCC;
    bool m_available = true;
    bool m_stale = false;
};

/** What items have in common, models or not; the properties themselves stand in both bases, where moc reads them. */
class Item : public QQmlParserStatus {
public:
    CallSetup::State state() const { return m_activity->state(); }
    bool isBusy() const { return state() == CallSetup::Busy; }
    int result() const { return m_activity->result(); }
    QString error() const { return Results::text(result()); }
    QString advice() const { return Results::advice(result()); }
    bool isAvailable() const { return m_activity->isAvailable(); }
    bool isStale() const { return m_activity->isStale(); }
    bool autoRefresh() const { return m_activity->refreshesItself(); }
    void setAutoRefresh(bool on) { m_activity->setRefreshesItself(on); }

    void classBegin() override { m_activity->begin(); }
    void componentComplete() override;

protected:
    explicit Item(QObject *item, Urgency urgency = Urgency::Ordinary)
        : m_activity(new Activity(item, urgency))
    {
    }

    Activity *const m_activity;
};

/** The base of all types that are no models. */
class Subject : public QObject, public Item {
    Q_OBJECT
    Q_INTERFACES(QQmlParserStatus)
    QML_ELEMENT
    QML_UNCREATABLE("The base of other types")
    Q_PROPERTY(Kvq::CallSetup::State state READ state NOTIFY stateChanged)
    Q_PROPERTY(bool busy READ isBusy NOTIFY stateChanged)
    Q_PROPERTY(int result READ result NOTIFY stateChanged)
    Q_PROPERTY(QString error READ error NOTIFY stateChanged)
    Q_PROPERTY(QString advice READ advice NOTIFY stateChanged)
    Q_PROPERTY(bool available READ isAvailable NOTIFY stateChanged)
    Q_PROPERTY(bool stale READ isStale NOTIFY stateChanged)
    Q_PROPERTY(bool autoRefresh READ autoRefresh WRITE setAutoRefresh NOTIFY autoRefreshChanged)

public:
    explicit Subject(QObject *parent = nullptr);

    Q_INVOKABLE void refresh() { m_activity->refresh(); }
    Q_INVOKABLE void cancel() { m_activity->cancel(); }

Q_SIGNALS:
    void stateChanged();
    void autoRefreshChanged();
};

/** One role of a model. */
template <typename Row>
struct Role {
    const char *name;
    QVariant (*value)(const Row &row);
};

/** The rows of a model, whatever they are made of. */
class RowsBase {
public:
    virtual ~RowsBase() = default;
    virtual int count() const = 0;
    virtual QVariant value(int row, int role) const = 0;
    virtual QHash<int, QByteArray> roleNames() const = 0;
    /** Begins with the rows that a model of the same type has last known, if there are any. */
    virtual void inherit(const QVariant &list) = 0;
};

template <typename Row>
class Rows;

/** The base of all models. */
class ListSubject : public QAbstractListModel, public Item {
    Q_OBJECT
    Q_INTERFACES(QQmlParserStatus)
    QML_ELEMENT
    QML_UNCREATABLE("The base of other types")
    Q_PROPERTY(Kvq::CallSetup::State state READ state NOTIFY stateChanged)
    Q_PROPERTY(bool busy READ isBusy NOTIFY stateChanged)
    Q_PROPERTY(int result READ result NOTIFY stateChanged)
    Q_PROPERTY(QString error READ error NOTIFY stateChanged)
    Q_PROPERTY(QString advice READ advice NOTIFY stateChanged)
    Q_PROPERTY(bool available READ isAvailable NOTIFY stateChanged)
    Q_PROPERTY(bool stale READ isStale NOTIFY stateChanged)
    Q_PROPERTY(bool autoRefresh READ autoRefresh WRITE setAutoRefresh NOTIFY autoRefreshChanged)
    Q_PROPERTY(int count READ count NOTIFY countChanged)

public:
    explicit ListSubject(QObject *parent = nullptr, Urgency urgency = Urgency::Ordinary);

    int count() const { return m_rows->count(); }

    void classBegin() override;

    Q_INVOKABLE void refresh() { m_activity->refresh(); }
    Q_INVOKABLE void cancel() { m_activity->cancel(); }

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void stateChanged();
    void autoRefreshChanged();
    void countChanged();

protected:
    template <typename Row>
    friend class Rows; // for what a model does around a change of its rows

    /** Gives the model its rows. */
    template <typename Row, std::size_t roleCount>
    Rows<Row> *addRows(const std::array<Role<Row>, roleCount> &roles)
    {
        auto rows = std::make_unique<Rows<Row>>(*this, roles);
        Rows<Row> *const added = rows.get();
        m_rows = std::move(rows);
        return added;
    }

private:
    std::unique_ptr<RowsBase> m_rows;
};

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
