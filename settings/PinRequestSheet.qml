// Asks for a PIN. Stays open until the SIM took the PIN, and says why it did not.
import QtQuick
import Kvq.CallSetup
import Kvq.Settings.Controls

PinSheet {
    id: sheet

    property PinQuestion question: null

    function demand(question: PinQuestion): void {
        sheet.question = question;
        question.request = null;
        start(question.heading, question.prompts, question.verb, question.puk ? 8 : 4);
    }

    onEntered: (first, second) => question.entered(first, second)
    onClosed: question = null

    Connections {
        target: sheet.question !== null ? sheet.question.request : null

        function onFinished() {
            const request = sheet.question.request;
            if (request.result === CallSetup.Success) {
                sheet.question.taken();
                sheet.close();
            } else {
                sheet.refuse(sheet.question.puk ? Words.pukSentence(request.result, request.error)
                                                : Words.sentence(request.result, request.error));
            }
        }
    }
}
