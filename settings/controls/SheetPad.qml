// The keys of a sheet: below its field, or beside it where the screen is low.
import QtQuick

Item {
    id: place

    required property Sheet sheet
    property alias dial: pad.dial
    property alias decimalSign: pad.decimalSign
    readonly property bool beside: sheet.sideways

    signal keyPressed(string key)
    signal keyHeld(string key)
    signal takeBack()

    width: parent ? parent.width : implicitWidth
    implicitHeight: pad.height
    visible: !beside

    NumberPad {
        id: pad

        parent: place.beside ? place.sheet.aside : place
        width: parent ? parent.width : 0
        keyHeight: place.beside ? Math.min(64, Math.floor((place.sheet.aside.height - 3 * spacing) / 4)) : 48
        spacing: 6
        ground: Theme.window
        onKeyPressed: key => place.keyPressed(key)
        onKeyHeld: key => place.keyHeld(key)
        onTakeBack: place.takeBack()
    }
}
