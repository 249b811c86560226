// Network ids on their way to the platform, and the language of the names that come back.
#pragma once

#include <QString>

#include <cstddef>
#include <cstring>

#include "UTIL_Language.h"

namespace NetworkNames {

/** The languages for which the platform holds a second set of names. */
constexpr int firstSecondNameLanguage = 20;
constexpr int secondSecondNameLanguage = 22;

/** Read afresh for each request, since the user may change the language at any time. */
inline unsigned char languageFlag()
{
    const int language = UTIL_Language::getSystemLanguageId();
    return language == firstSecondNameLanguage || language == secondSecondNameLanguage ? 1 : 0;
}

/** Whether the id fits a field of this type whole. A cut id would name another network. */
template <typename Field>
bool fits(const QString &networkId)
{
    return static_cast<std::size_t>(networkId.size()) < sizeof(Field);
}

} // namespace NetworkNames
