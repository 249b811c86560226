// Says on every page that a call comes in, and takes or rejects it there.
import QtQuick
import Kvq.CallSetup
import Kvq.Settings.Controls

Column {
    id: bar

    required property Calls calls
    /** False where the page shows the call itself. */
    required property bool wanted

    /** A call is being answered from here. */
    signal taken(Request request)

    Repeater {
        model: bar.calls

        Rectangle {
            id: call

            required property int callId
            required property string number
            required property int callState
            property Request rejection: null

            width: bar.width
            height: layout.implicitHeight + 2 * Theme.unit
            visible: bar.wanted && callState === Calls.Ringing
            color: Theme.accentSoft
            Accessible.role: Accessible.AlertMessage
            Accessible.name: title.text + " " + caller.text

            Timer {
                id: moved

                interval: 500
                running: call.visible
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

                        Text {
                            id: title

                            width: parent.width
                            text: qsTr("Incoming call")
                            font.pixelSize: Theme.small
                            color: Theme.accentSoftInk
                            Accessible.ignored: true
                        }

                        Text {
                            id: caller

                            width: parent.width
                            text: call.number !== "" ? call.number : qsTr("Unknown number")
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

                    width: parent.width
                    spacing: Theme.unit

                    PushButton {
                        width: (buttons.width - Theme.unit) / 2
                        objectName: "take"
                        symbol: "calls"
                        text: qsTr("Answer")
                        filled: true
                        onClicked: {
                            bar.taken(bar.calls.answer(call.callId));
                        }
                    }

                    PushButton {
                        width: (buttons.width - Theme.unit) / 2
                        symbol: "hang-up"
                        text: qsTr("Reject")
                        filled: true
                        dangerous: true
                        enabled: !(call.rejection !== null && call.rejection.busy)
                        onClicked: call.rejection = bar.calls.reject(call.callId)
                    }
                }

                FailureLine {
                    width: parent.width
                    inset: 0
                    reason: Words.of(call.rejection)
                    action: ""
                }
            }

            // The bar pushes the page down: a tap that was meant for the page must not answer.
            MouseArea {
                anchors.fill: parent
                visible: moved.running
            }
        }
    }
}
