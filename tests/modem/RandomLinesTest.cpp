// Whatever comes in, the modem answers and goes on.
#include "ModemTest.h"

#include "Prompt.h"

#include <random>

namespace AtModem {

namespace {

using RandomLinesTest = ModemTest;

/** Commands as they should be, to be spoilt. */
constexpr std::array seeds = {
    "AT+CCFC=2,3,\"555\",129,7,,,20",
    "AT+CHLD=2",
    "AT+CHLD=12",
    "ATD+4912345;",
    "AT+CPIN=\"1234\",\"5678\"",
    "ATA",
    "ATH",
    "AT+CPWD=\"SC\",\"1234\",\"4321\"",
    "AT+CLCK=\"SC\",1,\"1234\"",
    "AT+COPS=?",
    "AT+COPS?",
    "AT+CUSD=1,\"*123#\",15",
    "AT+CRSM=178,28480,1,4,28",
    "AT+CFUN=1",
    "AT+CLCC",
    "AT+CRSM=220,28480,1,4,28,\"FFFF\"",
    "AT+CAMM=\"00000F\",\"5678\"",
    "AT+VTS=1",
    "ATE1",
    "AT+CPUC=\"EUR\",\"0.1\",\"5678\"",
    ".ring 5551234",
    ".hangup",
    ".answer",
    ".network vanishes",
    ".network returns",
    ".card out",
    ".card in",
    ".delay +CLCC 50",
};

std::string spoil(std::string line, std::mt19937 &random)
{
    const auto below = [&random](std::size_t limit) { return random() % limit; };
    for (std::size_t changes = below(4); changes > 0 && !line.empty(); --changes) {
        const std::size_t position = below(line.size());
        switch (below(4)) {
        case 0:
            line[position] = static_cast<char>(below(256));
            break;
        case 1:
            line.erase(position, below(5));
            break;
        case 2:
            line.insert(position, line.substr(below(line.size()), below(20)));
            break;
        default:
            line.insert(position, std::to_string(random()));
        }
    }
    return line;
}

} // namespace

TEST_F(RandomLinesTest, NothingHarmsTheModem)
{
    std::mt19937 random(20261124); // the same lines every time
    Prompt prompt(modem);
    for (int round = 0; round < 6000; ++round) {
        const std::string line = spoil(seeds[random() % seeds.size()], random);
        if (line.rfind('.', 0) == 0)
            prompt.run(line);
        else
            session->receive(line + '\r');
        pass(static_cast<int>(random() % 500));
        ASSERT_LE(modem.phone.calls.table.count, TAPI_CALL_MAX_SESSIONS);
        ASSERT_LE(modem.callDetails.size(), TAPI_CALL_MAX_SESSIONS);
    }
    modem.reset();
    pass(100000);
    ask("ATE0V1+CMEE=1");
    EXPECT_EQ(ask("AT+CFUN=1"), "OK");
}

TEST_F(RandomLinesTest, ALineWithoutEndIsGivenUp)
{
    session->receive("AT+CUSD=1,\"" + std::string(100000, 'x'));
    EXPECT_EQ(ask("\"" + std::string(100000, '\n')), "ERROR");
    EXPECT_EQ(ask("AT"), "OK");
    std::string echoed;
    const auto echoing = modem.connect([&echoed](std::string_view bytes) { echoed += bytes; });
    echoing->receive("ATX\bE1\r");
    EXPECT_THAT(echoed, testing::EndsWith("\r\nOK\r\n"));
}

} // namespace AtModem
