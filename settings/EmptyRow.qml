// What stands in place of a list that is empty: that it is being read, that it could not be, or that there is nothing.
import Kvq.CallSetup
import Kvq.Settings.Controls

SettingRow {
    /** The model that is empty. */
    required property var subject
    property string text: qsTr("Nothing here")
    /** What that means. */
    property string meaning

    readonly property bool read: subject.state === CallSetup.Ready

    label: read ? text : subject.busy ? qsTr("Reading …") : qsTr("Could not be read")
    description: read ? meaning : ""
    ink: Theme.quiet
    known: read
    busy: subject.busy
    failure: Words.of(subject)
    onRetry: subject.refresh()
}
