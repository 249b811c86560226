// The window: the list of pages and a page, side by side where there is room, else one after the other.
import QtQuick
import QtQuick.Templates as T
import Kvq.CallSetup
import Kvq.Settings.Controls

Window {
    id: window

    /** The page to begin with; empty for the list. */
    property string firstPage
    property string theme
    property bool calm

    readonly property bool twoPanes: width >= Theme.twoPanes
    /** The page that is shown, empty while the list alone is. */
    property string page
    readonly property string shownPage: page !== "" ? page : twoPanes ? "calls" : ""
    readonly property alias pages: directory
    /** What the product has. */
    property Features features: finder.createObject(window) as Features
    readonly property PhonePage pageItem: loader.item as PhonePage
    readonly property bool loaded: shownPage === "" || loader.status === Loader.Ready
    /** Nothing moves and nothing is waited for. */
    readonly property bool settled: loaded && !CallSetup.busy && features.ready && !slide.running

    /** False when there is no such page. */
    function open(name: string): bool {
        if (directory.find(name) === null)
            return false;
        byKey = showsFocus();
        byHand = true;
        page = name;
        if (twoPanes)
            pageList.focusRow(name, Qt.OtherFocusReason);
        return true;
    }

    /** Shows a number that somebody may want to call. */
    function prepare(number: string): void {
        callScreen.close();
        callScreen.adding = callSummary.running.length > 0;
        callScreen.prepared = number;
        open("calls");
    }

    /** Opens a page at one of its settings. */
    function openAt(name: string, setting: string): void {
        wantedRow = "";
        if (setting !== "" && shownPage === name && pageItem) {
            pageItem.showRow(setting);
            return;
        }
        open(name);
        wantedRow = setting;
    }

    /** Whether the keyboard led to where the focus is. */
    function showsFocus(): bool {
        return activeFocusItem !== null && ((activeFocusItem as T.Control)?.visualFocus ?? activeFocusItem !== contentItem);
    }

    /** Finds out anew what the product has. */
    function lookAgain(): void {
        // Who asks already may be past what has changed, so somebody else begins anew.
        const before = features;
        features = finder.createObject(window) as Features;
        before.destroy();
    }

    /** One step back: to the list, and in the list nowhere. */
    function back(): void {
        const from = shownPage;
        const byKey = showsFocus();
        byHand = true;
        if (!twoPanes)
            page = "";
        pageList.focusRow(from, byKey ? Qt.TabFocusReason : Qt.OtherFocusReason);
    }

    /** Whether a move shows where the page came from; resizing the window does not. */
    property bool byHand: false
    /** The row that the page is to begin with, where it is not its first. */
    property string wantedRow
    /** Whether the page was opened by keyboard, and its first control is to show the focus. */
    property bool byKey: false

    width: 400
    height: 800
    minimumWidth: 320
    minimumHeight: 480
    visible: true
    color: Theme.window
    title: qsTr("Call settings")

    Component.onCompleted: {
        Theme.wanted = theme;
        Theme.calm = calm;
        TapGuard.watch(window);
        page = directory.find(firstPage) ? firstPage : "";
        if (page === "")
            pageList.focusFirst(Qt.OtherFocusReason);
    }

    onWidthChanged: byHand = false

    Component {
        id: finder

        Features {
            property bool wasReady: false

            onReadyChanged: {
                // The product turned out to lack what is shown. A page that learns it itself says so and stays.
                if (ready && !wasReady && window.page !== "" && directory.find(window.page) === null)
                    window.page = "";
                wasReady = ready;
            }
        }
    }

    Calls {
        id: callTable

        visible: window.visible && window.visibility !== Window.Minimized
    }

    CallSummary {
        id: callSummary

        model: callTable
        watched: callTable.visible
    }

    CallScreen {
        id: callScreen

        calls: callTable
        summary: callSummary
        onAddingWanted: window.open("calls")
    }

    CallLayer {
        id: callLayer

        calls: callTable
        summary: callSummary
        inSight: callScreen.opened
        onTaken: request => callScreen.expect(request)
        onReturned: callScreen.open()
    }

    Binding {
        target: Theme
        property: "reserved"
        value: callLayer.room
    }

    PageDirectory {
        id: directory

        features: window.features
    }

    FocusScope {
        id: content

        anchors.fill: parent
        focus: true
        LayoutMirroring.enabled: Theme.mirrored
        LayoutMirroring.childrenInherit: true
        Keys.onEscapePressed: window.back()
        Keys.onBackPressed: event => {
            event.accepted = window.page !== "" && !window.twoPanes;
            if (event.accepted)
                window.back();
        }
        Keys.onPressed: event => {
            if (event.key === Qt.Key_Left && event.modifiers & Qt.AltModifier) {
                window.back();
                event.accepted = true;
            }
        }

        Item {
            id: panes

            anchors.fill: parent
            anchors.topMargin: callLayer.room
            clip: slide.running

            PageList {
                id: pageList

                x: window.twoPanes && Theme.mirrored ? parent.width - width : 0
                width: window.twoPanes ? 320 : parent.width
                height: parent.height
                visible: window.twoPanes || stage.x !== 0
                focus: true
                directory: directory
                selected: window.twoPanes ? window.shownPage : ""
                onPicked: (name, setting) => window.openAt(name, setting)
                Keys.onRightPressed: {
                    if (window.twoPanes && window.pageItem)
                        window.pageItem.focusFirst(Qt.TabFocusReason);
                }
            }

            Rectangle {
                x: Theme.mirrored ? parent.width - 321 : 320
                width: 1
                height: parent.height
                color: Theme.hairline
                visible: window.twoPanes
            }

            Rectangle {
                id: stage

                // Where it is hidden: on the side from which it comes.
                readonly property real away: Theme.mirrored ? -parent.width : parent.width

                x: window.twoPanes ? (Theme.mirrored ? 0 : 321) : window.shownPage !== "" ? 0 : away
                width: window.twoPanes ? parent.width - 321 : parent.width
                height: parent.height
                color: Theme.window
                visible: x !== away

                Behavior on x {
                    enabled: window.byHand && !window.twoPanes

                    NumberAnimation {
                        id: slide

                        duration: Theme.movement
                        easing.type: Easing.OutCubic
                    }
                }

                BusyMark {
                    anchors.centerIn: parent
                    busy: loader.status === Loader.Loading
                }

                Loader {
                    id: loader

                    readonly property PageEntry entry: window.shownPage === "" ? null : directory.find(window.shownPage)
                    // The page stays while it slides away.
                    property PageEntry kept: null

                    anchors.fill: parent
                    asynchronous: true
                    source: entry ? "pages/" + entry.file : kept && stage.visible ? "pages/" + kept.file : ""
                    onEntryChanged: {
                        if (entry)
                            kept = entry;
                    }
                    onLoaded: {
                        window.pageItem.title = kept.title;
                        window.pageItem.hasBack = !window.twoPanes;
                        window.pageItem.callScreen = callScreen;
                        if (window.wantedRow !== "" && window.pageItem.showRow(window.wantedRow))
                            window.wantedRow = "";
                        else if (!window.twoPanes)
                            window.pageItem.focusFirst(window.byKey ? Qt.TabFocusReason : Qt.OtherFocusReason);
                    }

                    Binding {
                        target: window.pageItem
                        property: "hasBack"
                        value: !window.twoPanes
                    }

                    Connections {
                        target: window.pageItem
                        function onWentBack() {
                            window.back();
                        }
                    }
                }
            }
        }
    }
}
