// Three dots that say "wait" once something has taken 300 ms, so that quick answers never flash.
import QtQuick

Item {
    id: mark

    property bool busy
    property int dot: 6

    readonly property bool shown: busy && waited
    property bool waited: false

    implicitWidth: 3 * dot + 2 * dots.spacing + 6
    implicitHeight: 4 * dot
    visible: shown
    Accessible.ignored: !shown
    Accessible.role: Accessible.Animation
    Accessible.name: qsTr("Please wait")

    onBusyChanged: {
        if (!busy)
            waited = false;
    }

    Timer {
        interval: 300
        running: mark.busy && !mark.waited
        onTriggered: mark.waited = true
    }

    Row {
        id: dots

        anchors.centerIn: parent
        spacing: mark.dot - 2

        Repeater {
            model: 3

            Rectangle {
                id: circle

                required property int index

                width: mark.dot
                height: mark.dot
                radius: mark.dot / 2
                color: Theme.accent
                opacity: Theme.calm ? 1 : 0.3

                // Steps, not a sweep: two repaints a second are enough to say that something is going on.
                SequentialAnimation on opacity {
                    running: mark.shown && !Theme.calm
                    loops: Animation.Infinite

                    PauseAnimation { duration: 160 * circle.index }
                    PropertyAction { value: 1 }
                    PauseAnimation { duration: 320 }
                    PropertyAction { value: 0.3 }
                    PauseAnimation { duration: 480 - 160 * circle.index }
                }
            }
        }
    }
}
