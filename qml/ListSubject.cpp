// The base of all models.
#include "ListSubject.h"

namespace Kvq {

ListSubject::ListSubject(QObject *parent, Urgency urgency)
    : QAbstractListModel(parent)
    , Item(this, urgency)
{
    connect(m_activity, &Activity::changed, this, &ListSubject::stateChanged);
    connect(m_activity, &Activity::autoRefreshChanged, this, &ListSubject::autoRefreshChanged);
}

void ListSubject::classBegin()
{
    m_rows->inherit(m_activity->begin());
}

int ListSubject::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : count();
}

QVariant ListSubject::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    return m_rows->value(index.row(), role);
}

QHash<int, QByteArray> ListSubject::roleNames() const
{
    return m_rows->roleNames();
}

} // namespace Kvq
