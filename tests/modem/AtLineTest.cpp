// The syntax of command lines, and what a log may show of them.
#include "AtLine.h"

#include <gtest/gtest.h>

namespace AtModem {

namespace {

/** The commands as text: name, form and parameters in brackets. */
std::string describe(const std::optional<std::vector<Command>> &commands)
{
    if (!commands)
        return "none";
    std::string text;
    for (const Command &command : *commands) {
        text += (text.empty() ? "" : " ") + command.name;
        text += std::string(1, "!?t="[static_cast<int>(command.form)]);
        for (const Parameter &parameter : command.parameters)
            text += parameter.quoted ? "\"" + parameter.text + '"' : '[' + parameter.text + ']';
    }
    return text;
}

} // namespace

TEST(AtLineTest, CommandsAreTakenFromALine)
{
    const std::vector<std::pair<std::string, const char *>> lines = {
        {"AT", ""},
        {"at+cclk?", "+CCLK?"},
        {"  ATE0", "E![0]"},
        {"ATE0 V1 &C0 +CMEE=1", "E![0] V![1] &C![0] +CMEE=[1]"},
        {"AT+CSCS=?;+CREG?;+CLCC", "+CSCSt +CREG? +CLCC!"},
        {"AT+CCFC=2,3,\"+49;5,5\",145,1,,,20", "+CCFC=[2][3]\"+49;5,5\"[145][1][][][20]"},
        {"AT+CSCA=\"\" , 129", "+CSCA=\"\"[129]"},
        {"AT+VTS=1;+VTS=2", "+VTS=[1] +VTS=[2]"},
        {"ATD+49 30-12;", "D![+493012;]"},
        {"ATS7=30S3?", "S=[7][30] S?[3]"},
        {"", "none"},
        {"A", "none"},
        {"hello", "none"},
        {"AT+", "none"},
        {"AT?", "none"},
        {"AT+CPIN=\"12", "none"},
        {"AT+CPIN=1\"2\"", "none"},
        {"AT+CPIN=\"1\"2", "none"},
        {"AT+CREG?x", "none"},
        {"AT+X=" + std::string(30, ','), "none"},
    };
    for (const auto &[line, expected] : lines)
        EXPECT_EQ(describe(parseLine(line)), expected) << line;
}

TEST(AtLineTest, NumbersAreNumbersOnly)
{
    const auto commands = parseLine("AT+X=7,,x,1234567890,-1");
    ASSERT_TRUE(commands);
    const Command &command = commands->front();
    EXPECT_EQ(command.number(0), 7);
    EXPECT_EQ(command.number(1, 5), 5);
    for (const std::size_t position : {1U, 2U, 3U, 4U, 5U})
        EXPECT_EQ(command.number(position), std::nullopt) << position;
    EXPECT_EQ(command.number(2, 5), std::nullopt);
}

TEST(AtLineTest, NoSecretReachesALog)
{
    for (const char *const line :
         {"AT+CPIN=\"1234\"", "at+cpin=\"12345678\",\"1234\"", "AT+CLCK=\"SC\",1,\"1234\"",
          "AT+CPWD=\"P2\",\"1234\",\"12345678\"", "AT+CACM=\"1234\"", "AT+CAMM=\"00000F\",\"1234\"",
          "AT+CPUC=\"EUR\",\"0.1\",\"1234\"", "ATD**04*1234*5678*5678#;", "ATD**052 *12345678*1234*1234#;",
          "AT+CUSD=1,\"*33*1234#\",15", "ATD*03*330*5678*1234*1234#;", "AT+CPIN=\"1234",
          "AT+CMEE=1;+CPIN=1234"})
        EXPECT_EQ(maskSecrets(line).find("1234"), std::string::npos) << line;
    for (const char *const line :
         {"AT+CCFC=0,3,\"5551234\"", "ATD**21*0401234#;", "ATD*#33#;", "ATD0521234;"})
        EXPECT_EQ(maskSecrets(line), line);
}

} // namespace AtModem
