// How often in a row the SIM has refused a PIN or PUK here. The phone does not tell how many tries are left, so a number
// is known only from the last success on, and a PIN is known to be blocked once the SIM has said so.
pragma Singleton

import QtQml
import Kvq.CallSetup

QtObject {
    id: tries

    /** Refusals since the last success, by PIN, and by PUK; nothing for one that did not succeed here. */
    property var pins: ({})
    property var puks: ({})
    /** Whether the SIM has blocked a PIN, by PIN. */
    property var blocked: ({})
    /** The request that was counted last, since more than one may tell of it. */
    property Request counted: null

    /** The most tries that can be left, -1 when that is not known. */
    function left(which: int, puk: bool): int {
        const refusals = (puk ? puks : pins)[which] ?? -1;
        return refusals < 0 ? -1 : (puk ? 10 : 3) - refusals;
    }

    function isBlocked(which: int): bool {
        return blocked[which] ?? false;
    }

    /** A request that carried a PIN, or a PUK, is answered. */
    function note(which: int, puk: bool, request: Request): void {
        if (request === counted)
            return;
        counted = request;
        switch (request.result) {
        case CallSetup.PinRejected:
            if (puk && which in puks)
                puks = changed(puks, which, puks[which] + 1);
            else if (!puk && which in pins)
                pins = changed(pins, which, pins[which] + 1);
            break;
        case CallSetup.PinBlocked:
            blocked = changed(blocked, which, true);
            break;
        case CallSetup.Success:
            pins = changed(pins, which, 0);
            blocked = changed(blocked, which, false);
            if (puk)
                puks = changed(puks, which, 0);
            break;
        }
    }

    function changed(values: var, which: int, value: var): var {
        const result = Object.assign({}, values);
        result[which] = value;
        return result;
    }
}
