// What scrolls. What the keyboard leads to is always in view.
import QtQuick
import QtQuick.Templates as T

Flickable {
    id: area

    /** Brings something that stands in it into view. */
    function show(item: Item): void {
        if (height <= 0)
            return;
        for (let i = item; i !== contentItem; i = i.parent) {
            if (!i)
                return;
        }
        const top = item.mapToItem(contentItem, 0, 0).y;
        const bottom = top + item.height;
        if (top - Theme.margin < contentY)
            contentY = Math.max(0, top - Theme.margin);
        else if (bottom + Theme.margin > contentY + height)
            contentY = Math.min(Math.max(0, contentHeight - height), bottom + Theme.margin - height);
    }

    function scrollBy(distance: real): void {
        contentY = Math.max(0, Math.min(contentY + distance, contentHeight - height));
    }

    function showFocus(): void {
        const item = area.Window.activeFocusItem;
        // What was pressed with a finger is in view already.
        if (item && ((item as T.Control)?.visualFocus ?? true))
            show(item);
    }

    clip: true
    boundsBehavior: Flickable.StopAtBounds
    T.ScrollBar.vertical: ScrollMark {}

    Connections {
        target: area.Window.window
        function onActiveFocusItemChanged() {
            placing.restart();
        }
    }

    // Until everything has found its place.
    Timer {
        id: placing

        interval: 0
        onTriggered: area.showFocus()
    }
}
