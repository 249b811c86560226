// The settings store behind the engine: a full store, a protected file, types, and collections of others.
#include "EngineTest.h"

#include "SETUP_SET_Manager.h"
#include "SettingsAccess.h"

#include <QCoreApplication>
#include <QFile>
#include <QSignalSpy>

#include <cerrno>

#include <sys/stat.h>

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
    QSignalSpy flashFull(&setup(), SIGNAL(flashFull()));
    EXPECT_FALSE(setup().setTurboDialing(1, QString(5'000'000, QLatin1Char('5'))));
    EXPECT_EQ(errno, ENOSPC);
    EXPECT_EQ(flashFull.count(), 0);
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(flashFull.count(), 1);
    EXPECT_EQ(setup().getTurboDialing(1, true), QStringLiteral("5551234"));
    EXPECT_TRUE(setup().setTurboDialing(1, QString(20'000, QLatin1Char('5'))));
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

TEST_F(SettingsStoreTest, AStoreThatOthersKeepLockedAnswersFalse)
{
    SettingsStore other;
    other.setFile(settingsFile());
    SettingsAccess settings(other, AM_Global::CallSetup, false);
    ASSERT_TRUE(settings.write(QStringLiteral("Setup"), QStringLiteral("audibleTimer"), 5));
    phone.settings().setPatience(std::chrono::milliseconds(50));
    EXPECT_FALSE(setup().setReminder(false));
    EXPECT_EQ(errno, EBUSY);
    EXPECT_TRUE(settings.flush());
    phone.settings().setPatience(std::chrono::seconds(5));
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

} // namespace
