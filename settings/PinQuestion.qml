// What is asked of somebody who is to type a PIN, and what becomes of the answer.
import QtQml
import Kvq.CallSetup

QtObject {
    property string heading
    /** Of SimPins.Pin. */
    property int which: SimPins.Pin1
    /** Why it is asked, where that needs words. */
    property string reason
    /** What is asked for, one to three labels; the third repeats the second. */
    property var prompts: []
    property string verb
    /** What is asked instead once the SIM has blocked the PIN. */
    property PinQuestion remedy: null
    /** Whether a PUK is asked for first. */
    property bool puk: false
    /** What was made of the answer. */
    property Request request: null

    /** Typed: make the request. */
    signal entered(string first, string second)
    /** The SIM took it. */
    signal taken()
}
