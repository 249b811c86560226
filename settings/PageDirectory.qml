// The pages, in the groups in which the list shows them. What the product lacks is not offered.
import QtQml
import Kvq.CallSetup
import Kvq.Settings

QtObject {
    id: directory

    required property Features features

    readonly property list<PageEntry> calls: [
        PageEntry {
            name: "calls"
            title: qsTr("Calls")
            symbol: "calls"
            file: "CallsPage.qml"
        },
        PageEntry {
            name: "preferences"
            title: qsTr("Call preferences")
            symbol: "preferences"
            file: "PreferencesPage.qml"
        },
        PageEntry {
            name: "speed-dial"
            title: qsTr("Speed dial")
            symbol: "speed"
            file: "SpeedDialPage.qml"
        },
        PageEntry {
            name: "video"
            title: qsTr("Video calls")
            symbol: "video"
            file: "VideoPage.qml"
            offered: Product.video
        }
    ]

    readonly property list<PageEntry> services: [
        PageEntry {
            name: "forwarding"
            title: qsTr("Call forwarding")
            symbol: "forwarding"
            file: "ForwardingPage.qml"
            offered: directory.features.forwarding
        },
        PageEntry {
            name: "caller-id"
            title: qsTr("Caller ID and waiting")
            symbol: "caller"
            file: "CallerIdPage.qml"
            offered: directory.features.callerId || directory.features.callWaiting
        },
        PageEntry {
            name: "costs"
            title: qsTr("Call costs")
            symbol: "costs"
            file: "CostsPage.qml"
            offered: directory.features.callCosts
        }
    ]

    readonly property list<PageEntry> sim: [
        PageEntry {
            name: "lines"
            title: qsTr("Lines")
            symbol: "lines"
            file: "LinesPage.qml"
            offered: directory.features.lines
        },
        PageEntry {
            name: "security"
            title: qsTr("SIM security")
            symbol: "security"
            file: "SecurityPage.qml"
        },
        PageEntry {
            name: "own-numbers"
            title: qsTr("Own numbers and accounts")
            symbol: "numbers"
            file: "OwnNumbersPage.qml"
            offered: directory.features.ownNumbers || directory.features.usimAccounts
        }
    ]

    readonly property list<PageEntry> network: [
        PageEntry {
            name: "networks"
            title: qsTr("Network selection")
            symbol: "network"
            file: "NetworksPage.qml"
            offered: directory.features.networkSelection
        },
        PageEntry {
            name: "preferred"
            title: qsTr("Preferred networks")
            symbol: "preferred"
            file: "PreferredPage.qml"
            offered: directory.features.preferredNetworks
        },
        PageEntry {
            name: "about"
            title: qsTr("About the phone")
            symbol: "about"
            file: "AboutPage.qml"
        }
    ]

    readonly property var groups: [
        { heading: qsTr("Calls"), pages: calls },
        { heading: qsTr("Network services"), pages: services },
        { heading: qsTr("SIM card"), pages: sim },
        { heading: qsTr("Network and phone"), pages: network }
    ]

    readonly property var offered: {
        const found = [];
        for (const group of groups) {
            for (let row = 0; row < group.pages.length; ++row) {
                if (group.pages[row].offered)
                    found.push(group.pages[row]);
            }
        }
        return found;
    }

    function find(name: string): PageEntry {
        for (const page of offered) {
            if (page.name === name)
                return page;
        }
        return null;
    }
}
