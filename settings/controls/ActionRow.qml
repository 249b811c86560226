// A row that does something when it is pressed.
import QtQuick

SettingRow {
    property bool dangerous

    pressable: true
    ink: dangerous ? Theme.danger : Theme.accent
}
