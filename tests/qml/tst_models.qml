// Models: changes show at once, and afterwards what the phone has.
import QtQuick
import QtTest
import Kvq.CallSetup

TestCase {
    id: test
    name: "Models"

    PreferredNetworks { id: preferred; autoRefresh: false }
    SpeedDial { id: speedDial; autoRefresh: false }
    OwnNumbers { id: numbers; autoRefresh: false }
    UsimAccounts { id: accounts; autoRefresh: false }
    NetworkSelection { id: networks; autoRefresh: false }
    DeviceIdentity { id: identity; autoRefresh: false }
    Lines { id: lines; autoRefresh: false }
    CallerId { id: callerId; autoRefresh: false }
    Component { id: featuresComponent; Features { } }

    Instantiator {
        id: rows
        delegate: QtObject {
            required property var model
        }
    }

    SignalSpy { id: learnt; signalName: "featuresChanged" }
    CallForwarding { id: forwarding; autoRefresh: false }
    SignalSpy { id: moved; target: preferred; signalName: "rowsMoved" }
    SignalSpy { id: reset; target: preferred; signalName: "modelReset" }

    function column(model, role) {
        rows.model = model
        const values = []
        for (let row = 0; row < rows.count; ++row)
            values.push(rows.objectAt(row).model[role])
        rows.model = 0
        return values
    }

    function load(item) {
        item.refresh()
        tryCompare(item, "busy", false, hang)
    }

    function init() {
        desk.reset()
    }

    function test_preferredNetworks_data() {
        return [{ tag: "add", change: () => preferred.add("26202"), result: ["00101", "00102", "00103", "26202"] },
                { tag: "insert", change: () => preferred.insert(1, "26202"),
                  result: ["00101", "26202", "00102", "00103"] },
                { tag: "move down", change: () => preferred.move(0, 2), result: ["00102", "00103", "00101"] },
                { tag: "move up", change: () => preferred.move(2, 0), result: ["00103", "00101", "00102"] },
                { tag: "remove first", change: () => preferred.remove(0), result: ["00102", "00103"] },
                { tag: "remove none", change: () => preferred.remove(9), result: ["00101", "00102", "00103"] },
                { tag: "clear", change: () => preferred.clear(), result: [] }]
    }

    function test_preferredNetworks(data) {
        desk.preferNetworks(["00101", "00102", "00103"])
        load(preferred)
        compare(preferred.capacity, 20)
        reset.clear()
        const request = data.change()
        compare(column(preferred, "networkId"), data.result) // at once
        tryCompare(request, "state", CallSetup.Ready, hang)
        compare(column(preferred, "networkId"), data.result)
        load(preferred)
        compare(column(preferred, "networkId"), data.result) // and on the SIM
        compare(reset.count, 0) // views keep their place
    }

    function test_aMoveIsAMove() {
        desk.preferNetworks(["00101", "00102", "00103"])
        load(preferred)
        moved.clear()
        preferred.move(2, 0)
        compare(moved.count, 1)
        preferred.move(0, 1) // before the first one is answered
        compare(column(preferred, "networkId"), ["00101", "00103", "00102"])
        tryCompare(preferred, "busy", false, hang)
        compare(column(preferred, "networkId"), ["00101", "00103", "00102"])
    }

    // A handler that changes the model while it hears of a change.
    Connections {
        id: meddler
        enabled: false
        target: preferred
        function onRowsInserted() {
            enabled = false
            preferred.clear()
            preferred.add("00102")
        }
    }

    function test_aChangeIsMadeWhileAnotherIsShown() {
        desk.preferNetworks(["00101", "00103"])
        load(preferred)
        meddler.enabled = true
        preferred.insert(0, "26202")
        compare(column(preferred, "networkId"), ["00102"])
        tryCompare(preferred, "busy", false, hang)
        compare(column(preferred, "networkId"), ["00102"])
    }

    function test_aFailedChangeIsTakenBack_data() {
        return [{ tag: "add", change: () => preferred.add("26202"), failing: "TAPI_NETWORK_SetPreferredOperator" },
                { tag: "move", change: () => preferred.move(0, 2), failing: "TAPI_NETWORK_SetPreferredOperator" },
                { tag: "remove", change: () => preferred.remove(0), failing: "TAPI_NETWORK_DeleteSelectedOperator" }]
    }

    function test_aFailedChangeIsTakenBack(data) {
        desk.preferNetworks(["00101", "00102", "00103"])
        load(preferred)
        desk.answer(data.failing, 0x8000, 1)
        const request = data.change()
        tryCompare(request, "state", CallSetup.Failed, hang)
        compare(preferred.state, CallSetup.Failed)
        compare(column(preferred, "networkId"), ["00101", "00102", "00103"])
        load(preferred)
        compare(column(preferred, "networkId"), ["00101", "00102", "00103"])
    }

    function test_speedDial() {
        load(speedDial)
        compare(speedDial.count, 9)
        compare(column(speedDial, "slot"), [1, 2, 3, 4, 5, 6, 7, 8, 9])
        speedDial.setNumber(2, "123@office")
        compare(column(speedDial, "dialled")[1], "123")
        tryCompare(speedDial, "busy", false, hang)
        load(speedDial)
        compare(column(speedDial, "number")[1], "123@office")
        compare(column(speedDial, "dialled")[1], "123")
        compare(column(speedDial, "location")[1], 2)

        desk.answer("SETUP_SET_Manager::setSettingInfo", 0, 1, 28)
        const request = speedDial.setNumber(2, "456")
        compare(column(speedDial, "number")[1], "456")
        tryCompare(request, "result", CallSetup.DiskFull, hang)
        compare(column(speedDial, "number")[1], "123@office")
        for (const slot of [0, 10]) {
            tryCompare(speedDial.setNumber(slot, "1"), "result", CallSetup.InvalidParameter, hang)
            tryCompare(speedDial.setLocation(slot, SpeedDial.OnSim), "result", CallSetup.InvalidParameter, hang)
        }

        speedDial.setNumbers(["1", "2@home"])
        speedDial.setLocation(9, SpeedDial.OnSim)
        for (const look of ["at once", "when it is taken", "when it is read again"]) {
            compare(column(speedDial, "number"), ["1", "2@home", "", "", "", "", "", "", ""], look)
            compare(column(speedDial, "dialled").slice(0, 3), ["1", "2", ""], look)
            compare(column(speedDial, "location")[8], SpeedDial.OnSim, look)
            tryCompare(speedDial, "busy", false, hang)
            if (look === "when it is taken")
                load(speedDial)
        }
    }

    function test_ownNumbers() {
        load(numbers)
        compare(numbers.count, 4)
        verify(numbers.maxNumberLength > 0)
        compare(column(numbers, "name"), ["Line 1", "Line 2", "", ""])
        tryCompare(numbers.setNumber(3, "0123", "Zürich"), "state", CallSetup.Ready, hang)
        tryCompare(numbers.removeNumber(1), "state", CallSetup.Ready, hang)
        load(numbers)
        compare(column(numbers, "name"), ["", "Line 2", "Zürich", ""])
        compare(column(numbers, "number"), ["", "+491707654321", "0123", ""])
    }

    function test_whatIsOnlyRead() {
        for (const item of [accounts, identity, lines, callerId])
            load(item)
        compare(column(accounts, "label"), ["Work", "Home"])
        compare(accounts.activeIndex, 0)
        compare(identity.imei.value, "350077523237513")
        compare(identity.dspVersion.value, "DSP-3.1")
        compare(lines.current.value, 1)
        lines.current.value = 3
        tryCompare(lines.current, "result", CallSetup.InvalidParameter, hang)
        compare(lines.current.value, 1)
    }

    function test_networkSelection() {
        load(networks)
        compare(networks.count, 0)
        compare(networks.searchMode.value, NetworkSelection.Automatic)
        desk.answer("TAPI_NETWORK_GetServiceProviderName", 0x8000, 1)
        networks.serviceProvider.refresh()
        tryCompare(networks.serviceProvider, "state", CallSetup.Failed, hang)
        networks.serviceProvider.refresh()
        tryCompare(networks.serviceProvider, "state", CallSetup.Ready, hang)
        const search = networks.search()
        compare(networks.searching, true)
        tryCompare(search, "state", CallSetup.Ready, hang)
        compare(networks.searching, false)
        compare(column(networks, "networkId"), ["00101", "00102", "00103"])
        compare(column(networks, "status"),
                [NetworkSelection.Registered, NetworkSelection.Available, NetworkSelection.Forbidden])
        compare(column(networks, "home"), [true, false, false])
        tryCompare(networks.registerOn("00103"), "state", CallSetup.Failed, hang)
        tryCompare(networks.registerOn("00102"), "state", CallSetup.Ready, hang)
        compare(column(networks, "status")[1], NetworkSelection.Registered)
    }

    function test_aWaitingSearchIsCancelled() {
        desk.hold("TAPI_ACCE_GetImei")
        identity.refresh()
        tryVerify(() => desk.isHeld(), hang)
        const search = networks.search()
        networks.cancelSearch()
        compare(search.result, CallSetup.Cancelled)
        compare(networks.searching, false)
        desk.letGo()
        tryCompare(CallSetup, "busy", false, hang)
        compare(desk.calls("TAPI_NETWORK_GetAvailableNetwork"), [])
    }

    function test_anItemCancelsWhatWaits() {
        load(numbers)
        desk.forgetCalls()
        desk.hold("TAPI_ACCE_GetImei")
        identity.refresh()
        tryVerify(() => desk.isHeld(), hang)
        for (const item of [numbers, numbers, networks]) // the second time it is to be read again
            item.refresh()
        const change = numbers.setNumber(3, "0123", "new")
        networks.serviceTone.value = !networks.serviceTone.value
        for (const item of [numbers, networks]) {
            item.cancel()
            compare(item.busy, false)
        }
        compare([change.result, column(numbers, "number")[2]], [CallSetup.Cancelled, ""])
        desk.letGo()
        tryCompare(CallSetup, "busy", false, hang)
        compare(desk.order().filter(name => /NETWORK|OWNNUMBER/.test(name)), [])
    }

    function test_aReadingThatIsWantedMeanwhileIsMade() {
        const question = "TAPI_SECURITY_GetNumOfUsim"
        desk.forgetCalls()
        desk.hold(question)
        accounts.refresh()
        tryVerify(() => desk.isHeld(), hang)
        for (let wish = 0; wish < 3; ++wish)
            accounts.refresh()
        desk.letGo()
        tryCompare(accounts, "busy", false, hang)
        compare(desk.calls(question).length, 2)
    }

    readonly property var allFeatures: [
        "hearingAid", "hyphenation", "forwarding", "callCosts", "callerId", "callWaiting", "fixedDialling", "lines",
        "pin2", "upin", "ownNumbers", "usimAccounts", "networkSelection", "preferredNetworks"
    ]

    function test_features_data() {
        const absent = CallSetup.NotSupported
        return [{ tag: "all", answers: { }, lacking: [] },
                { tag: "one each", lacking: ["callCosts", "fixedDialling", "lines", "ownNumbers", "pin2",
                                             "upin"],
                  answers: { TAPI_CPHS_GetLineLockStatus: absent, TAPI_CS_GetChargeDisplay: absent,
                             TAPI_FIXDIALING_GetAvailability: 0, TAPI_SECURITY_GetAnyPinStatus: absent,
                             TAPI_SECURITY_GetUPINUsageQualifier: absent, TAPI_OWNNUMBER_GetRange: absent } },
                { tag: "no reason, and a SIM that answers", lacking: ["networkSelection", "preferredNetworks"],
                  answers: { TAPI_NETWORK_GetSearchMode: CallSetup.Refused,
                             TAPI_NETWORK_GetTotalPreferredOperatorNumber: CallSetup.Refused } },
                { tag: "no reason, and a SIM that does not", lacking: [],
                  answers: { TAPI_NETWORK_GetSearchMode: CallSetup.ModemOffline,
                             TAPI_SECURITY_GetAnyPinStatus: CallSetup.ModemOffline } },
                { tag: "failures are no lacks", lacking: [],
                  answers: { TAPI_CS_GetChargeDisplay: 0x8000, TAPI_CPHS_GetLineLockStatus: 0x8000,
                             TAPI_OWNNUMBER_GetRange: 0x8000, TAPI_SECURITY_GetNumOfUsim: 0x8000 } }]
    }

    function test_features(data) {
        for (const name in data.answers)
            desk.answer(name, data.answers[name])
        const features = createTemporaryObject(featuresComponent, test)
        learnt.target = features
        learnt.clear()
        compare(allFeatures.filter(feature => !features[feature]), []) // until it is known
        compare(features.ready, false)
        tryCompare(features, "ready", true, hang)
        compare(allFeatures.filter(feature => !features[feature]).sort(), data.lacking)
        compare(learnt.count, 1)
    }

    function test_whatTheNetworkOffersIsLearntFromItems() {
        const features = createTemporaryObject(featuresComponent, test)
        tryCompare(features, "ready", true, hang)
        compare(desk.calls("TAPI_CS_GetDivertStatus"), []) // a start asks the network for nothing
        desk.answer("TAPI_CS_GetDivertStatus", CallSetup.NotSupported)
        desk.answer("TAPI_FTRDB_GetState", 0x8000)
        load(forwarding)
        load(callerId)
        compare([forwarding.available, features.forwarding, features.callerId], [false, false, true])
        desk.answer("TAPI_CS_GetDivertStatus", CallSetup.Success, 4)
        load(forwarding)
        compare(features.forwarding, true)
        desk.answer("TAPI_CS_GetDivertStatus", CallSetup.NotSupported)
        forwarding.serviceClass = CallForwarding.Fax
        load(forwarding)
        compare([forwarding.available, features.forwarding], [false, true]) // for fax only
        forwarding.serviceClass = CallForwarding.Voice
        load(forwarding)
        compare(features.forwarding, false)
        features.refresh() // the product may be another one
        compare(features.forwarding, true)
    }
}
