// A setting with a few values, as a row that opens.
import Kvq.CallSetup
import Kvq.Settings.Controls

ChoiceRow {
    required property IntSetting setting

    visible: setting.available
    current: setting.value
    known: setting.known
    stale: setting.stale
    busy: setting.busy
    failure: Words.of(setting)
    onPicked: value => setting.value = value
    onRetry: setting.retry()
}
