// One of two to four values, all in view.
import QtQuick
import QtQuick.Templates as T

Rectangle {
    id: segments

    /** Objects with a value and a text. */
    property var choices: []
    property var current
    property string label

    signal picked(var value)

    width: parent ? parent.width : implicitWidth
    implicitHeight: Theme.touch
    radius: Theme.radius
    color: Theme.surface
    border.width: 1
    border.color: Theme.hairline
    Accessible.role: Accessible.Grouping
    Accessible.name: label

    Row {
        id: row

        anchors.fill: parent

        Repeater {
            model: segments.choices

            T.AbstractButton {
                id: segment

                required property var modelData

                readonly property bool current: modelData.value === segments.current

                width: row.width / segments.choices.length
                height: row.height
                focusPolicy: Qt.StrongFocus

                Accessible.role: Accessible.RadioButton
                Accessible.name: modelData.text
                Accessible.checkable: true
                Accessible.checked: current
                Keys.onReturnPressed: segment.clicked()
                Keys.onEnterPressed: segment.clicked()
                Keys.onLeftPressed: nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason)
                Keys.onRightPressed: nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason)
                onClicked: segments.picked(modelData.value)

                contentItem: Text {
                    text: segment.modelData.text
                    font.pixelSize: Theme.body
                    font.weight: segment.current ? Font.DemiBold : Font.Normal
                    color: segment.current ? Theme.accentSoftInk : Theme.text
                    horizontalAlignment: Text.AlignHCenter
                    verticalAlignment: Text.AlignVCenter
                    Accessible.ignored: true
                }

                background: Item {
                    Rectangle {
                        anchors.fill: parent
                        anchors.margins: 4
                        radius: Theme.unit
                        color: segment.down ? Theme.pressed : segment.current ? Theme.accentSoft : "transparent"
                    }

                    FocusRing {
                        shown: segment.visualFocus
                    }
                }
            }
        }
    }
}
