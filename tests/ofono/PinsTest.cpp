// PINs through the daemon: what the card is asked, and what a refusal becomes.
#include "Desk.h"

#include <csignal>
#include <cstdlib>

#include <sys/wait.h>
#include <unistd.h>

using Desk::text;

namespace {

constexpr _TAPI_RESULT_E done = TAPI_RESULT_SUCC;
constexpr _TAPI_RESULT_E rejected = TAPI_RESULT_PIN_REJECTED;
constexpr _TAPI_RESULT_E rejectedFinal = TAPI_RESULT_PIN_REJECTED_FINAL;

const QString wrong = text("9999");

class PinsOnOfono : public OfonoTest {
protected:
    _TAPI_SECURITY_PIN_STATUS_E pin2Status()
    {
        _TAPI_SECURITY_PIN_STATUS_E status = TAPI_SECURITY_PIN_STATUS_NOT_USED;
        EXPECT_EQ(setup().readPin2Status(status), done);
        return status;
    }

    QString price()
    {
        QString unit;
        QString currency;
        EXPECT_EQ(setup().getPriceUnitCurrency(unit, currency), done);
        return unit + currency;
    }
};

/** Goes after all that the library has made, and sees what that leaves behind. */
struct LastUse {
    bool wanted = false;

    ~LastUse()
    {
        if (wanted)
            _exit(PHONE_ENG_Setup::instance()->resetCallMeter() == TAPI_RESULT_PIN2_NEEDED ? 0 : 1);
    }
} lastUse;

} // namespace

TEST_F(PinsOnOfono, AsksTheCardWhateverIsRequired)
{
    EXPECT_EQ(setup().setupVerifySimPin(text("12")), TAPI_RESULT_INVALID_PARAM);
    EXPECT_EQ(setup().enablePin1(wrong), rejected);
    EXPECT_EQ(setup().enablePin1(text("1234")), done);
    EXPECT_TRUE(Desk::becomes([this] { return setup().simPinIsOpen(); }));
    EXPECT_EQ(setup().setupVerifySimPin(text("1234")), done);
    EXPECT_EQ(setup().setupVerifySimPin(wrong), rejected);
    EXPECT_EQ(setup().setupVerifySimPin(text("1234")), done);
    // The daemon would say yes to a change that changes nothing.
    EXPECT_EQ(setup().changeSimPin(wrong, wrong), rejected);
    EXPECT_EQ(setup().changeSimPin(text("1234"), text("1234")), done);
    EXPECT_EQ(setup().changeSimPin(wrong, text("4321")), rejected);
    EXPECT_EQ(setup().changeSimPin(text("1234"), text("4321")), done);
    EXPECT_EQ(setup().setupVerifySimPin(text("4321")), done);
    EXPECT_EQ(setup().changeSimPin(text("4321"), text("1234")), done);
    EXPECT_EQ(setup().changeSimPin(text("1234"), text("123456789")), TAPI_RESULT_INVALID_PARAM);
    EXPECT_EQ(setup().unblockingPin(text("12345678"), text("1234")),
              TAPI_RESULT_NOT_SUPPORTED); // nothing is blocked
}

TEST_F(PinsOnOfono, KeepsAVerifiedPin2ForTheNextChange)
{
    const auto verify = [this](const char *pin2) { EXPECT_EQ(setup().verifyPin2Code(text(pin2)), done); };
    EXPECT_EQ(setup().resetCallMeter(), TAPI_RESULT_PIN2_NEEDED);
    EXPECT_EQ(setup().verifyPin2Code(wrong), rejected);
    EXPECT_EQ(setup().setMeterMax(text("10")), TAPI_RESULT_PIN2_NEEDED);
    verify("5678");
    EXPECT_EQ(pin2Status(), TAPI_SECURITY_PIN_STATUS_VERIFIED);
    EXPECT_EQ(setup().setPriceUnitCurrency(text("0.25"), text("GBP")), done);
    EXPECT_TRUE(Desk::becomes([this] { return price() == text("0.25GBP"); }));
    EXPECT_EQ(setup().resetCallMeter(), TAPI_RESULT_PIN2_NEEDED); // it has been used
    EXPECT_EQ(pin2Status(), TAPI_SECURITY_PIN_STATUS_NOT_VERIFIED);
    verify("5678");
    EXPECT_EQ(setup().setMeterMax(text("10.10")), done); // 40 units of 0.25 and some
    QString maximum;
    bool limited = false;
    EXPECT_TRUE(Desk::becomes([&] {
        return setup().getMeterMax(maximum, limited) == done && maximum == text("10.00");
    })) << maximum.toStdString();
    EXPECT_TRUE(limited);
    EXPECT_EQ(setup().setMeterMax(text("0.10")), TAPI_RESULT_INVALID_PARAM); // would lift the maximum
    verify("5678");
    EXPECT_EQ(setup().resetCallMeter(), done);
    EXPECT_TRUE(Desk::becomes([this] { return setup().getTotalCallCost() == text("0.00"); }));
    EXPECT_TRUE(Desk::becomes([this] { return setup().getAvailableCredit() == text("10.00"); }));
    verify("5678");
    EXPECT_EQ(setup().disableCMM(), done);
    verify("5678");
    Desk::tell(".refuse +CPUC");
    EXPECT_EQ(setup().setPriceUnitCurrency(text("0.30"), text("EUR")), TAPI_RESULT_FAIL);
    Desk::tell(".pass");
    EXPECT_EQ(setup().resetCallMeter(), TAPI_RESULT_PIN2_NEEDED);
    verify("5678");
    EXPECT_EQ(setup().verifyPin2Code(wrong), rejected); // and the right one is gone with it
    EXPECT_EQ(setup().resetCallMeter(), TAPI_RESULT_PIN2_NEEDED);
    EXPECT_EQ(setup().changeSimPin2(text("5678"), text("8765")), done);
    EXPECT_EQ(setup().verifyPin2Code(text("5678")), rejected);
    verify("8765");
    // The memory of a child holds no PIN2, and none outlives the library's exit.
    for (const bool leaves : {false, true}) {
        const pid_t child = fork();
        if (child == 0 && !leaves)
            _exit(setup().resetCallMeter() == TAPI_RESULT_PIN2_NEEDED ? 0 : 1);
        if (child == 0) {
            lastUse.wanted = setup().verifyPin2Code(text("8765")) == done;
            std::exit(1);
        }
        int status = -1;
        EXPECT_EQ(waitpid(child, &status, 0), child);
        EXPECT_EQ(status, 0) << leaves;
    }
    EXPECT_EQ(setup().resetCallMeter(), done);
}

TEST_F(PinsOnOfono, BlocksPin2AndComesBackByItsPuk)
{
    EXPECT_EQ(setup().verifyPin2Code(wrong), rejected);
    EXPECT_EQ(setup().changeSimPin2(wrong, text("1111")), rejected);
    EXPECT_EQ(setup().verifyPin2Code(wrong), rejectedFinal);
    EXPECT_EQ(setup().verifyPin2Code(text("8765")), rejectedFinal); // the right one, too late
    EXPECT_EQ(pin2Status(), TAPI_SECURITY_PIN_STATUS_BLOCKED);
    EXPECT_EQ(setup().unblockingPin2(text("1234567"), text("5678")), TAPI_RESULT_INVALID_PARAM);
    EXPECT_EQ(setup().unblockingPin2(text("87654321"), text("5678")), done);
    EXPECT_TRUE(Desk::becomes([this] { return pin2Status() == TAPI_SECURITY_PIN_STATUS_NOT_VERIFIED; }));
    EXPECT_EQ(setup().verifyPin2Code(text("5678")), done);
}

TEST_F(PinsOnOfono, BlocksPin1AndComesBackByItsPuk)
{
    EXPECT_EQ(setup().enablePin1(text("1234")), done);
    EXPECT_EQ(setup().setupVerifySimPin(wrong), rejected);
    EXPECT_EQ(setup().setupVerifySimPin(wrong), rejected);
    EXPECT_EQ(setup().setupVerifySimPin(wrong), rejectedFinal);
    EXPECT_EQ(setup().setupVerifySimPin(text("1234")), rejectedFinal);
    EXPECT_EQ(setup().unblockingPin(text("11111111"), text("1234")), rejected);
    EXPECT_EQ(setup().unblockingPin(text("12345678"), text("1234")), done);
    EXPECT_TRUE(Desk::becomes([this] { return setup().setupVerifySimPin(text("1234")) == done; }));
}

/** The modem is switched on with a card that asks: the PIN is entered, and the phone comes up. */
TEST_F(PinsOnOfono, EntersThePinThatIsAskedForAtPowerOn)
{
    // A daemon that has run for a while would enter the PIN that it remembers.
    Desk::end("daemon", SIGTERM);
    for (const char *const command : {".lock on", ".card out", ".card in"})
        Desk::tell(command);
    Desk::script("daemon");
    Desk::byHand("/phone org.ofono.Modem.SetProperty string:Powered variant:boolean:true");
    EXPECT_TRUE(Desk::becomes([] {
        return Desk::byHand("/phone org.ofono.SimManager.GetProperties").find("PinRequired")
            != std::string::npos;
    }));
    EXPECT_TRUE(Desk::becomes([this] { return setup().setupVerifySimPin(wrong) == rejected; }));
    bool on = false;
    EXPECT_EQ(setup().isCallWaiting(on), TAPI_RESULT_SIM_UNAVAILABLE);
    EXPECT_EQ(setup().setupVerifySimPin(text("1234")), done);
    Desk::script("online");
    EXPECT_TRUE(Desk::becomes([&] { return setup().isCallWaiting(on) == done; }));
}
