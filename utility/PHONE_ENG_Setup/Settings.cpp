// Access to the phone's local settings.
#include "Settings.h"

#include <QString>

#include <type_traits>

namespace Settings {

template <typename Value>
Value get(SETUP_SET_Manager &store, const char *group, const char *key, const Value &defaultValue)
{
    Value value = defaultValue;
    if constexpr (std::is_same_v<Value, QString>)
        store.getSettingInfo(QLatin1String(group), QLatin1String(key), value, defaultValue, false);
    else
        store.getSettingInfo(QLatin1String(group), QLatin1String(key), value, defaultValue);
    return value;
}

template <typename Value>
Value read(const char *group, const char *key, const Value &defaultValue)
{
    SETUP_SET_Manager store(AM_Global::CallSetup, false);
    return get(store, group, key, defaultValue);
}

template <typename Value>
bool put(SETUP_SET_Manager &store, const char *group, const char *key, const Value &value)
{
    if constexpr (std::is_same_v<Value, QString>)
        return store.setSettingInfo(QLatin1String(group), QLatin1String(key), value, false);
    else
        return store.setSettingInfo(QLatin1String(group), QLatin1String(key), value);
}

template <typename Value>
bool write(PHONE_ENG_Setup &engine, const char *group, const char *key, const Value &value,
           void (*publish)(Value))
{
    SETUP_SET_Manager store(AM_Global::CallSetup, true);
    const bool stored = put(store, group, key, value);
    if (!stored)
        engine.checkFlashFull(); // at once, while errno is the store's
    else if (publish)
        publish(value);
    return stored;
}

template bool get(SETUP_SET_Manager &, const char *, const char *, const bool &);
template int get(SETUP_SET_Manager &, const char *, const char *, const int &);
template QString get(SETUP_SET_Manager &, const char *, const char *, const QString &);
template bool read(const char *, const char *, const bool &);
template int read(const char *, const char *, const int &);
template QString read(const char *, const char *, const QString &);
template bool put(SETUP_SET_Manager &, const char *, const char *, const int &);
template bool put(SETUP_SET_Manager &, const char *, const char *, const QString &);
template bool write(PHONE_ENG_Setup &, const char *, const char *, const bool &, void (*)(bool));
template bool write(PHONE_ENG_Setup &, const char *, const char *, const int &, void (*)(int));
template bool write(PHONE_ENG_Setup &, const char *, const char *, const QString &, void (*)(QString));

} // namespace Settings
