// With a finger: a handle moves a network, a swipe scrolls, and neither is taken for the other.
#include "SettingsTest.h"

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

    /** In small steps, as a screen reports them. */
    void moveTo(QPointF from, QPointF to)
    {
        constexpr int steps = 12;
        for (int step = 1; step <= steps; ++step) {
            finger().move(0, (from + (to - from) * step / steps).toPoint());
            QTest::qWait(5);
        }
    }
    void swipe(QPointF from, QPointF to)
    {
        touch(from);
        moveTo(from, to);
        lift(to);
    }
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
    QQuickItem *const field = window().activeFocusItem();
    ASSERT_EQ(field->property("text").toString(), QStringLiteral("+491701234567"));
    for (const char *const key : {"key:5", "key:7", "erase", "key:6"})
        ASSERT_TRUE(tap(QLatin1String(key)));
    EXPECT_EQ(field->property("text").toString(), QStringLiteral("56"));
    EXPECT_TRUE(field->hasActiveFocus());
}

TEST_F(TouchTest, NothingActsThatHasJustAppearedOrMoved)
{
    using namespace std::chrono;
    open(QStringLiteral("preferences"), {.calm = true});
    ASSERT_TRUE(settle());
    QQuickItem *const row = find(QStringLiteral("any-key"));
    const auto isOn = [row] { return row->property("checked").toBool(); };
    const bool before = isOn();
    ASSERT_TRUE(tap(QStringLiteral("any-key")));
    EXPECT_NE(isOn(), before);

    // Moved, it waits anew, as long as the delay is.
    EXPECT_EQ(guard().delay(), 500);
    ASSERT_TRUE(QMetaObject::invokeMethod(page()->property("scrollArea").value<QQuickItem *>(), "scrollBy",
                                          Q_ARG(double, 20)));
    EXPECT_FALSE(guard().isReady(row));
    const auto moved = steady_clock::now();
    ASSERT_TRUE(waitFor([&] { return guard().isReady(row); }));
    EXPECT_GE(steady_clock::now() - moved, milliseconds(guard().delay() - 10));
    tapAt(*row);
    EXPECT_EQ(isOn(), before);

    // Too soon after it came a sheet takes no tap, and the page takes none too soon after it went.
    open(QStringLiteral("own-numbers"), {.calm = true});
    guard().setDelay(3600000);
    ASSERT_TRUE(settle());
    tapAt(*find(QStringLiteral("number1")));
    EXPECT_EQ(find(QStringLiteral("confirm")), nullptr);
    guard().setDelay(0);
    ASSERT_TRUE(tap(QStringLiteral("number1")));
    ASSERT_TRUE(waitFor([&] { return guard().isReady(find(QStringLiteral("key:5"))); }));
    QQuickItem *const field = window().activeFocusItem();
    guard().setDelay(3600000);
    tapAt(*find(QStringLiteral("key:5")));
    EXPECT_EQ(field->property("text").toString(), QStringLiteral("+491701234567"));
    touch(QPointF(5, 5));
    lift(QPointF(5, 5));
    EXPECT_NE(find(QStringLiteral("confirm")), nullptr) << "a tap beside it closes it no sooner";
}

TEST_F(TouchTest, AFingerThatIsDownLosesNoRowToAFailure)
{
    open(QStringLiteral("preferences"), {.calm = true});
    ASSERT_TRUE(settle());
    const QQuickItem *const below = find(QStringLiteral("roaming"));
    const QPointF place = centreOf(*below);
    phone().setDiskFull(true);
    touch(QPointF(160, 20));
    ASSERT_TRUE(QMetaObject::invokeMethod(find(QStringLiteral("any-key")), "click"));
    ASSERT_TRUE(settle());
    ASSERT_FALSE(find(QStringLiteral("any-key"))->property("failure").toString().isEmpty());
    EXPECT_EQ(valuesOf("reason"), QStringList());
    EXPECT_EQ(centreOf(*below), place);
    lift(QPointF(160, 20));
    EXPECT_TRUE(waitFor([&] { return valuesOf("reason").size() == 1; }));
    phone().setDiskFull(false);
}

TEST_F(TouchTest, ACallComesAboveASheetThatKeepsItsText)
{
    open(QStringLiteral("own-numbers"), {.size = QSize(320, 480), .calm = true});
    ASSERT_TRUE(settle());
    ASSERT_TRUE(QMetaObject::invokeMethod(find(QStringLiteral("number1")), "click"));
    ASSERT_TRUE(tap(QStringLiteral("key:5")));
    QQuickItem *const field = window().activeFocusItem();
    const double top = field->mapToScene({}).y();
    ASSERT_NE(phone().ring("+491715550100"), 0);
    ASSERT_TRUE(waitFor([&] { return find(QStringLiteral("reject")) != nullptr; }));
    EXPECT_EQ(window().activeFocusItem(), field);
    EXPECT_EQ(field->mapToScene({}).y(), top) << "it pushes nothing";

    // A tap that was meant for what it covers neither answers nor reaches that.
    guard().setDelay(3600000);
    tapAt(*find(QStringLiteral("answer")));
    tapAt(*find(QStringLiteral("reject")));
    guard().setDelay(500);
    ASSERT_TRUE(settle());
    ASSERT_NE(find(QStringLiteral("reject")), nullptr);

    type(QStringLiteral("6"));
    ASSERT_TRUE(tap(QStringLiteral("reject")));
    EXPECT_TRUE(waitFor([&] { return find(QStringLiteral("reject")) == nullptr; }));
    EXPECT_EQ(field->property("text").toString(), QStringLiteral("56"));
    EXPECT_TRUE(field->isVisible());
    EXPECT_TRUE(field->hasActiveFocus());
}

TEST_F(TouchTest, ASwipeScrolls)
{
    openNetworks(12);
    const QStringList before = order();
    const QQuickItem *const row = find(QStringLiteral("network:26206"));
    const QPointF removeButton = handleOf("26206") - QPointF(56, 0);
    auto *const list = page()->property("scrollArea").value<QQuickItem *>();
    const auto rests = [&] { return waitFor([&] { return !list->property("moving").toBool(); }); };
    for (const QPointF from : {centreOf(*row) - QPointF(60, 0), removeButton}) {
        swipe(from, from - QPointF(0, 200));
        EXPECT_GT(scrolled(), 100);
        EXPECT_TRUE(rests());
        const double down = scrolled();
        swipe(from - QPointF(0, 200), from + QPointF(0, 200));
        EXPECT_TRUE(rests());
        EXPECT_LT(scrolled(), down - 100);
        list->setProperty("contentY", 0); // how far a flick carries is the machine's affair
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
