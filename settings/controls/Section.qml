// Rows that belong together, on a card, under a quiet heading.
import QtQuick

Column {
    id: section

    property string heading
    /** A sentence below the card. */
    property string note
    default property alias rows: card.data

    width: parent ? parent.width : implicitWidth
    spacing: Theme.unit

    PlainText {
        x: Theme.margin
        width: parent.width - 2 * Theme.margin
        visible: text !== ""
        words: section.heading
        font.pixelSize: Theme.small
        font.weight: Font.DemiBold
        color: Theme.quiet
        wrapMode: Text.Wrap
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }

    Rectangle {
        width: parent.width
        height: card.implicitHeight
        visible: height > 0
        radius: Theme.radius
        color: Theme.surface

        Column {
            id: card

            width: parent.width
        }
    }

    PlainText {
        x: Theme.margin
        width: parent.width - 2 * Theme.margin
        visible: text !== ""
        words: section.note
        font.pixelSize: Theme.small
        lineHeight: 1.15
        color: Theme.quiet
        wrapMode: Text.Wrap
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }
}
