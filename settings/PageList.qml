// The list of pages.
import QtQuick
import Kvq.Settings.Controls

SettingsPage {
    id: list

    required property PageDirectory directory
    /** The page that stands beside the list, empty when none does. */
    property string selected

    signal picked(string name)

    /** The row of a page. */
    function rowOf(name: string): Item {
        for (let group = 0; group < groups.count; ++group) {
            const rows = (groups.itemAt(group) as PageGroup).entries;
            for (let row = 0; row < rows.count; ++row) {
                if (rows.itemAt(row).name === name)
                    return rows.itemAt(row);
            }
        }
        return null;
    }

    /** Gives the keyboard to the row of a page. */
    function focusRow(name: string, reason: int): void {
        rowOf(name)?.forceActiveFocus(reason);
    }

    function showSelected(): void {
        if (selected !== "")
            scrollArea.show(rowOf(selected));
    }

    onSelectedChanged: placing.restart()
    scrollArea.onHeightChanged: placing.restart()

    // Until everything has found its place.
    Timer {
        id: placing

        interval: 0
        onTriggered: list.showSelected()
    }

    title: qsTr("Call settings")

    Repeater {
        id: groups

        model: list.directory.groups

        PageGroup {
            selected: list.selected
            onPicked: name => list.picked(name)
        }
    }
}
