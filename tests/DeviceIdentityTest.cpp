// Device identity: IMEI and baseband versions.
#include "EngineTest.h"

namespace {

class DeviceIdentityTest : public EngineTest {
protected:
    // None of this asks the hook.
    DeviceIdentityTest() { refuse(); }
};

std::string field(std::string text)
{
    text.resize(48);
    return text;
}

TEST_F(DeviceIdentityTest, TheImeiIsWrittenWhateverTheResult)
{
    const std::tuple<unsigned int, std::string, std::string> rows[] = {
        {0, std::string("350077523237513\0X", 17), "350077523237513"},
        {0, "3500775232375130", "3500775232375130"},
        {0, "\xe9", "\u00e9"},
        {0, std::string(17, '5'), std::string(17, '5')},
        {0x8000, "", ""},
        {0x8000, "3500", "3500"},
    };
    for (const auto &[result, out, expected] : rows) {
        SCOPED_TRACE(expected);
        answer("TAPI_ACCE_GetImei", result, {out});
        QString imei = QStringLiteral("old");
        EXPECT_EQ(setup().readIMEISerialNumber(imei), result);
        EXPECT_EQ(imei.toStdString(), expected);
        EXPECT_EQ(events(), (Events{trace, "TAPI_ACCE_GetImei()", trace}));
    }
    EXPECT_EQ(locations(), std::set<std::string>{"utility/PHONE_ENG_Setup readIMEISerialNumber"});
}

TEST_F(DeviceIdentityTest, VersionsAreCopiedFieldByFieldAndTerminated)
{
    const std::string rows[][4] = {
        {"R2", "", "D 3", "W-4"},
        {std::string(48, 'a'), std::string(48, 'b'), std::string(48, 'c'), std::string(48, 'd')}};
    for (const auto &row : rows) {
        PHONE_BP_VERSION_INFO_S info;
        std::memset(&info, '#', sizeof info);
        answer("TAPI_ACCE_GetBpVersionInfo", 0,
               {field(row[0]) + field(row[1]) + field(row[2]) + field(row[3])});
        EXPECT_EQ(setup().getBpVersionInfo(&info), TAPI_RESULT_SUCC);
        Events expected = {trace, "TAPI_ACCE_GetBpVersionInfo()", trace};
        for (std::size_t i = 0; i < 4; ++i) {
            const char *const names[] = {"bpVer", "bpFlexVer", "dspVer", "technology"};
            const std::string version = row[i].substr(0, 47);
            EXPECT_EQ(bytesOf(info).substr(48 * i, 48),
                      version + '\0' + std::string(47 - version.size(), '#'));
            expected.push_back(R"("utility/PHONE_ENG_Setup::getBpVersionInfo \n )"
                               + (names[i] + (" =" + version)) + R"( \n")");
        }
        EXPECT_EQ(events(), expected);
    }
    EXPECT_EQ(locations(), std::set<std::string>{"utility/PHONE_ENG_Setup getBpVersionInfo"});
}

TEST_F(DeviceIdentityTest, AFailedReadLeavesTheCallersDataAlone)
{
    PHONE_BP_VERSION_INFO_S info;
    unsigned char version[48];
    std::memset(&info, '#', sizeof info);
    std::memset(version, '#', sizeof version);
    answer("TAPI_ACCE_GetBpVersionInfo", 0x8000, {std::string(192, 'x')});
    answer("TAPI_ACCE_GetBpVersion", 0x8000, {field("x")});
    EXPECT_EQ(setup().getBpVersionInfo(&info), TAPI_RESULT_FAIL);
    EXPECT_EQ(setup().getBpVersion(version), TAPI_RESULT_FAIL);
    EXPECT_EQ(bytesOf(info), std::string(192, '#'));
    EXPECT_EQ(bytesOf(version), std::string(48, '#'));
    EXPECT_EQ(events(),
              (Events{trace, "TAPI_ACCE_GetBpVersionInfo()", trace,
                      R"("utility/PHONE_ENG_Setup::getBpVersionInfo  )"
                      R"(TAPI_ACCE_GetBpVersionInfo()   false !!!!!!*****************\n")",
                      trace, "TAPI_ACCE_GetBpVersion()", trace}));
    EXPECT_EQ(setup().getBpVersionInfo(nullptr), TAPI_RESULT_INVALID_PARAM);
    EXPECT_EQ(setup().getBpVersion(nullptr), TAPI_RESULT_INVALID_PARAM);
    EXPECT_TRUE(setup().isShowBpPanic());
    EXPECT_TRUE(events().empty());
}

TEST_F(DeviceIdentityTest, AnEmptyVersionIsReplacedByWords)
{
    const std::pair<std::string, std::string> rows[] = {
        {"", " BP Version is NULL! "}, {"R2.04.1", "R2.04.1"}, {std::string(48, 'v'), std::string(47, 'v')}};
    for (const auto &[reported, given] : rows) {
        SCOPED_TRACE(given);
        unsigned char version[49];
        std::memset(version, '#', sizeof version);
        answer("TAPI_ACCE_GetBpVersion", 0, {field(reported)});
        EXPECT_EQ(setup().getBpVersion(version), TAPI_RESULT_SUCC);
        EXPECT_EQ(bytesOf(version), given + '\0' + std::string(48 - given.size(), '#'));
        const std::string place = "\"utility/PHONE_ENG_Setup::getBpVersion ";
        EXPECT_EQ(events(),
                  (Events{trace, "TAPI_ACCE_GetBpVersion()", trace,
                          place + " TAPI_RESULT_SUCC tapiVer =" + reported.substr(0, 47) + " \\n\"",
                          place + " 002 PhonebPVer =" + given + " \\n\""}));
    }
}

} // namespace
