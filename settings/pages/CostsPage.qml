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

    Section {
        heading: qsTr("Costs")

        SettingValue {
            setting: costs.credit
            label: qsTr("Credit left")
        }

        SettingValue {
            objectName: "spent"
            setting: costs.totalCost
            label: qsTr("Spent so far")
        }

        RequestRow {
            objectName: "reset-costs"
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
            label: qsTr("Limit")
            value: costs.limited ? costs.maximum.value : qsTr("No limit")
            description: qsTr("At the limit no more calls can be made")
            known: costs.maximum.known
            busy: costs.maximum.busy
            failure: Words.of(costs.maximum)
            onPressed: limitSheet.start()
            onRetry: costs.maximum.retry()
        }

        EntryRow {
            label: qsTr("Price of a unit")
            value: qsTr("%1 %2", "price and currency").arg(costs.price.unitPrice).arg(costs.price.currency).trim()
            known: costs.price.known
            busy: costs.price.busy
            failure: Words.of(costs.price)
            onPressed: priceSheet.start()
            onRetry: costs.price.retry()
        }

        SettingChoice {
            setting: costs.display
            label: qsTr("Show costs after a call")
            choices: [
                { value: CallCosts.NotShown, text: qsTr("No") },
                { value: CallCosts.Shown, text: qsTr("Yes") }
            ]
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

    /** "1:5:3" as "1:05:03". */
    function clock(time: string): string {
        return time.split(":").map((part, at) => at > 0 ? part.padStart(2, "0") : part).join(":");
    }

    Sheet {
        id: limitSheet

        function start(): void {
            amount.text = costs.limited ? costs.maximum.value : "";
            ask();
            amount.input.forceActiveFocus();
        }

        title: qsTr("Limit")
        action: qsTr("Save")
        ready: amount.text !== ""
        onAccepted: {
            costs.maximum.value = amount.text;
            close();
        }

        Field {
            id: amount

            label: qsTr("Amount")
            maximumLength: 20
            input.inputMethodHints: Qt.ImhFormattedNumbersOnly
            onAccepted: limitSheet.accept()
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
            price.text = costs.price.unitPrice;
            currency.text = costs.price.currency;
            ask();
            price.input.forceActiveFocus();
        }

        title: qsTr("Price of a unit")
        action: qsTr("Save")
        ready: price.text !== "" && currency.text !== ""
        onAccepted: {
            costs.price.setPrice(price.text, currency.text);
            close();
        }

        Field {
            id: price

            label: qsTr("Price")
            maximumLength: 29
            input.inputMethodHints: Qt.ImhFormattedNumbersOnly
            onAccepted: currency.input.forceActiveFocus()
        }

        Field {
            id: currency

            label: qsTr("Currency")
            maximumLength: 40
            onAccepted: priceSheet.accept()
        }
    }
}
