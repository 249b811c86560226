// What a method gives back that makes a request.
#pragma once

#include "CallSetup.h"
#include "Ticket.h"

#include <QPointer>

namespace Kvq {

/**
 * One request. While it runs it belongs to the item that made it; afterwards to the script engine, or to
 * nobody: without one it deletes itself.
 */
class Request : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Requests come from the methods of other types")
    Q_PROPERTY(Kvq::CallSetup::State state READ state NOTIFY stateChanged)
    Q_PROPERTY(bool busy READ isBusy NOTIFY stateChanged)
    Q_PROPERTY(int result READ result NOTIFY stateChanged)
    Q_PROPERTY(QString error READ error NOTIFY stateChanged)
    Q_PROPERTY(QString advice READ advice NOTIFY stateChanged)
    Q_PROPERTY(QVariant value READ value NOTIFY stateChanged)

public:
    Request(QObject *item, Job job, Urgency urgency);

    CallSetup::State state() const { return m_state; }
    bool isBusy() const { return m_state == CallSetup::Busy; }
    int result() const { return m_answer.result; }
    QString error() const { return Results::text(m_answer.result); }
    QString advice() const { return Results::advice(m_answer.result); }
    const QVariant &value() const { return m_answer.value; }

    Q_INVOKABLE bool cancel();

Q_SIGNALS:
    void stateChanged();
    void finished();
    /** Before finished(), for the item that made the request. */
    void answered(const Kvq::Answer &answer);

private:
    void end(const Answer &answer);

    QPointer<Ticket> m_ticket;
    CallSetup::State m_state = CallSetup::Busy;
    Answer m_answer;
};

} // namespace Kvq
