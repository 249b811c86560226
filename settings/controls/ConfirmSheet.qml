// Asks before something that cannot be undone.
Sheet {
    id: sheet

    property var whenSure: null

    function confirm(question: string, consequence: string, verb: string, whenSure: var): void {
        title = question;
        text = consequence;
        action = verb;
        sheet.whenSure = whenSure;
        ask();
    }

    dangerous: true
    onAccepted: {
        close();
        whenSure(); // qmllint disable
    }
}
