// Speed dial: the nine slots.
import QtQuick
import Kvq.CallSetup
import Kvq.Settings
import Kvq.Settings.Controls

PhonePage {
    id: page

    function locationText(location: int): string {
        return location === SpeedDial.OnPhone ? qsTr("Also kept on the phone")
            : location === SpeedDial.OnSim ? qsTr("Also kept on the SIM") : "";
    }

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
                required property int location

                property Request request: null
                property Request locationRequest: null

                objectName: "slot" + slot
                label: qsTr("Key %1").arg(slot)
                value: number !== "" ? number : qsTr("Empty")
                description: oneTouch ? qsTr("The one-touch number %1 goes first").arg(dialled)
                    : number !== "" ? page.locationText(location) : ""
                dim: slots.stale
                busy: (request !== null && request.busy) || (locationRequest !== null && locationRequest.busy)
                failure: Words.of(request) || Words.of(locationRequest)
                onPressed: sheet.edit(row, number)
                onRetry: sheet.edit(row, sheet.row === row ? sheet.number : number)
            }
        }

        EmptyRow {
            subject: slots
        }
    }

    NumberSheet {
        id: sheet

        property var row: null
        property int location: SpeedDial.Nowhere

        function edit(row: var, number: string): void {
            sheet.row = row;
            location = row.location;
            start(qsTr("Key %1").arg(row.slot), number, qsTr("Save"));
        }

        optional: true
        onAccepted: {
            row.request = slots.setNumber(row.slot, number);
            row.locationRequest = location !== row.location ? slots.setLocation(row.slot, location) : null;
            close();
        }

        more: Segments {
            label: qsTr("A copy on")
            labelled: true
            choices: [
                { value: SpeedDial.OnPhone, text: qsTr("Phone") },
                { value: SpeedDial.OnSim, text: qsTr("SIM") },
                { value: SpeedDial.Nowhere, text: qsTr("No copy") }
            ]
            current: sheet.location
            onPicked: value => sheet.location = value
        }
    }
}
