// The settings store: what is promised when the disk is full, the file is odd or a writer is killed.
#include "EngineTest.h"

#include "SETUP_SET_Manager.h"

#include <QCoreApplication>
#include <QFile>
#include <QSignalSpy>

#include <cerrno>

#include <csignal>
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
    int last = 0;
    for (int round = 0; round < 25; ++round) {
        int ends[2];
        ASSERT_EQ(pipe(ends), 0);
        const pid_t child = fork();
        if (child == 0) {
            for (int value = last + 1;; ++value) {
                if (!setup().setAudibleTimer(value) || ::write(ends[1], &value, sizeof value) != sizeof value)
                    std::_Exit(1);
            }
        }
        close(ends[1]);
        int answered = last;
        for (int answers = 0; answers <= round % 5; ++answers)
            ASSERT_EQ(::read(ends[0], &answered, sizeof answered), static_cast<ssize_t>(sizeof answered));
        usleep(static_cast<useconds_t>(round * 37 % 400));
        kill(child, SIGKILL);
        int next = 0;
        while (::read(ends[0], &next, sizeof next) == static_cast<ssize_t>(sizeof next))
            answered = next;
        close(ends[0]);
        int status = 0;
        waitpid(child, &status, 0);
        ASSERT_TRUE(WIFSIGNALED(status));
        last = timer();
        ASSERT_GE(last, answered);
        ASSERT_LE(last, answered + 1) << "at most the write that was not answered yet";
    }
    EXPECT_TRUE(setup().setAudibleTimer(-1)) << "the file opens clean";
}

TEST_F(SettingsStoreTest, TwoProcessesWriteAtOnce)
{
    constexpr int writes = 40;
    std::vector<pid_t> children;
    for (int slot = 1; slot <= 2; ++slot) {
        children.push_back(fork());
        if (children.back() == 0) {
            bool stored = true;
            for (int write = 1; write <= writes; ++write)
                stored = setup().setTurboDialing(slot, QString::number(write)) && stored;
            std::_Exit(stored ? 0 : 1);
        }
    }
    for (const pid_t child : children) {
        int status = 0;
        waitpid(child, &status, 0);
        EXPECT_EQ(status, 0);
    }
    EXPECT_EQ(setup().getTurboDialing(1, true), QString::number(writes));
    EXPECT_EQ(setup().getTurboDialing(2, true), QString::number(writes));
}

TEST_F(SettingsStoreTest, AStoreThatOthersKeepLockedAnswersFalse)
{
    int locked[2];
    int done[2];
    ASSERT_EQ(pipe(locked), 0);
    ASSERT_EQ(pipe(done), 0);
    const pid_t child = fork(); // before this process has a connection
    char byte = 0;
    if (child == 0) {
        SETUP_SET_Manager settings(AM_Global::CallSetup, false);
        const bool stored =
            settings.setSettingInfo(QStringLiteral("Setup"), QStringLiteral("audibleTimer"), 5)
            && ::write(locked[1], &byte, 1) == 1 && ::read(done[0], &byte, 1) == 1 && settings.flush();
        std::_Exit(stored ? 0 : 1);
    }
    ASSERT_EQ(::read(locked[0], &byte, 1), 1);
    phone.settings().setBusyTimeout(50);
    EXPECT_FALSE(setup().setReminder(false));
    EXPECT_EQ(errno, EBUSY);
    ASSERT_EQ(::write(done[1], &byte, 1), 1);
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    phone.settings().setBusyTimeout(5000);
    EXPECT_TRUE(setup().setReminder(false));
    EXPECT_EQ(timer(), 5);
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
