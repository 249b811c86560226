// A button that is only words, for the second thing to do.
import QtQuick
import QtQuick.Templates as T
import Kvq.Settings.Controls

T.Button {
    id: button

    property color ink: Theme.accent

    implicitWidth: Math.max(Theme.touch, contentItem.implicitWidth + 2 * Theme.unit)
    implicitHeight: 44 * Theme.enlarged
    horizontalPadding: Theme.unit
    font.pixelSize: Theme.small
    font.weight: Font.DemiBold
    opacity: enabled ? 1 : 0.45

    Accessible.name: Plain.shown(text)
    Keys.onReturnPressed: button.clicked()
    Keys.onEnterPressed: button.clicked()

    contentItem: PlainText {
        words: button.text
        font: button.font
        color: button.ink
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        Accessible.ignored: true
    }

    background: Rectangle {
        radius: Theme.unit
        color: button.down ? Theme.pressed : "transparent"

        FocusRing {
            shown: button.visualFocus
            radius: Theme.unit
            border.color: button.ink
        }
    }
}
