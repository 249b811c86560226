// Uses every type, so that the tools that read QML are tested to know them.
import QtQuick
import Kvq.CallSetup

Item {
    id: root

    property Request pending: null
    property bool sent: false
    readonly property bool anyBusy: CallSetup.busy || preferences.busy || forwarding.unconditional.busy
    readonly property string words: CallSetup.resultText(CallSetup.PinBlocked) + preferences.roamingAlert.error
    readonly property BoolSetting row: preferences.roamingAlert
    readonly property IntSetting timer: preferences.audibleTimer
    readonly property TextSetting prefix: preferences.nationalPrefix
    readonly property Setting any: forwarding.noReply
    readonly property bool hides: callerId.restriction.value === CallerId.Invoke
    readonly property bool blocked: pins.pin2Status.value === SimPins.Blocked
    readonly property var named: [
        CallPreferences.Anywhere, CallPreferences.Hyphenated, CallPreferences.LongTones, CallPreferences.NoText,
        CallCosts.Currency, CallCosts.Shown, SpeedDial.OnSim
    ]
    readonly property string price: costs.price.unitPrice + costs.price.currency
    readonly property bool known: rule(forwarding.whenBusy) && preferences.state === CallSetup.Ready

    function rule(rule: ForwardingRule): bool {
        return rule.known && rule.condition !== CallForwarding.NoReply
    }

    CallPreferences { id: preferences; autoRefresh: false; onFlashFull: root.pending = null }
    VideoCallSettings { id: video; Component.onCompleted: video.useNoImage() }
    CallForwarding { id: forwarding; serviceClass: CallForwarding.Voice }
    CallCosts { id: costs }
    CallerId { id: callerId }
    CallWaiting { id: waiting }
    FixedDialling { id: fixedDialling }
    Lines { id: lines }
    ServiceCodes { id: codes; onStateChanged: root.sent = root.pending?.value?.kind === ServiceCodes.ServiceRequest }
    SimPins { id: pins }
    DeviceIdentity { id: identity }
    Features { id: features }
    SpeedDial { id: speedDial }
    OwnNumbers { id: numbers }
    UsimAccounts { id: accounts }
    NetworkSelection { id: networks }
    PreferredNetworks { id: preferred }
    Calls {
        id: calls
        interval: 250
        onCallAdded: (callId, number, incoming) => {
            if (incoming)
                root.pending = calls.answer(callId, Calls.ReleaseActive)
        }
    }

    ListView {
        model: calls
        delegate: Text {
            id: call
            required property int callId
            required property string number
            required property int callState
            required property bool canHold
            text: call.callState === Calls.Held ? call.number : String(call.callId)
            enabled: call.canHold
        }
    }

    Connections {
        target: root.pending
        function onFinished() {
            if (root.pending.result === CallSetup.PinRejected)
                root.pending = pins.verify(SimPins.Pin1, "")
        }
    }

    Component.onCompleted: {
        preferences.roamingAlert.value = features.ready && identity.available
        waiting.enabled.value = lines.current.value === 2
        forwarding.noReply.activate("123", 10)
        costs.price.setPrice("0.10", "EUR")
        networks.searchMode.value = NetworkSelection.Manual
        pending = preferred.move(0, speedDial.count + numbers.count + accounts.count)
        pending = fixedDialling.setEnabled(true, "")
        pending.cancel()
    }
}
