// The life of a request object.
#include "Request.h"

#include <QQmlEngine>

namespace Kvq {

Request::Request(QObject *item, Job job, Urgency urgency)
    : QObject(item)
    , m_ticket(new Ticket(this, std::move(job), Lifetime::OfWorker, urgency,
                          [this](const Answer &answer) { end(answer); }))
{
}

bool Request::cancel()
{
    return m_ticket && m_ticket->cancel();
}

void Request::end(const Answer &answer)
{
    const bool hasScript = qmlEngine(parent()) != nullptr;
    m_answer = answer;
    m_state = answer.isSuccess() ? CallSetup::Ready : CallSetup::Failed;
    const QPointer<Request> self(this);
    Q_EMIT answered(answer);
    if (self)
        Q_EMIT stateChanged();
    if (self)
        Q_EMIT finished();
    if (!self)
        return;
    if (hasScript && parent()) {
        setParent(nullptr);
        QJSEngine::setObjectOwnership(this, QJSEngine::JavaScriptOwnership);
    } else {
        deleteLater();
    }
}

} // namespace Kvq
