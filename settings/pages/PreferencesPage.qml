// Call preferences: how calls are answered, dialled and announced.
import Kvq.CallSetup
import Kvq.Settings
import Kvq.Settings.Controls

PhonePage {
    CallPreferences {
        id: preferences
    }

    Section {
        heading: qsTr("Answering")

        SettingSwitch {
            objectName: "flip"
            visible: setting.available && Product.flip
            setting: preferences.flipAnswer
            label: qsTr("Answer by opening the phone")
        }

        SettingSwitch {
            objectName: "any-key"
            visible: setting.available && Product.anyKey
            setting: preferences.anyKeyAnswer
            label: qsTr("Answer with any key")
        }

        SettingSwitch {
            setting: preferences.autoAnswer
            label: qsTr("Answer automatically")
            description: qsTr("Without touching the phone")
        }
    }

    Section {
        heading: qsTr("Dialling")

        SettingSwitch {
            setting: preferences.autoRedial
            label: qsTr("Redial automatically")
            description: qsTr("When the line is busy")
        }

        SettingSwitch {
            setting: preferences.prependPrefix
            label: qsTr("Add the national prefix")
            description: preferences.nationalPrefix.known
                ? qsTr("Puts %1 before a number").arg(preferences.nationalPrefix.value) : ""
        }

        SettingOnOff {
            setting: preferences.hyphenation
            label: qsTr("Group the digits of numbers")
            on: CallPreferences.Hyphenated
            off: CallPreferences.NotHyphenated
        }

        SettingChoice {
            setting: preferences.toneType
            label: qsTr("Keypad tones in a call")
            choices: [
                { value: CallPreferences.ShortTones, text: qsTr("Short") },
                { value: CallPreferences.LongTones, text: qsTr("As long as the key is pressed") }
            ]
        }

        SettingChoice {
            objectName: "search-names"
            setting: preferences.searchMode
            label: qsTr("Search names")
            choices: [
                { value: CallPreferences.FromBeginning, text: qsTr("From the beginning") },
                { value: CallPreferences.Anywhere, text: qsTr("Anywhere in them") }
            ]
        }
    }

    Section {
        heading: qsTr("Alerts")

        SettingSwitch {
            setting: preferences.reminder
            label: qsTr("Remind of missed calls")
        }

        SettingSwitch {
            setting: preferences.messageAlert
            label: qsTr("Message alert during a call")
        }

        SettingSwitch {
            setting: preferences.roamingAlert
            objectName: "roaming"
            label: qsTr("Alert when roaming")
            description: qsTr("Before a call that may cost more")
        }

        SettingSwitch {
            setting: preferences.callDropTone
            label: qsTr("Tone when a call drops")
        }

        SettingChoice {
            setting: preferences.audibleTimer
            label: qsTr("Tone during a call")
            choices: [
                { value: -1, text: qsTr("Never") },
                { value: 30, text: qsTr("Every 30 seconds") },
                { value: 60, text: qsTr("Every minute") },
                { value: 300, text: qsTr("Every 5 minutes") }
            ]
        }
    }

    Section {
        heading: qsTr("Hearing")

        SettingSwitch {
            setting: preferences.hearingAid
            label: qsTr("Hearing aid")
            description: qsTr("Couples the sound into a hearing aid")
        }

        SettingChoice {
            setting: preferences.textTelephone
            label: qsTr("Text telephone")
            choices: [
                { value: CallPreferences.NoText, text: qsTr("Off") },
                { value: CallPreferences.FullText, text: qsTr("Full") },
                { value: CallPreferences.HearingCarriedOver, text: qsTr("Type, and hear") },
                { value: CallPreferences.VoiceCarriedOver, text: qsTr("Speak, and read") }
            ]
        }
    }
}
