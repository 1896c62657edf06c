#include "platform/locale.h"

#include "platform/errors.h"
#include "platform/linux/locale_data.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace platform {
namespace driver {
namespace {

constexpr LCID userDefault = 0x0400;
constexpr LCID systemDefault = 0x0800;
constexpr LCID neutral = 0x0000;
constexpr LCID invariant = 0x007F;
constexpr LCID languageMask = 0xFFFF;
constexpr LCTYPE withoutUserOverrides = 0x80000000;
constexpr std::string_view fallbackName = "es-ES";
constexpr std::string_view invariantName = "en-US";

const LocaleData* overriding = nullptr;

/// "es_ES.UTF-8@euro" to "es-ES". Empty for the locales that say nothing.
std::string nameFromEnvironment(std::string_view value) {
    std::string name(value.substr(0, value.find_first_of(".@")));
    if (name == "C" || name == "POSIX") return {};
    std::replace(name.begin(), name.end(), '_', '-');
    return name;
}

std::string_view variable(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

/// The locale of a category in the system's order: LC_ALL, the category, LANG.
std::string categoryLocale(const char* category) {
    for (const char* name : {"LC_ALL", category, "LANG"}) {
        if (const auto value = variable(name); !value.empty()) return nameFromEnvironment(value);
    }
    return {};
}

} // namespace

const LocaleData& localeFromEnvironment() {
    if (const auto* chosen = localeData(variable("TESELA_LOCALE"))) return *chosen;
    for (const char* category : {"LC_TIME", "LC_NUMERIC", "LC_MESSAGES"}) {
        if (const auto* found = localeData(categoryLocale(category))) return *found;
    }
    return *builtInLocale(fallbackName);
}

const std::u16string* LocaleData::find(LCTYPE type) const {
    for (const auto& row : strings) {
        if (type >= row.first && type - row.first < row.values.size()) return &row.values[type - row.first];
    }
    return nullptr;
}

const LocaleData* localeData(LCID id) {
    id &= languageMask;
    if (id == userDefault || id == systemDefault || id == neutral) return &userLocale();
    if (id == invariant) return builtInLocale(invariantName);
    const auto* data = builtInLocale(id);
    return data ? data : systemLocale(id);
}

const LocaleData* localeData(std::string_view name) {
    if (name.empty()) return nullptr;
    const auto* data = builtInLocale(name);
    return data ? data : systemLocale(name);
}

const LocaleData& userLocale() {
    if (overriding) return *overriding;
    static const LocaleData& own = localeFromEnvironment();
    return own;
}

} // namespace driver

LCID GetUserDefaultLCID() {
    return driver::userLocale().id;
}

bool overrideUserLocale(std::string_view name) {
    if (name.empty()) {
        driver::overriding = nullptr;
        return true;
    }
    const auto* data = driver::localeData(name);
    if (data) driver::overriding = data;
    return data != nullptr;
}

namespace {

const std::u16string* localeString(LCID locale, LCTYPE type) {
    const auto* data = driver::localeData(locale);
    const auto* text = data ? data->find(type & ~driver::withoutUserOverrides) : nullptr;
    if (!data)
        SetLastError(ERROR_INVALID_PARAMETER);
    else if (!text)
        SetLastError(ERROR_INVALID_FLAGS);
    return text;
}

/// Copies a text with its NUL by the rules of GetLocaleInfo.
template <class Text, class Unit>
int copyOut(const Text& text, Unit* data, int size) {
    const int needed = static_cast<int>(text.size()) + 1;
    if (size == 0) return needed;
    if (size < needed || !data) {
        SetLastError(size < 0 || !data ? ERROR_INVALID_PARAMETER : ERROR_INSUFFICIENT_BUFFER);
        return 0;
    }
    std::memcpy(data, text.c_str(), static_cast<std::size_t>(needed) * sizeof(Unit));
    return needed;
}

} // namespace

int GetLocaleInfoW(LCID locale, LCTYPE type, char16_t* data, int size) {
    const auto* text = localeString(locale, type);
    return text ? copyOut(*text, data, size) : 0;
}

int GetLocaleInfoA(LCID locale, LCTYPE type, char* data, int size) {
    const auto* text = localeString(locale, type);
    return text ? copyOut(ansiFromWide(*text), data, size) : 0;
}

} // namespace platform
