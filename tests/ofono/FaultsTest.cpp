// What a program sees when the daemon, the bus, the modem or the card fails it.
#include "Desk.h"

#include "TAPI_NETWORK.h"

#include <csignal>
#include <future>
#include <thread>
#include <vector>

#include <sys/wait.h>
#include <unistd.h>

using Desk::tell;
using Desk::text;

namespace {

class FaultsOnOfono : public OfonoTest {
protected:
    _TAPI_RESULT_E read()
    {
        bool on = false;
        return setup().isCallWaiting(on);
    }

    bool reads(_TAPI_RESULT_E wanted)
    {
        return Desk::becomes([&] { return read() == wanted; });
    }

    static std::string modemIs(const char *property, bool on)
    {
        return Desk::byHand(std::string("/phone org.ofono.Modem.SetProperty string:") + property
                            + " variant:boolean:" + (on ? "true" : "false"));
    }

    /** The daemon comes back with everything off. */
    void comeBack()
    {
        Desk::script("daemon");
        Desk::script("online");
        EXPECT_TRUE(reads(TAPI_RESULT_SUCC));
    }

    _TAPI_RESULT_E dial()
    {
        std::string number = "0555";
        unsigned char callId = 0;
        return PHONE_ENG_TAPI_CALL_VOICECALL_MakeReq(0, reinterpret_cast<unsigned char *>(number.data()),
                                                     &callId);
    }
};

} // namespace

TEST_F(FaultsOnOfono, TellsOfADaemonThatDiedAndOneThatCameBack)
{
    EXPECT_TRUE(reads(TAPI_RESULT_SUCC));
    tell(".delay +CCWA 20000");
    const Desk::Traffic traffic;
    std::future<_TAPI_RESULT_E> pending =
        std::async(std::launch::async, [this] { return setup().setCallWaiting(false); });
    traffic.waitFor("+CCWA=");
    Desk::end("daemon", SIGKILL);
    EXPECT_EQ(pending.get(), TAPI_RESULT_SERVICE_DOWN); // at the deadline it would be another result
    EXPECT_EQ(read(), TAPI_RESULT_SERVICE_DOWN);
    EXPECT_EQ(dial(), TAPI_RESULT_SERVICE_DOWN);
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    EXPECT_EQ(setup().setupVerifySimPin(text("1234")), TAPI_RESULT_SERVICE_DOWN);
    EXPECT_EQ(setup().verifyPin2Code(text("5678")), TAPI_RESULT_SERVICE_DOWN);
    EXPECT_EQ(testing::internal::GetCapturedStdout() + testing::internal::GetCapturedStderr(), "")
        << "no PIN is told to anybody";
    EXPECT_TRUE(PHONE_ENG_IsTapiDeviceActive()); // the bus is there
    EXPECT_EQ(PHONE_ENG_TAPI_initiation(), TAPI_RESULT_SERVICE_DOWN);
    tell(".pass");
    tell(".delay +CCWA off");
    Desk::script("daemon");
    EXPECT_EQ(read(), TAPI_RESULT_MODEM_OFFLINE);
    EXPECT_EQ(PHONE_ENG_TAPI_initiation(), TAPI_RESULT_SUCC);
    Desk::script("online");
    EXPECT_TRUE(reads(TAPI_RESULT_SUCC));
}

/** The daemon never answers a request that is pending when the modem goes off, or its interface with the radio. */
TEST_F(FaultsOnOfono, EndsWhatIsPendingWhenTheModemGoesOff)
{
    const struct {
        const char *property;
        const char *command;
        std::function<_TAPI_RESULT_E()> request;
    } cases[] = {
        // The daemon answers this when it has read the setting back, for which the modem must be online.
        {"Online", "+CCWA", [this] { return setup().setCallWaiting(false); }},
        // Only a question: the modem goes on with it when it is on again.
        {"Powered", "+CCFC",
         [this] {
             bool active = false;
             QString number;
             return setup().getVoiceCallsDivert(active, number, TAPI_CS_DIVERT_BUSY);
         }},
    };
    for (const auto &one : cases) {
        SCOPED_TRACE(one.property);
        EXPECT_TRUE(reads(TAPI_RESULT_SUCC));
        tell(std::string(".delay ") + one.command + " 4500");
        const Desk::Traffic traffic;
        std::future<_TAPI_RESULT_E> pending = std::async(std::launch::async, one.request);
        traffic.waitFor(std::string(one.command) + '=');
        modemIs(one.property, false);
        EXPECT_EQ(pending.get(), TAPI_RESULT_MODEM_OFFLINE); // at the deadline it would be another result
        tell(".pass");
        Desk::script("online");
    }
    EXPECT_TRUE(reads(TAPI_RESULT_SUCC));
}

TEST_F(FaultsOnOfono, TellsOfAModemThatIsOffAndACardThatIsGone)
{
    QString imei;
    bool active = false;
    QString number;
    EXPECT_TRUE(reads(TAPI_RESULT_SUCC));
    modemIs("Online", false);
    EXPECT_TRUE(reads(TAPI_RESULT_MODEM_OFFLINE));
    // The daemon itself would say that nothing is forwarded.
    EXPECT_EQ(setup().getVoiceCallsDivert(active, number, TAPI_CS_DIVERT_BUSY), TAPI_RESULT_MODEM_OFFLINE);
    EXPECT_EQ(dial(), TAPI_RESULT_MODEM_OFFLINE);
    EXPECT_EQ(setup().readIMEISerialNumber(imei), TAPI_RESULT_SUCC);
    modemIs("Powered", false);
    EXPECT_TRUE(reads(TAPI_RESULT_MODEM_OFFLINE));
    EXPECT_EQ(setup().setupVerifySimPin(text("1234")), TAPI_RESULT_MODEM_OFFLINE);
    Desk::script("online");
    EXPECT_TRUE(reads(TAPI_RESULT_SUCC));
    tell(".card out");
    EXPECT_TRUE(reads(TAPI_RESULT_SIM_UNAVAILABLE));
    EXPECT_EQ(setup().setupVerifySimPin(text("1234")), TAPI_RESULT_SIM_UNAVAILABLE);
    EXPECT_FALSE(PHONE_SET_IsHomeNetwork(text("00101")));
    int status = 0;
    EXPECT_EQ(setup().curLineLockStatus(status), TAPI_RESULT_SIM_UNAVAILABLE);
    tell(".card in");
    EXPECT_TRUE(reads(TAPI_RESULT_SUCC));
}

/** A program that has not looked for its modem yet. What it is answered as failed does not happen later. */
TEST_F(FaultsOnOfono, BeginsNoSearchWhileTheDaemonStandsStill)
{
    EXPECT_TRUE(reads(TAPI_RESULT_SUCC));
    const Desk::Traffic traffic;
    Desk::end("daemon", SIGSTOP);
    const pid_t child = fork();
    if (child == 0) {
        _TAPI_RESULT_E result = TAPI_RESULT_SUCC;
        const double seconds = Desk::secondsOf([&result] { result = TAPI_NETWORK_FindNewNetworks(); });
        _exit(result == TAPI_RESULT_TIMED_OUT && seconds < 25 ? 0 : 1); // 30 would be the network's deadline
    }
    int status = -1;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
    Desk::end("daemon", SIGCONT);
    EXPECT_TRUE(reads(TAPI_RESULT_SUCC)); // asked after it
    EXPECT_FALSE(traffic.has("+COPS=?"));
}

/** A second program holds the interface; its request ends within the time that this one has. */
TEST_F(FaultsOnOfono, TriesAgainWhileAnotherProgramIsServed)
{
    tell(".delay +CCWA 1000");
    const Desk::Traffic traffic;
    std::thread other([] {
        Desk::byHand(
            "/phone org.ofono.CallSettings.SetProperty string:VoiceCallWaiting variant:string:disabled");
    });
    traffic.waitFor("+CCWA=");
    EXPECT_EQ(setup().setCallWaiting(true), TAPI_RESULT_SUCC);
    other.join();
    tell(".delay +CCWA off");
    bool on = false;
    EXPECT_TRUE(Desk::becomes([&] { return setup().isCallWaiting(on) == TAPI_RESULT_SUCC && on; }));
}

/** Run with a deadline of 200 ms for what is at hand, and so of 3 seconds for the network. */
TEST_F(FaultsOnOfono, GivesUpAtTheDeadline)
{
    EXPECT_TRUE(Desk::runApart("DeadlinesOnOfono.*", {{"KVQ_OFONO_DEADLINE_MS", "200"}}));
}

/** A program of its own each time, with an engine of its own, all at once. */
TEST_F(FaultsOnOfono, ServesManyProgramsAtOnce)
{
    EXPECT_TRUE(reads(TAPI_RESULT_SUCC));
    std::vector<pid_t> children;
    for (int program = 0; program < 32; ++program) {
        const pid_t child = fork();
        if (child == 0) {
            int failures = 0;
            for (int round = 0; round < 20; ++round) {
                _TAPI_CALL_RESTRICT_ID_E id = TAPI_CALL_RESTRICT_ID_NETWORK;
                QString imei;
                failures += setup().getCLIR(id) != TAPI_RESULT_SUCC || read() != TAPI_RESULT_SUCC
                    || setup().readIMEISerialNumber(imei) != TAPI_RESULT_SUCC;
            }
            _exit(failures);
        }
        children.push_back(child);
    }
    for (const pid_t child : children) {
        int status = -1;
        EXPECT_EQ(waitpid(child, &status, 0), child);
        EXPECT_EQ(status, 0);
    }
}

/** The link's descriptor is what the engine's probe asks, so it must die with the bus and with nothing else. */
TEST_F(FaultsOnOfono, TellsOfABusThatIsGoneAndConnectsAgainWhenAsked)
{
    EXPECT_TRUE(PHONE_ENG_IsTapiDeviceActive());
    Desk::end("bus", SIGKILL);
    EXPECT_EQ(read(), TAPI_RESULT_LINK_LOST);
    EXPECT_EQ(dial(), TAPI_RESULT_LINK_LOST);
    EXPECT_EQ(PHONE_ENG_TAPI_initiation(), TAPI_RESULT_LINK_LOST);
    Desk::script("bus");
    EXPECT_EQ(read(), TAPI_RESULT_LINK_LOST); // nobody has opened it again
    EXPECT_EQ(PHONE_ENG_TAPI_initiation(), TAPI_RESULT_SERVICE_DOWN);
    // Nobody has probed meanwhile, so to the engine the link has never been away.
    EXPECT_TRUE(PHONE_ENG_IsTapiDeviceActive());
    Desk::end("daemon", SIGTERM); // in case it has outlived its bus
    comeBack();
    Desk::end("bus", SIGKILL);
    EXPECT_TRUE(Desk::becomes([] { return !PHONE_ENG_IsTapiDeviceActive(); }));
    EXPECT_EQ(read(), TAPI_RESULT_LINK_LOST);
}

namespace {

using DeadlinesOnOfono = FaultsOnOfono;

} // namespace

TEST_F(DeadlinesOnOfono, EndsEveryRequest)
{
    const auto timesOut = [](double notBefore, auto request) {
        _TAPI_RESULT_E result = TAPI_RESULT_SUCC;
        const double seconds = Desk::secondsOf([&] { result = request(); });
        EXPECT_EQ(result, TAPI_RESULT_TIMED_OUT);
        EXPECT_GE(seconds, notBefore);
    };
    ASSERT_STREQ(std::getenv("KVQ_OFONO_DEADLINE_MS"), "200");
    tell(".delay +CCWA 4500");
    timesOut(2.9, [this] { return setup().setCallWaiting(false); });
    // The daemon still waits for the modem, so another request finds it occupied for a while.
    tell(".delay +CCWA off");
    EXPECT_TRUE(Desk::becomes([this] { return setup().setCallWaiting(true) == TAPI_RESULT_SUCC; }));
    QString imei;
    const auto readImei = [&] { return setup().readIMEISerialNumber(imei); };
    for (const char *const program : {"daemon", "bus"}) {
        SCOPED_TRACE(program);
        Desk::end(program, SIGSTOP);
        timesOut(0.15, readImei);
        Desk::end(program, SIGCONT);
        EXPECT_TRUE(Desk::becomes([&] { return readImei() == TAPI_RESULT_SUCC; }));
    }
}
