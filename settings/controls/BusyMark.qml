// Three dots that say "wait" once something has taken 300 ms, so that quick answers never flash.
import QtQuick

Item {
    id: mark

    property bool busy

    readonly property bool shown: busy && waited
    property bool waited: false

    implicitWidth: 32
    implicitHeight: 24
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
        anchors.centerIn: parent
        spacing: 4

        Repeater {
            model: 3

            Rectangle {
                id: dot

                required property int index

                width: 6
                height: 6
                radius: 3
                color: Theme.accent
                opacity: Theme.calm ? 1 : 0.3

                // Steps, not a sweep: two repaints a second are enough to say that something is going on.
                SequentialAnimation on opacity {
                    running: mark.shown && !Theme.calm
                    loops: Animation.Infinite

                    PauseAnimation { duration: 160 * dot.index }
                    PropertyAction { value: 1 }
                    PauseAnimation { duration: 320 }
                    PropertyAction { value: 0.3 }
                    PauseAnimation { duration: 480 - 160 * dot.index }
                }
            }
        }
    }
}
