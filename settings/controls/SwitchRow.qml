// A row that is on or off.
import QtQuick

SettingRow {
    id: row

    /** Somebody wants the other value; what the row shows follows from where it is bound to. */
    signal toggled(bool on)

    pressable: true
    checkable: true
    role: Accessible.CheckBox
    spokenValue: checked ? qsTr("on") : qsTr("off")
    onPressed: {
        // Nobody can want the other one of what is not known.
        if (known)
            toggled(!checked);
    }

    SwitchMark {
        anchors.verticalCenter: parent.verticalCenter
        on: row.checked
        known: row.known
        stale: row.dim
    }
}
