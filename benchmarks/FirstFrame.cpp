// How long the settings application takes to its first frame, and what it keeps in memory, against a bare window.
// usage: first_frame settings|bare
#include "Application.h"

#include <QElapsedTimer>
#include <QFile>
#include <QGuiApplication>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QTimer>

#include <cstdio>
#include <memory>

namespace {

/** Resident memory of this process in KiB. */
int residentMemory()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    const QList<QByteArray> lines = status.readAll().split('\n');
    for (const QByteArray &line : lines) {
        if (line.startsWith("VmRSS:"))
            return line.mid(6).trimmed().split(' ').constFirst().toInt();
    }
    return 0;
}

} // namespace

int main(int argc, char **argv)
{
    QElapsedTimer clock;
    clock.start();
    QGuiApplication gui(argc, argv);
    const bool bare = argc > 1 && qstrcmp(argv[1], "bare") == 0;

    std::unique_ptr<Application> application;
    QQmlEngine engine;
    std::unique_ptr<QObject> root;
    QQuickWindow *window = nullptr;
    if (bare) {
        QQmlComponent component(&engine);
        component.setData("import QtQuick; Window { width: 400; height: 800; visible: true }", QUrl());
        root.reset(component.create());
        window = qobject_cast<QQuickWindow *>(root.get());
    } else {
        Options options;
        options.desk = false;
        application = std::make_unique<Application>(options);
        window = application->window();
    }
    if (!window) {
        std::fprintf(stderr, "error: there is no window\n");
        return 1;
    }

    const auto tell = [&] {
        static qint64 frame = -1;
        if (frame >= 0)
            return;
        frame = clock.elapsed();
        // What is read after the start belongs to the memory as well.
        QTimer::singleShot(1000, &gui, [] {
            std::printf("%lld ms %d KiB\n", static_cast<long long>(frame), residentMemory());
            QCoreApplication::quit();
        });
    };
    QObject::connect(window, &QQuickWindow::frameSwapped, window, tell);
    window->requestUpdate();
    return QGuiApplication::exec();
}
