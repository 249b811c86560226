// How the tests open the application and look into it.
#include "SettingsTest.h"

#include <QAccessible>
#include <QGuiApplication>
#include <QQmlEngine>
#include <QSignalSpy>

SettingsTest::SettingsTest()
{
    phone().reset();
    phone().setLink(true); // the worker opened it for an earlier test
}

SettingsTest::~SettingsTest()
{
    close();
    QLocale::setDefault(QLocale::c()); // the next test may not name its language
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
    phone().setDelay("*", {});
}

void SettingsTest::open(const QString &page, Options options)
{
    close();
    options.page = page;
    options.desk = false;
    if (!options.size.isValid())
        options.size = QSize(320, 568);
    m_application = std::make_unique<Application>(options);
    ASSERT_TRUE(m_application->isGood());
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window(), 60'000));
}

QStringList SettingsTest::offeredPages() const
{
    QStringList names;
    const QVariantList pages = window().property("pages").value<QObject *>()->property("offered").toList();
    for (const QVariant &entry : pages)
        names << entry.value<QObject *>()->property("name").toString();
    return names;
}

void SettingsTest::type(const QString &text)
{
    for (const QChar character : text)
        QTest::keyClick(&window(), character.toLatin1());
}

bool SettingsTest::waitFor(const std::function<bool()> &isSo, int milliseconds)
{
    return QTest::qWaitFor(isSo, milliseconds);
}

bool SettingsTest::settle() const
{
    // Twice in a row, since an answer may lead to the next question.
    int looks = 0;
    return waitFor([&] {
        looks = window().property("settled").toBool() ? looks + 1 : 0;
        return looks >= 2;
    });
}

TapGuard &SettingsTest::guard() const
{
    QQmlEngine *const engine = qmlEngine(&window());
    static const int type = qmlTypeId("Kvq.Settings.Controls", 1, 0, "TapGuard");
    return *engine->singletonInstance<TapGuard *>(type);
}

bool SettingsTest::click(const QString &name) const
{
    return waitForItem(name) && QMetaObject::invokeMethod(find(name), "click");
}

void SettingsTest::tapAt(const QQuickItem &item)
{
    const QPointF place = centreOf(item);
    touch(place);
    lift(place);
}

bool SettingsTest::tap(const QString &name)
{
    if (!waitFor([&] { return guard().isReady(find(name)); }))
        return false;
    tapAt(*find(name));
    return true;
}

bool SettingsTest::isDrawn() const
{
    QSignalSpy frames(&window(), &QQuickWindow::frameSwapped);
    return waitFor([&] {
        window().requestUpdate(); // one that comes while a frame is drawn is part of that one
        return frames.count() > 0;
    });
}

void SettingsTest::visit(QQuickItem *item, const std::function<void(QQuickItem &)> &tell)
{
    if (!item->isVisible() || qFuzzyIsNull(item->opacity()))
        return;
    tell(*item);
    const QList<QQuickItem *> children = item->childItems();
    for (QQuickItem *const child : children)
        visit(child, tell);
}

QStringList SettingsTest::valuesOf(const char *property, QQuickItem *below)
{
    QStringList values;
    visit(below, [&](QQuickItem &item) {
        const QString value = item.property(property).toString();
        if (!value.isEmpty())
            values << value;
    });
    return values;
}

bool SettingsTest::isControl(const QQuickItem &item)
{
    return item.isEnabled() && item.activeFocusOnTab();
}

QString SettingsTest::describe(const QQuickItem &item)
{
    QAccessibleInterface *const accessible =
        QAccessible::queryAccessibleInterface(const_cast<QQuickItem *>(&item));
    return QString::fromLatin1("%1 \"%2\"")
        .arg(QString::fromLatin1(item.metaObject()->className()),
             accessible ? accessible->text(QAccessible::Name) : item.objectName());
}
