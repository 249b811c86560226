// Amounts, which a phone writes with a point, as the reader writes them.
pragma Singleton

import QtQml

QtObject {
    /** What parts the whole of an amount from the rest. */
    readonly property string sign: Qt.locale().decimalPoint

    /** As it is read and typed. What is no amount stays as it is. */
    function local(amount: string): string {
        return /^[0-9]*\.[0-9]*$/.test(amount) ? amount.replace(".", sign) : amount;
    }

    /** As the phone writes it. */
    function plain(typed: string): string {
        return typed.replace(sign, ".");
    }

    /** With its currency. */
    function money(amount: string, currency: string): string {
        const symbol = currency === Qt.locale().currencySymbol(Locale.CurrencyIsoCode)
            ? Qt.locale().currencySymbol(Locale.CurrencySymbol) : currency;
        return symbol !== "" && amount !== "" ? qsTr("%1 %2", "amount and currency").arg(local(amount)).arg(symbol) : local(amount);
    }
}
