// A round button that shows a symbol; its words are read aloud.
import QtQuick
import QtQuick.Templates as T
import Kvq.Settings.Controls

T.Button {
    id: button

    property string symbol
    property color ink: Theme.text
    property color ground: "transparent"
    property int side: Theme.touch

    function click(): void {
        if (enabled)
            clicked();
    }

    implicitWidth: side
    implicitHeight: side
    padding: 0
    opacity: enabled ? 1 : 0.45

    Accessible.name: Plain.shown(text)
    Keys.onReturnPressed: button.clicked()
    Keys.onEnterPressed: button.clicked()

    contentItem: Item {
        Icon {
            anchors.centerIn: parent
            symbol: button.symbol
            color: button.ink
        }
    }

    background: Rectangle {
        radius: height / 2
        color: button.down ? Theme.pressed : button.ground

        FocusRing {
            shown: button.visualFocus
            radius: height / 2
        }
    }
}
