// What went wrong, in words, with what to do next.
pragma Singleton

import QtQml
import Kvq.CallSetup

QtObject {
    /** The failure of a setting, an item or a request; empty when there is none. */
    function of(thing: var): string {
        return thing && thing.state === CallSetup.Failed && thing.result !== CallSetup.Cancelled ? sentence(thing.result) : "";
    }

    /** What happened, and what to do about it. */
    function sentence(result: int): string {
        const advice = CallSetup.resultAdvice(result);
        return advice !== "" ? qsTr("%1 %2", "what happened, what to do").arg(CallSetup.resultText(result)).arg(advice)
            : CallSetup.resultText(result);
    }

    /** The same for a request that carries a PIN, or its PUK. */
    function pinSentence(which: int, puk: bool, result: int): string {
        const left = Tries.left(which, puk);
        if (!puk) {
            if (result === CallSetup.PinRejected && left === 2)
                return qsTr("The SIM refused the PIN. At most two tries are left. Enter it with care.");
            if (result === CallSetup.PinRejected && left === 1)
                return qsTr("The SIM refused the PIN. At most one try is left, then it is blocked. Enter it with care.");
            return sentence(result);
        }
        switch (result) {
        case CallSetup.PinRejected:
            return left > 0
                ? qsTr("This PUK is wrong. At most %1 of 10 tries are left, then the SIM can no longer be used.").arg(left)
                : qsTr("This PUK is wrong. Ten wrong PUKs in a row, and the SIM can no longer be used.");
        case CallSetup.PinBlocked:
            return qsTr("The SIM can no longer be used: it takes no more PUK. Ask your provider for another SIM.");
        default:
            return sentence(result);
        }
    }
}
