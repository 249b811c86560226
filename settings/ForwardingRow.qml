// One forwarding: off, or where to.
import Kvq.CallSetup
import Kvq.Settings.Controls

EntryRow {
    required property ForwardingRule rule
    /** All calls are forwarded before this one is looked at. */
    property bool overruled: false

    visible: rule.available
    value: rule.active ? rule.number : qsTr("Off")
    description: overruled ? qsTr("Has no effect while “Always” is on")
        : rule.active && rule.noReplyTime > 0 ? qsTr("After %1 seconds").arg(rule.noReplyTime) : ""
    known: rule.known
    stale: rule.stale
    busy: rule.busy
    failure: Words.of(rule)
    onRetry: rule.retry()
}
