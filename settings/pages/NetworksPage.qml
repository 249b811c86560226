// Network selection: how the phone looks for a network, and those around it.
import QtQuick
import Kvq.CallSetup
import Kvq.Settings
import Kvq.Settings.Controls

PhonePage {
    id: page

    property Request search: null

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

        SettingChoice {
            objectName: "search-mode"
            setting: networks.searchMode
            label: qsTr("Choose a network")
            choices: [
                { value: NetworkSelection.Automatic, text: qsTr("Automatically") },
                { value: NetworkSelection.Manual, text: qsTr("By hand") }
            ]
        }
    }

    Section {
        heading: qsTr("Networks around")

        Repeater {
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

                ink: Theme.text
                symbol: "network"
                label: name !== "" ? name : networkId
                description: page.statusText(status, home)
                busy: request !== null && request.busy
                failure: Words.of(request)
                onPressed: register()
                onRetry: register()

                Icon {
                    anchors.verticalCenter: parent.verticalCenter
                    visible: row.status === NetworkSelection.Registered
                    symbol: "check"
                    color: Theme.accent
                }
            }
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
}
