// Speed dial: the nine slots.
import QtQuick
import Kvq.CallSetup
import Kvq.Settings
import Kvq.Settings.Controls

PhonePage {
    id: page

    busy: slots.count === 0 && slots.busy

    SpeedDial {
        id: slots
    }

    Section {

        Repeater {
            model: slots

            EntryRow {
                id: row

                required property int slot
                required property string number
                required property string dialled
                required property bool oneTouch

                property Request request: null

                objectName: "slot" + slot
                label: qsTr("Key %1").arg(slot)
                value: number !== "" ? number : qsTr("Empty")
                description: oneTouch ? qsTr("The one-touch number %1 goes first").arg(dialled) : ""
                known: slots.state !== CallSetup.Unknown
                busy: request !== null && request.busy
                failure: Words.of(request)
                onPressed: {
                    sheet.row = row;
                    sheet.start(qsTr("Key %1").arg(slot), number, qsTr("Save"));
                }
                onRetry: {
                    sheet.row = row;
                    sheet.start(qsTr("Key %1").arg(slot), sheet.number, qsTr("Save"));
                }
            }
        }

        FailureLine {
            width: parent.width
            reason: slots.count === 0 ? Words.of(slots) : ""
            onRetry: slots.refresh()
        }
    }

    NumberSheet {
        id: sheet

        property var row: null

        optional: true
        text: qsTr("Without a number the key is empty.")
        onAccepted: {
            row.request = slots.setNumber(row.slot, number);
            close();
        }
    }
}
