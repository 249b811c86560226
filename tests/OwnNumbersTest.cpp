// Own numbers: the table of the card, its limits, and the update rule of a SIM file.
#include "EngineTest.h"

#include "LogModule.h"
#include "TAPI_OWNNUMBER.h"

namespace {

using Strings = std::vector<std::string>;

std::string record(int index, std::string number, std::string name)
{
    number.resize(42);
    name.resize(102);
    return std::string{static_cast<char>(index), static_cast<char>(index >> 8)} + number + name + '\xaa';
}

const std::string ab("A\0B\0", 4);
const std::string unterminated = record(1, std::string(42, '7'), std::string(102, 'A'));
const std::string longName = QString(51, QChar(0x4141)).toStdString();

class OwnNumbersTest : public EngineTest {
protected:
    unsigned int read() { return setup().getMyNumber(lines[0], lines[1], lines[2], lines[3]); }
    unsigned int readList() { return setup().getMyNumberList(lines); }
    Strings texts()
    {
        Strings result;
        for (const QString &line : lines)
            result.push_back(line.toStdString());
        return result;
    }
    /** The caller holds "a" to "d" before it reads. */
    void card(unsigned short capacity, const std::string &records, unsigned int result = 0)
    {
        // Nobody looks at this result.
        answer("TAPI_OWNNUMBER_GetCapacity", 0x8000,
               {bytesOf(_TAPI_OWNNUMBER_CAPACITY_S{{9, 9, 9, 9, 9, 9}, capacity})});
        answer("TAPI_OWNNUMBER_GetEntry", result, {records});
        lines = QStringLiteral("a b c d").split(QLatin1Char(' '));
    }

    QStringList lines;
};

TEST_F(OwnNumbersTest, LinesAreFoundByTheirIndexWhateverTheirOrder)
{
    card(0, record(2, "+4922", {0x42, 0x4e, 0x16, 0x04}) + record(1, "11\xe9", ab));
    EXPECT_EQ(read(), 0U);
    EXPECT_EQ(texts(), (Strings{"11\u00e9", "AB", "+4922", "\u4e42\u0416"}));
    EXPECT_EQ(
        events(),
        (Events{trace, "TAPI_OWNNUMBER_GetEntry(1, 2)", trace, R"("PHONE_ENG_Setup::getMyNumber.index is 2")",
                R"("unicodeToQStringInLittleEndian 78,66")", R"("unicodeToQStringInLittleEndian 4,22")",
                R"("PHONE_ENG_Setup::getMyNumber.index is 1")", R"("unicodeToQStringInLittleEndian 0,65")",
                R"("unicodeToQStringInLittleEndian 0,66")"}));
    EXPECT_THAT(locations(),
                testing::ElementsAre("utility/PHONE_ENG_Setup getMyNumber",
                                     "utility/PHONE_ENG_Setup unicodeToQStringInLittleEndian"));
}

TEST_F(OwnNumbersTest, OnlyTheLinesThatTheCardGivesAreWritten)
{
    const std::pair<std::string, Strings> rows[] = {
        {record(1, "11", ab) + record(0, "99", ab), {"11", "AB", "c", "d"}},
        {record(3, "99", ab) + record(2, "", ""), {"a", "b", "", ""}},
        {record(0x0101, "99", ab) + record(0x8002, "99", ab), {"a", "b", "c", "d"}},
        {record(1, "1", {0, 1, 'B', 0, 0, 0, 'C', 0}), {"1", "\u0100B", "c", "d"}},
        {unterminated, {std::string(42, '7'), longName, "c", "d"}},
        {"", {"a", "b", "c", "d"}},
    };
    for (const auto &[records, expected] : rows) {
        card(0, records);
        EXPECT_EQ(read(), 0U);
        EXPECT_EQ(texts(), expected);
    }
}

TEST_F(OwnNumbersTest, FailuresAndRefusalsWriteNothing)
{
    const std::string failure = R"("PHONE_ENG_Setup::getMyNumber. failed.32778")";
    card(2, record(1, "11", ab) + record(2, "22", ab), 0x800A);
    EXPECT_EQ(read(), 0x800A);
    EXPECT_EQ(events(), (Events{trace, "TAPI_OWNNUMBER_GetEntry(1, 2)", trace, failure}));
    EXPECT_EQ(readList(), 0x800A);
    EXPECT_EQ(events().back(), failure);
    refuse();
    EXPECT_EQ(read(), TAPI_RESULT_FAIL);
    EXPECT_EQ(readList(), TAPI_RESULT_FAIL);
    EXPECT_EQ(setup().setMyNumber(1, QString(42, QLatin1Char('1')), QString()), TAPI_RESULT_FAIL);
    EXPECT_EQ(setup().deleteMyNumber(1), TAPI_RESULT_FAIL);
    EXPECT_EQ(texts(), (Strings{"a", "b", "c", "d"}));
    EXPECT_EQ(events(), Events{});
}

TEST_F(OwnNumbersTest, SavingFillsBothFieldsToTheirEnds)
{
    // Line, number and name; index, number and bytes of the name as sent, number and name as logged.
    const std::string n41 = "+1234567890123456789012345678901234567890";
    const std::string name50(50, 'n');
    std::string bytes50;
    for (int i = 0; i < 50; ++i)
        bytes50 += "6e00";
    const std::tuple<int, std::string, std::string, std::string, std::string, std::string> rows[] = {
        {2, "+49P123", "Ab", "2, \"+49p123\"", "41006200", "+49p123,name Ab"},
        {1, n41, name50, "1, \"" + n41 + '"', bytes50, n41 + ",name " + name50},
        {65537, "\u00c9", "\u00e9\u0416\U0001F600", "1, \"\xe9\"", "e90016043dd800de", "\xe9,name \xe9???"},
        {0x8000, "", "", "-32768, \"\"", "", ",name "},
    };
    unsigned int result = 0;
    for (const auto &[line, number, name, sent, nameBytes, logged] : rows) {
        answer("TAPI_OWNNUMBER_SaveEntry", result);
        EXPECT_EQ(setup().setMyNumber(line, QString::fromStdString(number), QString::fromStdString(name)),
                  result++);
        const std::string call =
            sent + "[42], <" + nameBytes + std::string(204 - nameBytes.size(), '0') + ">)";
        const std::string message = std::to_string(line) + ",number " + logged + '"';
        EXPECT_EQ(events(),
                  (Events{"\"PHONE_ENG_Setup::setMyNumber. line " + message, trace,
                          "TAPI_OWNNUMBER_SaveEntry(" + call, trace}));
    }
}

TEST_F(OwnNumbersTest, WhatDoesNotFitIsRefusedRatherThanCut)
{
    const QString fits(41, QLatin1Char('1'));
    for (const auto &[number, name] :
         {std::pair{fits + fits, QString()}, std::pair{fits + fits[0], QString()},
          std::pair{fits, QString(51, fits[0])},
          std::pair{QString(41, QChar(0x130)), QString()}}) { // its lower case has two characters
        EXPECT_EQ(setup().setMyNumber(1, number, name), TAPI_RESULT_INVALID_PARAM);
        EXPECT_EQ(calls(), Events{});
    }
}

TEST_F(OwnNumbersTest, NamesComeBackAsTheyWereSaved)
{
    for (const QString &name :
         {QString::fromUtf8("Büro 工作 \U0001F4DE"), QString(50, QChar(0x0100)), QString()}) {
        lines.clear();
        EXPECT_EQ(setup().setMyNumber(2, QStringLiteral("+491"), name), 0U);
        EXPECT_EQ(readList(), 0U);
        EXPECT_EQ(lines.mid(2, 2), (QStringList{name, QStringLiteral("+491")}));
    }
}

TEST_F(OwnNumbersTest, DeletingNamesTheRecordInSixteenBits)
{
    using Row = std::tuple<int, std::string, unsigned int>;
    for (const auto &[line, index, result] :
         {Row{1, "1", 0}, Row{0x10001, "1", 4}, Row{0x18000, "-32768", 0}}) {
        answer("TAPI_OWNNUMBER_DeleteEntry", result);
        EXPECT_EQ(setup().deleteMyNumber(line), result);
        EXPECT_EQ(events(), (Events{trace, "TAPI_OWNNUMBER_DeleteEntry(" + index + ")", trace}));
    }
}

TEST_F(OwnNumbersTest, TheListIsAppendedToButFilledFromItsStart)
{
    const std::string three = record(1, "11", ab) + record(3, "33", "C") + record(5, "55", ab);
    const std::tuple<unsigned short, std::string, Strings> rows[] = {
        {3, three, {"AB", "11", "c", "d", "C", "33", "", "", "", ""}},
        {0, "", {"a", "b", "c", "d"}},
        {2, record(2, "22", ab) + record(2, "", "C"), {"a", "b", "C", "22", "", "", "", ""}},
        {2, record(1, "11", ab) + record(1, "12", ""), {"AB", "12", "c", "d", "", "", "", ""}},
        {1, record(0, "99", ab), {"a", "b", "c", "d", "", ""}},
        {1, unterminated, {longName, std::string(42, '7'), "c", "d", "", ""}},
    };
    for (const auto &[capacity, records, expected] : rows) {
        card(capacity, records);
        EXPECT_EQ(readList(), 0U);
        EXPECT_EQ(texts(), expected);
        const std::string number = std::to_string(capacity);
        Events journal = {"TAPI_OWNNUMBER_GetCapacity()", "\"capacity is " + number + " \\n\"",
                          "TAPI_OWNNUMBER_GetEntry(1, " + number + ")"};
        for (std::size_t at = 0; at < records.size(); at += 147)
            journal.push_back("\"PHONE_ENG_Setup::getMyNumber.index is " + std::to_string(records[at]) + '"');
        Events seen = events();
        std::erase_if(seen, [](const std::string &event) {
            return event == trace || event.starts_with("\"unicodeTo");
        });
        EXPECT_EQ(seen, journal);
    }
}

TEST_F(OwnNumbersTest, ALargeCardLosesNoRecord)
{
    // Nobody needs to hear a line for every record.
    const std::unique_ptr<std::FILE, int (*)(std::FILE *)> quiet(std::tmpfile(), &std::fclose);
    std::FILE *const heard = std::exchange(libaplog_to_module_ptr, quiet.get());
    for (const int records : {11, 65535}) {
        state().sim.ownNumbers.assign(static_cast<std::size_t>(records), {});
        state().sim.ownNumbers.back() = {"+2", QStringLiteral("Last")};
        lines.clear();
        EXPECT_EQ(readList(), 0U);
        EXPECT_EQ(lines.size(), 2 * records);
        EXPECT_EQ(lines.mid(2 * records - 3),
                  (QStringList{QString(), QStringLiteral("Last"), QStringLiteral("+2")}));
    }
    libaplog_to_module_ptr = heard;
}

TEST_F(OwnNumbersTest, LimitsGrowByTheExtension)
{
    // Range and its result, availability's result, extension and its result; what is returned and held.
    const int rows[][9] = {
        {20, 14, 0, 0, 20, 0, 0, 40, 14},      {120, 14, 0, 0, 20, 0, 0, -116, 14},
        {200, 128, 0, 1, 20, 0, 0, -56, -128}, {20, 14, 0, 0, 0x0114, 0, 0, 40, 14},
        {20, 14, 0, 0, 20, 4, 4, 20, 14},      {20, 14, 1, 0, 20, 0, 1, 7, 8},
        {20, 14, 1, 0, 20, 4, 1, 7, 8},        {20, 14, 1, 4, 20, 0, 1, 7, 8},
    };
    const auto said = [](const std::string &text) { return "\"PHONE_ENG_Setup::" + text + "\\n\""; };
    const auto text = [](int number) { return std::to_string(number); };
    refuse(); // not asked
    for (const auto &row : rows) {
        const auto &[first, second, rangeResult, available, extension, extensionResult, result, number,
                     name] = row;
        SCOPED_TRACE(testing::PrintToString(row));
        answer("TAPI_OWNNUMBER_GetRange", rangeResult,
               {{static_cast<char>(first), static_cast<char>(second)}});
        answer("TAPI_OWNNUMBER_GetExtAvailable", available, {std::string(2, '\0')});
        answer("TAPI_OWNNUMBER_GetExtRange", extensionResult,
               {{static_cast<char>(extension), static_cast<char>(extension >> 8)}});
        signed char heldNumber = 7;
        signed char heldName = 8;
        EXPECT_EQ(int(std::as_const(setup()).getMyNumberLimit(heldNumber, heldName)), result);
        EXPECT_EQ(heldNumber, number);
        EXPECT_EQ(heldName, name);
        const int reported = rangeResult == 0 ? static_cast<signed char>(first) : 7;
        Events expected = {trace,
                           "TAPI_OWNNUMBER_GetRange()",
                           trace,
                           said("result=" + text(rangeResult)),
                           said("maxNumberLength=" + text(reported) + "maxNameLength=" + text(name)),
                           trace,
                           "TAPI_OWNNUMBER_GetExtAvailable()",
                           trace,
                           trace,
                           "TAPI_OWNNUMBER_GetExtRange()",
                           trace,
                           said("result=" + text(extensionResult) + "extRange=" + text(extension))};
        expected.resize(available == 0 ? 12 : 8);
        expected.push_back(said("maxNumberLength=" + text(number)));
        EXPECT_EQ(events(), expected);
    }
}

TEST_F(OwnNumbersTest, TheUpdateRuleIsToldForFilesThatExist)
{
    // File, the platform's result and rule; what is returned and written.
    const std::tuple<unsigned char, unsigned int, unsigned char, unsigned int, unsigned char> rows[] = {
        {228, 0, 3, 0, 3}, {0, 0, 0, 0, 0},    {100, 0, 7, 0, 6},  {100, 0, 255, 0, 255},
        {100, 1, 3, 1, 6}, {229, 0, 3, 1, 99}, {255, 0, 3, 1, 99},
    };
    refuse(); // not asked
    for (const auto &[file, platformResult, platformRule, result, written] : rows) {
        std::string info(48, '\x63');
        info[9] = static_cast<char>(platformRule);
        answer("TAPI_SIM_GetUSIMFileInfo", platformResult, {info});
        unsigned char rule = 99;
        EXPECT_EQ(setup().getEFUpdateRule(file, rule), result);
        EXPECT_EQ(rule, written) << int(file);
        Events seen = events();
        std::erase(seen, trace);
        ASSERT_EQ(seen.size(), file > 228 ? 0U : 5U);
        seen.resize(2);
        EXPECT_EQ(seen[1],
                  file > 228 ? "" : "TAPI_SIM_GetUSIMFileInfo(" + std::to_string(file) + ", 0, 0, 0)");
    }
}

} // namespace
