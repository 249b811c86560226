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
    property alias puk: question.puk
    property alias request: question.request

    /** Typed: make the request. */
    signal entered(string first, string second)
    signal succeeded()

    readonly property bool asking: sheet.question === question

    busy: !asking && request !== null && request.busy
    failure: {
        if (asking || request === null || request.state !== CallSetup.Failed)
            return "";
        return puk ? Words.pukSentence(request.result, request.error) : Words.of(request);
    }
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
            if (row.request.result === CallSetup.Success) {
                row.description = row.done;
                row.succeeded();
            }
        }
    }
}
