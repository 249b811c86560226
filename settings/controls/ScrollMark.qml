// Where one is on a long page.
import QtQuick
import QtQuick.Templates as T

T.ScrollBar {
    id: bar

    implicitWidth: 8
    padding: 2
    focusPolicy: Qt.NoFocus
    visible: size < 1
    Accessible.ignored: true

    contentItem: Rectangle {
        implicitWidth: 4
        radius: 2
        color: Theme.outline
        opacity: bar.active ? 0.9 : 0.35
    }
}
