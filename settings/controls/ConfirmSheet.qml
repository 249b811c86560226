// Asks before something that cannot be undone.
import QtQuick

Sheet {
    id: sheet

    signal confirmed()

    dangerous: true
    onOpened: {
        cancelButton.forceActiveFocus();
        // It may have had the keyboard before, when the sheet was closed.
        cancelButton.focusReason = openerShown ? Qt.TabFocusReason : Qt.OtherFocusReason;
    }
    onAccepted: {
        close();
        confirmed();
    }
}
