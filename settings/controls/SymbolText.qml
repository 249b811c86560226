// A symbol and words beside it, in the middle of their place.
import QtQuick

Item {
    id: whole

    property string symbol
    property alias text: sentence.words
    property alias font: sentence.font
    property color ink: Theme.text

    readonly property real signWidth: sign.visible ? sign.width + line.spacing : 0

    implicitWidth: sentence.implicitWidth + signWidth
    implicitHeight: Math.max(sign.height, sentence.implicitHeight)

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

        PlainText {
            id: sentence

            anchors.verticalCenter: parent.verticalCenter
            width: Math.min(implicitWidth, whole.width - whole.signWidth)
            color: whole.ink
            wrapMode: Text.WordWrap
            // A word that is too long for its place is smaller, not cut.
            fontSizeMode: Text.HorizontalFit
            minimumPixelSize: 9
            horizontalAlignment: Text.AlignHCenter
            Accessible.ignored: true
        }
    }
}
