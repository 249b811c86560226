// One request of an item, from asking to the answer.
#pragma once

#include "CallSetupWorker.h"

#include <QFutureWatcher>
#include <QVariant>

#include <atomic>

namespace Kvq {

/** What a request gave. */
struct Answer {
    Answer() = default;
    Answer(_TAPI_RESULT_E code, QVariant given = {})
        : Answer(static_cast<int>(code), std::move(given))
    {
    }
    /** With a code of Results. */
    Answer(int code, QVariant given = {})
        : result(code)
        , value(std::move(given))
    {
    }

    int result = TAPI_RESULT_SUCC;
    QVariant value;

    bool isSuccess() const { return result == TAPI_RESULT_SUCC; }
};

using Job = std::function<Answer(Engine &)>;

/** Whether a request that waits is still to be made when the item that asked goes. */
enum class Lifetime { OfItem, OfWorker };

/** Call control goes first. */
enum class Urgency { Ordinary, CallControl };

/**
 * Asks the worker and tells the item. Belongs to the item that asked, so an item that goes is not told; deletes
 * itself once it has told.
 */
class Ticket final : public QObject {
public:
    using Listener = std::function<void(const Answer &)>;

    Ticket(QObject *item, Job job, Lifetime lifetime, Urgency urgency, Listener listener);
    ~Ticket() override;

    /** Cancels the request if it waits. The listener is then told of Results::Cancelled, before this returns. */
    bool cancel();

private:
    enum class Phase { Waiting, Taken, Cancelled };

    bool withdraw();
    void tell(const Answer &answer);

    std::shared_ptr<std::atomic<Phase>> m_phase = std::make_shared<std::atomic<Phase>>(Phase::Waiting);
    QFutureWatcher<Answer> m_watcher;
    Lifetime m_lifetime;
    Listener m_listener;
};

} // namespace Kvq
