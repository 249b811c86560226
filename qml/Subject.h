// The base of all types that are no models.
#pragma once

#include "Item.h"

namespace Kvq {

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

} // namespace Kvq
