// What became of a service code, in words.
pragma Singleton

import QtQml
import Kvq.CallSetup

QtObject {
    /** What it was about. */
    function title(request: Request): string {
        const outcome = request.value;
        switch (outcome.kind) {
        case ServiceCodes.DeviceNumber:
            return qsTr("Number of this device (IMEI)");
        case ServiceCodes.Forwarding:
        case ServiceCodes.AllForwarding:
            return qsTr("Call forwarding");
        case ServiceCodes.CallWaiting:
            return qsTr("Call waiting");
        case ServiceCodes.CallerId:
            return qsTr("Your number in your calls");
        case ServiceCodes.Pin:
        case ServiceCodes.PinsDiffer:
            return outcome.pin === SimPins.Pin2 ? qsTr("PIN2") : qsTr("PIN");
        default:
            return qsTr("Service request");
        }
    }

    /** How it is now; empty when the request failed. */
    function state(request: Request): string {
        if (request.result !== CallSetup.Success)
            return "";
        const outcome = request.value;
        switch (outcome.kind) {
        case ServiceCodes.DeviceNumber:
            return outcome.text;
        case ServiceCodes.Forwarding:
            return qsTr("%1, %2: %3").arg(callsOf(outcome.serviceClass)).arg(condition(outcome.condition))
                .arg(outcome.active ? qsTr("to %1").arg(outcome.number) : qsTr("off"));
        case ServiceCodes.AllForwarding:
            return qsTr("All forwarding is off.");
        case ServiceCodes.CallWaiting:
            return outcome.active ? qsTr("On") : qsTr("Off");
        case ServiceCodes.CallerId:
            return outcome.restriction === CallerId.Invoke ? qsTr("Hidden")
                : outcome.restriction === CallerId.Suppress ? qsTr("Shown") : qsTr("The provider decides");
        case ServiceCodes.Pin:
            return outcome.unblocked ? qsTr("Unblocked, and the new PIN is set.") : qsTr("Changed.");
        default:
            return qsTr("Sent. The answer comes from the network, and the phone shows it.");
        }
    }

    /** Why it is not so; empty when the request succeeded. */
    function failure(request: Request): string {
        const outcome = request.value;
        if (request.result === CallSetup.Success || !outcome)
            return Words.of(request);
        if (outcome.kind === ServiceCodes.PinsDiffer)
            return qsTr("A PIN is missing, or the new one was not the same both times. Nothing was changed.");
        if (outcome.kind === ServiceCodes.Pin)
            return Words.pinSentence(outcome.pin, outcome.unblocked, request.result, request.error);
        if (request.result === CallSetup.InvalidParameter)
            return qsTr("Nobody knows this code. Look whether it is typed as your provider wrote it.");
        return Words.of(request);
    }

    function callsOf(serviceClass: int): string {
        return [qsTr("Voice calls"), qsTr("Data calls"), qsTr("Fax calls")][serviceClass];
    }

    function condition(condition: int): string {
        switch (condition) {
        case CallForwarding.WhenBusy:
            return qsTr("when busy");
        case CallForwarding.NoReply:
            return qsTr("when not answered");
        case CallForwarding.NotReachable:
            return qsTr("when not reachable");
        default:
            return qsTr("always");
        }
    }
}
