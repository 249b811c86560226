// A group of the list of pages.
import QtQuick
import Kvq.Settings.Controls

Section {
    id: group

    required property var modelData
    property string selected
    /** What to tell of the pages, by their names. */
    property var glances: ({})
    /** Whether the list is searched, which shows other rows. */
    property bool searched
    readonly property Repeater entries: repeater

    signal picked(string name)

    heading: modelData.heading
    visible: !searched && hasPages
    readonly property bool hasPages: {
        for (let row = 0; row < modelData.pages.length; ++row) {
            if (modelData.pages[row].offered)
                return true;
        }
        return false;
    }

    Repeater {
        id: repeater

        model: group.modelData.pages

        EntryRow {
            required property PageEntry modelData
            readonly property string name: modelData.name

            objectName: "page:" + name
            visible: modelData.offered
            label: modelData.title
            description: group.glances[name] ?? ""
            symbol: modelData.symbol
            role: Accessible.ListItem
            selected: group.selected === name
            onPressed: group.picked(name)
        }
    }
}
