// Call forwarding through the daemon, by class and condition.
#include "Desk.h"

#include <array>
#include <map>

using Desk::text;

namespace {

using When = _TAPI_CS_DIVERT_WHEN_E;

class ForwardingOnOfono : public OfonoTest {
protected:
    ForwardingOnOfono() { EXPECT_EQ(setup().cancelAllCallsDiverts(), TAPI_RESULT_SUCC); }

    using Set = _TAPI_RESULT_E (PHONE_ENG_Setup::*)(bool, When, const QString &);
    using Get = _TAPI_RESULT_E (PHONE_ENG_Setup::*)(bool &, QString &, When);

    struct Class {
        const char *name;
        Set set;
        Get get;
    };
    static constexpr std::array<Class, 3> classes = {{
        {"voice", &PHONE_ENG_Setup::divertVoiceCalls, &PHONE_ENG_Setup::getVoiceCallsDivert},
        {"data", &PHONE_ENG_Setup::divertDataCalls, &PHONE_ENG_Setup::getDataCallsDivert},
        {"fax", &PHONE_ENG_Setup::divertFaxCalls, &PHONE_ENG_Setup::getFaxCallsDivert},
    }};

    /** The number, "-" when it is off, "!" when it could not be read. */
    QString read(const Class &serviceClass, When when)
    {
        bool active = false;
        QString number;
        if ((setup().*serviceClass.get)(active, number, when) != TAPI_RESULT_SUCC)
            return text("!");
        return active ? number : text("-");
    }

    /** All conditions of a class in order. */
    QStringList all(const Class &serviceClass)
    {
        QStringList numbers;
        for (const When when : {TAPI_CS_DIVERT_UNCONDITIONAL, TAPI_CS_DIVERT_BUSY, TAPI_CS_DIVERT_NO_REPLY,
                                TAPI_CS_DIVERT_NOT_REACHABLE})
            numbers << read(serviceClass, when);
        return numbers;
    }

    static std::string property(const std::string &name)
    {
        const std::string shown = Desk::byHand("/phone org.ofono.CallForwarding.GetProperties");
        const auto begin = shown.find(name + ' ');
        return begin == std::string::npos ? "?" : shown.substr(begin, shown.find('\n', begin) - begin);
    }
};

const QStringList none = {text("-"), text("-"), text("-"), text("-")};

} // namespace

TEST_F(ForwardingOnOfono, ForwardsEachClassUnderEachCondition)
{
    for (const Class &serviceClass : classes) {
        SCOPED_TRACE(serviceClass.name);
        for (const When when : {TAPI_CS_DIVERT_UNCONDITIONAL, TAPI_CS_DIVERT_BUSY, TAPI_CS_DIVERT_NO_REPLY,
                                TAPI_CS_DIVERT_NOT_REACHABLE}) {
            const QString number = text("+4930") + QString::number(when);
            EXPECT_EQ((setup().*serviceClass.set)(true, when, number), TAPI_RESULT_SUCC);
            EXPECT_EQ(read(serviceClass, when), number);
        }
        for (const Class &other : classes) {
            if (&other != &serviceClass) {
                EXPECT_EQ(all(other), none) << other.name;
            }
        }
        EXPECT_EQ((setup().*serviceClass.set)(false, TAPI_CS_DIVERT_BUSY, QString()), TAPI_RESULT_SUCC);
        EXPECT_EQ(all(serviceClass),
                  (QStringList{text("+49300"), text("-"), text("+49302"), text("+49303")}));
        EXPECT_EQ((setup().*serviceClass.set)(false, TAPI_CS_DIVERT_ALL, QString()), TAPI_RESULT_SUCC);
        EXPECT_EQ(all(serviceClass), none);
    }
}

/** The network keeps the two data services apart, and another phone may have set one of them. */
TEST_F(ForwardingOnOfono, MeansBothDataServices)
{
    const auto services = [] { return Desk::told("AT+CCFC=0,2,,,48"); };
    Desk::tell("'AT+CCFC=0,3,\"0556\",129,16'");
    EXPECT_EQ(read(classes[1], TAPI_CS_DIVERT_UNCONDITIONAL), text("0556"));
    EXPECT_EQ(setup().divertDataCalls(false, TAPI_CS_DIVERT_UNCONDITIONAL, QString()), TAPI_RESULT_SUCC);
    EXPECT_EQ(services(), "+CCFC: 0,16\n+CCFC: 0,32\nOK\n");
    EXPECT_EQ(setup().divertDataCalls(true, TAPI_CS_DIVERT_UNCONDITIONAL, text("0555")), TAPI_RESULT_SUCC);
    EXPECT_EQ(services(), "+CCFC: 1,16,\"0555\",129\n+CCFC: 1,32,\"0555\",129\nOK\n");
}

TEST_F(ForwardingOnOfono, CombinesConditionsAndCancelsByClass)
{
    const QString number = text("0555");
    EXPECT_EQ(setup().divertVoiceCalls(true, TAPI_CS_DIVERT_ALL_CONDITIONAL, number), TAPI_RESULT_SUCC);
    EXPECT_EQ(all(classes[0]), (QStringList{text("-"), number, number, number}));
    EXPECT_EQ(read(classes[0], TAPI_CS_DIVERT_ALL), number);
    EXPECT_EQ(setup().divertFaxCalls(true, TAPI_CS_DIVERT_ALL, number), TAPI_RESULT_SUCC);
    EXPECT_EQ(all(classes[2]), (QStringList{number, number, number, number}));
    EXPECT_EQ(setup().cancelAllVoiceCallsDiverts(), TAPI_RESULT_SUCC);
    EXPECT_EQ(all(classes[0]), none);
    EXPECT_EQ(all(classes[2]), (QStringList{number, number, number, number}));
    EXPECT_EQ(setup().cancelAllCallsDiverts(), TAPI_RESULT_SUCC);
    EXPECT_EQ(all(classes[2]), none);
}

/** What other programs read of the daemon stays right, whatever was asked about data and fax. */
TEST_F(ForwardingOnOfono, LeavesTheDaemonsOwnPropertiesRight)
{
    EXPECT_EQ(setup().divertVoiceCallsWithTime(true, text("0301"), 10), TAPI_RESULT_SUCC);
    EXPECT_EQ(setup().divertFaxCalls(true, TAPI_CS_DIVERT_NO_REPLY, text("0302")), TAPI_RESULT_SUCC);
    EXPECT_EQ(read(classes[2], TAPI_CS_DIVERT_NO_REPLY), text("0302"));
    EXPECT_EQ(read(classes[1], TAPI_CS_DIVERT_NO_REPLY), text("-"));
    EXPECT_NE(property("VoiceNoReply").find("0301"), std::string::npos) << property("VoiceNoReply");
    EXPECT_NE(property("VoiceNoReplyTimeout").find("10"), std::string::npos)
        << property("VoiceNoReplyTimeout");
    // While all calls are forwarded the daemon hides the conditions; the network knows them.
    EXPECT_EQ(setup().divertVoiceCalls(true, TAPI_CS_DIVERT_UNCONDITIONAL, text("0303")), TAPI_RESULT_SUCC);
    EXPECT_EQ(setup().divertVoiceCalls(true, TAPI_CS_DIVERT_BUSY, text("0304")), TAPI_RESULT_SUCC);
    EXPECT_EQ(all(classes[0]), (QStringList{text("0303"), text("0304"), text("0301"), text("-")}));
}

TEST_F(ForwardingOnOfono, RefusesWhatIsNoForwarding)
{
    EXPECT_EQ(setup().divertVoiceCalls(true, TAPI_CS_DIVERT_BUSY, QString()), TAPI_RESULT_INVALID_PARAM);
    EXPECT_EQ(setup().divertVoiceCalls(true, TAPI_CS_DIVERT_BUSY, text("1#*21*2")),
              TAPI_RESULT_INVALID_PARAM);
    EXPECT_EQ(setup().divertVoiceCalls(true, TAPI_CS_DIVERT_BUSY, text("123456789012345678901")),
              TAPI_RESULT_INVALID_PARAM);
    EXPECT_EQ(setup().divertVoiceCalls(true, static_cast<When>(6), text("1")), TAPI_RESULT_INVALID_PARAM);
    Desk::tell(".refuse +CCFC");
    EXPECT_EQ(setup().divertVoiceCalls(true, TAPI_CS_DIVERT_BUSY, text("1")), TAPI_RESULT_FAIL);
    EXPECT_EQ(read(classes[0], TAPI_CS_DIVERT_BUSY), text("!"));
    Desk::tell(".pass");
    EXPECT_EQ(all(classes[0]), none);
}
