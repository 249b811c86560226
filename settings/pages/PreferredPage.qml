// Preferred networks: the SIM's list in the order in which the modem tries them. A network is moved by its handle, with
// a finger or with the arrow keys.
import QtQuick
import QtQml.Models
import Kvq.CallSetup
import Kvq.Settings
import Kvq.Settings.Controls

PhonePage {
    id: page

    property Request request: null
    /** The network that was removed last, and where it stood. */
    property Request removal: null
    property string removed
    property int removedRow: 0
    /** The networks that were found. */
    property var found: []

    function nameOf(networkId: string): string {
        return found.find(network => network.networkId === networkId)?.name ?? "";
    }

    /** Those that may be used and that the SIM's list lacks. */
    function candidates(): var {
        return found.filter(network => !list.has(network.networkId) && network.status !== NetworkSelection.Forbidden);
    }

    function remove(row: int): void {
        removed = list.networkAt(row);
        removedRow = row;
        removal = networks.remove(row);
        request = removal;
    }

    busy: request !== null && request.busy

    PreferredNetworks {
        id: networks
    }

    Instantiator {
        id: around

        function collect(): void {
            const list = [];
            for (let row = 0; row < count; ++row)
                list.push(objectAt(row));
            page.found = list.filter(network => network !== null);
        }

        model: NetworkSelection {}
        onObjectAdded: collect()
        onObjectRemoved: collect()

        QtObject {
            required property string networkId
            required property string name
            required property int status
        }
    }

    Section {
        heading: qsTr("Tried first to last")
        note: networks.count > 1
            ? qsTr("Drag a network by its handle to move it. With a keyboard: Control and an arrow key on the handle.")
            : ""

        PreferredList {
            id: list

            networks: networks
            view: page.scrollArea
            nameOf: networkId => page.nameOf(networkId)
            onMoved: (from, to) => page.request = networks.move(from, to)
            onRemoved: row => page.remove(row)
        }

        EmptyRow {
            subject: networks
            text: qsTr("No preferred networks")
            meaning: qsTr("The phone takes the strongest network that it may use.")
        }

        ActionRow {
            objectName: "undo"
            visible: page.removal !== null && page.removal === page.request && page.removal.state === CallSetup.Ready
            label: qsTr("Undo")
            description: qsTr("%1 is removed.").arg(page.nameOf(page.removed) || page.removed)
            onPressed: page.request = networks.insert(page.removedRow, page.removed)
        }

        FailureLine {
            width: parent.width
            reason: Words.of(page.request)
            action: qsTr("Read again")
            onRetry: {
                page.request = null;
                networks.refresh();
            }
        }
    }

    Section {
        note: networks.capacity > 0 ? qsTr("%1 of %2 places on the SIM are taken.").arg(networks.count).arg(networks.capacity) : ""

        ActionRow {
            objectName: "add"
            symbol: "add"
            label: qsTr("Add a network")
            enabled: networks.capacity === 0 || networks.count < networks.capacity
            onPressed: sheet.start()
        }

        ActionRow {
            visible: networks.count > 0
            label: qsTr("Remove all")
            dangerous: true
            onPressed: sure.ask()
        }
    }

    ConfirmSheet {
        id: sure

        title: qsTr("Remove all?")
        text: qsTr("The list on the SIM is then empty.")
        action: qsTr("Remove")
        onConfirmed: page.request = networks.clear()
    }

    Sheet {
        id: sheet

        /** The network is named by its code, and not chosen among those that were found. */
        property bool byCode: true
        property var candidates: []

        function start(): void {
            code.text = "";
            candidates = page.candidates();
            byCode = candidates.length === 0;
            ask();
            if (byCode)
                code.input.forceActiveFocus();
            else
                cancelButton.forceActiveFocus();
        }

        function add(networkId: string): void {
            page.request = networks.add(networkId);
            close();
        }

        title: qsTr("Add a network")
        text: byCode ? qsTr("Country code and network code, five or six digits.") : ""
        action: qsTr("Add")
        padded: byCode
        ready: byCode && code.text.length >= 5
        onAccepted: add(code.text)

        Column {
            width: parent.width
            visible: !sheet.byCode

            Repeater {
                model: sheet.candidates

                ActionRow {
                    required property var modelData

                    objectName: "candidate:" + modelData.networkId
                    ink: Theme.text
                    label: modelData.name !== "" ? modelData.name : modelData.networkId
                    description: modelData.name !== "" ? modelData.networkId : ""
                    onPressed: sheet.add(modelData.networkId)
                }
            }

            ActionRow {
                objectName: "by-code"
                label: qsTr("Another one, by its code")
                onPressed: {
                    sheet.byCode = true;
                    code.input.forceActiveFocus();
                }
            }
        }

        Field {
            id: code

            visible: sheet.byCode
            label: qsTr("Network code")
            digits: true
            maximumLength: 6
            onAccepted: sheet.accept()
        }

        SheetPad {
            sheet: sheet
            visible: sheet.byCode && !beside
            dial: false
            onKeyPressed: key => code.type(key)
            onTakeBack: code.takeBack()
        }
    }
}
