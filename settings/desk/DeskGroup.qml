// Things on the desk that belong together.
import QtQuick

Rectangle {
    id: group

    property string heading
    default property alias content: column.data

    implicitHeight: column.implicitHeight + 2 * column.y
    color: Paper.card
    border.width: 1
    border.color: Paper.line

    Column {
        id: column

        x: Paper.unit * 1.5
        y: Paper.unit * 1.5
        width: parent.width - 2 * x
        spacing: Paper.unit

        DeskText {
            width: parent.width
            words: group.heading
            font.bold: true
            font.capitalization: Font.AllUppercase
            font.letterSpacing: 1
            color: Paper.mark
            Accessible.role: Accessible.Heading
        }
    }
}
