// The list of pages.
import QtQuick
import Kvq.Settings.Controls

SettingsPage {
    id: list

    required property PageDirectory directory
    /** The page that stands beside the list, empty when none does. */
    property string selected

    readonly property string query: field.text.trim()

    signal picked(string name, string setting)

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
        if (query !== "")
            focusFirst(reason);
        else
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
    Keys.onEscapePressed: event => {
        event.accepted = field.text !== "";
        field.text = "";
    }

    pinned: Item {
        width: parent ? parent.width : implicitWidth
        height: field.height

        Field {
            id: field

            objectName: "search-pages"
            hint: qsTr("Search")
            endRoom: clear.width
        }

        IconButton {
            id: clear

            objectName: "clear-search"
            anchors.right: parent.right
            visible: field.text !== ""
            symbol: "remove"
            text: qsTr("Clear the search")
            onClicked: {
                field.text = "";
                field.input.forceActiveFocus();
            }
        }
    }

    Section {
        visible: list.query !== ""

        Repeater {
            id: hits

            model: list.query !== "" ? list.directory.search(list.query) : []

            EntryRow {
                required property var modelData
                readonly property string setting: modelData.setting
                readonly property PageEntry entry: modelData.page

                objectName: "hit:" + entry.name + (setting !== "" ? ":" + setting : "")
                label: setting !== "" ? setting : entry.title
                description: setting !== "" ? entry.title : list.directory.glance.texts[entry.name] ?? ""
                symbol: entry.symbol
                role: Accessible.ListItem
                onPressed: list.picked(entry.name, setting)
            }
        }

        SettingRow {
            objectName: "no-hit"
            visible: hits.count === 0
            label: qsTr("Nothing found")
            ink: Theme.quiet
        }
    }

    Repeater {
        id: groups

        model: list.directory.groups

        PageGroup {
            selected: list.selected
            glances: list.directory.glance.texts
            searched: list.query !== ""
            onPicked: name => list.picked(name, "")
        }
    }
}
