// Asks for a phone number, with what else belongs to it.
import QtQuick

Sheet {
    id: sheet

    property string label: qsTr("Number")
    property alias number: field.text
    property alias maximumLength: field.maximumLength
    /** Whether the number may be left empty. */
    property bool optional: false
    /** Stands below the number. */
    property alias more: extra.data

    function start(heading: string, number: string, action: string): void {
        title = heading;
        field.text = number;
        sheet.action = action;
        ask();
        field.input.forceActiveFocus();
        field.input.selectAll();
    }

    padded: true
    ready: optional || field.text !== ""

    Field {
        id: field

        label: sheet.label
        number: true
        erasable: true
        maximumLength: 42
        onAccepted: sheet.accept()
    }

    SheetPad {
        sheet: sheet
        onKeyPressed: key => field.type(key)
        onKeyHeld: key => {
            if (key === "0") {
                field.takeBack();
                field.type("+");
            }
        }
    }

    Column {
        id: extra

        width: parent.width
        spacing: Theme.unit
        visible: children.length > 0
    }
}
