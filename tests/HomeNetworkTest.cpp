// The home network, the service provider name, and the conversion of name fields.
#include "EngineTest.h"

namespace {

class HomeNetworkTest : public EngineTest { };

TEST_F(HomeNetworkTest, NameFieldsEndAtAZeroUnitOrAtTheirLimit)
{
    unsigned short full[25];
    std::fill_n(full, 25, 0x4E2D);
    EXPECT_EQ(Unicode2QStr(full, 25), QString(25, QChar(0x4E2D)));
    EXPECT_EQ(Unicode2QStr(full, 3), QString(3, QChar(0x4E2D)));
    EXPECT_TRUE(Unicode2QStr(nullptr, 0).isNull());
    unsigned short ended[] = {0x0041, 0x0042, 0x0000, 0x0043};
    EXPECT_EQ(Unicode2QStr(ended, 4).toStdString(), "AB");
    EXPECT_TRUE(Unicode2QStr(ended + 2, 2).isNull());
}

TEST_F(HomeNetworkTest, ProviderNameComesWithItsDisplayCondition)
{
    const std::string record = '\3' + std::string(51, 'x');
    const QString name(25, QChar('x' * 0x101));
    const QString empty = QStringLiteral("");
    const std::tuple<int, std::vector<std::string>, int, QString> rows[] = {
        {0, {record}, 3, name},  {0, {std::string("\xff\xee\0\0g", 5)}, 255, QString()},
        {0, {}, 0, QString()},   {5, {}, 0, empty},
        {5, {record}, 3, empty},
    };
    for (const auto &[code, out, displayCondition, providerName] : rows) {
        answer("TAPI_NETWORK_GetServiceProviderName", code, out);
        const PHONE_SERVICE_PROVIDER_S provider = network().getServiceProviderName();
        EXPECT_EQ(provider.displayCondition, displayCondition);
        EXPECT_EQ(provider.name, providerName);
        EXPECT_EQ(provider.name.isNull(), providerName.isNull());
        Events expected = {R"("In PHONE_ENG_NtInterface::getServiceProviderName\n")", trace,
                           "TAPI_NETWORK_GetServiceProviderName()", trace,
                           R"("ret = )" + std::to_string(code) + R"(\n")"};
        if (code == 0)
            expected.push_back(trace);
        EXPECT_EQ(events(), expected);
    }
}

TEST_F(HomeNetworkTest, HomeIsTheNetworkThatTheSubscriberIdentityBeginsWith)
{
    const auto isHome = [this](const std::string &imsi, const char *networkId) {
        answer("TAPI_ACCE_GetImsi", 0, {imsi});
        const bool home = PHONE_SET_IsHomeNetwork(QLatin1String(networkId));
        EXPECT_EQ(events(), (Events{trace, "TAPI_ACCE_GetImsi()", trace, trace}));
        return home;
    };
    for (const char *const id : {"00101", "001-01", "00101-", "-00101"})
        EXPECT_TRUE(isHome("001010123456789", id)) << id;
    for (const char *const id : {"001010", "001-010", "00-10-1", "00101--", "0010", "00102", ""})
        EXPECT_FALSE(isHome("001010123456789", id)) << id;
    EXPECT_TRUE(isHome(std::string("0010\0", 5), "001-0"));
    EXPECT_FALSE(isHome(std::string("0010\0001", 6), "00101"));
    EXPECT_TRUE(isHome("0010112345678901", "00101")) << "without a terminator";

    answer("TAPI_ACCE_GetImsi", 5, {"001010123456789"});
    EXPECT_FALSE(PHONE_SET_IsHomeNetwork(QStringLiteral("00101")));
    EXPECT_EQ(events(), (Events{trace, "TAPI_ACCE_GetImsi()", trace}));
    EXPECT_EQ(locations(), std::set<std::string>{"utility/PHONE_ENG_NtInterface PHONE_SET_IsHomeNetwork"});
}

} // namespace
