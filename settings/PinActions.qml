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

    width: parent ? parent.width : implicitWidth

    PinRow {
        objectName: "enter-" + actions.shortName
        which: actions.which
        lined: true
        label: actions.labels[0]
        done: qsTr("The SIM took it.")
        sheet: actions.sheet
        prompts: [actions.names[0]]
        verb: qsTr("OK")
        onEntered: pin => request = actions.pins.verify(actions.which, pin)
    }

    PinRow {
        objectName: "change-" + actions.shortName
        which: actions.which
        label: actions.labels[1]
        done: qsTr("Changed.")
        sheet: actions.sheet
        prompts: [actions.names[1], actions.names[2], actions.names[3]]
        verb: qsTr("Change")
        onEntered: (oldPin, newPin) => request = actions.pins.change(actions.which, oldPin, newPin)
    }

    PinRow {
        objectName: "unblock-" + actions.shortName
        which: actions.which
        label: actions.labels[2]
        done: qsTr("Unblocked. The new one holds.")
        sheet: actions.sheet
        prompts: [actions.names[4], actions.names[2], actions.names[3]]
        puk: true
        verb: qsTr("Unblock")
        onEntered: (puk, newPin) => request = actions.pins.unblock(actions.which, puk, newPin)
    }
}
