// A line icon in the colour of the text beside it.
import QtQuick
import QtQuick.Controls.impl

IconImage {
    property string symbol
    property real side: 24 * Theme.enlarged

    source: symbol === "" ? "" : "qrc:/qt/qml/Kvq/Settings/Controls/icons/" + symbol + ".svg"
    sourceSize.width: side
    sourceSize.height: side
    color: Theme.text
    mirror: Theme.mirrored && (symbol === "back" || symbol === "chevron-right")
    Accessible.ignored: true
}
