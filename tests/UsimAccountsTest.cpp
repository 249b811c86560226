// USIM accounts: labels of the card's applications and the active one.
#include "EngineTest.h"

namespace {

std::string application(int index, int labelLength, std::string label)
{
    label.resize(66);
    return std::string{static_cast<char>(index), '\x5a', static_cast<char>(labelLength)} + label;
}

const std::string work("W\0o\0r\0k\0", 8);
const std::string home("H\0o\0m\0e\0", 8);

class UsimAccountsTest : public EngineTest {
protected:
    void card(int applications, const std::string &records, int position, unsigned int countResult = 0,
              unsigned int listResult = 0)
    {
        answer("TAPI_SECURITY_GetNumOfUsim", countResult, {std::string(1, static_cast<char>(applications))});
        answer("TAPI_SECURITY_GetUsimList", listResult,
               {std::string(1, static_cast<char>(position)), records});
        list = QStringList{QStringLiteral("old")};
        title = QStringLiteral("old");
        active = count = 77;
    }
    unsigned int read() { return setup().getUSIMAccountList(list, active, count); }
    unsigned int readTitle() { return setup().getCurrentUSIMAccountTitle(title, count); }

    QStringList list;
    QString title;
    unsigned char active = 0;
    unsigned char count = 0;
};

TEST_F(UsimAccountsTest, AccountsCarryTheirLabelsOrTheirNumbers)
{
    card(3, application(7, 8, work) + application(8, 0, home) + application(255, 8, home), 2);
    EXPECT_EQ(read(), 0U);
    EXPECT_EQ(list.join(QLatin1Char('/')), QStringLiteral("Work/Subscription  2/Home"));
    EXPECT_EQ(active, 2);
    EXPECT_EQ(count, 3);
    Events expected = {"",    "TAPI_SECURITY_GetNumOfUsim()", "",   "UTIL_SetCardType(1)",
                       trace, "TAPI_SECURITY_GetUsimList(3)", trace};
    expected.insert(expected.end(), {R"("\n The Active ADF Index is 2 ")", "UTIL_SetActiveAccount(2)"});
    for (const auto *details : {"1/7/8", "2/8/0", "3/255/8"}) {
        const QStringList parts = QString::fromLatin1(details).split(QLatin1Char('/'));
        expected.push_back(R"("\n Details of application Number )" + parts[0].toStdString() + " \"");
        expected.push_back(R"("\n AdfIndex  = )" + parts[1].toStdString() + " \"");
        expected.push_back(R"("\n Label Len = )" + parts[2].toStdString() + " \"");
    }
    const Events seen = events();
    expected[0] = expected[2] = seen.at(0); // the same words before and after
    EXPECT_EQ(seen, expected);
    EXPECT_EQ(seen[0].front(), '"');
    EXPECT_EQ(locations(), std::set<std::string>{"utility/PHONE_ENG_Setup getUSIMAccountList"});
}

TEST_F(UsimAccountsTest, TheLengthAloneSaysWhereALabelEndsAndTheRecordBoundsIt)
{
    const std::string full(66, 'A');
    const std::u16string bound(33, u'\u4141');
    const std::tuple<int, std::string, std::u16string> rows[] = {
        {3, {'A', 0, 'B', 1, 'C', 0}, u"A\u0142"},
        {6, {'A', 0, 0, 0, 'B', 0}, {u'A', u'\0', u'B'}},
        {4, {0x16, 0x04, 0x3d, '\xd8'}, {u'\u0416', 0xd83d}},
        {66, full, bound},
        {67, full, bound},
        {255, full, bound},
    };
    for (const auto &[length, label, expected] : rows) {
        SCOPED_TRACE(length);
        card(1, application(1, length, label), 1);
        EXPECT_EQ(read(), 0U);
        ASSERT_EQ(list.size(), 1);
        EXPECT_EQ(list[0].toStdU16String(), expected);
    }
    card(255, std::string(255 * 69, '\xff'), 255);
    EXPECT_EQ(readTitle(), 0U);
    EXPECT_EQ(title, QString(33, QChar(0xFFFF)));
}

TEST_F(UsimAccountsTest, OnlyAnAnswerOfOneIsAFailure)
{
    // Count and the results of both requests; what is returned, the active account, and how far it goes.
    const std::tuple<int, unsigned int, unsigned int, unsigned int, int, std::size_t> rows[] = {
        {1, 1, 0, 1, 77, 1}, {0, 1, 0, 1, 77, 1},     {0, 0, 0, 0, 0, 2}, {0, 0x8000, 0, 0x8000, 0, 2},
        {1, 0, 1, 1, 77, 3}, {1, 0x8000, 0, 0, 1, 4}, {1, 4, 2, 2, 1, 4},
    };
    const char *const last[] = {"", R"(\n There are No USIM Applications in the Card )",
                                R"(\n Failure in Getting List of USIM applications)", R"(\n Label Len = 8 )"};
    refuse(); // not asked
    for (const auto &row : rows) {
        const auto &[applications, countResult, listResult, result, position, steps] = row;
        SCOPED_TRACE(testing::PrintToString(row));
        const QString label = steps == 4 ? QStringLiteral("Work") : QStringLiteral("old");
        Events expected = {"TAPI_SECURITY_GetNumOfUsim()",
                           "UTIL_SetCardType(" + std::to_string(applications) + ")",
                           "TAPI_SECURITY_GetUsimList(1)", "UTIL_SetActiveAccount(1)"};
        expected.resize(steps);
        card(applications, application(1, 8, work), 1, countResult, listResult);
        EXPECT_EQ(read(), result);
        EXPECT_EQ(list, QStringList{label});
        EXPECT_EQ(active, position);
        EXPECT_EQ(count, applications);
        Events seen = events();
        EXPECT_TRUE(steps == 1 || seen.back() == std::string("\"") + last[steps - 1] + '"') << seen.back();
        std::erase_if(seen, [](const std::string &event) { return event == trace || event[0] == '"'; });
        EXPECT_EQ(seen, expected);

        EXPECT_EQ(readTitle(), result == 1 ? 1U : 0U);
        EXPECT_EQ(title, label);
        EXPECT_EQ(calls(), expected);
    }
}

TEST_F(UsimAccountsTest, TheTitleIsTheLabelOfTheActiveAccountIfThereIsOne)
{
    const std::string records = application(1, 8, work) + application(2, 0, "") + application(3, 8, home);
    const std::pair<int, const char *> rows[] = {
        {1, "Work"}, {2, "Subscription  2"}, {3, "Home"}, {0, "old"}, {4, "old"}, {255, "old"}};
    for (const auto &[position, expected] : rows) {
        SCOPED_TRACE(position);
        card(3, records, position);
        events();
        EXPECT_EQ(readTitle(), 0U);
        EXPECT_EQ(title.toStdString(), expected);
        EXPECT_EQ(count, 3);
        const Events seen = events();
        ASSERT_GE(seen.size(), 2U);
        EXPECT_EQ(seen[0], R"("\n Getting Title of the active USIM application ")");
        EXPECT_EQ(seen[1], R"("\n Getting List of USIM applications ")");
        EXPECT_THAT(seen, testing::Contains("UTIL_SetActiveAccount(" + std::to_string(position) + ")"));
        EXPECT_TRUE(locations().contains("utility/PHONE_ENG_Setup getCurrentUSIMAccountTitle"));
        EXPECT_EQ(read(), 0U);
        EXPECT_EQ(active, position);
    }
}

} // namespace
