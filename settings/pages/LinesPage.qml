// The two lines of the SIM.
import Kvq.CallSetup
import Kvq.Settings
import Kvq.Settings.Controls

PhonePage {
    Lines {
        id: lines
    }

    Section {
        note: qsTr("The line that calls go out on. Calls come in on both.")

        SettingChoice {
            setting: lines.current
            label: qsTr("Line in use")
            choices: [
                { value: 1, text: qsTr("Line 1") },
                { value: 2, text: qsTr("Line 2") }
            ]
        }

        SettingSwitch {
            setting: lines.locked
            label: qsTr("Lock the line")
            description: qsTr("The line in use cannot be changed while it is locked")
        }
    }

    Section {
        SettingValue {
            setting: lines.voiceMailHotKeys
            label: qsTr("Voice mail of its own")
            words: on => on ? qsTr("Yes") : qsTr("No")
        }
    }
}
