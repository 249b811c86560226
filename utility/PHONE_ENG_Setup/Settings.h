// The phone's local settings: one access each, opened and closed within the operation.
#pragma once

#include "PHONE_ENG_Setup.h"

#include "SETUP_SET_Manager.h"

#include <QString>

#include <cstddef>

namespace Settings {

/** A group or a key: a literal, which is handed on without a copy, or a text that was made. */
struct Name {
    template <std::size_t Size>
    Name(const char16_t (&literal)[Size])
        : units(literal)
        , length(static_cast<int>(Size - 1))
    {
    }
    Name(const QString &made)
        : units(reinterpret_cast<const char16_t *>(made.utf16()))
        , length(static_cast<int>(made.size()))
        , isLiteral(false)
    {
    }

    const char16_t *units;
    int length;
    bool isLiteral = true;
};

/** The groups that the engine uses. */
constexpr char16_t setupGroup[] = u"Setup";
constexpr char16_t turboDialingGroup[] = u"Turbo Dialing";
constexpr char16_t videoCallGroup[] = u"RVCSetting";
constexpr char16_t matchingGroup[] = u"matching_indicate";

/** Reads a bool, an int or a QString through a store that is open; an absent key gives the default. */
template <typename Value>
Value get(SETUP_SET_Manager &store, Name group, Name key, const Value &defaultValue);

/** Opens the store, reads one of these and closes it: for operations that do nothing else. */
template <typename Value>
Value read(Name group, Name key, const Value &defaultValue);

/** Writes one of these through a store that is open. */
template <typename Value>
bool put(SETUP_SET_Manager &store, Name group, Name key, const Value &value);

/**
 * Stores one of these durably, or raises the signal of a full disk.
 * @param publish called with the stored value while the store is still open
 */
template <typename Value>
bool write(PHONE_ENG_Setup &engine, Name group, Name key, const Value &value,
           void (*publish)(Value) = nullptr);

} // namespace Settings
