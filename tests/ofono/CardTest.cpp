// What the daemon does not know of the card: nothing is written and no lock is tried on the strength of it.
#include "Desk.h"

#include "TAPI_CPHS.h"
#include "TAPI_OWNNUMBER.h"
#include "TAPI_SECURITY.h"

#include <QRegularExpression>

#include <csignal>
#include <future>

#include <sys/wait.h>
#include <unistd.h>

using Desk::text;

namespace {

constexpr _TAPI_RESULT_E done = TAPI_RESULT_SUCC;
constexpr _TAPI_RESULT_E unavailable = TAPI_RESULT_SIM_UNAVAILABLE;
constexpr _TAPI_RESULT_E missing = TAPI_RESULT_NOT_SUPPORTED;

const QString wrong = text("9999");

/** Each test has a daemon and a modem as new, which are on. */
class CardOnOfono : public OfonoTest {
protected:
    void TearDown() override
    {
        comeBack();
        EXPECT_TRUE(becomesOnline());
    }

    static std::string sim()
    {
        return QString::fromStdString(Desk::byHand("/phone org.ofono.SimManager.GetProperties"))
            .simplified()
            .toStdString();
    }

    static bool tells(const std::string &part)
    {
        return Desk::becomes([&part] { return sim().find(part) != std::string::npos; });
    }

    static void modemIs(const char *property, bool on)
    {
        Desk::byHand(std::string("/phone org.ofono.Modem.SetProperty string:") + property
                     + " variant:boolean:" + (on ? "true" : "false"));
    }

    /** The modem as new, and the daemon too: it crashes by itself some seconds after a card was put back. */
    static void comeBack()
    {
        Desk::end("daemon", SIGKILL);
        Desk::tell(".reset");
        Desk::script("daemon");
    }

    bool becomesOnline()
    {
        Desk::script("online");
        bool on = false;
        return Desk::becomes([&] { return setup().isCallWaiting(on) == done; });
    }

    _TAPI_RESULT_E readNumbers()
    {
        QStringList texts;
        const _TAPI_RESULT_E result = setup().getMyNumberList(texts);
        numbers = texts.filter(QRegularExpression(text("^\\+?\\d")));
        return result;
    }

    /** Every request that reads or writes what the daemon may not have read yet. */
    void expectNothingToBeKnown()
    {
        bool on = false;
        QString line;
        EXPECT_EQ(setup().setMyNumber(1, text("+4911"), text("new")), unavailable);
        EXPECT_EQ(setup().deleteMyNumber(1), unavailable);
        EXPECT_EQ(setup().getMyNumber(line, line, line, line), unavailable);
        EXPECT_EQ(setup().isFixedDialing(on), unavailable);
    }

    _TAPI_SECURITY_PIN_STATUS_E pin2Status()
    {
        auto status = TAPI_SECURITY_PIN_STATUS_NOT_USED;
        EXPECT_EQ(setup().readPin2Status(status), done);
        return status;
    }

    QStringList numbers;
};

} // namespace

/** The lock is on, but the daemon lists nothing: an unlocking that changes nothing would unlock. */
TEST_F(CardOnOfono, TriesNoLockThatIsNotListed)
{
    const auto lock = [] { return Desk::told("'AT+CLCK=\"SC\",2'"); };
    unsigned char on = 9;
    Desk::tell(".lock open");
    EXPECT_EQ(sim().find("LockedPins variant array [ pin"), std::string::npos) << sim();
    EXPECT_EQ(TAPI_SECURITY_GetPin1Status(1, &on), missing);
    for (const QString &pin : {text("1234"), wrong}) {
        EXPECT_EQ(setup().setupVerifySimPin(pin), missing);
        EXPECT_EQ(setup().changeSimPin(pin, pin), missing);
        EXPECT_EQ(lock(), "+CLCK: 1\nOK\n");
    }
    EXPECT_EQ(setup().enablePin1(wrong), TAPI_RESULT_PIN_REJECTED);
    EXPECT_EQ(setup().enablePin1(text("1234")), done);
    EXPECT_EQ(TAPI_SECURITY_GetPin1Status(1, &on), done);
    EXPECT_EQ(on, 1);
    EXPECT_EQ(setup().setupVerifySimPin(text("1234")), done);
    EXPECT_EQ(setup().setupVerifySimPin(wrong), TAPI_RESULT_PIN_REJECTED);
    EXPECT_EQ(lock(), "+CLCK: 1\nOK\n");
}

/** From power-on until the numbers are read, which is some seconds later than the subscriber is known. */
TEST_F(CardOnOfono, WaitsForTheOwnNumbersBeforeItWritesOne)
{
    for (const bool numberless : {false, true}) {
        SCOPED_TRACE(numberless);
        modemIs("Powered", false);
        Desk::tell(".late 500");
        modemIs("Powered", true);
        modemIs("Online", true);
        ASSERT_TRUE(tells("CardIdentifier"));
        expectNothingToBeKnown();
        ASSERT_TRUE(tells("SubscriberIdentity"));
        EXPECT_EQ(sim().find("ServiceProviderName"), std::string::npos) << "asked too late to see anything";
        EXPECT_EQ(setup().setMyNumber(1, text("+4911"), text("new")), unavailable);
        EXPECT_EQ(readNumbers(), unavailable);
        Desk::tell(".late off");
        EXPECT_TRUE(Desk::becomes([this] { return readNumbers() == done; }));
        _TAPI_OWNNUMBER_ENTRY_S none = {}; // as by one who has counted too early
        EXPECT_EQ(TAPI_OWNNUMBER_GetEntry(1, 0, &none), numberless ? done : unavailable);
        EXPECT_EQ(numbers,
                  numberless ? QStringList() : (QStringList{text("+491701234567"), text("+491707654321")}));
        EXPECT_EQ(setup().setMyNumber(1, text("+4911"), text("new")), done);
        EXPECT_EQ(readNumbers(), done);
        EXPECT_EQ(numbers,
                  numberless ? QStringList{text("+4911")}
                             : (QStringList{text("+4911"), text("+491707654321")}));
        EXPECT_EQ(setup().deleteMyNumber(2), numberless ? TAPI_RESULT_INVALID_PARAM : done);
        EXPECT_EQ(setup().deleteMyNumber(1), done);
    }
}

TEST_F(CardOnOfono, KnowsNothingOfACardThatAsksForItsPin)
{
    Desk::end("daemon", SIGKILL);
    for (const char *const command : {".card out", ".lock on", ".card in"})
        Desk::tell(command);
    Desk::script("daemon");
    modemIs("Powered", true);
    modemIs("Online", true); // which the daemon refuses, but the card is powered
    ASSERT_TRUE(tells("PinRequired variant pin"));
    expectNothingToBeKnown();
    unsigned char on = 9;
    EXPECT_EQ(TAPI_SECURITY_GetPin1Status(1, &on), done);
    EXPECT_EQ(on, 1);
    EXPECT_EQ(setup().setupVerifySimPin(text("1234")), done);
    EXPECT_TRUE(Desk::becomes([this] { return readNumbers() == done; }));
    EXPECT_EQ(numbers.size(), 2) << sim();
}

/** Nobody asks the library while the card is out. */
TEST_F(CardOnOfono, ForgetsAPin2WithTheCardThatTookIt)
{
    for (const char *const card : {"1", "2"}) {
        SCOPED_TRACE(card);
        EXPECT_EQ(setup().verifyPin2Code(text("5678")), done);
        EXPECT_EQ(pin2Status(), TAPI_SECURITY_PIN_STATUS_VERIFIED);
        Desk::tell(".card out");
        ASSERT_TRUE(tells("Present variant boolean false"));
        Desk::tell(std::string(".card in ") + card);
        ASSERT_TRUE(tells("SubscriberIdentity"));
        EXPECT_EQ(pin2Status(), TAPI_SECURITY_PIN_STATUS_NOT_VERIFIED);
        EXPECT_EQ(setup().resetCallMeter(), TAPI_RESULT_PIN2_NEEDED);
        comeBack();
        ASSERT_TRUE(becomesOnline());
    }
    EXPECT_EQ(setup().verifyPin2Code(text("5678")), done);
    comeBack();
    ASSERT_TRUE(becomesOnline());
    EXPECT_EQ(setup().resetCallMeter(), TAPI_RESULT_PIN2_NEEDED);
}

/** The daemon tells one try less than there is, after a right PIN2 that another program has verified. */
TEST_F(CardOnOfono, SharesWhatIsKnownOfTheTries)
{
    const pid_t other = fork();
    if (other == 0)
        _exit(setup().verifyPin2Code(wrong) == TAPI_RESULT_PIN_REJECTED
                      && setup().verifyPin2Code(text("5678")) == done
                  ? 0
                  : 1);
    int status = -1;
    EXPECT_EQ(waitpid(other, &status, 0), other);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(setup().verifyPin2Code(wrong), TAPI_RESULT_PIN_REJECTED);
}

/** Whether the try has counted nobody can tell then. */
TEST_F(CardOnOfono, TellsOfADaemonThatDiesAfterARefusal)
{
    Desk::tell(".delay +CPINR 30000"); // the daemon does not learn how many tries are left
    std::future<_TAPI_RESULT_E> pending =
        std::async(std::launch::async, [this] { return setup().verifyPin2Code(wrong); });
    EXPECT_TRUE(
        Desk::becomes([] { return Desk::told(".state").find("PIN2: 2 tries left") != std::string::npos; }));
    Desk::end("daemon", SIGKILL);
    EXPECT_EQ(pending.get(), TAPI_RESULT_SERVICE_DOWN);
}

TEST_F(CardOnOfono, ReadsTheForwardingFlagOfTheCard)
{
    const auto flags = [] {
        unsigned char line1 = 9;
        unsigned char line2 = 9;
        const _TAPI_RESULT_E result = TAPI_CPHS_GetCallDivertStatus(&line1, &line2);
        return std::tuple(result, line1, line2);
    };
    EXPECT_EQ(flags(), std::tuple(done, 0, 0));
    EXPECT_EQ(setup().divertVoiceCalls(true, TAPI_CS_DIVERT_UNCONDITIONAL, text("0301")), done);
    EXPECT_TRUE(Desk::becomes([&] { return flags() == std::tuple(done, 1, 0); }));
    EXPECT_EQ(setup().cancelAllVoiceCallsDiverts(), done);
    EXPECT_TRUE(Desk::becomes([&] { return flags() == std::tuple(done, 0, 0); }));
    modemIs("Online", false);
    EXPECT_EQ(flags(), std::tuple(TAPI_RESULT_MODEM_OFFLINE, 9, 9));
}
