// A row with one of a few values. Pressed, it opens and shows them; it never covers the page.
import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Kvq.Settings.Controls

SettingRow {
    id: row

    /** What can be chosen: objects with a value and a text. */
    property var choices: []
    property var current
    property bool open: false

    readonly property var chosen: known ? choices.find(choice => choice.value === current) : undefined

    signal picked(var value)

    pressable: true
    role: Accessible.ComboBox
    value: chosen ? chosen.text : ""
    onPressed: open = !open

    Icon {
        anchors.verticalCenter: parent.verticalCenter
        symbol: "chevron-down"
        color: Theme.quiet
        rotation: row.open ? 180 : 0

        Behavior on rotation {
            NumberAnimation { duration: Theme.movement }
        }
    }

    below: Item {
        width: row.width
        height: row.open ? list.implicitHeight : 0
        visible: row.open || height > 0
        clip: height < list.implicitHeight

        Behavior on height {
            NumberAnimation { duration: Theme.movement; easing.type: Easing.OutCubic }
        }

        Column {
            id: list

            width: parent.width
            bottomPadding: Theme.unit

            Repeater {
                model: row.open ? row.choices : []

                T.RadioButton {
                    id: option

                    required property var modelData

                    readonly property bool current: row.known && modelData.value === row.current

                    width: list.width
                    implicitHeight: Math.max(Theme.touch, implicitContentHeight + 2 * Theme.unit)
                    horizontalPadding: Theme.margin
                    focusPolicy: Qt.StrongFocus
                    checked: current

                    Accessible.role: Accessible.RadioButton
                    Accessible.name: Plain.shown(modelData.text)
                    Accessible.checkable: true
                    Accessible.checked: current
                    Keys.onReturnPressed: option.clicked()
                    Keys.onEnterPressed: option.clicked()
                    Keys.onEscapePressed: {
                        row.forceActiveFocus(Qt.TabFocusReason);
                        row.open = false;
                    }

                    onClicked: {
                        // Closing the row ends this choice, so it comes last.
                        row.forceActiveFocus(visualFocus ? Qt.TabFocusReason : Qt.OtherFocusReason);
                        row.picked(modelData.value);
                        row.open = false;
                    }

                    contentItem: RowLayout {
                        spacing: Theme.margin

                        RadioMark {
                            on: option.current
                        }

                        PlainText {
                            Layout.fillWidth: true
                            words: option.modelData.text
                            font.pixelSize: Theme.body
                            color: Theme.text
                            wrapMode: Text.Wrap
                            Accessible.ignored: true
                        }
                    }

                    background: Rectangle {
                        radius: Theme.radius
                        color: option.down ? Theme.pressed : "transparent"

                        FocusRing {
                            shown: option.visualFocus
                        }
                    }
                }
            }
        }
    }
}
