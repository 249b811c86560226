// The thread that owns the engine: for applications that must not wait.
#pragma once

#include "PHONE_ENG_NtInterface.h"
#include "PHONE_ENG_Setup.h"

#include <QFuture>
#include <QObject>
#include <QPromise>

#include <chrono>
#include <functional>
#include <memory>
#include <type_traits>

namespace Kvq {

/** What a request works with. Good for the duration of the request, on the engine's thread. */
struct Engine {
    PHONE_ENG_Setup &setup;
    PHONE_ENG_NtInterface &network;
};

/**
 * Runs requests on a thread of its own, in the order in which they were made, call control first. One a process.
 *
 * The thread owns the engine: the engine's objects are made on it by the first request and deleted on it
 * when the application leaves. An application that uses the worker calls the engine from requests only;
 * this goes for the call control functions too, which need no object. Before the first request the
 * worker opens the telephony session, and tries again with a later request when that failed.
 *
 * run() may be called from any thread, once there is an application object. Signals are emitted on the
 * application's thread.
 *
 * When the application object goes, the requests that were made are still carried out, but the
 * application waits for quitTimeout() at most. If they take longer the thread is left to itself and the
 * process ends without running the destructors of static objects, which that thread might still use.
 */
// NOLINTNEXTLINE(cppcoreguidelines-virtual-class-destructor): it alone ends itself
class PHONE_ENG_API CallSetupWorker final : public QObject {
    Q_OBJECT

    class Thread;
    using Task = std::function<void(Engine &)>;

public:
    static CallSetupWorker &instance();

    /**
     * Makes a request.
     *
     * @param job called with an Engine on the engine's thread
     * @return its result. A request that still waits when the future is cancelled never runs; one that runs
     *         goes on, and only its result is dropped. A request made without an application object is
     *         cancelled at once.
     */
    template <typename Job>
    auto run(Job job) -> QFuture<std::invoke_result_t<Job &, Engine &>>
    {
        auto [future, task] = promised(std::move(job));
        enqueue(std::move(task));
        return future;
    }

    /**
     * The same for call control: the request runs before all that wait by run(), after those made by this function.
     * For what must not wait for pages, and for what a call depends on that is made after it.
     */
    template <typename Job>
    auto runCallControl(Job job) -> QFuture<std::invoke_result_t<Job &, Engine &>>
    {
        auto [future, task] = promised(std::move(job));
        enqueueCallControl(std::move(task));
        return future;
    }

    /**
     * The same as run() for a request that only reads. It begins when the application's thread is back in its event loop,
     * or makes another request. What it reads may be what another such request has read that was made before either of
     * them began, as long as nothing was written since: so it is never older than the request itself.
     */
    template <typename Job>
    auto runReading(Job job) -> QFuture<std::invoke_result_t<Job &, Engine &>>
    {
        auto [future, task] = promised(std::move(job));
        enqueueReading(std::move(task));
        return future;
    }

    /** In a request of several steps, between two of them: carries out the call control that waits. */
    void letCallControlPass();

    /** Requests that wait or run. */
    int requestsInFlight() const;

    /** Whether the telephony session is open, and the outcome of opening it. */
    bool isConnected() const { return m_connected; }
    _TAPI_RESULT_E connectionResult() const { return m_connectionResult; }
    /** Opens the telephony session, unless it is open. */
    void connectTelephony();
    /** Tells that the link was lost: a later request opens the session again. */
    void noteLinkLost();

    /** How long the application waits for requests when it leaves; 2 seconds unless set. */
    std::chrono::milliseconds quitTimeout() const { return m_quitTimeout; }
    void setQuitTimeout(std::chrono::milliseconds timeout);

    /**
     * Carries out what was requested, within quitTimeout(), and ends the thread; the next request starts a
     * new one. Happens by itself when the application object goes.
     * @return false when the thread had to be left to itself.
     */
    bool stop();

Q_SIGNALS:
    void requestsInFlightChanged();
    void connectionChanged();
    void quitTimeoutChanged();
    /** The engine's signals. */
    void flashFull();
    void operationNotAllowed();
    void preferredNetworksChanged();

private:
    CallSetupWorker();
    ~CallSetupWorker() override;

    template <typename Job>
    static auto promised(Job job) -> std::pair<QFuture<std::invoke_result_t<Job &, Engine &>>, Task>
    {
        using Result = std::invoke_result_t<Job &, Engine &>;
        const auto promise = std::make_shared<QPromise<Result>>();
        promise->start(); // or nobody could wait for the result
        return {promise->future(), [promise, job = std::move(job)](Engine &engine) mutable {
                    if (!promise->isCanceled()) {
                        if constexpr (std::is_void_v<Result>)
                            job(engine);
                        else
                            promise->addResult(job(engine));
                    }
                    promise->finish();
                }};
    }

    void enqueue(Task task);
    void enqueueReading(Task task);
    void enqueueCallControl(Task task);
    enum class Kind { Ordinary, Reading, CallControl };
    void enqueue(Task task, Kind kind);
    /** Lets the readings begin that were asked for together. */
    void beginReadings();
    void leave();
    void setConnection(_TAPI_RESULT_E result);

    Thread *m_thread = nullptr; ///< null while no request was made
    bool m_leaving = false;     ///< no request is taken while the application object goes
    std::chrono::milliseconds m_quitTimeout{2000};
    bool m_connected = false;
    _TAPI_RESULT_E m_connectionResult = TAPI_RESULT_SUCC;
};

} // namespace Kvq
