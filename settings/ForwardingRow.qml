// One forwarding: off, or where to.
import Kvq.CallSetup
import Kvq.Settings.Controls

EntryRow {
    required property ForwardingRule rule

    visible: rule.available
    value: rule.active ? rule.number : qsTr("Off")
    description: rule.active && rule.noReplyTime > 0 ? qsTr("After %1 seconds").arg(rule.noReplyTime) : ""
    known: rule.known
    busy: rule.busy
    failure: Words.of(rule)
    onRetry: rule.retry()
}
