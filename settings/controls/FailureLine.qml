// Why something failed, where it failed, and what to do next.
import QtQuick
import Kvq.Settings.Controls

Item {
    id: line

    property string reason
    /** Empty when trying again makes no sense. */
    property string action: qsTr("Try again")
    /** How far the ground stays away from the sides. */
    property int inset: Theme.unit

    /** The reason, as soon as no finger can lose the row below. */
    property string shown

    /** @param byKey whether the keyboard asked for it */
    signal retry(bool byKey)

    implicitHeight: visible ? layout.implicitHeight + Theme.unit + 4 : 0
    visible: shown !== ""
    Accessible.role: Accessible.AlertMessage
    Accessible.name: Plain.shown(shown)
    Accessible.ignored: !visible

    Binding {
        target: line
        property: "shown"
        value: line.reason
        when: !TapGuard.fingerDown
        restoreMode: Binding.RestoreNone
    }

    Rectangle {
        anchors.fill: parent
        anchors.leftMargin: line.inset
        anchors.rightMargin: line.inset
        anchors.bottomMargin: Theme.unit
        radius: Theme.unit
        color: Theme.dangerSoft
    }

    Column {
        id: layout

        x: Theme.margin
        width: parent.width - 2 * Theme.margin
        topPadding: 10
        spacing: 0

        Row {
            width: parent.width
            spacing: Theme.unit

            Icon {
                id: sign

                symbol: "alert"
                color: Theme.danger
                side: 18
            }

            PlainText {
                width: parent.width - sign.width - parent.spacing
                words: line.shown
                font.pixelSize: Theme.small
                lineHeight: 1.15
                color: Theme.danger
                wrapMode: Text.Wrap
                Accessible.ignored: true
            }
        }

        TextButton {
            anchors.right: parent.right
            text: line.action
            visible: text !== ""
            ink: Theme.danger
            onClicked: line.retry(visualFocus)
        }

        Item {
            width: 1
            height: 6
            visible: line.action === ""
        }
    }
}
