// Asks for a PIN, or for an old and a new one, one after the other. The fields are made for one try and end with it,
// since a field keeps what it would undo, also when it has been cleared.
import QtQuick

Sheet {
    id: sheet

    /** What is asked for, one to three labels; the third repeats the second. */
    property var prompts: []
    property string verb: qsTr("OK")
    property int step: 0
    property int least: 4

    /** Whether there are fields to type into. */
    property bool typing: false
    readonly property Field field: typing && fields.count > step ? fields.itemAt(step) as Field : null
    readonly property bool last: step === prompts.length - 1

    /** Typed completely. The receiver answers with accept by closing the sheet, or with refuse(). */
    signal entered(string first, string second)

    function start(heading: string, what: var, verb: string, least: int): void {
        title = heading;
        prompts = what;
        sheet.verb = verb;
        sheet.least = least;
        if (opened)
            failure = "";
        else
            ask();
        begin();
    }

    /** Refused: says why and starts again. */
    function refuse(reason: string): void {
        failure = reason;
        begin();
    }

    function begin(): void {
        forget();
        typing = true;
        field.input.forceActiveFocus();
    }

    function forget(): void {
        typing = false;
        step = 0;
        busy = false;
    }

    function typed(step: int): string {
        return (fields.itemAt(step) as Field)?.text ?? "";
    }

    padded: true
    action: last ? verb : qsTr("Next")
    ready: field !== null && field.text.length >= (step === 0 ? least : 4)
    onClosed: forget()
    onAccepted: {
        failure = "";
        if (!last) {
            ++step;
            field.input.forceActiveFocus();
        } else if (prompts.length === 3 && typed(1) !== typed(2)) {
            failure = qsTr("The two entries are not the same. Enter the new PIN once more.");
            for (const again of [1, 2])
                (fields.itemAt(again) as Field).input.clear();
            step = 1;
            field.input.forceActiveFocus();
        } else {
            busy = true;
            entered(typed(0), typed(1));
        }
    }

    Column {
        width: parent.width
        spacing: Theme.unit

        Repeater {
            id: fields

            model: sheet.typing ? sheet.prompts : []

            Field {
                required property string modelData
                required property int index

                visible: sheet.step === index
                label: modelData
                masked: true
                digits: true
                maximumLength: 8
                input.readOnly: sheet.busy
                onAccepted: sheet.accept()
            }
        }

        PlainText {
            width: parent.width
            visible: sheet.prompts.length > 1
            words: qsTr("Step %1 of %2").arg(sheet.step + 1).arg(sheet.prompts.length)
            font.pixelSize: Theme.small
            color: Theme.quiet
            wrapMode: Text.Wrap
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }

        SheetPad {
            sheet: sheet
            dial: false
            onKeyPressed: key => sheet.field?.type(key)
            onTakeBack: sheet.field?.takeBack()
        }
    }
}
