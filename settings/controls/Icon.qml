// A line icon in the colour of the text beside it.
import QtQuick
import QtQuick.Controls.impl

IconImage {
    property string symbol
    property int side: 24

    source: symbol === "" ? "" : "qrc:/qt/qml/Kvq/Settings/Controls/icons/" + symbol + ".svg"
    sourceSize.width: side
    sourceSize.height: side
    color: Theme.text
    Accessible.ignored: true
}
