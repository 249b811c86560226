// A page of a shell's own, with a bar above it for every call that comes in.
import QtQuick
import Kvq.CallSetup

Rectangle {
    width: 360
    height: 640

    Calls { id: calls }

    Text {
        anchors.centerIn: parent
        text: CallSetup.connected ? qsTr("Ready for calls") : CallSetup.connectionError
        textFormat: Text.PlainText
    }

    Column {
        width: parent.width

        Repeater {
            model: calls
            delegate: Rectangle {
                id: bar
                required property int callId
                required property string number
                required property bool canAnswer
                property bool takesTaps: false

                objectName: "bar"
                width: parent.width
                height: 96
                color: "#1d4ed8"
                visible: canAnswer // while it rings

                Timer { // who was about to tap what the bar covers must not answer
                    interval: 500
                    running: true
                    onTriggered: bar.takesTaps = true
                }
                Text {
                    x: 16
                    y: 12
                    color: "white"
                    font.pixelSize: 20
                    text: bar.number || qsTr("No caller id")
                    textFormat: Text.PlainText // it comes from outside
                }
                Row {
                    x: 16
                    y: 40
                    spacing: 16
                    enabled: bar.takesTaps

                    Repeater {
                        model: [{ name: qsTr("Answer"), act: () => calls.answer(bar.callId) },
                                { name: qsTr("Decline"), act: () => calls.reject(bar.callId) }]
                        delegate: Text {
                            required property var modelData
                            objectName: modelData.name
                            width: 120
                            height: 44
                            verticalAlignment: Text.AlignVCenter
                            color: "white"
                            text: modelData.name
                            textFormat: Text.PlainText
                            TapHandler { onTapped: parent.modelData.act() }
                        }
                    }
                }
            }
        }
    }
}
