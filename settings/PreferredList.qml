// The preferred networks in their order. A row follows the finger that holds its handle, and the others make room.
import QtQuick
import Kvq.CallSetup
import Kvq.Settings.Controls

Column {
    id: list

    required property PreferredNetworks networks
    /** The row that is being dragged, -1 for none, and the one that it would become. */
    property int dragged: -1
    property int target: -1
    /** The row whose handle gets the keyboard once the list shows the move. */
    property int followed: -1

    signal moved(int from, int to)
    signal removed(int row)

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
        Qt.callLater(follow); // qmllint disable
    }

    function follow(): void {
        if (followed >= 0 && followed < rows.count)
            (rows.itemAt(followed) as PreferredRow).handle.forceActiveFocus(Qt.TabFocusReason);
    }

    // The list is read again after a move, which may make its rows anew.
    Timer {
        id: following

        interval: 1000
        onTriggered: list.followed = -1
    }

    Connections {
        target: list.networks

        function onStateChanged() {
            Qt.callLater(list.follow); // qmllint disable
        }
    }

    width: parent ? parent.width : implicitWidth

    Repeater {
        id: rows

        model: list.networks
        onItemAdded: Qt.callLater(list.follow) // qmllint disable

        PreferredRow {
            owner: list
        }
    }
}
