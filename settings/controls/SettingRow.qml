// A row: a label, a value, and one control at its end. Below it, when something failed, the reason.
import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Kvq.Settings.Controls

FocusScope {
    id: row

    property string label
    /** A quiet second line. */
    property string description
    property string value
    /** Stands at the start of the row. */
    property string symbol
    property color ink: Theme.text
    /** Whether the label is what the row is about, a number that calls for example. */
    property bool large: false
    /** Whether the value has been read. */
    property bool known: true
    /** Whether it was read before the page was there, and not again yet. */
    property bool stale: false
    /** Whether the value is shown as one that may be so no longer. A list's rows are read with the list, not alone. */
    property bool dim: stale
    property bool busy: false
    /** Why the last request failed, empty when it did not. */
    property string failure
    property string failureAction: qsTr("Try again")
    /** Stands for what is shown beside the list. */
    property bool selected: false
    /** Whether a line parts the row from the one above. */
    property bool lined: y > 0
    /** Whether the row can be pressed. */
    property bool pressable: false
    property int role: pressable ? Accessible.Button : Accessible.StaticText
    property bool checkable: false
    property bool checked: false
    /** How the value is read aloud, and all that is. */
    property string spokenValue: value
    readonly property string spoken: {
        let words = !known ? qsTr("unknown") : dim && spokenValue !== "" ? qsTr("last known: %1").arg(spokenValue) : spokenValue;
        for (const part of [description, failure]) {
            if (part !== "")
                words += words !== "" ? ". " + part : part;
        }
        return words;
    }
    /** Controls at the end. */
    default property alias trailing: tail.data
    /** What opens below the line. */
    property alias below: extra.data
    /** The page that the row stands on. */
    property SettingsPage host: null
    /** Its value could not be read, or is being read again since. */
    property bool unread: false
    /** The page tells the reason, for this row and others. */
    readonly property bool toldAbove: unread && failure !== "" && host !== null && failure === host.commonFailure

    signal pressed()
    signal retry()

    function noteReading(): void {
        const before = unread;
        unread = visible && (!known || stale) && (failure !== "" || before && busy);
        if (host !== null && (unread || before))
            host.noteUnread(row, unread);
    }

    function click(): void {
        if (enabled && pressable)
            pressed();
    }

    onFailureChanged: noteReading()
    onKnownChanged: noteReading()
    onStaleChanged: noteReading()
    onBusyChanged: noteReading()
    onVisibleChanged: noteReading()
    Component.onCompleted: {
        let item = parent;
        while (item !== null && !(item instanceof SettingsPage))
            item = item.parent;
        host = item as SettingsPage;
        noteReading();
    }
    Component.onDestruction: {
        if (unread && host !== null)
            host.noteUnread(row, false);
    }

    width: parent ? parent.width : implicitWidth
    implicitWidth: 320
    Accessible.ignored: pressable
    Accessible.role: role
    Accessible.name: Plain.shown(label)
    Accessible.description: Plain.shown(spoken)
    Accessible.checkable: checkable
    Accessible.checked: checked && known
    implicitHeight: stack.implicitHeight

    Rectangle {
        anchors.right: parent.right
        width: parent.width - Theme.margin
        height: 1
        color: Theme.hairline
        visible: row.lined
    }

    Column {
        id: stack

        width: parent.width

        T.AbstractButton {
            id: line

            readonly property real room: width - leftPadding - rightPadding
                - (sign.visible ? sign.width + content.spacing : 0)
                - (tail.visible ? tail.width + content.spacing : 0)
                - (mark.visible ? mark.width + content.spacing : 0)
                - (warning.visible ? warning.width + content.spacing : 0)
            readonly property bool stacked: row.value !== ""
                && name.implicitWidth + ending.implicitWidth + 2 * content.spacing > room

            width: parent.width
            implicitHeight: Math.max(Theme.row, content.implicitHeight + topPadding + bottomPadding)
            horizontalPadding: Theme.margin
            verticalPadding: Theme.unit
            focus: true
            focusPolicy: row.pressable ? Qt.StrongFocus : Qt.NoFocus
            // What a button is told to be for a screen reader, Qt 6.4 does not heed: it looks at what the button is.
            checkable: row.checkable
            checked: row.checked

            Accessible.ignored: !row.pressable
            Accessible.role: row.role
            Accessible.name: Plain.shown(row.label)
            Accessible.description: Plain.shown(row.spoken)
            Accessible.checkable: row.checkable
            Accessible.checked: row.checked && row.known
            Accessible.selected: row.selected

            onClicked: {
                // The button has checked itself; what is so, its owner says.
                checked = Qt.binding(() => row.checked);
                row.click();
            }
            Keys.onReturnPressed: row.click()
            Keys.onEnterPressed: row.click()

            // The row's own controls stand in it, so it is made at once.
            contentItem: RowLayout { // qmllint disable deferred-property-id
                id: content

                spacing: Theme.margin

                Icon {
                    id: sign

                    visible: row.symbol !== ""
                    symbol: row.symbol
                    color: row.ink === Theme.text ? Theme.accent : row.ink
                }

                // No layout: one learns too late that words became two lines.
                Column {
                    Layout.fillWidth: true
                    Layout.preferredWidth: 1
                    spacing: 2

                    PlainText {
                        id: name

                        width: parent.width
                        words: row.label
                        font.pixelSize: row.large ? Theme.title : Theme.body
                        font.weight: row.large ? Font.DemiBold : Font.Normal
                        color: row.ink
                        wrapMode: Text.Wrap
                        Accessible.ignored: true
                    }

                    PlainText {
                        width: parent.width
                        visible: line.stacked && row.known
                        words: row.value
                        font: ending.font
                        color: ending.color
                        wrapMode: Text.Wrap
                        Accessible.ignored: true
                    }

                    PlainText {
                        width: parent.width
                        visible: row.description !== ""
                        words: row.description
                        font.pixelSize: Theme.small
                        lineHeight: 1.1
                        color: Theme.quiet
                        wrapMode: Text.Wrap
                        Accessible.ignored: true
                    }
                }

                // In the place of the value that is read.
                BusyMark {
                    id: mark

                    busy: row.busy && !row.known && !row.checkable
                }

                Icon {
                    id: warning

                    visible: row.toldAbove
                    symbol: "alert"
                    color: Theme.danger
                    side: 20
                }

                Rectangle {
                    visible: !row.known && !row.checkable && row.failure === "" && !mark.shown
                    implicitWidth: 56
                    implicitHeight: 12
                    radius: 6
                    color: Theme.placeholder
                }

                PlainText {
                    id: ending

                    visible: row.value !== "" && row.known && !line.stacked
                    words: row.value
                    font.pixelSize: Theme.body
                    // Colour alone tells not everybody.
                    font.italic: row.dim
                    color: row.dim ? Theme.stale : Theme.quiet
                    Accessible.ignored: true
                }

                Row {
                    id: tail

                    visible: children.length > 0
                    spacing: Theme.unit
                }
            }

            background: Rectangle {
                radius: Theme.radius
                color: line.down && row.pressable ? Theme.pressed : row.selected ? Theme.accentSoft : "transparent"

                FocusRing {
                    shown: line.visualFocus
                }

                // Below the value or the switch, so that nothing moves while it is written.
                BusyMark {
                    anchors.right: parent.right
                    anchors.rightMargin: Theme.margin + (row.checkable ? (tail.width - width) / 2 : 0)
                    anchors.bottom: parent.bottom
                    dot: 4
                    implicitHeight: 12
                    busy: row.busy && (row.known || row.checkable)
                }
            }
        }

        Column {
            id: extra

            width: parent.width
        }

        FailureLine {
            width: parent.width
            reason: row.toldAbove ? "" : row.failure
            action: row.failureAction
            onRetry: byKey => {
                // The button goes with the failure, so the keyboard goes to the row.
                line.forceActiveFocus(byKey ? Qt.TabFocusReason : Qt.OtherFocusReason);
                row.retry();
            }
        }
    }
}
