// The calls that run: who they are with, what can be done to them, and their keypad. It lies above the pages and their
// sheets, which stay as they are below it.
import QtQuick
import QtQuick.Templates as T
import Kvq.CallSetup
import Kvq.Settings.Controls

T.Popup {
    id: screen

    required property Calls calls
    required property CallSummary summary

    /** The request that dials, and what it dials. */
    property Request dialling: null
    property string dialledNumber
    /** The dialling was given up before the call was there. */
    property bool givenUp: false
    /** The request that answers a call, until that is there. */
    property Request answer: null
    /** Somebody wants to dial another call; until then the pages dial none while one runs. */
    property bool adding: false
    /** A number from outside that the dialling pad is to show. */
    property string prepared
    property Request ending: null
    property bool keypad: false
    /** The tones of the call that talks, as they were sent. */
    property string tones
    property Request tone: null

    readonly property bool waiting: dialling !== null && dialling.busy
    /** Dialled, and not yet among the calls. */
    readonly property bool pending: (waiting || calls.busy) && summary.running.length === 0
    readonly property bool several: summary.running.length > 1
    readonly property bool sideways: width > height && height < 480
    readonly property bool padShown: keypad && summary.talking
    readonly property CallEntry talkingTo: summary.find(Calls.Active)

    signal addingWanted()

    /** Dials, and shows the call from then on. */
    function dial(number: string): Request {
        dialledNumber = number;
        givenUp = false;
        adding = false;
        dialling = calls.dial(number);
        open();
        return dialling;
    }

    /** A call is being answered: shows it when it is there. */
    function expect(request: Request): void {
        answer = request;
        lookAtCalls();
    }

    function lookAtCalls(): void {
        if (answer !== null && summary.running.length > 0) {
            answer = null;
            open();
        }
        if (givenUp && !waiting && summary.running.some(entry => entry.callId === dialling.value)) {
            givenUp = false;
            ending = calls.hangUp(dialling.value);
        }
    }

    function hangUp(): void {
        const call = summary.current;
        if (call === null) {
            // What waits is never dialled; what runs is ended as soon as it is there.
            givenUp = true;
            if (waiting)
                dialling.cancel();
        } else if (call.joined) {
            ending = calls.release(call.callId, call.callState === Calls.Active ? Calls.AllActive : Calls.AllHeld);
        } else {
            ending = calls.hangUp(call.callId);
        }
    }

    function press(key: string): void {
        if (!summary.talking)
            return;
        keypad = true;
        tones += key;
        const request = calls.pressKey(key);
        tone = request;
        request.finished.connect(() => {
            // What did not sound is not shown as sent.
            if (request.result !== CallSetup.Success)
                screen.tones = screen.tones.slice(0, -1);
        });
    }

    function release(key: string): void {
        if (summary.talking)
            calls.releaseKey(key);
    }

    function closeWhenOver(): void {
        if (!waiting && !calls.busy && summary.running.length === 0) {
            adding = false;
            close();
        }
    }

    parent: T.Overlay.overlay
    // Above sheets, which stand at 0, and below what calls have to say.
    z: 1
    width: parent ? parent.width : 0
    height: parent ? parent.height : 0
    padding: 0
    modal: true
    dim: false
    focus: true
    closePolicy: T.Popup.NoAutoClose

    onTalkingToChanged: {
        tones = "";
        tone = null;
        if (talkingTo === null)
            keypad = false;
    }
    onClosed: transferSheet.close()
    onOpened: body.forceActiveFocus()

    Connections {
        target: screen.summary

        function onRunningChanged() {
            screen.lookAtCalls();
            over.restart();
        }
    }

    Connections {
        target: screen.calls

        function onStateChanged() {
            over.restart();
        }
    }

    Connections {
        target: screen.dialling

        function onFinished() {
            if (screen.dialling.result !== CallSetup.Success)
                screen.givenUp = false;
            screen.lookAtCalls();
            over.restart();
        }
    }

    Connections {
        target: screen.answer

        function onFinished() {
            if (screen.answer.result !== CallSetup.Success)
                screen.answer = null;
        }
    }

    // The call table is told a row at a time.
    Timer {
        id: over

        interval: 0
        onTriggered: screen.closeWhenOver()
    }

    background: Rectangle {
        color: Theme.window
    }

    contentItem: FocusScope { // qmllint disable deferred-property-id
        id: body

        LayoutMirroring.enabled: Theme.mirrored
        LayoutMirroring.childrenInherit: true

        readonly property real half: screen.sideways ? Math.floor(width / 2) : width
        readonly property real column: Math.min(half, Theme.contentWidth) - 2 * Theme.unit

        Accessible.role: Accessible.Pane
        Accessible.name: Plain.shown(header.title)

        Keys.onEscapePressed: screen.close()
        Keys.onBackPressed: screen.close()
        Keys.onPressed: event => {
            if (/^[0-9*#]$/.test(event.text)) {
                if (!event.isAutoRepeat)
                    screen.press(event.text);
                event.accepted = true;
            }
        }
        Keys.onReleased: event => {
            if (/^[0-9*#]$/.test(event.text)) {
                if (!event.isAutoRepeat)
                    screen.release(event.text);
                event.accepted = true;
            }
        }

        PageHeader {
            id: header

            x: Math.max(0, (body.half - Theme.contentWidth) / 2)
            width: Math.min(body.half, Theme.contentWidth)
            title: screen.several ? qsTr("Calls") : qsTr("Call")
            hasBack: true
            busy: screen.waiting || screen.ending !== null && screen.ending.busy
            onWentBack: screen.close()
        }

        ScrollArea {
            id: scroll

            anchors.top: header.bottom
            anchors.bottom: screen.padShown && !screen.sideways ? pad.top : failure.top
            width: body.half
            contentHeight: column.implicitHeight

            Column {
                id: column

                x: (body.half - width) / 2
                width: body.column
                bottomPadding: Theme.unit
                spacing: 2 * Theme.unit

                Section {
                    visible: screen.pending

                    SettingRow {
                        label: screen.dialledNumber
                        description: screen.givenUp ? qsTr("Hanging up …") : qsTr("Calling …")
                        symbol: "outgoing"
                        large: true
                    }
                }

                Section {
                    visible: screen.summary.running.length > 0

                    Repeater {
                        model: screen.calls

                        CallCard {
                            required property int index

                            calls: screen.calls
                            summary: screen.summary
                            entry: index < screen.summary.count ? screen.summary.objectAt(index) as CallEntry : null
                            onTransferWanted: callId => {
                                transferSheet.callId = callId;
                                transferSheet.start(qsTr("Transfer the call"), "", qsTr("Transfer"));
                            }
                        }
                    }
                }

                Section {
                    visible: screen.summary.running.length > 0

                    SwitchRow {
                        objectName: "mute"
                        visible: screen.summary.talking
                        label: qsTr("Microphone off")
                        symbol: screen.calls.muted.value ? "mute" : "microphone"
                        checked: screen.calls.muted.value
                        busy: screen.calls.muted.busy
                        failure: Words.of(screen.calls.muted)
                        onToggled: on => screen.calls.muted.value = on
                        onRetry: screen.calls.muted.retry()
                    }

                    RequestRow {
                        objectName: "swap"
                        visible: screen.calls.canSwap
                        label: qsTr("Swap the two calls")
                        symbol: "swap"
                        onWanted: request = screen.calls.swap()
                    }

                    RequestRow {
                        objectName: "join"
                        visible: screen.calls.canJoin
                        label: qsTr("Join them to a conference")
                        symbol: "merge"
                        onWanted: request = screen.calls.join()
                    }

                    ActionRow {
                        objectName: "add-call"
                        visible: screen.summary.find(Calls.Dialling) === null
                        label: qsTr("Add call")
                        symbol: "add"
                        onPressed: {
                            screen.adding = true;
                            screen.close();
                            screen.addingWanted();
                        }
                    }

                    RequestRow {
                        objectName: "end-all"
                        // It would reject a call that rings.
                        visible: screen.several && screen.summary.ringing.length === 0
                        label: qsTr("End all")
                        symbol: "hang-up"
                        dangerous: true
                        onWanted: request = screen.calls.release(screen.summary.running[0].callId, Calls.AllCalls)
                    }
                }
            }
        }

        Column {
            id: pad

            readonly property real room: screen.sideways ? body.height - bar.height - Theme.unit : body.height / 2

            anchors.bottom: failure.top
            x: screen.sideways ? body.width - width - Theme.margin : (body.width - width) / 2
            width: Math.min((screen.sideways ? body.half : body.width) - 2 * Theme.margin, 400)
            visible: screen.padShown
            bottomPadding: Theme.unit
            spacing: Theme.unit

            PlainText {
                objectName: "tones"
                width: parent.width
                words: screen.tones
                font.pixelSize: Theme.title
                color: Theme.text
                elide: Text.ElideLeft
                horizontalAlignment: Text.AlignHCenter
                Accessible.role: Accessible.StaticText
                Accessible.name: Plain.shown(qsTr("Tones sent: %1").arg(screen.tones))
            }

            NumberPad {
                width: parent.width
                keyHeight: Math.max(44, Math.min(64, (pad.room - 2 * Theme.title - 4 * Theme.unit) / 4))
                onKeyPressed: key => screen.press(key)
                onKeyReleased: key => screen.release(key)
            }
        }

        FailureLine {
            id: failure

            anchors.bottom: bar.top
            x: (body.width - width) / 2
            width: Math.min(body.width, Theme.contentWidth)
            reason: Words.of(screen.ending) || Words.of(screen.tone)
            action: ""
        }

        // It stands here from dialling to the end.
        Row {
            id: bar

            anchors.bottom: parent.bottom
            x: (body.width - width) / 2
            width: Math.min(body.width, Theme.contentWidth) - 2 * Theme.margin
            height: Theme.row + Theme.margin
            spacing: Theme.unit

            IconButton {
                id: padButton

                objectName: "keypad"
                side: Theme.row
                // Its place stays.
                opacity: enabled ? 1 : 0
                enabled: screen.summary.talking
                symbol: "keypad"
                text: screen.keypad ? qsTr("Hide the keypad") : qsTr("Keypad")
                ground: screen.padShown ? Theme.accentSoft : Theme.surface
                onClicked: screen.keypad = !screen.keypad
            }

            PushButton {
                objectName: "hang-up"
                width: parent.width - padButton.width - parent.spacing
                height: Theme.row
                symbol: "hang-up"
                text: qsTr("Hang up")
                filled: true
                dangerous: true
                enabled: !screen.givenUp && !(screen.ending !== null && screen.ending.busy)
                onClicked: screen.hangUp()
            }
        }
    }

    NumberSheet {
        id: transferSheet

        property int callId: 0

        z: screen.z + 0.5
        onAccepted: {
            screen.ending = screen.calls.transfer(callId, number);
            close();
        }
    }
}
