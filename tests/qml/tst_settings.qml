// Settings: shown at once, confirmed or taken back, in the order of asking.
import QtQuick
import QtTest
import Kvq.CallSetup

TestCase {
    id: test
    name: "Settings"

    readonly property bool limited: costs.limited
    readonly property string storeWrite: "SETUP_SET_Manager::setSettingInfo"

    CallPreferences { id: preferences; autoRefresh: false }
    CallPreferences { id: others; autoRefresh: false }
    CallWaiting { id: waiting; autoRefresh: false }
    CallForwarding { id: forwarding; autoRefresh: false }
    CallCosts { id: costs; autoRefresh: false }
    VideoCallSettings { id: video; autoRefresh: false }
    Component { id: preferencesComponent; CallPreferences { } }
    Component { id: linesComponent; Lines { } }

    SignalSpy { id: shown; target: preferences.roamingAlert; signalName: "valueChanged" }
    SignalSpy { id: confirmed; target: preferences.roamingAlert; signalName: "confirmed" }
    SignalSpy { id: takenBack; target: preferences.roamingAlert; signalName: "takenBack" }
    SignalSpy { id: full; target: preferences; signalName: "flashFull" }
    SignalSpy { id: fullAnywhere; target: CallSetup; signalName: "flashFull" }

    function init() {
        desk.reset()
        for (const item of [preferences, others, waiting, forwarding, costs, video]) {
            item.refresh()
            tryCompare(item, "busy", false, hang)
        }
        desk.forgetCalls()
        for (const spy of [shown, confirmed, takenBack, full, fullAnywhere])
            spy.clear()
    }

    function writes() {
        return desk.calls(storeWrite).map(call => call.split(", ").pop())
    }

    function test_valuesComeByThemselves() {
        const item = createTemporaryObject(linesComponent, test)
        compare(item.current.value, 0)
        compare([item.current.known, item.current.stale, item.stale], [false, false, false])
        compare(item.state, CallSetup.Busy)
        tryCompare(item, "state", CallSetup.Ready, hang)
        compare(item.current.value, 1)
        compare([item.current.known, item.current.stale, item.stale], [true, false, false])
        compare(preferences.reminder.value, true) // its default
        compare(preferences.nationalPrefix.value, "0")
        compare(preferences.nationalPrefix.writable, false)
    }

    function test_aWriteIsConfirmed() {
        preferences.roamingAlert.value = true
        compare(preferences.roamingAlert.value, true)
        compare(preferences.roamingAlert.state, CallSetup.Busy)
        tryCompare(confirmed, "count", 1, hang)
        compare(preferences.roamingAlert.state, CallSetup.Ready)
        compare(writes(), ["true"])
        preferences.roamingAlert.refresh()
        tryCompare(preferences.roamingAlert, "busy", false, hang)
        compare(preferences.roamingAlert.value, true)
        preferences.roamingAlert.value = true // nothing to write
        compare(preferences.roamingAlert.busy, false)
    }

    function test_twoQuickWrites_data() {
        return [{ tag: "both taken", failing: 0, shown: 2, value: false, confirmed: 1, takenBack: 0 },
                { tag: "first fails", failing: 1, shown: 2, value: false, confirmed: 1, takenBack: 0 },
                { tag: "both fail", failing: 2, shown: 2, value: false, confirmed: 0, takenBack: 1 }]
    }

    function test_twoQuickWrites(data) {
        if (data.failing > 0)
            desk.answer(storeWrite, 0, data.failing)
        desk.hold(storeWrite)
        preferences.roamingAlert.value = true
        preferences.roamingAlert.value = false
        compare(preferences.roamingAlert.value, false)
        tryVerify(() => desk.isHeld(), hang)
        desk.letGo()
        tryCompare(preferences.roamingAlert, "busy", false, hang)
        compare(writes(), ["true", "false"])
        compare(preferences.roamingAlert.value, data.value)
        compare(shown.count, data.shown)
        compare(confirmed.count, data.confirmed)
        compare(takenBack.count, data.takenBack)
    }

    function test_theSecondOfTwoFails() {
        desk.hold(storeWrite)
        preferences.audibleTimer.value = 10
        preferences.audibleTimer.value = 20
        tryVerify(() => desk.isHeld(), hang)
        preferences.audibleTimer.value = 30
        desk.answer(storeWrite, 0, 1) // the one that runs
        desk.letGo()
        tryCompare(preferences.audibleTimer, "state", CallSetup.Ready, hang)
        compare(preferences.audibleTimer.value, 30)

        desk.answer(storeWrite, 0, 1)
        preferences.audibleTimer.value = 40
        tryCompare(preferences.audibleTimer, "state", CallSetup.Failed, hang)
        compare(preferences.audibleTimer.value, 30)
    }

    function test_aFailedWriteIsTakenBack_data() {
        const store = preferences.roamingAlert
        return [{ tag: "not stored", setting: store, name: storeWrite, answer: 0, error: 0,
                  result: CallSetup.NotStored, words: /could not be saved/ },
                { tag: "disk full", setting: store, name: storeWrite, answer: 0, error: 28,
                  result: CallSetup.DiskFull, words: /disk is full/ },
                { tag: "refused", setting: waiting.enabled, name: "TAPI_CS_SetVoiceWaitingStatus", answer: 0x8000,
                  error: 0, result: CallSetup.Refused, words: /refused/ },
                { tag: "offline", setting: waiting.enabled, name: "TAPI_CS_SetVoiceWaitingStatus", answer: 0x9004,
                  error: 0, result: CallSetup.ModemOffline, words: /modem is off/ },
                { tag: "unknown code", setting: waiting.enabled, name: "TAPI_CS_SetVoiceWaitingStatus", answer: 4711,
                  error: 0, result: 4711, words: /4711/ }]
    }

    function test_aFailedWriteIsTakenBack(data) {
        const before = data.setting.value
        desk.answer(data.name, data.answer, 1, data.error)
        data.setting.value = !before
        compare(data.setting.value, !before)
        tryCompare(data.setting, "state", CallSetup.Failed, hang)
        compare(data.setting.value, before)
        compare(data.setting.result, data.result)
        verify(data.words.test(data.setting.error), data.setting.error)
        compare(data.setting.advice, CallSetup.resultAdvice(data.result))
        compare(data.setting.available, true)
        for (const spy of [full, fullAnywhere])
            tryCompare(spy, "count", data.error === 28 ? 1 : 0, hang)
        compare([CallSetup.connected, CallSetup.connectionResult], [true, CallSetup.Success])

        data.setting.retry() // what was taken back
        tryCompare(data.setting, "state", CallSetup.Ready, hang)
        compare(data.setting.value, !before)
        compare([data.setting.error, data.setting.advice], ["", ""])
        data.setting.value = before
        tryCompare(data.setting, "state", CallSetup.Ready, hang)
        data.setting.retry() // of nothing, so it reads
        compare([data.setting.value, data.setting.busy], [before, true])
        tryCompare(data.setting, "busy", false, hang)
    }

    // A value is kept from the refusal to the retry, and to a retry of that one's refusal, whatever it is made of.
    function test_whatWasTakenBackIsRetried_data() {
        return [{ tag: "switch", setting: waiting.enabled, failing: "TAPI_CS_SetVoiceWaitingStatus",
                  write: setting => { setting.value = false }, shown: setting => [setting.value], value: [false] },
                { tag: "number", setting: preferences.audibleTimer, failing: storeWrite,
                  write: setting => { setting.value = 45 }, shown: setting => [setting.value], value: [45] },
                { tag: "text", setting: video.cameraOffImage, failing: storeWrite,
                  write: setting => { setting.value = "/pictures/a picture with a long name, so that it is kept apart.png" },
                  shown: setting => [setting.value],
                  value: ["/pictures/a picture with a long name, so that it is kept apart.png"] },
                { tag: "forwarding", setting: forwarding.noReply, failing: "TAPI_CS_DivertCallToNumber",
                  write: setting => setting.activate("+4917012345678", 10),
                  shown: setting => [setting.active, setting.number, setting.noReplyTime],
                  value: [true, "+4917012345678", 10] },
                { tag: "price", setting: costs.price, failing: "TAPI_CS_SetPriceUnit",
                  write: setting => setting.setPrice("0.50", "CHF"),
                  shown: setting => [setting.unitPrice, setting.currency], value: ["0.50", "CHF"] }]
    }

    function test_whatWasTakenBackIsRetried(data) {
        const before = data.shown(data.setting)
        const refused = createTemporaryQmlObject("import QtTest; SignalSpy { signalName: 'takenBack' }", test)
        refused.target = data.setting
        desk.answer(data.failing, data.failing === storeWrite ? 0 : CallSetup.Refused, 2)
        data.write(data.setting)
        for (let refusals = 1; refusals <= 2; ++refusals) {
            tryCompare(refused, "count", refusals, hang)
            compare(data.shown(data.setting), before)
            data.setting.retry()
            compare(data.shown(data.setting), data.value)
        }
        tryCompare(data.setting, "state", CallSetup.Ready, hang)
        compare(data.shown(data.setting), data.value)
    }

    function test_whatTheProductLacks() {
        desk.lackFeature(266)
        desk.answer("TAPI_CS_GetAutoRedialStatus", CallSetup.NotSupported)
        preferences.refresh()
        tryCompare(preferences, "busy", false, hang)
        compare(preferences.hyphenation.available, false)
        compare(preferences.autoRedial.available, false)
        compare(preferences.state, CallSetup.Ready) // a lack is no failure of the rest
        compare(preferences.available, true)

        desk.answer("TAPI_CS_GetVoiceWaitingStatus", CallSetup.NotSupported)
        waiting.refresh()
        tryCompare(waiting, "available", false, hang)
    }

    function test_aReadOnlySettingRefusesWrites() {
        preferences.numberMatching.value = 7
        compare(preferences.numberMatching.result, CallSetup.NotSupported)
        compare(preferences.numberMatching.value, 3)
        compare(desk.calls(storeWrite), [])
    }

    function test_aWaitingWriteIsCancelled() {
        desk.hold("TAPI_CS_GetVoiceWaitingStatus")
        waiting.refresh()
        tryVerify(() => desk.isHeld(), hang)
        preferences.roamingAlert.value = true
        verify(preferences.roamingAlert.cancel())
        compare(preferences.roamingAlert.value, false)
        compare(takenBack.count, 1)
        compare(takenBack.signalArguments[0][0], CallSetup.Cancelled)
        compare(waiting.enabled.cancel(), false) // it runs
        desk.letGo()
        tryCompare(waiting, "busy", false, hang)
        compare(waiting.state, CallSetup.Ready)
        compare(writes(), [])
    }

    function test_anItemMayGoWhileItWaits() {
        desk.hold("TAPI_CS_GetVoiceWaitingStatus")
        waiting.refresh()
        tryVerify(() => desk.isHeld(), hang)
        const item = preferencesComponent.createObject(test) // asks for its values
        item.roamingAlert.value = true
        item.destroy()
        wait(0)
        desk.letGo()
        tryCompare(CallSetup, "busy", false, hang)
        const calls = desk.calls(storeWrite)
        compare(calls.length, 1) // the write was made
        compare(desk.calls("SETUP_SET_Manager::getSettingInfo"), []) // no one is there to read for
    }

    function test_anItemMayGoWhileItsRequestRuns() {
        const item = preferencesComponent.createObject(test)
        tryCompare(item, "busy", false, hang)
        desk.hold(storeWrite)
        item.roamingAlert.value = true
        tryVerify(() => desk.isHeld(), hang)
        item.destroy()
        wait(0)
        desk.letGo()
        tryCompare(CallSetup, "busy", false, hang)
        compare(writes(), ["true"])
    }

    function test_otherItemsHearOfAConfirmedValue() {
        preferences.roamingAlert.value = true
        tryCompare(others.roamingAlert, "value", true, hang)
        compare(others.flipAnswer.value, false)
    }

    function test_whatTheNetworkTookIsShown() {
        forwarding.noReply.activate("555", 7)
        compare(forwarding.noReply.noReplyTime, 7)
        compare(forwarding.noReply.active, true)
        tryCompare(forwarding.noReply, "busy", false, hang)
        compare(forwarding.noReply.noReplyTime, 20)
        compare(forwarding.noReply.number, "555")
    }

    function test_forwardingByServiceClass() {
        forwarding.whenBusy.activate("111")
        forwarding.serviceClass = CallForwarding.Fax // while the request is in flight
        compare(forwarding.whenBusy.known, false)
        forwarding.refresh()
        tryCompare(forwarding, "busy", false, hang)
        compare(forwarding.whenBusy.active, false)
        forwarding.serviceClass = CallForwarding.Voice
        compare(forwarding.whenBusy.number, "")
        forwarding.refresh()
        tryCompare(forwarding.whenBusy, "number", "111", hang)

        desk.answer("TAPI_CS_DivertCallToNumber", CallSetup.TimedOut, 1)
        forwarding.whenBusy.deactivate()
        compare(forwarding.whenBusy.active, false)
        tryCompare(forwarding.whenBusy, "state", CallSetup.Failed, hang)
        compare(forwarding.whenBusy.active, true)

        const request = forwarding.cancelAll()
        tryCompare(request, "state", CallSetup.Ready, hang)
        tryCompare(forwarding.whenBusy, "active", false, hang)
    }

    function test_costs() {
        compare(costs.credit.value, "12.50")
        compare(limited, true)
        costs.removeMaximum()
        tryCompare(costs.maximum, "busy", false, hang)
        compare(limited, false)
        compare(desk.calls("TAPI_CS_GetRemainCredit").length, 1) // what is left follows the limit
        costs.maximum.value = "0.50"
        tryCompare(costs.maximum, "busy", false, hang)
        compare(limited, true)
        desk.answer("TAPI_CS_SetPriceUnit", 0x8000, 1)
        costs.price.setPrice("0.50", "CHF")
        compare(costs.price.currency, "CHF")
        tryCompare(costs.price, "state", CallSetup.Failed, hang)
        compare(costs.price.currency, "EUR")
        compare(costs.price.unitPrice, "0.12")
        const request = costs.resetCosts()
        tryCompare(request, "state", CallSetup.Ready, hang)
        tryVerify(() => costs.totalCost.value !== "3.20", hang)
    }
}
