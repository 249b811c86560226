// Nothing is cut off on a small screen, in any language.
#include "SettingsTest.h"

#include <QFont>
#include <QGuiApplication>

namespace {

struct Reader {
    const char *language;
    /** Size of the system's letters in points. */
    int points;
};

class FitTest : public SettingsTest, public testing::WithParamInterface<Reader> {
protected:
    FitTest() { setLetters(GetParam().points); }
    ~FitTest() override { setLetters(m_usual); }

    static void setLetters(int points)
    {
        QFont font = QGuiApplication::font();
        font.setPointSize(points);
        QGuiApplication::setFont(font);
    }

    /** Looks at every word on the screen: whole, inside the window, and not taller than where it stands. */
    void look() const
    {
        window().grabWindow(); // all is where it stands
        int words = 0;
        visit(window().contentItem(), [&](QQuickItem &item) {
            if (!item.inherits("QQuickText") || item.property("text").toString().isEmpty())
                return;
            ++words;
            const std::string text = item.property("text").toString().toStdString();
            EXPECT_FALSE(item.property("truncated").toBool()) << text;
            EXPECT_LE(item.property("contentWidth").toDouble(), item.width() + 0.5) << text;
            const QRectF place = item.mapRectToScene(item.boundingRect());
            EXPECT_GE(place.left(), -0.5) << text;
            EXPECT_LE(place.right(), window().width() + 0.5) << text;
            const QQuickItem *const parent = item.parentItem();
            const double bottom = item.y() + item.property("contentHeight").toDouble();
            EXPECT_TRUE(parent->height() <= 0 || bottom <= parent->height() + 1.5) << text;
        });
        EXPECT_GT(words, 2);
    }

    void lookAtEveryPage() const
    {
        const QStringList pages = offeredPages();
        for (const QString &name : pages) {
            SCOPED_TRACE(name.toStdString());
            QMetaObject::invokeMethod(&window(), "open", Q_ARG(QString, name));
            ASSERT_TRUE(settle());
            look();
        }
    }

private:
    const int m_usual = QGuiApplication::font().pointSize();
};

TEST_P(FitTest, EveryPage)
{
    phone().setAnswer("TAPI_CS_GetChargeType", {.result = 0x9001, .out = {}, .times = -1});
    open(QString(), {.language = QLatin1String(GetParam().language)});
    ASSERT_TRUE(settle());
    const QQuickItem *const row = find(QStringLiteral("page:calls"));
    ASSERT_NE(row, nullptr);
    EXPECT_GE(row->height(), 56.0 * GetParam().points / 12) << "rows grow with the letters";
    look();
    lookAtEveryPage();
}

TEST_P(FitTest, EveryPageThatCouldNotBeRead)
{
    phone().setAnswer("TAPI_*", {.result = 0x9001, .out = {}, .times = -1});
    open(QString(), {.language = QLatin1String(GetParam().language)});
    ASSERT_TRUE(settle());
    lookAtEveryPage();
    phone().clearAnswer("TAPI_*");
}

TEST_P(FitTest, WhatIsAsked)
{
    const struct {
        const char *page;
        const char *item;
    } questions[] = {{"forwarding", "no-reply"},  {"security", "change-pin"}, {"security", "change-pin2"},
                     {"costs", "limit"},          {"preferred", "add"},       {"own-numbers", "number1"},
                     {"speed-dial", "slot2"},     {"costs", "reset-costs"},   {"security", "fixed-dialling"},
                     {"caller-id", "restriction"}};
    for (const auto &question : questions) {
        SCOPED_TRACE(question.item);
        open(QString::fromLatin1(question.page),
             {.language = QLatin1String(GetParam().language), .calm = true});
        ASSERT_TRUE(settle());
        ASSERT_TRUE(QMetaObject::invokeMethod(find(QString::fromLatin1(question.item)), "click"));
        ASSERT_TRUE(settle());
        ASSERT_TRUE(isDrawn());
        look();
    }
}

TEST_P(FitTest, Calls)
{
    // The smallest screens are for letters of the usual size.
    const bool usual = GetParam().points <= 12;
    for (const QSize size :
         {usual ? QSize(320, 480) : QSize(320, 568), usual ? QSize(568, 320) : QSize(400, 800)}) {
        SCOPED_TRACE(size.width());
        phone().reset();
        phone().setLink(true);
        open(QStringLiteral("about"),
             {.language = QLatin1String(GetParam().language), .size = size, .calm = true});
        ASSERT_TRUE(settle());
        phone().ring("+491715550100");
        ASSERT_TRUE(waitForItem(QStringLiteral("answer")));
        look();
        ASSERT_TRUE(click(QStringLiteral("answer")));
        ASSERT_TRUE(waitForItem(QStringLiteral("hang-up")));
        ASSERT_TRUE(click(QStringLiteral("keypad")));
        press(Qt::Key_5);
        ASSERT_TRUE(settle());
        ASSERT_TRUE(isDrawn());
        look();
        // Nothing stands under the button that ends the call, nor under the pad.
        const QRectF end =
            find(QStringLiteral("hang-up"))->mapRectToScene(find(QStringLiteral("hang-up"))->boundingRect());
        const QRectF key =
            find(QStringLiteral("key:0"))->mapRectToScene(find(QStringLiteral("key:0"))->boundingRect());
        EXPECT_LE(key.bottom(), end.top());
        EXPECT_LE(end.bottom(), size.height());
        EXPECT_GE(find(QStringLiteral("tones"))->mapToScene({}).y(), 0);
        phone().ring("+491715550101");
        ASSERT_TRUE(waitForItem(QStringLiteral("answer")));
        look();
        ASSERT_TRUE(click(QStringLiteral("answer")));
        ASSERT_TRUE(waitForNo(QStringLiteral("answer")));
        ASSERT_TRUE(settle());
        ASSERT_TRUE(isDrawn());
        look();
        press(Qt::Key_Escape);
        ASSERT_TRUE(waitForItem(QStringLiteral("return")));
        look();
    }
}

class LayoutTest : public SettingsTest {
protected:
    QRectF placeOf(const char *name) const
    {
        const QQuickItem *const item = find(QLatin1String(name));
        EXPECT_NE(item, nullptr) << name;
        return item ? item->mapRectToScene(item->boundingRect()) : QRectF();
    }
};

TEST_F(LayoutTest, IsMirroredWhereTheLanguageRunsFromRightToLeft)
{
    for (const bool mirrored : {false, true}) {
        SCOPED_TRACE(mirrored);
        const QString language = mirrored ? QStringLiteral("ar") : QStringLiteral("en");
        open(QStringLiteral("preferences"), {.language = language, .size = QSize(320, 568), .calm = true});
        ASSERT_TRUE(settle());
        window().grabWindow(); // all is where it stands
        QList<double> marks;
        visit(find(QStringLiteral("roaming")), [&](QQuickItem &item) {
            if (QByteArray(item.metaObject()->className()).startsWith("SwitchMark"))
                marks << centreOf(item).x();
        });
        ASSERT_EQ(marks.size(), 1);
        EXPECT_EQ(marks[0] < 160, mirrored);
        QMetaObject::invokeMethod(&window(), "back");
        EXPECT_TRUE(waitForItem(QStringLiteral("page:calls")));
        EXPECT_EQ(placeOf("page:calls").left(), 8);

        open(QStringLiteral("calls"), {.language = language, .size = QSize(1000, 700), .calm = true});
        ASSERT_TRUE(settle());
        window().grabWindow(); // all is where it stands
        EXPECT_EQ(placeOf("page:calls").left() > 500, mirrored);
        EXPECT_LT(placeOf("key:1").left(), placeOf("key:3").left()) << "keypads are the same everywhere";
        EXPECT_EQ(placeOf("number").right() < 700, mirrored);
    }
}

TEST_F(LayoutTest, KeysOfASheetStandBesideItsFieldWhereTheScreenIsLow)
{
    for (const QSize size : {QSize(568, 320), QSize(320, 480)}) {
        for (const auto &[page, row] :
             {std::pair("own-numbers", "number1"), std::pair("security", "change-pin"),
              std::pair("costs", "limit"), std::pair("forwarding", "no-reply")}) {
            SCOPED_TRACE(row);
            open(QLatin1String(page), {.size = size, .calm = true});
            ASSERT_TRUE(settle());
            ASSERT_TRUE(click(QLatin1String(row)));
            ASSERT_TRUE(waitForItem(QStringLiteral("key:0")));
            window().grabWindow(); // all is where it stands
            EXPECT_LE(placeOf("confirm").bottom(), size.height());
            if (size.width() < size.height())
                continue;
            EXPECT_LE(placeOf("key:0").bottom(), size.height());
            EXPECT_GE(placeOf("key:1").top(), 0);
            EXPECT_GE(placeOf("key:1").height(), 44);
            EXPECT_GE(placeOf("key:1").left(), placeOf("confirm").right());
            ASSERT_TRUE(click(QStringLiteral("key:5")));
            EXPECT_TRUE(window().activeFocusItem()->property("text").toString().endsWith(QLatin1Char('5')));
        }
    }
}

INSTANTIATE_TEST_SUITE_P(
    Readers, FitTest, testing::Values(Reader{"en", 12}, Reader{"de", 12}, Reader{"en", 18}, Reader{"de", 24}),
    [](const auto &reader) { return reader.param.language + std::to_string(reader.param.points); });

} // namespace
