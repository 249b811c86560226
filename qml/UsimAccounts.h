// The USIM applications of the card.
#pragma once

#include "Rows.h"

namespace Kvq {

struct UsimAccount {
    int position = 0; ///< on the card, from 1
    QString label;
    bool active = false;

    int key() const { return position; }
    bool operator==(const UsimAccount &) const = default;
};

class UsimAccounts : public Kvq::ListSubject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(int activeIndex READ activeIndex NOTIFY activeIndexChanged)

public:
    explicit UsimAccounts(QObject *parent = nullptr);

    /** Row of the active one, -1 for none. */
    int activeIndex() const;

Q_SIGNALS:
    void activeIndexChanged();

private:
    Rows<UsimAccount> *const m_accounts;
};

} // namespace Kvq

Q_DECLARE_METATYPE(QList<Kvq::UsimAccount>)
