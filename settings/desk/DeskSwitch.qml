// Something about the phone that is so, or not.
import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Kvq.Settings.Controls

T.AbstractButton {
    id: control

    property bool on

    signal toggled(bool on)

    width: parent ? parent.width : implicitWidth
    implicitHeight: Math.max(44, implicitContentHeight + Paper.unit)
    Accessible.role: Accessible.CheckBox
    Accessible.name: Plain.shown(text)
    Accessible.checkable: true
    Accessible.checked: on
    Keys.onReturnPressed: control.clicked()
    Keys.onEnterPressed: control.clicked()
    onClicked: toggled(!on)

    contentItem: RowLayout {
        spacing: Paper.unit

        Rectangle {
            Layout.leftMargin: 4
            implicitWidth: 20
            implicitHeight: 20
            color: control.on ? Paper.mark : Paper.card
            border.width: control.visualFocus ? 3 : 1
            border.color: control.visualFocus ? Paper.mark : Paper.line

            DeskText {
                anchors.centerIn: parent
                visible: control.on
                words: "×"
                font.bold: true
                color: Paper.markInk
                Accessible.ignored: true
            }
        }

        DeskText {
            Layout.fillWidth: true
            words: control.text
            Accessible.ignored: true
        }
    }
}
