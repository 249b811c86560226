// With a finger: a handle moves a network, a swipe scrolls, and neither is taken for the other.
#include "SettingsTest.h"

#include <QElapsedTimer>
#include <QPointingDevice>

namespace {

class TouchTest : public SettingsTest {
protected:
    /** Opens the preferred networks, of which there are some. */
    void openNetworks(int count)
    {
        std::vector<std::string> networkIds;
        for (int number = 1; number <= count; ++number)
            networkIds.push_back(QString::asprintf("262%02d", number).toStdString());
        phone().setPreferredNetworks(networkIds);
        open(QStringLiteral("preferred"), {.calm = true});
        ASSERT_TRUE(settle());
        ASSERT_EQ(order().size(), count);
    }

    QStringList order() const { return valuesOf("networkId"); }
    double scrolled() const
    {
        return page()->property("scrollArea").value<QQuickItem *>()->property("contentY").toDouble();
    }
    QPointF handleOf(const char *networkId) const
    {
        const QQuickItem *const row = find(QStringLiteral("network:") + QLatin1String(networkId));
        return centreOf(*row->property("handle").value<QQuickItem *>());
    }
    static QPointF centreOf(const QQuickItem &item) { return item.mapToScene(item.boundingRect().center()); }

    void touch(QPointF place) { finger().press(0, place.toPoint()); }
    /** In small steps, as a screen reports them. */
    void moveTo(QPointF from, QPointF to)
    {
        constexpr int steps = 12;
        for (int step = 1; step <= steps; ++step) {
            finger().move(0, (from + (to - from) * step / steps).toPoint());
            QTest::qWait(5);
        }
    }
    void lift(QPointF place) { finger().release(0, place.toPoint()); }
    void swipe(QPointF from, QPointF to)
    {
        touch(from);
        moveTo(from, to);
        lift(to);
    }

private:
    QTest::QTouchEventSequence finger() { return QTest::touchEvent(&window(), m_screen.get()); }

    const std::unique_ptr<QPointingDevice> m_screen{QTest::createTouchDevice()};
};

TEST_F(TouchTest, AHandleMovesItsNetwork)
{
    openNetworks(3);
    const QPointF from = handleOf("26201");
    swipe(from, handleOf("26203") + QPointF(0, 10));
    EXPECT_EQ(order().join(QLatin1Char(' ')), QLatin1String("26202 26203 26201"));
    EXPECT_EQ(scrolled(), 0);
    ASSERT_TRUE(settle());
    EXPECT_EQ(order().join(QLatin1Char(' ')), QLatin1String("26202 26203 26201"));
    open(QStringLiteral("preferred"));
    ASSERT_TRUE(settle());
    EXPECT_EQ(order().join(QLatin1Char(' ')), QLatin1String("26202 26203 26201")) << "on the SIM";
}

TEST_F(TouchTest, ARowHeldAtTheEdgeTakesTheListAlong)
{
    openNetworks(12);
    const QPointF from = handleOf("26201");
    const QPointF edge(from.x(), window().height() - 10);
    touch(from);
    moveTo(from, edge);
    EXPECT_TRUE(waitFor([&] { return scrolled() > window().height() / 2.0; }));
    lift(edge);
    EXPECT_GT(order().indexOf(QStringLiteral("26201")), 8);
    ASSERT_TRUE(settle());
    EXPECT_GT(order().indexOf(QStringLiteral("26201")), 8);
}

TEST_F(TouchTest, TappedDigitsReplaceTheNumberThatIsSelected)
{
    open(QStringLiteral("own-numbers"), {.calm = true});
    ASSERT_TRUE(settle());
    ASSERT_TRUE(QMetaObject::invokeMethod(find(QStringLiteral("number1")), "click"));
    ASSERT_TRUE(waitFor([&] { return find(QStringLiteral("key:5")) != nullptr; }));
    // Laid out, it stands in the middle.
    ASSERT_TRUE(waitFor(
        [&] { return qAbs(centreOf(*find(QStringLiteral("key:5"))).x() - window().width() / 2.0) < 2; }));
    QQuickItem *const field = window().activeFocusItem();
    ASSERT_EQ(field->property("text").toString(), QStringLiteral("+491701234567"));
    for (const char *const key : {"key:5", "key:7", "erase", "key:6"}) {
        const QPointF place = centreOf(*find(QLatin1String(key)));
        touch(place);
        lift(place);
    }
    EXPECT_EQ(field->property("text").toString(), QStringLiteral("56"));
    EXPECT_TRUE(field->hasActiveFocus());
}

TEST_F(TouchTest, ATapOnThePageDoesNotAnswerTheCallThatPushesItDown)
{
    open(QStringLiteral("about"), {.calm = true});
    ASSERT_TRUE(settle());
    ASSERT_NE(phone().ring("+491715550100"), 0);
    ASSERT_TRUE(waitFor([&] {
        const QQuickItem *const take = find(QStringLiteral("take"));
        return take != nullptr && page()->mapToScene(QPointF()).y() > centreOf(*take).y();
    }));
    QElapsedTimer sincePushed;
    sincePushed.start();
    const auto tap = [this] {
        const QPointF place = centreOf(*find(QStringLiteral("take")));
        touch(place);
        lift(place);
    };
    tap();
    if (sincePushed.elapsed() < 300) { // else this machine was too slow to tap in time
        ASSERT_EQ(window().property("shownPage").toString(), QStringLiteral("about"));
        QTest::qWait(600);
        tap();
    }
    EXPECT_TRUE(waitFor([&] { return window().property("shownPage").toString() == QLatin1String("calls"); }));
}

TEST_F(TouchTest, ASwipeScrolls)
{
    openNetworks(12);
    const QStringList before = order();
    const QQuickItem *const row = find(QStringLiteral("network:26206"));
    const QPointF removeButton = handleOf("26206") - QPointF(56, 0);
    for (const QPointF from : {centreOf(*row) - QPointF(60, 0), removeButton}) {
        swipe(from, from - QPointF(0, 200));
        EXPECT_GT(scrolled(), 100);
        EXPECT_TRUE(waitFor([&] {
            return !page()->property("scrollArea").value<QQuickItem *>()->property("moving").toBool();
        }));
        swipe(from - QPointF(0, 200), from + QPointF(0, 200));
        EXPECT_TRUE(waitFor([&] { return scrolled() == 0; }));
    }
    ASSERT_TRUE(settle());
    EXPECT_EQ(order(), before);

    open(QStringLiteral("preferences"));
    ASSERT_TRUE(settle());
    const QQuickItem *const flip = find(QStringLiteral("any-key"));
    const bool on = flip->property("checked").toBool();
    swipe(centreOf(*flip), centreOf(*flip) - QPointF(0, 150));
    EXPECT_GT(scrolled(), 50);
    EXPECT_EQ(flip->property("checked").toBool(), on);
    EXPECT_FALSE(flip->property("busy").toBool());
}

} // namespace
