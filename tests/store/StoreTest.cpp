// The settings store by itself: its document, odd files, modes, forks, threads, and what a write costs the disk.
#include "FailingDisk.h"
#include "PHONE_ENG_Setup.h"
#include "SETUP_SET_Manager.h"
#include "SettingsAccess.h"
#include "SettingsStore.h"
#include "SimulatedPhone.h"

#include <QCborMap>
#include <QCborValue>
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
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

const QString group = QStringLiteral("Setup");
const QString timerKey = QStringLiteral("audibleTimer");
const SettingsStore::Name audibleTimer = {4, group, timerKey};
const SettingsStore::Name reminder = {4, group, QStringLiteral("reminder")};

/** What waits that long never comes back, as far as a test is concerned. */
constexpr std::chrono::hours forEver(1);

/** For a function that exit() calls. */
SettingsStore *onTheWayOut = nullptr;

int timerIn(SettingsStore &store)
{
    const auto value = store.find(SettingsDocument::keyOf<int>(audibleTimer));
    return value ? std::get<int>(*value) : -1;
}

class StoreTest : public testing::Test {
protected:
    StoreTest()
    {
        store.setFile(m_file);
        store.setPatience(forEver);
    }

    int timer() { return timerIn(store); }
    bool setTimer(int value) { return store.write(audibleTimer, value); }
    bool setReminder() { return store.write(reminder, false); }

    std::string path() const { return m_file.toStdString(); }

    QByteArray content() const
    {
        QFile file(m_file);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    void setContent(const QByteArray &bytes)
    {
        QFile file(m_file + QStringLiteral(".other"));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
        file.close();
        ASSERT_EQ(rename((path() + ".other").c_str(), path().c_str()), 0);
    }

    static struct stat statusOf(const std::string &file)
    {
        struct stat status = {};
        stat(file.c_str(), &status);
        return status;
    }
    static mode_t modeOf(const std::string &file) { return statusOf(file).st_mode & 07777; }

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
    QString m_file = m_directory.filePath(QStringLiteral("settings.cbor"));
    SettingsStore store;
};

TEST(DocumentTest, EveryValueComesBackAndEveryFlippedBitAndMissingByteIsNoticed)
{
    constexpr auto greatest = std::numeric_limits<int>::max();
    const SettingsDocument::Value written[] = {false,
                                               true,
                                               0,
                                               greatest,
                                               std::numeric_limits<int>::min(),
                                               QString(),
                                               QStringLiteral("\u6D4B \U0001F4F1"),
                                               QString(300, QLatin1Char('5'))};
    SettingsDocument::Values values;
    unsigned int app = std::numeric_limits<unsigned int>::max();
    for (const auto &value : written)
        values.insert({{{app--, group, QString()}, value.index()}, value});
    const QByteArray document = SettingsDocument::write(values);
    SettingsDocument::Values found;
    ASSERT_FALSE(SettingsDocument::read(document, found));
    ASSERT_EQ(found.size(), std::size(written));
    for (const auto &[key, value] : values)
        EXPECT_EQ(found.at(key), value);
    const auto isNoticed = [&found](const QByteArray &bytes) {
        const int error = SettingsDocument::read(bytes, found).error;
        return (error == EUCLEAN || error == EMEDIUMTYPE) && found.empty();
    };
    for (int bit = 0; bit < document.size() * 8; ++bit) {
        QByteArray flipped = document;
        flipped[bit / 8] = static_cast<char>(flipped.at(bit / 8) ^ 1 << bit % 8);
        EXPECT_TRUE(isNoticed(flipped)) << bit;
    }
    for (int length = 1; length < document.size(); ++length)
        EXPECT_TRUE(isNoticed(document.left(length))) << length;
    EXPECT_FALSE(SettingsDocument::read(QByteArray(), found)) << "a file that nothing was stored in";
}

TEST_F(StoreTest, WhatCannotBeReadIsReportedOnceAndUsedAgainWhenItIsMended)
{
    ASSERT_TRUE(setTimer(7));
    const QByteArray good = content();
    const auto with = [&good](const char *entry, const QCborValue &value) {
        QCborMap document = QCborValue::fromCbor(good).toMap();
        document[QLatin1String(entry)] = value;
        return document.toCborValue().toCbor();
    };
    const struct {
        QByteArray bytes;
        const char *report;
        int reason;
    } cases[] = {
        {good.left(good.size() - 1), "is damaged (not a whole document)", EUCLEAN},
        {good + "more", "is damaged (not a whole document)", EUCLEAN},
        {"[Setup]\nreminder=0\n", "is damaged (not a whole document)", EUCLEAN},
        {with("more", 1), "is damaged (its checksum is another one)", EUCLEAN},
        {with("values", QByteArray()), "is damaged (its checksum is another one)", EUCLEAN},
        {with("version", 2), "is of version 2, newer than this program", EMEDIUMTYPE},
        {with("format", QStringLiteral("more settings")), "is not a settings file of this phone",
         EMEDIUMTYPE},
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
        setContent(good);
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
    for (const int error : {EIO, ENOMEM}) {
        SCOPED_TRACE(error);
        const bool passes = error == ENOMEM; // so what is known is better than the default
        ASSERT_TRUE(other.write(audibleTimer, 8));
        FailingDisk::failReads(error);
        testing::internal::CaptureStderr();
        EXPECT_EQ(timer(), passes ? 7 : -1);
        EXPECT_FALSE(setTimer(9));
        EXPECT_EQ(errno, error);
        FailingDisk::repair();
        EXPECT_NE(testing::internal::GetCapturedStderr().find("cannot be read"), std::string::npos);
        EXPECT_EQ(timer(), 8);
        EXPECT_TRUE(setTimer(7));
    }
}

TEST_F(StoreTest, AWriteSyncsTheFileAndItsFolderAndAnUnchangedValueNothing)
{
    ASSERT_TRUE(setTimer(1));
    const struct {
        const char *what;
        int values;
        int first;
        int syncs;
    } rows[] = {{"one", 1, 10, 2}, {"the same", 1, 10, 0}, {"many", 50, 20, 2}, {"the same many", 50, 20, 0}};
    for (const auto &row : rows) {
        SCOPED_TRACE(row.what);
        FailingDisk::takeSyncs();
        SettingsAccess settings(store, 4, false);
        for (int value = row.first; value < row.first + row.values; ++value)
            ASSERT_TRUE(settings.write(group, QStringLiteral("key") + QString::number(value), value));
        EXPECT_EQ(FailingDisk::takeSyncs(), 0);
        const struct stat next = statusOf(path() + "-new");
        EXPECT_GE(next.st_blocks * 512, next.st_size) << "the space is there before the commit";
        EXPECT_TRUE(settings.flush());
        EXPECT_EQ(FailingDisk::takeSyncs(), row.syncs);
        EXPECT_EQ(next.st_size, row.syncs == 0 ? 0 : content().size());
    }
}

TEST_F(StoreTest, TheSpeedDialListIsOneVersion)
{
    SimulatedPhone::instance().settings().setFile(m_file);
    PHONE_ENG_Setup &engine = *PHONE_ENG_Setup::instance();
    ASSERT_TRUE(setTimer(1));
    FailingDisk::takeSyncs();
    for (const int syncs : {2, 0}) {
        EXPECT_TRUE(engine.setTurboDialing(QStringLiteral("1 2 3 4 5 6 7 8 9").split(QLatin1Char(' '))));
        EXPECT_EQ(FailingDisk::takeSyncs(), syncs);
    }
}

TEST_F(StoreTest, AValueThatMayNotBeDurableIsWrittenAgain)
{
    ASSERT_TRUE(setTimer(1));
    int call = 0;
    bool written = false;
    while (timer() != 2) { // that is, until only the last step fails
        FailingDisk::failAt(++call, EIO, false);
        testing::internal::CaptureStderr();
        written = setTimer(2);
        testing::internal::GetCapturedStderr();
        FailingDisk::repair();
    }
    ASSERT_FALSE(written);
    SettingsStore other;
    other.setFile(m_file);
    FailingDisk::takeSyncs();
    EXPECT_TRUE(other.write(audibleTimer, 2));
    EXPECT_EQ(FailingDisk::takeSyncs(), 2);
    EXPECT_TRUE(setTimer(2));
    EXPECT_EQ(FailingDisk::takeSyncs(), 0);
}

TEST_F(StoreTest, FileAndFolderAreTheUsersOwnWhateverTheMask)
{
    const std::string folder = path() + ".d/inner";
    const std::string file = folder + "/settings.cbor";
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
    EXPECT_EQ(modeOf(file + "-lock"), 0640u) << "who may write the file may lock it";
    ASSERT_EQ(chmod(file.c_str(), 0444), 0);
    EXPECT_FALSE(setTimer(9));
    EXPECT_EQ(errno, EROFS);
    EXPECT_EQ(timer(), 8);
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
        EXPECT_EQ(timerIn(reader), value);
        const timespec modified = statusOf(path()).st_mtim;
        EXPECT_EQ(modified.tv_sec, ahead->tv_sec + 1);
        EXPECT_EQ(modified.tv_nsec, (value - 2) * 1000);
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

TEST_F(StoreTest, AStoppedWriterKeepsNobodyFromReadingAndAWriteFromWaitingForEver)
{
    ASSERT_TRUE(setTimer(1));
    const pid_t child = fork();
    if (child == 0) {
        SettingsStore own;
        own.setFile(m_file);
        SettingsAccess settings(own, 4, false);
        std::_Exit(settings.write(group, timerKey, 2) ? raise(SIGSTOP) : 1);
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, WUNTRACED), child);
    ASSERT_TRUE(WIFSTOPPED(status)) << "it has the lock";
    EXPECT_EQ(timer(), 1);
    SettingsStore fresh;
    fresh.setFile(m_file);
    EXPECT_EQ(timerIn(fresh), 1);
    constexpr std::chrono::milliseconds patience(30);
    store.setPatience(patience);
    const auto start = std::chrono::steady_clock::now();
    testing::internal::CaptureStderr();
    EXPECT_FALSE(setReminder());
    EXPECT_EQ(errno, EBUSY);
    EXPECT_GE(std::chrono::steady_clock::now() - start, patience);
    EXPECT_NE(testing::internal::GetCapturedStderr().find("locked by others"), std::string::npos);
    kill(child, SIGKILL);
    waitpid(child, &status, 0);
    EXPECT_TRUE(setReminder());
    EXPECT_EQ(timer(), 1);
}

TEST_F(StoreTest, AChildOfForkLeavesTheParentsCollectionAlone)
{
    ASSERT_TRUE(setTimer(1));
    SettingsAccess settings(store, 4, false);
    ASSERT_TRUE(settings.write(group, timerKey, 5));
    EXPECT_TRUE(holdsInChild([&] {
        testing::internal::CaptureStderr();
        const bool refused =
            !setReminder() && errno == EBUSY; // without waiting for the parent, which waits for it
        const bool flushed = settings.flush();
        settings.~SettingsAccess();
        return refused && !flushed && timer() == 1;
    }));
    EXPECT_EQ(timer(), 1) << "collected values are seen by nobody else";
    EXPECT_TRUE(settings.flush());
    EXPECT_EQ(timer(), 5);
    EXPECT_TRUE(holdsInChild([this] { return setReminder(); }));
    EXPECT_EQ(store.find(SettingsDocument::keyOf<bool>(reminder)), SettingsStore::Value(false));
}

TEST_F(StoreTest, AChildOfForkWritesWhileAnotherThreadOfTheParentDoes)
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

TEST_F(StoreTest, ACollectionGivesWayToAFileOfOthers)
{
    ASSERT_TRUE(setTimer(1));
    SettingsAccess settings(store, 4, false);
    ASSERT_TRUE(settings.write(group, timerKey, 5));
    setContent(content());
    testing::internal::CaptureStderr();
    EXPECT_FALSE(settings.flush());
    EXPECT_EQ(errno, EIO);
    EXPECT_NE(testing::internal::GetCapturedStderr().find("replaced by others"), std::string::npos);
    EXPECT_EQ(timer(), 1);
}

TEST_F(StoreTest, WhatCannotBeEncryptedIsNotStored)
{
    SimulatedPhone::instance().settings().setFile(m_file);
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
    std::array<int, 2> wrong = {};
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 2; ++thread) {
        threads.emplace_back([&, thread] {
            const QString key = QString::number(thread);
            for (int turn = 1; turn <= 60; ++turn) {
                SettingsAccess settings(store, 4, turn % 3 != 0);
                int found = 0;
                const bool good = settings.write(group, key, turn) && settings.flush()
                    && settings.read(group, key, found, -1) && found == turn;
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
            settings.read(group, timerKey, value, -1);
            settings.write(group, timerKey, value + 1);
        });
        std::exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(timer(), 8);
}

} // namespace
