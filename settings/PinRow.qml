// A row that asks for a PIN and does something with it. Afterwards it says what came of it, if the sheet has not.
import QtQuick
import Kvq.CallSetup
import Kvq.Settings.Controls

ActionRow {
    id: row

    required property PinRequestSheet sheet
    /** What to say when it worked. */
    required property string done
    property alias prompts: question.prompts
    property alias verb: question.verb
    property alias which: question.which
    property alias puk: question.puk
    property alias reason: question.reason
    property alias remedy: question.remedy
    readonly property alias question: question
    property alias request: question.request
    readonly property bool asking: sheet.question === question

    /** Typed: make the request. */
    signal entered(string first, string second)
    signal succeeded()

    busy: !asking && request !== null && request.busy
    failure: {
        // What an earlier one came to may hold no longer.
        if (asking || request === null || request !== Tries.counted || Words.of(request) === "")
            return "";
        return Words.pinSentence(which, puk, request.result);
    }
    failureAction: request !== null && request.result === CallSetup.PinBlocked ? "" : qsTr("Try again")
    onRetry: pressed()
    onPressed: {
        description = "";
        sheet.demand(question);
    }

    PinQuestion {
        id: question

        heading: row.label
        onEntered: (first, second) => row.entered(first, second)
    }

    Connections {
        target: row.request

        function onFinished() {
            Tries.note(row.which, row.puk, row.request);
            if (row.request.result === CallSetup.Success) {
                row.description = row.done;
                row.succeeded();
            }
        }
    }
}
