// The settings store by itself: odd files, older files, modes, forks and threads.
#include "FailingDisk.h"
#include "SETUP_SET_Manager.h"
#include "SettingsAccess.h"
#include "SettingsStore.h"
#include "SimulatedPhone.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <limits>
#include <string>
#include <thread>
#include <vector>

#include <csignal>
#include <fcntl.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

const SettingsStore::Name audibleTimer = {4, QStringLiteral("Setup"), QStringLiteral("audibleTimer")};
const SettingsStore::Name reminder = {4, QStringLiteral("Setup"), QStringLiteral("reminder")};

/** For a function that exit() calls. */
SettingsStore *onTheWayOut = nullptr;

class StoreTest : public testing::Test {
protected:
    StoreTest() { store.setFile(m_file); }

    int timer() { return store.readInteger(audibleTimer, SettingsStore::Type::Int).value_or(-1); }
    bool setTimer(int value)
    {
        return store.writeInteger(audibleTimer, SettingsStore::Type::Int, value, nullptr);
    }
    bool setReminder() { return store.writeInteger(reminder, SettingsStore::Type::Bool, 0, nullptr); }

    std::string path() const { return m_file.toStdString(); }

    /** What the sqlite tool would do to the file, all in one go. */
    void throughSqlite(const char *sql)
    {
        sqlite3 *connection = nullptr;
        ASSERT_EQ(sqlite3_open(path().c_str(), &connection), SQLITE_OK);
        ASSERT_EQ(sqlite3_exec(connection, sql, nullptr, nullptr, nullptr), SQLITE_OK)
            << sqlite3_errmsg(connection);
        sqlite3_close(connection);
    }

    QByteArray content() const
    {
        QFile file(m_file);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    void setContent(const QByteArray &bytes)
    {
        QFile file(m_file);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    static mode_t modeOf(const std::string &file)
    {
        struct stat status = {};
        return stat(file.c_str(), &status) == 0 ? status.st_mode & 07777 : 0;
    }

    /** Runs a part in a child of fork and says whether it was content. */
    template <typename Body>
    static bool holdsInChild(Body body)
    {
        const pid_t child = fork();
        if (child == 0)
            std::_Exit(body() ? 0 : 1);
        int status = 0;
        waitpid(child, &status, 0);
        return status == 0;
    }

    QTemporaryDir m_directory;
    QString m_file = m_directory.filePath(QStringLiteral("settings.db"));
    SettingsStore store;
};

/** How many bytes of a file other processes have locked. */
int locks(int file, off_t begin = 0, off_t end = std::numeric_limits<off_t>::max())
{
    struct flock lock = {};
    lock.l_type = F_WRLCK;
    lock.l_start = begin;
    lock.l_len = end - begin;
    if (begin == end || fcntl(file, F_OFD_GETLK, &lock) != 0 || lock.l_type == F_UNLCK)
        return 0;
    return 1 + locks(file, begin, lock.l_start) + locks(file, lock.l_start + 1, end);
}

/** The file as it was before it had a version. */
constexpr char olderFile[] = "CREATE TABLE IF NOT EXISTS settings (app INTEGER NOT NULL, grp TEXT NOT NULL, "
                             "key TEXT NOT NULL, type INTEGER NOT NULL, value NOT NULL, "
                             "PRIMARY KEY (app, grp, key, type)) WITHOUT ROWID;"
                             "INSERT INTO settings VALUES (4, 'Setup', 'audibleTimer', 1, 7)";

TEST_F(StoreTest, WhatCannotBeReadIsReportedOnceAndUsedAgainWhenItIsMended)
{
    ASSERT_TRUE(setTimer(7));
    const QByteArray good = content();
    QByteArray newer = good;
    newer[63] = 2;
    QByteArray foreign = good;
    foreign[71] = 'X';
    const struct {
        QByteArray bytes;
        const char *report;
        int reason;
    } cases[] = {
        {good.left(good.size() - 1), "its length is not what its header says", EUCLEAN},
        {good + "more", "its length is not what its header says", EUCLEAN},
        {good.left(50), "no header", EUCLEAN},
        {newer, "is of version 2, newer than this program", EMEDIUMTYPE},
        {foreign, "another application's mark", EMEDIUMTYPE},
    };
    for (const auto &bad : cases) {
        SCOPED_TRACE(bad.report);
        store.setFile(m_file); // which forgets what was reported
        EXPECT_EQ(timer(), 7);
        setContent(bad.bytes);
        testing::internal::CaptureStderr();
        EXPECT_EQ(timer(), -1);
        EXPECT_EQ(timer(), -1);
        EXPECT_FALSE(setTimer(8));
        EXPECT_EQ(errno, bad.reason);
        const std::string report = testing::internal::GetCapturedStderr();
        EXPECT_NE(report.find(bad.report), std::string::npos) << report;
        EXPECT_EQ(std::count(report.begin(), report.end(), '\n'), 1) << report;
        EXPECT_EQ(content(), bad.bytes);
        setContent(good); // in place
        EXPECT_EQ(timer(), 7);
        EXPECT_TRUE(setTimer(7));
    }
}

TEST_F(StoreTest, AReadThatFailsHasNoEffectOnTheNextOne)
{
    SettingsStore other;
    other.setFile(m_file);
    ASSERT_TRUE(setTimer(7));
    EXPECT_EQ(timer(), 7);
    ASSERT_TRUE(other.writeInteger(audibleTimer, SettingsStore::Type::Int, 8, nullptr));
    for (const int error : {EIO, ENOMEM}) {
        SCOPED_TRACE(error);
        const bool passes = error == ENOMEM; // so what is known is better than the default
        FailingDisk::failReads(error);
        testing::internal::CaptureStderr();
        EXPECT_EQ(timer(), passes ? 7 : -1);
        EXPECT_FALSE(setTimer(9));
        EXPECT_EQ(errno, error);
        FailingDisk::repair();
        EXPECT_NE(testing::internal::GetCapturedStderr().find("cannot be read"), std::string::npos);
        EXPECT_EQ(timer(), 8);
        EXPECT_TRUE(setTimer(7));
        ASSERT_TRUE(other.writeInteger(audibleTimer, SettingsStore::Type::Int, 8, nullptr));
    }
}

TEST_F(StoreTest, AnEmptyFileIsAnEmptyStoreUnlessAJournalStandsBesideIt)
{
    setContent({});
    QFile journal(m_file + QStringLiteral("-journal"));
    ASSERT_TRUE(journal.open(QIODevice::WriteOnly) && journal.write("something") > 0);
    journal.close();
    testing::internal::CaptureStderr();
    EXPECT_EQ(timer(), -1);
    EXPECT_FALSE(setTimer(8));
    EXPECT_NE(testing::internal::GetCapturedStderr().find("a journal beside it"), std::string::npos);
    ASSERT_TRUE(journal.remove());
    EXPECT_TRUE(setTimer(8));
    EXPECT_EQ(timer(), 8);
}

TEST_F(StoreTest, AnOlderFileIsTakenOverWithItsJournal)
{
    for (const bool interrupted : {false, true}) {
        SCOPED_TRACE(interrupted);
        QFile::remove(m_file);
        throughSqlite(olderFile);
        if (interrupted) {
            // A writer of that time is killed with its new value in the file and the old one in the journal.
            EXPECT_FALSE(holdsInChild([this] {
                sqlite3 *connection = nullptr;
                sqlite3_open(path().c_str(), &connection);
                sqlite3_exec(connection,
                             "PRAGMA cache_size = 1; PRAGMA cache_spill = 1; BEGIN; "
                             "UPDATE settings SET value = 99; WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL "
                             "SELECT i + 1 FROM n WHERE i < 2000) INSERT INTO settings "
                             "SELECT 4, 'Setup', 'key' || i, 2, 'some text that takes space' FROM n",
                             nullptr, nullptr, nullptr);
                return kill(getpid(), SIGKILL) != 0;
            }));
            ASSERT_TRUE(QFile::exists(m_file + QStringLiteral("-journal")));
        }
        EXPECT_EQ(timer(), 7);
        EXPECT_TRUE(setReminder());
        EXPECT_EQ(timer(), 7);
        EXPECT_EQ(content().mid(68, 4), QByteArray("KVQS"));
    }
}

TEST_F(StoreTest, WhatAnotherToolWritesInPlaceIsSeen)
{
    ASSERT_TRUE(setTimer(7));
    throughSqlite("UPDATE settings SET value = 9");
    EXPECT_EQ(timer(), 9);
    throughSqlite("UPDATE settings SET value = 'nine'");
    EXPECT_EQ(timer(), -1) << "a value of another type is as if it were absent";

    // A tool that is stopped in the middle of its work, with what it writes ahead beside the file.
    sqlite3 *connection = nullptr;
    ASSERT_EQ(sqlite3_open(path().c_str(), &connection), SQLITE_OK);
    sqlite3_exec(connection, "PRAGMA journal_mode = WAL; UPDATE settings SET value = 11; BEGIN IMMEDIATE",
                 nullptr, nullptr, nullptr);
    EXPECT_EQ(timer(), 11);
    testing::internal::CaptureStderr();
    EXPECT_FALSE(setTimer(12));
    EXPECT_EQ(errno, EBUSY);
    EXPECT_NE(testing::internal::GetCapturedStderr().find("in place"), std::string::npos);
    EXPECT_EQ(timer(), 11);
    sqlite3_close(connection);
    EXPECT_TRUE(setTimer(12));
    EXPECT_EQ(timer(), 12);
}

TEST_F(StoreTest, FileAndFolderAreTheUsersOwnWhateverTheMask)
{
    const std::string folder = path() + ".d/inner";
    const std::string file = folder + "/settings.db";
    for (const mode_t mask : {0000u, 0777u}) {
        SCOPED_TRACE(mask);
        QDir(QString::fromStdString(path() + ".d")).removeRecursively();
        store.setFile(QString::fromStdString(file));
        const mode_t before = umask(mask);
        EXPECT_TRUE(setTimer(7));
        umask(before);
        EXPECT_EQ(modeOf(folder), 0700u);
        EXPECT_EQ(modeOf(path() + ".d"), 0700u);
        EXPECT_EQ(modeOf(file), 0600u);
        EXPECT_EQ(modeOf(file + "-lock"), 0600u);
    }
    ASSERT_EQ(chmod(file.c_str(), 0640), 0);
    ASSERT_EQ(chmod(folder.c_str(), 0750), 0);
    EXPECT_TRUE(setTimer(8));
    EXPECT_EQ(modeOf(file), 0640u) << "what is there keeps its mode";
    EXPECT_EQ(modeOf(folder), 0750u);
    EXPECT_EQ(modeOf(file + "-lock"), 0640u) << "who may write the file may stand in line for it";
}

TEST_F(StoreTest, EachVersionIsLaterThanTheOneBeforeWhateverTheClockSays)
{
    ASSERT_TRUE(setTimer(1));
    const timespec ahead[] = {{2'000'000'000, 999'999'999}, {2'000'000'000, 999'999'999}};
    ASSERT_EQ(utimensat(AT_FDCWD, path().c_str(), ahead, 0), 0);
    SettingsStore reader;
    reader.setFile(m_file);
    for (int value = 2; value < 5; ++value) {
        EXPECT_TRUE(setTimer(value));
        EXPECT_EQ(reader.readInteger(audibleTimer, SettingsStore::Type::Int), value);
        struct stat status = {};
        ASSERT_EQ(stat(path().c_str(), &status), 0);
        EXPECT_EQ(status.st_mtim.tv_sec, ahead->tv_sec + 1);
        EXPECT_EQ(status.st_mtim.tv_nsec, value - 2);
    }
}

TEST_F(StoreTest, ALinkIsFollowedAndStays)
{
    const QString link = m_file + QStringLiteral(".link");
    ASSERT_TRUE(setTimer(7));
    ASSERT_TRUE(QFile::link(m_file, link));
    store.setFile(link);
    EXPECT_EQ(timer(), 7);
    EXPECT_TRUE(setTimer(8));
    EXPECT_EQ(timer(), 8);
    EXPECT_TRUE(QFileInfo(link).isSymLink());
    store.setFile(m_file);
    EXPECT_EQ(timer(), 8);
}

TEST_F(StoreTest, AChildOfForkLeavesTheParentsCollectionAlone)
{
    const QString group = QStringLiteral("Setup");
    const QString key = QStringLiteral("audibleTimer");
    ASSERT_TRUE(setTimer(1));
    SettingsAccess settings(store, 4, false);
    ASSERT_TRUE(settings.write(group, key, 5));
    store.setBusyTimeout(std::numeric_limits<int>::max()); // a child that waited would hang
    EXPECT_TRUE(holdsInChild([&] {
        testing::internal::CaptureStderr();
        const bool refused = !setReminder() && errno == EBUSY;
        const bool flushed = settings.flush();
        settings.~SettingsAccess();
        return refused && !flushed && timer() == 1;
    }));
    EXPECT_EQ(timer(), 1) << "collected values are seen by nobody else";
    EXPECT_TRUE(settings.flush());
    EXPECT_EQ(timer(), 5);
    EXPECT_TRUE(holdsInChild([this] { return setReminder(); }));
    EXPECT_EQ(store.readInteger(reminder, SettingsStore::Type::Bool), 0);
}

TEST_F(StoreTest, AChildOfForkWritesInItsTurnWhileAnotherThreadOfTheParentWrites)
{
    std::atomic<bool> done = false;
    bool good = setTimer(0);
    std::thread writer([&] {
        for (int value = 0; !done; ++value)
            good = setTimer(value) && good;
    });
    for (int round = 0; round < 4; ++round)
        EXPECT_TRUE(holdsInChild([this] { return setReminder() && timer() >= 0; }));
    done = true;
    writer.join();
    EXPECT_TRUE(good);
}

TEST_F(StoreTest, WhoWaitsLongestWritesNextAndWhoIsStoppedIsPassedBy)
{
    const int collector = 0;
    ASSERT_TRUE(store.writeInteger(audibleTimer, SettingsStore::Type::Int, 0, &collector));
    const int lockFile = open((path() + "-lock").c_str(), O_RDWR | O_CLOEXEC);
    std::array<int, 2> ends = {};
    ASSERT_EQ(pipe(ends.data()), 0);
    std::array<pid_t, 3> children = {};
    for (int number = 1; number <= 3; ++number) {
        pid_t &child = children[static_cast<std::size_t>(number - 1)];
        child = fork();
        if (child == 0) {
            SettingsStore own;
            own.setFile(m_file);
            const int answer =
                own.writeInteger(audibleTimer, SettingsStore::Type::Int, number, nullptr) ? number : 0;
            std::_Exit(write(ends[1], &answer, sizeof answer) == sizeof answer ? 0 : 1);
        }
        for (int look = 0; look < 1000 && locks(lockFile) != 1 + number; ++look)
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        ASSERT_EQ(locks(lockFile), 1 + number);
    }
    const auto next = [&] {
        int number = -1;
        return read(ends[0], &number, sizeof number) == sizeof number ? number : -1;
    };
    kill(children[1], SIGSTOP);
    waitpid(children[1], nullptr, WUNTRACED);
    EXPECT_TRUE(store.commit(&collector));
    EXPECT_EQ(next(), 1);
    EXPECT_EQ(next(), 3);
    kill(children[1], SIGCONT);
    EXPECT_EQ(next(), 2);
    for (const pid_t child : children)
        waitpid(child, nullptr, 0);
    EXPECT_EQ(timer(), 2);
    for (const int file : {lockFile, ends[0], ends[1]})
        close(file);
}

TEST_F(StoreTest, AReadWaitsForNoWriterNotEvenForOneThatIsStopped)
{
    ASSERT_TRUE(setTimer(7));
    const pid_t child = fork();
    if (child == 0) {
        SettingsStore own;
        own.setFile(m_file);
        const int collector = 0;
        if (own.writeInteger(audibleTimer, SettingsStore::Type::Int, 8, &collector)) // it is its turn now
            raise(SIGSTOP);
        std::_Exit(own.commit(&collector) ? 0 : 1);
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, WUNTRACED), child);
    ASSERT_TRUE(WIFSTOPPED(status));
    EXPECT_EQ(timer(), 7);
    SettingsStore other;
    other.setFile(m_file);
    EXPECT_EQ(other.readInteger(audibleTimer, SettingsStore::Type::Int), 7);
    kill(child, SIGCONT);
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(timer(), 8);
}

TEST_F(StoreTest, ACollectionGivesWayToAFileOfOthers)
{
    ASSERT_TRUE(setTimer(1));
    ASSERT_TRUE(QFile::copy(m_file, m_file + QStringLiteral(".copy")));
    SettingsAccess settings(store, 4, false);
    ASSERT_TRUE(settings.write(QStringLiteral("Setup"), QStringLiteral("audibleTimer"), 5));
    ASSERT_EQ(rename((path() + ".copy").c_str(), path().c_str()), 0);
    testing::internal::CaptureStderr();
    EXPECT_FALSE(settings.flush());
    EXPECT_EQ(errno, EIO);
    EXPECT_NE(testing::internal::GetCapturedStderr().find("replaced by others"), std::string::npos);
    EXPECT_EQ(timer(), 1);
}

TEST_F(StoreTest, WhatCannotBeEncryptedIsNotStored)
{
    SimulatedPhone::instance().settings().setFile(m_file);
    const QString group = QStringLiteral("Setup");
    const QString key = QStringLiteral("note");
    const QString open = QStringLiteral("for everybody");
    const QString secret = QStringLiteral("for nobody");
    for (const bool commitEachWrite : {true, false}) {
        SCOPED_TRACE(commitEachWrite);
        SETUP_SET_Manager settings(AM_Global::CallSetup, commitEachWrite);
        ASSERT_TRUE(settings.setSettingInfo(group, key, open, false) && settings.flush());
        errno = 0;
        EXPECT_FALSE(settings.setSettingInfo(group, key, secret, true));
        EXPECT_EQ(errno, ENOTSUP);
        EXPECT_EQ(settings.flush(), commitEachWrite) << "a collection with a failed write is given up";
        QString text;
        EXPECT_TRUE(settings.getSettingInfo(group, key, text, secret, false));
        EXPECT_EQ(text, open);
        EXPECT_FALSE(settings.getSettingInfo(group, key, text, secret, true));
        EXPECT_EQ(text, secret) << "the default, for an open text was never encrypted";
        EXPECT_FALSE(content().contains(secret.toUtf8()));
    }
}

TEST_F(StoreTest, TwoThreadsUseTheStoreAtOnce)
{
    const auto nameOf = [](int thread) {
        return SettingsStore::Name{4, QStringLiteral("Setup"), QString::number(thread)};
    };
    std::array<int, 2> wrong = {};
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 2; ++thread) {
        threads.emplace_back([&, thread] {
            for (int turn = 1; turn <= 60; ++turn) {
                const int value = turn * 2 + thread;
                const void *const collector =
                    turn % 3 == 0 ? &wrong[static_cast<std::size_t>(thread)] : nullptr;
                bool good = store.writeInteger(nameOf(thread), SettingsStore::Type::Int, value, collector);
                good = good && (!collector || store.commit(collector));
                good = good && store.readInteger(nameOf(thread), SettingsStore::Type::Int) == value;
                wrong[static_cast<std::size_t>(thread)] += good ? 0 : 1;
            }
        });
    }
    for (std::thread &thread : threads)
        thread.join();
    EXPECT_EQ(wrong, (std::array<int, 2>{}));
}

TEST_F(StoreTest, TheStoreCanBeUsedUntilTheProcessIsGone)
{
    ASSERT_TRUE(setTimer(7));
    const pid_t child = fork();
    if (child == 0) {
        onTheWayOut = &store;
        // Runs after the destructors of what was made later than this.
        std::atexit([] {
            SettingsAccess settings(*onTheWayOut, 4, true);
            int value = 0;
            settings.read(QStringLiteral("Setup"), QStringLiteral("audibleTimer"), value, -1);
            settings.write(QStringLiteral("Setup"), QStringLiteral("audibleTimer"), value + 1);
        });
        std::exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(timer(), 8);
}

} // namespace
