// What the phone itself keeps.
#include "PhoneSettings.h"

#include "SettingsStore.h"

#include "AM_Global.h"

#include <QString>

#include <mutex>

namespace Ofono::PhoneSettings {

namespace {

/** The phone's own connection to the user's settings, for telephony may be asked on any thread. */
struct Store {
    std::mutex mutex;
    SettingsStore settings;
};

Store &store()
{
    // Never destroyed: an application may use the engine until the process is gone.
    static auto *const store = new Store;
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

int read(const char *key, int defaultValue)
{
    const std::scoped_lock lock(store().mutex);
    return store()
        .settings.readInteger(nameOf(QString::fromLatin1(key)), SettingsStore::Type::Int)
        .value_or(defaultValue);
}

_TAPI_RESULT_E write(const char *key, int value)
{
    const std::scoped_lock lock(store().mutex);
    return resultOf(store().settings.writeInteger(nameOf(QString::fromLatin1(key)), SettingsStore::Type::Int,
                                                  value, nullptr));
}

_TAPI_RESULT_E readByte(const char *key, unsigned char *value)
{
    *value = static_cast<unsigned char>(read(key, 0));
    return TAPI_RESULT_SUCC;
}

std::u16string readText(const std::string &key)
{
    const std::scoped_lock lock(store().mutex);
    return store()
        .settings.readText(nameOf(QString::fromStdString(key)))
        .value_or(QString())
        .toStdU16String();
}

_TAPI_RESULT_E writeText(const std::string &key, const std::u16string &value)
{
    const std::scoped_lock lock(store().mutex);
    return resultOf(store().settings.writeText(nameOf(QString::fromStdString(key)),
                                               QString::fromStdU16String(value), nullptr));
}

} // namespace Ofono::PhoneSettings
