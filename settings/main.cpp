// The program: it reads its arguments and shows the window.
#include "Application.h"
#include "SingleInstance.h"

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

    const Options options = Options::ofCommandLine();
    SingleInstance instance;
    if (options.sharesWindow()) {
        if (const std::optional<int> status = instance.handOver({options.page, options.number}))
            return *status;
    }
    const Application application(options);
    if (!application.isGood())
        return 1;
    instance.serve([&application](const SingleInstance::Wish &wish) { return application.show(wish); });
    return QGuiApplication::exec();
}
