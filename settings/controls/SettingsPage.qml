// A page: its header, and sections that scroll below it. The arrow keys move from control to control, and what has the
// keyboard is always in view.
import QtQuick
import QtQuick.Templates as T

FocusScope {
    id: page

    property string title
    property bool busy
    /** Set by the window: whether there is a list to go back to. */
    property bool hasBack
    default property alias sections: column.data
    /** Stands below the header and does not scroll. */
    property alias pinned: fixed.data
    readonly property alias flickable: scroll

    signal wentBack()

    function focusFirst(reason: int): void {
        const first = scroll.nextItemInFocusChain(true);
        if (contains(first))
            first.forceActiveFocus(reason);
        else if (hasBack)
            header.backButton.forceActiveFocus(reason);
        else
            scroll.forceActiveFocus(reason);
    }

    function contains(item: Item): bool {
        for (let i = item; i; i = i.parent) {
            if (i === page)
                return true;
        }
        return false;
    }

    function step(forward: bool): void {
        const from = page.Window.activeFocusItem;
        const to = from ? from.nextItemInFocusChain(forward) : null;
        if (to && contains(to) && (from === scroll || to.mapToItem(page, 0, 0).y > from.mapToItem(page, 0, 0).y === forward))
            to.forceActiveFocus(forward ? Qt.TabFocusReason : Qt.BacktabFocusReason);
        else
            scrollBy(forward ? 64 : -64);
    }

    function scrollBy(distance: real): void {
        scroll.contentY = Math.max(0, Math.min(scroll.contentY + distance, scroll.contentHeight - scroll.height));
    }

    function showFocus(): void {
        const item = page.Window.activeFocusItem;
        if (item)
            show(item);
    }

    function show(item: Item): void {
        for (let i = item; i !== column; i = i.parent) {
            if (!i)
                return;
        }
        const top = item.mapToItem(column, 0, 0).y;
        const bottom = top + item.height;
        if (top - Theme.margin < scroll.contentY)
            scroll.contentY = Math.max(0, top - Theme.margin);
        else if (bottom + Theme.margin > scroll.contentY + scroll.height)
            scroll.contentY = Math.min(Math.max(0, scroll.contentHeight - scroll.height),
                                       bottom + Theme.margin - scroll.height);
    }

    Accessible.role: Accessible.Pane
    Accessible.name: title
    Keys.onUpPressed: step(false)
    Keys.onDownPressed: step(true)
    Keys.onPressed: event => {
        if (event.key === Qt.Key_PageDown)
            scrollBy(scroll.height - 64);
        else if (event.key === Qt.Key_PageUp)
            scrollBy(64 - scroll.height);
        else
            return;
        event.accepted = true;
    }

    Connections {
        target: page.Window.window
        function onActiveFocusItemChanged() {
            // Once everything has found its place.
            Qt.callLater(page.showFocus); // qmllint disable
        }
    }

    PageHeader {
        id: header

        x: Math.max(0, (parent.width - Theme.contentWidth) / 2)
        width: Math.min(parent.width, Theme.contentWidth)
        title: page.title
        hasBack: page.hasBack
        busy: page.busy
        onWentBack: page.wentBack()
    }

    Column {
        id: fixed

        anchors.top: header.bottom
        x: column.x
        width: column.width
    }

    Flickable {
        id: scroll

        anchors.top: fixed.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        contentHeight: column.implicitHeight
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        T.ScrollBar.vertical: ScrollMark {}

        Column {
            id: column

            x: Math.max(Theme.unit, (scroll.width - Theme.contentWidth) / 2)
            width: Math.min(scroll.width - 2 * Theme.unit, Theme.contentWidth)
            topPadding: Theme.unit
            bottomPadding: 3 * Theme.unit
            spacing: 3 * Theme.unit
        }
    }
}
