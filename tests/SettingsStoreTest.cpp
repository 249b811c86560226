// The settings store: what is promised when the disk is full, the file is odd or a writer is killed.
#include "EngineTest.h"

#include "SETUP_SET_Manager.h"
#include "SettingsStore.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QSignalSpy>

#include <cerrno>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

class SettingsStoreTest : public EngineTest {
protected:
    SettingsStoreTest() { phone.setJournalEnabled(false); }

    int timer()
    {
        int value = 0;
        setup().getAudibleTimer(value);
        return value;
    }

    QString writtenScript(const QString &name, const QByteArray &lines) const
    {
        QFile script(settingsFile() + QLatin1Char('.') + name);
        EXPECT_TRUE(script.open(QIODevice::WriteOnly) && script.write(lines) == lines.size());
        return script.fileName();
    }

    /** Starts another program of the phone with the same settings. */
    void startConsole(QProcess &console, const QString &script) const
    {
        console.start(QStringLiteral(KVQ_CONSOLE),
                      {QStringLiteral("-q"), QStringLiteral("--settings"), settingsFile(),
                       QStringLiteral("--script"), script});
    }
};

TEST_F(SettingsStoreTest, AStoreThatIsFullRefusesAWriteAndOneSignalFollows)
{
    ASSERT_TRUE(setup().setTurboDialing(1, QStringLiteral("5551234")));
    phone.settings().limitPages(3);
    QSignalSpy flashFull(&setup(), SIGNAL(flashFull()));
    EXPECT_FALSE(setup().setTurboDialing(1, QString(20000, QLatin1Char('5'))));
    EXPECT_EQ(errno, ENOSPC);
    EXPECT_EQ(flashFull.count(), 0);
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(flashFull.count(), 1);
    EXPECT_EQ(setup().getTurboDialing(1, true), QStringLiteral("5551234"));
    phone.settings().limitPages(0);
    EXPECT_TRUE(setup().setTurboDialing(1, QString(20000, QLatin1Char('5'))));
}

TEST_F(SettingsStoreTest, AFileThatMayNotBeWrittenIsReadAndRaisesNoSignal)
{
    ASSERT_TRUE(setup().setAudibleTimer(7));
    ASSERT_EQ(chmod(settingsFile().toLocal8Bit().constData(), 0444), 0);
    phone.settings().setFile(settingsFile());
    QSignalSpy flashFull(&setup(), SIGNAL(flashFull()));
    EXPECT_FALSE(setup().setAudibleTimer(8));
    EXPECT_EQ(errno, EROFS);
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(flashFull.count(), 0);
    EXPECT_EQ(timer(), 7);
}

TEST_F(SettingsStoreTest, ADamagedFileIsReportedOnceAndNeverOverwritten)
{
    const QByteArray damage(5000, 'x');
    QFile file(settingsFile());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(damage);
    file.close();
    testing::internal::CaptureStderr();
    EXPECT_EQ(timer(), -1);
    EXPECT_FALSE(setup().setAudibleTimer(8));
    EXPECT_EQ(errno, EUCLEAN);
    EXPECT_FALSE(setup().setTurboDialing(QStringList{QStringLiteral("5")}));
    const std::string report = testing::internal::GetCapturedStderr();
    EXPECT_NE(report.find("is damaged"), std::string::npos);
    EXPECT_EQ(std::count(report.begin(), report.end(), '\n'), 1);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), damage);
}

TEST_F(SettingsStoreTest, AReadLeavesNoFileBehindAndAReplacedFileIsSeen)
{
    EXPECT_EQ(timer(), -1);
    EXPECT_FALSE(QFile::exists(settingsFile()));
    ASSERT_TRUE(setup().setAudibleTimer(7));
    const QString other = settingsFile() + QStringLiteral(".new");
    phone.settings().setFile(other);
    ASSERT_TRUE(setup().setAudibleTimer(9));
    phone.settings().setFile(settingsFile());
    EXPECT_EQ(timer(), 7);
    ASSERT_EQ(rename(other.toLocal8Bit().constData(), settingsFile().toLocal8Bit().constData()), 0);
    EXPECT_EQ(timer(), 9);
    QFile::remove(settingsFile());
    EXPECT_EQ(timer(), -1);
}

TEST_F(SettingsStoreTest, TypesUnderOneNameAreKeptApart)
{
    const QString group = QStringLiteral("Setup");
    const QString key = QStringLiteral("reminder");
    SETUP_SET_Manager settings(AM_Global::CallSetup, true);
    ASSERT_TRUE(settings.setSettingInfo(group, key, 12));
    ASSERT_TRUE(settings.setSettingInfo(group, key, QStringLiteral("\u6D4B"), false));
    EXPECT_TRUE(setup().isReminder()) << "no bool is stored, so the default";
    ASSERT_TRUE(setup().setReminder(false));
    int number = 0;
    QString text;
    settings.getSettingInfo(group, key, number, 0);
    settings.getSettingInfo(group, key, text, QString(), false);
    EXPECT_EQ(number, 12);
    EXPECT_EQ(text, QStringLiteral("\u6D4B"));
}

TEST_F(SettingsStoreTest, CollectedWritesAreSeenByOthersWhenTheObjectGoes)
{
    {
        SETUP_SET_Manager settings(AM_Global::CallSetup, false);
        ASSERT_TRUE(settings.setSettingInfo(QStringLiteral("Setup"), QStringLiteral("audibleTimer"), 5));
        EXPECT_FALSE(setup().setReminder(false)) << "the collection holds the store";
        EXPECT_EQ(errno, EBUSY);
        EXPECT_EQ(inAnotherProcess("getAudibleTimer"), "timer = -1\nresult = true\n");
    }
    EXPECT_EQ(inAnotherProcess("getAudibleTimer"), "timer = 5\nresult = true\n");
    EXPECT_TRUE(setup().setReminder(false));
}

TEST_F(SettingsStoreTest, AKilledWriterLosesNothingThatWasAnsweredWithTrue)
{
    QByteArray lines;
    for (int value = 1; value <= 5000; ++value)
        lines += "setAudibleTimer " + QByteArray::number(value) + '\n';
    const QString script = writtenScript(QStringLiteral("writer"), lines);
    for (int round = 0; round < 20; ++round) {
        ASSERT_TRUE(setup().setAudibleTimer(-1)) << "the file opens clean";
        QProcess writer;
        startConsole(writer, script);
        int answered = 0;
        while (answered <= round % 5) {
            ASSERT_TRUE(writer.canReadLine() || writer.waitForReadyRead());
            answered += writer.canReadLine() && writer.readLine() == "result = true\n" ? 1 : 0;
        }
        usleep(static_cast<useconds_t>(round * 37 % 400));
        writer.kill();
        ASSERT_TRUE(writer.waitForFinished());
        ASSERT_EQ(writer.exitStatus(), QProcess::CrashExit);
        answered += static_cast<int>(writer.readAllStandardOutput().count("result = true\n"));
        ASSERT_GE(timer(), answered);
        ASSERT_LE(timer(), answered + 1) << "at most the write that was not answered yet";
    }
}

TEST_F(SettingsStoreTest, TwoProcessesWriteAtOnce)
{
    constexpr int writes = 40;
    QProcess writers[2];
    for (int slot = 1; slot <= 2; ++slot) {
        QByteArray lines;
        for (int write = 1; write <= writes; ++write)
            lines += QStringLiteral("setTurboDialing %1 %2\n").arg(slot).arg(write).toLatin1();
        startConsole(writers[slot - 1], writtenScript(QString::number(slot), lines));
    }
    for (QProcess &writer : writers) {
        ASSERT_TRUE(writer.waitForFinished());
        EXPECT_EQ(writer.readAllStandardOutput().count("result = true\n"), writes);
    }
    EXPECT_EQ(setup().getTurboDialing(1, true), QString::number(writes));
    EXPECT_EQ(setup().getTurboDialing(2, true), QString::number(writes));
}

TEST_F(SettingsStoreTest, AStoreThatOthersKeepLockedAnswersFalse)
{
    SettingsStore other;
    other.setFile(settingsFile());
    const SettingsStore::Name name{AM_Global::CallSetup, QStringLiteral("Setup"),
                                   QStringLiteral("audibleTimer")};
    ASSERT_TRUE(other.writeInteger(name, SettingsStore::Type::Int, 5, this));
    phone.settings().setBusyTimeout(50);
    EXPECT_FALSE(setup().setReminder(false));
    EXPECT_EQ(errno, EBUSY);
    EXPECT_TRUE(other.commit(this));
    phone.settings().setBusyTimeout(5000);
    EXPECT_TRUE(setup().setReminder(false));
    EXPECT_EQ(timer(), 5);
}

TEST_F(SettingsStoreTest, AForkedChildHasAConnectionOfItsOwn)
{
#ifdef KVQ_EMULATED
    GTEST_SKIP() << "the emulator has a thread, so a forked child of it must not go on";
#endif
    ASSERT_TRUE(setup().setAudibleTimer(1));
    const pid_t child = fork();
    if (child == 0)
        std::_Exit(timer() == 1 && setup().setAudibleTimer(2) ? 0 : 1);
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(timer(), 2);
    EXPECT_TRUE(setup().setAudibleTimer(3)) << "the child's end took no lock of the parent away";
}

TEST_F(SettingsStoreTest, ARefusedFlushOrWriteGivesTheWholeCollectionUp)
{
    for (const char *refused : {"SETUP_SET_Manager::flush", "SETUP_SET_Manager::setSettingInfo"}) {
        SCOPED_TRACE(refused);
        ScriptedAnswer once;
        once.times = 1;
        phone.script(refused, once);
        EXPECT_FALSE(setup().setTurboDialing(QStringList{QStringLiteral("1"), QStringLiteral("2")}));
        EXPECT_EQ(setup().getTurboDialing(1, true) + setup().getTurboDialing(2, true), QString());
    }
    EXPECT_TRUE(setup().setTurboDialing(QStringList{QStringLiteral("1")}));
}

TEST_F(SettingsStoreTest, PermissionsCountAsTheyAreNow)
{
    const QByteArray file = settingsFile().toLocal8Bit();
    ASSERT_TRUE(setup().setAudibleTimer(7));
    ASSERT_EQ(chmod(file.constData(), 0444), 0);
    EXPECT_FALSE(setup().setAudibleTimer(8));
    ASSERT_EQ(chmod(file.constData(), 0644), 0);
    EXPECT_TRUE(setup().setAudibleTimer(8));
}

} // namespace
