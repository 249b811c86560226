// How long the event loop of the settings application stands still while a page opens and the phone takes two seconds for
// every answer. Fails at 50 ms, which a finger would notice.
#include "Application.h"
#include "EventLoopWatch.h"
#include "SimulatedPhoneControl.h"

#include <QEventLoop>
#include <QGuiApplication>
#include <QQuickWindow>
#include <QTimer>

#include <cstdio>

namespace {

using namespace std::chrono_literals;

constexpr std::chrono::milliseconds limit = 50ms;

void turn(std::chrono::milliseconds duration)
{
    QEventLoop loop;
    QTimer::singleShot(duration, &loop, &QEventLoop::quit);
    loop.exec();
}

} // namespace

int main(int argc, char **argv)
{
    const QGuiApplication gui(argc, argv);
    SimulatedPhoneControl *const phone = findSimulatedPhone();
    Options options;
    options.desk = false;
    const Application application(options);
    QQuickWindow *const window = application.window();
    if (!phone || !window) {
        std::fprintf(stderr, "error: there is no %s\n", window ? "simulated phone" : "window");
        return 1;
    }
    turn(2s); // what is loaded once is loaded now
    const QVariantList pages = window->property("pages").value<QObject *>()->property("offered").toList();
    phone->setDelay("*", 2s);
    std::chrono::milliseconds longest{};
    EventLoopWatch watch;
    for (const QVariant &page : pages) {
        const QString name = page.value<QObject *>()->property("name").toString();
        watch.start();
        QMetaObject::invokeMethod(window, "open", Qt::QueuedConnection, Q_ARG(QString, name));
        turn(400ms);
        QMetaObject::invokeMethod(window, "back", Qt::QueuedConnection);
        turn(100ms);
        longest = std::max(longest, watch.longestGap());
    }
    phone->setDelay("*", 0s);
    const bool holds = !pages.isEmpty() && longest < limit;
    std::printf("%-54s %9lld ms %4lld ms  %s\n", "longest stop of the event loop as a page opens",
                static_cast<long long>(longest.count()), static_cast<long long>(limit.count()),
                holds ? "holds" : "EXCEEDED");
    return holds ? 0 : 1;
}
