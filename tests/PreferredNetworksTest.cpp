// The preferred network list: reading, adding, deleting, clearing, reordering, capacity.
#include "EngineTest.h"

#include <climits>

namespace {

const std::string failure = R"( "Failed to call tapi function ret = 5!\n")";

std::string listRead(char languageFlag, char code)
{
    return std::string(" UTIL_Language::getSystemLanguageId() | TAPI_NETWORK_GetPreferredOperator(")
        + languageFlag + R"() | "TAPI_NETWORK_GetPreferredOperat Return value = )" + code + R"(\n")";
}

class PreferredNetworksTest : public EngineTest {
protected:
    PreferredNetworksTest()
    {
        QObject::connect(&network(), &PHONE_ENG_NtInterface::preferredChanged,
                         [this] { phone.note("preferredChanged()"); });
    }

    /** Clears a list of these entries and 0x7F behind them, whose count may be untrue. */
    void checkClearing(int count, const std::vector<int> &priorities, int firstDeleted,
                       const std::vector<int> &deletedBefore = {})
    {
        SCOPED_TRACE(count);
        _TAPI_NETWORK_PREFERRED_S list;
        std::memset(&list, 0x7F, sizeof list);
        list.count = count;
        for (std::size_t entry = 0; entry < priorities.size(); ++entry)
            list.entries[entry].priority = priorities[entry];
        answer("TAPI_NETWORK_GetPreferredOperator", 0, {bytesOf(list)});
        std::string expected = listRead('0', '0');
        int max = -1;
        for (auto priority = priorities.rbegin(); priority != priorities.rend(); ++priority) {
            expected += R"( "priority = )" + std::to_string(*priority) + R"(\n" "max = )"
                + std::to_string(max) + R"(\n")";
            max = std::max(max, *priority);
        }
        std::vector<int> deleted = deletedBefore;
        for (int position = firstDeleted; position >= 0; --position)
            deleted.push_back(position);
        for (const int position : deleted)
            expected += " | TAPI_NETWORK_DeleteSelectedOperator(" + std::to_string(position) + ") |";
        expected += R"( "In PHONE_ENG_NtInterface::delAllPreferredNetwork\n" "Max = )" + std::to_string(max);
        expected += R"(\n" "Out PHONE_ENG_NtInterface::delAllPreferredNetwork\n" preferredChanged())";
        EXPECT_TRUE(network().delAllPreferredNetwork());
        EXPECT_TRUE(journal() == expected) << "both texts may be too long to show";
    }
};

TEST_F(PreferredNetworksTest, ListIsReadInTheLanguageOfThePhone)
{
    _TAPI_NETWORK_PREFERRED_S list = {};
    state().network.preferred = {{1, "00102"}, {4, "00101"}};
    for (const int language : {0, 19, 20, 21, 22, 23}) {
        phone.setLanguage(language);
        const bool second = language == 20 || language == 22;
        EXPECT_TRUE(network().getPreferredNetworks(&list));
        EXPECT_EQ(Unicode2QStr(list.entries[1].name, 25).toStdString(), second ? "测试移动" : "Test Mobile");
        EXPECT_EQ(journal(), listRead(second ? '1' : '0', '0'));
    }
    answer("TAPI_NETWORK_GetPreferredOperator", 5);
    EXPECT_FALSE(network().getPreferredNetworks(&list));
    EXPECT_EQ(journal(), listRead('0', '5') + failure);
    EXPECT_FALSE(network().getPreferredNetworks(nullptr));
    EXPECT_EQ(journal(), "");
}

TEST_F(PreferredNetworksTest, AddingAndDeletingAnnounceThemselvesWhenTheySucceed)
{
    const std::tuple<unsigned int, std::string, std::string, int> rows[] = {
        {3, "3", "00102", 0}, {0, "0", "123456789012345", 5}, {4294967295, "-1", "", 0}};
    for (const auto &[priority, priorityLogged, id, code] : rows) {
        const std::string position = std::to_string(priority);
        const std::string priorityLog = R"( "priority = )" + priorityLogged + R"(\n")";
        const std::string codeLog = R"( "Ret = )" + std::to_string(code) + R"(\n")";
        const std::string end = code == 0 ? " | preferredChanged()" : failure;
        answer("TAPI_NETWORK_SetPreferredOperator", code);
        answer("TAPI_NETWORK_DeleteSelectedOperator", code);

        EXPECT_EQ(network().addPreferredNetwork(priority, QString::fromStdString(id)), code == 0);
        EXPECT_EQ(journal(),
                  " | TAPI_NETWORK_SetPreferredOperator(" + position + ", \"" + id + "\"[16]) |"
                      + R"( "In PHONE_ENG_NtInterface::addPreferredNetwork\n")" + priorityLog
                      + R"( "networkid = )" + id + R"(\n")" + codeLog
                      + R"( "Out PHONE_ENG_NtInterface::addPreferredNetwork\n")" + end);
        EXPECT_EQ(network().delPreferredNetwork(priority), code == 0);
        EXPECT_EQ(journal(),
                  " | TAPI_NETWORK_DeleteSelectedOperator(" + position + ") |"
                      + R"( "In PHONE_ENG_NtInterface::delPreferredNetwork\n")" + priorityLog + codeLog
                      + R"( "Out PHONE_ENG_NtInterface::delPreferredNetwork\n")" + end);
    }
    QString id = QStringLiteral("1234567890123456");
    EXPECT_FALSE(network().addPreferredNetwork(2, id));
    EXPECT_THAT(journal(), testing::ContainsRegex("^ \"[^|(]*1234567890123456[^|(]*\"$"));
    EXPECT_FALSE(network().reorderNetworkPriority(6, 2, id));
    EXPECT_THAT(journal(), testing::ContainsRegex("^ \"[^|(]*1234567890123456[^|(]*\"$"));
}

TEST_F(PreferredNetworksTest, ClearingDeletesEveryPositionFromTheHighestDown)
{
    checkClearing(3, {0, 3, 1}, 3);
    const std::string unit = "utility/PHONE_ENG_NtInterface ";
    EXPECT_EQ(locations(), (std::set{unit + "delAllPreferredNetwork", unit + "getPreferredNetworks"}));
    checkClearing(2, {2, INT_MIN}, 2);
    answer("TAPI_NETWORK_DeleteSelectedOperator", 5);
    checkClearing(1, {1}, 1);
    answer("TAPI_NETWORK_GetPreferredOperator", 5);
    EXPECT_FALSE(network().delAllPreferredNetwork());
    EXPECT_EQ(journal(), listRead('0', '5') + failure);
}

TEST_F(PreferredNetworksTest, ClearingBelievesNoRecordThatCannotBe)
{
    for (const int count : {0, -1, INT_MIN})
        checkClearing(count, {}, -1);
    std::vector<int> priorities(100, 7);
    priorities[0] = 99;
    for (const int count : {100, 101, INT_MAX})
        checkClearing(count, priorities, 99);
    // No card has a position above 13106; from one that says so, what it lists is deleted all the same.
    checkClearing(2, {13106, 1}, 13106);
    checkClearing(5, {13107, 1, INT_MAX, 20000, INT_MAX}, 13106, {INT_MAX, 20000, 13107});
}

TEST_F(PreferredNetworksTest, ClearingLeavesNoEntryOfACardThatLies)
{
    state().network.preferred = {{0, "00101"}, {5, "00102"}, {20000, "00101"}, {2000000000, "00102"}};
    EXPECT_TRUE(network().delAllPreferredNetwork());
    EXPECT_TRUE(state().network.preferred.empty());
    EXPECT_LE(calls().size(), 13107U + 100 + 2) << "the deletions, the read and the signal";
}

TEST_F(PreferredNetworksTest, AReceiverMayDestroyTheObject)
{
    const auto destroy = [] { PHONE_ENG_NtInterface::destroy(); };
    QString id = QStringLiteral("00102");
    const std::function<bool()> changes[] = {
        [&] { return network().addPreferredNetwork(1, id); },
        [&] { return network().reorderNetworkPriority(1, 2, id); },
        [&] { return network().delPreferredNetwork(2); },
        [&] { return network().delAllPreferredNetwork(); },
    };
    for (const auto &change : changes) {
        QObject::connect(&network(), &PHONE_ENG_NtInterface::preferredChanged, destroy);
        EXPECT_TRUE(change()); // the sanitizers see what touches the object afterwards
        EXPECT_EQ(PHONE_ENG_NtInterface::m_pInstance, nullptr);
    }
}

TEST_F(PreferredNetworksTest, ReorderingIsAnnouncedOnceTheOldPositionIsEmpty)
{
    const std::string add = R"( | TAPI_NETWORK_SetPreferredOperator(2, "00102"[16]) |)";
    const std::tuple<int, int, std::string> rows[] = {
        {0, 0, add + " preferredChanged()"}, {5, 0, " |"}, {0, 5, add + " | preferredChanged()"}};
    for (const auto &[deleteResult, addResult, end] : rows) {
        answer("TAPI_NETWORK_DeleteSelectedOperator", deleteResult);
        answer("TAPI_NETWORK_SetPreferredOperator", addResult);
        QString id = QStringLiteral("00102");
        EXPECT_EQ(network().reorderNetworkPriority(6, 2, id), deleteResult == 0 && addResult == 0);
        EXPECT_EQ(journal(),
                  R"( "In PHONE_ENG_NtInterface::reorderNetworkPriority\n")"
                  " | TAPI_NETWORK_DeleteSelectedOperator(6) |"
                      + end);
    }
}

TEST_F(PreferredNetworksTest, CapacityIsLoggedAsTheCallerHasIt)
{
    const std::string in = R"( "In PHONE_ENG_NtInterface::getCapacityPreferedNetwork\n")";
    const std::string call = in + " | TAPI_NETWORK_GetTotalPreferredOperatorNumber() |";
    unsigned int capacity = 0;
    EXPECT_FALSE(network().getCapacityPreferedNetwork(nullptr));
    EXPECT_EQ(journal(), in);
    EXPECT_TRUE(network().getCapacityPreferedNetwork(&capacity));
    EXPECT_EQ(journal(), call + R"( "ret = 0\n" "Capacity = 20\n")");
    answer("TAPI_NETWORK_GetTotalPreferredOperatorNumber", 5);
    EXPECT_FALSE(network().getCapacityPreferedNetwork(&capacity));
    EXPECT_EQ(journal(), call + R"( "ret = 5\n" "Capacity = 20\n")" + failure);
}

} // namespace
