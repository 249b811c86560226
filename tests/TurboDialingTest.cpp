// Turbo dialing: slots, one-touch numbers, suffixes, the list and its all-or-nothing write.
#include "EngineTest.h"

#include "SETUP_SET_Manager.h"

#include <QCoreApplication>
#include <QSignalSpy>

#include <cerrno>

namespace {

class TurboDialingTest : public EngineTest {
protected:
    /** Stores a setting as another program of the phone would. */
    static void store(const char *key, const char *value)
    {
        SETUP_SET_Manager settings(AM_Global::CallSetup, true);
        ASSERT_TRUE(settings.setSettingInfo(QStringLiteral("Turbo Dialing"), QLatin1String(key),
                                            QLatin1String(value), false));
    }

    QStringList list()
    {
        QStringList entries;
        setup().getTurboDialingList(entries, true);
        return entries;
    }
};

QString text(const char *latin1)
{
    return QString::fromLatin1(latin1);
}

TEST_F(TurboDialingTest, AnEntryEndsBeforeItsFirstAtSignUnlessAllOfItIsWanted)
{
    const struct {
        const char *entry;
        const char *cut;
    } rows[] = {
        {"5551234@home", "5551234"}, {"5551234@a@b", "5551234"}, {"5551234", "5551234"}, {"@home", ""}};
    for (const auto &row : rows) {
        SCOPED_TRACE(row.entry);
        ASSERT_TRUE(setup().setTurboDialing(2, text(row.entry)));
        EXPECT_EQ(setup().getTurboDialing(2, false), text(row.cut));
        EXPECT_EQ(setup().getTurboDialing(2, true), text(row.entry));
    }
}

TEST_F(TurboDialingTest, AOneTouchNumberWinsAndIsNeverCut)
{
    store("OneTouchNumber2", "911@fire");
    setup().setTurboDialing(2, text("5551234"));
    events();
    EXPECT_EQ(setup().getTurboDialing(2, false), text("911@fire"));
    EXPECT_EQ(events(),
              (Events{"SETUP_SET_Manager(4, false)", "SETUP_SET_Manager(4, false)",
                      R"(SETUP_SET_Manager::getSettingInfo("Turbo Dialing", "OneTouchNumber2", "", false))",
                      R"("the onetouchnumber 2 is not null, it is 911@fire")", "~SETUP_SET_Manager()",
                      "~SETUP_SET_Manager()"}));
    EXPECT_EQ(locations(), std::set<std::string>{"utility/PHONE_ENG_Setup isOneTouchNumber"});
    EXPECT_EQ(setup().getTurboDialing(258, true), text("911@fire")) << "looked up modulo 256";
    QString number = text("old");
    EXPECT_FALSE(setup().isOneTouchNumber(3, number));
    EXPECT_EQ(number, QString());
}

TEST_F(TurboDialingTest, TheEntryKeyTakesTheSlotWhole)
{
    EXPECT_TRUE(setup().setTurboDialing(-258, text("1")));
    EXPECT_EQ(calls().at(1), R"(SETUP_SET_Manager::setSettingInfo("Turbo Dialing", "-258", "1", false))");
    EXPECT_EQ(setup().getTurboDialing(-258, false), text("1"));
    EXPECT_EQ(setup().getTurboDialing(254, false), QString());
}

TEST_F(TurboDialingTest, TheListHasNineEntriesWhateverWasInIt)
{
    QStringList entries;
    for (int count = 0; count < 12; ++count)
        entries += text("x");
    setup().getTurboDialingList(entries, false);
    EXPECT_EQ(entries.size(), 9);
    EXPECT_EQ(entries.join(text("")), QString());
}

TEST_F(TurboDialingTest, AListIsWrittenToTheFirstNineSlotsAndFlushedOnce)
{
    QStringList numbers;
    for (int number = 1; number <= 12; ++number)
        numbers += QString::number(number * 11);
    EXPECT_TRUE(setup().setTurboDialing(numbers));
    const Events written = calls();
    EXPECT_EQ(written.size(), 12u);
    EXPECT_EQ(written.front(), "SETUP_SET_Manager(4, false)");
    EXPECT_EQ(written.at(9), R"(SETUP_SET_Manager::setSettingInfo("Turbo Dialing", "9", "99", false))");
    EXPECT_EQ(written.at(10), "SETUP_SET_Manager::flush()");
    EXPECT_TRUE(setup().setTurboDialing(QStringList{text("a"), text("b"), text("c")}));
    EXPECT_EQ(list(),
              (QStringList{text("a"), text("b"), text("c"), text("44"), text("55"), text("66"), text("77"),
                           text("88"), text("99")}));
    EXPECT_TRUE(setup().setTurboDialing(QStringList()));
}

TEST_F(TurboDialingTest, AFullDiskLeavesTheOldNineEntriesInPlace)
{
    const QStringList old = {text("1"), text("2"), text("3"), text("4"), text("5"),
                             text("6"), text("7"), text("8"), text("9")};
    ASSERT_TRUE(setup().setTurboDialing(old));
    QSignalSpy flashFull(&setup(), SIGNAL(flashFull()));
    QStringList tooLong;
    for (int slot = 0; slot < 9; ++slot)
        tooLong += QString(500'000, QLatin1Char('5'));
    EXPECT_FALSE(setup().setTurboDialing(tooLong));
    EXPECT_EQ(errno, ENOSPC);
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(flashFull.count(), 1);
    EXPECT_EQ(list(), old);
    EXPECT_TRUE(setup().setTurboDialing(old)) << "the store goes on working";
}

TEST_F(TurboDialingTest, AFailedWriteAndARefusingHook)
{
    QSignalSpy flashFull(&setup(), SIGNAL(flashFull()));
    ScriptedAnswer full;
    full.error = ENOSPC;
    phone.script("SETUP_SET_Manager::setSettingInfo", full);
    EXPECT_FALSE(setup().setTurboDialingLocation(4, 1));
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(flashFull.count(), 0) << "a location raises no signal";
    EXPECT_FALSE(setup().setTurboDialing(1, text("5")));
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(flashFull.count(), 1);
    phone.clearScript("SETUP_SET_Manager::setSettingInfo");
    refuse();
    events();
    EXPECT_FALSE(setup().setTurboDialing(1, text("5")));
    EXPECT_FALSE(setup().setTurboDialing(QStringList{text("5")}));
    EXPECT_TRUE(events().empty());
    EXPECT_TRUE(setup().setTurboDialingLocation(4, 1)) << "a location does not ask the hook";
}

TEST_F(TurboDialingTest, LocationsAreStoredForTheNextProcess)
{
    EXPECT_EQ(setup().getTurboDialingLocation(4), 2);
    events();
    EXPECT_TRUE(setup().setTurboDialingLocation(255, -3));
    EXPECT_EQ(events(),
              (Events{"SETUP_SET_Manager(4, false)",
                      R"(SETUP_SET_Manager::setSettingInfo("Turbo Dialing", "SpeedLocation255", -3))",
                      "~SETUP_SET_Manager()"}));
    EXPECT_EQ(inAnotherProcess("getTurboDialingLocation 255"), "result = -3\n");
}

} // namespace
