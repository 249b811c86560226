// What can be done with one of the PINs.
import QtQuick
import Kvq.CallSetup

Column {
    id: actions

    required property int which
    required property SimPins pins
    required property PinRequestSheet sheet
    required property string shortName
    /** What can be done: to enter, change and unblock the PIN. */
    required property var labels
    /** What the PIN, the old one, the new one, its repetition and the PUK are called. */
    required property var names

    /** Whether there is something to enter: nothing is where the SIM does not ask. */
    property bool asked: true
    /** Of SimPins.PinStatus, where the SIM tells it. */
    property int status: SimPins.NotVerified
    readonly property bool blocked: status === SimPins.Blocked || Tries.isBlocked(which)

    width: parent ? parent.width : implicitWidth

    PinRow {
        objectName: "enter-" + actions.shortName
        visible: actions.asked && !actions.blocked
        which: actions.which
        lined: true
        remedy: unblock.question
        label: actions.labels[0]
        done: qsTr("The SIM took it.")
        sheet: actions.sheet
        prompts: [actions.names[0]]
        verb: qsTr("OK")
        onEntered: pin => request = actions.pins.verify(actions.which, pin)
    }

    PinRow {
        id: change

        objectName: "change-" + actions.shortName
        visible: !actions.blocked
        which: actions.which
        lined: true
        remedy: unblock.question
        label: actions.labels[1]
        done: qsTr("Changed.")
        sheet: actions.sheet
        prompts: [actions.names[1], actions.names[2], actions.names[3]]
        verb: qsTr("Change")
        onEntered: (oldPin, newPin) => request = actions.pins.change(actions.which, oldPin, newPin)
    }

    PinRow {
        id: unblock

        objectName: "unblock-" + actions.shortName
        visible: actions.blocked
        which: actions.which
        lined: true
        label: actions.labels[2]
        done: qsTr("Unblocked. Use the new PIN from now on.")
        reason: qsTr("The PUK came with the SIM. After ten wrong PUKs the SIM can no longer be used.")
        sheet: actions.sheet
        prompts: [actions.names[4], actions.names[2], actions.names[3]]
        puk: true
        verb: qsTr("Unblock")
        onSucceeded: change.description = done // this row goes
        onEntered: (puk, newPin) => request = actions.pins.unblock(actions.which, puk, newPin)
    }
}
