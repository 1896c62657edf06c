// Comparison in dictionary order and case, with ICU's data. A collator is made at the first comparison of
// its locale and kept.

#include "platform/linux/collation.h"

#include "platform/errors.h"
#include "platform/linux/locale_data.h"

#include <unicode/uchar.h>
#include <unicode/ucol.h>

#include <map>
#include <memory>
#include <mutex>
#include <utility>
#include <vector>

namespace platform {
namespace {

struct CloseCollator {
    void operator()(UCollator* collator) const { ucol_close(collator); }
};
using Collator = std::unique_ptr<UCollator, CloseCollator>;

/// The two collators of a locale: with and without regard to case.
struct Collators {
    Collator exact;
    Collator ignoringCase;
};

Collators openCollators(const std::string& locale) {
    UErrorCode status = U_ZERO_ERROR;
    Collators made;
    made.exact.reset(ucol_open(locale.c_str(), &status));
    if (U_FAILURE(status)) return {};
    made.ignoringCase.reset(ucol_clone(made.exact.get(), &status));
    if (U_FAILURE(status)) return {};
    ucol_setStrength(made.ignoringCase.get(), UCOL_SECONDARY);
    return made;
}

/// Null when the locale's rules cannot be had.
const UCollator* collatorOf(LCID locale, bool ignoringCase) {
    static std::mutex guard;
    static std::map<LCID, Collators> known;
    const auto* data = driver::localeData(locale);
    if (!data) return nullptr;
    const std::lock_guard lock(guard);
    auto found = known.find(data->id);
    if (found == known.end()) found = known.emplace(data->id, openCollators(data->name)).first;
    return ignoringCase ? found->second.ignoringCase.get() : found->second.exact.get();
}

/// In the platform's word order a hyphen or an apostrophe counts only between texts that are otherwise
/// the same.
bool isPassedOver(char16_t c) {
    return c == u'-' || c == u'\'';
}

std::u16string withoutPassedOver(std::u16string_view text) {
    std::u16string out;
    for (const char16_t c : text) {
        if (!isPassedOver(c)) out += c;
    }
    return out;
}

/// Decides between texts that differ only in what is passed over: the one without comes first, then the one
/// that has it earlier.
int comparePassedOver(std::u16string_view a, std::u16string_view b) {
    const auto places = [](std::u16string_view text) {
        std::vector<std::pair<std::size_t, char16_t>> found;
        for (std::size_t i = 0; i < text.size(); ++i) {
            if (isPassedOver(text[i])) found.emplace_back(i, text[i]);
        }
        return found;
    };
    const auto first = places(a);
    const auto second = places(b);
    return first < second ? -1 : second < first ? 1 : 0;
}

bool hasPassedOver(std::u16string_view text) {
    return text.find_first_of(u"-'") != text.npos;
}

int collate(const UCollator* collator, std::u16string_view a, std::u16string_view b) {
    return ucol_strcoll(collator, a.data(), static_cast<int>(a.size()), b.data(), static_cast<int>(b.size()));
}

std::u16string_view viewOf(const char16_t* text, int length) {
    return length < 0 ? std::u16string_view(text)
                      : std::u16string_view(text, static_cast<std::size_t>(length));
}

/// The one-to-one case mappings that lead back to where they came from: the platform changes no others.
char16_t mapped(char16_t c, UChar32 (*there)(UChar32), UChar32 (*back)(UChar32)) {
    const UChar32 other = there(c);
    return other <= 0xFFFF && back(other) == c ? static_cast<char16_t>(other) : c;
}

} // namespace

int CompareStringW(LCID locale, DWORD flags, const char16_t* a, int lengthA, const char16_t* b, int lengthB) {
    if (!a || !b) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    if ((flags & ~(NORM_IGNORECASE | SORT_STRINGSORT)) != 0) {
        SetLastError(ERROR_INVALID_FLAGS);
        return 0;
    }
    const auto* collator = collatorOf(locale, (flags & NORM_IGNORECASE) != 0);
    if (!collator) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    const auto first = viewOf(a, lengthA);
    const auto second = viewOf(b, lengthB);
    const bool wordOrder = (flags & SORT_STRINGSORT) == 0;
    if (!wordOrder || (!hasPassedOver(first) && !hasPassedOver(second)))
        return CSTR_EQUAL + collate(collator, first, second);
    int order = collate(collator, withoutPassedOver(first), withoutPassedOver(second));
    if (order == 0) order = comparePassedOver(first, second);
    return CSTR_EQUAL + order;
}

namespace driver {

namespace {

void appendKey(const UCollator* collator, std::u16string_view text, std::vector<std::uint8_t>& key) {
    const auto length = static_cast<int>(text.size());
    std::uint8_t few[256];
    const int needed = ucol_getSortKey(collator, text.data(), length, few, sizeof few);
    const std::size_t start = key.size();
    if (needed <= static_cast<int>(sizeof few)) {
        key.insert(key.end(), few, few + needed);
        return;
    }
    key.resize(start + static_cast<std::size_t>(needed));
    ucol_getSortKey(collator, text.data(), length, key.data() + start, needed);
}

} // namespace

std::vector<std::uint8_t> sortKey(std::u16string_view text) {
    std::vector<std::uint8_t> key;
    const auto* collator = collatorOf(userLocale().id, true);
    if (!collator) return key;
    if (hasPassedOver(text)) appendKey(collator, withoutPassedOver(text), key);
    appendKey(collator, text, key);
    return key;
}

} // namespace driver

std::u16string upperCase(std::u16string_view text) {
    std::u16string out(text);
    for (char16_t& c : out) {
        if (c < 0x80)
            c = c >= u'a' && c <= u'z' ? static_cast<char16_t>(c - 0x20) : c;
        else
            c = mapped(c, u_toupper, u_tolower);
    }
    return out;
}

std::u16string lowerCase(std::u16string_view text) {
    std::u16string out(text);
    for (char16_t& c : out) {
        if (c < 0x80)
            c = c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c + 0x20) : c;
        else
            c = mapped(c, u_tolower, u_toupper);
    }
    return out;
}

} // namespace platform
