// Twelve keys. One stop for the tabulator key; inside, the arrow keys move.
import QtQuick
import QtQuick.Templates as T
import Kvq.Settings.Controls

Grid {
    id: pad

    /** With star and hash, letters, and a plus on a long press of 0; else digits and a key that takes back. */
    property bool dial: true
    /** Stands beside the 0 of a pad that does not dial, for amounts; empty for none. */
    property string decimalSign
    property int keyHeight: 56
    property color ground: Theme.surface
    /** The key that the tabulator key reaches. */
    property int stop: 1

    signal keyPressed(string key)
    signal keyReleased(string key)
    /** The key that was pressed last was held: take the plus instead. */
    signal keyHeld(string key)
    /** The finger that held it has left it, by lifting, or by sliding off. */
    signal heldKeyLeft(string key, bool lifted)
    signal takeBack()

    function move(from: int, by: int): void {
        const to = from + by;
        if (to < 0 || to >= keys.count || (Math.abs(by) === 1 && Math.floor(to / 3) !== Math.floor(from / 3)))
            return;
        if (keys.itemAt(to).enabled)
            keys.itemAt(to).forceActiveFocus(Qt.TabFocusReason);
    }

    columns: 3
    spacing: Theme.unit
    // Keypads are the same in every script.
    LayoutMirroring.enabled: false
    LayoutMirroring.childrenInherit: true

    Repeater {
        id: keys

        model: pad.dial
            ? [["1", ""], ["2", "ABC"], ["3", "DEF"], ["4", "GHI"], ["5", "JKL"], ["6", "MNO"],
               ["7", "PQRS"], ["8", "TUV"], ["9", "WXYZ"], ["*", ""], ["0", "+"], ["#", ""]]
            : [["1", ""], ["2", ""], ["3", ""], ["4", ""], ["5", ""], ["6", ""],
               ["7", ""], ["8", ""], ["9", ""], [pad.decimalSign, ""], ["0", ""], ["<", ""]]

        T.Button {
            id: key

            required property var modelData
            required property int index

            readonly property string sign: modelData[0]
            property bool held: false

            objectName: "key:" + sign

            width: (pad.width - 2 * pad.spacing) / 3
            height: pad.keyHeight
            enabled: sign !== ""
            opacity: enabled ? 1 : 0
            // A tap leaves the keyboard with the field, whose selection the key replaces.
            focusPolicy: Qt.TabFocus
            autoRepeat: sign === "<"
            activeFocusOnTab: pad.stop === index

            Accessible.name: sign === "<" ? qsTr("Delete the last digit") : Plain.shown(sign)
            Accessible.ignored: sign === ""
            Keys.onLeftPressed: pad.move(index, -1)
            Keys.onRightPressed: pad.move(index, 1)
            Keys.onUpPressed: event => {
                event.accepted = index > 2;
                pad.move(index, -3);
            }
            Keys.onDownPressed: event => {
                event.accepted = index < 9;
                pad.move(index, 3);
            }
            Keys.onReturnPressed: key.click()
            Keys.onEnterPressed: key.click()

            function click(): void {
                if (sign === "<") {
                    pad.takeBack();
                } else {
                    pad.keyPressed(sign);
                    pad.keyReleased(sign);
                }
            }

            function leave(lifted: bool): void {
                if (sign === "<")
                    return;
                pad.keyReleased(sign);
                if (held)
                    pad.heldKeyLeft(sign, lifted);
            }

            onActiveFocusChanged: {
                if (activeFocus)
                    pad.stop = index;
            }
            onPressed: {
                held = false;
                if (sign !== "<")
                    pad.keyPressed(sign);
            }
            onReleased: leave(true)
            onCanceled: leave(false)
            onPressAndHold: {
                held = true;
                pad.keyHeld(sign);
            }
            onClicked: {
                if (sign === "<")
                    pad.takeBack();
            }

            contentItem: Item {
                Column {
                    anchors.centerIn: parent
                    visible: key.sign !== "<"

                    PlainText {
                        anchors.horizontalCenter: parent.horizontalCenter
                        words: key.sign
                        font.pixelSize: Math.min(Theme.title, key.height * 0.6)
                        color: Theme.text
                        Accessible.ignored: true
                    }

                    PlainText {
                        anchors.horizontalCenter: parent.horizontalCenter
                        // Large digits leave them no room.
                        visible: text !== "" && key.height >= 1.5 * (Theme.title + Theme.small) - 8
                        words: key.modelData[1]
                        font.pixelSize: Theme.small
                        font.letterSpacing: 1
                        color: Theme.quiet
                        Accessible.ignored: true
                    }
                }

                Icon {
                    anchors.centerIn: parent
                    visible: key.sign === "<"
                    symbol: "backspace"
                }
            }

            background: Rectangle {
                radius: Theme.radius
                color: key.down ? Theme.pressed : pad.ground

                FocusRing {
                    shown: key.visualFocus
                }
            }
        }
    }
}
