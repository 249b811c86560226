// The last platform calls, newest first, as a model.
#pragma once

#include <QAbstractListModel>
#include <QtQmlIntegration>

#include <deque>

/** What the phone was asked and what it answered. */
class Journal : public QAbstractListModel {
    Q_OBJECT
    QML_ANONYMOUS

public:
    enum Role { CallRole = Qt::UserRole, AnswerRole };

    using QAbstractListModel::QAbstractListModel;

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    void add(const QString &call, const QString &answer);
    Q_INVOKABLE void clear();

private:
    struct Entry {
        QString call;
        QString answer;
    };

    std::deque<Entry> m_entries;
};
