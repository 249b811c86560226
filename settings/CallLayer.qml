// What calls have to say on every page, above sheets too: it covers what is below and pushes nothing.
import QtQuick
import QtQuick.Templates as T
import Kvq.CallSetup
import Kvq.Settings.Controls

T.Popup {
    id: front

    required property Calls calls
    required property CallSummary summary

    /** A call is being answered from here. */
    signal taken(Request request)

    function focusFirst(): void {
        for (let row = 0; row < cards.count; ++row) {
            const card = cards.itemAt(row) as IncomingCall;
            if (card.ringing) {
                card.focusFirst();
                return;
            }
        }
    }

    parent: T.Overlay.overlay
    // Sheets stand at 0.
    z: 2
    width: parent ? parent.width : 0
    padding: 0
    // It leaves the keyboard where it is; F6 leads here.
    focus: false
    closePolicy: T.Popup.NoAutoClose
    visible: summary.ringing.length > 0

    // A sheet keeps all other keys to itself.
    Shortcut {
        context: Qt.ApplicationShortcut
        sequence: "F6"
        enabled: front.visible
        onActivated: front.focusFirst()
    }

    contentItem: Column { // qmllint disable deferred-property-id
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
