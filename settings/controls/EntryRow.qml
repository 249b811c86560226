// A row with a value that is typed. Pressed, it asks for it.
import QtQuick

SettingRow {
    property alias chevron: sign.visible

    pressable: true

    Icon {
        id: sign

        anchors.verticalCenter: parent.verticalCenter
        symbol: "chevron-right"
        color: Theme.quiet
    }
}
