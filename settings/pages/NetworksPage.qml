// Network selection: how the phone looks for a network, and those around it.
import QtQuick
import Kvq.CallSetup
import Kvq.Settings
import Kvq.Settings.Controls

PhonePage {
    id: page

    property Request search: null
    readonly property bool automatic: networks.searchMode.value === NetworkSelection.Automatic
    /** Whether a network can be chosen. */
    readonly property bool choosing: networks.searchMode.known && !networks.searchMode.busy && !automatic
    /** Somebody has said once that the home network may be left. */
    property bool mayLeaveHome: false

    /** Whether the network in use is the home network. */
    function isHome(): bool {
        for (let row = 0; row < found.count; ++row) {
            const network = found.itemAt(row);
            if (network.status === NetworkSelection.Registered)
                return network.home;
        }
        return false;
    }

    NetworkSelection {
        id: networks
    }

    function statusText(status: int, home: bool): string {
        if (status === NetworkSelection.Registered)
            return home ? qsTr("In use, home network") : qsTr("In use");
        if (status === NetworkSelection.Forbidden)
            return qsTr("Not allowed");
        if (home)
            return qsTr("Home network");
        return status === NetworkSelection.Available ? qsTr("Available") : "";
    }

    Section {
        heading: qsTr("Selection")

        SettingValue {
            setting: networks.serviceProvider
            label: qsTr("Provider")
        }

        SettingOnOff {
            objectName: "automatic"
            setting: networks.searchMode
            label: qsTr("Automatic")
            description: qsTr("The phone chooses the network")
            on: NetworkSelection.Automatic
            off: NetworkSelection.Manual
        }
    }

    // What is in use follows from how it is chosen.
    Connections {
        target: networks.searchMode

        function onConfirmed() {
            networks.refresh();
        }
    }

    Section {
        heading: qsTr("Networks around")
        note: networks.count > 0 && page.automatic ? qsTr("To choose one, turn “Automatic” off.") : ""

        Repeater {
            id: found

            model: networks

            ActionRow {
                id: row

                required property string networkId
                required property string name
                required property int status
                required property bool home

                property Request request: null

                function register(): void {
                    request = networks.registerOn(networkId);
                }

                function choose(): void {
                    if (page.isHome() && !home && !page.mayLeaveHome) {
                        leaving.networkId = networkId;
                        leaving.ask();
                    } else {
                        register();
                    }
                }

                objectName: "found:" + networkId
                pressable: page.choosing && status !== NetworkSelection.Registered && status !== NetworkSelection.Forbidden
                ink: status === NetworkSelection.Forbidden || networks.stale ? Theme.quiet : Theme.text
                label: name !== "" ? name : networkId
                description: page.statusText(status, home)
                busy: request !== null && request.busy
                failure: Words.of(request)
                onPressed: choose()
                onRetry: choose()

                Connections {
                    target: row.request

                    function onFinished() {
                        networks.refresh();
                    }
                }

                Icon {
                    anchors.verticalCenter: parent.verticalCenter
                    visible: row.status === NetworkSelection.Registered
                    symbol: "check"
                    color: Theme.accent
                }
            }
        }

        // Nothing found is no failure: nobody may have searched.
        EmptyRow {
            objectName: "outdated"
            subject: networks
            visible: outdated
        }

        ActionRow {
            objectName: "search"
            symbol: networks.searching ? "remove" : "search"
            label: networks.searching ? qsTr("Stop searching") : qsTr("Search for networks")
            description: networks.searching ? qsTr("This may take a minute or two.") : ""
            busy: networks.searching
            failure: Words.of(page.search)
            onPressed: {
                if (networks.searching)
                    networks.cancelSearch();
                else
                    page.search = networks.search();
            }
            onRetry: page.search = networks.search()
        }
    }

    Section {
        heading: qsTr("Radio")

        SettingChoice {
            setting: networks.searchSpeed
            label: qsTr("Look for a better network")
            choices: [
                { value: NetworkSelection.Slow, text: qsTr("Rarely, saves power") },
                { value: NetworkSelection.Medium, text: qsTr("Now and then") },
                { value: NetworkSelection.Fast, text: qsTr("Often") },
                { value: NetworkSelection.Continuous, text: qsTr("All the time") }
            ]
        }

        SettingChoice {
            setting: networks.band
            label: qsTr("Frequency band")
            choices: [
                { value: NetworkSelection.AutomaticBand, text: qsTr("Automatic") },
                { value: NetworkSelection.Gsm900And1800, text: qsTr("GSM 900 and 1800") },
                { value: NetworkSelection.Gsm850And1900, text: qsTr("GSM 850 and 1900") },
                { value: NetworkSelection.Wcdma, text: qsTr("WCDMA") }
            ]
        }

        SettingSwitch {
            setting: networks.serviceTone
            label: qsTr("Tone when service comes or goes")
        }
    }

    ConfirmSheet {
        id: leaving

        property string networkId

        title: qsTr("Leave the home network?")
        text: qsTr("Calls in another network may cost more.")
        action: qsTr("Leave")
        onConfirmed: {
            page.mayLeaveHome = true;
            // The list may have been read again since.
            for (let row = 0; row < found.count; ++row) {
                if (found.itemAt(row).networkId === networkId)
                    found.itemAt(row).register();
            }
        }
    }
}
