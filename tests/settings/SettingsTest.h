// Tests of the settings application: the real one, on a simulated phone of its own, without a display.
#pragma once

#include "Application.h"
#include "SimulatedPhoneControl.h"
#include "TapGuard.h"

#include <QPointingDevice>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <memory>

class SettingsTest : public testing::Test {
protected:
    SettingsTest();
    ~SettingsTest() override;

    static SimulatedPhoneControl &phone() { return *findSimulatedPhone(); }

    /** Opens the application at a page and waits until all has been read. */
    void open(const QString &page, Options options = {});
    void close() { m_application.reset(); }
    const Application &application() const { return *m_application; }
    QQuickWindow &window() const { return *m_application->window(); }

    /** The page that is shown. */
    QQuickItem *page() const { return window().property("pageItem").value<QQuickItem *>(); }
    QStringList offeredPages() const;
    QQuickItem *find(const QString &name) const { return Application::find(window().contentItem(), name); }

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(&window(), key, modifiers);
    }
    void type(const QString &text);
    bool waitForItem(const QString &name) const
    {
        return waitFor([&] { return find(name) != nullptr; });
    }
    bool waitForNo(const QString &name) const
    {
        return waitFor([&] { return find(name) == nullptr; });
    }
    /** Waits for an item and presses it, as the keyboard does. */
    bool click(const QString &name) const;
    /** Lets the event loop run until something is so. */
    static bool waitFor(const std::function<bool()> &isSo, int milliseconds = 60'000);
    bool settle() const;
    /** Waits until what has changed is laid out and drawn. */
    bool isDrawn() const;

    /** @name With a finger
     * @{ */
    TapGuard &guard() const;
    static QPointF centreOf(const QQuickItem &item) { return item.mapToScene(item.boundingRect().center()); }
    void touch(QPointF place) { finger().press(0, place.toPoint()); }
    void lift(QPointF place) { finger().release(0, place.toPoint()); }
    /** Touches what is at the place of an item, whether or not it is ready for it. */
    void tapAt(const QQuickItem &item);
    /** Waits until a tap reaches the item, and taps it. */
    bool tap(const QString &name);
    QTest::QTouchEventSequence finger() { return QTest::touchEvent(&window(), m_screen.get()); }
    /** @} */

    /** Every visible item below one. */
    static void visit(QQuickItem *item, const std::function<void(QQuickItem &)> &tell);
    /** Whether an item can be pressed or typed into. */
    static bool isControl(const QQuickItem &item);
    static QString describe(const QQuickItem &item);
    /** What the items of the page have for a property, those that have it. */
    QStringList valuesOf(const char *property) const { return valuesOf(property, page()); }
    static QStringList valuesOf(const char *property, QQuickItem *below);

private:
    std::unique_ptr<Application> m_application;
    const std::unique_ptr<QPointingDevice> m_screen{QTest::createTouchDevice()};
};
