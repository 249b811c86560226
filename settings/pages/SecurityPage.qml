// SIM security: the PINs, and fixed dialling.
import QtQuick
import Kvq.CallSetup
import Kvq.Settings
import Kvq.Settings.Controls

PhonePage {
    id: page

    SimPins {
        id: pins
    }

    FixedDialling {
        id: fixed
    }

    /** Whether a value is this SIM's: one that was read earlier may be another's. */
    function isSure(setting: Setting): bool {
        return setting.known && !setting.stale;
    }

    function statusText(status: int): string {
        switch (status) {
        case SimPins.Verified:
            return qsTr("Entered");
        case SimPins.NotVerified:
            return qsTr("Not entered");
        case SimPins.Blocked:
            return qsTr("Blocked");
        default:
            return qsTr("Not used");
        }
    }

    Section {
        heading: qsTr("SIM PIN")

        SwitchRow {
            objectName: "lock"
            label: qsTr("Lock SIM with PIN")
            description: checked && known
                ? qsTr("Asks when the phone starts. It cannot be turned off here: the telephony service offers no way.")
                : qsTr("Asks when the phone starts")
            pressable: known && !checked
            checked: pins.pinRequested.value
            known: pins.pinRequested.known
            stale: pins.pinRequested.stale
            busy: pins.pinRequested.busy || !sheetAsks && lockQuestion.request !== null && lockQuestion.request.busy
            failure: Words.of(pins.pinRequested) || (sheetAsks ? "" : Words.of(lockQuestion.request))
            onToggled: sheet.demand(lockQuestion)
            onRetry: {
                if (pins.pinRequested.state === CallSetup.Failed)
                    pins.pinRequested.retry();
                else
                    sheet.demand(lockQuestion);
            }

            readonly property bool sheetAsks: sheet.question === lockQuestion
        }

        PinActions {
            which: SimPins.Pin1
            asked: page.isSure(pins.pinRequested) && pins.pinRequested.value
            pins: pins
            sheet: sheet
            shortName: "pin"
            labels: [qsTr("Enter PIN"), qsTr("Change PIN"), qsTr("Unblock PIN")]
            names: [qsTr("PIN"), qsTr("Old PIN"), qsTr("New PIN"), qsTr("New PIN again"), qsTr("PUK")]
        }
    }

    Section {
        heading: qsTr("PIN2")
        note: qsTr("For the limit of costs and for fixed dialling.")
        visible: pins.pin2Status.available

        SettingValue {
            setting: pins.pin2Status
            label: qsTr("State")
            words: status => page.statusText(status)
        }

        PinActions {
            which: SimPins.Pin2
            status: page.isSure(pins.pin2Status) ? pins.pin2Status.value : SimPins.NotVerified
            pins: pins
            sheet: sheet
            shortName: "pin2"
            labels: [qsTr("Enter PIN2"), qsTr("Change PIN2"), qsTr("Unblock PIN2")]
            names: [qsTr("PIN2"), qsTr("Old PIN2"), qsTr("New PIN2"), qsTr("New PIN2 again"), qsTr("PUK2")]
        }
    }

    Section {
        heading: qsTr("Universal PIN")
        visible: pins.upinStatus.available && !(pins.upinStatus.known && pins.upinStatus.value === SimPins.NotUsed)

        SettingValue {
            setting: pins.upinStatus
            label: qsTr("State")
            words: status => page.statusText(status)
        }

        PinActions {
            which: SimPins.Upin
            status: page.isSure(pins.upinStatus) ? pins.upinStatus.value : SimPins.NotVerified
            pins: pins
            sheet: sheet
            shortName: "upin"
            labels: [qsTr("Enter universal PIN"), qsTr("Change universal PIN"), qsTr("Unblock universal PIN")]
            names: [qsTr("Universal PIN"), qsTr("Old PIN"), qsTr("New PIN"), qsTr("New PIN again"), qsTr("PUK")]
        }
    }

    Section {
        heading: qsTr("Fixed dialling")
        visible: fixed.available && !(fixed.supported.known && !fixed.supported.value)

        SwitchRow {
            objectName: "fixed-dialling"
            label: qsTr("Only numbers on the SIM’s list")
            description: qsTr("Other numbers cannot be called. Asks for the PIN2.")
            checked: fixed.enabled.value
            known: fixed.enabled.known
            stale: fixed.enabled.stale
            busy: fixed.enabled.busy
            failure: Words.of(fixed.enabled) || (sheet.question !== fixedQuestion ? Words.of(fixedQuestion.request) : "")
            onToggled: on => {
                fixedQuestion.on = on;
                sheet.demand(fixedQuestion);
            }
            onRetry: {
                if (fixed.enabled.state === CallSetup.Failed)
                    fixed.refresh();
                else
                    sheet.demand(fixedQuestion);
            }
        }
    }

    PinQuestion {
        id: lockQuestion

        which: SimPins.Pin1
        heading: qsTr("Lock SIM with PIN")
        prompts: [qsTr("PIN")]
        verb: qsTr("Turn on")
        onEntered: pin => request = pins.enable(pin)
    }

    PinQuestion {
        id: fixedQuestion

        property bool on: false

        which: SimPins.Pin2
        heading: qsTr("Fixed dialling")
        prompts: [qsTr("PIN2")]
        verb: on ? qsTr("Turn on") : qsTr("Turn off")
        onEntered: pin2 => request = fixed.setEnabled(on, pin2)
    }

    PinRequestSheet {
        id: sheet
    }
}
