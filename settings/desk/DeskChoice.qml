// One of a few.
import QtQuick
import Kvq.Settings.Controls

Column {
    id: choice

    property string label
    /** Objects with a value and a text. */
    property var choices: []
    property var current

    signal picked(var value)

    width: parent ? parent.width : implicitWidth
    spacing: 4

    DeskText {
        width: parent.width
        visible: text !== ""
        words: choice.label
        color: Paper.quiet
    }

    Row {
        id: row

        readonly property real tallest: {
            let height = 44;
            for (let at = 0; at < children.length; ++at)
                height = Math.max(height, children[at].implicitHeight);
            return height;
        }

        width: parent.width
        spacing: -1

        Repeater {
            model: choice.choices

            DeskButton {
                required property var modelData

                width: (row.width + choice.choices.length - 1) / choice.choices.length
                height: row.tallest
                text: modelData.text
                checked: modelData.value === choice.current
                Accessible.role: Accessible.RadioButton
                Accessible.name: Plain.shown(choice.label !== "" ? choice.label + ": " + text : text)
                Accessible.checked: checked
                onClicked: choice.picked(modelData.value)
            }
        }
    }
}
