// Call forwarding: by condition and class of service.
import QtQuick
import Kvq.CallSetup
import Kvq.Settings
import Kvq.Settings.Controls

PhonePage {
    id: page

    readonly property bool allForwarded: forwarding.unconditional.known && forwarding.unconditional.active

    notice: forwarding.available ? "" : Words.sentence(CallSetup.NotSupported)

    readonly property var kinds: [
        { value: CallForwarding.Voice, text: qsTr("Voice") },
        { value: CallForwarding.Data, text: qsTr("Data") },
        { value: CallForwarding.Fax, text: qsTr("Fax") }
    ]

    CallForwarding {
        id: forwarding
    }

    pinned: Segments {
        label: qsTr("Kind of call")
        choices: page.kinds.filter(kind => Product.fax || kind.value !== CallForwarding.Fax)
        current: forwarding.serviceClass
        onPicked: value => forwarding.serviceClass = value
    }

    Section {
        heading: qsTr("Forward calls")
        note: qsTr("Forwarding is kept by the network and holds while the phone is off.")

        ForwardingRow {
            objectName: "always"
            rule: forwarding.unconditional
            label: qsTr("Always")
            onPressed: sheet.edit(rule, label)
        }

        ForwardingRow {
            objectName: "when-busy"
            rule: forwarding.whenBusy
            overruled: page.allForwarded
            label: qsTr("When busy")
            onPressed: sheet.edit(rule, label)
        }

        ForwardingRow {
            objectName: "no-reply"
            rule: forwarding.noReply
            overruled: page.allForwarded
            label: qsTr("When not answered")
            onPressed: sheet.edit(rule, label)
        }

        ForwardingRow {
            rule: forwarding.notReachable
            overruled: page.allForwarded
            label: qsTr("When not reachable")
            onPressed: sheet.edit(rule, label)
        }
    }

    Section {
        RequestRow {
            label: forwarding.serviceClass === CallForwarding.Voice ? qsTr("Turn off all forwarding of voice calls")
                                                                    : qsTr("Turn off all forwarding")
            dangerous: true
            question: ConfirmSheet {
                title: qsTr("Turn off forwarding?")
                text: forwarding.serviceClass === CallForwarding.Voice
                    ? qsTr("The numbers are not kept.")
                    : Product.fax ? qsTr("That of voice calls, data and fax. The numbers are not kept.")
                    : qsTr("That of voice calls and data. The numbers are not kept.")
                action: qsTr("Turn off")
            }
            onWanted: request = forwarding.cancelAll()
        }
    }

    NumberSheet {
        id: sheet

        property ForwardingRule rule: null
        property int seconds: 0

        readonly property bool timed: rule !== null && rule === forwarding.noReply
            && forwarding.serviceClass === CallForwarding.Voice

        /** How long it rings where nothing else is known: long enough to be heard. */
        readonly property int usualSeconds: 20

        function edit(rule: ForwardingRule, heading: string): void {
            sheet.rule = rule;
            seconds = rule.noReplyTime !== 0 ? rule.noReplyTime : usualSeconds;
            start(heading, rule.number, rule.active ? qsTr("Save") : qsTr("Turn on"));
        }

        label: qsTr("Forward to")
        onAccepted: {
            rule.activate(number, timed ? seconds : 0);
            close();
        }

        more: [
            Segments {
                visible: sheet.timed
                label: qsTr("Wait before forwarding")
                labelled: true
                choices: [
                    { value: 5, text: qsTr("5 s") },
                    { value: 10, text: qsTr("10 s") },
                    { value: 20, text: qsTr("20 s") }
                ]
                current: sheet.seconds
                onPicked: value => sheet.seconds = value
            },
            PushButton {
                width: parent ? parent.width : implicitWidth
                visible: sheet.rule !== null && sheet.rule.active
                text: qsTr("Turn off")
                dangerous: true
                onClicked: {
                    sheet.rule.deactivate();
                    sheet.close();
                }
            }
        ]
    }
}
