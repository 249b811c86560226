// An application with an event loop: one thread owns the engine, and the loop never waits for it.
#include <LogModule.h>
#include <PHONE_ENG_Setup.h>
#include <PHONE_ENG_WrapTapi.h>

#include <QCoreApplication>
#include <QDebug>
#include <QObject>
#include <QThread>

#include <cstdio>

/** Lives on the engine's thread. Each slot is one request; its signal carries the answer to the screen's thread. */
class EngineWorker : public QObject {
    Q_OBJECT

public Q_SLOTS:
    void open()
    {
        PHONE_ENG_TAPI_initiation();
        // The engine's object is made here, so it belongs to this thread.
        connect(PHONE_ENG_Setup::instance(), &PHONE_ENG_Setup::flashFull, this, &EngineWorker::diskFull);
    }

    void readForwarding()
    {
        bool active = false;
        QString number;
        const int result =
            PHONE_ENG_Setup::instance()->getVoiceCallsDivert(active, number, TAPI_CS_DIVERT_NO_REPLY);
        Q_EMIT forwardingRead(result, active, number);
    }

    void close() { PHONE_ENG_Setup::destruction(); }

Q_SIGNALS:
    void forwardingRead(int result, bool active, const QString &number);
    void diskFull();
};

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);

    // The engine's log shows numbers and PINs in clear. It goes where KVQ_LOG says, and nowhere without it.
    if (!libaplog_to_module_ptr)
        libaplog_to_module_ptr = std::fopen("/dev/null", "we");

    QThread thread;
    EngineWorker worker;
    worker.moveToThread(&thread);
    QObject::connect(&thread, &QThread::started, &worker, &EngineWorker::open);
    QObject::connect(&thread, &QThread::finished, &worker, &EngineWorker::close, Qt::DirectConnection);

    // A screen asks with an invocation that is queued, and hears the answer in its own event loop.
    QObject::connect(&worker, &EngineWorker::forwardingRead, &application,
                     [](int result, bool active, const QString &number) {
                         qInfo() << "forwarded on no reply:" << active << number << "result" << result;
                         QCoreApplication::quit();
                     });
    thread.start();
    QMetaObject::invokeMethod(&worker, &EngineWorker::readForwarding, Qt::QueuedConnection);
    const int status = QCoreApplication::exec();
    thread.quit();
    thread.wait(); // what was asked is done
    return status;
}

#include "worker.moc"
