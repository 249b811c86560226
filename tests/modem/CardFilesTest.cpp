// The files of the card: well encoded, written back, and closed where a PIN is missing.
#include "ModemTest.h"

#include "CardText.h"

namespace AtModem {

namespace {

using CardFilesTest = ModemTest;

} // namespace

TEST_F(CardFilesTest, FilesAreReadAsTheStandardHasThem)
{
    expect(std::array<Exchange, 12>{{
        {"AT+CRSM=192,12258", "+CRSM: 144,0,\"62148202412183022FE28A01058C0303FF008002000A\"|OK"},
        {"AT+CRSM=176,28423,0,0,9", "+CRSM: 144,0,\"080910101032547698\"|OK"},                  // EF IMSI
        {"AT+CRSM=176,28486,0,0,17", "+CRSM: 144,0,\"0154657374204D6F62696C65FFFFFFFFFF\"|OK"}, // EF SPN
        {"AT+CRSM=176,28589,0,3,1", "+CRSM: 144,0,\"02\"|OK"}, // EF AD: two digits of network code
        {"AT+CRSM=178,28614,2,4,8", "+CRSM: 144,0,\"00F1200000FFFE02\"|OK"}, // EF OPL
        {"AT+CRSM=178,28480,1,4,28",
         "+CRSM: 144,0,\"4C696E652031FFFFFFFFFFFFFFFF0791947110325476FFFFFFFFFFFF\"|OK"},
        {"AT+CRSM=178,28480,5,4,28", "+CRSM: 106,131|OK"},
        {"AT+CRSM=178,28480,1,4,27", "+CRSM: 103,0|OK"},
        {"AT+CRSM=176,28480,0,0,10", "+CRSM: 105,129|OK"},
        {"AT+CRSM=176,28486,0,10,10", "+CRSM: 103,0|OK"},
        {"AT+CRSM=192,1", "+CRSM: 106,130|OK"},
        {"AT+CRSM=176,28486,0,0,300", "+CME ERROR: 50"},
    }});
}

TEST_F(CardFilesTest, OwnNumbersAreWrittenBack)
{
    const std::string file = "AT+CRSM=220,28480,3,4,28,\"";
    EXPECT_EQ(ask(file
                  + "800416043804320430FFFFFFFFFF"
                    "0491214365FFFFFFFFFFFFFFFFFF\""),
              "+CRSM: 144,0|OK");
    EXPECT_EQ(modem.phone.sim.ownNumbers[2].number, "+123456");
    EXPECT_EQ(modem.phone.sim.ownNumbers[2].name, QString::fromUtf8("Жива"));
    EXPECT_EQ(ask("AT+CRSM=178,28480,3,4,28"),
              "+CRSM: 144,0,\"800416043804320430FFFFFFFFFF0491214365FFFFFFFFFFFFFFFFFF\"|OK");
    EXPECT_EQ(ask(file + std::string(56, 'F') + '"'), "+CRSM: 144,0|OK");
    EXPECT_TRUE(modem.phone.sim.ownNumbers[2].number.empty());
    EXPECT_EQ(ask(file + "FF\""), "+CRSM: 103,0|OK");
    EXPECT_EQ(ask(file + std::string(56, 'G') + '"'), "+CRSM: 103,0|OK");
    // A length that lies is bounded by its field.
    EXPECT_EQ(ask(file + std::string(28, 'F') + "FE8121FFFFFFFFFFFFFFFFFFFFFF\""), "+CRSM: 144,0|OK");
    EXPECT_EQ(modem.phone.sim.ownNumbers[2].number, "12");
}

TEST_F(CardFilesTest, ALockedCardShowsWhatEverybodyMaySee)
{
    modem.phone.sim.pin1Request = 1;
    modem.phone.sim.pin1.verified = false;
    EXPECT_EQ(ask("AT+CRSM=176,12258,0,0,10"), "+CRSM: 144,0,\"989400000000000010F8\"|OK");
    EXPECT_EQ(ask("AT+CRSM=178,28480,1,4,28"), "+CRSM: 105,130|OK");
    EXPECT_EQ(ask("AT+CRSM=220,28480,1,4,28,\"" + std::string(56, 'F') + '"'), "+CRSM: 105,130|OK");
    EXPECT_EQ(modem.phone.sim.ownNumbers[0].number, "+491701234567");
}

TEST(CardTextTest, NamesFitTheirFields)
{
    constexpr std::size_t size = 8;
    for (const char *const name : {"", "Line 1", "Ünïcödé", "12345678", "Ж"}) {
        const QString text = QString::fromUtf8(name);
        const Bytes bytes = packName(text, size);
        EXPECT_EQ(bytes.size(), size);
        EXPECT_TRUE(text.startsWith(unpackName(bytes))) << name;
    }
    EXPECT_EQ(unpackName(packName(QString::fromUtf8("ЖЖЖЖЖ"), size)), QString::fromUtf8("ЖЖЖ"));
    EXPECT_EQ(toHex(packNetwork("310410")), "130014");
}

} // namespace AtModem
