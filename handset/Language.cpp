// The language of the phone's screens.
#include "Language.h"

#include <array>
#include <cstdlib>

namespace Handset {

namespace {

struct Language {
    std::string_view locale; ///< a language, or a language with its territory
    int id;
};

/** The first entry that the locale begins with counts, so a territory stands before its language. */
constexpr std::array<Language, 32> languages = {{
    {"en", 0},     {"de", 1},  {"fr", 2},  {"es", 3},  {"it", 4},  {"pt", 5},  {"nl", 6},     {"da", 7},
    {"sv", 8},     {"nb", 9},  {"nn", 9},  {"no", 9},  {"fi", 10}, {"pl", 11}, {"cs", 12},    {"sk", 13},
    {"hu", 14},    {"ro", 15}, {"el", 16}, {"tr", 17}, {"ru", 18}, {"uk", 19}, {"zh_TW", 22}, {"zh_HK", 22},
    {"zh_MO", 22}, {"zh", 20}, {"ko", 21}, {"ja", 23}, {"th", 24}, {"vi", 25}, {"ar", 26},    {"he", 27},
}};

} // namespace

int languageOf(std::string_view locale)
{
    const std::string_view name = locale.substr(0, locale.find_first_of(".@"));
    for (const Language &language : languages) {
        if (name == language.locale
            || (name.substr(0, language.locale.size()) == language.locale
                && name[language.locale.size()] == '_'))
            return language.id;
    }
    return 0;
}

int systemLanguage()
{
    for (const char *const variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const char *const locale = std::getenv(variable);
        if (locale && *locale)
            return languageOf(locale);
    }
    return 0;
}

} // namespace Handset
