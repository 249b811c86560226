// A call that comes in: who calls, and what can be done.
import QtQuick
import Kvq.CallSetup
import Kvq.Settings.Controls

Rectangle {
    id: call

    required property int callId
    required property string number
    required property int callState
    required property bool incoming
    required property Calls calls
    /** Somebody talks already. */
    required property bool talking
    property Request rejection: null
    readonly property bool ringing: incoming && callState === Calls.Ringing

    /** It is being answered from here. */
    signal taken(Request request)

    function focusFirst(): void {
        answer.forceActiveFocus(Qt.TabFocusReason);
    }

    implicitHeight: layout.implicitHeight + 2 * Theme.unit
    visible: ringing
    color: Theme.accentSoft
    Accessible.role: Accessible.AlertMessage
    Accessible.name: Plain.shown(title.text + " " + caller.text)

    // What is below it takes no tap that misses a button.
    MouseArea {
        anchors.fill: parent
    }

    Column {
        id: layout

        x: Math.max(Theme.margin, (parent.width - Theme.contentWidth) / 2)
        y: Theme.unit
        width: parent.width - 2 * x
        spacing: Theme.unit

        Row {
            width: parent.width
            spacing: Theme.margin

            Icon {
                id: sign

                anchors.verticalCenter: parent.verticalCenter
                symbol: "calls"
                color: Theme.accentSoftInk
            }

            Column {
                width: parent.width - sign.width - parent.spacing

                PlainText {
                    id: title

                    width: parent.width
                    words: qsTr("Incoming call")
                    font.pixelSize: Theme.small
                    wrapMode: Text.Wrap
                    color: Theme.accentSoftInk
                    Accessible.ignored: true
                }

                PlainText {
                    id: caller

                    width: parent.width
                    words: call.number !== "" ? call.number : qsTr("Unknown number")
                    font.pixelSize: Theme.title
                    font.weight: Font.DemiBold
                    color: Theme.accentSoftInk
                    wrapMode: Text.WrapAnywhere
                    Accessible.ignored: true
                }
            }
        }

        Row {
            id: buttons

            readonly property real side: (width - spacing) / 2

            width: parent.width
            spacing: Theme.unit

            PushButton {
                id: answer

                objectName: "answer"
                width: buttons.side
                symbol: "calls"
                text: call.talking ? qsTr("Hold and answer") : qsTr("Answer")
                filled: true
                onClicked: call.taken(call.calls.answer(call.callId))
            }

            PushButton {
                objectName: "reject"
                width: buttons.side
                height: Math.max(implicitHeight, parent.height)
                symbol: "hang-up"
                text: qsTr("Reject")
                filled: true
                dangerous: true
                enabled: !(call.rejection !== null && call.rejection.busy)
                onClicked: call.rejection = call.calls.reject(call.callId)
            }
        }

        FailureLine {
            width: parent.width
            inset: 0
            reason: Words.of(call.rejection)
            action: ""
        }
    }
}
