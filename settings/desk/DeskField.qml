// A line to type into.
import QtQuick
import QtQuick.Templates as T

T.TextField {
    id: field

    implicitHeight: 44
    leftPadding: Paper.unit
    rightPadding: Paper.unit
    verticalAlignment: TextInput.AlignVCenter
    font.family: Paper.font
    font.pixelSize: Paper.size
    color: Paper.ink
    selectionColor: Paper.mark
    selectedTextColor: Paper.markInk
    selectByMouse: true

    background: Rectangle {
        color: Paper.card
        border.width: field.activeFocus ? 3 : 1
        border.color: field.activeFocus ? Paper.mark : Paper.line
    }
}
