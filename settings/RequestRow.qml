// A row that makes a request, and shows how it goes.
import QtQuick
import Kvq.CallSetup
import Kvq.Settings.Controls

ActionRow {
    id: row

    /** Asks first, where the request cannot be undone. */
    property ConfirmSheet question: null
    property Request request: null

    /** Make the request now. */
    signal wanted()

    busy: request !== null && request.busy
    failure: Words.of(request)
    onPressed: {
        if (question !== null)
            question.ask();
        else
            wanted();
    }
    onRetry: wanted()

    Connections {
        target: row.question

        function onConfirmed() {
            row.wanted();
        }
    }
}
