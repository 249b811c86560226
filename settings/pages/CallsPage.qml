// Dialling: the number, its keypad at the bottom edge, and the way back to a call that runs.
import QtQuick
import QtQml.Models
import Kvq.CallSetup
import Kvq.Settings
import Kvq.Settings.Controls

PhonePage {
    id: page

    readonly property Calls calls: callScreen !== null ? callScreen.calls : null
    readonly property bool running: callScreen !== null && callScreen.summary.running.length > 0
    /** While a call runs, keys are its tones: another one is dialled only when that is wanted. */
    readonly property bool dialling: !running || callScreen.adding
    readonly property bool sideways: width > height && height < 420
    property Request request: null
    /** The request is a service code, and no call. */
    property bool codeRan: false
    property string dialled
    /** The digit whose speed dial is shown while it is held, and what there is to say about it; 0 for none. */
    property int heldSlot: 0
    property string heldNote
    readonly property bool outcome: codeRan && request !== null && !request.busy

    function dial(): void {
        if (callScreen === null || field.text === "" || !dialling || request !== null && request.busy)
            return;
        dialled = field.text;
        codeRan = codes.isCode(dialled);
        request = codeRan ? codes.run(dialled) : callScreen.dial(dialled);
    }

    /** A digit is held that stands alone: shows whom it dials. */
    function showSpeedDial(slot: int): void {
        if (field.text !== String(slot) || request !== null && request.busy)
            return;
        const number = speedDial.state === CallSetup.Ready ? speedDial.numberOf(slot) : "";
        heldNote = number !== "" ? qsTr("Lift the finger to call speed dial %1. Slide it off the key to call nobody.").arg(slot)
            : speedDial.state === CallSetup.Ready ? qsTr("Speed dial %1 is empty.").arg(slot)
            : qsTr("The speed dial could not be read yet.");
        if (number === "")
            return;
        heldSlot = slot;
        field.text = number;
    }

    /** The finger is gone: the number that was shown is called, or nobody is. */
    function endSpeedDial(lifted: bool): void {
        if (heldSlot === 0)
            return;
        const number = speedDial.numberOf(heldSlot);
        heldSlot = 0;
        heldNote = "";
        if (lifted && field.text === number)
            dial();
        else
            field.text = "";
    }

    ServiceCodes {
        id: codes
    }

    // A slot of its own number, and the product's own number for it, for voice mail for example, which goes first.
    SpeedDial {
        id: speedDial

        function numberOf(slot: int): string {
            // As it can be typed: without spaces and strokes.
            return (slots.objectAt(slot - 1)?.dialled ?? "").replace(/[^0-9+*#pPwW]/g, "");
        }
    }

    Instantiator {
        id: slots

        model: speedDial

        QtObject {
            required property string dialled
        }
    }

    Connections {
        target: page.request

        function onFinished() {
            // A PIN does not stay in sight, whatever became of it.
            const held = page.request.result !== CallSetup.Success
                && !(page.codeRan && page.request.value?.kind === ServiceCodes.Pin);
            if (!held && field.text === page.dialled)
                field.text = "";
        }
    }

    function takePrepared(): void {
        if (callScreen === null || callScreen.prepared === "")
            return;
        field.text = callScreen.prepared;
        callScreen.prepared = "";
    }

    onCallScreenChanged: takePrepared()

    Connections {
        target: page.callScreen

        function onPreparedChanged() {
            page.takePrepared();
        }
    }

    busy: request !== null && request.busy
    Component.onDestruction: {
        if (callScreen !== null)
            callScreen.adding = false;
    }

    FailureLine {
        objectName: "unread"
        width: parent.width
        inset: 0
        reason: page.calls !== null && page.calls.readResult !== CallSetup.Success
            ? qsTr("The calls cannot be read. %1")
                  .arg(Words.sentence(page.calls.readResult))
            : ""
        onRetry: page.calls.refresh()
    }

    FailureLine {
        width: parent.width
        inset: 0
        reason: page.outcome ? ServiceWords.failure(page.request) : Words.of(page.request)
        // The number is still there, and "Call" below it.
        action: ""
    }

    PlainText {
        objectName: "speed-dial-note"
        width: parent.width
        visible: text !== ""
        words: page.heldNote
        font.pixelSize: Theme.body
        color: Theme.text
        wrapMode: Text.Wrap
        Accessible.role: Accessible.AlertMessage
        Accessible.name: text
    }

    Section {
        visible: page.outcome && page.request.result === CallSetup.Success

        SettingRow {
            objectName: "outcome"
            label: page.outcome ? ServiceWords.title(page.request) : ""
            description: page.outcome ? ServiceWords.state(page.request) : ""
        }
    }

    Section {
        visible: !page.dialling

        ActionRow {
            objectName: "return-row"
            label: qsTr("Return to call")
            symbol: "calls"
            onPressed: page.callScreen.open()
        }

        ActionRow {
            objectName: "add-call"
            label: qsTr("Add call")
            symbol: "add"
            onPressed: page.callScreen.adding = true
        }
    }

    footer: Item {
        id: dialler

        readonly property real column: page.sideways ? (page.width - 3 * Theme.margin) / 2 : Math.min(page.width - 2 * Theme.margin, 400)
        readonly property real edge: page.sideways ? Theme.margin : (page.width - column) / 2

        width: page.width
        height: page.sideways ? pad.height + Theme.unit
            : field.height + pad.height + Theme.row + 2 * Theme.unit + Theme.margin
        visible: page.dialling

        Field {
            id: field

            objectName: "number"
            x: dialler.edge
            width: dialler.column
            hint: page.running ? qsTr("Number of the other call") : qsTr("Number")
            number: true
            erasable: true
            maximumLength: 42
            onAccepted: page.dial()
            onTextChanged: {
                // The one code that needs no "Call".
                if (text === "*#06#")
                    page.dial();
            }
        }

        NumberPad {
            id: pad

            x: page.sideways ? page.width - width - Theme.margin : dialler.edge
            y: page.sideways ? 0 : field.height + Theme.unit
            width: dialler.column
            keyHeight: Math.max(44, Math.min(64, page.sideways
                ? (page.height - 100) / 4 : (page.height - 3 * Theme.row - 120 - field.height) / 4))
            onKeyPressed: key => {
                page.heldNote = "";
                field.type(key);
            }
            onKeyHeld: key => {
                if (key === "0") {
                    field.takeBack();
                    field.type("+");
                } else if (/[1-9]/.test(key)) {
                    page.showSpeedDial(Number(key));
                }
            }
            onHeldKeyLeft: (key, lifted) => page.endSpeedDial(lifted)
        }

        PushButton {
            objectName: "dial"
            x: dialler.edge
            y: parent.height - height - (page.sideways ? Theme.unit : Theme.margin)
            width: dialler.column
            height: Theme.row
            symbol: "calls"
            text: qsTr("Call")
            filled: true
            enabled: field.text !== "" && !(page.request !== null && page.request.busy)
            onClicked: page.dial()
        }
    }
}
