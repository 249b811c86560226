// What the pages have in common: the phone's calls, which the window watches for all of them.
import Kvq.CallSetup
import Kvq.Settings.Controls

SettingsPage {
    property Calls calls: null
    /** The request that answers a call, when it led here. */
    property Request taken: null
}
