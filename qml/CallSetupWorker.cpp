// The engine's thread, its queue, and how both end.
#include "CallSetupWorker.h"

#include "LogModule.h"
#include "PHONE_ENG_WrapTapi.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QMutex>
#include <QThread>
#include <QVariant>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <deque>

#include <unistd.h>

// The platform library's, which is found with the engine.
#pragma weak libaplog_to_module_ptr

namespace Kvq {

namespace {

constexpr std::chrono::seconds reconnectPause{5};

QMutex startMutex;

/** Whoever was given up must not touch what the process takes down meanwhile. */
[[noreturn]] void sleepForEver()
{
    for (;;)
        pause();
}

/**
 * Ends the process before the destructors of static objects run, with the status that it was to have. Registered
 * late, so it runs before them.
 */
void leaveAtOnce(int status, void *)
{
    std::fflush(nullptr);
    _exit(status);
}

/**
 * The log shows PINs in clear, and what a graphical application writes to standard output ends in a journal. So it goes
 * where somebody wants it, and nowhere else.
 */
void keepLogOffStandardOutput()
{
    if (&libaplog_to_module_ptr != nullptr && !libaplog_to_module_ptr)
        libaplog_to_module_ptr = std::fopen("/dev/null", "we");
}

} // namespace

/**
 * The thread. Each request is an event, between which what the engine posts to itself is delivered; which request an
 * event carries out is decided when its turn comes.
 */
class CallSetupWorker::Thread final : public QThread {
public:
    explicit Thread(CallSetupWorker &worker)
        : m_worker(worker)
        , m_desk(std::make_unique<QObject>())
    {
        keepLogOffStandardOutput();
        setObjectName(QStringLiteral("kvq-call-setup"));
        m_desk->moveToThread(this);
        start();
    }

    void enqueue(Task task, Kind kind)
    {
        ++m_inFlight;
        {
            const QMutexLocker locker(&m_queueMutex);
            if (kind == Kind::CallControl)
                m_callControl.push_back({std::move(task), false});
            else
                m_ordinary.push_back({std::move(task), kind == Kind::Reading});
            ++m_notBegun;
        }
        if (kind != Kind::Reading)
            begin();
    }

    /** Lays what was asked for on the desk. */
    void begin()
    {
        int requests = 0;
        {
            const QMutexLocker locker(&m_queueMutex);
            requests = std::exchange(m_notBegun, 0);
        }
        for (; requests > 0; --requests) {
            QMetaObject::invokeMethod(
                m_desk.get(),
                [this] {
                    if (!serveOne(m_callControl)) // none is left when one has passed in between
                        serveOne(m_ordinary);
                },
                Qt::QueuedConnection);
        }
    }

    void letCallControlPass()
    {
        while (serveOne(m_callControl)) { }
    }

    int inFlight() const { return m_inFlight; }

    void noteLinkLost() { m_connected = false; }
    void connectSoon() { m_connectNow = true; }

    /** Ends once everything in the queue is done. */
    bool finish(std::chrono::milliseconds timeout)
    {
        begin();
        QMetaObject::invokeMethod(
            m_desk.get(),
            [this] {
                PHONE_ENG_Setup::destruction();
                PHONE_ENG_NtInterface::destroy();
                quit();
            },
            Qt::QueuedConnection);
        if (wait(QDeadlineTimer(timeout)))
            return true;
        m_givenUp = true;
        return false;
    }

private:
    struct Waiting {
        Task task;
        bool sharesAnswers;
    };
    using Queue = std::deque<Waiting>;

    bool serveOne(Queue &queue)
    {
        Waiting next;
        {
            const QMutexLocker locker(&m_queueMutex);
            if (queue.empty())
                return false;
            if (&queue == &m_ordinary && m_restOfTurn == 0) {
                ++m_turn;
                m_restOfTurn = queue.size();
            }
            next = std::move(queue.front());
            queue.pop_front();
        }
        if (&queue == &m_ordinary)
            --m_restOfTurn;
        // Call control may have been asked for after the turn began, so it shares nothing.
        const unsigned int outer = tellTurn(next.sharesAnswers ? m_turn : 0);
        serve(std::move(next.task));
        tellTurn(outer);
        return true;
    }

    /** For the platform library, which knows no worker: a number that is the thread's own. Gives the one before. */
    static unsigned int tellTurn(unsigned int turn)
    {
        static constexpr char name[] = "kvqTurn";
        QAbstractEventDispatcher *const dispatcher = QAbstractEventDispatcher::instance();
        const unsigned int before = dispatcher->property(name).toUInt();
        if (before != turn)
            dispatcher->setProperty(name, turn);
        return before;
    }

    void serve(Task task)
    {
        Engine engine = {*PHONE_ENG_Setup::instance(), *PHONE_ENG_NtInterface::instance()};
        if (!m_listening)
            listen(engine);
        connectTelephony();
        task(engine);
        task = nullptr; // what it holds goes here, not on another thread
        if (m_givenUp)
            sleepForEver();
        --m_inFlight;
        QMetaObject::invokeMethod(&m_worker, &CallSetupWorker::requestsInFlightChanged, Qt::QueuedConnection);
    }

    void listen(const Engine &engine)
    {
        m_listening = true;
        connect(&engine.setup, &PHONE_ENG_Setup::flashFull, &m_worker, &CallSetupWorker::flashFull);
        connect(&engine.setup, &PHONE_ENG_Setup::sigSetupOpertionNotAllowed, &m_worker,
                &CallSetupWorker::operationNotAllowed);
        connect(&engine.network, &PHONE_ENG_NtInterface::preferredChanged, &m_worker,
                &CallSetupWorker::preferredNetworksChanged);
    }

    void connectTelephony()
    {
        const bool askedTo = m_connectNow.exchange(false);
        if (m_connected || (!askedTo && m_lastAttempt.isValid() && !m_lastAttempt.hasExpired(pauseInMs)))
            return;
        const _TAPI_RESULT_E result = PHONE_ENG_TAPI_initiation();
        if (m_givenUp)
            sleepForEver();
        m_connected = result == TAPI_RESULT_SUCC;
        m_lastAttempt.start();
        QMetaObject::invokeMethod(
            &m_worker, [&worker = m_worker, result] { worker.setConnection(result); }, Qt::QueuedConnection);
    }

    static constexpr qint64 pauseInMs = std::chrono::milliseconds(reconnectPause).count();

    CallSetupWorker &m_worker;
    std::unique_ptr<QObject> m_desk; ///< lives on the thread; requests are laid on it
    QMutex m_queueMutex;
    Queue m_callControl;
    Queue m_ordinary;
    unsigned int m_turn = 0;      ///< of ordinary requests, those that waited when its first one ran
    std::size_t m_restOfTurn = 0; ///< requests of it that have not run
    int m_notBegun = 0;           ///< requests that the desk knows nothing of
    std::atomic<int> m_inFlight = 0;
    std::atomic<bool> m_givenUp = false;
    std::atomic<bool> m_connected = false;
    std::atomic<bool> m_connectNow = false;
    bool m_listening = false;
    QElapsedTimer m_lastAttempt;
};

CallSetupWorker::CallSetupWorker() = default;
CallSetupWorker::~CallSetupWorker() = default;

CallSetupWorker &CallSetupWorker::instance()
{
    // Never deleted: an item that outlives the application object may still ask.
    static CallSetupWorker *const worker = [] {
        auto *const made = new CallSetupWorker;
        if (QCoreApplication::instance())
            made->moveToThread(QCoreApplication::instance()->thread());
        return made;
    }();
    return *worker;
}

void CallSetupWorker::enqueue(Task task)
{
    enqueue(std::move(task), Kind::Ordinary);
}

void CallSetupWorker::enqueueReading(Task task)
{
    enqueue(std::move(task), Kind::Reading);
}

void CallSetupWorker::beginReadings()
{
    const QMutexLocker locker(&startMutex);
    if (m_thread)
        m_thread->begin();
}

void CallSetupWorker::enqueueCallControl(Task task)
{
    enqueue(std::move(task), Kind::CallControl);
}

void CallSetupWorker::letCallControlPass()
{
    Thread *thread = nullptr;
    {
        const QMutexLocker locker(&startMutex);
        thread = m_thread;
    }
    if (QThread::currentThread() == thread)
        thread->letCallControlPass();
}

void CallSetupWorker::enqueue(Task task, Kind kind)
{
    {
        const QMutexLocker locker(&startMutex);
        if (!QCoreApplication::instance() || m_leaving)
            return; // the promise in the task goes, which cancels its future
        if (!m_thread) {
            m_thread = new Thread(*this);
            qAddPostRoutine([] { instance().leave(); });
        }
        m_thread->enqueue(std::move(task), kind);
    }
    if (kind == Kind::Reading)
        QMetaObject::invokeMethod(this, &CallSetupWorker::beginReadings, Qt::QueuedConnection);
    QMetaObject::invokeMethod(this, &CallSetupWorker::requestsInFlightChanged, Qt::AutoConnection);
}

int CallSetupWorker::requestsInFlight() const
{
    const QMutexLocker locker(&startMutex);
    return m_thread ? m_thread->inFlight() : 0;
}

void CallSetupWorker::connectTelephony()
{
    {
        const QMutexLocker locker(&startMutex);
        if (m_thread)
            m_thread->connectSoon();
    }
    enqueue([](Engine &) {}); // every request opens the session first
}

void CallSetupWorker::noteLinkLost()
{
    {
        const QMutexLocker locker(&startMutex);
        if (m_thread)
            m_thread->noteLinkLost();
    }
    setConnection(TAPI_RESULT_LINK_LOST);
}

void CallSetupWorker::setConnection(_TAPI_RESULT_E result)
{
    m_connected = result == TAPI_RESULT_SUCC;
    m_connectionResult = result;
    Q_EMIT connectionChanged();
}

void CallSetupWorker::setQuitTimeout(std::chrono::milliseconds timeout)
{
    if (m_quitTimeout == timeout)
        return;
    m_quitTimeout = timeout;
    Q_EMIT quitTimeoutChanged();
}

void CallSetupWorker::leave()
{
    const auto setLeaving = [this](bool leaving) {
        const QMutexLocker locker(&startMutex);
        m_leaving = leaving;
    };
    setLeaving(true);
    stop();
    setLeaving(false);
}

bool CallSetupWorker::stop()
{
    Thread *thread = nullptr;
    {
        const QMutexLocker locker(&startMutex);
        thread = std::exchange(m_thread, nullptr);
    }
    if (!thread)
        return true;
    if (thread->finish(m_quitTimeout)) {
        delete thread;
        return true;
    }
    // The thread sits in the platform and keeps what it uses, this object included.
    on_exit(leaveAtOnce, nullptr);
    return false;
}

} // namespace Kvq
