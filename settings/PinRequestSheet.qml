// Asks for a PIN and makes the request with it. Stays open until the SIM took the PIN, and says why it did not.
import QtQuick
import Kvq.CallSetup
import Kvq.Settings.Controls

PinSheet {
    id: sheet

    property var make: null
    property var whenDone: null
    property Request request: null

    function demand(heading: string, prompts: var, verb: string, least: int, make: var, whenDone: var): void {
        sheet.make = make;
        sheet.whenDone = whenDone;
        start(heading, prompts, verb, least);
    }

    onEntered: (first, second) => request = make(first, second)
    onClosed: request = null

    Connections {
        target: sheet.request

        function onFinished() {
            if (sheet.request.result === CallSetup.Success) {
                sheet.whenDone(); // qmllint disable
                sheet.close();
            } else {
                sheet.refuse(Words.sentence(sheet.request.result, sheet.request.error));
            }
        }
    }
}
