// While every platform request takes two seconds, the screen's event loop goes on.
import QtQuick
import QtTest
import Kvq.CallSetup

TestCase {
    id: test
    name: "EventLoop"

    Component {
        id: everything
        QtObject {
            readonly property list<QtObject> items: [
                CallPreferences { }, SpeedDial { }, VideoCallSettings { }, CallForwarding { }, CallCosts { },
                CallerId { }, CallWaiting { }, Lines { }, FixedDialling { }, SimPins { }, OwnNumbers { },
                UsimAccounts { }, DeviceIdentity { }, NetworkSelection { }, PreferredNetworks { }, Calls { },
                Features { }
            ]
        }
    }

    function test_longestGap() {
        createTemporaryObject(everything, test).destroy() // what is loaded once is loaded now
        wait(0)
        desk.delay(2000)
        desk.watchEventLoop()
        const all = createTemporaryObject(everything, test)
        all.items[0].roamingAlert.value = true
        all.items[3].noReply.activate("123", 5)
        all.items[9].verify(SimPins.Pin1, "1234")
        all.items[15].dial("123")
        all.items[13].search()
        for (let item = 0; item < all.items.length; ++item)
            all.items[item].refresh()
        const gap = desk.longestGap(2300)
        console.info("longest gap of the event loop:", gap, "ms")
        verify(gap < 50)
        verify(CallSetup.requestsInFlight > 20)
    }

    function cleanup() {
        desk.reset()
    }
}
