// A search that the platform begins and leaves: it has ended when the list has changed, or when it has lasted too long.
import QtQuick
import QtTest
import Kvq.CallSetup

TestCase {
    id: test
    name: "Searching"

    readonly property string begin: "TAPI_NETWORK_GetAvailableNetwork"
    readonly property string end: "TAPI_NETWORK_CancelGetAvailableNetworks"
    readonly property string look: "TAPI_NETWORK_GetPlmnCount"

    NetworkSelection { id: networks; autoRefresh: false; searchInterval: 50 }
    Component { id: networksComponent; NetworkSelection { searchInterval: 50 } }
    SignalSpy { id: changes; target: networks; signalName: "searchingChanged" }

    function init() {
        desk.reset()
        networks.searchLimit = 3600000
        networks.refresh()
        tryCompare(networks, "busy", false, hang)
        changes.clear()
    }

    /** Begins a search that finds nothing yet. */
    function beginSearch() {
        desk.answer(begin, CallSetup.Success, 1)
        const request = networks.search()
        compare(networks.searching, true)
        tryCompare(request, "state", CallSetup.Ready, hang)
    }

    // By name: the platform shows in the last one that its searches end with their request.
    function test_1_theListTellsTheEnd() {
        beginSearch()
        desk.forgetCalls()
        let looks = 0
        tryVerify(() => (looks += desk.calls(look).length) > 1, hang)
        compare([networks.searching, networks.count, networks.busy], [true, 0, false])
        const other = createTemporaryObject(networksComponent, test)
        compare(other.searching, true) // as a page that is opened meanwhile
        tryCompare(other, "busy", false, hang)
        desk.findNetworks(["00101", "00102"])
        tryCompare(networks, "searching", false, hang)
        tryCompare(other, "count", 2, hang)
        tryCompare(networks, "count", 2, hang)
        desk.forgetCalls()
        wait(200)
        compare(desk.calls(look), [])
    }

    function test_2_theLimitEndsIt() {
        networks.searchLimit = 100
        beginSearch()
        tryCompare(networks, "searching", false, hang)
        compare(networks.count, 0)
    }

    function test_3_itIsToldToStop() {
        beginSearch()
        desk.answer(end, CallSetup.Refused, 1)
        networks.cancelSearch()
        tryCompare(networks, "result", CallSetup.Refused, hang)
        compare(networks.searching, true) // the modem goes on looking
        networks.cancelSearch()
        tryCompare(networks, "searching", false, hang)
        desk.answer(begin, CallSetup.Refused, 1)
        tryCompare(networks.search(), "state", CallSetup.Failed, hang)
        compare(networks.searching, false)
        desk.forgetCalls()
        networks.cancelSearch() // there is none
        compare(desk.calls(end), [])
    }

    function test_4_aSearchThatEndsWithItsRequest() {
        for (let search = 0; search < 2; ++search) {
            tryCompare(networks.search(), "state", CallSetup.Ready, hang)
            compare([networks.searching, networks.count], [false, 3])
        }
    }
}
