// Words on the desk.
import QtQuick
import Kvq.Settings.Controls

PlainText {
    font.family: Paper.font
    font.pixelSize: Paper.size
    color: Paper.ink
    wrapMode: Text.Wrap
    Accessible.role: Accessible.StaticText
    Accessible.name: text
}
