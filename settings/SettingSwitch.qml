// A setting that is on or off, as a row.
import Kvq.CallSetup
import Kvq.Settings.Controls

SwitchRow {
    required property BoolSetting setting

    visible: setting.available
    checked: setting.value
    known: setting.known
    stale: setting.stale
    busy: setting.busy
    failure: Words.of(setting)
    onToggled: on => setting.value = on
    onRetry: setting.retry()
}
