// PINs: what reaches the card, what is published and logged; and how the simulated card judges them.
#include "EngineTest.h"

#include <variant>

namespace {

using Setup = PHONE_ENG_Setup;
using Static1 = _TAPI_RESULT_E (*)(const QString &);
using Static2 = _TAPI_RESULT_E (*)(const QString &, const QString &);
using Member1 = _TAPI_RESULT_E (Setup::*)(const QString &);
using Member2 = _TAPI_RESULT_E (Setup::*)(const QString &, const QString &);

static_assert(std::is_member_function_pointer_v<decltype(&Setup::simPinIsOpen)>);
static_assert(std::is_member_function_pointer_v<decltype(&Setup::readPin2Status)>);
static_assert(std::is_member_function_pointer_v<decltype(&Setup::getUpinStatus)>);

/** An operation that hands one or two strings to the card. */
struct Operation {
    std::string name;
    std::variant<Static1, Static2, Member1, Member2> call;
    std::string request; ///< up to the strings, after TAPI_SECURITY_
    bool publishes = false;
    std::string before = {}; ///< message up to the first string
    std::string after = {};  ///< what the message about the result calls the request
};

const Operation operations[] = {
    {"setupVerifySimPin", Static1{&Setup::setupVerifySimPin}, "VerifyPinPassword(0, ", true},
    {"changeSimPin", Member2{&Setup::changeSimPin}, "ChangePinPassword(0, ", true, "changeSimPin.old pin",
     "ChangePin1Password"},
    {"unblockingPin", Member2{&Setup::unblockingPin}, "UnblockPinPassword(0, ", true, "unblockingPin.puk",
     "UnblockPin1Password"},
    {"verifyPin2Code", Member1{&Setup::verifyPin2Code}, "VerifyPin2Password("},
    {"changeSimPin2", Member2{&Setup::changeSimPin2}, "ChangePinPassword(1, ", false, "changeSimPin2.old pin",
     "ChangePin2Password"},
    {"unblockingPin2", Static2{&Setup::unblockingPin2}, "UnblockPinPassword(1, ", false, "unblockingPin2.puk",
     "UnblockPin2Password"},
    {"setupVerifyUpin", Static1{&Setup::setupVerifyUpin}, "VerifyPinPassword(2, ", true},
    // Its messages are those of PIN1.
    {"setupChangeUpin", Member2{&Setup::setupChangeUpin}, "ChangePinPassword(2, ", true,
     "changeSimPin.old UPIN", "ChangePin1Password"},
    {"setupUnblockUpin", Static2{&Setup::setupUnblockUpin}, "UnblockPinPassword(2, ", true},
    {"setupUnblockSimPin1", Static2{&Setup::setupUnblockSimPin1}, "UnblockPinPassword(0, ", true},
    {"enablePin1", Static1{&Setup::enablePin1}, "SetPinStatus(0, "},
};

Events publicationOf(unsigned int result)
{
    if (result == 0)
        return {"UTIL_SetPinStatus(7)", R"(QCopChannel::send("/KVQ/PHONE/SIM", "PIN OK"))"};
    if (result == 0x800C || result == 0x8030)
        return {result == 0x800C ? "UTIL_SetPinStatus(5)" : "UTIL_SetPinStatus(6)",
                R"(QCopChannel::send("/KVQ/PHONE/SIM", "PIN ERROR"))"};
    return {};
}

constexpr unsigned int results[] = {0, 0x800C, 0x8030, 0x8000, 4};

class PinsTest : public EngineTest {
protected:
    unsigned int run(const Operation &operation, const QString &first, const QString &second)
    {
        if (const auto *one = std::get_if<Static1>(&operation.call))
            return (*one)(first);
        if (const auto *two = std::get_if<Static2>(&operation.call))
            return (*two)(first, second);
        if (const auto *one = std::get_if<Member1>(&operation.call))
            return (setup().**one)(first);
        return (setup().*std::get<Member2>(operation.call))(first, second);
    }
};

TEST_F(PinsTest, EveryRequestSendsItsStringsAndPublishesItsOutcome)
{
    struct Text {
        QString given;
        std::string logged;
        std::string sent = '"' + logged + "\"[21]";
    };
    const Text rows[][2] = {
        {{QString(), ""}, {QStringLiteral("98765432"), "98765432"}},
        {{QStringLiteral("1234567890123456789012345"), "1234567890123456789012345",
          R"("12345678901234567890"[21])"},
         {QStringLiteral("09876543210987654321"), "09876543210987654321"}},
        {{QString::fromUtf8("\u20ac\u00e9"), "?\xe9"}, {QString(), ""}},
    };
    refuse(); // not asked
    for (const Operation &operation : operations) {
        const bool enables = operation.name == "enablePin1";
        const bool one = operation.call.index() % 2 == 0;
        const std::string function = "TAPI_SECURITY_" + operation.request;
        for (const auto &[first, second] : rows) {
            const std::string call =
                function + first.sent + (one ? "" : ", " + second.sent) + (enables ? ", 1)" : ")");
            for (const unsigned int result : results) {
                SCOPED_TRACE(operation.name + " answered with " + std::to_string(result));
                Events expected = enables ? Events{call} : Events{trace, call, trace};
                if (!operation.after.empty()) {
                    expected.insert(expected.begin(),
                                    "\"PHONE_ENG_Setup::" + operation.before + " is " + first.logged
                                        + ",new pin is " + second.logged + '"');
                    expected.push_back("\"TAPI_SECURITY_" + operation.after + " result "
                                       + std::to_string(result) + '"');
                }
                for (const std::string &event : operation.publishes ? publicationOf(result) : Events{})
                    expected.push_back(event);
                answer(function.substr(0, function.find('(')), result);
                EXPECT_EQ(run(operation, first.given, second.given), result);
                EXPECT_EQ(events(), expected);
            }
        }
        EXPECT_EQ(locations().count("utility/PHONE_ENG_Setup " + operation.name), enables ? 0U : 1U);
    }
}

TEST_F(PinsTest, TheResultProcessorsPublishAndLogNothing)
{
    for (const auto process : {&Setup::processPIN1ResultError, &Setup::processUPINResultError}) {
        for (const unsigned int result : results) {
            (*process)(static_cast<_TAPI_RESULT_E>(result));
            EXPECT_EQ(events(), publicationOf(result)) << result;
        }
    }
}

TEST_F(PinsTest, OnlyAStatusOfOneMeansThatPin1IsRequested)
{
    using Row = std::tuple<unsigned int, char, bool>;
    for (const auto &[result, status, open] :
         {Row{0, 1, true}, Row{0, 0, false}, Row{0, 2, false}, Row{0x8000, 1, false}, Row{1, 1, false}}) {
        answer("TAPI_SECURITY_GetPin1Status", result, {{status}});
        const std::string number = std::to_string(result) + '"';
        Events expected = {trace, "TAPI_SECURITY_GetPin1Status(1)", trace,
                           "\"TAPI_SECURITY_GetPin1Status result " + number};
        if (result != 0)
            expected.push_back("\"TAPI_SECURITY_GetPin1Status failed." + number);
        EXPECT_EQ(setup().simPinIsOpen(), open) << number << int(status);
        EXPECT_EQ(events(), expected);
    }
}

TEST_F(PinsTest, Pin2StatusIsLoggedAsTheCallerHoldsIt)
{
    using Row = std::tuple<unsigned int, std::string, unsigned int>;
    for (const auto &[result, out, status] :
         {Row{0, {2, 0, 0, 0}, 2}, Row{0x8000, {2, 0, 0, 0}, 2}, Row{0x8000, "", 1}}) {
        auto held = TAPI_SECURITY_PIN_STATUS_NOT_VERIFIED;
        answer("TAPI_SECURITY_GetAnyPinStatus", result, {out});
        EXPECT_EQ(setup().readPin2Status(held), result);
        EXPECT_EQ(held, status);
        EXPECT_EQ(events(),
                  (Events{trace, "TAPI_SECURITY_GetAnyPinStatus(1)", trace,
                          "\"PIN2 status = " + std::to_string(status) + '"'}));
    }
}

TEST_F(PinsTest, UpinStatusIsAskedOnlyWhenTheCardUsesTheUpin)
{
    // Result and qualifier, none when the platform leaves it alone; what is returned and written.
    using Row = std::tuple<unsigned int, std::string, unsigned int, unsigned int>;
    answer("TAPI_SECURITY_GetAnyPinStatus", 5, {{2, 0, 0, 0}});
    for (const auto &[qualifierResult, qualifier, result, status] :
         {Row{0, {'\0'}, 0, 3}, Row{0, {2}, 0, 3}, Row{4, "", 4, 3}, Row{4, {2}, 4, 3}, Row{0, {1}, 5, 2},
          Row{4, {8}, 5, 2}}) {
        answer("TAPI_SECURITY_GetUPINUsageQualifier", qualifierResult, {qualifier});
        auto held = TAPI_SECURITY_PIN_STATUS_VERIFIED;
        EXPECT_EQ(setup().getUpinStatus(&held), result);
        EXPECT_EQ(held, status);
        Events expected = {"TAPI_SECURITY_GetUPINUsageQualifier()", "TAPI_SECURITY_GetAnyPinStatus(2)"};
        expected.resize(status == 3 ? 1 : 2);
        EXPECT_EQ(events(), expected);
    }
    EXPECT_EQ(setup().getUpinStatus(nullptr), TAPI_RESULT_INVALID_PARAM);
    EXPECT_EQ(calls(), Events{});
}

TEST_F(PinsTest, TheCardCountsTriesAndForgivesThem)
{
    enum { Verify, Change, Unblock }; // as they follow each other in the operations of a PIN
    using Step = std::tuple<std::size_t, QString, unsigned int>;
    Pin SimState::*const pins[] = {&SimState::pin1, &SimState::pin2, &SimState::upin};
    const QString wrong = QStringLiteral("9999");
    const QString fresh = QStringLiteral("4321");
    for (std::size_t type = 0; type < 3; ++type) {
        phone.reset();
        const QString right = QString::fromStdString((state().sim.*pins[type]).code);
        const QString puk = QString::fromStdString((state().sim.*pins[type]).puk);
        std::vector<Step> steps = {
            Step{Verify, wrong, 0x800C}, Step{Change, wrong, 0x800C},  Step{Verify, right, 0},
            Step{Verify, wrong, 0x800C}, Step{Verify, wrong, 0x800C},  Step{Verify, wrong, 0x8030},
            Step{Verify, right, 0x8030}, Step{Unblock, wrong, 0x800C}, Step{Unblock, puk, 0},
            Step{Verify, right, 0x800C}, Step{Change, fresh, 0},       Step{Verify, fresh, 0}};
        steps.insert(steps.end(), 9, Step{Unblock, wrong, 0x800C});
        steps.insert(steps.end(), {Step{Unblock, wrong, 0x8030}, Step{Unblock, puk, 0x8030}});
        for (std::size_t step = 0; step < steps.size(); ++step) {
            const auto &[operation, code, result] = steps[step];
            EXPECT_EQ(run(operations[3 * type + operation], code, fresh), result)
                << type << ", step " << step;
        }
        for (std::size_t other = 0; other < 3; ++other)
            EXPECT_EQ((state().sim.*pins[other]).pukTriesLeft, other == type ? 0 : 10);
    }
}

} // namespace
