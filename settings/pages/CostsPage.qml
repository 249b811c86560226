// Call costs: credit, meters, their limit and the price of a unit.
import QtQuick
import Kvq.CallSetup
import Kvq.Settings
import Kvq.Settings.Controls

PhonePage {
    id: page

    CallCosts {
        id: costs
    }

    SimPins {
        id: pins

        autoRefresh: false
    }

    /** Has the PIN2 verified, then makes the change that failed for the lack of it: of a setting, or the reset for null. */
    function verifyPin2(setting: Setting): void {
        pin2Question.setting = setting;
        pinSheet.demandSoon(pin2Question);
    }

    /** Makes a change again that failed. */
    function again(setting: Setting): void {
        if (setting.result === CallSetup.Pin2Needed)
            verifyPin2(setting);
        else
            setting.retry();
    }

    function nextStep(result: int): string {
        return result === CallSetup.Pin2Needed ? qsTr("Enter PIN2") : qsTr("Try again");
    }

    /** What was read before this page was there says nothing about the meter now. */
    readonly property bool meterAnswered: costs.maximum.known && !costs.maximum.stale
    /** The meter did not answer. What tells no failure is then read again with what does. */
    property bool meterFailed: false

    Connections {
        target: costs.maximum

        function onStateChanged() {
            if (page.meterAnswered && page.meterFailed) {
                for (const setting of [costs.credit, costs.totalCost, costs.remainingTime, costs.totalTime])
                    setting.refresh();
            }
            page.meterFailed = !page.meterAnswered && (page.meterFailed || costs.maximum.state === CallSetup.Failed);
        }

        function onTakenBack() {
            if (costs.maximum.result === CallSetup.Pin2Needed)
                page.verifyPin2(costs.maximum);
        }
    }

    Connections {
        target: costs.price

        function onTakenBack() {
            if (costs.price.result === CallSetup.Pin2Needed)
                page.verifyPin2(costs.price);
        }
    }

    Connections {
        target: resetRow.request

        function onFinished() {
            if (resetRow.request.result === CallSetup.Pin2Needed)
                page.verifyPin2(null);
        }
    }

    PinQuestion {
        id: pin2Question

        property Setting setting: null

        which: SimPins.Pin2
        heading: qsTr("Enter PIN2")
        reason: qsTr("The SIM asks for it before the limit, the price or the costs are changed.")
        prompts: [qsTr("PIN2")]
        verb: qsTr("OK")
        onEntered: pin2 => request = pins.verify(SimPins.Pin2, pin2)
        onTaken: {
            if (setting !== null)
                setting.retry();
            else
                resetRow.wanted();
        }
    }

    PinRequestSheet {
        id: pinSheet
    }

    Section {
        heading: qsTr("Costs")

        SettingValue {
            setting: costs.credit
            label: qsTr("Credit left")
            words: amount => page.amount(amount)
        }

        SettingValue {
            objectName: "spent"
            setting: costs.totalCost
            label: qsTr("Spent so far")
            words: amount => page.amount(amount)
        }

        RequestRow {
            id: resetRow

            objectName: "reset-costs"
            failureAction: page.nextStep(request !== null ? request.result : CallSetup.Success)
            label: qsTr("Reset the costs")
            dangerous: true
            question: ConfirmSheet {
                title: qsTr("Reset the costs?")
                text: qsTr("The meter on the SIM starts again at zero.")
                action: qsTr("Reset")
            }
            onWanted: request = costs.resetCosts()
        }
    }

    Section {
        heading: qsTr("Limit and price")

        EntryRow {
            objectName: "limit"
            label: qsTr("Cost limit")
            value: costs.limited ? page.money(costs.maximum.value) : qsTr("No limit")
            description: qsTr("At the limit no more calls can be made")
            known: costs.maximum.known
            stale: costs.maximum.stale
            busy: costs.maximum.busy
            failure: Words.of(costs.maximum)
            failureAction: page.nextStep(costs.maximum.result)
            onPressed: limitSheet.start()
            onRetry: page.again(costs.maximum)
        }

        EntryRow {
            label: qsTr("Price of a unit")
            objectName: "price"
            value: Decimal.money(costs.price.unitPrice, costs.price.currency)
            known: costs.price.known
            stale: costs.price.stale
            busy: costs.price.busy
            failure: Words.of(costs.price)
            failureAction: page.nextStep(costs.price.result)
            onPressed: priceSheet.start()
            onRetry: page.again(costs.price)
        }

        SettingOnOff {
            setting: costs.display
            label: qsTr("Show costs after a call")
            on: CallCosts.Shown
            off: CallCosts.NotShown
        }

        SettingChoice {
            setting: costs.chargeType
            label: qsTr("Show costs in")
            choices: [
                { value: CallCosts.Units, text: qsTr("Units") },
                { value: CallCosts.Currency, text: qsTr("Currency") }
            ]
        }
    }

    Section {
        heading: qsTr("Time")

        SettingValue {
            setting: costs.remainingTime
            label: qsTr("Time left")
            words: value => page.clock(value)
        }

        SettingValue {
            setting: costs.totalTime
            label: qsTr("Time of all calls")
            words: value => page.clock(value)
        }

        RequestRow {
            label: qsTr("Reset the time")
            dangerous: true
            question: ConfirmSheet {
                title: qsTr("Reset the time?")
                text: qsTr("The time of all calls starts again at zero.")
                action: qsTr("Reset")
            }
            onWanted: request = costs.resetTime()
        }
    }

    function money(amount: string): string {
        // Without a price the meter counts units, which are whole.
        return amount.includes(".") ? Decimal.money(amount, costs.price.currency) : amount;
    }

    /** An amount is zero, too, when the meter does not answer; then its maximum cannot be read either. */
    function amount(amount: string): string {
        return Number(amount) === 0 && !page.meterAnswered ? qsTr("Not known") : money(amount);
    }

    /** "1:5:3" as "1:05:03". The phone gives no time that it does not know. */
    function clock(time: string): string {
        return time === "" ? qsTr("Not known") : time.split(":").map((part, at) => at > 0 ? part.padStart(2, "0") : part).join(":");
    }

    Sheet {
        id: limitSheet

        function start(): void {
            amount.text = costs.limited ? Decimal.local(costs.maximum.value) : "";
            ask();
            amount.input.forceActiveFocus();
        }

        title: qsTr("Cost limit")
        action: qsTr("Save")
        padded: true
        ready: /[0-9]/.test(amount.text)
        onAccepted: {
            costs.maximum.value = Decimal.plain(amount.text);
            close();
        }

        Field {
            id: amount

            label: qsTr("Amount")
            amount: true
            maximumLength: 20
            onAccepted: limitSheet.accept()
        }

        SheetPad {
            sheet: limitSheet
            dial: false
            decimalSign: Decimal.sign
            onKeyPressed: key => amount.type(key)
            onTakeBack: amount.takeBack()
        }

        PushButton {
            objectName: "remove-limit"
            width: parent ? parent.width : implicitWidth
            visible: costs.limited
            text: qsTr("Remove the limit")
            dangerous: true
            onClicked: {
                costs.removeMaximum();
                limitSheet.close();
            }
        }
    }

    Sheet {
        id: priceSheet

        function start(): void {
            price.text = Decimal.local(costs.price.unitPrice);
            currency.text = costs.price.currency;
            ask();
            price.input.forceActiveFocus();
        }

        title: qsTr("Price of a unit")
        text: costs.limited
            ? qsTr("The limit is %1 now. The SIM keeps it in units, so another price changes it: look at it afterwards.").arg(page.money(costs.maximum.value))
            : ""
        action: qsTr("Save")
        padded: true
        ready: /[0-9]/.test(price.text) && currency.text !== ""
        onAccepted: {
            costs.price.setPrice(Decimal.plain(price.text), currency.text);
            close();
        }

        Field {
            id: price

            label: qsTr("Price")
            amount: true
            maximumLength: 29
            onAccepted: currency.input.forceActiveFocus()
        }

        Field {
            id: currency

            label: qsTr("Currency")
            maximumLength: 40
            onAccepted: priceSheet.accept()
        }

        SheetPad {
            sheet: priceSheet
            dial: false
            decimalSign: Decimal.sign
            onKeyPressed: key => price.type(key)
            onTakeBack: price.takeBack()
        }
    }
}
