// Asks for a PIN. Stays open until the SIM took the PIN, and says why it did not.
import QtQuick
import Kvq.CallSetup
import Kvq.Settings.Controls

PinSheet {
    id: sheet

    property PinQuestion question: null
    /** What is asked once no other sheet stands in the way. */
    property PinQuestion next: null

    function demandSoon(question: PinQuestion): void {
        next = question;
        placing.restart();
    }

    function demand(question: PinQuestion): void {
        sheet.question = question;
        question.request = null;
        start(question.heading, question.prompts, question.verb, question.puk ? 8 : 4);
    }

    text: question !== null ? question.reason : ""
    onEntered: (first, second) => question.entered(first, second)
    onClosed: question = null

    // Once a sheet that closes has given the keyboard back.
    Timer {
        id: placing

        interval: 0
        onTriggered: {
            if (sheet.next === null || sheet.parent.visible)
                return;
            sheet.demand(sheet.next);
            sheet.next = null;
        }
    }

    Connections {
        target: sheet.parent

        function onVisibleChanged() {
            placing.restart();
        }
    }

    Connections {
        target: sheet.question !== null ? sheet.question.request : null

        function onFinished() {
            const request = sheet.question.request;
            Tries.note(sheet.question.which, sheet.question.puk, request);
            if (request.result === CallSetup.Success) {
                sheet.question.taken();
                sheet.close();
            } else if (request.result === CallSetup.PinBlocked && sheet.question.remedy !== null) {
                sheet.demand(sheet.question.remedy);
            } else {
                sheet.refuse(Words.pinSentence(sheet.question.which, sheet.question.puk, request.result));
            }
        }
    }
}
