// The switch at the end of a row. While the value is unknown the knob stands in the middle.
import QtQuick

Rectangle {
    id: mark

    property bool on
    property bool known: true
    /** It may be so no longer. */
    property bool stale: false

    implicitWidth: 48
    implicitHeight: 28
    radius: height / 2
    color: !known ? Theme.placeholder : !on ? "transparent" : stale ? Theme.stale : Theme.accent
    border.width: known && !on ? 2 : 0
    border.color: Theme.outline

    Rectangle {
        anchors.verticalCenter: parent.verticalCenter
        readonly property real place: !mark.known ? (mark.width - width) / 2 : mark.on ? mark.width - width - 4 : 6

        x: Theme.mirrored ? mark.width - width - place : place
        width: mark.on ? 20 : 16
        height: width
        radius: height / 2
        color: !mark.known ? Theme.surface : !mark.on ? Theme.outline : mark.stale ? Theme.surface : Theme.accentInk

        Behavior on x {
            enabled: mark.known
            NumberAnimation { duration: Theme.movement; easing.type: Easing.OutCubic }
        }
    }
}
