// Something that happens to the phone.
import QtQuick
import QtQuick.Templates as T
import Kvq.Settings.Controls

T.Button {
    id: button

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: Math.max(44, implicitContentHeight + 2 * Paper.unit)
    horizontalPadding: Paper.unit + 4
    font.family: Paper.font
    font.pixelSize: Paper.size

    Accessible.name: Plain.shown(text)
    Keys.onReturnPressed: button.clicked()
    Keys.onEnterPressed: button.clicked()

    contentItem: PlainText {
        words: button.text
        font: button.font
        color: button.checked ? Paper.markInk : Paper.ink
        wrapMode: Text.Wrap
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        Accessible.ignored: true
    }

    background: Rectangle {
        color: button.checked ? Paper.mark : button.down ? Paper.grid : Paper.card
        border.width: button.visualFocus ? 3 : 1
        border.color: button.visualFocus ? Paper.mark : Paper.line
    }
}
