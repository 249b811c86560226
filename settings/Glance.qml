// What matters of a page at a glance, for the list of pages. It asks for nothing: it tells what pages have last read.
import QtQml
import Kvq.CallSetup
import Kvq.Settings
import Kvq.Settings.Controls

QtObject {
    id: glance

    required property Features features

    /** By the name of the page; nothing for a page of which nothing is known. */
    readonly property var texts: ({
        "preferences": preferences.autoAnswer.known && preferences.autoAnswer.value ? qsTr("Answers automatically") : "",
        "forwarding": forwardingText,
        "caller-id": joined([
            callerId.restriction.known && callerId.restriction.value === CallerId.Invoke ? qsTr("Number hidden") : "",
            !waiting.enabled.known ? "" : waiting.enabled.value ? qsTr("Call waiting on") : qsTr("Call waiting off")
        ]),
        "costs": costsText,
        "lines": lines.current.known ? qsTr("Line %1").arg(lines.current.value) : "",
        "security": securityText,
        "networks": joined([
            selection.serviceProvider.known ? selection.serviceProvider.value : "",
            selection.searchMode.known && selection.searchMode.value === NetworkSelection.Manual ? qsTr("chosen by hand") : ""
        ])
    })

    readonly property string forwardingText: {
        const rules = [
            [forwarding.unconditional, qsTr("Always")],
            [forwarding.whenBusy, qsTr("When busy")],
            [forwarding.noReply, qsTr("When not answered")],
            [forwarding.notReachable, qsTr("When not reachable")]
        ].filter(([rule]) => rule.known);
        const active = rules.filter(([rule]) => rule.active);
        // "Always" overrules the others.
        return active.length > 0 && active[0][0] === forwarding.unconditional ? active[0][1]
            : active.length > 0 ? active.map(([, text]) => text).join(", ")
            : rules.length === 4 ? qsTr("Off") : "";
    }

    readonly property string costsText: {
        // A meter that does not answer tells no maximum either.
        if (!costs.totalCost.known || !costs.maximum.known)
            return "";
        const spent = Decimal.local(costs.totalCost.value);
        return costs.limited ? qsTr("%1 of %2 spent").arg(spent).arg(Decimal.local(costs.maximum.value))
            : qsTr("%1 spent").arg(spent);
    }

    readonly property string securityText: {
        if (Tries.isBlocked(SimPins.Pin1))
            return qsTr("PIN blocked");
        if (pins.pinRequested.known)
            return pins.pinRequested.value ? qsTr("PIN asked for") : qsTr("PIN not asked for");
        return features.ready && !features.sim ? qsTr("No SIM") : "";
    }

    function joined(parts: var): string {
        return parts.filter(part => part !== "").join(", ");
    }

    readonly property CallPreferences preferences: CallPreferences { autoRefresh: false }
    readonly property CallForwarding forwarding: CallForwarding { autoRefresh: false }
    readonly property CallerId callerId: CallerId { autoRefresh: false }
    readonly property CallWaiting waiting: CallWaiting { autoRefresh: false }
    readonly property CallCosts costs: CallCosts { autoRefresh: false }
    readonly property Lines lines: Lines { autoRefresh: false }
    readonly property SimPins pins: SimPins { autoRefresh: false }
    readonly property NetworkSelection selection: NetworkSelection { autoRefresh: false }
}
