// One call: who it is with, how it stands, and what can be done to it.
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
    required property bool canAnswer
    required property bool canHold
    required property bool canRetrieve
    required property bool canSplit
    required property bool canTransfer
    property Calls calls: null
    property Request request: null

    signal transferWanted(int callId)

    readonly property bool ringing: callState === Calls.Ringing
    readonly property string stateText: {
        switch (callState) {
        case Calls.Dialling:
            return qsTr("Calling …");
        case Calls.Ringing:
            return qsTr("Incoming call");
        case Calls.Active:
            return joined ? qsTr("Active, in the conference") : qsTr("Active");
        case Calls.Held:
            return joined ? qsTr("On hold, in the conference") : qsTr("On hold");
        default:
            return qsTr("Ended");
        }
    }

    width: parent ? parent.width : implicitWidth

    SettingRow {
        lined: card.y > 0
        label: card.number !== "" ? card.number : qsTr("Unknown number")
        description: card.stateText
        symbol: card.incoming ? "incoming" : "outgoing"
        // What is asked of one call may change the others too.
        busy: card.calls !== null && card.calls.busy
        large: true
    }

    Flow {
        id: flow

        readonly property real half: (width - spacing) / 2
        /** Hanging up takes what the others leave of the last line. */
        readonly property int others: Number(card.canAnswer) + Number(card.canHold) + Number(card.canRetrieve)
            + Number(card.canSplit) + Number(card.canTransfer)

        x: Theme.margin
        width: parent.width - 2 * Theme.margin
        bottomPadding: Theme.margin
        spacing: Theme.unit

        PushButton {
            objectName: "answer"
            width: flow.half
            visible: card.canAnswer
            symbol: "calls"
            text: qsTr("Answer")
            filled: true
            onClicked: card.request = card.calls.answer(card.callId)
        }

        PushButton {
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
            width: flow.half
            visible: card.canSplit
            symbol: "split"
            text: qsTr("Split off")
            onClicked: card.request = card.calls.split(card.callId)
        }

        PushButton {
            width: flow.half
            visible: card.canTransfer
            symbol: "transfer"
            text: qsTr("Transfer")
            onClicked: card.transferWanted(card.callId)
        }

        PushButton {
            objectName: "hang-up"
            width: flow.others % 2 === 1 ? flow.half : flow.width
            symbol: "hang-up"
            text: card.ringing ? qsTr("Reject") : qsTr("Hang up")
            filled: true
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
