// Calls: what can be done to each, and the keypad.
import QtQuick
import Kvq.CallSetup
import Kvq.Settings
import Kvq.Settings.Controls

PhonePage {
    id: page

    property Request request: null
    property string dialled

    /** The keys that were tones of a call. */
    property string tones

    readonly property bool talking: calls !== null && calls.count > 0

    onTalkingChanged: {
        if (!talking && field.text === tones)
            field.text = "";
        tones = "";
    }

    function dial(): void {
        if (field.text === "")
            return;
        dialled = field.text;
        request = calls.dial(dialled);
    }

    Connections {
        target: page.request

        function onFinished() {
            // From now on the keys are tones of the call.
            if (page.request.result === CallSetup.Success && field.text === page.dialled)
                field.text = "";
        }
    }

    busy: request !== null && request.busy || taken !== null && taken.busy

    FailureLine {
        objectName: "unread"
        width: parent.width
        inset: 0
        reason: page.calls !== null && page.calls.readResult !== CallSetup.Success
            ? qsTr("The calls cannot be read. %1")
                  .arg(Words.sentence(page.calls.readResult, CallSetup.resultText(page.calls.readResult)))
            : ""
        onRetry: page.calls.refresh()
    }

    Section {
        heading: qsTr("Calls")
        visible: page.talking

        Repeater {
            model: page.calls

            CallCard {
                calls: page.calls
                onTransferWanted: callId => {
                    transferSheet.callId = callId;
                    transferSheet.start(qsTr("Transfer the call"), "", qsTr("Transfer"));
                }
            }
        }

        FailureLine {
            width: parent.width
            reason: Words.of(page.taken)
            action: ""
        }

        RequestRow {
            visible: page.calls !== null && page.calls.canSwap
            objectName: "swap"
            label: qsTr("Swap the two calls")
            symbol: "swap"
            onWanted: request = page.calls.swap()
        }

        RequestRow {
            visible: page.calls !== null && page.calls.canJoin
            objectName: "join"
            label: qsTr("Join them to a conference")
            symbol: "merge"
            onWanted: request = page.calls.join()
        }

        SwitchRow {
            label: qsTr("Microphone off")
            symbol: page.calls !== null && page.calls.muted.value ? "mute" : "microphone"
            checked: page.calls !== null && page.calls.muted.value
            busy: page.calls !== null && page.calls.muted.busy
            failure: page.calls !== null ? Words.of(page.calls.muted) : ""
            onToggled: on => page.calls.muted.value = on
            onRetry: page.calls.muted.retry()
        }
    }

    Column {
        anchors.horizontalCenter: parent.horizontalCenter
        width: Math.min(parent.width, 400)
        spacing: Theme.margin

        Field {
            id: field

            objectName: "number"
            width: parent.width
            hint: page.talking ? qsTr("Tones, or another number") : qsTr("Number")
            number: true
            maximumLength: 42
            onAccepted: page.dial()
        }

        NumberPad {
            width: parent.width
            keyHeight: 56
            onKeyPressed: key => {
                field.type(key);
                if (page.talking) {
                    page.tones += key;
                    page.calls.pressKey(key);
                }
            }
            onKeyReleased: key => {
                if (page.talking)
                    page.calls.releaseKey(key);
            }
            onKeyHeld: key => {
                if (key === "0" && !page.talking) {
                    field.takeBack();
                    field.type("+");
                }
            }
        }

        Row {
            width: parent.width
            spacing: Theme.unit

            PushButton {
                objectName: "dial"
                width: parent.width - eraser.width - parent.spacing
                height: Theme.row
                symbol: "calls"
                text: qsTr("Call")
                filled: true
                enabled: field.text !== "" && !(page.request !== null && page.request.busy)
                onClicked: page.dial()
            }

            IconButton {
                id: eraser

                focusPolicy: Qt.TabFocus
                autoRepeat: true
                side: Theme.row
                symbol: "backspace"
                text: qsTr("Delete the last digit")
                enabled: field.text !== ""
                onClicked: field.takeBack()
            }
        }

        FailureLine {
            width: parent.width
            reason: Words.of(page.request)
            onRetry: page.dial()
        }
    }

    NumberSheet {
        id: transferSheet

        property int callId: 0

        onAccepted: {
            page.request = page.calls.transfer(callId, number);
            close();
        }
    }
}
