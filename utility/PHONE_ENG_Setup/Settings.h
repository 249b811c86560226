// The phone's local settings: one access each, opened and closed within the operation.
#pragma once

#include "PHONE_ENG_Setup.h"

#include "SETUP_SET_Manager.h"

#include <QString>

#include <cerrno>
#include <type_traits>

namespace Settings {

/** The groups that the engine uses. */
inline QString setupGroup()
{
    return QStringLiteral("Setup");
}
inline QString turboDialingGroup()
{
    return QStringLiteral("Turbo Dialing");
}
inline QString videoCallGroup()
{
    return QStringLiteral("RVCSetting");
}
inline QString matchingGroup()
{
    return QStringLiteral("matching_indicate");
}

template <typename Value>
Value read(const QString &group, const QString &key, const Value &defaultValue)
{
    SETUP_SET_Manager store(AM_Global::CallSetup, false);
    Value value = defaultValue;
    if constexpr (std::is_same_v<Value, QString>)
        store.getSettingInfo(group, key, value, defaultValue, false);
    else
        store.getSettingInfo(group, key, value, defaultValue);
    return value;
}

template <typename Value>
bool put(SETUP_SET_Manager &store, const QString &group, const QString &key, const Value &value)
{
    if constexpr (std::is_same_v<Value, QString>)
        return store.setSettingInfo(group, key, value, false);
    else
        return store.setSettingInfo(group, key, value);
}

/** Stores one value durably. @p report hears the answer while the store is still open. */
template <typename Value, typename Report>
bool write(PHONE_ENG_Setup &engine, const QString &group, const QString &key, const Value &value,
           Report report)
{
    SETUP_SET_Manager store(AM_Global::CallSetup, true);
    const bool stored = put(store, group, key, value);
    const int reason = errno; // a report that logs may change errno
    report(stored);
    if (!stored) {
        errno = reason;
        engine.checkFlashFull();
    }
    return stored;
}

template <typename Value>
bool write(PHONE_ENG_Setup &engine, const QString &group, const QString &key, const Value &value)
{
    return write(engine, group, key, value, [](bool) {});
}

} // namespace Settings
