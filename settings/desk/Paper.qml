// The look of the desk: a blueprint, so that nobody takes it for a part of the phone.
pragma Singleton

import QtQuick

QtObject {
    readonly property color ground: "#10294a"
    readonly property color grid: "#1a3a63"
    readonly property color card: "#0c2140"
    readonly property color line: "#4f7cac"
    readonly property color ink: "#e3eefb"
    readonly property color quiet: "#a3c0de"
    readonly property color mark: "#ffcb5c"
    readonly property color markInk: "#2b1d00"

    readonly property string font: "monospace"
    readonly property int size: 13
    readonly property int title: 18
    readonly property int unit: 8
}
