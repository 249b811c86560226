// A row that asks for a PIN and does something with it. Afterwards it says that it was done.
import Kvq.Settings.Controls

ActionRow {
    id: row

    required property PinRequestSheet sheet
    required property var prompts
    required property string verb
    /** What to say when it worked. */
    required property string done
    /** The least length of what is asked first: 8 for a PUK. */
    property int least: 4
    /** Makes the request from what was typed. */
    required property var make

    signal succeeded()

    onPressed: {
        description = "";
        sheet.demand(label, prompts, verb, least, make, () => {
            row.description = row.done;
            row.succeeded();
        });
    }
}
