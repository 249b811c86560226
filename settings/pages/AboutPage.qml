// About the phone: what it is, and what it runs.
import QtQuick
import Kvq.CallSetup
import Kvq.Settings
import Kvq.Settings.Controls

PhonePage {
    DeviceIdentity {
        id: identity
    }

    Section {
        heading: qsTr("This phone")

        SettingValue {
            setting: identity.imei
            label: qsTr("IMEI")
        }

        SettingValue {
            setting: identity.technology
            label: qsTr("Radio")
        }
    }

    Section {
        heading: qsTr("Modem software")

        SettingValue {
            setting: identity.basebandVersion
            label: qsTr("Version")
        }

        SettingValue {
            setting: identity.flexVersion
            label: qsTr("Configuration")
        }

        SettingValue {
            setting: identity.dspVersion
            label: qsTr("Sound processing")
        }
    }

    Section {
        heading: qsTr("This program")

        SettingRow {
            label: qsTr("Call settings")
            value: Qt.application.version
        }

        SettingRow {
            label: qsTr("Telephony")
            known: CallSetup.connected
            value: qsTr("Connected")
            busy: !known && CallSetup.connectionResult === CallSetup.Success
            failure: CallSetup.connectionResult > 0 ? Words.sentence(CallSetup.connectionResult) : ""
            onRetry: CallSetup.connectTelephony()
        }
    }
}
