// A row that asks for a PIN and does something with it. Afterwards it says that it was done.
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

    onPressed: {
        description = "";
        sheet.demand(question);
    }

    PinQuestion {
        id: question

        heading: row.label
        onEntered: (first, second) => row.entered(first, second)
        onTaken: {
            row.description = row.done;
            row.succeeded();
        }
    }
}
