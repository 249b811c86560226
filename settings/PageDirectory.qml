// The pages, in the groups in which the list shows them. What the product lacks is not offered.
import QtQml
import Kvq.CallSetup
import Kvq.Settings

QtObject {
    id: directory

    required property Features features
    readonly property Glance glance: Glance {
        features: directory.features
    }

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
            settings: [
                qsTranslate("PreferencesPage", "Answer automatically"),
                qsTranslate("PreferencesPage", "Redial automatically"),
                qsTranslate("PreferencesPage", "Add the national prefix"),
                qsTranslate("PreferencesPage", "Group the digits of numbers"),
                qsTranslate("PreferencesPage", "Keypad tones in a call"),
                qsTranslate("PreferencesPage", "Search names"),
                qsTranslate("PreferencesPage", "Remind of missed calls"),
                qsTranslate("PreferencesPage", "Message alert during a call"),
                qsTranslate("PreferencesPage", "Alert when roaming"),
                qsTranslate("PreferencesPage", "Tone when a call drops"),
                qsTranslate("PreferencesPage", "Tone during a call"),
                qsTranslate("PreferencesPage", "Hearing aid"),
                qsTranslate("PreferencesPage", "Text telephone"),
                Product.flip ? qsTranslate("PreferencesPage", "Answer by opening the phone") : "",
                Product.anyKey ? qsTranslate("PreferencesPage", "Answer with any key") : ""
            ]
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
            settings: [
                qsTranslate("VideoPage", "Start with the camera off"),
                qsTranslate("VideoPage", "Fall back to a voice call"),
                qsTranslate("VideoPage", "Tell when video is possible"),
                qsTranslate("VideoPage", "Picture")
            ]
            offered: Product.video
        }
    ]

    readonly property list<PageEntry> services: [
        PageEntry {
            name: "forwarding"
            title: qsTr("Call forwarding")
            symbol: "forwarding"
            file: "ForwardingPage.qml"
            settings: [
                qsTranslate("ForwardingPage", "Always"),
                qsTranslate("ForwardingPage", "When busy"),
                qsTranslate("ForwardingPage", "When not answered"),
                qsTranslate("ForwardingPage", "When not reachable")
            ]
            offered: directory.features.forwarding
        },
        PageEntry {
            name: "caller-id"
            title: qsTr("Caller ID and waiting")
            symbol: "caller"
            file: "CallerIdPage.qml"
            settings: [
                qsTranslate("CallerIdPage", "All calls"),
                qsTranslate("CallerIdPage", "The next call only"),
                qsTranslate("CallerIdPage", "Call waiting")
            ]
            offered: directory.features.callerId || directory.features.callWaiting
        },
        PageEntry {
            name: "costs"
            title: qsTr("Call costs")
            symbol: "costs"
            file: "CostsPage.qml"
            settings: [
                qsTranslate("CostsPage", "Credit left"),
                qsTranslate("CostsPage", "Spent so far"),
                qsTranslate("CostsPage", "Reset the costs"),
                qsTranslate("CostsPage", "Cost limit"),
                qsTranslate("CostsPage", "Price of a unit"),
                qsTranslate("CostsPage", "Show costs after a call"),
                qsTranslate("CostsPage", "Show costs in"),
                qsTranslate("CostsPage", "Time left"),
                qsTranslate("CostsPage", "Time of all calls"),
                qsTranslate("CostsPage", "Reset the time")
            ]
            offered: directory.features.callCosts
        }
    ]

    readonly property list<PageEntry> sim: [
        PageEntry {
            name: "lines"
            title: qsTr("Lines")
            symbol: "lines"
            file: "LinesPage.qml"
            settings: [
                qsTranslate("LinesPage", "Line in use"),
                qsTranslate("LinesPage", "Lock the line"),
                qsTranslate("LinesPage", "Voice mail of its own")
            ]
            offered: directory.features.lines
        },
        PageEntry {
            name: "security"
            title: qsTr("SIM security")
            symbol: "security"
            file: "SecurityPage.qml"
            settings: [
                qsTranslate("SecurityPage", "Lock SIM with PIN"),
                qsTranslate("SecurityPage", "Change PIN"),
                qsTranslate("SecurityPage", "State"),
                qsTranslate("SecurityPage", "Change PIN2"),
                qsTranslate("SecurityPage", "Only numbers on the SIM’s list")
            ]
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
            settings: [
                qsTranslate("NetworksPage", "Provider"),
                qsTranslate("NetworksPage", "Automatic"),
                qsTranslate("NetworksPage", "Search for networks"),
                qsTranslate("NetworksPage", "Look for a better network"),
                qsTranslate("NetworksPage", "Frequency band"),
                qsTranslate("NetworksPage", "Tone when service comes or goes")
            ]
            offered: directory.features.networkSelection
        },
        PageEntry {
            name: "preferred"
            title: qsTr("Preferred networks")
            symbol: "preferred"
            file: "PreferredPage.qml"
            settings: [
                qsTranslate("PreferredPage", "Add a network")
            ]
            offered: directory.features.preferredNetworks
        },
        PageEntry {
            name: "about"
            title: qsTr("About the phone")
            symbol: "about"
            file: "AboutPage.qml"
            settings: [
                qsTranslate("AboutPage", "IMEI"),
                qsTranslate("AboutPage", "Radio"),
                qsTranslate("AboutPage", "Version"),
                qsTranslate("AboutPage", "Configuration"),
                qsTranslate("AboutPage", "Sound processing"),
                qsTranslate("AboutPage", "Telephony")
            ]
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

    /** The pages and settings whose names have all of the words, each with its page. */
    function search(query: string): var {
        const plain = text => text.toLocaleLowerCase().normalize("NFD").replace(/[\u0300-\u036f]/g, "");
        const words = plain(query).split(/\s+/).filter(word => word !== "");
        const hits = [];
        for (const page of offered) {
            for (const setting of ["", ...page.settings.filter(setting => setting !== "")]) {
                const name = plain(setting !== "" ? setting : page.title);
                // A word may be the page's, but one at least is the setting's own.
                const all = plain(page.title) + " " + name;
                if (words.some(word => name.includes(word)) && words.every(word => all.includes(word)))
                    hits.push({ page: page, setting: setting });
            }
        }
        return hits;
    }

    function find(name: string): PageEntry {
        for (const page of offered) {
            if (page.name === name)
                return page;
        }
        return null;
    }
}
