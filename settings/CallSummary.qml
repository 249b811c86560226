// How the calls of the phone stand altogether, and for how long they last.
import QtQml
import QtQml.Models
import Kvq.CallSetup

Instantiator {
    id: summary

    /** Whether anybody sees how the time passes. */
    property bool watched: false

    readonly property var entries: {
        const list = [];
        for (let row = 0; row < count; ++row)
            list.push(objectAt(row));
        return list.filter(entry => entry !== null);
    }
    readonly property var ringing: entries.filter(entry => entry.ringing)
    /** Those that ring no longer, or never did. */
    readonly property var running: entries.filter(entry => !entry.ringing && entry.callState !== Calls.Idle)
    /** The one that is dialled, else one that talks, else one on hold; null for none. */
    readonly property CallEntry current: find(Calls.Dialling) ?? find(Calls.Active) ?? find(Calls.Held)
    readonly property bool talking: find(Calls.Active) !== null
    property double now: 0

    function find(state: int): CallEntry {
        return running.find(entry => entry.callState === state) ?? null;
    }

    function describe(state: int, joined: bool): string {
        switch (state) {
        case Calls.Dialling:
            return qsTr("Calling …");
        case Calls.Ringing:
            return qsTr("Incoming call");
        case Calls.Active:
            return joined ? qsTr("Active, in the conference") : qsTr("Active");
        case Calls.Held:
            return joined ? qsTr("On hold, in the conference") : qsTr("On hold");
        default:
            return qsTr("Ended");
        }
    }

    /** Minutes and seconds since it was answered; empty where nobody here saw that. */
    function timeOf(entry: CallEntry): string {
        if (entry.since === 0)
            return "";
        const seconds = Math.max(0, Math.floor((now - entry.since) / 1000));
        const two = value => String(value).padStart(2, "0");
        const minutes = Math.floor(seconds / 60);
        return minutes < 60 ? minutes + ":" + two(seconds % 60)
            : Math.floor(minutes / 60) + ":" + two(minutes % 60) + ":" + two(seconds % 60);
    }

    delegate: CallEntry {}

    readonly property Timer clock: Timer {
        interval: 1000
        repeat: true
        triggeredOnStart: true
        running: summary.watched && summary.running.length > 0
        onTriggered: summary.now = Date.now()
    }
}
