// One call of the phone, as the window keeps it while pages come and go.
import QtQml
import Kvq.CallSetup

QtObject {
    id: entry

    required property int callId
    required property string number
    required property int callState
    required property bool incoming
    required property bool joined

    readonly property bool ringing: incoming && callState === Calls.Ringing
    /** When it was answered, in milliseconds; 0 where nobody here saw it. */
    property double since: 0
    property bool begunHere: false

    function look(): void {
        if (callState === Calls.Dialling || callState === Calls.Ringing)
            begunHere = true;
        else if (callState === Calls.Active && begunHere && since === 0)
            since = Date.now();
    }

    onCallStateChanged: look()
    Component.onCompleted: look()
}
