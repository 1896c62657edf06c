#include "platform/locale.h"

#include "platform/windows/convert.h"

#include <algorithm>
#include <optional>

namespace platform {
namespace {

using driver::wide;

/// The locale of TESELA_LOCALE or of overrideUserLocale; none for the user's own.
struct Override {
    bool read = false;
    std::optional<LCID> locale;
};

Override& overriding() {
    static Override only;
    return only;
}

std::optional<LCID> localeOfName(const std::u16string& name) {
    if (name.empty()) return std::nullopt;
    const LCID found = ::LocaleNameToLCID(wide(name.c_str()), 0);
    constexpr LCID unknown = 0x1000;
    if (found == 0 || found == unknown || !::IsValidLocale(found, LCID_SUPPORTED)) return std::nullopt;
    return found;
}

std::optional<LCID> localeFromEnvironment() {
    char16_t name[LOCALE_NAME_MAX_LENGTH];
    const DWORD length = ::GetEnvironmentVariableW(L"TESELA_LOCALE", wide(name), LOCALE_NAME_MAX_LENGTH);
    if (length == 0 || length >= LOCALE_NAME_MAX_LENGTH) return std::nullopt;
    return localeOfName(name);
}

std::optional<LCID> chosenLocale() {
    Override& state = overriding();
    if (!state.read) {
        state.read = true;
        state.locale = localeFromEnvironment();
    }
    return state.locale;
}

/// The user's default number means the chosen locale too.
LCID effective(LCID locale) {
    const bool user = locale == LOCALE_USER_DEFAULT || locale == LOCALE_SYSTEM_DEFAULT || locale == 0;
    return user ? chosenLocale().value_or(locale) : locale;
}

/// Case as the library defines it: one character for one, of no country.
std::u16string mapped(std::u16string_view text, DWORD direction) {
    std::u16string out(text.size(), u'\0');
    if (text.empty()) return out;
    const int length = static_cast<int>(text.size());
    ::LCMapStringW(LOCALE_INVARIANT, direction, wide(text.data()), length, wide(out.data()), length);
    return out;
}

} // namespace

LCID GetUserDefaultLCID() {
    return chosenLocale().value_or(::GetUserDefaultLCID());
}

int GetLocaleInfoA(LCID locale, LCTYPE type, char* data, int size) {
    // By way of UTF-16: the code page of the text is the library's, not that of the locale asked for.
    const int length = GetLocaleInfoW(locale, type, nullptr, 0);
    if (length == 0) return 0;
    std::u16string text(static_cast<std::size_t>(length), u'\0');
    GetLocaleInfoW(locale, type, text.data(), length);
    const std::string bytes = ansiFromWide(text);
    const int needed = static_cast<int>(bytes.size());
    if (size == 0) return needed;
    if (size < needed || !data) {
        ::SetLastError(size < 0 || !data ? ERROR_INVALID_PARAMETER : ERROR_INSUFFICIENT_BUFFER);
        return 0;
    }
    std::copy(bytes.begin(), bytes.end(), data);
    return needed;
}

int GetLocaleInfoW(LCID locale, LCTYPE type, char16_t* data, int size) {
    return ::GetLocaleInfoW(effective(locale), type, wide(data), size);
}

UINT GetACP() {
    return ::GetACP();
}

std::string ansiFromWide(std::u16string_view text) {
    if (text.empty()) return {};
    const int length = static_cast<int>(text.size());
    const int size =
        ::WideCharToMultiByte(CP_ACP, 0, wide(text.data()), length, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<std::size_t>(size), '\0');
    ::WideCharToMultiByte(CP_ACP, 0, wide(text.data()), length, bytes.data(), size, nullptr, nullptr);
    return bytes;
}

std::u16string wideFromAnsi(std::string_view bytes) {
    if (bytes.empty()) return {};
    const int length = static_cast<int>(bytes.size());
    const int size = ::MultiByteToWideChar(CP_ACP, 0, bytes.data(), length, nullptr, 0);
    std::u16string text(static_cast<std::size_t>(size), u'\0');
    ::MultiByteToWideChar(CP_ACP, 0, bytes.data(), length, wide(text.data()), size);
    return text;
}

int CompareStringW(LCID locale, DWORD flags, const char16_t* a, int lengthA, const char16_t* b, int lengthB) {
    return ::CompareStringW(effective(locale), flags, wide(a), lengthA, wide(b), lengthB);
}

std::u16string upperCase(std::u16string_view text) {
    return mapped(text, LCMAP_UPPERCASE);
}

std::u16string lowerCase(std::u16string_view text) {
    return mapped(text, LCMAP_LOWERCASE);
}

bool overrideUserLocale(std::string_view name) {
    if (name.empty()) {
        overriding() = {true, std::nullopt};
        return true;
    }
    const auto found = localeOfName(wideFromUtf8(name));
    if (found) overriding() = {true, found};
    return found.has_value();
}

} // namespace platform
