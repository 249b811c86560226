// What the pages have in common: the calls that run, which the window shows above all of them.
import Kvq.Settings
import Kvq.Settings.Controls

SettingsPage {
    property CallScreen callScreen: null
}
