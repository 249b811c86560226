// Requests: calls and PINs.
import QtQuick
import QtTest
import Kvq.CallSetup

TestCase {
    id: test
    name: "Requests"

    readonly property bool canSwap: calls.canSwap

    Calls { id: calls; watching: false; autoRefresh: false }
    Component { id: watchingComponent; Calls { interval: 50; idleInterval: 50 } }
    SimPins { id: pins; autoRefresh: false }
    FixedDialling { id: fixedDialling; autoRefresh: false }
    CallWaiting { id: waiting; autoRefresh: false }
    CallerId { id: callerId; autoRefresh: false }
    ServiceCodes { id: codes }
    Lines { id: lines; autoRefresh: false }
    Features { id: features; autoRefresh: false }
    PreferredNetworks { id: preferred; autoRefresh: false }
    NetworkSelection { id: networks; autoRefresh: false }
    CallForwarding { id: forwarding; autoRefresh: false }

    SignalSpy { id: added; signalName: "callAdded" }
    SignalSpy { id: removed; signalName: "callRemoved" }
    SignalSpy { id: finished; signalName: "finished" }

    function init() {
        desk.reset()
        for (const item of [calls, fixedDialling, callerId, lines]) {
            item.refresh()
            tryCompare(item, "busy", false, hang)
        }
    }

    function done(request) {
        tryVerify(() => !request.busy, hang)
        tryCompare(calls, "busy", false, hang)
        return request.result
    }

    function states() {
        const result = []
        for (let row = 0; row < calls.count; ++row)
            result.push(calls.data(calls.index(row, 0), Qt.UserRole + 2))
        return result
    }

    /** What can be done to each call: answer, hold, retrieve, split, transfer; and to the calls: swap. */
    function can() {
        const rows = []
        for (let row = 0; row < calls.count; ++row)
            rows.push([5, 6, 7, 8, 9].map(role => calls.data(calls.index(row, 0), Qt.UserRole + role) ? 1 : 0).join(""))
        return rows.concat(canSwap ? "swap" : "")
    }

    function test_twoCalls() {
        const dialling = calls.dial("111")
        finished.target = dialling
        finished.clear()
        compare(dialling.busy, true)
        compare(done(dialling), CallSetup.Success)
        compare(finished.count, 1)
        const first = dialling.value
        compare(states(), [Calls.Dialling])
        compare(can(), ["00000", ""])
        desk.remoteAnswers(first)
        const second = desk.ring("222")
        calls.refresh()
        tryCompare(calls, "busy", false, hang)
        compare(can(), ["01001", "10000", ""])
        compare(done(calls.answer(second)), CallSetup.Success)
        compare(states(), [Calls.Held, Calls.Active])
        desk.forgetWhoCalled(second) // as platforms do that know it only while a call rings
        calls.refresh()
        tryCompare(calls, "busy", false, hang)
        compare([0, 1].map(row => calls.data(calls.index(row, 0), Qt.UserRole + 3)), [false, true])
        compare(can(), ["00101", "01001", "swap"])
        compare(done(calls.swap()), CallSetup.Success)
        compare(states(), [Calls.Active, Calls.Held])
        compare(done(calls.join()), CallSetup.Success)
        compare(can(), ["01011", "01011", ""])
        compare(done(calls.split(first)), CallSetup.Success)
        compare(done(calls.hold(first)), CallSetup.Success)
        for (const none of [99, 0, first + 256])
            compare(done(calls.hold(none)), CallSetup.InvalidCall)
        compare(done(calls.hangUp(second)), CallSetup.Success)
        compare(done(calls.retrieve(first)), CallSetup.Success)
        compare(states(), [Calls.Active])
        compare(done(calls.sendTones(first, "12#")), CallSetup.Success)
        compare(done(calls.pressKey("12")), CallSetup.InvalidParameter)
        compare(done(calls.transfer(first, "")), CallSetup.NoNumber)
        compare(done(calls.transfer(first, "333")), CallSetup.Success)
        compare(calls.count, 0)
    }

    function test_hangUpFitsTheCall_data() {
        return [{ tag: "dialled", make: () => { calls.dial("1") }, call: "TAPI_VOICE_CancelCall" },
                { tag: "ringing", make: () => { desk.ring("1") }, call: "TAPI_VOICE_RejectCall" },
                { tag: "active", make: () => { desk.ring("1"); calls.answer(1) }, call: "TAPI_VOICE_DropCall" }]
    }

    function test_hangUpFitsTheCall(data) {
        data.make()
        calls.refresh()
        tryCompare(calls, "busy", false, hang)
        compare(calls.count, 1)
        desk.forgetCalls()
        const request = calls.hangUp(1)
        tryCompare(request, "state", CallSetup.Ready, hang)
        compare(desk.calls(data.call).length, 1)
    }

    function test_aLostLinkIsOpenedAgain() {
        desk.answer("TAPI_CS_GetVoiceWaitingStatus", CallSetup.LinkLost, 1)
        waiting.refresh()
        tryCompare(waiting, "result", CallSetup.LinkLost, hang)
        compare([CallSetup.connected, CallSetup.connectionResult], [false, CallSetup.LinkLost])
        compare(CallSetup.connectionError, CallSetup.resultText(CallSetup.LinkLost))
        CallSetup.connectTelephony()
        tryCompare(CallSetup, "connected", true, hang)
        compare([CallSetup.connectionResult, CallSetup.connectionError], [CallSetup.Success, ""])
    }

    function test_propertiesTellOfTheirChanges_data() {
        return [{ item: calls, property: "watching", value: true }, { item: calls, property: "visible", value: false },
                { item: calls, property: "active", value: !calls.active },
                { item: calls, property: "interval", value: 10, taken: 50 },
                { item: calls, property: "idleInterval", value: 10, taken: 50 },
                { item: calls, property: "autoRefresh", value: true },
                { item: waiting, property: "autoRefresh", value: true },
                { item: networks, property: "searchInterval", value: 10, taken: 50 },
                { item: networks, property: "searchLimit", value: -1, taken: 0 },
                { item: forwarding, property: "serviceClass", value: CallForwarding.Fax },
                { item: CallSetup, property: "quitTimeout", value: 3000 },
                { item: CallSetup, property: "quitTimeout", value: -1, taken: 0 }]
            .map((row, index) => Object.assign({ tag: `${index} ${row.property}`, taken: row.value }, row))
    }

    function test_propertiesTellOfTheirChanges(data) {
        const told = createTemporaryQmlObject("import QtTest; SignalSpy { }", test)
        told.target = data.item
        told.signalName = data.property + "Changed"
        const before = data.item[data.property]
        for (let time = 0; time < 2; ++time) {
            data.item[data.property] = data.value
            compare([data.item[data.property], told.count], [data.taken, 1])
        }
        data.item[data.property] = before
        compare([data.item[data.property], told.count], [before, 2])
        told.target = null
    }

    function test_noNumber() {
        compare(done(calls.dial("")), CallSetup.NoNumber)
        compare(calls.error, CallSetup.resultText(CallSetup.NoNumber))
    }

    function test_mute() {
        compare(calls.muted.known, false)
        calls.muted.value = true
        tryCompare(calls.muted, "known", true, hang)
        desk.answer("TAPI_VOICE_MuteCall", 0x8000)
        calls.muted.value = false
        tryCompare(calls.muted, "state", CallSetup.Failed, hang)
        compare(calls.muted.value, true)
    }

    function test_theCallTableIsWatched() {
        const watcher = createTemporaryObject(watchingComponent, test)
        added.target = watcher
        removed.target = watcher
        added.clear()
        removed.clear()
        const id = desk.ring("0800")
        tryCompare(added, "count", 1, hang)
        compare(Array.from(added.signalArguments[0]), [id, "0800", true])
        desk.endCall(id)
        tryCompare(removed, "count", 1, hang)

        // Readings do not pile up behind one that takes long.
        desk.hold("TAPI_CALL_GetAllCallSessions")
        tryVerify(() => desk.isHeld(), hang)
        wait(300)
        verify(CallSetup.requestsInFlight <= 1, CallSetup.requestsInFlight)
        desk.letGo()
        watcher.watching = false
        tryCompare(watcher, "busy", false, hang)
        desk.forgetCalls()
        wait(150)
        compare(desk.calls("TAPI_CALL_GetAllCallSessions"), [])
    }

    // Who cannot see the calls is told of none, and who uses the application need not wait for it.
    function test_attention_data() {
        return [{ tag: "used", visible: true, active: true, looks: true },
                { tag: "only seen", visible: true, active: false, looks: false },
                { tag: "not seen", visible: false, active: true, looks: false }]
    }

    function test_attention(data) {
        const watcher = createTemporaryObject(watchingComponent, test,
                                              { idleInterval: 3600000, visible: data.visible, active: data.active,
                                                autoRefresh: false })
        added.target = watcher
        added.clear()
        tryCompare(watcher, "busy", false, hang)
        const id = desk.ring("0800")
        if (!data.looks) {
            wait(200)
            compare(watcher.count, 0)
            watcher.visible = true
            watcher.active = true // looks at once
        }
        tryCompare(added, "count", 1, hang)
        watcher.visible = false
        tryVerify(() => CallSetup.requestsInFlight === 0, hang)
        desk.forgetCalls()
        desk.endCall(id)
        wait(200)
        compare(desk.calls("TAPI_CALL_GetAllCallSessions"), [])
        watcher.visible = undefined // as the application has it
        compare(watcher.visible, Qt.application.state >= Qt.ApplicationInactive)
        compare(calls.active, Qt.application.state === Qt.ApplicationActive)
    }

    function test_callControlGoesFirst_data() {
        return [{ tag: "one question of a page", hold: "TAPI_CS_GetVoiceWaitingStatus", ask: () => waiting.refresh() },
                { tag: "many in one request", hold: "TAPI_FIXDIALING_GetAvailability", ask: () => features.refresh() },
                { tag: "many writes in one request", hold: "TAPI_NETWORK_SetPreferredOperator",
                  ask: () => preferred.insert(0, "00102") }]
    }

    function test_callControlGoesFirst(data) {
        desk.preferNetworks(["00101", "00103"])
        const id = desk.ring("222")
        calls.refresh()
        preferred.refresh()
        tryCompare(CallSetup, "busy", false, hang)
        desk.forgetCalls()
        desk.hold(data.hold)
        data.ask()
        tryVerify(() => desk.isHeld(), hang)
        pins.refresh()
        lines.refresh()
        callerId.nextCall.value = CallerId.Invoke // the call must find it set
        lines.current.value = 2
        calls.answer(id)
        calls.refresh()
        calls.dial("111")
        desk.letGo()
        tryCompare(CallSetup, "busy", false, hang)
        const order = desk.order()
        const first = order.indexOf(data.hold)
        const control = ["TAPI_CS_SetRestrictNextCallID", "TAPI_CS_SelectLine", "TAPI_VOICE_AnswerCall",
                         "TAPI_VOICE_MakeCall"]
        compare(order.slice(first + 1).filter(name => control.includes(name)), control)
        const reads = ["TAPI_SECURITY_GetPin1Status", "TAPI_CS_GetLine", "TAPI_NETWORK_GetSearchMode"]
        for (const read of reads)
            verify(order.indexOf(read, first) === -1
                   || order.indexOf(read, first) > order.indexOf("TAPI_VOICE_MakeCall"), read)
        verify(order.lastIndexOf(data.hold) === first || order.lastIndexOf(data.hold) > order.indexOf("TAPI_VOICE_MakeCall"))
    }

    function test_aWaitingRequestIsCancelled() {
        desk.hold("TAPI_CS_GetVoiceWaitingStatus")
        waiting.refresh()
        tryVerify(() => desk.isHeld(), hang)
        const request = calls.dial("111")
        finished.target = request
        finished.clear()
        verify(request.cancel())
        compare(request.state, CallSetup.Failed)
        compare(request.result, CallSetup.Cancelled)
        compare(finished.count, 1)
        compare(request.cancel(), false)
        desk.letGo()
        tryCompare(CallSetup, "busy", false, hang)
        compare(finished.count, 1)
        compare(desk.calls("TAPI_VOICE_MakeCall"), [])
    }

    function test_pins_data() {
        return [{ tag: "right", make: () => pins.verify(SimPins.Pin1, "1234"), result: CallSetup.Success, words: /^$/ },
                { tag: "wrong", make: () => pins.verify(SimPins.Pin1, "9999"), result: CallSetup.PinRejected,
                  words: /refused the PIN\.$/ },
                { tag: "wrong PIN2", make: () => pins.verify(SimPins.Pin2, "9999"), result: CallSetup.PinRejected,
                  words: /refused the PIN\.$/ },
                { tag: "change", make: () => pins.change(SimPins.Pin2, "5678", "0000"), result: CallSetup.Success,
                  words: /^$/ },
                { tag: "change UPIN", make: () => pins.change(SimPins.Upin, "0000", "1111"), result: CallSetup.PinRejected,
                  words: /refused/ },
                { tag: "unblock", make: () => pins.unblock(SimPins.Pin1, "12345678", "1111"),
                  result: CallSetup.Success, words: /^$/ },
                { tag: "enable", make: () => pins.enable("1234"), result: CallSetup.Success, words: /^$/ },
                { tag: "fixed dialling", make: () => fixedDialling.setEnabled(true, "5678"),
                  result: CallSetup.Success, words: /^$/ },
                { tag: "fixed dialling, wrong", make: () => fixedDialling.setEnabled(true, "1"),
                  result: CallSetup.PinRejected, words: /refused/ }]
    }

    function test_pins(data) {
        const request = data.make()
        tryVerify(() => !request.busy, hang)
        compare(request.result, data.result)
        verify(data.words.test(request.error), request.error)
        compare(request.value, undefined)
        tryCompare(CallSetup, "busy", false, hang)
        tryCompare(fixedDialling.enabled, "value", data.tag === "fixed dialling", hang)
    }

    function test_serviceCodes_data() {
        const rule = (condition, active, number = "", serviceClass = 0) =>
            ({ kind: ServiceCodes.Forwarding, condition, active, number, serviceClass })
        const sent = { kind: ServiceCodes.ServiceRequest }
        return [
            { typed: "*#06#", value: { kind: ServiceCodes.DeviceNumber } },
            { typed: "**21*555#", value: rule(CallForwarding.Unconditional, true, "555") },
            { typed: "*67*555#", value: rule(CallForwarding.WhenBusy, true, "555") },
            { typed: "**61*555**10#", value: rule(CallForwarding.NoReply, true, "555") },
            { typed: "**62*+49555*11#", value: rule(CallForwarding.NotReachable, true, "+49555") },
            { typed: "*#21#", value: rule(CallForwarding.Unconditional, false) },
            { typed: "*#21**20#", value: rule(CallForwarding.Unconditional, false, "", 1) },
            { typed: "*#62**13#", value: rule(CallForwarding.NotReachable, false, "", 2) },
            { typed: "##67#", value: rule(CallForwarding.WhenBusy, false) },
            { typed: "##002#", value: { kind: ServiceCodes.AllForwarding } },
            { typed: "*43#", value: { kind: ServiceCodes.CallWaiting, active: true } },
            { typed: "#43#", value: { kind: ServiceCodes.CallWaiting, active: false } },
            { typed: "*#43#", value: { kind: ServiceCodes.CallWaiting, active: true } },
            { typed: "*31#", value: { kind: ServiceCodes.CallerId, restriction: CallerId.Invoke } },
            { typed: "#31#", value: { kind: ServiceCodes.CallerId, restriction: CallerId.Suppress } },
            { typed: "**04*1234*1111*1111#", value: { kind: ServiceCodes.Pin, pin: SimPins.Pin1, unblocked: false } },
            { typed: "**042*5678*1111*1111#", value: { kind: ServiceCodes.Pin, pin: SimPins.Pin2, unblocked: false } },
            { typed: "**052*87654321*1111*1111#", value: { kind: ServiceCodes.Pin, pin: SimPins.Pin2, unblocked: true } },
            { typed: "**04*9999*1111*1111#", result: CallSetup.PinRejected,
              value: { kind: ServiceCodes.Pin, pin: SimPins.Pin1, unblocked: false } },
            { typed: "**04*1234*1111*2222#", result: CallSetup.InvalidParameter, value: { kind: ServiceCodes.PinsDiffer } },
            { typed: "*05*12345678*1111#", result: CallSetup.InvalidParameter, value: { kind: ServiceCodes.PinsDiffer } },
            { typed: "**04*1234*1111*1111*1#", result: CallSetup.InvalidParameter,
              value: { kind: ServiceCodes.PinsDiffer } },
            // What the engine cannot do exactly so goes to the network as it was typed.
            { typed: "*100#", value: sent }, { typed: "#21#", value: sent }, { typed: "*21#", value: sent },
            { typed: "**61*555**30#", value: sent }, { typed: "**21*555*16#", value: sent },
            { typed: "**67*555**10#", value: sent }, { typed: "##21*555#", value: sent }, { typed: "*#06*1#", value: sent },
            { typed: "##", value: sent }
        ].map(row => Object.assign({ tag: row.typed, result: CallSetup.Success }, row))
    }

    function test_serviceCodes(data) {
        desk.forgetCalls()
        verify(codes.isCode(data.typed))
        const request = codes.run(data.typed)
        tryVerify(() => !request.busy, hang)
        compare(request.result, data.result)
        for (const detail in data.value)
            compare(request.value[detail], data.value[detail], detail)
        const toNetwork = data.value.kind === ServiceCodes.ServiceRequest
        compare(desk.calls("TAPI_USSD_MakeRequest").length, toNetwork ? 1 : 0)
        if (data.value.kind === ServiceCodes.DeviceNumber)
            verify(/^[0-9]{15}/.test(request.value.text), request.value.text)
        if (data.value.kind === ServiceCodes.PinsDiffer)
            compare(desk.order(), [])
    }

    function test_numbersAreNoCodes() {
        for (const typed of ["", "#", "112", "*31#555", "+49555"])
            verify(!codes.isCode(typed), typed)
    }

    function test_theCallerIdOfOneCall_data() {
        return [{ tag: "#31#555", restriction: CallerId.Invoke }, { tag: "*31#555", restriction: CallerId.Suppress }]
    }

    function test_theCallerIdOfOneCall(data) {
        desk.forgetCalls()
        compare(done(calls.dial(data.tag)), CallSetup.Success)
        const set = desk.calls("TAPI_CS_SetRestrictNextCallID")
        compare(set[0], String(data.restriction))
        compare(set.length, 2) // and back
        compare(calls.data(calls.index(0, 0), Qt.UserRole + 1), "555")

        // Where it cannot be had, no call shows what was to be hidden.
        desk.answer("TAPI_CS_SetRestrictNextCallID", CallSetup.NotSupported)
        desk.forgetCalls()
        compare(done(calls.dial(data.tag)), CallSetup.NotSupported)
        compare(desk.calls("TAPI_VOICE_MakeCall"), [])
    }

    function test_whatIsNoCodeOfOneCallIsDialledAsTyped_data() {
        return [{ tag: "*31*1#555" }, { tag: "*31#" }, { tag: "*#31#555" }, { tag: "*30#555" }, { tag: "555" }]
    }

    function test_whatIsNoCodeOfOneCallIsDialledAsTyped(data) {
        desk.forgetCalls()
        compare(done(calls.dial(data.tag)), CallSetup.Success)
        compare(calls.data(calls.index(0, 0), Qt.UserRole + 1), data.tag)
        compare(desk.calls("TAPI_CS_SetRestrictNextCallID"), [])
    }

    function test_theLastTryBlocks() {
        const results = []
        for (let attempt = 0; attempt < 3; ++attempt)
            results.push(pins.verify(SimPins.Pin2, "0"))
        tryVerify(() => results.every(request => !request.busy), hang)
        compare(results.map(request => request.result),
                [CallSetup.PinRejected, CallSetup.PinRejected, CallSetup.PinBlocked])
        verify(/blocked/.test(results[2].error))
        tryCompare(pins.pin2Status, "value", SimPins.Blocked, hang)
        tryCompare(pins, "busy", false, hang)
    }

    function test_aSimThatDoesNotAnswerIsNotSaidToAskForNoPin() {
        desk.answer("TAPI_SECURITY_GetPin1Status", CallSetup.SimUnavailable)
        desk.answer("TAPI_SECURITY_GetAnyPinStatus", CallSetup.SimUnavailable)
        pins.pinRequested.refresh()
        tryCompare(pins.pinRequested, "state", CallSetup.Failed, hang)
        compare(pins.pinRequested.result, CallSetup.SimUnavailable)
        desk.answer("TAPI_SECURITY_GetAnyPinStatus", CallSetup.NotSupported)
        pins.pinRequested.refresh()
        tryCompare(pins.pinRequested, "state", CallSetup.Ready, hang)
        compare(pins.pinRequested.value, false)
    }

    function test_wordsForEveryResult() {
        const results = [CallSetup.InvalidParameter, CallSetup.CallRequestFailed, CallSetup.NoNumber,
                         CallSetup.InvalidCall, CallSetup.Refused, CallSetup.SimUnavailable, CallSetup.PinRejected,
                         CallSetup.PinBlocked, CallSetup.NotSupported, CallSetup.TimedOut, CallSetup.ServiceBusy,
                         CallSetup.ServiceDown, CallSetup.ModemOffline, CallSetup.LinkLost, CallSetup.AccessDenied, CallSetup.Pin2Needed,
                         CallSetup.NotStored, CallSetup.DiskFull, CallSetup.NotAllowed, CallSetup.Cancelled]
        const english = results.map(result => CallSetup.resultText(result))
        const advice = results.map(result => CallSetup.resultAdvice(result))
        compare(advice.pop(), "") // a cancelled request wants nothing
        for (const text of english.concat(advice))
            verify(/^[A-Z].*\.$/.test(text) && !/code/.test(text), text)
        desk.speak("de_AT")
        const german = results.map(result => CallSetup.resultText(result)).concat(
                           results.slice(0, -1).map(result => CallSetup.resultAdvice(result)))
        desk.speak("en")
        compare(german.length, english.length + advice.length)
        english.concat(advice).forEach((text, index) => {
            verify(german[index] !== text && /^[A-ZÄÖÜ].*\.$/.test(german[index]), german[index])
        })
        compare([CallSetup.resultText(0), CallSetup.resultAdvice(0)], ["", ""])
        compare(CallSetup.resultAdvice(4711), "Try again later.")
        compare(CallSetup.resultText(CallSetup.PinRejected), "The SIM refused the PIN.")
    }
}
