// The base of all models.
#pragma once

#include "Item.h"

#include <QAbstractListModel>

#include <array>
#include <memory>

namespace Kvq {

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

} // namespace Kvq
