// The worker as a C++ application uses it.
#include "CallSetupWorker.h"
#include "LogModule.h"
#include "Secret.h"
#include "SimulatedPhone.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>

#include <gtest/gtest.h>

#include <condition_variable>
#include <mutex>
#include <thread>

using Kvq::CallSetupWorker;
using Kvq::Engine;

namespace {

/** Keeps the worker busy until it is opened. */
class Gate {
public:
    void pass()
    {
        std::unique_lock lock(m_mutex);
        m_change.wait(lock, [this] { return m_open; });
    }
    void open()
    {
        const std::lock_guard lock(m_mutex);
        m_open = true;
        m_change.notify_all();
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_change;
    bool m_open = false;
};

class CallSetupWorkerTest : public testing::Test {
protected:
    CallSetupWorkerTest()
    {
        libaplog_to_module_ptr = std::fopen("/dev/null", "w");
        SimulatedPhone::instance().reset();
        SimulatedPhone::instance().settings().setFile(m_directory.filePath(QStringLiteral("settings.cbor")));
    }
    ~CallSetupWorkerTest() override
    {
        worker.stop();
        std::fclose(std::exchange(libaplog_to_module_ptr, nullptr));
    }

    template <typename Condition>
    static bool happens(Condition condition)
    {
        QElapsedTimer timer;
        timer.start();
        while (!condition()) {
            if (timer.hasExpired(60'000))
                return false;
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        }
        return true;
    }

    CallSetupWorker &worker = CallSetupWorker::instance();
    QTemporaryDir m_directory;
};

} // namespace

TEST_F(CallSetupWorkerTest, RequestsRunInOrderOnOneThreadThatOwnsTheEngine)
{
    std::vector<int> order;
    std::vector<QFuture<QThread *>> futures;
    for (int number = 0; number < 20; ++number) {
        futures.push_back(worker.run([&order, number](Engine &engine) {
            order.push_back(number);
            EXPECT_EQ(engine.setup.thread(), QThread::currentThread());
            EXPECT_EQ(engine.network.thread(), QThread::currentThread());
            return QThread::currentThread();
        }));
    }
    for (QFuture<QThread *> &future : futures) {
        EXPECT_EQ(future.result(), futures.front().result());
        EXPECT_NE(future.result(), QThread::currentThread());
    }
    EXPECT_TRUE(std::is_sorted(order.begin(), order.end()));
    EXPECT_EQ(order.size(), 20u);

    EXPECT_TRUE(worker.stop());
    EXPECT_EQ(PHONE_ENG_Setup::m_pInstance, nullptr);
    EXPECT_EQ(PHONE_ENG_NtInterface::m_pInstance, nullptr);
    EXPECT_TRUE(worker.run([](Engine &engine) { return engine.setup.isReminder(); }).result());
}

TEST_F(CallSetupWorkerTest, EachThreadsRequestsKeepTheirOrder)
{
    std::vector<std::vector<int>> orders(4);
    std::vector<std::thread> threads;
    for (std::vector<int> &order : orders) {
        threads.emplace_back([&] {
            for (int number = 0; number < 200; ++number)
                worker.run([&order, number](Engine &) { order.push_back(number); });
        });
    }
    for (std::thread &thread : threads)
        thread.join();
    worker.run([](Engine &) {}).waitForFinished();
    for (const std::vector<int> &order : orders) {
        EXPECT_EQ(order.size(), 200u);
        EXPECT_TRUE(std::is_sorted(order.begin(), order.end()));
    }
    EXPECT_TRUE(happens([this] { return worker.requestsInFlight() == 0; }));
}

TEST_F(CallSetupWorkerTest, CallControlRunsBeforeWhatWaits)
{
    Gate gate;
    std::vector<int> order;
    worker.run([&](Engine &) {
        gate.pass();
        worker.letCallControlPass();
        order.push_back(0);
    });
    worker.run([&](Engine &) { order.push_back(3); });
    for (const int number : {-2, -1})
        worker.runCallControl([&order, number](Engine &) { order.push_back(number); });
    gate.open();
    worker.run([](Engine &) {}).waitForFinished();
    worker.letCallControlPass(); // not from a request: does nothing
    EXPECT_EQ(order, (std::vector<int>{-2, -1, 0, 3}));
    EXPECT_TRUE(happens([this] { return worker.requestsInFlight() == 0; }));
    EXPECT_TRUE(worker.runCallControl([](Engine &) { return true; }).result());
}

// An answer that a reading shares was asked for when all that share it had been made.
TEST_F(CallSetupWorkerTest, ReadingsThatAreAskedForTogetherShareAnswers)
{
    const auto turn = [] { return QAbstractEventDispatcher::instance()->property("kvqTurn").toInt(); };
    const auto read = [turn](Engine &) { return turn(); };
    QFuture<int> later;
    QFuture<int> control;
    const QFuture<int> first = worker.runReading([&](Engine &) {
        const int before = turn();
        control = worker.runCallControl(read);
        worker.letCallControlPass(); // shares nothing, and the rest of this reading does again
        later = worker.runReading(read);
        return before == turn() ? before : -1;
    });
    const QFuture<int> second = worker.runReading(read);
    EXPECT_TRUE(happens([&] { return second.isFinished(); }));
    EXPECT_TRUE(happens([&] { return later.isFinished(); }));
    EXPECT_GT(first.result(), 0);
    EXPECT_EQ(second.result(), first.result());
    EXPECT_GT(later.result(), second.result());
    EXPECT_EQ(control.result(), 0);
    const QFuture<int> third = worker.runReading(read);
    EXPECT_EQ(worker.run(read).result(), 0); // and lets the reading before it begin
    EXPECT_TRUE(third.isFinished());
    worker.runReading(read);
    EXPECT_TRUE(worker.stop());
    EXPECT_EQ(worker.requestsInFlight(), 0);
}

TEST_F(CallSetupWorkerTest, ACancelledRequestNeverRuns)
{
    Gate gate;
    bool ran = false;
    const QFuture<void> busy = worker.run([&](Engine &) { gate.pass(); });
    QFuture<bool> waiting = worker.run([&](Engine &) { return ran = true; });
    const QFuture<bool> after = worker.run([](Engine &) { return true; });
    EXPECT_EQ(worker.requestsInFlight(), 3);
    waiting.cancel();
    gate.open();
    EXPECT_TRUE(after.result());
    EXPECT_TRUE(waiting.isCanceled());
    EXPECT_EQ(waiting.resultCount(), 0);
    EXPECT_FALSE(ran);
    EXPECT_FALSE(busy.isCanceled());
}

TEST_F(CallSetupWorkerTest, SignalsComeToTheApplicationsThread)
{
    QThread *heardOn = nullptr;
    QObject context;
    QObject::connect(&worker, &CallSetupWorker::flashFull, &context,
                     [&] { heardOn = QThread::currentThread(); });
    worker
        .run([](Engine &engine) {
            SimulatedPhone::instance().script("SETUP_SET_Manager::setSettingInfo", {0, {}, ENOSPC, 1});
            return engine.setup.setRoamAlert(true);
        })
        .waitForFinished();
    EXPECT_TRUE(happens([&] { return heardOn != nullptr; }));
    EXPECT_EQ(heardOn, QCoreApplication::instance()->thread());
}

TEST_F(CallSetupWorkerTest, TheSessionIsOpenedFirstAndAgainWhenAsked)
{
    SimulatedPhone::instance().script("TAPI_CLIENT_Init", {TAPI_RESULT_SERVICE_DOWN, {}, 0, 1});
    int changes = 0;
    QObject context;
    QObject::connect(&worker, &CallSetupWorker::connectionChanged, &context, [&] { ++changes; });
    worker.run([](Engine &) {});
    EXPECT_TRUE(happens([&] { return changes == 1; }));
    EXPECT_FALSE(worker.isConnected());
    EXPECT_EQ(worker.connectionResult(), TAPI_RESULT_SERVICE_DOWN);
    worker.run([](Engine &) {}).waitForFinished(); // too soon to try again
    QCoreApplication::processEvents();
    EXPECT_EQ(changes, 1);
    worker.connectTelephony();
    EXPECT_TRUE(happens([&] { return worker.isConnected(); }));
    worker.connectTelephony(); // it is open
    worker.run([](Engine &) {}).waitForFinished();
    QCoreApplication::processEvents();
    EXPECT_EQ(changes, 2);
}

TEST_F(CallSetupWorkerTest, LeavingCarriesOutWhatWasAsked)
{
    Gate gate;
    worker.setQuitTimeout(std::chrono::minutes(1));
    worker.run([&](Engine &) { gate.pass(); });
    const QFuture<bool> write = worker.run([](Engine &engine) { return engine.setup.setRoamAlert(true); });
    std::thread opener([&] {
        while (worker.requestsInFlight() > 0) // until the worker has been told to stop
            std::this_thread::yield();
        gate.open();
    });
    EXPECT_TRUE(worker.stop());
    opener.join();
    EXPECT_TRUE(write.isFinished());
    EXPECT_TRUE(write.result());
}

TEST(SecretTest, WhatWasHandedOutIsWipedAndTheCallersTextIsNot)
{
    const QString pin = QString::fromLatin1("1234");
    const Kvq::Secret secret(pin);
    for (int use = 0; use < 2; ++use) {
        QString kept; // shares the memory that is wiped
        EXPECT_TRUE(secret.with([&](const QString &text) {
            kept = text;
            return text == pin;
        }));
        EXPECT_EQ(kept, QString(4, QChar(0)));
        EXPECT_EQ(
            secret.withLatin1([](unsigned char *text) { return QByteArray(reinterpret_cast<char *>(text)); }),
            "1234");
    }
    EXPECT_EQ(Kvq::Secret(QString::fromUtf8("\xC3\xA4\xE2\x82\xAC")).withLatin1([](unsigned char *text) {
        return QByteArray(reinterpret_cast<char *>(text));
    }),
              "\xE4?");
    EXPECT_EQ(pin, QLatin1String("1234"));
}

// A program of its own: what happens at its very end is looked at from outside.
TEST_F(CallSetupWorkerTest, ARequestThatHangsDoesNotKeepTheApplication)
{
    struct Case {
        const char *kind;
        int exitCode;
        QByteArray output;
    };
    for (const Case &expected :
         {Case{"quick", 7, "stored\nstatic object gone\n"}, Case{"hanging", 7, "stored\n"}}) {
        QProcess program;
        program.start(QStringLiteral(KVQ_LEAVING_PROGRAM), {QString::fromLatin1(expected.kind)});
        ASSERT_TRUE(program.waitForFinished(60'000)) << expected.kind;
        EXPECT_EQ(program.exitStatus(), QProcess::NormalExit) << expected.kind;
        EXPECT_EQ(program.exitCode(), expected.exitCode) << expected.kind;
        EXPECT_EQ(program.readAllStandardOutput(), expected.output) << expected.kind;
    }
}
