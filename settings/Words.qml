// What went wrong, in words, with what to do next.
pragma Singleton

import QtQml
import Kvq.CallSetup

QtObject {
    /** The failure of a setting, an item or a request; empty when there is none. */
    function of(thing: var): string {
        if (!thing || thing.state !== CallSetup.Failed || thing.result === CallSetup.Cancelled)
            return "";
        return sentence(thing.result, thing.error);
    }

    function sentence(result: int, error: string): string {
        switch (result) {
        case CallSetup.InvalidParameter:
            return qsTr("The phone does not take this value. Check what you entered.");
        case CallSetup.CallRequestFailed:
            return qsTr("The call could not be changed. See whether it is still there.");
        case CallSetup.NoNumber:
            return qsTr("There is no number to call. Enter one first.");
        case CallSetup.InvalidCall:
            return qsTr("This call has ended. Dial again to talk on.");
        case CallSetup.Refused:
            return qsTr("The request was refused. Try again later, or ask your provider.");
        case CallSetup.SimUnavailable:
            return qsTr("The SIM does not answer. Enter its PIN first, or check that it is inserted.");
        case CallSetup.PinRejected:
            return qsTr("The SIM refused the PIN. Enter it with care: three wrong PINs block the SIM.");
        case CallSetup.PinBlocked:
            return qsTr("The SIM has blocked this PIN. Unblock it with the PUK that came with the SIM.");
        case CallSetup.NotSupported:
            return qsTr("This phone or its network does not offer this. Ask your provider whether it can.");
        case CallSetup.TimedOut:
            return qsTr("No answer came in time. Look again in a moment: the change may still take effect.");
        case CallSetup.ServiceBusy:
            return qsTr("The phone is busy with another request. Try again in a moment.");
        case CallSetup.ServiceDown:
            return qsTr("The telephony service does not run. Restart the phone if this lasts.");
        case CallSetup.ModemOffline:
            return qsTr("The modem is off. Switch flight mode off first.");
        case CallSetup.LinkLost:
            return qsTr("The link to the telephony service is gone. It is opened again when you try again.");
        case CallSetup.AccessDenied:
            return qsTr("This program may not use the telephony service. Ask who manages the phone.");
        case CallSetup.Pin2Needed:
            return qsTr("The SIM asks for the PIN2 before such a change. Enter it, and the change is made.");
        case CallSetup.NotStored:
            return qsTr("The setting could not be stored, and the one from before still holds. Try again.");
        case CallSetup.DiskFull:
            return qsTr("The disk is full, so nothing was changed. Delete something, then try again.");
        case CallSetup.NotAllowed:
            return qsTr("Settings cannot be changed just now. Try again when the call has ended.");
        default:
            return qsTr("%1 Try again later.").arg(error !== "" ? error : qsTr("It did not work (code %1).").arg(result));
        }
    }

    /** The same for a request that carries a PIN, or its PUK. */
    function pinSentence(which: int, puk: bool, result: int, error: string): string {
        const left = Tries.left(which, puk);
        if (!puk) {
            if (result === CallSetup.PinRejected && left === 2)
                return qsTr("The SIM refused the PIN. At most two tries are left. Enter it with care.");
            if (result === CallSetup.PinRejected && left === 1)
                return qsTr("The SIM refused the PIN. At most one try is left, then it is blocked. Enter it with care.");
            return sentence(result, error);
        }
        switch (result) {
        case CallSetup.PinRejected:
            return left > 0
                ? qsTr("This PUK is wrong. At most %1 of 10 tries are left, then the SIM can no longer be used.").arg(left)
                : qsTr("This PUK is wrong. Ten wrong PUKs in a row, and the SIM can no longer be used.");
        case CallSetup.PinBlocked:
            return qsTr("The SIM can no longer be used: it takes no more PUK. Ask your provider for another SIM.");
        default:
            return sentence(result, error);
        }
    }
}
