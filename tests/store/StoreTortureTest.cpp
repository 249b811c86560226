// A short version of each torture of the settings store; scripts/torture.sh runs them for minutes.
#include "Helpers.h"
#include "Torture.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <functional>
#include <ostream>
#include <string>

namespace {

struct Part {
    const char *name;
    std::function<Torture::Outcome(const std::string &folder)> run;
};

std::ostream &operator<<(std::ostream &stream, const Part &part)
{
    return stream << part.name;
}

class StoreTortureTest : public testing::TestWithParam<Part> { };

TEST_P(StoreTortureTest, NothingIsAnsweredWrongly)
{
    // In memory where that is possible: what is asked here does not depend on the disk, only the time it takes does.
    const QTemporaryDir folder(QFileInfo(QStringLiteral("/dev/shm")).isWritable()
                                   ? QStringLiteral("/dev/shm/kvq-store-XXXXXX")
                                   : QDir::temp().filePath(QStringLiteral("kvq-store-XXXXXX")));
    ASSERT_TRUE(folder.isValid());
    const Torture::Outcome outcome = GetParam().run(folder.path().toStdString());
    if (!outcome.cannotRunHere.empty())
        GTEST_SKIP() << outcome.cannotRunHere;
    EXPECT_GT(outcome.tries, 0);
    EXPECT_EQ(outcome.faults, 0) << "of " << outcome.tries << ", first: " << outcome.firstFault;
}

INSTANTIATE_TEST_SUITE_P(
    Short, StoreTortureTest,
    testing::Values(
        Part{"KilledWriters", [](const std::string &folder) { return Torture::killedWriters(folder, 20); }},
        Part{"StoppedWriters", [](const std::string &folder) { return Torture::stoppedWriters(folder, 15); }},
        Part{"FullDisks", [](const std::string &folder) { return Torture::fullMemoryDisks(folder, 2048); }},
        Part{"NoInodes", Torture::noInodes},
        Part{"SignalsOfFullDisks",
             [](const std::string &folder) { return Torture::signalsOfFullDisks(folder, 8192); }},
        Part{"CoarseTimes", Torture::coarseTimes}, Part{"FailingDisk", Torture::failingDisk},
        Part{"DamagedFiles", [](const std::string &folder) { return Torture::damagedFiles(folder, 60); }},
        Part{"FlippedBits", [](const std::string &folder) { return Torture::flippedBits(folder, 7); }},
        Part{"OddFiles", Torture::oddFiles},
        Part{"Soak", [](const std::string &folder) { return Torture::soak(folder, 0.7); }}),
    [](const auto &part) { return part.param.name; });

TEST(StoreCrowdTest, EveryReaderGetsAValueAndEveryWriterTheLock)
{
    const QTemporaryDir folder;
    Torture::Fresh store(folder.filePath(QStringLiteral("settings.cbor")).toStdString());
    store.setPatience(std::chrono::minutes(1));
    ASSERT_TRUE(store.put("a", 0));
    const Torture::Crowd crowd = Torture::crowd(
        4, 4, 0.5, [&] { return store.number("a") >= 0; }, [&](int turn) { return store.put("a", turn); });
    EXPECT_EQ(crowd.outcome.faults, 0) << crowd.outcome.firstFault;
    EXPECT_GE(crowd.outcome.tries, 8);
}

} // namespace
