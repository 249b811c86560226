// The preferred networks in their order. A row follows the finger that holds its handle, and the others make room.
import QtQuick
import Kvq.CallSetup
import Kvq.Settings.Controls

Column {
    id: list

    required property PreferredNetworks networks
    /** The page's view, which scrolls on while a row is held at its edge. */
    required property ScrollArea view
    /** Gives the name of a network, empty when it is not known. */
    property var nameOf: networkId => ""
    /** The row that is being dragged, -1 for none, and the one that it would become. */
    property int dragged: -1
    readonly property int target: dragged < 0 ? -1 : find(dragged, travel)
    /** How far the dragged row is from its place: as far as the finger moved, and the view beneath it. */
    readonly property real travel: fingerTravel + view.contentY - viewStart
    property real fingerTravel: 0
    property real viewStart: 0
    /** Where in the view the finger is. */
    property real fingerPlace: 0
    /** The row whose handle gets the keyboard once the list shows the move. */
    property int followed: -1

    signal moved(int from, int to)
    signal removed(int row)

    function networkAt(row: int): string {
        return (rows.itemAt(row) as PreferredRow).networkId;
    }

    function has(networkId: string): bool {
        for (let row = 0; row < rows.count; ++row) {
            if (networkAt(row) === networkId)
                return true;
        }
        return false;
    }

    function take(row: int): void {
        viewStart = view.contentY;
        fingerTravel = 0;
        dragged = row;
    }

    function drag(distance: real, scenePosition: point): void {
        fingerTravel = distance;
        fingerPlace = view.mapFromItem(null, scenePosition).y;
    }

    function drop(): void {
        const from = dragged;
        const to = target;
        dragged = -1;
        if (from >= 0 && from !== to)
            moved(from, to);
    }

    /** How far a row stands from its place while another one is dragged across it. */
    function shift(row: int): real {
        if (dragged < 0 || row === dragged)
            return 0;
        const height = rows.itemAt(dragged).height;
        if (row > dragged && row <= target)
            return -height;
        return row < dragged && row >= target ? height : 0;
    }

    function find(row: int, distance: real): int {
        const item = rows.itemAt(row);
        const middle = item.y + item.height / 2 + distance;
        let found = row;
        for (let other = 0; other < rows.count; ++other) {
            const place = rows.itemAt(other);
            if (other < row && middle < place.y + place.height / 2 && other < found)
                found = other;
            else if (other > row && middle > place.y + place.height / 2)
                found = other;
        }
        return found;
    }

    function step(row: int, by: int): void {
        if (row + by < 0 || row + by >= rows.count)
            return;
        followed = row + by;
        following.restart();
        moved(row, row + by);
        placing.restart();
    }

    function follow(): void {
        if (followed >= 0 && followed < rows.count)
            (rows.itemAt(followed) as PreferredRow).handle.forceActiveFocus(Qt.TabFocusReason);
    }

    Timer {
        readonly property int direction: list.dragged < 0 ? 0
            : list.fingerPlace < Theme.touch ? -1
            : list.fingerPlace > list.view.height - Theme.touch ? 1 : 0

        interval: 16
        repeat: true
        running: direction !== 0
        onTriggered: list.view.scrollBy(direction * Theme.unit)
    }

    // The list is read again after a move, which may make its rows anew.
    Timer {
        id: following

        interval: 1000
        onTriggered: list.followed = -1
    }

    // Until every row has found its place.
    Timer {
        id: placing

        interval: 0
        onTriggered: list.follow()
    }

    Connections {
        target: list.networks

        function onStateChanged() {
            placing.restart();
        }
    }

    width: parent ? parent.width : implicitWidth

    Repeater {
        id: rows

        model: list.networks
        onItemAdded: placing.restart()

        PreferredRow {
            owner: list
        }
    }
}
