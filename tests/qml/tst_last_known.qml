// What was last known outlives the items: a later one begins with it, marked as stale, until it has read it again.
import QtQuick
import QtTest
import Kvq.CallSetup

TestCase {
    id: test
    name: "LastKnown"

    Component { id: waitingComponent; CallWaiting { } }
    Component { id: extendedComponent; CallWaiting { property int more: 0 } }
    Component { id: forwardingComponent; CallForwarding { } }
    Component { id: numbersComponent; OwnNumbers { } }
    Component { id: preferredComponent; PreferredNetworks { } }
    Component { id: callsComponent; Calls { } }

    function init() {
        desk.reset()
    }

    /** An item that has read its values. */
    function read(component) {
        const item = createTemporaryObject(component, test)
        tryCompare(item, "busy", false, hang)
        compare(item.stale, false)
        return item
    }

    function test_settings_data() {
        return [{ tag: "read again", answer: 0, times: 0, known: true, stale: false, value: true },
                { tag: "no answer", answer: CallSetup.TimedOut, times: 1, known: true, stale: true, value: true },
                { tag: "another card perhaps", answer: CallSetup.SimUnavailable, times: 1, known: false, stale: false,
                  value: false },
                { tag: "not offered any more", answer: CallSetup.NotSupported, times: 1, known: false, stale: false,
                  value: false }]
    }

    function test_settings(data) {
        const onlooker = createTemporaryObject(waitingComponent, test, { autoRefresh: false })
        const before = read(waitingComponent)
        before.enabled.value = true
        tryCompare(before, "busy", false, hang)
        before.destroy()
        if (data.times > 0)
            desk.answer("TAPI_CS_GetVoiceWaitingStatus", data.answer, data.times)
        desk.hold("TAPI_CS_GetVoiceWaitingStatus")
        const item = createTemporaryObject(extendedComponent, test)
        compare([item.enabled.value, item.enabled.known, item.enabled.stale, item.stale], [true, true, true, true])
        compare([item.enabled.busy, item.busy], [true, true])
        desk.letGo()
        tryCompare(item, "busy", false, hang)
        compare([item.enabled.value, item.enabled.known, item.enabled.stale, item.stale],
                [data.value, data.known, data.stale, data.stale])
        compare([onlooker.enabled.value, onlooker.enabled.known, onlooker.enabled.stale, onlooker.busy],
                [data.value, data.known, data.known, false])
        const later = createTemporaryObject(waitingComponent, test)
        compare([later.enabled.known, later.enabled.stale], [data.known, data.known])
        later.enabled.value = false
        tryCompare(later, "busy", false, hang)
        compare([later.enabled.value, later.enabled.stale], [false, false])
        if (data.known)
            compare([item.enabled.value, item.enabled.stale], [false, false]) // heard of it
    }

    function test_forwardingByServiceClass() {
        const before = read(forwardingComponent)
        before.noReply.activate("555", 10)
        tryCompare(before, "busy", false, hang)
        before.serviceClass = CallForwarding.Fax
        tryCompare(before, "busy", false, hang)
        before.whenBusy.activate("666")
        tryCompare(before, "busy", false, hang)
        before.destroy()
        desk.hold("TAPI_CS_GetDivertStatus")
        const item = createTemporaryObject(forwardingComponent, test)
        compare([item.noReply.number, item.noReply.noReplyTime, item.whenBusy.number], ["555", 10, ""])
        item.serviceClass = CallForwarding.Fax
        compare([item.noReply.number, item.whenBusy.number, item.whenBusy.stale], ["", "666", true])
        desk.letGo()
        tryCompare(item, "busy", false, hang)
        compare(item.stale, false)
        item.serviceClass = CallForwarding.Voice
        tryCompare(item, "busy", false, hang)
        compare([item.noReply.number, item.noReply.noReplyTime], ["555", 10]) // the network does not tell the time
    }

    function test_lists_data() {
        return [{ tag: "read again", answer: 0, times: 0, count: 4, stale: false },
                { tag: "no answer", answer: CallSetup.TimedOut, times: 1, count: 4, stale: true },
                { tag: "another card perhaps", answer: CallSetup.SimUnavailable, times: 1, count: 0, stale: false }]
    }

    function test_lists(data) {
        const before = read(numbersComponent)
        before.setNumber(3, "0123", "new")
        tryCompare(before, "busy", false, hang)
        before.destroy()
        if (data.times > 0)
            desk.answer("TAPI_OWNNUMBER_GetEntry", data.answer, data.times)
        desk.hold("TAPI_OWNNUMBER_GetEntry")
        const item = createTemporaryObject(numbersComponent, test)
        const numberOf = numbers => numbers.count > 2 ? numbers.data(numbers.index(2, 0), Qt.UserRole + 1) : undefined
        compare([item.count, item.stale, item.busy, item.maxNameLength > 0], [4, true, true, true])
        compare(numberOf(item), "0123") // as it was changed, not as it was read
        desk.letGo()
        tryCompare(item, "busy", false, hang)
        compare([item.count, item.stale, item.maxNameLength > 0], [data.count, data.stale, data.count > 0])
        const later = createTemporaryObject(numbersComponent, test)
        compare([later.count, later.stale, numberOf(later)],
                [data.count, data.count > 0, data.count > 0 ? "0123" : undefined])
        tryCompare(later, "busy", false, hang)
        compare([later.count, later.stale, numberOf(later)], [4, false, "0123"])
    }

    function test_itEndsWithAnEngine() {
        read(waitingComponent).destroy()
        desk.useAnotherEngine("CallWaiting { autoRefresh: false }")
        const item = createTemporaryObject(waitingComponent, test)
        compare([item.enabled.known, item.stale], [false, false])
        tryCompare(item, "busy", false, hang)
    }

    function test_anEndedCallIsNotShownAgain() {
        desk.ring("222")
        read(callsComponent).destroy()
        desk.hold("TAPI_CALL_GetAllCallSessions")
        const item = createTemporaryObject(callsComponent, test)
        compare([item.count, item.stale], [0, false])
        desk.letGo()
        tryCompare(item, "count", 1, hang)
    }
}
