// What the phone itself keeps, because no modem, card or network would.
#pragma once

#include "SettingsStore.h"

#include "TAPI_RESULT.h"

#include <string>

namespace Ofono::PhoneSettings {

/** The user's settings, those of the applications included. */
SettingsStore &store();

int read(const char *key, int defaultValue);
_TAPI_RESULT_E write(const char *key, int value);

/** A byte with a getter and a setter of its own. */
_TAPI_RESULT_E readByte(const char *key, unsigned char *value);

std::u16string readText(const std::string &key);
_TAPI_RESULT_E writeText(const std::string &key, const std::u16string &value);

} // namespace Ofono::PhoneSettings
