// Scanning and registration: searches, the networks found, their names.
#include "EngineTest.h"

namespace {

using Network = PHONE_ENG_NtInterface;

const std::string failure = R"( "Failed to call tapi function ret = 5!\n")";

using ScanningTest = EngineTest;

TEST_F(ScanningTest, SearchesStartAndStop)
{
    const std::tuple<bool (Network::*)(), std::string, bool> rows[] = {
        {&Network::findNewNetwork, "TAPI_NETWORK_FindNewNetworks", true},
        {&Network::rescanNetwork, "TAPI_NETWORK_RescanNetwork", true},
        {&Network::getAvailableNetworks, "TAPI_NETWORK_GetAvailableNetwork", false},
        {&Network::cancelGetAvailableNetworks, "TAPI_NETWORK_CancelGetAvailableNetworks", false},
        {&Network::cancelFindNewNetworks, "TAPI_NETWORK_CancelFindNewNetworks", false},
    };
    for (const auto &[request, function, logsResult] : rows) {
        EXPECT_TRUE((network().*request)());
        EXPECT_EQ(journal(), " | " + function + "() |" + (logsResult ? R"( "ret = 0\n")" : ""));
        answer(function, 5);
        EXPECT_FALSE((network().*request)());
        EXPECT_EQ(journal(), " | " + function + "() |" + (logsResult ? R"( "ret = 5\n")" : "") + failure);
    }
}

TEST_F(ScanningTest, KnownNetworksAreCountedAndListed)
{
    _TAPI_NETWORK_PLMN_INFO_S networks[3] = {};
    state().network.networks[1].known = true;
    EXPECT_EQ(network().getKwnownNetworksCnt(), 1);
    EXPECT_EQ(journal(), " | TAPI_NETWORK_GetPlmnCount() |");
    answer("TAPI_NETWORK_GetPlmnCount", 5);
    EXPECT_EQ(network().getKwnownNetworksCnt(), 0);
    answer("TAPI_NETWORK_GetPlmnCount", 5, {"\x07\xff"});
    EXPECT_EQ(network().getKwnownNetworksCnt(), 0xFF07) << "whatever the platform wrote";
    events();
    EXPECT_TRUE(network().getKnownNetworks(networks));
    EXPECT_STREQ(networks[0].networkId, "00102");
    EXPECT_EQ(journal(), " | TAPI_NETWORK_GetPlmnList() | |");
    answer("TAPI_NETWORK_GetPlmnList", 5);
    EXPECT_FALSE(network().getKnownNetworks(networks));
    EXPECT_EQ(journal(), " | TAPI_NETWORK_GetPlmnList() |");
    const std::string unit = "utility/PHONE_ENG_NtInterface ";
    EXPECT_EQ(locations(), (std::set{unit + "getKnownNetworks", unit + "getKwnownNetworksCnt"}));
}

TEST_F(ScanningTest, RegistrationHandsTheIdOn)
{
    for (const std::string id : {"00102", "123456789012345", ""}) {
        for (const int code : {0, 5}) {
            answer("TAPI_NETWORK_RegisterOperator", code);
            EXPECT_EQ(network().registerNetwork(QString::fromStdString(id)), code == 0);
            EXPECT_EQ(journal(),
                      R"( "In PHONE_ENG_NtInterface::registerNetwork\n" | TAPI_NETWORK_RegisterOperator(")"
                          + id + R"("[16]) | "id = )" + id + R"(\n" "Ret = )" + std::to_string(code)
                          + R"(\n")" + (code == 0 ? "" : failure));
        }
    }
    EXPECT_FALSE(network().registerNetwork(QStringLiteral("1234567890123456")));
    EXPECT_THAT(journal(), testing::ContainsRegex("^ \"[^|(]*1234567890123456[^|(]*\"$"));
}

const std::string nameCall =
    R"( UTIL_Language::getSystemLanguageId() | TAPI_NETWORK_GetChosenPlmnName("12345678901"[12], )";
const std::string listCall = " UTIL_Language::getSystemLanguageId() | TAPI_NETWORK_GetOperatorNameList(2, ";

TEST_F(ScanningTest, NamesComeInTheLanguageOfThePhone)
{
    _TAPI_PLMN_INFO_STRUCT_S names[2] = {{"00103", {}}, {"00101", {}}};
    state().network.networks[1].id = "12345678901";
    for (const int language : {0, 19, 20, 21, 22, 23}) {
        phone.setLanguage(language);
        const bool second = language == 20 || language == 22;
        QString shortName, longName;
        EXPECT_TRUE(network().getNetworkName(QStringLiteral("12345678901"), shortName, longName));
        EXPECT_EQ((shortName + longName).toStdString(), second ? "第二第二网络" : "SecondSecond Network");
        EXPECT_EQ(journal(), nameCall + (second ? "1) |" : "0) |"));

        EXPECT_TRUE(network().getOperatorNameList(names, 2));
        EXPECT_EQ(Unicode2QStr(names[1].name, 25).toStdString(), second ? "测试移动" : "Test Mobile");
        EXPECT_EQ(journal(), listCall + (second ? "1) |" : "0) |"));
    }
    EXPECT_FALSE(network().getOperatorNameList(nullptr, 2));
    EXPECT_FALSE(network().getOperatorNameList(names, 0));
    EXPECT_EQ(journal(), "");
    answer("TAPI_NETWORK_GetOperatorNameList", 5);
    EXPECT_FALSE(network().getOperatorNameList(names, 2));
    EXPECT_EQ(journal(), listCall + "0) | |");
}

TEST_F(ScanningTest, NamesAreReadFromTheirPlacesInTheRecord)
{
    // Nothing in the record is zero: no name is terminated, and what stands around the names is not theirs.
    std::string record(146, '\xee');
    record.replace(12, 100, std::string(50, 'l') + std::string(50, 's'));
    const QString id = QStringLiteral("12345678901");
    const QString expected = QString(25, QChar('s' * 0x101)) + QString(25, QChar('l' * 0x101));
    QString shortName, longName;
    answer("TAPI_NETWORK_GetChosenPlmnName", 0, {record});
    EXPECT_TRUE(network().getNetworkName(id, shortName, longName));
    EXPECT_EQ(shortName + longName, expected);
    EXPECT_EQ(journal(), nameCall + "0) |");
    EXPECT_FALSE(network().getNetworkName(QStringLiteral("987654321098"), shortName, longName));
    EXPECT_THAT(journal(), testing::ContainsRegex("^ \"[^|(]*987654321098[^|(]*\"$"));
    answer("TAPI_NETWORK_GetChosenPlmnName", 5, {std::string(146, 'x')});
    EXPECT_FALSE(network().getNetworkName(id, shortName, longName));
    EXPECT_EQ(shortName + longName, expected);
    EXPECT_EQ(journal(), nameCall + "0) | |");
    answer("TAPI_NETWORK_GetChosenPlmnName", 0);
    EXPECT_TRUE(network().getNetworkName(id, shortName, longName));
    EXPECT_TRUE(shortName.isEmpty() && longName.isEmpty());
}

TEST_F(ScanningTest, MyListScreenIsMissingOnlyWhenTheSimHasBothFeatures)
{
    const std::string calls = " TAPI_FTRDB_GetAvailability(2037) TAPI_FTRDB_GetAvailability(2144)";
    const std::pair<std::set<unsigned short>, std::string> rows[] = {
        {{}, R"( "eonsAvail = 0\n" "oplAvail = 0\n")"},
        {{2037}, R"( "eonsAvail = 1\n" "oplAvail = 0\n")"},
        {{2144}, R"( "eonsAvail = 0\n" "oplAvail = 1\n")"},
        {{2037, 2144}, R"( "eonsAvail = 1\n" "oplAvail = 1\n")"},
    };
    for (const auto &[features, log] : rows) {
        phone.product().databaseFeatures = features;
        EXPECT_EQ(network().myListScreenIsAvailable(), features.size() < 2);
        EXPECT_EQ(journal(), calls + log);
    }
    answer("TAPI_FTRDB_GetAvailability", -256);
    EXPECT_FALSE(network().myListScreenIsAvailable());
    EXPECT_EQ(journal(), calls + rows[3].second);
}

} // namespace
