// The page of the documentation: a bar for a call that comes in.
import QtQuick
import QtTest
import Kvq.CallSetup

Item {
    width: 360
    height: 640

    Loader { id: page; source: "../../docs/example/IncomingCall.qml" }

    TestCase {
        name: "Example"
        when: windowShown

        function test_theBar_data() {
            return [{ tag: "Answer", call: "TAPI_VOICE_AnswerCall" },
                    { tag: "Decline", call: "TAPI_VOICE_RejectCall" }]
        }

        function test_theBar(data) {
            desk.reset()
            tryVerify(() => !findChild(page.item, "bar"), hang) // none is left of another call
            desk.ring("0800555")
            tryVerify(() => findChild(page.item, "bar")?.visible, hang)
            const bar = findChild(page.item, "bar")
            compare(bar.number, "0800555")
            const button = findChild(bar, data.tag)
            tryCompare(bar, "takesTaps", true, hang)
            mouseClick(button)
            tryVerify(() => !findChild(page.item, "bar")?.visible, hang)
            compare(desk.calls(data.call).length, 1)
        }
    }
}
