// What the phone itself keeps.
#include "PhoneSettings.h"
#include "Daemon.h"

#include "AM_Global.h"

#include <QString>

namespace Ofono::PhoneSettings {

namespace {

SettingsStore::Name nameOf(const QString &key)
{
    return {AM_Global::CallSetup, QStringLiteral("Telephony"), key};
}

template <typename Type>
Type stored(const QString &key, const Type &defaultValue)
{
    const auto value = store().find(SettingsDocument::keyOf<Type>(nameOf(key)));
    return value ? std::get<Type>(*value) : defaultValue;
}

_TAPI_RESULT_E resultOf(bool written)
{
    return written ? TAPI_RESULT_SUCC : TAPI_RESULT_FAIL;
}

} // namespace

SettingsStore &store()
{
    // Never destroyed: an application may use the engine until the process is gone.
    static auto *const store = [] {
        auto *const made = new SettingsStore;
        // A write must not take longer than the daemon's answers do.
        made->setPatience(Daemon::lengthOf(Deadline::AtHand));
        return made;
    }();
    return *store;
}

int read(const char *key, int defaultValue)
{
    return stored(QString::fromLatin1(key), defaultValue);
}

_TAPI_RESULT_E write(const char *key, int value)
{
    return resultOf(store().write(nameOf(QString::fromLatin1(key)), value));
}

_TAPI_RESULT_E readByte(const char *key, unsigned char *value)
{
    *value = static_cast<unsigned char>(read(key, 0));
    return TAPI_RESULT_SUCC;
}

std::u16string readText(const std::string &key)
{
    return stored(QString::fromStdString(key), QString()).toStdU16String();
}

_TAPI_RESULT_E writeText(const std::string &key, const std::u16string &value)
{
    return resultOf(store().write(nameOf(QString::fromStdString(key)), QString::fromStdU16String(value)));
}

} // namespace Ofono::PhoneSettings
