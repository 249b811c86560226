// How the calls of the phone stand altogether.
import QtQml
import QtQml.Models
import Kvq.CallSetup

Instantiator {
    id: summary

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
    readonly property bool talking: running.some(entry => entry.active)

    function find(state: int): CallEntry {
        return running.find(entry => entry.callState === state) ?? null;
    }

    delegate: CallEntry {}
}
