// Call metering: credit, cost, timers, maximum, charge type, price of a unit.
#include "EngineTest.h"

#include <climits>
#include <cstdlib>
#include <functional>

namespace {

using namespace std::string_literals;

constexpr auto failure = static_cast<_TAPI_RESULT_E>(77);

class CallMeteringTest : public EngineTest {
protected:
    /** The link probe remembers for the life of the process, so whoever needs the link has one of its own. */
    static void inOwnProcess(const std::function<void()> &test)
    {
        const auto run = [&] {
            test();
            std::exit(HasFailure() ? 1 : 0);
        };
        EXPECT_EXIT(run(), testing::ExitedWithCode(0), "");
    }

    using EngineTest::after;
    std::string after(const QString &text) { return after(text.isNull() ? "null" : text.toStdString()); }
};

// The operations that give a text and ask for the link first.
const struct {
    std::string name;
    QString (PHONE_ENG_Setup::*read)();
    std::string function, text, failed, otherwise;
} textReads[] = {
    {"getAvailableCredit", &PHONE_ENG_Setup::getAvailableCredit, "TAPI_CS_GetRemainCredit", "12.50",
     "read credit remain failed.77", "0.00"},
    {"getTotalCallCost", &PHONE_ENG_Setup::getTotalCallCost, "TAPI_CS_GetCallMeter", "3.20",
     "TAPI_CS_GetCallMeter failed.77", "0.00"},
    {"getTotalLifeTimer", &PHONE_ENG_Setup::getTotalLifeTimer, "TAPI_CS_GetLeftCallTime", "2:30:0",
     "TAPI_CS_GetLeftCallTime failed.77", "null"},
    {"getTotalCallTime", &PHONE_ENG_Setup::getTotalCallTime, "TAPI_CS_GetTotalCallTime", "1:5:3",
     "TAPI_CS_GetTotalCallTime failed.77", "null"},
};

TEST_F(CallMeteringTest, TextsAreReadOverTheLinkOrHaveADefault)
{
    const std::string asksForLink = ": | TAPI_CLIENT_GetSyncSocketFd() |";
    inOwnProcess([&] {
        phone.openLink();
        for (const auto &row : textReads) {
            const std::string asked = asksForLink + " | " + row.function + "() |";
            EXPECT_EQ(after((setup().*row.read)()), row.text + asked);
            answer(row.function, failure, {std::string(8, '9')});
            EXPECT_EQ(after((setup().*row.read)()),
                      row.otherwise + asked + " \"PHONE_ENG_Setup::" + row.name + ". " + row.failed + '"');
            EXPECT_EQ(locations(),
                      (std::set{"utility/PHONE_ENG_Setup " + row.name,
                                "utility/PHONE_ENG_WrapTapi PHONE_ENG_IsTapiDeviceActive"s}));
        }
        phone.closeLink();
        for (const auto &row : textReads)
            EXPECT_EQ(after((setup().*row.read)()),
                      row.otherwise + asksForLink + " \"PHONE_ENG_Setup::" + row.name
                          + ". tapi service is not active.\"");
    });
    refuse();
    for (const auto &row : textReads)
        EXPECT_EQ(after((setup().*row.read)()), row.otherwise + ':') << "not even the link is asked for";
}

TEST_F(CallMeteringTest, AmountsStayAsThePlatformComposedThemAndTimersAreNotPadded)
{
    const std::string endless(101, '9');
    const std::pair<_TAPI_CS_CALL_TIME_S, std::string> times[] = {
        {{0, 0, 0}, "0:0:0"}, {{100, 0, 9}, "100:0:9"}, {{UINT_MAX, 255, 200}, "4294967295:255:200"}};
    inOwnProcess([&] {
        phone.openLink();
        for (const auto &[field, text] : {std::pair{"  1,5 \xa4"s, "  1,5 ¤"s}, {endless, endless}}) {
            answer("TAPI_CS_GetRemainCredit", TAPI_RESULT_SUCC, {field});
            answer("TAPI_CS_GetCallMeter", TAPI_RESULT_SUCC, {field});
            EXPECT_EQ(setup().getAvailableCredit().toStdString(), text);
            EXPECT_EQ(setup().getTotalCallCost().toStdString(), text);
        }
        for (const auto &[time, text] : times) {
            answer("TAPI_CS_GetLeftCallTime", TAPI_RESULT_SUCC, {bytesOf(time)});
            answer("TAPI_CS_GetTotalCallTime", TAPI_RESULT_SUCC, {bytesOf(time)});
            EXPECT_EQ(setup().getTotalLifeTimer().toStdString(), text);
            EXPECT_EQ(setup().getTotalCallTime().toStdString(), text);
        }
    });
}

TEST_F(CallMeteringTest, MaximumThatBeginsWithZeroIsNone)
{
    const std::string endless(101, '5');
    const std::pair<std::string, bool> rows[] = {{"0", false},     {"0.50", false}, {"", true},
                                                 {"100.00", true}, {" 0", true},    {"O", true},
                                                 {endless, true}};
    const std::string asked = R"(: | TAPI_CS_GetCallMeterMax() | "MAX METER=)";
    for (const auto &[text, expected] : rows) {
        QString max = QStringLiteral("caller");
        bool flag = !expected;
        answer("TAPI_CS_GetCallMeterMax", failure, {text});
        EXPECT_EQ(after(setup().getMeterMax(max, flag)), "77" + asked + R"(caller.\n")");
        EXPECT_TRUE(max == QStringLiteral("caller") && flag != expected);
        answer("TAPI_CS_GetCallMeterMax", TAPI_RESULT_SUCC, {text});
        EXPECT_EQ(after(setup().getMeterMax(max, flag)), '0' + asked + text + R"(.\n")");
        EXPECT_EQ(max.toStdString(), text);
        EXPECT_EQ(flag, expected) << text;
    }
}

TEST_F(CallMeteringTest, SettingsReachThePlatformCutToTheirFields)
{
    const QString nines(200, QLatin1Char('9'));
    const QString price = QStringLiteral("0.12");
    const std::string hundred = "TAPI_CS_SetCallMeterMax(\"" + std::string(100, '9') + "\"[101])";
    const std::string fullPrice =
        "TAPI_CS_SetPriceUnit(\"" + std::string(40, '9') + "\"[41], \"" + std::string(29, '9') + "\"[30])";
    PHONE_ENG_Setup &engine = setup();
    const std::vector<PlatformWrite> rows = {
        {[&] { return engine.setMeterMax(price); }, R"(TAPI_CS_SetCallMeterMax("0.12"[101]))"},
        {[&] { return engine.setMeterMax(QString()); }, R"(TAPI_CS_SetCallMeterMax(""[101]))"},
        {[&] { return engine.setMeterMax(nines.left(100)); }, hundred},
        {[&] { return engine.setMeterMax(nines); }, hundred},
        {[&] { return engine.disableCMM(); }, R"(TAPI_CS_SetCallMeterMax("0"[101]))"},
        {[&] { return engine.setMeterDisplay(200); }, "TAPI_CS_SetChargeDisplay(200)"},
        {[&] { return engine.resetCallMeter(); }, "TAPI_CS_ResetCallMeter()"},
        {[&] { return engine.resetCallTime(); }, "TAPI_CS_ResetCallTime()"},
        {[&] { return engine.setPriceUnitCurrency(price, QString::fromUtf8("£")); },
         "TAPI_CS_SetPriceUnit(\"\xa3\"[41], \"0.12\"[30])"},
        {[&] { return engine.setPriceUnitCurrency(nines, nines); }, fullPrice},
    };
    reachPlatform(rows);
}

TEST_F(CallMeteringTest, RefusedReadsLeaveTheCallersValues)
{
    refuse();
    QString text = QStringLiteral("caller");
    QString currency = text;
    bool flag = true;
    unsigned char byte = 42;
    EXPECT_EQ(after(setup().getMeterMax(text, flag)), "32768:");
    EXPECT_EQ(after(setup().getPriceUnitCurrency(text, currency)), "32768:");
    EXPECT_EQ(after(setup().getMeterDisplay(byte)), "32768:");
    EXPECT_EQ(after(setup().setChargeType(3)), "32768:");
    EXPECT_EQ(after(setup().getChargeType(byte)), "32768: UTIL_GetCallChargeType()");
    EXPECT_TRUE(text == QStringLiteral("caller") && currency == text && flag && byte == 42);
}

TEST_F(CallMeteringTest, ChargeTypeIsAskedForOnlyWhileUnknown)
{
    const std::string asked = ": UTIL_GetCallChargeType() | TAPI_CS_GetChargeType() |";
    unsigned char type = 42;
    for (const int unknown : {-1, -256, INT_MIN}) {
        state().shared.chargeType = unknown;
        answer("TAPI_CS_GetChargeType", failure, {"\x7"});
        EXPECT_EQ(after(setup().getChargeType(type = 42)), "77" + asked);
        EXPECT_EQ(type, 42);
        answer("TAPI_CS_GetChargeType", TAPI_RESULT_SUCC, {"\xc8"});
        EXPECT_EQ(after(setup().getChargeType(type)), '0' + asked + " UTIL_SetCallChargeType(200)");
        EXPECT_EQ(type, 200);
    }
    EXPECT_EQ(after(setup().setChargeType(201)),
              "0: | TAPI_CS_SetChargeType(201) | UTIL_SetCallChargeType(201)");
    answer("TAPI_CS_SetChargeType", failure);
    EXPECT_EQ(after(setup().setChargeType(3)), "77: | TAPI_CS_SetChargeType(3) |");
    refuse(); // a known type is asked of nobody
    for (const int known : {0, 1, 255}) {
        state().shared.chargeType = known;
        EXPECT_EQ(after(setup().getChargeType(type)), "0: UTIL_GetCallChargeType()");
        EXPECT_EQ(type, known);
    }
}

TEST_F(CallMeteringTest, MeterDisplayIsPassedThrough)
{
    unsigned char display = 42;
    answer("TAPI_CS_GetChargeDisplay", failure, {"\x9"});
    EXPECT_EQ(after(setup().getMeterDisplay(display)), "77: | TAPI_CS_GetChargeDisplay() |");
    EXPECT_EQ(display, 42);
    answer("TAPI_CS_GetChargeDisplay", TAPI_RESULT_SUCC, {"\xc8"});
    EXPECT_EQ(after(setup().getMeterDisplay(display)), "0: | TAPI_CS_GetChargeDisplay() |");
    EXPECT_EQ(display, 200);
}

TEST_F(CallMeteringTest, PriceOfAUnitIsReadFieldByField)
{
    const std::string asked = R"(: | TAPI_CS_GetPriceUnit() | "UNIT=)";
    QString unit = QStringLiteral("my unit");
    QString currency = QStringLiteral("my currency");
    answer("TAPI_CS_GetPriceUnit", failure, {std::string(71, '9')});
    EXPECT_EQ(after(setup().getPriceUnitCurrency(unit, currency)),
              "77" + asked + R"(my unit,currency=my currency.\n")");
    EXPECT_TRUE(unit == QStringLiteral("my unit") && currency == QStringLiteral("my currency"));
    for (const auto &[money, price] :
         {std::pair{"EUR"s, "0.12"s}, {std::string(41, 'c'), std::string(30, 'p')}}) {
        answer("TAPI_CS_GetPriceUnit", TAPI_RESULT_SUCC,
               {money + std::string(41 - money.size(), '\0') + price + '\0'});
        EXPECT_EQ(after(setup().getPriceUnitCurrency(unit, currency)),
                  '0' + asked + price + ",currency=" + money + R"(.\n")");
        EXPECT_EQ(unit.toStdString(), price);
        EXPECT_EQ(currency.toStdString(), money);
    }
}

} // namespace
