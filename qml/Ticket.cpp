// The way of a request to the worker and of its answer back.
#include "Ticket.h"

#include "Results.h"

namespace Kvq {

Ticket::Ticket(QObject *item, Job job, Lifetime lifetime, Urgency urgency, Listener listener)
    : QObject(item)
    , m_lifetime(lifetime)
    , m_listener(std::move(listener))
{
    connect(&m_watcher, &QFutureWatcherBase::finished, this, [this] {
        const QFuture<Answer> future = m_watcher.future();
        tell(future.resultCount() > 0 ? future.result() : Answer{Results::Cancelled, {}});
    });
    auto unlessWithdrawn = [phase = m_phase, job = std::move(job)](Engine &engine) {
        Phase waiting = Phase::Waiting;
        if (!phase->compare_exchange_strong(waiting, Phase::Taken))
            return Answer{Results::Cancelled, {}};
        return job(engine);
    };
    CallSetupWorker &worker = CallSetupWorker::instance();
    if (urgency == Urgency::CallControl)
        m_watcher.setFuture(worker.runCallControl(std::move(unlessWithdrawn)));
    else if (lifetime == Lifetime::OfItem)
        m_watcher.setFuture(worker.runReading(std::move(unlessWithdrawn)));
    else
        m_watcher.setFuture(worker.run(std::move(unlessWithdrawn)));
}

Ticket::~Ticket()
{
    if (m_lifetime == Lifetime::OfItem)
        withdraw();
}

bool Ticket::cancel()
{
    if (!withdraw())
        return false;
    m_watcher.disconnect(this);
    tell({Results::Cancelled, {}});
    return true;
}

bool Ticket::withdraw()
{
    Phase waiting = Phase::Waiting;
    return m_phase->compare_exchange_strong(waiting, Phase::Cancelled);
}

void Ticket::tell(const Answer &answer)
{
    if (answer.result == TAPI_RESULT_LINK_LOST)
        CallSetupWorker::instance().noteLinkLost();
    deleteLater();
    // The listener may delete the item, and with it this.
    const Listener listener = std::move(m_listener);
    listener(answer);
}

} // namespace Kvq
