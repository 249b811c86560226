// The design's tokens: colours, type scale, grid and movement. Every colour and size on the screen comes from here.
pragma Singleton

import QtQuick

QtObject {
    id: theme

    /** "light", "dark", or empty to follow the system. */
    property string wanted
    /** The system asks for less movement. */
    property bool calm: false

    readonly property SystemPalette system: SystemPalette {}
    readonly property bool dark: wanted === "" ? system.window.hslLightness < 0.5 : wanted === "dark"

    /** The language is written from right to left. */
    readonly property bool mirrored: Application.layoutDirection === Qt.RightToLeft

    /** The letters of the system, and how much larger than usual they are. */
    readonly property FontMetrics letters: FontMetrics {}
    readonly property real enlarged: Math.max(1, Math.min(2, letters.font.pointSize / 12))

    // The grid. What holds words grows with them.
    readonly property int unit: 8
    readonly property int margin: 2 * unit
    readonly property int touch: 48 * enlarged
    readonly property int row: 56 * enlarged
    readonly property int radius: 12
    readonly property int contentWidth: 640 * enlarged
    /** From this window width on, list and page stand side by side. */
    readonly property int twoPanes: 720

    /** The height at the top of the window that sheets leave free. */
    property real reserved: 0

    // The type scale.
    readonly property int title: 22 * enlarged
    readonly property int body: 16 * enlarged
    readonly property int small: 13 * enlarged

    readonly property int movement: calm ? 0 : 160

    // Colours. Text on the ground it stands on has a contrast of at least 4.5 to 1.
    readonly property color window: dark ? "#0f1316" : "#f2f5f6"
    readonly property color surface: dark ? "#1a2024" : "#ffffff"
    readonly property color pressed: dark ? "#283036" : "#e6ecee"
    readonly property color text: dark ? "#edf1f3" : "#12181c"
    readonly property color quiet: dark ? "#a7b2ba" : "#525d66"
    /** Of a value that may be so no longer. */
    readonly property color stale: dark ? "#909ca5" : "#606b74"
    readonly property color hairline: dark ? "#2b3339" : "#e1e6e9"
    readonly property color outline: dark ? "#75828c" : "#7b8790"
    readonly property color placeholder: dark ? "#313a41" : "#dde3e7"
    readonly property color accent: dark ? "#66cdd6" : "#0a6670"
    readonly property color accentInk: dark ? "#04272b" : "#ffffff"
    readonly property color accentSoft: dark ? "#17383d" : "#dbeef0"
    readonly property color accentSoftInk: dark ? "#a9e6eb" : "#064a52"
    readonly property color danger: dark ? "#ffb4ab" : "#b3261e"
    readonly property color dangerInk: dark ? "#561e18" : "#ffffff"
    readonly property color dangerSoft: dark ? "#3b2220" : "#fbeae8"
    readonly property color veil: dark ? "#a6000000" : "#66101a1f"
}
