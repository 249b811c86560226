// Asks for a PIN, or for an old and a new one, one after the other. Nothing that was typed outlives the sheet.
import QtQuick

Sheet {
    id: sheet

    /** What is asked for, one to three labels; the third repeats the second. */
    property var prompts: []
    property string verb: qsTr("OK")
    property int step: 0
    property int least: 4

    readonly property bool last: step === prompts.length - 1

    /** Typed completely. The receiver answers with accept by closing the sheet, or with refuse(). */
    signal entered(string first, string second)

    function start(heading: string, what: var, verb: string, least: int): void {
        title = heading;
        prompts = what;
        sheet.verb = verb;
        sheet.least = least;
        forget();
        ask();
        currentField().input.forceActiveFocus();
    }

    /** Refused: says why and starts again. */
    function refuse(reason: string): void {
        forget();
        failure = reason;
        currentField().input.forceActiveFocus();
    }

    function forget(): void {
        for (const field of [one, two, three])
            field.input.clear();
        step = 0;
        busy = false;
    }

    function currentField(): Field {
        return [one, two, three][step];
    }

    action: last ? verb : qsTr("Next")
    ready: currentField().text.length >= (step === 0 ? least : 4)
    onClosed: forget()
    onAccepted: {
        failure = "";
        if (!last) {
            ++step;
            currentField().input.forceActiveFocus();
        } else if (prompts.length === 3 && two.text !== three.text) {
            failure = qsTr("The two entries are not the same. Enter the new PIN once more.");
            two.input.clear();
            three.input.clear();
            step = 1;
            two.input.forceActiveFocus();
        } else {
            busy = true;
            entered(one.text, two.text);
        }
    }

    Column {
        width: parent.width
        spacing: Theme.unit

        Field {
            id: one

            visible: sheet.step === 0
            label: sheet.prompts[0] ?? ""
            masked: true
            digits: true
            maximumLength: 8
            input.readOnly: sheet.busy
            onAccepted: sheet.accept()
        }

        Field {
            id: two

            visible: sheet.step === 1
            label: sheet.prompts[1] ?? ""
            masked: true
            digits: true
            maximumLength: 8
            onAccepted: sheet.accept()
        }

        Field {
            id: three

            visible: sheet.step === 2
            label: sheet.prompts[2] ?? ""
            masked: true
            digits: true
            maximumLength: 8
            input.readOnly: sheet.busy
            onAccepted: sheet.accept()
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

        NumberPad {
            width: parent.width
            dial: false
            keyHeight: 48
            ground: Theme.window
            onKeyPressed: key => sheet.currentField().type(key)
            onTakeBack: sheet.currentField().takeBack()
        }
    }
}
