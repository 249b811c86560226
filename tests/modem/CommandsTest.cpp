// The commands and their answers, a table a subject.
#include "ModemTest.h"

#include "Environment.h"

namespace AtModem {

namespace {

using CommandsTest = ModemTest;

template <std::size_t Count>
using Exchanges = std::array<Exchange, Count>;

} // namespace

TEST_F(CommandsTest, TheConnectionHasFormats)
{
    expect(Exchanges<12>{{
        {"AT", "OK"},
        {"AT+NOSUCH", "+CME ERROR: 4"},
        {"AT+CMEE=2;+NOSUCH", "+CME ERROR: operation not supported"},
        {"AT+CMEE=0", "OK"},
        {"AT+NOSUCH", "ERROR"},
        {"no command", "ERROR"},
        {"ATV0", "0"},
        {"ATV1", "OK"},
        {"AT+CSCS?", "+CSCS: \"GSM\"|OK"},
        {"AT+CSCS=\"KLINGON\"", "ERROR"},
        {"AT+CGSN;+CGMR", "350077523237513|R2.04.1|OK"},
        {"AT+CREG?;+NOSUCH;+CGSN", "+CREG: 0,1|ERROR"},
    }});
}

TEST_F(CommandsTest, ForwardingIsKeptByClassAndCondition)
{
    expect(Exchanges<19>{{
        {"AT+CCFC=2,2", "+CCFC: 0,1|+CCFC: 0,4|+CCFC: 0,16|+CCFC: 0,32|OK"},
        {"AT+CCFC=2,3,\"555\",129,1,,,12", "OK"},
        {"AT+CCFC=2,2,,,1", "+CCFC: 1,1,\"555\",129,,,15|OK"}, // the network rounds
        {"AT+CCFC=2,0,,,1", "OK"},
        {"AT+CCFC=2,2,,,1", "+CCFC: 0,1|OK"},
        {"AT+CCFC=2,1,,,1", "OK"},
        {"AT+CCFC=2,2,,,1", "+CCFC: 1,1,\"555\",129,,,15|OK"},
        {"AT+CCFC=0,3,\"49301\",145,32", "OK"},
        {"AT+CCFC=0,2,,,48", "+CCFC: 0,16|+CCFC: 1,32,\"+49301\",145|OK"},
        {"AT+CCFC=4,4,,,2", "OK"},
        {"AT+CCFC=0,2,,,32", "+CCFC: 0,32|OK"},
        {"AT+CCFC=2,2,,,1", "+CCFC: 1,1,\"555\",129,,,15|OK"},
        {"AT+CCFC=5,4", "OK"},
        {"AT+CCFC=2,2,,,1", "+CCFC: 0,1|OK"},
        {"AT+CCFC=1,1", "+CME ERROR: 3"}, // nothing was registered
        {"AT+CCFC=1,3,\"5x5\"", "+CME ERROR: 50"},
        {"AT+CCFC=2,3,\"555\",129,1,,,31", "+CME ERROR: 50"},
        {"AT+CCFC=4,2", "+CME ERROR: 3"},
        {"AT+CFUN=4;+CCFC=0,2", "+CME ERROR: 30"},
    }});
}

TEST_F(CommandsTest, CallsAreHeldSwappedAndJoined)
{
    EXPECT_EQ(ask("ATD+49301;"), "OK");
    EXPECT_EQ(ask("AT+CLCC"), "+CLCC: 1,0,2,0,0,\"+49301\",145|OK");
    pass(300);
    EXPECT_EQ(ask("AT+CLCC"), "+CLCC: 1,0,3,0,0,\"+49301\",145|OK");
    EXPECT_EQ(ask("ATD555;"), "+CME ERROR: 3");
    EXPECT_TRUE(remoteAnswers(modem, 1));
    ask("AT+CCWA=1;+CLIP=1;+CRC=1");
    EXPECT_EQ(ring(modem, "777", false).callId, 2);
    EXPECT_EQ(takeOutput(), "+CCWA: \"777\",129,1");
    expect(Exchanges<22>{{
        {"AT+CLCC", "+CLCC: 1,0,0,0,0,\"+49301\",145|+CLCC: 2,1,5,0,0,\"777\",129|OK"},
        {"AT+CHLD=2", "OK"},
        {"AT+CLCC", "+CLCC: 1,0,1,0,0,\"+49301\",145|+CLCC: 2,1,0,0,0,\"777\",129|OK"},
        {"AT+CHLD=2", "OK"},
        {"AT+CLCC", "+CLCC: 1,0,0,0,0,\"+49301\",145|+CLCC: 2,1,1,0,0,\"777\",129|OK"},
        {"AT+CHLD=3", "OK"},
        {"AT+CLCC", "+CLCC: 1,0,0,0,1,\"+49301\",145|+CLCC: 2,1,0,0,1,\"777\",129|OK"},
        {"AT+CHLD=3", "+CME ERROR: 3"},
        {"AT+CHLD=22", "OK"},
        {"AT+CLCC", "+CLCC: 1,0,1,0,0,\"+49301\",145|+CLCC: 2,1,0,0,0,\"777\",129|OK"},
        {"AT+VTS=1;+VTS=#", "OK"},
        {"AT+VTS=x", "+CME ERROR: 50"},
        {"AT+CHLD=12", "OK"},
        {"AT+VTS=1", "+CME ERROR: 3"}, // nobody hears it
        {"AT+CHLD=13", "+CME ERROR: 3"},
        {"AT+CHLD=9", "+CME ERROR: 50"},
        {"AT+CHLD=2", "OK"},
        {"AT+CHUP", "OK"},
        {"AT+CLCC", "OK"},
        {"AT+CHLD=2", "+CME ERROR: 3"},
        {"ATA", "NO CARRIER"},
        {"ATD123", "NO CARRIER"}, // a data call
    }});
    EXPECT_EQ(modem.phone.calls.tones, 2U);
}

TEST_F(CommandsTest, AnIncomingCallRingsUntilItIsAnsweredOrGone)
{
    ask("AT+CLIP=1;+CRC=1");
    ring(modem, "777", false);
    EXPECT_EQ(takeOutput(), "+CRING: VOICE|+CLIP: \"777\",129,,,,0");
    pass(2000);
    EXPECT_EQ(takeOutput(), "+CRING: VOICE|+CLIP: \"777\",129,,,,0");
    EXPECT_TRUE(remoteHangsUp(modem, 1));
    EXPECT_EQ(takeOutput(), "NO CARRIER");
    // The next call has the same id, but is another call.
    ask("AT+CRC=0;+CLIP=1");
    ring(modem, "888", true);
    EXPECT_EQ(takeOutput(), "RING|+CLIP: \"\",129,,,,1");
    EXPECT_EQ(ask("AT+CLCC"), "+CLCC: 1,1,4,0,0|OK");
    EXPECT_EQ(ask("ATA"), "OK");
    pass(10000);
    EXPECT_EQ(takeOutput(), "");
}

TEST_F(CommandsTest, TellsWhatServicesDoToACall)
{
    EXPECT_EQ(ask("AT+CCFC=1,3,\"10\",129,1;D555;"), "OK") << "nobody wants to be told";
    EXPECT_TRUE(remoteActs(modem, 1, "forward"));
    EXPECT_EQ(takeOutput(), "");
    EXPECT_EQ(ask("AT+CHUP;+CSSN=1,1"), "OK");
    EXPECT_EQ(ask("ATD555;"), "+CSSI: 1|OK");
    for (const char *const act : {"forward", "wait", "bar"})
        EXPECT_TRUE(remoteActs(modem, 1, act)) << act;
    EXPECT_EQ(takeOutput(), "+CSSI: 2|+CSSI: 3|+CSSI: 6");
    EXPECT_FALSE(remoteActs(modem, 1, "hold")) << "nobody has answered";
    EXPECT_TRUE(remoteAnswers(modem, 1));
    for (const char *const act : {"hold", "resume", "join"})
        EXPECT_TRUE(remoteActs(modem, 1, act)) << act;
    EXPECT_EQ(takeOutput(), "+CSSU: 2|+CSSU: 3|+CSSU: 4");
    EXPECT_FALSE(remoteActs(modem, 1, "forward"));
    EXPECT_FALSE(remoteActs(modem, 2, "hold"));
    EXPECT_EQ(ask("AT+CHUP;+CCFC=0,3,\"40\",129,1;D555;"), "+CSSI: 0|OK");
    EXPECT_EQ(ask("AT+CHUP;+CCFC=4,4"), "OK");
    ring(modem, "777", false, true);
    EXPECT_EQ(takeOutput(), "RING|+CSSU: 0");
}

TEST_F(CommandsTest, TheNetworkForwardsWhatItWasToldTo)
{
    using Outcome = IncomingCall::Outcome;
    ask("AT+CCFC=2,3,\"20\",129,1,,,5;+CCFC=1,3,\"10\",129,1;+CCFC=3,3,\"30\",129,1");
    EXPECT_EQ(ring(modem, "1", false).outcome, Outcome::Rings);
    EXPECT_EQ(ring(modem, "2", false).forwardedTo, "10"); // busy: nobody waits beside a ringing call
    pass(6000);
    EXPECT_EQ(takeOutput(), "RING|RING|RING|NO CARRIER"); // nobody answered
    setInRange(modem, "00101", false);
    setInRange(modem, "00102", false);
    EXPECT_EQ(ring(modem, "3", false).forwardedTo, "30");
    ask("AT+CCFC=0,3,\"40\",129,1");
    setInRange(modem, "00101", true);
    pass(1000);
    EXPECT_EQ(ask("AT+CCFC=0,3,\"40\",129,1"), "OK");
    EXPECT_EQ(ring(modem, "4", false).forwardedTo, "40");
}

TEST_F(CommandsTest, PinsBlockAndPuksUnblock)
{
    expect(Exchanges<16>{{
        {"AT+CPIN?", "+CPIN: READY|OK"},
        {"AT+CPIN=\"1234\"", "+CME ERROR: 3"}, // nothing is asked for
        {"AT+CLCK=\"SC\",1,\"1111\"", "+CME ERROR: 16"},
        {"AT+CLCK=\"SC\",1,\"1234\"", "OK"},
        {"AT+CLCK=\"SC\",2", "+CLCK: 1|OK"},
        {"AT+CPWD=\"SC\",\"1111\",\"2222\"", "+CME ERROR: 16"},
        {"AT+CPIN?", "+CPIN: READY|OK"},                      // a wrong code closes nothing
        {"AT+CPWD=\"SC\",\"12\",\"2222\"", "+CME ERROR: 16"}, // no PIN, so no try
        {"AT+CPWD=\"SC\",\"1111\",\"2222\"", "+CME ERROR: 16"},
        {"AT+CPINR",
         "+CPINR: SIM PIN,1,3|+CPINR: SIM PUK,10,10|+CPINR: SIM PIN2,3,3|+CPINR: SIM PUK2,10,10|OK"},
        {"AT+CPWD=\"SC\",\"1111\",\"2222\"", "+CME ERROR: 12"},
        {"AT+CPIN?", "+CPIN: SIM PUK|OK"},
        {"AT+CIMI", "+CME ERROR: 12"},
        {"AT+CPIN=\"12345678\"", "+CME ERROR: 12"},
        {"AT+CPIN=\"00000000\",\"2222\"", "+CME ERROR: 12"},
        {"AT+CPIN=\"12345678\",\"2222\"", "OK"},
    }});
    pass(500);
    EXPECT_EQ(takeOutput(), "+USIMSTATE: 0|+USIMSTATE: 1");
    // Power off and on: the PIN is asked for again.
    ask("AT+CFUN=0");
    ask("AT+CFUN=1");
    pass(500);
    takeOutput();
    expect(Exchanges<6>{{
        {"AT+CPIN?", "+CPIN: SIM PIN|OK"},
        {"AT+CIMI", "+CME ERROR: 11"},
        {"AT+CREG?", "+CREG: 0,0|OK"},
        {"AT+CPIN=\"2222\"", "OK"},
        {"AT+CIMI", "001010123456789|OK"},
        {"AT+CREG?", "+CREG: 0,1|OK"},
    }});
}

TEST_F(CommandsTest, ThePuksOwnTriesEnd)
{
    modem.phone.sim.pin1.triesLeft = 0;
    for (int tries = 9; tries >= 0; --tries) {
        EXPECT_EQ(ask("AT+CPIN=\"00000000\",\"2222\""), "+CME ERROR: 12");
        EXPECT_EQ(modem.phone.sim.pin1.pukTriesLeft, tries);
    }
    EXPECT_EQ(ask("AT+CPIN=\"12345678\",\"2222\""), "+CME ERROR: 12");
}

TEST_F(CommandsTest, TheMetersAskForPin2)
{
    expect(Exchanges<17>{{
        {"AT+CACM?", "+CACM: \"00001B\"|OK"},
        {"AT+CAMM?", "+CAMM: \"000190\"|OK"},
        {"AT+CPUC?", "+CPUC: \"EUR\",\"0.12\"|OK"},
        {"AT+CACM=", "+CME ERROR: 17"},
        {"AT+CACM=\"1111\"", "+CME ERROR: 16"},
        {"AT+CACM=\"11\"", "+CME ERROR: 50"},
        {"AT+CAMM=\"00004D\",\"5678\"", "OK"},
        {"AT+CAMM=\"1000000\",\"5678\"", "+CME ERROR: 50"},
        {"AT+CPUC=\"USD\",\"0.25\",\"5678\"", "OK"},
        {"AT+CPUC=\"US\",\"0.25\",\"5678\"", "+CME ERROR: 50"},
        {"AT+CPUC=\"USD\",\"1.2.3\",\"5678\"", "+CME ERROR: 50"},
        {"AT+CACM=\"5678\"", "OK"},
        {"AT+CACM?;+CAMM?;+CPUC?", "+CACM: \"000000\"|+CAMM: \"00004D\"|+CPUC: \"USD\",\"0.25\"|OK"},
        {"AT+CACM=\"1111\"", "+CME ERROR: 16"},
        {"AT+CACM=\"1111\"", "+CME ERROR: 16"},
        {"AT+CACM=\"1111\"", "+CME ERROR: 18"},
        {"AT+CPIN?", "+CPIN: SIM PUK2|OK"},
    }});
    EXPECT_EQ(ask("AT+CPIN=\"87654321\",\"9999\""), "OK");
    EXPECT_EQ(ask("AT+CPIN?"), "+CPIN: READY|OK");
    EXPECT_EQ(ask("AT+CACM=\"9999\""), "OK");
}

TEST_F(CommandsTest, UnitsAreCountedUntilTheCreditIsUsedUp)
{
    modem.charge = {0, 0, 5};
    ask("AT+CAOC=2;+CCWE=1");
    ask("ATD555;");
    EXPECT_TRUE(remoteAnswers(modem, 1));
    EXPECT_EQ(takeOutput(), "+CCCM: \"000001\"");
    pass(10000);
    EXPECT_EQ(takeOutput(), "+CCCM: \"000002\"|+CCWV");
    pass(40000);
    EXPECT_EQ(takeOutput(), "+CCCM: \"000003\"|+CCCM: \"000004\"|+CCCM: \"000005\"|NO CARRIER");
    EXPECT_EQ(ask("AT+CLCC;+CAOC=0"), "+CAOC: \"000005\"|OK");
}

TEST_F(CommandsTest, NetworksAreFoundAndRegisteredWith)
{
    expect(Exchanges<13>{{
        {"AT+COPS=?",
         "+COPS: (2,\"Test Mobile\",\"Test\",\"00101\",2),(1,\"Second Network\",\"Second\",\"00102\",2),"
         "(3,\"Closed Network\",\"Closed\",\"00103\",2),,(0,1,2,3,4),(0,1,2)|OK"},
        {"AT+CREG=2", "OK"},
        {"AT+COPS=1,2,\"00102\"", "OK|+CREG: 5,\"00C3\",\"0000A1B2\",2"},
        {"AT+COPS?", "+COPS: 1,0,\"Second Network\",2|OK"},
        {"AT+COPS=3,2", "OK"},
        {"AT+COPS?", "+COPS: 1,2,\"00102\",2|OK"},
        {"AT+COPS=1,2,\"00103\"", "+CME ERROR: 32"},
        {"AT+COPS=1,2,\"99999\"", "+CME ERROR: 30"},
        {"AT+COPS?", "+COPS: 1,2,\"00102\",2|OK"},
        {"AT+COPS=4,0,\"Nowhere\"", "OK"},
        {"AT+COPS=2", "OK|+CREG: 2"},
        {"AT+CSQ", "+CSQ: 99,99|OK"},
        {"AT+COPS=0", "OK|+CREG: 1,\"00C3\",\"0000A1B2\",2"},
    }});
    setInRange(modem, "00101", false);
    pass(500);
    EXPECT_EQ(takeOutput(), "+CREG: 2|+CREG: 5,\"00C3\",\"0000A1B2\",2");
}

TEST_F(CommandsTest, OptionsAndTheDevice)
{
    expect(Exchanges<20>{{
        {"AT+CLIR?", "+CLIR: 0,4|OK"},           {"AT+CLIR=1", "OK"},
        {"AT+CLIR?", "+CLIR: 1,4|OK"},           {"AT+CLIR=3", "+CME ERROR: 50"},
        {"AT+CCWA=1,2,1", "+CCWA: 1,1|OK"},      {"AT+CCWA=1,0,1", "OK"},
        {"AT+CCWA=1,2,1", "+CCWA: 0,1|OK"},      {"AT+CCWA=1,1,4", "OK"}, // fax
        {"AT+CCWA=1,2,1", "+CCWA: 0,1|OK"},      {"AT+CCWA=2", "+CME ERROR: 50"},
        {"AT+CLIP?", "+CLIP: 0,1|OK"},           {"AT+COLP=1;+COLP?", "+COLP: 1,1|OK"},
        {"AT+CSSN=1,1;+CSSN?", "+CSSN: 1,1|OK"}, {"AT+CLVL=101", "+CME ERROR: 50"},
        {"AT+CLVL=30;+CLVL?", "+CLVL: 30|OK"},   {"AT+CMUT=1;+CMUT?", "+CMUT: 1|OK"},
        {"AT+PTTY=4", "+CME ERROR: 50"},         {"AT+PTTY=2;+PTTY?", "+PTTY: 2|OK"},
        {"AT+CLCK=\"FD\",1,\"5678\"", "OK"},     {"AT+CLCK=\"FD\",2", "+CLCK: 1|OK"},
    }});
}

TEST_F(CommandsTest, AServiceIsTalkedTo)
{
    EXPECT_EQ(ask("AT+CUSD=1,\"*123#\",15"), "OK");
    pass(500);
    EXPECT_EQ(takeOutput(), "+CUSD: 1,\"1 Balance\n2 Offers\n0 End\",15");
    ask("AT+CUSD=1,\"2\",15");
    pass(500);
    EXPECT_EQ(takeOutput(), "+CUSD: 1,\"1 Weekend\n2 Abroad\n0 End\",15");
    ask("AT+CUSD=1,\"0\",15");
    pass(500);
    EXPECT_EQ(takeOutput(), "+CUSD: 2,\"Good bye.\",15");
    ask("AT+CUSD=1,\"*1#\",15");
    ask("AT+CUSD=2"); // ended before the answer came
    pass(500);
    EXPECT_EQ(takeOutput(), "");
}

TEST_F(CommandsTest, AnswersComeLateOrNotAtAll)
{
    modem.disturbances["+CCFC"].delay = Agenda::Duration(3000);
    EXPECT_EQ(ask("AT+CCFC=1,3,\"555\",129,1"), "");
    EXPECT_EQ(ask("AT+CSQ"), ""); // in its turn
    pass(2999);
    EXPECT_EQ(takeOutput(), "");
    pass(1);
    EXPECT_EQ(takeOutput(), "OK|+CSQ: 22,99|OK");
    // Who goes away does not take the request with him.
    EXPECT_EQ(ask("AT+CCFC=1,4"), "");
    session->disconnect();
    session.reset();
    pass(3000);
    EXPECT_TRUE(modem.phone.services.forwardings.at({0, 1, 1}).number.empty());
}

TEST_F(CommandsTest, AMissingCardAndAVanishedNetworkAreSeen)
{
    ask("AT+CREG=1");
    ask("ATD555;");
    setCardInserted(modem, false);
    EXPECT_EQ(takeOutput(), "+USIMSTATE: 0|+CREG: 0");
    EXPECT_EQ(ask("AT+CPIN?"), "+CME ERROR: 10");
    EXPECT_EQ(ask("AT+CLCC"), "OK");
    EXPECT_EQ(ask("ATD555;"), "+CME ERROR: 30");
    EXPECT_EQ(ask("ATD112;"), "OK");
    setCardInserted(modem, true);
    EXPECT_EQ(takeOutput(), "+USIMSTATE: 1|+CREG: 1");
}

TEST_F(CommandsTest, ACardIsAsItWasWhenItWasPulled)
{
    const auto putIn = [this](unsigned int number) {
        setCardInserted(modem, false);
        takeCard(modem, number);
        setCardInserted(modem, true);
        takeOutput();
        return ask("AT+CIMI") + ' ' + ask("AT+CRSM=176,12258,0,0,10");
    };
    const std::string first = ask("AT+CIMI") + ' ' + ask("AT+CRSM=176,12258,0,0,10");
    EXPECT_EQ(first, "001010123456789|OK +CRSM: 144,0,\"989400000000000010F8\"|OK");
    EXPECT_EQ(ask("AT+CPWD=\"SC\",\"1234\",\"4321\""), "OK");
    EXPECT_EQ(putIn(2), "001011123456789|OK +CRSM: 144,0,\"989400000000000020F6\"|OK");
    EXPECT_EQ(ask("AT+CPWD=\"SC\",\"4321\",\"1111\""), "+CME ERROR: 16");
    EXPECT_EQ(putIn(1), first);
    EXPECT_EQ(ask("AT+CPWD=\"SC\",\"4321\",\"1234\""), "OK");
}

} // namespace AtModem
