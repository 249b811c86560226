// Everything can be done by keyboard: in reading order, with a visible focus, and with words for a screen reader.
#include "SettingsTest.h"

#include <QAccessible>
#include <QMetaEnum>
#include <QPointer>
#include <QSet>

namespace {

class KeyboardTest : public SettingsTest {
protected:
    QQuickItem *focused() const { return window().activeFocusItem(); }

    /** Looks at what has the keyboard. */
    void look() const
    {
        QQuickItem *const item = focused();
        ASSERT_NE(item, nullptr);
        const std::string name = describe(*item).toStdString();

        const QVariant visualFocus = item->property("visualFocus");
        EXPECT_TRUE(visualFocus.toBool() || item->inherits("QQuickTextInput"))
            << name << " does not show its focus";

        const QRectF place = item->mapRectToScene(item->boundingRect());
        EXPECT_GE(place.top(), -0.5) << name << " is out of view";
        EXPECT_LE(place.bottom(), window().height() + 0.5) << name << " is out of view";

        QAccessibleInterface *const accessible = QAccessible::queryAccessibleInterface(item);
        ASSERT_NE(accessible, nullptr) << name;
        EXPECT_FALSE(accessible->text(QAccessible::Name).isEmpty()) << name << " has no name";
        EXPECT_NE(accessible->role(), QAccessible::NoRole) << name;
        EXPECT_NE(accessible->role(), QAccessible::Client) << name;
    }

    /** What a screen reader finds in the window, a line each. */
    QString readAloud() const
    {
        QString all;
        const std::function<void(QAccessibleInterface *)> read = [&](QAccessibleInterface *thing) {
            if (thing->state().invisible)
                return;
            if (thing->role() != QAccessible::Window) {
                all += QLatin1String(QMetaEnum::fromType<QAccessible::Role>().valueToKey(thing->role()))
                    + QLatin1Char(' ') + thing->text(QAccessible::Name);
                if (const QString words = thing->text(QAccessible::Description); !words.isEmpty())
                    all += QLatin1String(": ") + words;
                all += QLatin1String(thing->state().checked ? " (checked)\n" : "\n");
            }
            for (int child = 0; child < thing->childCount(); ++child)
                read(thing->child(child));
        };
        read(QAccessible::queryAccessibleInterface(&window()));
        return all;
    }

    /** Goes once around with the tabulator key and looks at every stop. */
    QList<QQuickItem *> walk()
    {
        QList<QQuickItem *> stops;
        for (int step = 0; step < 200 && !stops.contains(focused()); ++step) {
            stops << focused();
            look();
            press(Qt::Key_Tab);
        }
        return stops;
    }
};

TEST_F(KeyboardTest, WalksThroughEveryPage)
{
    open(QString());
    ASSERT_TRUE(settle());
    const QStringList pages = offeredPages();
    ASSERT_EQ(pages.size(), 13);

    press(Qt::Key_Tab);
    for (const QString &name : pages) {
        SCOPED_TRACE(name.toStdString());
        // From the list into the page.
        const QQuickItem *const row = find(QStringLiteral("page:") + name);
        ASSERT_NE(row, nullptr);
        for (int step = 0; step < 30 && !row->hasActiveFocus(); ++step)
            press(Qt::Key_Tab);
        ASSERT_TRUE(row->hasActiveFocus());
        press(Qt::Key_Return);
        ASSERT_TRUE(settle());
        ASSERT_EQ(window().property("shownPage").toString(), name);

        // Around the page, downward, past every control.
        const QList<QQuickItem *> stops = walk();
        const QSet<QQuickItem *> visited(stops.begin(), stops.end());
        visit(page(), [&](QQuickItem &item) {
            EXPECT_TRUE(!isControl(item) || visited.contains(&item))
                << describe(item).toStdString() << " is not reached";
        });
        const QQuickItem *const content = page()->property("scrollArea").value<QQuickItem *>();
        double last = -1e9;
        for (QQuickItem *const stop : stops) {
            EXPECT_TRUE(page()->isAncestorOf(stop)) << describe(*stop).toStdString() << " is not of the page";
            if (stops.indexOf(stop) == 0 || !content->isAncestorOf(stop))
                continue;
            const double top =
                stop->mapToItem(content, QPointF()).y() + content->property("contentY").toDouble();
            // Controls of one row may differ in height.
            EXPECT_GE(top, last - 24) << describe(*stop).toStdString() << " is out of order";
            last = top;
        }

        // Back to where it came from.
        press(Qt::Key_Escape);
        ASSERT_TRUE(settle());
        EXPECT_EQ(window().property("shownPage").toString(), QString());
        EXPECT_TRUE(row->hasActiveFocus());
    }
}

TEST_F(KeyboardTest, AScreenReaderIsToldWhatEachThingIs)
{
    open(QStringLiteral("caller-id"), {.calm = true});
    ASSERT_TRUE(settle());
    ASSERT_TRUE(QMetaObject::invokeMethod(find(QStringLiteral("restriction")), "click"));
    ASSERT_TRUE(isDrawn());
    EXPECT_EQ(readAloud(),
              QStringLiteral("Pane Caller ID and waiting\n"
                             "Button Back\n"
                             "Heading Caller ID and waiting\n"
                             "Heading My number, when I call\n"
                             "Button All calls: Provider’s default\n"
                             "RadioButton Provider’s default (checked)\n"
                             "RadioButton Show it\n"
                             "RadioButton Hide it\n"
                             "Button The next call only: Provider’s default\n"
                             "Heading A second call\n"
                             "CheckBox Call waiting: on. A call that comes in during another one is "
                             "announced (checked)\n"));

    // A switch that asks first is not on before it is.
    open(QStringLiteral("security"), {.calm = true});
    ASSERT_TRUE(settle());
    EXPECT_TRUE(readAloud().contains(QStringLiteral(
        "\nCheckBox Lock SIM with PIN: on. Asks when the phone starts. It cannot be turned off "
        "here: the telephony service offers no way. (checked)\n")));
    find(QStringLiteral("fixed-dialling"))->forceActiveFocus(Qt::TabFocusReason);
    press(Qt::Key_Space);
    ASSERT_TRUE(waitFor([&] { return focused() && focused()->inherits("QQuickTextInput"); }));
    EXPECT_TRUE(readAloud().endsWith(QStringLiteral(
        "\nCheckBox Only numbers on the SIM’s list: off. Other numbers cannot be called. Asks for the PIN2.\n"
        "Dialog Fixed dialling\nHeading Fixed dialling\nEditableText : PIN2\nButton 1\nButton 2\nButton 3\n"
        "Button 4\nButton 5\nButton 6\nButton 7\nButton 8\nButton 9\nButton 0\n"
        "Button Delete the last digit\nButton Cancel\nButton Turn on\n")))
        << readAloud().toStdString();
}

TEST_F(KeyboardTest, TogglesASwitchAndOpensAChoice)
{
    open(QStringLiteral("caller-id"));
    ASSERT_TRUE(settle());
    QQuickItem *const row = find(QStringLiteral("restriction"));
    ASSERT_NE(row, nullptr);
    row->forceActiveFocus(Qt::TabFocusReason);
    press(Qt::Key_Space);
    EXPECT_TRUE(row->property("open").toBool());
    ASSERT_TRUE(isDrawn());
    press(Qt::Key_Tab);
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_FALSE(row->property("open").toBool());
    EXPECT_TRUE(row->hasActiveFocus());
    EXPECT_EQ(row->property("value").toString(), QStringLiteral("Hide it"));
    ASSERT_TRUE(settle());
    EXPECT_EQ(row->property("failure").toString(), QString());
    EXPECT_EQ(row->property("value").toString(), QStringLiteral("Hide it"));
}

TEST_F(KeyboardTest, IsAskedBeforeWhatCannotBeUndone)
{
    open(QStringLiteral("costs"), {.calm = true});
    ASSERT_TRUE(settle());
    QQuickItem *const row = find(QStringLiteral("reset-costs"));
    const QString before = find(QStringLiteral("spent"))->property("value").toString();
    for (const bool sure : {false, true}) {
        row->forceActiveFocus();
        press(Qt::Key_Tab);
        press(Qt::Key_Backtab);
        press(Qt::Key_Return);
        ASSERT_TRUE(waitFor([&] {
            return focused()->property("text").toString() == QLatin1String("Cancel")
                && focused()->property("visualFocus").toBool();
        }));
        if (sure)
            press(Qt::Key_Tab);
        press(Qt::Key_Return);
        ASSERT_TRUE(waitFor([&] { return row->hasActiveFocus(); }));
        ASSERT_TRUE(settle());
        EXPECT_EQ(find(QStringLiteral("spent"))->property("value").toString(),
                  sure ? QStringLiteral("0.00 EUR") : before);
    }
}

TEST_F(KeyboardTest, AWrongPinIsToldInWordsAndForgotten)
{
    open(QStringLiteral("security"));
    ASSERT_TRUE(settle());
    ASSERT_TRUE(QMetaObject::invokeMethod(find(QStringLiteral("enter-pin")), "click"));
    ASSERT_TRUE(waitFor([&] { return focused() && focused()->inherits("QQuickTextInput"); }));
    QPointer<QQuickItem> field = focused();
    type(QStringLiteral("9999"));
    EXPECT_EQ(field->property("text").toString().size(), 4);
    EXPECT_EQ(field->property("displayText").toString(), QStringLiteral("●●●●"));
    press(Qt::Key_Return);
    ASSERT_TRUE(settle());

    const auto says = [&](const char *words) {
        QStringList texts;
        visit(window().contentItem(), [&](QQuickItem &item) { texts << item.property("text").toString(); });
        return texts.join(QLatin1Char(' ')).contains(QLatin1String(words));
    };
    EXPECT_TRUE(waitFor([&] {
        return says("The SIM refused the PIN. Enter it once more, with care: three wrong");
    })) << "nobody knows how many were wrong before";
    // The field has gone, with all that undoing would bring back.
    EXPECT_TRUE(waitFor([&] { return field.isNull(); }));
    ASSERT_TRUE(waitFor([&] { return focused() && focused()->inherits("QQuickTextInput"); }));
    field = focused();
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(field->property("text").toString(), QString());

    type(QStringLiteral("1234"));
    press(Qt::Key_Return);
    ASSERT_TRUE(settle());
    EXPECT_TRUE(waitFor([&] { return field.isNull(); }));
    EXPECT_EQ(find(QStringLiteral("enter-pin"))->property("description").toString(),
              QStringLiteral("The SIM took it."));

    // Who does not wait for the answer is told it all the same.
    phone().setDelay("TAPI_SECURITY_*", std::chrono::milliseconds(200));
    QQuickItem *const enter = find(QStringLiteral("enter-pin"));
    ASSERT_TRUE(QMetaObject::invokeMethod(enter, "click"));
    ASSERT_TRUE(waitFor([&] { return focused() && focused()->inherits("QQuickTextInput"); }));
    type(QStringLiteral("9999"));
    press(Qt::Key_Return);
    press(Qt::Key_Escape);
    EXPECT_TRUE(waitFor([&] {
        return enter->property("failure").toString().contains(QLatin1String("At most two tries are left."));
    }));
    phone().setDelay("TAPI_SECURITY_*", {});
    ASSERT_TRUE(QMetaObject::invokeMethod(find(QStringLiteral("change-pin")), "click"));
    for (const char *const words : {"9999", "1111", "1111"}) {
        ASSERT_TRUE(waitFor([&] { return focused() && focused()->inherits("QQuickTextInput"); }));
        type(QString::fromLatin1(words));
        press(Qt::Key_Return);
    }
    EXPECT_TRUE(waitFor([&] { return says("At most one try is left, then it is blocked."); }));
    press(Qt::Key_Escape);
    ASSERT_TRUE(waitFor([&] { return find(QStringLiteral("confirm")) == nullptr; }));

    // The last wrong one leads to the PUK, and then there is nothing but the PUK.
    EXPECT_EQ(find(QStringLiteral("unblock-pin")), nullptr);
    ASSERT_TRUE(QMetaObject::invokeMethod(find(QStringLiteral("enter-pin")), "click"));
    ASSERT_TRUE(waitFor([&] { return focused() && focused()->inherits("QQuickTextInput"); }));
    type(QStringLiteral("9999"));
    press(Qt::Key_Return);
    ASSERT_TRUE(waitFor([&] { return says("After ten wrong PUKs the SIM can no longer be used."); }));
    EXPECT_EQ(find(QStringLiteral("enter-pin")), nullptr);
    EXPECT_EQ(find(QStringLiteral("change-pin")), nullptr);
    const auto unblocks = [&](const char *puk) {
        for (const char *const words : {puk, "1111", "1111"}) {
            ASSERT_TRUE(waitFor([&] {
                return focused() && focused()->inherits("QQuickTextInput")
                    && focused()->property("displayText").toString().isEmpty();
            }));
            type(QString::fromLatin1(words));
            press(Qt::Key_Return);
        }
    };
    unblocks("00000000");
    EXPECT_TRUE(waitFor([&] { return says("Ten wrong PUKs in a row, and the SIM can no longer be used."); }));
    unblocks("12345678");
    ASSERT_TRUE(waitFor([&] { return find(QStringLiteral("change-pin")) != nullptr; }));
    EXPECT_EQ(find(QStringLiteral("change-pin"))->property("description").toString(),
              QStringLiteral("Unblocked. Use the new PIN from now on."));
    EXPECT_EQ(find(QStringLiteral("unblock-pin")), nullptr);
}

TEST_F(KeyboardTest, IsAskedForThePin2ThatAChangeWants)
{
    constexpr int pin2Needed = 0x9007;
    open(QStringLiteral("costs"), {.calm = true});
    ASSERT_TRUE(settle());
    const auto typesInto = [&](bool masked) {
        return waitFor([&] {
            return focused() && focused()->inherits("QQuickTextInput")
                && (focused()->property("displayText").toString().isEmpty() || !masked)
                && (focused()->property("echoMode").toInt() != 0) == masked;
        });
    };
    QQuickItem *const limit = find(QStringLiteral("limit"));
    phone().setAnswer("TAPI_CS_SetCallMeterMax", {.result = pin2Needed, .out = {}, .times = 1});
    ASSERT_TRUE(QMetaObject::invokeMethod(limit, "click"));
    ASSERT_TRUE(typesInto(false));
    focused()->setProperty("text", QStringLiteral("20"));
    press(Qt::Key_Return);
    ASSERT_TRUE(typesInto(true));
    EXPECT_TRUE(
        limit->property("failure").toString().startsWith(QStringLiteral("The SIM asks for the PIN2")));

    // Who does not know it now can give it later.
    press(Qt::Key_Escape);
    ASSERT_TRUE(waitFor([&] { return find(QStringLiteral("confirm")) == nullptr; }));
    EXPECT_EQ(limit->property("failureAction").toString(), QStringLiteral("Enter PIN2"));
    ASSERT_TRUE(QMetaObject::invokeMethod(limit, "retry"));
    ASSERT_TRUE(typesInto(true));
    for (const char *const pin2 : {"0000", "5678"}) {
        type(QString::fromLatin1(pin2));
        press(Qt::Key_Return);
        ASSERT_TRUE(settle());
    }
    EXPECT_TRUE(waitFor([&] { return limit->property("value").toString() == QLatin1String("20"); }))
        << limit->property("value").toString().toStdString();
    EXPECT_EQ(limit->property("failure").toString(), QString());

    phone().setAnswer("TAPI_CS_ResetCallMeter", {.result = pin2Needed, .out = {}, .times = 1});
    ASSERT_TRUE(QMetaObject::invokeMethod(find(QStringLiteral("reset-costs")), "click"));
    ASSERT_TRUE(waitFor([&] { return find(QStringLiteral("confirm")) != nullptr; }));
    ASSERT_TRUE(QMetaObject::invokeMethod(find(QStringLiteral("confirm")), "click"));
    ASSERT_TRUE(typesInto(true));
    type(QStringLiteral("5678"));
    press(Qt::Key_Return);
    EXPECT_TRUE(waitFor([&] {
        return find(QStringLiteral("spent"))->property("value").toString() == QLatin1String("0.00 EUR");
    }));
}

TEST_F(KeyboardTest, MovesAPreferredNetwork)
{
    open(QStringLiteral("preferred"), {.calm = true});
    ASSERT_TRUE(settle());
    for (const char *const code : {"00101", "00102", "00103"}) {
        find(QStringLiteral("add"))->forceActiveFocus(Qt::TabFocusReason);
        press(Qt::Key_Return);
        ASSERT_TRUE(waitFor([&] { return focused() && focused()->inherits("QQuickTextInput"); }));
        type(QString::fromLatin1(code));
        press(Qt::Key_Return);
        ASSERT_TRUE(waitFor([&] { return !focused()->inherits("QQuickTextInput"); }));
        ASSERT_TRUE(settle());
        // Once the sheet is gone, the keyboard is where it was before.
        ASSERT_TRUE(waitFor([&] { return find(QStringLiteral("add"))->hasActiveFocus(); }));
    }
    const auto order = [&] { return valuesOf("networkId"); };
    EXPECT_EQ(order().join(QLatin1Char(' ')), QStringLiteral("00101 00102 00103"));

    QQuickItem *const last = find(QStringLiteral("network:00103"));
    ASSERT_NE(last, nullptr);
    last->property("handle").value<QQuickItem *>()->forceActiveFocus(Qt::TabFocusReason);
    press(Qt::Key_Up, Qt::ControlModifier);
    ASSERT_TRUE(waitFor([&] {
        QQuickItem *const row = find(QStringLiteral("network:00103"));
        return row && row->property("index").toInt() == 1
            && row->property("handle").value<QQuickItem *>()->hasActiveFocus();
    }));
    ASSERT_TRUE(settle());
    press(Qt::Key_Up, Qt::ControlModifier);
    ASSERT_TRUE(settle());
    EXPECT_TRUE(waitFor([&] { return order().join(QLatin1Char(' ')) == QLatin1String("00103 00101 00102"); }))
        << order().join(QLatin1Char(' ')).toStdString();
}

} // namespace
