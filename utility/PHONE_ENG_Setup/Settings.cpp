// Access to the phone's local settings.
#include "Settings.h"

#include <QString>

#include <type_traits>

namespace Settings {

namespace {

/** A platform may keep the text: a literal stays where it is, and what was made is copied. */
QString text(Name name)
{
    const auto *const units = reinterpret_cast<const QChar *>(name.units);
    return name.isLiteral ? QString::fromRawData(units, name.length) : QString(units, name.length);
}

} // namespace

template <typename Value>
Value get(SETUP_SET_Manager &store, Name group, Name key, const Value &defaultValue)
{
    Value value = defaultValue;
    if constexpr (std::is_same_v<Value, QString>)
        store.getSettingInfo(text(group), text(key), value, defaultValue, false);
    else
        store.getSettingInfo(text(group), text(key), value, defaultValue);
    return value;
}

template <typename Value>
Value read(Name group, Name key, const Value &defaultValue)
{
    SETUP_SET_Manager store(AM_Global::CallSetup, false);
    return get(store, group, key, defaultValue);
}

template <typename Value>
bool put(SETUP_SET_Manager &store, Name group, Name key, const Value &value)
{
    if constexpr (std::is_same_v<Value, QString>)
        return store.setSettingInfo(text(group), text(key), value, false);
    else
        return store.setSettingInfo(text(group), text(key), value);
}

template <typename Value>
bool write(PHONE_ENG_Setup &engine, Name group, Name key, const Value &value, void (*publish)(Value))
{
    SETUP_SET_Manager store(AM_Global::CallSetup, true);
    const bool stored = put(store, group, key, value);
    if (!stored)
        engine.checkFlashFull(); // at once, while errno is the store's
    else if (publish)
        publish(value);
    return stored;
}

template bool get(SETUP_SET_Manager &, Name, Name, const bool &);
template int get(SETUP_SET_Manager &, Name, Name, const int &);
template QString get(SETUP_SET_Manager &, Name, Name, const QString &);
template bool read(Name, Name, const bool &);
template int read(Name, Name, const int &);
template QString read(Name, Name, const QString &);
template bool put(SETUP_SET_Manager &, Name, Name, const int &);
template bool put(SETUP_SET_Manager &, Name, Name, const QString &);
template bool write(PHONE_ENG_Setup &, Name, Name, const bool &, void (*)(bool));
template bool write(PHONE_ENG_Setup &, Name, Name, const int &, void (*)(int));
template bool write(PHONE_ENG_Setup &, Name, Name, const QString &, void (*)(QString));

} // namespace Settings
