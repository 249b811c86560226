// A setting that can only be read, as a row.
import Kvq.Settings.Controls

SettingRow {
    id: row

    /** A TextSetting, IntSetting or BoolSetting. */
    required property var setting
    /** Turns the value into words. */
    property var words: value => String(value)

    visible: setting.available
    value: setting.known ? (words(setting.value) || qsTr("none")) : ""
    known: setting.known
    stale: setting.stale
    busy: setting.busy
    failure: Words.of(setting)
    onRetry: setting.retry()
}
