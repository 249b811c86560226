// The last platform calls, newest first, as a model.
#include "Journal.h"

namespace {

constexpr std::size_t capacity = 200;

} // namespace

int Journal::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_entries.size());
}

QVariant Journal::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const Entry &entry = m_entries[static_cast<std::size_t>(index.row())];
    switch (role) {
    case CallRole:
        return entry.call;
    case AnswerRole:
        return entry.answer;
    default:
        return {};
    }
}

QHash<int, QByteArray> Journal::roleNames() const
{
    return {{CallRole, "call"}, {AnswerRole, "answer"}};
}

void Journal::add(const QString &call, const QString &answer)
{
    if (m_entries.size() == capacity) {
        const int last = rowCount() - 1;
        beginRemoveRows({}, last, last);
        m_entries.pop_back();
        endRemoveRows();
    }
    beginInsertRows({}, 0, 0);
    m_entries.push_front({call, answer});
    endInsertRows();
}

void Journal::clear()
{
    beginResetModel();
    m_entries.clear();
    endResetModel();
}
