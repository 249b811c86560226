// How a control's place is remembered, and a tap kept from it.
#include "TapGuard.h"

#include <QPointerEvent>
#include <QTouchEvent>

#include <algorithm>

TapGuard::TapGuard(QObject *parent)
    : QObject(parent)
{
    m_clock.start();
}

void TapGuard::setDelay(int milliseconds)
{
    if (m_delay == milliseconds)
        return;
    m_delay = milliseconds;
    Q_EMIT delayChanged();
}

void TapGuard::watch(QQuickWindow *window)
{
    if (m_window == window)
        return;
    if (m_window) {
        m_window->removeEventFilter(this);
        disconnect(m_window, nullptr, this, nullptr);
    }
    m_window = window;
    m_pictures.clear();
    if (!window)
        return;
    window->installEventFilter(this);
    // Each time that something is painted, when everything has found its place.
    connect(window, &QQuickWindow::afterAnimating, this, &TapGuard::notePicture);
}

bool TapGuard::isReady(const QQuickItem *item) const
{
    return item && m_window && item->window() == m_window
        && !isNew(placesNow(), item->mapToScene(item->boundingRect().center()));
}

bool TapGuard::eventFilter(QObject *watched, QEvent *event)
{
    bool isTaken = false;
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate: {
        auto *const pointer = static_cast<QPointerEvent *>(event);
        letGo();
        const QList<QEventPoint> points = pointer->points();
        for (const QEventPoint &point : points) {
            if (point.state() == QEventPoint::Pressed)
                isTaken = judgePress(point.scenePosition(), points.size() == 1) || isTaken;
        }
        if (isTaken)
            pointer->setAccepted(true);
        setFingerDown(true);
        break;
    }
    case QEvent::MouseButtonRelease:
    case QEvent::TouchEnd:
    case QEvent::TouchCancel:
    case QEvent::FocusOut:
    case QEvent::Hide:
        // Only when what was pressed has heard of it.
        QMetaObject::invokeMethod(
            this, [this] { setFingerDown(false); }, Qt::QueuedConnection);
        break;
    default:
        break;
    }
    return isTaken || QObject::eventFilter(watched, event);
}

/** @param surroundings what holds for the item because of what it stands in */
void TapGuard::collect(QQuickItem *item, Place surroundings, QRectF clip, QList<Place> &places)
{
    if (!item->isVisible())
        return;
    const bool takesTaps = item->acceptedMouseButtons() != Qt::NoButton || item->acceptTouchEvents();
    // The layer of the sheets covers the window, and passes on what is not for a sheet.
    const bool isPlace = takesTaps && !item->inherits("QQuickOverlay");
    if (isPlace || item->clip()) {
        const QRectF whole = item->mapRectToScene(item->boundingRect());
        if (item->clip())
            clip &= whole;
        Place place = surroundings;
        place.item = item;
        place.isScroller = item->inherits("QQuickFlickable");
        if (item->inherits("QQuickAbstractButton"))
            place.words = item->property("text").toString();
        place.origin = whole.topLeft();
        place.area = whole & clip;
        if (isPlace && !place.area.isEmpty())
            places.append(place);
        if (place.isScroller) {
            surroundings.scroller = item;
            surroundings.scrolls = item->property("moving").toBool();
        }
    }
    QList<QQuickItem *> children = item->childItems();
    std::stable_sort(children.begin(), children.end(),
                     [](const QQuickItem *one, const QQuickItem *other) { return one->z() < other->z(); });
    for (QQuickItem *const child : std::as_const(children))
        collect(child, surroundings, clip, places);
}

/** What takes a tap there, null when nothing does. */
const TapGuard::Place *TapGuard::topAt(const QList<Place> &places, QPointF point)
{
    const auto found = std::find_if(places.crbegin(), places.crend(),
                                    [point](const Place &place) { return place.area.contains(point); });
    return found == places.crend() ? nullptr : &*found;
}

QList<TapGuard::Place> TapGuard::placesNow() const
{
    QList<Place> places;
    if (const QQuickWindow *const window = m_window)
        collect(window->contentItem(), {}, QRectF(QPointF(), QSizeF(window->size())), places);
    return places;
}

void TapGuard::notePicture()
{
    const qint64 now = m_clock.elapsed();
    const auto isOver = [&] { return m_pictures.size() > 1 && m_pictures[1].since <= now - m_delay; };
    QList<Place> places = placesNow();
    if (m_pictures.isEmpty() || m_pictures.constLast().places != places)
        m_pictures.append({now, std::move(places)});
    while (isOver())
        m_pictures.removeFirst();
}

/** Whether what is at a point now was not there during the whole delay. */
bool TapGuard::isNew(const QList<Place> &places, QPointF point) const
{
    const Place *const top = topAt(places, point);
    if (!top || top->isScroller)
        return false;
    const qint64 begin = m_clock.elapsed() - m_delay;
    if (m_pictures.isEmpty() || m_pictures.constFirst().since > begin)
        return true;
    const auto isSame = [top](const Place &before) {
        if (before.scrolls && before.scroller == top->scroller)
            return true;
        const QPointF way = before.origin - top->origin;
        return before.item == top->item && before.words == top->words && way.manhattanLength() < 2;
    };
    for (qsizetype index = 0; index < m_pictures.size(); ++index) {
        if (index + 1 < m_pictures.size() && m_pictures[index + 1].since <= begin)
            continue;
        const Place *const before = topAt(m_pictures[index].places, point);
        if (!before || !isSame(*before))
            return true;
    }
    return false;
}

/**
 * Keeps a press from what is new.
 * @param alone whether the event tells of nothing else
 * @return whether the event is to end here
 */
bool TapGuard::judgePress(QPointF point, bool alone)
{
    const QList<Place> places = placesNow();
    if (!isNew(places, point))
        return false;
    const Place *const top = topAt(places, point);
    if (alone && !(top && top->scroller))
        return true;
    // What scrolls below it shall hear of it.
    holdBack(places, point);
    return false;
}

void TapGuard::holdBack(const QList<Place> &places, QPointF point)
{
    for (auto place = places.crbegin(); place != places.crend(); ++place) {
        if (!place->area.contains(point))
            continue;
        if (place->isScroller)
            break;
        auto *const item = const_cast<QQuickItem *>(place->item);
        m_heldBack.append({item, item->acceptedMouseButtons(), item->acceptTouchEvents()});
        item->setAcceptedMouseButtons(Qt::NoButton);
        item->setAcceptTouchEvents(false);
    }
    // Who takes the press is decided when this event has been delivered.
    QMetaObject::invokeMethod(this, &TapGuard::letGo, Qt::QueuedConnection);
}

void TapGuard::letGo()
{
    for (const HeldBack &held : std::as_const(m_heldBack)) {
        if (!held.item)
            continue;
        held.item->setAcceptedMouseButtons(held.buttons);
        held.item->setAcceptTouchEvents(held.touch);
    }
    m_heldBack.clear();
}

void TapGuard::setFingerDown(bool down)
{
    if (m_isFingerDown == down)
        return;
    m_isFingerDown = down;
    Q_EMIT fingerDownChanged();
}
