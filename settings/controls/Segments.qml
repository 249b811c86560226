// One of two to four values, all in view.
import QtQuick
import QtQuick.Templates as T
import Kvq.Settings.Controls

Column {
    id: segments

    /** Objects with a value and a text. */
    property var choices: []
    property var current
    property string label
    /** Whether the label is shown above; it is read aloud in any case. */
    property bool labelled: false

    signal picked(var value)

    width: parent ? parent.width : implicitWidth
    spacing: Theme.unit / 2
    Accessible.role: Accessible.Grouping
    Accessible.name: Plain.shown(label)

    PlainText {
        width: parent.width
        visible: segments.labelled
        words: segments.label
        font.pixelSize: Theme.small
        color: Theme.quiet
        wrapMode: Text.Wrap
        Accessible.ignored: true
    }

    Rectangle {
        width: parent.width
        height: Theme.touch
        radius: Theme.radius
        color: Theme.surface
        border.width: 1
        border.color: Theme.hairline

        Row {
            id: row

            anchors.fill: parent

            Repeater {
                model: segments.choices

                T.RadioButton {
                    id: segment

                    required property var modelData

                    readonly property bool current: modelData.value === segments.current

                    width: row.width / segments.choices.length
                    height: row.height
                    focusPolicy: Qt.StrongFocus
                    checked: current

                    Accessible.role: Accessible.RadioButton
                    Accessible.name: Plain.shown(modelData.text)
                    Accessible.checkable: true
                    Accessible.checked: current
                    Keys.onReturnPressed: segment.clicked()
                    Keys.onEnterPressed: segment.clicked()
                    Keys.onLeftPressed: nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason)
                    Keys.onRightPressed: nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason)
                    onClicked: {
                        // The button has checked itself; what is so, the owner says.
                        checked = Qt.binding(() => segment.current);
                        segments.picked(modelData.value);
                    }

                    contentItem: PlainText {
                        words: segment.modelData.text
                        font.pixelSize: Theme.body
                        font.weight: segment.current ? Font.DemiBold : Font.Normal
                        color: segment.current ? Theme.accentSoftInk : Theme.text
                        // Smaller where the place is narrow: all of the value must be seen.
                        fontSizeMode: Text.HorizontalFit
                        minimumPixelSize: 9
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
}
