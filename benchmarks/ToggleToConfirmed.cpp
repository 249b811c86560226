// From a switch toggled on a screen to its value confirmed, over the same call made directly.
#include "CallSetupWorker.h"
#include "LogModule.h"
#include "SimulatedPhone.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <memory>
#include <vector>

namespace {

constexpr int rounds = 501;

/** The median of a few hundred rounds, in microseconds. */
double median(const std::function<void(bool on)> &toggle)
{
    std::vector<double> times;
    bool on = false;
    for (int round = 0; round < rounds; ++round) {
        QElapsedTimer timer;
        timer.start();
        toggle(on = !on);
        times.push_back(static_cast<double>(timer.nsecsElapsed()) / 1000);
    }
    std::nth_element(times.begin(), times.begin() + rounds / 2, times.end());
    return times[rounds / 2];
}

/** Toggles a setting of a type of the module and waits, as a screen does, in the event loop. */
double onScreen(QQmlEngine &engine, const char *type, const char *setting)
{
    QQmlComponent component(&engine);
    component.setData(QByteArray("import Kvq.CallSetup\n") + type + " { }", {});
    const std::unique_ptr<QObject> item(component.create());
    if (!item) {
        std::fprintf(stderr, "%s\n", qPrintable(component.errorString()));
        std::exit(1);
    }
    auto *const value = item->property(setting).value<QObject *>();
    QEventLoop loop;
    QObject::connect(value, SIGNAL(confirmed()), &loop, SLOT(quit()));
    value->setProperty("value", false);
    while (item->property("busy").toBool())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    return median([&](bool on) {
        value->setProperty("value", on);
        loop.exec();
    });
}

void print(const char *what, double direct, double screen)
{
    std::printf("%-34s %8.1f us directly, %8.1f us from toggled to confirmed: %+.1f us\n", what, direct,
                screen, screen - direct);
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    const QTemporaryDir directory;
    libaplog_to_module_ptr = std::fopen("/dev/null", "w");
    SimulatedPhone::instance().settings().setFile(directory.filePath(QStringLiteral("settings.cbor")));

    const double storedDirectly = median([](bool on) { PHONE_ENG_Setup::instance()->setRoamAlert(on); });
    const double askedDirectly = median([](bool on) { PHONE_ENG_Setup::instance()->setCallWaiting(on); });
    PHONE_ENG_Setup::destruction(); // from now on the worker's

    QQmlEngine engine;
    engine.addImportPath(QStringLiteral(KVQ_QML_DIR));
    print("a preference (stored on disk)", storedDirectly,
          onScreen(engine, "CallPreferences", "roamingAlert"));
    print("call waiting (no disk, no network)", askedDirectly, onScreen(engine, "CallWaiting", "enabled"));
    return 0;
}
