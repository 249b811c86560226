// A daemon that answers nonsense: other types, other counts, other texts, or nothing. It harms nobody.
#include "Desk.h"
#include "FakeDaemon.h"

#include <array>
#include <atomic>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <random>
#include <vector>

#include <sys/wait.h>
#include <systemd/sd-bus.h>
#include <unistd.h>

using Desk::text;

namespace {

/** What makes up answers at random, the same for the same seed. */
class Nonsense {
public:
    explicit Nonsense(unsigned int seed)
        : m_random(seed)
    {
    }

    unsigned int number() { return static_cast<unsigned int>(m_random()); }

    bool happens(unsigned int inHundred) { return number() % 100 < inHundred; }

    template <typename Choices>
    auto oneOf(const Choices &choices)
    {
        return choices[number() % std::size(choices)];
    }

    std::string text()
    {
        static constexpr std::array<const char *, 22> texts = {"",
                                                               "none",
                                                               "pin",
                                                               "puk",
                                                               "puk2",
                                                               "active",
                                                               "held",
                                                               "waiting",
                                                               "dialing",
                                                               "enabled",
                                                               "disabled",
                                                               "default",
                                                               "manual",
                                                               "current",
                                                               "+4930",
                                                               "001",
                                                               "01",
                                                               "2026-11-25T00:00:00+0000",
                                                               "\xC3\xBC\xE6\xB5\x8B\xF0\x9F\x98\x80",
                                                               "%s%n",
                                                               "-1",
                                                               "\x01\x7F"};
        if (happens(5))
            return std::string(number() % 70000, 'x');
        return oneOf(texts);
    }

    void append(sd_bus_message *message, char type)
    {
        const std::uint64_t number = happens(50) ? this->number() : this->number() % 4;
        const double real = happens(20) ? -1e300 : static_cast<double>(number);
        const int flag = static_cast<int>(number % 2);
        const std::string characters = text();
        switch (type) {
        case 's':
            sd_bus_message_append_basic(message, type, characters.c_str());
            break;
        case 'o':
            sd_bus_message_append_basic(message, type, oneOf(paths));
            break;
        case 'b':
            sd_bus_message_append_basic(message, type, &flag);
            break;
        case 'd':
            sd_bus_message_append_basic(message, type, &real);
            break;
        default:
            sd_bus_message_append_basic(message, type, &number);
        }
    }

    void appendVariant(sd_bus_message *message)
    {
        static constexpr std::array<const char *, 12> types = {"s", "s", "s", "b", "y",  "q",
                                                               "u", "d", "t", "o", "as", "a{sy}"};
        const std::string type = oneOf(types);
        sd_bus_message_open_container(message, 'v', type.c_str());
        if (type.size() == 1) {
            append(message, type.front());
        } else {
            sd_bus_message_open_container(message, 'a', type.c_str() + 1);
            for (unsigned int entry = number() % 5; entry > 0; --entry) {
                if (type == "as")
                    sd_bus_message_append(message, "s", oneOf(interfaces));
                else
                    sd_bus_message_append(message, "{sy}", oneOf(pinKinds), number() % 4);
            }
            sd_bus_message_close_container(message);
        }
        sd_bus_message_close_container(message);
    }

    void appendProperties(sd_bus_message *message)
    {
        sd_bus_message_open_container(message, 'a', "{sv}");
        for (unsigned int entry = number() % 30; entry > 0; --entry) {
            sd_bus_message_open_container(message, 'e', "sv");
            sd_bus_message_append(message, "s", oneOf(names));
            appendVariant(message);
            sd_bus_message_close_container(message);
        }
        sd_bus_message_close_container(message);
    }

    void appendObjects(sd_bus_message *message, unsigned int count)
    {
        sd_bus_message_open_container(message, 'a', "(oa{sv})");
        for (; count > 0; --count) {
            sd_bus_message_open_container(message, 'r', "oa{sv}");
            append(message, 'o');
            appendProperties(message);
            sd_bus_message_close_container(message);
        }
        sd_bus_message_close_container(message);
    }

    void appendRules(sd_bus_message *message)
    {
        sd_bus_message_append(message, "s", "CallForwarding");
        sd_bus_message_open_container(message, 'v', "(ssa{sv})");
        sd_bus_message_open_container(message, 'r', "ssa{sv}");
        sd_bus_message_append(message, "ss", "interrogation", "All");
        appendProperties(message);
        sd_bus_message_close_container(message);
        sd_bus_message_close_container(message);
    }

    sd_bus_message *answer(sd_bus_message *call)
    {
        static constexpr std::array<const char *, 9> errors = {"org.ofono.Error.Failed",
                                                               "org.ofono.Error.InProgress",
                                                               "org.ofono.Error.NotAvailable",
                                                               "a.b",
                                                               "org.freedesktop.DBus.Error.UnknownMethod",
                                                               "org.freedesktop.DBus.Error.UnknownObject",
                                                               "org.freedesktop.DBus.Error.NoReply",
                                                               "org.freedesktop.DBus.Error.AccessDenied",
                                                               "org.ofono.Error.Timedout"};
        if (happens(1))
            return nullptr;
        sd_bus_message *message = nullptr;
        if (happens(10)) {
            sd_bus_message_new_method_errorf(call, &message, oneOf(errors), "%s", text().c_str());
            return message;
        }
        sd_bus_message_new_method_return(call, &message);
        const std::string_view method = sd_bus_message_get_member(call);
        switch (happens(80) ? 0 : 1 + number() % 5) {
        case 0: // of the right shape
            if (method == "GetProperties")
                appendProperties(message);
            else if (method == "GetModems" || method == "GetCalls" || method == "GetOperators")
                appendObjects(message, number() % 12);
            else if (method == "Initiate")
                appendRules(message);
            else if (method == "Dial")
                append(message, 'o');
            break;
        case 1:
            appendProperties(message);
            break;
        case 2:
            appendObjects(message, number() % 3);
            break;
        case 3:
            appendVariant(message);
            break;
        case 4:
            append(message, oneOf("soybdqut"));
            break;
        default:
            break;
        }
        return message;
    }

    static constexpr std::array<const char *, 8> paths = {"/",
                                                          "/phone",
                                                          "/phone/voicecall01",
                                                          "/phone/voicecall999",
                                                          "/voicecall255",
                                                          "/phone/operator/00101",
                                                          "/phone/voicecall",
                                                          "/voicecall07"};
    static constexpr std::array<const char *, 4> pinKinds = {"pin", "pin2", "puk", "puk2"};
    static constexpr std::array<const char *, 4> interfaces = {"org.ofono.SimManager",
                                                               "org.ofono.CallSettings", "pin", "+491"};
    static constexpr std::array<const char *, 40> names = {"Powered",
                                                           "Online",
                                                           "Interfaces",
                                                           "Present",
                                                           "PinRequired",
                                                           "Retries",
                                                           "LockedPins",
                                                           "SubscriberNumbers",
                                                           "SubscriberIdentity",
                                                           "CardIdentifier",
                                                           "ServiceProviderName",
                                                           "FixedDialing",
                                                           "Serial",
                                                           "Revision",
                                                           "State",
                                                           "LineIdentification",
                                                           "Multiparty",
                                                           "StartTime",
                                                           "HideCallerId",
                                                           "VoiceCallWaiting",
                                                           "VoiceUnconditional",
                                                           "FaxBusy",
                                                           "DataAsyncNoReply",
                                                           "AccumulatedCallMeter",
                                                           "AccumulatedCallMeterMaximum",
                                                           "PricePerUnit",
                                                           "Currency",
                                                           "Mode",
                                                           "Technology",
                                                           "Name",
                                                           "Status",
                                                           "MobileCountryCode",
                                                           "MobileNetworkCode",
                                                           "GsmBand",
                                                           "TechnologyPreference",
                                                           "Enabled",
                                                           "",
                                                           "x",
                                                           "Powered",
                                                           "Present"};

private:
    std::mt19937 m_random;
};

class NonsenseOnOfono : public testing::Test {
protected:
    static void SetUpTestSuite() { Desk::end("daemon", SIGTERM); }

    PHONE_ENG_Setup &setup() { return *PHONE_ENG_Setup::instance(); }
    PHONE_ENG_NtInterface &network() { return *PHONE_ENG_NtInterface::instance(); }

    /** Asks everything that the daemon has a part in, and holds the answers to their bounds. */
    void askEverything()
    {
        QString first;
        QString second;
        QString third;
        QString fourth;
        QStringList list;
        bool flag = false;
        unsigned char byte = 0;
        int number = 0;
        _TAPI_CALL_RESTRICT_ID_E id = TAPI_CALL_RESTRICT_ID_NETWORK;
        _TAPI_SECURITY_PIN_STATUS_E pinStatus = TAPI_SECURITY_PIN_STATUS_NOT_USED;
        PHONE_ENG_TAPI_initiation();
        setup().readIMEISerialNumber(first);
        EXPECT_LE(first.size(), 16);
        std::array<unsigned char, 48> version = {};
        setup().getBpVersion(version.data());
        PHONE_BP_VERSION_INFO_S versions = {};
        setup().getBpVersionInfo(&versions);
        EXPECT_LT(strnlen(versions.technology, sizeof versions.technology), sizeof versions.technology);
        setup().getCLIR(id);
        EXPECT_LE(id, TAPI_CALL_RESTRICT_ID_SUPPRESS);
        setup().isCallWaiting(flag);
        setup().isFixedDialing(flag);
        setup().getVoiceCallsDivert(flag, first, TAPI_CS_DIVERT_UNCONDITIONAL);
        EXPECT_LE(first.size(), 70);
        setup().getDataCallsDivert(flag, first, TAPI_CS_DIVERT_ALL);
        setup().divertFaxCalls(true, TAPI_CS_DIVERT_BUSY, text("0555"));
        setup().getTotalCallCost();
        setup().getAvailableCredit();
        setup().getTotalCallTime();
        setup().getMeterMax(first, flag);
        EXPECT_LE(first.size(), 100);
        setup().getPriceUnitCurrency(first, second);
        EXPECT_LE(first.size(), 29);
        EXPECT_LE(second.size(), 40);
        setup().verifyPin2Code(text("5678"));
        setup().setMeterMax(text("5"));
        setup().setupVerifySimPin(text("1234"));
        setup().changeSimPin(text("1234"), text("4321"));
        setup().unblockingPin(text("12345678"), text("1234"));
        setup().simPinIsOpen();
        setup().readPin2Status(pinStatus);
        setup().getMyNumber(first, second, third, fourth);
        EXPECT_LE(first.size(), 41);
        EXPECT_EQ(setup().getMyNumberList(list) == TAPI_RESULT_SUCC ? list.size() % 2 : 0, 0);
        setup().setMyNumber(1, text("0555"), text("x"));
        setup().deleteMyNumber(1);
        PHONE_ENG_TAPI_GetTTYMode(number);
        _TAPI_CALL_SESSION_TABLE_S table = {};
        PHONE_ENG_TAPI_CALL_GetCallStatus(&table);
        EXPECT_LE(table.count, TAPI_CALL_MAX_SESSIONS);
        for (unsigned int call = 0; call < table.count && call < TAPI_CALL_MAX_SESSIONS; ++call) {
            EXPECT_NE(table.sessions[call].callId, 0);
            EXPECT_NE(table.sessions[call].callId, 255);
        }
        std::array<unsigned char, 8> dialString = {'0', '5', '5'};
        PHONE_ENG_TAPI_CALL_VOICECALL_MakeReq(0, dialString.data(), &byte);
        PHONE_ENG_TAPI_CALL_VOICECALL_SwitchReq(1, 7);
        PHONE_ENG_TAPI_CALL_VOICECALL_HoldReq(1, 1);
        PHONE_ENG_TAPI_CALL_VOICECALL_ReleaseReq(1, TAPI_VOICE_DROP_ALL_ACTIVE);
        PHONE_ENG_TAPI_CALL_VOICECALL_TransferReq(7, dialString.data());
        std::vector<_TAPI_NETWORK_PLMN_INFO_S> networks(network().getKwnownNetworksCnt());
        network().getKnownNetworks(networks.data()); // may have found more by now
        network().getNetworkName(text("00101"), first, second);
        EXPECT_LE(first.size(), 25);
        EXPECT_LE(network().getServiceProviderName().name.size(), 25);
        _TAPI_NETWORK_SEARCH_MODE_E mode = TAPI_NETWORK_SEARCH_AUTOMATIC;
        network().getSearchMode(&mode);
        network().setSearchMode(TAPI_NETWORK_SEARCH_MANUAL);
        _TAPI_NETWORK_BAND_E band = TAPI_NETWORK_BAND_AUTOMATIC;
        network().getBand(&band);
        EXPECT_LE(band, TAPI_NETWORK_BAND_WCDMA);
        PHONE_SET_IsHomeNetwork(text("00101"));
    }
};

using PlentyOnOfono = NonsenseOnOfono;

} // namespace

TEST_F(NonsenseOnOfono, DoesNoHarm)
{
    const char *const wanted = std::getenv("KVQ_NONSENSE_ROUNDS");
    const int rounds = wanted ? std::atoi(wanted) : 10;
    for (int seed = 1; seed <= rounds; ++seed) {
        SCOPED_TRACE(seed);
        Nonsense nonsense(static_cast<unsigned int>(seed));
        const FakeDaemon daemon([&](sd_bus_message *call) { return nonsense.answer(call); });
        askEverything();
    }
    // And the next daemon in its place is asked as if nothing had been, when no nonsense was chosen.
    Desk::forgetModem();
    const FakeDaemon daemon(withOneModem([](std::string_view, sd_bus_message *answer) {
        sd_bus_message_append(answer, "a{sv}", 2, "Present", "b", 1, "HideCallerId", "s", "enabled");
    }));
    _TAPI_CALL_RESTRICT_ID_E id = TAPI_CALL_RESTRICT_ID_NETWORK;
    setup().getCLIR(id); // may still believe in a modem that was none
    EXPECT_EQ(setup().getCLIR(id), TAPI_RESULT_SUCC);
    EXPECT_EQ(id, TAPI_CALL_RESTRICT_ID_INVOKE);
}

/** Nothing tells whether the card holds no own numbers or was not read yet, so time must pass; for each card anew. */
TEST_F(NonsenseOnOfono, TakesAnEmptyListForKnownOnlyWhenTheCardHasBeenThereForAWhile)
{
    std::atomic<bool> readAnew = false;
    const FakeDaemon daemon(withOneModem([&](std::string_view, sd_bus_message *answer) {
        if (readAnew.exchange(false))
            sd_bus_emit_signal(sd_bus_message_get_bus(answer), "/phone", "org.ofono.SimManager",
                               "PropertyChanged", "sv", "SubscriberIdentity", "s", "001010123456789");
        sd_bus_message_append(answer, "a{sv}", 3, "Present", "b", 1, "SubscriberIdentity", "s",
                              "001010123456789", "SubscriberNumbers", "as", 0);
    }));
    PHONE_ENG_TAPI_initiation();
    const auto becomes = [this](_TAPI_RESULT_E wanted) {
        QStringList numbers;
        return Desk::becomes([&] { return setup().getMyNumberList(numbers) == wanted; });
    };
    EXPECT_GE(Desk::secondsOf([&] {
                  EXPECT_TRUE(becomes(TAPI_RESULT_SIM_UNAVAILABLE));
                  EXPECT_TRUE(becomes(TAPI_RESULT_SUCC));
              }),
              0.1);
    readAnew = true;
    EXPECT_TRUE(becomes(TAPI_RESULT_SIM_UNAVAILABLE));
    EXPECT_TRUE(becomes(TAPI_RESULT_SUCC));
}

/** Calls end, and many programs notice it at the same time: each call is added to the total, and once. */
TEST_F(PlentyOnOfono, AddsTheTimeOfEachCallOnce)
{
    const std::time_t anHourAgo = std::time(nullptr) - 3600;
    std::atomic<bool> lasting = true;
    const FakeDaemon daemon(withOneModem([&](std::string_view method, sd_bus_message *answer) {
        if (method == "GetCalls") {
            sd_bus_message_open_container(answer, 'a', "(oa{sv})");
            for (int id = 1; lasting && id <= 7; ++id) {
                std::array<char, 32> start = {};
                const std::time_t begun = anHourAgo - id * 3600;
                std::strftime(start.data(), start.size(), "%Y-%m-%dT%H:%M:%S+0000", std::gmtime(&begun));
                sd_bus_message_append(answer, "(oa{sv})", ("/phone/voicecall0" + std::to_string(id)).c_str(),
                                      2, "State", "s", id == 1 ? "active" : "held", "StartTime", "s",
                                      start.data());
            }
            sd_bus_message_close_container(answer);
        } else {
            sd_bus_message_append(answer, "a{sv}", 1, "Present", "b", 1);
        }
    }));
    PHONE_ENG_TAPI_initiation();
    const QString before = setup().getTotalCallTime();
    EXPECT_GE(before.section(QLatin1Char(':'), 0, 0).toInt(), 2 + 3 + 4 + 5 + 6 + 7 + 8);
    lasting = false;
    std::vector<pid_t> programs;
    for (int program = 0; program < 16; ++program) {
        const pid_t child = fork();
        if (child == 0) {
            PHONE_ENG_TAPI_initiation();
            setup().getTotalCallTime();
            _exit(setup().getTotalCallTime() == before ? 0 : 1);
        }
        programs.push_back(child);
    }
    for (const pid_t child : programs) {
        int status = -1;
        EXPECT_EQ(waitpid(child, &status, 0), child);
        EXPECT_EQ(status, 0);
    }
    EXPECT_EQ(setup().getTotalCallTime(), before);
}

TEST_F(PlentyOnOfono, NamesThePolicyThatKeepsItOutOnce)
{
    const FakeDaemon daemon([](sd_bus_message *call) {
        sd_bus_message *message = nullptr;
        sd_bus_message_new_method_errorf(call, &message, "org.freedesktop.DBus.Error.AccessDenied",
                                         "not you");
        return message;
    });
    testing::internal::CaptureStderr();
    bool on = false;
    EXPECT_EQ(setup().isCallWaiting(on), TAPI_RESULT_ACCESS_DENIED);
    EXPECT_EQ(setup().setupVerifySimPin(text("1234")), TAPI_RESULT_ACCESS_DENIED);
    EXPECT_EQ(
        testing::internal::GetCapturedStderr(),
        "telephony: the bus policy for org.ofono (/etc/dbus-1/system.d/ofono.conf) keeps this program out: "
        "not you\n");
}

/** What is begun and left is followed only so often. What is waited for, an emergency call above all, never depends on that. */
TEST_F(PlentyOnOfono, DialsHoweverManyRequestsAreUnderWay)
{
    const auto answered = withOneModem([](std::string_view method, sd_bus_message *answer) {
        if (method == "GetCalls")
            sd_bus_message_append(answer, "a(oa{sv})", 0);
        else if (method == "Dial")
            sd_bus_message_append(answer, "o", "/phone/voicecall01");
        else
            sd_bus_message_append(answer, "a{sv}", 1, "State", "s", "idle");
    });
    const FakeDaemon daemon([&answered](sd_bus_message *call) {
        return std::string_view(sd_bus_message_get_member(call)) == "Initiate" ? nullptr : answered(call);
    });
    const auto ask = [] {
        _TAPI_USSD_REQ_APP_MSG_S request = {0x0F, 5, {}};
        std::memcpy(request.text, "*199#", 5);
        return PHONE_ENG_TAPI_USSD_Make_Req(&request);
    };
    int begun = 0;
    while (begun < 100 && ask() == TAPI_RESULT_SUCC)
        ++begun;
    EXPECT_EQ(begun, 16);
    EXPECT_EQ(ask(), TAPI_RESULT_BUSY);
    std::string number = "112";
    unsigned char callId = 0;
    EXPECT_EQ(
        PHONE_ENG_TAPI_CALL_VOICECALL_MakeReq(0, reinterpret_cast<unsigned char *>(number.data()), &callId),
        TAPI_RESULT_SUCC);
    EXPECT_EQ(callId, 1);
}

/** Ten thousand of everything: what has room is filled, and nothing behind it. */
TEST_F(PlentyOnOfono, FillsOnlyWhatHasRoom)
{
    unsigned int operators = 3;
    const FakeDaemon daemon(withOneModem([&](std::string_view method, sd_bus_message *answer) {
        if (method == "GetOperators" || method == "GetCalls") {
            sd_bus_message_open_container(answer, 'a', "(oa{sv})");
            for (unsigned int entry = 0; entry < operators; ++entry) {
                const std::string path = "/phone/voicecall" + std::to_string(1 + entry % 254);
                sd_bus_message_append(answer, "(oa{sv})", path.c_str(), 5, "Name", "s",
                                      std::string(300, 'N').c_str(), "MobileCountryCode", "s", "262",
                                      "MobileNetworkCode", "s", "01", "State", "s", "active",
                                      "LineIdentification", "s", std::string(300, '5').c_str());
            }
            sd_bus_message_close_container(answer);
        } else {
            sd_bus_message_append(answer, "a{sv}", 2, "Present", "b", 1, "Online", "b", 1);
        }
    }));
    ASSERT_EQ(network().getKwnownNetworksCnt(), 3);
    std::vector<_TAPI_NETWORK_PLMN_INFO_S> networks(4);
    std::memset(networks.data(), 0x5A, networks.size() * sizeof networks.front());
    operators = 10000;
    EXPECT_TRUE(network().getKnownNetworks(networks.data()));
    EXPECT_STREQ(networks[2].networkId, "26201");
    EXPECT_EQ(networks[2].name[TAPI_NETWORK_NAME_UNITS - 1], 'N');
    EXPECT_EQ(networks[3].networkId[0], 0x5A);
    EXPECT_EQ(network().getKwnownNetworksCnt(), 250);
    _TAPI_CALL_SESSION_TABLE_S table = {};
    EXPECT_EQ(PHONE_ENG_TAPI_CALL_GetCallStatus(&table), TAPI_RESULT_SUCC);
    EXPECT_EQ(table.count, TAPI_CALL_MAX_SESSIONS);
    EXPECT_EQ(std::strlen(table.sessions[7].number), sizeof table.sessions[7].number - 1);
    operators = 1;
    networks.assign(250, networks.front());
    EXPECT_TRUE(network().getKnownNetworks(networks.data())); // fewer than there is room for
    EXPECT_EQ(networks[249].networkId[0], 0);
}

/** An answer that does not tell of a forwarding is no answer, whatever else it tells. */
TEST_F(PlentyOnOfono, BelievesOnlyWhatTheNetworkTellsOfAForwarding)
{
    const char *named = "VoiceBusy";
    const char *number = "";
    const FakeDaemon daemon(withOneModem([&](std::string_view method, sd_bus_message *answer) {
        if (method == "Initiate")
            sd_bus_message_append(answer, "sv", "CallForwarding", "(ssa{sv})", "interrogation", "Busy", 1,
                                  named, "s", number);
        else
            sd_bus_message_append(answer, "a{sv}", 1, "Present", "b", 1);
    }));
    struct Case {
        const char *named;
        const char *number;
        _TAPI_RESULT_E read;
        _TAPI_RESULT_E set; ///< to 0170555
        _TAPI_RESULT_E erased;
    };
    constexpr _TAPI_RESULT_E done = TAPI_RESULT_SUCC;
    constexpr _TAPI_RESULT_E failed = TAPI_RESULT_FAIL;
    for (const Case &one : {Case{"VoiceBusy", "", done, failed, done},
                            {"FaxBusy", "", failed, failed, failed},
                            {"VoiceBusy", "0170555", done, done, failed},
                            {"VoiceBusy", "+49170555", done, done, failed},
                            {"VoiceBusy", "0170556", done, failed, failed},
                            {"FaxBusy", "0170555", failed, failed, failed}}) {
        SCOPED_TRACE(std::string(one.named) + ' ' + one.number);
        named = one.named;
        number = one.number;
        bool active = true;
        QString told;
        EXPECT_EQ(setup().getVoiceCallsDivert(active, told, TAPI_CS_DIVERT_BUSY), one.read);
        EXPECT_EQ(setup().divertVoiceCalls(true, TAPI_CS_DIVERT_BUSY, text("0170555")), one.set);
        EXPECT_EQ(setup().divertVoiceCalls(false, TAPI_CS_DIVERT_BUSY, QString()), one.erased);
    }
}
