// A line of text to type into, with its label above.
import QtQuick
import QtQuick.Templates as T
import Kvq.Settings.Controls

Column {
    id: field

    property string label
    property string hint
    property alias text: input.text
    property alias input: input
    property alias maximumLength: input.maximumLength
    property bool masked
    /** Digits, plus, star and hash only. */
    property bool number
    /** Digits only. */
    property bool digits
    /** Digits, and the decimal sign of the language. */
    property bool amount
    /** Whether a button takes back what was typed, for who has no keyboard. */
    property bool erasable

    /** How much of the end something else takes. */
    property real endRoom: 0

    signal accepted()

    /** What a key on the screen types. */
    function type(key: string): void {
        if (input.readOnly || (input.selectedText === "" && text.length >= maximumLength))
            return;
        input.remove(input.selectionStart, input.selectionEnd);
        input.insert(input.cursorPosition, key);
    }

    function takeBack(): void {
        const end = Math.max(input.selectionEnd, input.cursorPosition);
        input.remove(input.selectedText !== "" ? input.selectionStart : Math.max(0, end - 1), end);
    }

    width: parent ? parent.width : implicitWidth
    spacing: Theme.unit / 2

    PlainText {
        width: parent.width
        visible: text !== ""
        words: field.label
        font.pixelSize: Theme.small
        color: Theme.quiet
        wrapMode: Text.Wrap
        Accessible.ignored: true
    }

    T.TextField {
        id: input

        width: parent.width
        implicitHeight: Theme.touch
        leftPadding: room(Theme.mirrored)
        rightPadding: room(!Theme.mirrored)
        verticalAlignment: TextInput.AlignVCenter
        font.pixelSize: field.number || field.digits || field.amount ? Theme.title : Theme.body
        color: Theme.text
        selectionColor: Theme.accent
        selectedTextColor: Theme.accentInk
        selectByMouse: true
        echoMode: field.masked ? TextInput.Password : TextInput.Normal
        passwordCharacter: "●"
        passwordMaskDelay: 0
        inputMethodHints: field.digits ? Qt.ImhDigitsOnly | Qt.ImhSensitiveData | Qt.ImhNoPredictiveText
            : field.amount ? Qt.ImhFormattedNumbersOnly
            : field.number ? Qt.ImhDialableCharactersOnly : Qt.ImhNoAutoUppercase
        validator: field.digits ? digitsOnly : field.amount ? decimal : field.number ? dialable : null

        Accessible.role: Accessible.EditableText
        Accessible.name: Plain.shown(field.label !== "" ? field.label : field.hint)
        Accessible.passwordEdit: field.masked
        // Qt tells no name of what is masked.
        Accessible.description: Plain.shown(input.Accessible.name === "" ? field.label : "")

        function room(atEnd: bool): real {
            return atEnd && field.erasable ? eraser.width : atEnd ? Math.max(field.endRoom, Theme.unit + 4) : Theme.unit + 4;
        }

        onAccepted: field.accepted()
        onTextEdited: {
            // Which of the two is typed depends on the keyboard; what it means is seen at once.
            const other = field.amount ? text.search(/[.,]/) : -1;
            if (other < 0 || text[other] === Decimal.sign)
                return;
            const place = cursorPosition;
            text = text.replace(/[.,]/, Decimal.sign);
            cursorPosition = place;
        }

        PlainText {
            // Beside the cursor, not under it.
            x: parent.leftPadding + 3
            width: parent.width - x - parent.rightPadding
            anchors.verticalCenter: parent.verticalCenter
            visible: input.text === "" && input.preeditText === ""
            words: field.hint
            font.pixelSize: Theme.body
            color: Theme.quiet
            fontSizeMode: Text.HorizontalFit
            minimumPixelSize: 9
            elide: Text.ElideRight
            horizontalAlignment: input.horizontalAlignment
            Accessible.ignored: true
        }

        IconButton {
            id: eraser

            objectName: "erase"
            anchors.right: parent.right
            visible: field.erasable
            enabled: input.text !== ""
            symbol: "backspace"
            text: qsTr("Delete the last digit")
            focusPolicy: Qt.TabFocus
            autoRepeat: true
            onClicked: field.takeBack()
        }

        background: Rectangle {
            radius: Theme.unit
            color: Theme.window
            border.width: input.activeFocus ? 2 : 1
            border.color: input.activeFocus ? Theme.accent : Theme.outline
        }
    }

    RegularExpressionValidator {
        id: digitsOnly

        regularExpression: /[0-9]*/
    }

    RegularExpressionValidator {
        id: decimal

        regularExpression: /[0-9]*[.,٫]?[0-9]*/
    }

    RegularExpressionValidator {
        id: dialable

        regularExpression: /\+?[0-9*#pPwW]*/
    }
}
