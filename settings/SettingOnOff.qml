// A setting with two numbers, one of which is "on", as a row with a switch.
import Kvq.CallSetup
import Kvq.Settings.Controls

SwitchRow {
    required property IntSetting setting
    property int on: 1
    property int off: 0

    visible: setting.available
    checked: setting.value === on
    known: setting.known
    stale: setting.stale
    busy: setting.busy
    failure: Words.of(setting)
    onToggled: wanted => setting.value = wanted ? on : off
    onRetry: setting.retry()
}
