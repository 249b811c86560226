// Something about the phone that is so, or not.
import QtQuick
import QtQuick.Templates as T

T.AbstractButton {
    id: control

    property bool on

    signal toggled(bool on)

    width: parent ? parent.width : implicitWidth
    implicitHeight: Math.max(44, words.implicitHeight + Paper.unit)
    Accessible.role: Accessible.CheckBox
    Accessible.name: text
    Accessible.checkable: true
    Accessible.checked: on
    Keys.onReturnPressed: control.clicked()
    Keys.onEnterPressed: control.clicked()
    onClicked: toggled(!on)

    contentItem: Item {
        Rectangle {
            id: box

            anchors.verticalCenter: parent.verticalCenter
            x: 4
            width: 20
            height: 20
            color: control.on ? Paper.mark : Paper.card
            border.width: control.visualFocus ? 3 : 1
            border.color: control.visualFocus ? Paper.mark : Paper.line

            DeskText {
                anchors.centerIn: parent
                visible: control.on
                text: "×"
                font.bold: true
                color: Paper.markInk
                Accessible.ignored: true
            }
        }

        DeskText {
            id: words

            anchors.verticalCenter: parent.verticalCenter
            x: box.x + box.width + Paper.unit
            width: parent.width - x
            text: control.text
            Accessible.ignored: true
        }
    }
}
