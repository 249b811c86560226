// Preferred networks: the SIM's list in the order in which the modem tries them. A network is moved by its handle, with
// a finger or with the arrow keys.
import QtQuick
import Kvq.CallSetup
import Kvq.Settings
import Kvq.Settings.Controls

PhonePage {
    id: page

    property Request request: null

    busy: request !== null && request.busy

    PreferredNetworks {
        id: networks
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
            onMoved: (from, to) => page.request = networks.move(from, to)
            onRemoved: row => page.request = networks.remove(row)
        }

        EmptyRow {
            subject: networks
            text: qsTr("No preferred networks")
            meaning: qsTr("The phone takes the strongest network that it may use.")
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

        function start(): void {
            code.text = "";
            ask();
            code.input.forceActiveFocus();
        }

        title: qsTr("Add a network")
        text: qsTr("Country code and network code, five or six digits.")
        action: qsTr("Add")
        ready: code.text.length >= 5
        onAccepted: {
            page.request = networks.add(code.text);
            close();
        }

        Field {
            id: code

            label: qsTr("Network code")
            digits: true
            maximumLength: 6
            onAccepted: sheet.accept()
        }

        NumberPad {
            width: parent.width
            dial: false
            keyHeight: 48
            ground: Theme.window
            onKeyPressed: key => code.type(key)
            onTakeBack: code.takeBack()
        }
    }
}
