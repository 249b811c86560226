// The own numbers of the SIM, and its accounts.
import QtQuick
import Kvq.CallSetup
import Kvq.Settings
import Kvq.Settings.Controls

PhonePage {
    id: page

    OwnNumbers {
        id: numbers
    }

    UsimAccounts {
        id: accounts
    }

    Section {
        heading: qsTr("Own numbers")
        note: qsTr("The SIM keeps them for you to look up. They do not change your line.")
        visible: numbers.available

        Repeater {
            model: numbers

            EntryRow {
                id: row

                required property int line
                required property string number
                required property string name

                property Request request: null

                objectName: "number" + line
                label: name !== "" ? name : qsTr("Number %1").arg(line)
                value: number !== "" ? number : qsTr("Empty")
                dim: numbers.stale
                busy: request !== null && request.busy
                failure: Words.of(request)
                onPressed: sheet.edit(row)
                onRetry: sheet.edit(row)
            }
        }

        EmptyRow {
            subject: numbers
            text: qsTr("No numbers")
            meaning: qsTr("The SIM has no room for own numbers.")
        }
    }

    Section {
        heading: qsTr("Accounts of the SIM")
        visible: accounts.available

        Repeater {
            model: accounts

            SettingRow {
                required label
                required property bool active

                value: active ? qsTr("In use") : ""
                dim: accounts.stale
            }
        }

        EmptyRow {
            subject: accounts
            text: qsTr("No accounts")
            meaning: qsTr("The SIM has a single subscription.")
        }
    }

    NumberSheet {
        id: sheet

        property var row: null

        function edit(row: var): void {
            sheet.row = row;
            name.text = row.name;
            start(qsTr("Number %1").arg(row.line), row.number, qsTr("Save"));
        }

        maximumLength: numbers.maxNumberLength > 0 ? numbers.maxNumberLength : 41
        onAccepted: {
            row.request = numbers.setNumber(row.line, number, name.text);
            close();
        }

        more: [
            Field {
                id: name

                label: qsTr("Name")
                maximumLength: numbers.maxNameLength > 0 ? numbers.maxNameLength : 50
                onAccepted: sheet.accept()
            },
            PushButton {
                width: parent ? parent.width : implicitWidth
                visible: sheet.row !== null && sheet.row.number !== ""
                text: qsTr("Erase")
                dangerous: true
                onClicked: {
                    sheet.row.request = numbers.removeNumber(sheet.row.line);
                    sheet.close();
                }
            }
        ]
    }
}
