// How often in a row the SIM has refused a PIN or PUK here. The phone does not tell how many tries are left, but a SIM
// takes three wrong PINs and ten wrong PUKs, so these are the most that can be.
pragma Singleton

import QtQml
import Kvq.CallSetup

QtObject {
    id: tries

    /** Refusals by PIN, and by PUK. */
    property var pins: ({})
    property var puks: ({})
    /** The request that was counted last, since more than one may tell of it. */
    property Request counted: null

    function left(which: int, puk: bool): int {
        return puk ? 10 - (puks[which] ?? 0) : 3 - (pins[which] ?? 0);
    }

    /** A request that carried a PIN, or a PUK, is answered. */
    function note(which: int, puk: bool, request: Request): void {
        if (request === counted)
            return;
        counted = request;
        if (request.result === CallSetup.PinRejected) {
            if (puk)
                puks = changed(puks, which, (puks[which] ?? 0) + 1);
            else
                pins = changed(pins, which, (pins[which] ?? 0) + 1);
        } else if (request.result === CallSetup.Success) {
            pins = changed(pins, which, 0);
            if (puk)
                puks = changed(puks, which, 0);
        }
    }

    function changed(counts: var, which: int, count: int): var {
        const result = Object.assign({}, counts);
        result[which] = count;
        return result;
    }
}
