// The program: it reads its arguments and shows the window.
#include "Application.h"

#include <QGuiApplication>
#include <QIcon>

int main(int argc, char **argv)
{
    QGuiApplication gui(argc, argv);
    QGuiApplication::setApplicationName(QStringLiteral("kvq-settings"));
    QGuiApplication::setApplicationVersion(QStringLiteral(KVQ_VERSION));
    QGuiApplication::setDesktopFileName(QStringLiteral("kvq-settings"));
    QGuiApplication::setWindowIcon(
        QIcon::fromTheme(QStringLiteral("kvq-settings"), QIcon(QStringLiteral(":/icon/kvq-settings.svg"))));

    const Application application(Options::ofCommandLine());
    return application.isGood() ? QGuiApplication::exec() : 1;
}
