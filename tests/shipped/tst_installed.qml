// What an installed module must do without any help: load, find its engine and a phone, and answer.
import QtQuick
import QtTest
import Kvq.CallSetup

TestCase {
    name: "Installed"

    CallPreferences { id: preferences }

    function test_itLoads() {
        tryCompare(CallSetup, "connected", true, 60000)
        tryCompare(preferences.reminder, "known", true, 60000)
        compare(preferences.reminder.error, "")
    }
}
