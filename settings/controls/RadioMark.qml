// The mark of a choice.
import QtQuick

Rectangle {
    property bool on

    implicitWidth: 24
    implicitHeight: 24
    radius: 12
    color: "transparent"
    border.width: 2
    border.color: on ? Theme.accent : Theme.outline

    Rectangle {
        anchors.centerIn: parent
        width: 12
        height: 12
        radius: 6
        color: Theme.accent
        visible: parent.on
    }
}
