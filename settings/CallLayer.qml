// What calls have to say on every page, above sheets too: it covers what is below and pushes nothing.
import QtQuick
import QtQuick.Templates as T
import Kvq.CallSetup
import Kvq.Settings.Controls

T.Popup {
    id: front

    required property Calls calls
    required property CallSummary summary
    /** The calls that run are in sight already. */
    required property bool inSight

    /** The height of the bar that leads back to them; it changes only while no finger can lose what it taps. */
    property real room: 0

    /** A call is being answered from here. */
    signal taken(Request request)
    signal returned()

    function focusFirst(): void {
        if (summary.ringing.length === 0)
            bar.forceActiveFocus(Qt.TabFocusReason);
        for (let row = 0; row < cards.count; ++row) {
            const card = cards.itemAt(row) as IncomingCall;
            if (card.ringing) {
                card.focusFirst();
                return;
            }
        }
    }

    parent: T.Overlay.overlay
    // Sheets stand at 0, the calls that run at 1.
    z: 2
    width: parent ? parent.width : 0
    padding: 0
    // It leaves the keyboard where it is; F6 leads here.
    focus: false
    closePolicy: T.Popup.NoAutoClose
    visible: summary.ringing.length > 0 || room > 0

    // A sheet keeps all other keys to itself.
    Shortcut {
        context: Qt.ApplicationShortcut
        sequence: "F6"
        enabled: front.visible
        onActivated: front.focusFirst()
    }

    Binding {
        target: front
        property: "room"
        value: front.summary.running.length > 0 && !front.inSight ? bar.implicitHeight : 0
        when: !TapGuard.fingerDown
        restoreMode: Binding.RestoreNone
    }

    contentItem: Column { // qmllint disable deferred-property-id
        LayoutMirroring.enabled: Theme.mirrored
        LayoutMirroring.childrenInherit: true

        ReturnBar {
            id: bar

            width: front.width
            visible: front.room > 0
            summary: front.summary
            onClicked: front.returned()
        }

        Repeater {
            id: cards

            model: front.calls

            IncomingCall {
                width: front.width
                calls: front.calls
                talking: front.summary.talking
                onTaken: request => front.taken(request)
            }
        }
    }
}
