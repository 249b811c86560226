// The program: it reads its arguments and shows the window.
#include "Application.h"

#include <QGuiApplication>
#include <QIcon>

#include <sys/prctl.h>

int main(int argc, char **argv)
{
    prctl(PR_SET_DUMPABLE,
          0); // else PINs could end in a dump of the memory, or before other programs of the user
    QGuiApplication gui(argc, argv);
    QGuiApplication::setApplicationName(QStringLiteral("kvq-settings"));
    QGuiApplication::setApplicationVersion(QStringLiteral(KVQ_VERSION));
    QGuiApplication::setDesktopFileName(QStringLiteral("kvq-settings"));
    QGuiApplication::setWindowIcon(
        QIcon::fromTheme(QStringLiteral("kvq-settings"), QIcon(QStringLiteral(":/icon/kvq-settings.svg"))));

    const Application application(Options::ofCommandLine());
    return application.isGood() ? QGuiApplication::exec() : 1;
}
