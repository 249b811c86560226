// Shows where the keyboard is.
import QtQuick

Rectangle {
    property bool shown

    anchors.fill: parent
    anchors.margins: 2
    radius: Theme.radius - 2
    color: "transparent"
    border.width: 2
    border.color: Theme.accent
    visible: shown
}
