// All text on the screen. What somebody else wrote is shown as it was written: it is never taken for markup, which
// could load pictures from a network, and cannot reorder itself.
import QtQuick
import Kvq.Settings.Controls

Text {
    /** What is shown. */
    property string words

    text: Plain.shown(words)
    textFormat: Text.PlainText
    horizontalAlignment: Text.AlignLeft
}
