// What the phone itself keeps.
#include "PhoneSettings.h"
#include "Daemon.h"

#include "SettingsStore.h"

#include "AM_Global.h"

#include <QString>

namespace Ofono::PhoneSettings {

namespace {

/** The phone's own connection to the user's settings. A write must not take longer than the daemon's answers do. */
SettingsStore &store()
{
    // Never destroyed: an application may use the engine until the process is gone.
    static auto *const store = [] {
        auto *const made = new SettingsStore;
        made->setBusyTimeout(static_cast<int>(Daemon::lengthOf(Deadline::AtHand).count()));
        return made;
    }();
    return *store;
}

SettingsStore::Name nameOf(const QString &key)
{
    return {AM_Global::CallSetup, QStringLiteral("Telephony"), key};
}

_TAPI_RESULT_E resultOf(bool written)
{
    return written ? TAPI_RESULT_SUCC : TAPI_RESULT_FAIL;
}

} // namespace

std::string file()
{
    return store().file().toStdString();
}

int read(const char *key, int defaultValue)
{
    return store()
        .readInteger(nameOf(QString::fromLatin1(key)), SettingsStore::Type::Int)
        .value_or(defaultValue);
}

_TAPI_RESULT_E write(const char *key, int value)
{
    return resultOf(
        store().writeInteger(nameOf(QString::fromLatin1(key)), SettingsStore::Type::Int, value, nullptr));
}

_TAPI_RESULT_E readByte(const char *key, unsigned char *value)
{
    *value = static_cast<unsigned char>(read(key, 0));
    return TAPI_RESULT_SUCC;
}

std::u16string readText(const std::string &key)
{
    return store().readText(nameOf(QString::fromStdString(key))).value_or(QString()).toStdU16String();
}

_TAPI_RESULT_E writeText(const std::string &key, const std::u16string &value)
{
    return resultOf(
        store().writeText(nameOf(QString::fromStdString(key)), QString::fromStdU16String(value), nullptr));
}

} // namespace Ofono::PhoneSettings
