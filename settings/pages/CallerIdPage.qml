// Caller id and call waiting.
import Kvq.CallSetup
import Kvq.Settings
import Kvq.Settings.Controls

PhonePage {
    id: page

    readonly property var restrictions: [
        { value: CallerId.Network, text: qsTr("Provider’s default") },
        { value: CallerId.Suppress, text: qsTr("Show it") },
        { value: CallerId.Invoke, text: qsTr("Hide it") }
    ]

    notice: callerId.available || waiting.available ? "" : Words.sentence(CallSetup.NotSupported)

    CallerId {
        id: callerId
    }

    CallWaiting {
        id: waiting
    }

    Section {
        heading: qsTr("My number, when I call")
        visible: callerId.available

        SettingChoice {
            objectName: "restriction"
            setting: callerId.restriction
            label: qsTr("All calls")
            choices: page.restrictions
        }

        SettingChoice {
            setting: callerId.nextCall
            label: qsTr("The next call only")
            choices: page.restrictions
        }
    }

    Section {
        heading: qsTr("A second call")
        visible: waiting.available

        SettingSwitch {
            objectName: "waiting"
            setting: waiting.enabled
            label: qsTr("Call waiting")
            description: qsTr("A call that comes in during another one is announced")
        }
    }
}
