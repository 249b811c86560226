// The phone's local settings: one access each, opened and closed within the operation.
#pragma once

#include "PHONE_ENG_Setup.h"

#include "SETUP_SET_Manager.h"

namespace Settings {

/** The groups that the engine uses. */
constexpr char setupGroup[] = "Setup";
constexpr char turboDialingGroup[] = "Turbo Dialing";
constexpr char videoCallGroup[] = "RVCSetting";
constexpr char matchingGroup[] = "matching_indicate";

/** Reads a bool, an int or a QString through a store that is open; an absent key gives the default. */
template <typename Value>
Value get(SETUP_SET_Manager &store, const char *group, const char *key, const Value &defaultValue);

/** Opens the store, reads one of these and closes it: for operations that do nothing else. */
template <typename Value>
Value read(const char *group, const char *key, const Value &defaultValue);

/** Writes one of these through a store that is open. */
template <typename Value>
bool put(SETUP_SET_Manager &store, const char *group, const char *key, const Value &value);

/**
 * Stores one of these durably, or raises the signal of a full disk.
 * @param publish called with the stored value while the store is still open
 */
template <typename Value>
bool write(PHONE_ENG_Setup &engine, const char *group, const char *key, const Value &value,
           void (*publish)(Value) = nullptr);

} // namespace Settings
