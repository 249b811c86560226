// The networks that the modem tries first, in the order of the SIM's list.
#pragma once

#include "Rows.h"

namespace Kvq {

struct PreferredNetwork {
    QString networkId;
    QString name;
    int position = 0;   ///< on the SIM; positions need not be contiguous
    int occurrence = 0; ///< 1 for the second entry of the same network, and so on

    QString key() const { return networkId + QLatin1Char(' ') + QString::number(occurrence); }
    bool operator==(const PreferredNetwork &) const = default;
};

class PreferredNetworks : public Kvq::ListSubject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(int capacity READ capacity NOTIFY capacityChanged)

public:
    explicit PreferredNetworks(QObject *parent = nullptr);

    /** 0 while not known. */
    int capacity() const { return m_capacity; }

    Q_INVOKABLE Kvq::Request *add(const QString &networkId);
    Q_INVOKABLE Kvq::Request *insert(int row, const QString &networkId);
    Q_INVOKABLE Kvq::Request *remove(int row);
    Q_INVOKABLE Kvq::Request *move(int from, int to);
    Q_INVOKABLE Kvq::Request *clear();

Q_SIGNALS:
    void capacityChanged();

private:
    using List = QList<PreferredNetwork>;
    using Change = std::function<void(List &)>;

    Request *rewrite(const Change &change);

    Rows<PreferredNetwork> *const m_networks;
    int m_capacity = 0;
};

} // namespace Kvq

Q_DECLARE_METATYPE(QList<Kvq::PreferredNetwork>)
