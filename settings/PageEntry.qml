// A page as the list knows it.
import QtQml

QtObject {
    /** What the command line calls it. */
    property string name
    property string title
    property string symbol
    property string file
    /** The settings on it, as the page calls them. */
    property var settings: []
    /** Whether the product has what the page is about. */
    property bool offered: true
}
