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

INSTANTIATE_TEST_SUITE_P(
    Readers, FitTest, testing::Values(Reader{"en", 12}, Reader{"de", 12}, Reader{"en", 18}, Reader{"de", 24}),
    [](const auto &reader) { return reader.param.language + std::to_string(reader.param.points); });

} // namespace
