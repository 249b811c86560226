// A symbol and words beside it, in the middle of their place.
import QtQuick

Item {
    id: whole

    property string symbol
    property alias text: words.text
    property alias font: words.font
    property color ink: Theme.text

    readonly property real signWidth: sign.visible ? sign.width + line.spacing : 0

    implicitWidth: words.implicitWidth + signWidth
    implicitHeight: Math.max(sign.height, words.implicitHeight)

    Row {
        id: line

        anchors.centerIn: parent
        spacing: 6

        Icon {
            id: sign

            anchors.verticalCenter: parent.verticalCenter
            visible: whole.symbol !== ""
            symbol: whole.symbol
            color: whole.ink
            side: 20
        }

        Text {
            id: words

            anchors.verticalCenter: parent.verticalCenter
            width: Math.min(implicitWidth, whole.width - whole.signWidth)
            color: whole.ink
            wrapMode: Text.WordWrap
            horizontalAlignment: Text.AlignHCenter
            Accessible.ignored: true
        }
    }
}
