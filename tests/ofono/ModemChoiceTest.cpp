// Which modem is used: one for all programs, and never another one in silence.
#include "Desk.h"
#include "FakeDaemon.h"

#include "TAPI_ACCE.h"

#include <QTemporaryDir>

#include <algorithm>
#include <array>
#include <atomic>
#include <csignal>
#include <fstream>
#include <functional>
#include <mutex>
#include <vector>

#include <sys/wait.h>
#include <systemd/sd-bus.h>
#include <unistd.h>

namespace {

constexpr char firstCard[] = "001010123456789";
constexpr char secondCard[] = "001011123456789";

/** The subscriber, or the result when there is none. */
std::string subscriber()
{
    TAPI_IMSI_A imsi = {};
    const _TAPI_RESULT_E result = TAPI_ACCE_GetImsi(imsi);
    return result == TAPI_RESULT_SUCC ? reinterpret_cast<const char *>(imsi) : std::to_string(result);
}

bool becomes(const std::string &wanted)
{
    return Desk::becomes([&] { return subscriber() == wanted; });
}

/** What @p see gives in another program, which finds KVQ_MODEM as @p named. */
std::string elsewhere(const char *named, const std::function<std::string()> &see = subscriber)
{
    std::array<int, 2> ends = {};
    EXPECT_EQ(pipe(ends.data()), 0);
    const pid_t child = fork();
    if (child == 0) {
        setenv("KVQ_MODEM", named, 1);
        const std::string seen = see();
        _exit(write(ends[1], seen.data(), seen.size()) == static_cast<ssize_t>(seen.size()) ? 0 : 1);
    }
    close(ends[1]);
    std::array<char, 64> seen = {};
    const ssize_t size = read(ends[0], seen.data(), seen.size());
    close(ends[0]);
    int status = -1;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
    return {seen.data(), static_cast<std::size_t>(std::max<ssize_t>(size, 0))};
}

std::string isPowered(const std::string &modem, bool on)
{
    return Desk::byHand(
        modem + " org.ofono.Modem.SetProperty string:Powered variant:boolean:" + (on ? "true" : "false"));
}

using TwoModemsOnOfono = OfonoTest;

/** In a program of its own, whose product file names the modem of KVQ_TEST_CARD. */
using NamedModemOnOfono = testing::Test;

struct FakeModem {
    std::string path;
    bool powered;
    std::string card; ///< empty without one
};

/** A daemon with modems that a test changes; it tells which one was asked. */
class Modems {
public:
    explicit Modems(std::vector<FakeModem> modems)
        : m_modems(std::move(modems))
    {
    }

    void become(std::vector<FakeModem> modems)
    {
        const std::scoped_lock lock(m_mutex);
        m_modems = std::move(modems);
    }

    /** What this program is told when it reads its caller id setting. */
    static std::string read()
    {
        _TAPI_CALL_RESTRICT_ID_E id = TAPI_CALL_RESTRICT_ID_NETWORK;
        return std::to_string(PHONE_ENG_Setup::instance()->getCLIR(id));
    }

    /** The modem that this program, and one that starts now, reads it from, or what both are told. */
    std::string asked()
    {
        const std::string result = read();
        const std::string modem = takeAsked();
        EXPECT_EQ(elsewhere("", read), result) << "another program sees the same";
        EXPECT_EQ(takeAsked(), modem) << "another program asks the same";
        return modem.empty() ? result : modem;
    }

    sd_bus_message *answer(sd_bus_message *call)
    {
        const std::scoped_lock lock(m_mutex);
        sd_bus_message *message = nullptr;
        sd_bus_message_new_method_return(call, &message);
        const std::string path = sd_bus_message_get_path(call);
        const auto modem = std::find_if(m_modems.begin(), m_modems.end(),
                                        [&](const FakeModem &one) { return one.path == path; });
        const bool isPowered = modem != m_modems.end() && modem->powered;
        const bool hasCard = isPowered && !modem->card.empty();
        if (sd_bus_message_is_method_call(call, "org.ofono.Manager", nullptr) > 0) {
            sd_bus_message_open_container(message, 'a', "(oa{sv})");
            for (const FakeModem &one : m_modems)
                sd_bus_message_append(message, "(oa{sv})", one.path.c_str(), 2, "Powered", "b",
                                      one.powered ? 1 : 0, "Interfaces", "as", 1, "org.ofono.SimManager");
            sd_bus_message_close_container(message);
        } else if (sd_bus_message_is_method_call(call, "org.ofono.SimManager", nullptr) > 0) {
            sd_bus_message_append(message, "a{sv}", 2, "Present", "b", hasCard ? 1 : 0, "CardIdentifier", "s",
                                  hasCard ? modem->card.c_str() : "");
        } else if (sd_bus_message_is_method_call(call, "org.ofono.Modem", nullptr) > 0) {
            sd_bus_message_append(message, "a{sv}", 2, "Powered", "b", isPowered ? 1 : 0, "Interfaces", "as",
                                  1, "org.ofono.SimManager");
        } else if (!hasCard) {
            message = sd_bus_message_unref(message);
            sd_bus_message_new_method_errorf(call, &message, SD_BUS_ERROR_UNKNOWN_METHOD, "not there");
        } else {
            m_asked = path;
            sd_bus_message_append(message, "a{sv}", 1, "HideCallerId", "s", "enabled");
        }
        return message;
    }

private:
    std::string takeAsked()
    {
        const std::scoped_lock lock(m_mutex);
        return std::exchange(m_asked, {});
    }

    std::mutex m_mutex;
    std::vector<FakeModem> m_modems;
    std::string m_asked;
};

class ModemChoiceOnOfono : public testing::Test {
protected:
    static void SetUpTestSuite() { Desk::end("daemon", SIGTERM); }
};

const std::string offline = std::to_string(TAPI_RESULT_MODEM_OFFLINE);
const std::string noCard = std::to_string(TAPI_RESULT_SIM_UNAVAILABLE);

} // namespace

TEST_F(TwoModemsOnOfono, KeepsToItsCardWhateverHappensToTheModem)
{
    const std::string ours = subscriber();
    ASSERT_TRUE(ours == firstCard || ours == secondCard) << ours;
    const bool isFirst = ours == firstCard;
    const std::string modem = isFirst ? "/phone" : "/phone2";
    const std::string otherModem = isFirst ? "/phone2" : "/phone";
    const std::string theirs = isFirst ? secondCard : firstCard;
    EXPECT_EQ(elsewhere(""), ours);
    EXPECT_EQ(elsewhere(otherModem.c_str()), theirs);
    EXPECT_EQ(subscriber(), ours); // the other program's modem is its own business
    isPowered(modem, false);
    EXPECT_TRUE(becomes(offline));
    EXPECT_EQ(subscriber(), offline);
    EXPECT_EQ(elsewhere(""), offline);
    Desk::end("daemon", SIGKILL);
    EXPECT_EQ(subscriber(), std::to_string(TAPI_RESULT_SERVICE_DOWN));
    Desk::script("daemon");
    Desk::script("online " + otherModem);
    EXPECT_EQ(subscriber(), offline);
    EXPECT_EQ(elsewhere(""), offline);
    Desk::script("online " + modem);
    EXPECT_TRUE(becomes(ours));
    Desk::script((isFirst ? std::string("tell") : std::string("tell2")) + " .card out");
    EXPECT_TRUE(becomes(noCard));
    EXPECT_EQ(subscriber(), noCard);
    EXPECT_EQ(elsewhere(""), noCard);
    EXPECT_EQ(elsewhere(otherModem.c_str()), theirs);

    const QTemporaryDir folder;
    const std::string product = folder.filePath(QStringLiteral("product.conf")).toStdString();
    std::ofstream(product) << "[telephony]\nmodem = " << otherModem << '\n';
    EXPECT_TRUE(Desk::runApart(
        "NamedModemOnOfono.*",
        {{"KVQ_PRODUCT", product}, {"KVQ_TEST_CARD", theirs}, {"KVQ_TEST_EMPTY_MODEM", modem}}));
}

TEST_F(NamedModemOnOfono, IsUsedUnlessTheEnvironmentNamesAnother)
{
    EXPECT_EQ(subscriber(), std::getenv("KVQ_TEST_CARD"));
    EXPECT_EQ(elsewhere(std::getenv("KVQ_TEST_EMPTY_MODEM")), noCard);
}

TEST_F(ModemChoiceOnOfono, FollowsTheCard)
{
    const struct {
        const char *what;
        std::vector<FakeModem> modems;
        std::string asked;
    } steps[] = {
        {"the first that has a card", {{"/off", false, "9"}, {"/empty", true, ""}, {"/a", true, "1"}}, "/a"},
        {"the order has changed", {{"/b", true, "2"}, {"/a", true, "1"}}, "/a"},
        {"it is off", {{"/b", true, "2"}, {"/a", false, "1"}}, offline},
        {"it is away", {{"/b", true, "2"}}, offline},
        {"it has no card", {{"/b", true, "2"}, {"/a", true, ""}}, noCard},
        {"its card is in another modem", {{"/b", true, "2"}, {"/a", true, ""}, {"/c", true, "1"}}, "/c"},
        {"it is back, empty", {{"/b", true, "2"}, {"/a", true, "3"}, {"/c", true, ""}}, noCard},
        {"it has another card", {{"/b", true, "2"}, {"/c", true, "4"}}, "/c"},
        {"which is the chosen one now", {{"/b", true, "2"}, {"/d", true, "4"}}, "/d"},
        {"and not the one before", {{"/b", true, "1"}, {"/d", false, ""}}, offline},
    };
    Modems modems({});
    const FakeDaemon daemon([&modems](sd_bus_message *call) { return modems.answer(call); });
    PHONE_ENG_TAPI_initiation();
    for (const auto &step : steps) {
        SCOPED_TRACE(step.what);
        modems.become(step.modems);
        Modems::read(); // what was known of the modem before may be found wrong by this request
        EXPECT_EQ(modems.asked(), step.asked);
    }
    Desk::forgetModem();
    modems.become({{"/b", true, "2"}, {"/d", true, "4"}});
    EXPECT_EQ(modems.asked(), "/b");
    testing::internal::CaptureStderr();
    EXPECT_EQ(elsewhere("a/b"), offline);
    EXPECT_EQ(elsewhere(""), noCard) << "there is no subscriber here, but a modem";
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "telephony: KVQ_MODEM is no path of a modem, such as /ril_0: a/b\n");
}

/** A request that has no time left asks nobody any more. */
TEST_F(ModemChoiceOnOfono, ChoosesNoLongerThanTheRequestMayTake)
{
    constexpr int modems = 100000;
    Desk::forgetModem();
    std::atomic<int> asked = 0;
    const FakeDaemon daemon([&asked](sd_bus_message *call) -> sd_bus_message * {
        if (sd_bus_message_is_method_call(call, "org.ofono.Manager", nullptr) <= 0) {
            ++asked;
            return nullptr;
        }
        sd_bus_message *message = nullptr;
        sd_bus_message_new_method_return(call, &message);
        sd_bus_message_open_container(message, 'a', "(oa{sv})");
        for (int modem = 0; modem < modems; ++modem)
            sd_bus_message_append(message, "(oa{sv})", ("/m" + std::to_string(modem)).c_str(), 2, "Powered",
                                  "b", 1, "Interfaces", "as", 1, "org.ofono.SimManager");
        sd_bus_message_close_container(message);
        return message;
    });
    TAPI_IMSI_A imsi = {};
    EXPECT_EQ(TAPI_ACCE_GetImsi(imsi), TAPI_RESULT_TIMED_OUT);
    // One is asked, and watched while it is silent. Whether there was time for that is the machine's affair.
    EXPECT_LT(asked, modems / 1000);
}
