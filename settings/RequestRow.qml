// A row that makes a request, and shows how it goes.
import Kvq.CallSetup
import Kvq.Settings.Controls

ActionRow {
    id: row

    /** Makes the request. */
    required property var make
    property Request request: null

    function run(): void {
        request = make(); // qmllint disable
    }

    busy: request !== null && request.busy
    failure: Words.of(request)
    onRetry: run()
}
