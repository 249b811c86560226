// Leads back to the call that runs.
import QtQuick
import QtQuick.Templates as T
import Kvq.CallSetup
import Kvq.Settings.Controls

T.AbstractButton {
    id: bar

    required property CallSummary summary

    readonly property CallEntry entry: summary.current
    readonly property string who: {
        if (summary.running.length > 1)
            return qsTr("%1 calls").arg(summary.running.length);
        return entry === null ? "" : entry.number !== "" ? entry.number : qsTr("Unknown number");
    }
    readonly property string how: {
        if (entry === null)
            return "";
        const state = summary.describe(entry.callState, entry.joined);
        const time = summary.timeOf(entry);
        return time !== "" ? qsTr("%1 · %2").arg(state).arg(time) : state;
    }

    function click(): void {
        clicked();
    }

    objectName: "return"
    implicitHeight: Math.max(Theme.row, implicitContentHeight + Theme.unit)
    focusPolicy: Qt.StrongFocus
    Accessible.role: Accessible.Button
    Accessible.name: Plain.shown(qsTr("Return to call"))
    Accessible.description: Plain.shown(who + ", " + how)
    Keys.onReturnPressed: bar.clicked()
    Keys.onEnterPressed: bar.clicked()

    background: Rectangle {
        color: bar.down ? Qt.darker(Theme.accent, 1.15) : Theme.accent

        FocusRing {
            shown: bar.visualFocus
            border.color: Theme.accentInk
        }
    }

    contentItem: Row {
        leftPadding: Theme.margin
        spacing: Theme.margin

        Icon {
            anchors.verticalCenter: parent.verticalCenter
            symbol: "calls"
            color: Theme.accentInk
        }

        Column {
            anchors.verticalCenter: parent.verticalCenter
            width: parent.width - x - Theme.margin

            PlainText {
                width: parent.width
                words: bar.who
                font.pixelSize: Theme.body
                font.weight: Font.DemiBold
                color: Theme.accentInk
                wrapMode: Text.WrapAnywhere
                Accessible.ignored: true
            }

            PlainText {
                width: parent.width
                words: qsTr("Return to call") + " · " + bar.how
                font.pixelSize: Theme.small
                color: Theme.accentInk
                wrapMode: Text.Wrap
                Accessible.ignored: true
            }
        }
    }
}
