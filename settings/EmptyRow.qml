// What stands in place of a list that is empty: that it is being read, that it could not be, or that there is nothing.
// Below a list that is shown as it was last known, that it could not be read again.
import QtQml
import Kvq.CallSetup
import Kvq.Settings.Controls

SettingRow {
    id: row

    /** The model that is empty. */
    required property var subject
    property string text: qsTr("Nothing here")
    /** What that means. */
    property string meaning

    /** The list is an old one, because the last reading failed. */
    property bool outdated: false
    readonly property bool read: subject.state === CallSetup.Ready

    function compare(): void {
        outdated = subject.stale && (subject.state === CallSetup.Failed || outdated && subject.busy);
    }

    Connections {
        target: row.subject

        function onStateChanged() {
            row.compare();
        }
    }

    Component.onCompleted: compare()

    visible: subject.count === 0 || outdated
    label: read ? text : subject.busy ? qsTr("Reading …") : qsTr("Could not be read")
    description: read ? meaning : ""
    ink: Theme.quiet
    known: read
    busy: subject.busy
    failure: Words.of(subject)
    onRetry: subject.refresh()
}
