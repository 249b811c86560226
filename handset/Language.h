// The language of the phone's screens, by the number that the phone's programs know it by.
#pragma once

#include <string_view>

namespace Handset {

/** The language of a locale such as "de_AT.UTF-8"; 0, English, for one that is not in the table. */
int languageOf(std::string_view locale);

/** The language of this process: by LC_ALL, else LC_MESSAGES, else LANG. Looked up afresh each time. */
int systemLanguage();

} // namespace Handset
