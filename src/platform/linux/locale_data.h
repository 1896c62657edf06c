#pragma once
// The strings of one locale as the platform's GetLocaleInfo gives them, and where they come from.

#include "platform/locale.h"

#include <string>
#include <string_view>
#include <vector>

namespace platform::driver {

/// The strings of consecutive types, so that names of days and months stand in a row.
struct LocaleStrings {
    LCTYPE first;
    std::vector<std::u16string> values;
};

struct LocaleData {
    LCID id = 0;
    std::string name; ///< "es-ES"
    std::vector<LocaleStrings> strings;

    /// Null for a type that is not known.
    const std::u16string* find(LCTYPE type) const;
};

/// One of the locales that the library carries with it; null for another.
const LocaleData* builtInLocale(LCID id);
const LocaleData* builtInLocale(std::string_view name);

/// The locale out of the system's data, kept once it was read; null for one that those do not know. The
/// name is in the form "es-ES" or "es_ES".
const LocaleData* systemLocale(LCID id);
const LocaleData* systemLocale(std::string_view name);

/// The locale of any number or name, the user's own numbers included; null for an unknown one.
const LocaleData* localeData(LCID id);
const LocaleData* localeData(std::string_view name);

/// The locale that the environment names now: TESELA_LOCALE, else LC_ALL, LC_TIME or another category, LANG.
/// es-ES where these say nothing ("C", "POSIX") or name an unknown one.
const LocaleData& localeFromEnvironment();

/// The user's locale, as the environment named it at its first use, or the one that overrideUserLocale set.
const LocaleData& userLocale();

} // namespace platform::driver
