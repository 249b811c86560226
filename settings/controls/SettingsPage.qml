// A page: its header, and sections that scroll below it. The arrow keys move from control to control.
import QtQuick
import Kvq.Settings.Controls

FocusScope {
    id: page

    property string title
    property bool busy
    /** Set by the window: whether there is a list to go back to. */
    property bool hasBack
    default property alias sections: column.data
    /** Stands below the header and does not scroll. */
    property alias pinned: fixed.data
    readonly property alias scrollArea: scroll
    /** Stands at the bottom edge and does not scroll. */
    property alias footer: bottom.data
    /** What there is to say about the page as a whole, above its rows. */
    property string notice
    /** Why nothing could be read, where the reason is the same for several rows: told once, above them. */
    property string commonFailure
    property var unreadRows: []

    signal wentBack()

    /** A row could not be read, or that is over. */
    function noteUnread(row: Item, is: bool): void {
        unreadRows = unreadRows.filter(other => other !== row);
        if (is)
            unreadRows.push(row);
        comparison.restart();
    }

    function compareFailures(): void {
        const counts = new Map();
        for (const row of unreadRows) {
            if (row.failure !== "")
                counts.set(row.failure, (counts.get(row.failure) ?? 0) + 1);
        }
        let common = "";
        for (const [failure, count] of counts) {
            if (count > 1 && count > (counts.get(common) ?? 0))
                common = failure;
        }
        // While rows are read again the reason stays until it is known whether it still holds.
        if (common !== "" || !unreadRows.some(row => row.busy))
            commonFailure = common;
    }

    /** Reads all rows again that could not be read for the common reason. */
    function readAgain(byKey: bool): void {
        const rows = unreadRows.filter(row => row.toldAbove);
        if (rows.length > 0)
            rows[0].forceActiveFocus(byKey ? Qt.TabFocusReason : Qt.OtherFocusReason);
        for (const row of rows)
            row.retry();
    }

    function focusFirst(reason: int): void {
        const first = scroll.nextItemInFocusChain(true);
        if (contains(first))
            first.forceActiveFocus(reason);
        else if (hasBack)
            header.backButton.forceActiveFocus(reason);
        else
            scroll.forceActiveFocus(reason);
    }

    /** Leads to the row that is called so; false when the page has none. */
    function showRow(label: string): bool {
        const row = find(column, label);
        if (row === null)
            return false;
        row.forceActiveFocus(Qt.TabFocusReason);
        scroll.show(row);
        return true;
    }

    function find(below: Item, label: string): Item {
        if (below instanceof SettingRow && below.visible && below.label === label)
            return below;
        for (let child = 0; child < below.children.length; ++child) {
            const row = find(below.children[child], label);
            if (row !== null)
                return row;
        }
        return null;
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
            scroll.scrollBy(forward ? 64 : -64);
    }

    Accessible.role: Accessible.Pane
    Accessible.name: Plain.shown(title)
    Keys.onUpPressed: step(false)
    Keys.onDownPressed: step(true)
    Keys.onPressed: event => {
        if (event.key === Qt.Key_PageDown)
            scroll.scrollBy(scroll.height - 64);
        else if (event.key === Qt.Key_PageUp)
            scroll.scrollBy(64 - scroll.height);
        else
            return;
        event.accepted = true;
    }

    // Once for all rows that are told of together.
    Timer {
        id: comparison

        interval: 0
        onTriggered: page.compareFailures()
    }

    PageHeader {
        id: header

        x: Math.max(0, (parent.width - Theme.contentWidth) / 2)
        width: Math.min(parent.width, Theme.contentWidth)
        title: page.title
        hasBack: page.hasBack
        busy: page.busy
        indent: column.x - x + Theme.margin
        onWentBack: page.wentBack()
    }

    Column {
        id: above

        anchors.top: header.bottom
        x: column.x
        width: column.width

        FailureLine {
            objectName: "notice"
            width: parent.width
            inset: 0
            reason: page.notice
            action: ""
        }

        FailureLine {
            objectName: "commonFailure"
            width: parent.width
            inset: 0
            reason: page.commonFailure
            onRetry: byKey => page.readAgain(byKey)
        }

        Column {
            id: fixed

            width: parent.width
            bottomPadding: children.length > 0 ? Theme.unit : 0
        }
    }

    ScrollArea {
        id: scroll

        anchors.top: above.bottom
        anchors.bottom: bottom.top
        width: parent.width
        contentHeight: column.implicitHeight

        Column {
            id: column

            x: Math.max(Theme.unit, (scroll.width - Theme.contentWidth) / 2)
            width: Math.min(scroll.width - 2 * Theme.unit, Theme.contentWidth)
            topPadding: Theme.unit
            bottomPadding: 3 * Theme.unit
            spacing: 3 * Theme.unit
        }
    }

    Column {
        id: bottom

        anchors.bottom: parent.bottom
        width: parent.width
    }
}
