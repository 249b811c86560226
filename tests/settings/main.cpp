// The tests run without a display, and keep the settings of the simulated phone in a folder of their own.
#include "SimulatedPhoneControl.h"

#include <QAccessible>
#include <QGuiApplication>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cstdio>

namespace {

/** What the application says about its own pages is a fault in them. */
void hear(QtMsgType type, const QMessageLogContext &, const QString &message)
{
    std::fprintf(stderr, "%s\n", qPrintable(message));
    if (type != QtDebugMsg && type != QtInfoMsg && message.startsWith(QLatin1String("qrc:")))
        ADD_FAILURE() << message.toStdString();
}

} // namespace

int main(int argc, char **argv)
{
    testing::InitGoogleTest(&argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    qInstallMessageHandler(hear);
    QGuiApplication application(argc, argv);
    QAccessible::setActive(true);

    const QTemporaryDir folder;
    findSimulatedPhone()->setSettingsFile(folder.filePath(QStringLiteral("settings.cbor")).toStdString());
    return RUN_ALL_TESTS();
}
