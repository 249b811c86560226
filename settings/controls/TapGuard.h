// Lets nothing act that has just appeared or moved under the finger.
#pragma once

#include <QElapsedTimer>
#include <QList>
#include <QObject>
#include <QPointF>
#include <QPointer>
#include <QQuickItem>
#include <QQuickWindow>
#include <QRectF>
#include <QString>
#include <QtQmlIntegration>

/**
 * Watches one window. A tap acts only when the control under it has been painted there, with the same words, for the
 * whole delay. It looks at the window as a whole, so no control has to know of it, and none can be forgotten.
 *
 * What the finger itself scrolls has not moved in this sense. A swipe scrolls at any time.
 */
class TapGuard : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

    /** Milliseconds. */
    Q_PROPERTY(int delay READ delay WRITE setDelay NOTIFY delayChanged FINAL)
    /** Meanwhile nothing is to move that can be tapped. */
    Q_PROPERTY(bool fingerDown READ isFingerDown NOTIFY fingerDownChanged FINAL)

public:
    explicit TapGuard(QObject *parent = nullptr);

    int delay() const { return m_delay; }
    void setDelay(int milliseconds);
    bool isFingerDown() const { return m_isFingerDown; }

    Q_INVOKABLE void watch(QQuickWindow *window);
    /** Whether a tap on the middle of an item would reach what is there. */
    Q_INVOKABLE bool isReady(const QQuickItem *item) const;

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    void delayChanged();
    void fingerDownChanged();

private:
    /** Something that takes taps, and where it can be seen. Nothing here is looked into after its picture was taken. */
    struct Place {
        const QQuickItem *item = nullptr;
        const QQuickItem *scroller = nullptr; ///< the innermost one that it stands in
        bool scrolls = false;                 ///< the finger moves the scroller
        bool isScroller = false;
        QString words;
        QPointF origin;
        QRectF area;

        bool operator==(const Place &) const = default;
    };
    /** All of them in the order in which they are painted, and since when they stand so. */
    struct Picture {
        qint64 since = 0;
        QList<Place> places;
    };
    struct HeldBack {
        QPointer<QQuickItem> item;
        Qt::MouseButtons buttons;
        bool touch = false;
    };

    static void collect(QQuickItem *item, Place surroundings, QRectF clip, QList<Place> &places);
    static const Place *topAt(const QList<Place> &places, QPointF point);
    QList<Place> placesNow() const;
    void notePicture();
    bool isNew(const QList<Place> &places, QPointF point) const;
    bool judgePress(QPointF point, bool alone);
    void holdBack(const QList<Place> &places, QPointF point);
    void letGo();
    void setFingerDown(bool down);

    QPointer<QQuickWindow> m_window;
    QElapsedTimer m_clock;
    QList<Picture> m_pictures; ///< the oldest first: it, too, stood within the delay
    QList<HeldBack> m_heldBack;
    int m_delay = 500;
    bool m_isFingerDown = false;
};
