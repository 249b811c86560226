// The tests run without a display, and keep the settings of the simulated phone in a folder of their own.
#include "SimulatedPhoneControl.h"

#include <QAccessible>
#include <QGuiApplication>
#include <QTemporaryDir>

#include <gtest/gtest.h>

int main(int argc, char **argv)
{
    testing::InitGoogleTest(&argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    QGuiApplication application(argc, argv);
    QAccessible::setActive(true);

    const QTemporaryDir folder;
    findSimulatedPhone()->setSettingsFile(folder.filePath(QStringLiteral("settings.db")).toStdString());
    return RUN_ALL_TESTS();
}
