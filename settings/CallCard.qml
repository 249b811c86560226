// One call that runs: who it is with, how it stands and for how long, and what can be done to it.
import QtQuick
import Kvq.CallSetup
import Kvq.Settings.Controls

Column {
    id: card

    required property int callId
    required property string number
    required property int callState
    required property bool incoming
    required property bool joined
    required property bool canHold
    required property bool canRetrieve
    required property bool canSplit
    required property bool canTransfer
    property Calls calls: null
    property CallSummary summary: null
    property CallEntry entry: null
    property Request request: null

    signal transferWanted(int callId)

    readonly property string stateText: summary !== null ? summary.describe(callState, joined) : ""
    readonly property string time: summary !== null && entry !== null ? summary.timeOf(entry) : ""
    /** Hanging up has its place at the bottom; only where there are several, each can be ended by itself too. */
    readonly property bool canEnd: summary !== null && summary.running.length > 1

    width: parent ? parent.width : implicitWidth
    visible: !(incoming && callState === Calls.Ringing)

    SettingRow {
        lined: card.y > 0
        label: card.number !== "" ? card.number : qsTr("Unknown number")
        description: card.time !== "" ? qsTr("%1 · %2").arg(card.stateText).arg(card.time) : card.stateText
        symbol: card.incoming ? "incoming" : "outgoing"
        // What is asked of one call may change the others too.
        busy: card.calls !== null && card.calls.busy
        large: true
    }

    Flow {
        id: flow

        readonly property real half: (width - spacing) / 2

        x: Theme.margin
        width: parent.width - 2 * Theme.margin
        visible: card.canHold || card.canRetrieve || card.canSplit || card.canTransfer || card.canEnd
        bottomPadding: Theme.margin
        spacing: Theme.unit

        PushButton {
            objectName: "hold"
            width: flow.half
            visible: card.canHold
            symbol: "pause"
            text: qsTr("Hold")
            onClicked: card.request = card.calls.hold(card.callId)
        }

        PushButton {
            width: flow.half
            visible: card.canRetrieve
            symbol: "play"
            text: qsTr("Resume")
            onClicked: card.request = card.calls.retrieve(card.callId)
        }

        PushButton {
            objectName: "transfer"
            width: flow.half
            visible: card.canTransfer
            symbol: "transfer"
            text: qsTr("Transfer")
            onClicked: card.transferWanted(card.callId)
        }

        PushButton {
            width: flow.half
            visible: card.canSplit
            symbol: "split"
            text: qsTr("Split off")
            onClicked: card.request = card.calls.split(card.callId)
        }

        PushButton {
            objectName: "end"
            width: flow.half
            visible: card.canEnd
            symbol: "hang-up"
            text: qsTr("End")
            dangerous: true
            onClicked: card.request = card.calls.hangUp(card.callId)
        }
    }

    FailureLine {
        width: parent.width
        reason: Words.of(card.request)
        action: ""
    }
}
