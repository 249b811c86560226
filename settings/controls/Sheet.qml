// Asks for what must be asked: from the bottom edge on a phone, in the middle where there is room.
import QtQuick
import QtQuick.Templates as T
import Kvq.Settings.Controls

T.Popup {
    id: sheet

    property string title
    property string text
    property string action: qsTr("OK")
    property string cancel: qsTr("Cancel")
    property bool dangerous
    property bool ready: true
    property bool busy
    property string failure
    default property alias content: body.data

    /** It has keys, which stand beside the rest where the screen is low. */
    property bool padded: false
    readonly property bool sideways: padded && parent !== null && parent.width > parent.height && parent.height < 420
    readonly property Item aside: beside
    readonly property bool wide: parent !== null && parent.width >= Theme.twoPanes
    /** How far the sheet is still below its place, from 1 to 0. */
    property real rise: 0
    readonly property T.Button cancelButton: no
    property Item opener
    property bool openerShown

    signal accepted()

    /** Opens and, when it closes, gives the keyboard back to where it was. */
    function ask(): void {
        opener = parent.Window.activeFocusItem;
        openerShown = (opener as T.Control)?.visualFocus ?? false;
        failure = "";
        open();
    }

    function accept(): void {
        if (ready && !busy)
            accepted();
    }

    parent: T.Overlay.overlay
    x: parent ? Math.round((parent.width - width) / 2) : 0
    y: parent ? Math.round((wide ? (parent.height - height) / 2 : parent.height - height) + rise * height / 4) : 0
    width: parent ? Math.min(parent.width, sideways ? 640 : 400) : 400
    height: Math.min(implicitHeight, parent ? parent.height - Theme.reserved - 2 * Theme.unit : implicitHeight)
    implicitHeight: Math.max(column.implicitHeight + Theme.margin + buttons.height, sideways ? 4 * 56 : 0)
        + topPadding + bottomPadding
    padding: Theme.margin
    modal: true
    focus: true
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutside

    onClosed: {
        if (opener !== null && opener.visible)
            opener.forceActiveFocus(openerShown ? Qt.TabFocusReason : Qt.OtherFocusReason);
        opener = null;
    }

    enter: Transition {
        NumberAnimation { property: "opacity"; from: 0; to: 1; duration: Theme.movement }
        NumberAnimation {
            property: "rise"
            from: 1
            to: 0
            duration: Theme.movement
            easing.type: Easing.OutCubic
        }
    }
    exit: Transition {
        NumberAnimation { property: "opacity"; to: 0; duration: Theme.movement }
    }

    T.Overlay.modal: Rectangle {
        color: Theme.veil
    }

    background: Rectangle {
        radius: 20
        color: Theme.surface

        Rectangle {
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.bottom: parent.bottom
            height: parent.radius
            color: parent.color
            visible: !sheet.wide
        }
    }

    // What a sheet asks for stands in it, so it is made at once.
    contentItem: Item { // qmllint disable deferred-property-id
        id: whole

        readonly property real half: sheet.sideways ? (width - Theme.margin) / 2 : width

        LayoutMirroring.enabled: Theme.mirrored
        LayoutMirroring.childrenInherit: true
        Accessible.role: Accessible.Dialog
        Accessible.name: Plain.shown(sheet.title)

        ScrollArea {
            id: scroll

            // Room for the mark of the scroll bar and, on all sides, for the ring around a button.
            x: Theme.mirrored ? whole.width - whole.half - Theme.unit : -Theme.unit / 2
            width: whole.half + Theme.unit + Theme.unit / 2
            height: parent.height - buttons.height - Theme.margin
            contentHeight: column.implicitHeight

            Column {
                id: column

                x: Theme.mirrored ? Theme.unit : Theme.unit / 2
                width: scroll.width - Theme.unit - Theme.unit / 2
                spacing: Theme.margin

                PlainText {
                    width: parent.width
                    words: sheet.title
                    font.pixelSize: Theme.title
                    font.weight: Font.DemiBold
                    color: Theme.text
                    wrapMode: Text.Wrap
                    Accessible.role: Accessible.Heading
                    Accessible.name: text
                }

                PlainText {
                    width: parent.width
                    visible: text !== ""
                    words: sheet.text
                    font.pixelSize: Theme.body
                    color: Theme.quiet
                    wrapMode: Text.Wrap
                    Accessible.role: Accessible.StaticText
                    Accessible.name: text
                }

                Row {
                    width: parent.width
                    visible: sheet.failure !== ""
                    spacing: Theme.unit
                    Accessible.role: Accessible.AlertMessage
                    Accessible.name: Plain.shown(sheet.failure)

                    Icon {
                        id: sign

                        symbol: "alert"
                        color: Theme.danger
                        side: 18
                    }

                    PlainText {
                        width: parent.width - sign.width - parent.spacing
                        words: sheet.failure
                        font.pixelSize: Theme.small
                        lineHeight: 1.15
                        color: Theme.danger
                        wrapMode: Text.Wrap
                        Accessible.ignored: true
                    }
                }

                Column {
                    id: body

                    width: parent.width
                    spacing: Theme.margin
                    visible: children.length > 0
                }
            }
        }

        // There is more below.
        Rectangle {
            x: sheet.sideways ? scroll.x : -sheet.leftPadding
            y: scroll.height
            width: sheet.sideways ? scroll.width : sheet.width
            height: 1
            color: Theme.hairline
            visible: !scroll.atYEnd
        }

        Row {
            id: buttons

            readonly property real side: (width - spacing) / 2

            anchors.bottom: parent.bottom
            anchors.left: parent.left
            width: whole.half
            spacing: Theme.unit

            PushButton {
                id: no

                width: buttons.side
                height: Math.max(implicitHeight, yes.implicitHeight)
                text: sheet.cancel
                onClicked: sheet.close()
            }

            PushButton {
                id: yes

                objectName: "confirm"
                width: buttons.side
                text: sheet.action
                filled: true
                dangerous: sheet.dangerous
                enabled: sheet.ready && !sheet.busy
                onClicked: sheet.accept()

                BusyMark {
                    anchors.centerIn: parent
                    busy: sheet.busy
                }
            }
        }

        Item {
            id: beside

            anchors.right: parent.right
            width: whole.half
            height: parent.height
            visible: sheet.sideways
        }
    }
}
