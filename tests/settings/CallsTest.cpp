// Calls: nothing is dialled, answered or ended that was not meant, and one that runs is never out of sight.
#include "SettingsTest.h"
#include "TAPI_VOICE.h"

#include <QPointer>

#include <mutex>

namespace {

using namespace std::chrono_literals;

class CallsTest : public SettingsTest {
protected:
    /** A call comes in and is answered. */
    unsigned char talk(const char *number)
    {
        const unsigned char call = phone().ring(number);
        EXPECT_TRUE(click(QStringLiteral("answer")));
        EXPECT_TRUE(waitForNo(QStringLiteral("answer")));
        EXPECT_TRUE(waitForItem(QStringLiteral("hang-up")));
        return call;
    }

    QStringList everywhere(const char *property) const { return valuesOf(property, window().contentItem()); }
    QString states() const { return everywhere("stateText").join(QLatin1String(", ")); }
    QString textOf(const char *name) const
    {
        const QQuickItem *const item = find(QLatin1String(name));
        return item ? item->property("text").toString() : QString();
    }
    QString shownPage() const { return window().property("shownPage").toString(); }

    /** What the phone was asked whose name begins so, in order. */
    void listen(const char *beginning)
    {
        m_asked.clear();
        phone().setObserver(
            [this, beginning = std::string(beginning)](const std::string &call, const std::string &) {
                const std::lock_guard lock(m_mutex);
                if (call.rfind(beginning, 0) == 0)
                    m_asked << QString::fromStdString(call);
            });
    }
    QStringList asked()
    {
        const std::lock_guard lock(m_mutex);
        return m_asked;
    }

    ~CallsTest() override { phone().setObserver({}); }

private:
    std::mutex m_mutex;
    QStringList m_asked;
};

TEST_F(CallsTest, ACallIsTakenOnAnyPageAndLeadsBackToIt)
{
    open(QStringLiteral("about"), {.calm = true});
    ASSERT_TRUE(settle());
    const QPointer<QQuickItem> before = page();
    EXPECT_EQ(find(QStringLiteral("return")), nullptr);
    const unsigned char call = talk("+491715550100");
    EXPECT_TRUE(waitFor([&] { return states() == QLatin1String("Active"); }));

    // Back leads to where one was, and a bar back to the call.
    press(Qt::Key_Escape);
    ASSERT_TRUE(waitForNo(QStringLiteral("hang-up")));
    EXPECT_EQ(page(), before);
    ASSERT_TRUE(waitForItem(QStringLiteral("return")));
    EXPECT_EQ(page()->mapToScene({}).y(), find(QStringLiteral("return"))->height())
        << "it has room of its own";
    EXPECT_TRUE(
        find(QStringLiteral("return"))->property("how").toString().startsWith(QStringLiteral("Active · 0:")));
    ASSERT_TRUE(tap(QStringLiteral("return")));
    ASSERT_TRUE(waitForItem(QStringLiteral("hang-up")));

    ASSERT_TRUE(phone().remoteHangsUp(call));
    EXPECT_TRUE(waitForNo(QStringLiteral("hang-up")));
    EXPECT_TRUE(waitForNo(QStringLiteral("return")));
    EXPECT_EQ(page(), before);
    EXPECT_EQ(page()->mapToScene({}).y(), 0);
}

TEST_F(CallsTest, ASheetSurvivesTheCall)
{
    open(QStringLiteral("own-numbers"), {.calm = true});
    ASSERT_TRUE(settle());
    ASSERT_TRUE(click(QStringLiteral("number1")));
    ASSERT_TRUE(waitFor([&] { return window().activeFocusItem()->inherits("QQuickTextInput"); }));
    QQuickItem *const field = window().activeFocusItem();
    type(QStringLiteral("57"));
    talk("+491715550100");
    type(QStringLiteral("1"));
    EXPECT_EQ(textOf("tones"), QStringLiteral("1"));
    ASSERT_TRUE(click(QStringLiteral("hang-up")));
    ASSERT_TRUE(waitForNo(QStringLiteral("hang-up")));
    EXPECT_EQ(field->property("text").toString(), QStringLiteral("57"));
    EXPECT_TRUE(waitFor([&] { return field->hasActiveFocus(); }));
}

TEST_F(CallsTest, ARunningCallPushesNothingUnderAFinger)
{
    open(QStringLiteral("about"), {.calm = true});
    ASSERT_TRUE(settle());
    touch(QPointF(160, 300));
    const unsigned char call = phone().ring("111");
    ASSERT_TRUE(waitForItem(QStringLiteral("reject")));
    // Somebody else answers it: a headset, or another program.
    ASSERT_EQ(TAPI_VOICE_AnswerCall(call, TAPI_VOICE_ANSWER_HOLD_ACTIVE), TAPI_RESULT_SUCC);
    ASSERT_TRUE(waitForNo(QStringLiteral("reject")));
    EXPECT_EQ(page()->mapToScene({}).y(), 0);
    EXPECT_EQ(find(QStringLiteral("return")), nullptr);
    lift(QPointF(160, 300));
    EXPECT_TRUE(waitForItem(QStringLiteral("return")));
}

TEST_F(CallsTest, KeysOfACallAreTonesAndNothingElse)
{
    open(QStringLiteral("calls"), {.calm = true});
    ASSERT_TRUE(settle());
    const unsigned char call = talk("111");
    listen("TAPI_VOICE_");
    ASSERT_TRUE(click(QStringLiteral("keypad")));
    for (const char *const key : {"key:1", "key:1"})
        ASSERT_TRUE(tap(QLatin1String(key)));
    press(Qt::Key_2);
    EXPECT_EQ(textOf("tones"), QStringLiteral("112"));
    ASSERT_TRUE(settle());
    EXPECT_EQ(asked().size(), 6) << "pressed and released, each: "
                                 << asked().join(QLatin1Char(' ')).toStdString();
    EXPECT_EQ(asked().filter(QStringLiteral("DtmfTone")).size(), 6);

    // Nor can they be dialled beside it.
    press(Qt::Key_Return);
    press(Qt::Key_Escape);
    ASSERT_TRUE(waitForNo(QStringLiteral("hang-up")));
    EXPECT_EQ(find(QStringLiteral("number")), nullptr) << "no pad that dials while a call runs";
    ASSERT_TRUE(click(QStringLiteral("add-call")));
    ASSERT_TRUE(waitForItem(QStringLiteral("dial")));
    EXPECT_EQ(textOf("number"), QString());

    // What failed to sound is not shown as sent.
    ASSERT_TRUE(click(QStringLiteral("return")));
    phone().setAnswer("TAPI_VOICE_*", {.result = 0x8000, .out = {}});
    ASSERT_TRUE(waitFor([&] { return textOf("tones") == QLatin1String("112"); }));
    press(Qt::Key_3);
    EXPECT_TRUE(waitFor([&] { return textOf("tones") == QLatin1String("112"); }));
    EXPECT_TRUE(waitFor([&] { return everywhere("reason").size() == 1; }));
    phone().clearAnswer("TAPI_VOICE_*");

    ASSERT_TRUE(phone().remoteHangsUp(call));
    EXPECT_TRUE(waitForItem(QStringLiteral("number")));
    EXPECT_EQ(textOf("number"), QString());
}

TEST_F(CallsTest, AHeldDigitShowsItsSpeedDialAndCallsItWhenItIsLeft)
{
    open(QStringLiteral("speed-dial"), {.calm = true});
    ASSERT_TRUE(settle());
    ASSERT_TRUE(click(QStringLiteral("slot2")));
    ASSERT_TRUE(waitFor([&] { return window().activeFocusItem()->inherits("QQuickTextInput"); }));
    type(QStringLiteral("55502"));
    press(Qt::Key_Return);
    ASSERT_TRUE(settle());
    open(QStringLiteral("calls"), {.calm = true});
    ASSERT_TRUE(settle());
    listen("TAPI_VOICE_");
    const auto hold = [this](const char *key) {
        EXPECT_TRUE(waitFor([&] { return guard().isReady(find(QLatin1String(key))); }));
        const QPointF place = centreOf(*find(QLatin1String(key)));
        touch(place);
        EXPECT_TRUE(waitFor([&] { return find(QLatin1String(key))->property("held").toBool(); }));
        return place;
    };

    // An empty one is a digit, and so is one after another.
    lift(hold("key:3"));
    EXPECT_EQ(textOf("number"), QStringLiteral("3"));
    EXPECT_EQ(textOf("speed-dial-note"), QStringLiteral("Speed dial 3 is empty."));
    lift(hold("key:2"));
    EXPECT_EQ(textOf("number"), QStringLiteral("32"));
    find(QStringLiteral("number"))->setProperty("text", QString());

    const QPointF place = hold("key:2");
    EXPECT_EQ(textOf("number"), QStringLiteral("55502"));
    finger().move(0, (place - QPointF(0, 200)).toPoint());
    lift(place - QPointF(0, 200));
    EXPECT_TRUE(waitFor([&] { return textOf("number").isEmpty(); }));
    ASSERT_TRUE(settle());
    EXPECT_EQ(asked(), QStringList()) << "slid off, it calls nobody";

    lift(hold("key:2"));
    EXPECT_TRUE(waitForItem(QStringLiteral("hang-up")));
    EXPECT_TRUE(waitFor([&] { return states() == QStringLiteral("Calling …"); }));
    EXPECT_EQ(asked().size(), 1);
    EXPECT_TRUE(asked().join(QLatin1Char(' ')).contains(QLatin1String("55502")));

    // The keys of a call are tones, however long they are held.
    ASSERT_TRUE(phone().remoteAnswers(1));
    ASSERT_TRUE(waitFor([&] { return states() == QStringLiteral("Active"); }));
    ASSERT_TRUE(click(QStringLiteral("keypad")));
    listen("TAPI_VOICE_");
    lift(hold("key:2"));
    ASSERT_TRUE(settle());
    EXPECT_EQ(asked().filter(QStringLiteral("DtmfTone")).size(), asked().size());
    EXPECT_EQ(textOf("tones"), QStringLiteral("2"));
}

TEST_F(CallsTest, AnotherCallIsAdded)
{
    open(QStringLiteral("about"), {.calm = true});
    ASSERT_TRUE(settle());
    talk("111");
    EXPECT_EQ(find(QStringLiteral("end-all")), nullptr);
    ASSERT_TRUE(click(QStringLiteral("add-call")));
    ASSERT_TRUE(settle());
    ASSERT_TRUE(waitForItem(QStringLiteral("dial")));
    EXPECT_EQ(shownPage(), QStringLiteral("calls"));
    find(QStringLiteral("number"))->setProperty("text", QStringLiteral("222"));
    ASSERT_TRUE(click(QStringLiteral("dial")));
    ASSERT_TRUE(waitFor([&] { return states() == QStringLiteral("On hold, Calling …"); }))
        << qPrintable(states());
    EXPECT_EQ(find(QStringLiteral("mute")), nullptr) << "nobody talks";
    ASSERT_TRUE(phone().remoteAnswers(2));
    ASSERT_TRUE(waitFor([&] { return states() == QLatin1String("On hold, Active"); }))
        << qPrintable(states());
    EXPECT_NE(find(QStringLiteral("mute")), nullptr);
    ASSERT_TRUE(click(QStringLiteral("end-all")));
    EXPECT_TRUE(waitForNo(QStringLiteral("hang-up")));
    ASSERT_TRUE(settle());
    EXPECT_NE(find(QStringLiteral("number")), nullptr);
}

TEST_F(CallsTest, HangUpEndsWhatIsDialledEvenBeforeItIsThere)
{
    open(QStringLiteral("calls"), {.calm = true});
    ASSERT_TRUE(settle());
    for (const bool early : {true, false}) {
        SCOPED_TRACE(early);
        phone().setDelay("TAPI_VOICE_MakeCall", early ? 300ms : 0ms);
        find(QStringLiteral("number"))->setProperty("text", QStringLiteral("333"));
        listen("TAPI_VOICE_");
        ASSERT_TRUE(click(QStringLiteral("dial")));
        ASSERT_TRUE(waitForItem(QStringLiteral("hang-up")));
        const QPointF place = centreOf(*find(QStringLiteral("hang-up")));
        if (!early) {
            ASSERT_TRUE(waitFor([&] { return states() == QStringLiteral("Calling …"); }));
        }
        EXPECT_EQ(centreOf(*find(QStringLiteral("hang-up"))), place);
        ASSERT_TRUE(click(QStringLiteral("hang-up")));
        EXPECT_TRUE(waitForNo(QStringLiteral("hang-up")));
        ASSERT_TRUE(settle());
        EXPECT_EQ(asked().size(), 2) << "dialled and ended: " << asked().join(QLatin1Char(' ')).toStdString();
    }
}

TEST_F(CallsTest, AServiceCodeIsDoneAndTold)
{
    open(QStringLiteral("calls"), {.calm = true});
    ASSERT_TRUE(settle());
    QQuickItem *const number = find(QStringLiteral("number"));
    ASSERT_NE(number, nullptr);
    const auto outcome = [this] {
        const QQuickItem *const row = find(QStringLiteral("outcome"));
        return row && row->isVisible() ? row->property("description").toString() : QString();
    };

    listen("TAPI_VOICE_");
    number->setProperty("text", QStringLiteral("*#06#")); // this one needs no "Call"
    EXPECT_TRUE(waitFor([&] { return outcome().size() >= 15; })) << qPrintable(outcome());
    EXPECT_EQ(textOf("number"), QString());

    for (const auto &[typed, told] :
         {std::pair("**67*555#", "Voice calls, when busy: to 555"),
          std::pair("*#67#", "Voice calls, when busy: to 555"),
          std::pair("##67#", "Voice calls, when busy: off"), std::pair("*43#", "On"),
          std::pair("#31#", "Shown"), std::pair("**042*5678*1111*1111#", "Changed."),
          std::pair("*100#", "Sent. The answer comes from the network, and the phone shows it.")}) {
        number->setProperty("text", QString::fromLatin1(typed));
        ASSERT_TRUE(click(QStringLiteral("dial")));
        EXPECT_TRUE(waitFor([&] { return outcome() == QLatin1String(told); }))
            << typed << ": " << qPrintable(outcome());
    }
    EXPECT_EQ(asked(), QStringList()) << "no code is a call";

    // A wrong PIN is told in the words of PINs, and does not stay in the field.
    number->setProperty("text", QStringLiteral("**04*9999*1111*1111#"));
    ASSERT_TRUE(click(QStringLiteral("dial")));
    EXPECT_TRUE(waitFor([&] {
        return everywhere("reason").join(QLatin1Char(' ')).contains(QLatin1String("refused the PIN"));
    })) << qPrintable(everywhere("reason").join(QLatin1Char('\n')));
    EXPECT_EQ(textOf("number"), QString());
    EXPECT_EQ(outcome(), QString());
}

TEST_F(CallsTest, ACallThatCannotBeDialledIsToldBesideItsNumber)
{
    phone().setAnswer("TAPI_VOICE_*", {.result = 0x8000, .out = {}});
    open(QStringLiteral("calls"), {.calm = true});
    ASSERT_TRUE(settle());
    type(QStringLiteral("444"));
    press(Qt::Key_Return);
    EXPECT_TRUE(waitFor([&] { return valuesOf("reason").size() == 1; }));
    EXPECT_TRUE(waitForNo(QStringLiteral("hang-up")));
    EXPECT_EQ(textOf("number"), QStringLiteral("444"));
    phone().clearAnswer("TAPI_VOICE_*");
}

TEST_F(CallsTest, TwoCallsAreSwappedAndJoined)
{
    open(QStringLiteral("about"), {.calm = true});
    ASSERT_TRUE(settle());
    talk("111");
    const unsigned char second = talk("222");
    EXPECT_TRUE(waitFor([&] { return states() == QLatin1String("On hold, Active"); }));
    ASSERT_TRUE(click(QStringLiteral("swap")));
    EXPECT_TRUE(waitFor([&] { return states() == QLatin1String("Active, On hold"); }))
        << qPrintable(states());
    ASSERT_TRUE(click(QStringLiteral("join")));
    EXPECT_TRUE(waitFor([&] { return states().count(QLatin1String("in the conference")) == 2; }))
        << qPrintable(states());
    EXPECT_EQ(find(QStringLiteral("join")), nullptr);

    // With one party left it is a call.
    ASSERT_TRUE(phone().remoteHangsUp(second));
    EXPECT_TRUE(waitFor([&] { return states() == QLatin1String("Active"); })) << qPrintable(states());
    EXPECT_EQ(find(QStringLiteral("end")), nullptr);
}

} // namespace
