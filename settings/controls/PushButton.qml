// A button with words: quiet by default, filled for what the screen is there for, red for what cannot be undone.
import QtQuick
import QtQuick.Templates as T
import Kvq.Settings.Controls

T.Button {
    id: button

    property string symbol
    property bool filled
    property bool dangerous

    readonly property color ground: !enabled ? Theme.placeholder
        : dangerous ? (filled ? Theme.danger : Theme.dangerSoft)
        : (filled ? Theme.accent : Theme.accentSoft)
    readonly property color ink: !enabled ? Theme.quiet
        : dangerous ? (filled ? Theme.dangerInk : Theme.danger)
        : (filled ? Theme.accentInk : Theme.accentSoftInk)

    function click(): void {
        if (enabled)
            clicked();
    }

    implicitWidth: Math.max(Theme.touch, implicitContentWidth + 2 * Theme.margin)
    implicitHeight: Math.max(Theme.touch, implicitContentHeight + topPadding + bottomPadding)
    horizontalPadding: Theme.unit
    verticalPadding: Theme.unit
    font.pixelSize: Theme.body
    font.weight: Font.Medium

    Accessible.name: Plain.shown(text)
    Keys.onReturnPressed: button.clicked()
    Keys.onEnterPressed: button.clicked()

    contentItem: SymbolText {
        symbol: button.symbol
        text: button.text
        font: button.font
        ink: button.ink
    }

    background: Rectangle {
        radius: Theme.radius
        color: button.down ? Qt.tint(button.ground, Theme.dark ? "#20ffffff" : "#20000000") : button.ground

        Rectangle {
            anchors.fill: parent
            anchors.margins: -3
            radius: parent.radius + 3
            color: "transparent"
            border.width: 2
            border.color: Theme.accent
            visible: button.visualFocus
        }
    }
}
