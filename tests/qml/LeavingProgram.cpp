// An application that leaves while its last request runs: "quick", or "hanging" for ever.
#include "CallSetupWorker.h"
#include "SimulatedPhone.h"

#include <QCoreApplication>
#include <QTemporaryDir>
#include <QTimer>

#include <cstdio>
#include <string_view>
#include <thread>

namespace {

struct Witness {
    ~Witness() { std::puts("static object gone"); }
};

const Witness witness;

} // namespace

int main(int argc, char **argv)
{
    const QTemporaryDir directory; // outlives the application, which still writes when it goes
    QCoreApplication application(argc, argv);
    SimulatedPhone &phone = SimulatedPhone::instance();
    phone.settings().setFile(directory.filePath(QStringLiteral("settings.cbor")));
    const bool hangs = argc > 1 && std::string_view(argv[1]) == "hanging";
    phone.setAnswerer([hangs](std::string_view function) -> const ScriptedAnswer * {
        if (hangs && function == "TAPI_CS_SelectLine")
            std::this_thread::sleep_for(std::chrono::hours(1));
        return nullptr;
    });

    Kvq::CallSetupWorker &worker = Kvq::CallSetupWorker::instance();
    worker.setQuitTimeout(std::chrono::milliseconds(hangs ? 300 : 60'000));
    QFuture<void> written = worker.run([](Kvq::Engine &engine) {
        if (engine.setup.setRoamAlert(true))
            std::puts("stored");
    });
    worker.run([](Kvq::Engine &engine) { return engine.setup.setLineNo(2); });
    if (hangs)
        written.waitForFinished();
    QTimer::singleShot(0, &application, [] { QCoreApplication::exit(7); });
    return QCoreApplication::exec();
}
