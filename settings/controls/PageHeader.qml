// The name of the page, the way back, and whether the page is busy.
import QtQuick

Item {
    id: header

    property string title
    property bool hasBack
    property bool busy
    /** Where the title begins when there is no way back: above the words of the page. */
    property real indent: Theme.margin
    property Item backButton: back

    signal wentBack()

    implicitHeight: Math.max(Theme.row + Theme.unit, name.implicitHeight + 2 * Theme.unit)

    IconButton {
        id: back

        objectName: "back"
        anchors.verticalCenter: parent.verticalCenter
        anchors.left: parent.left
        anchors.leftMargin: Theme.unit / 2
        visible: header.hasBack
        symbol: "back"
        text: qsTr("Back")
        onClicked: header.wentBack()
    }

    PlainText {
        id: name

        anchors.verticalCenter: parent.verticalCenter
        readonly property real indent: back.visible ? back.width + Theme.unit : header.indent

        anchors.left: parent.left
        anchors.leftMargin: indent
        width: header.width - indent - mark.width - Theme.margin
        words: header.title
        font.pixelSize: Theme.title
        font.weight: Font.DemiBold
        color: Theme.text
        wrapMode: Text.Wrap
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }

    BusyMark {
        id: mark

        anchors.right: parent.right
        anchors.rightMargin: Theme.margin
        anchors.verticalCenter: parent.verticalCenter
        busy: header.busy
    }
}
