#pragma once
// Names of members, compared whatever the case of their letters.

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace automation {

/// The unit in lower case: the letters of ASCII and of Latin-1, "Ñ" and "Á" too.
constexpr char16_t foldUnit(char16_t unit) {
    constexpr char16_t toLower = 0x20;
    constexpr char16_t multiplicationSign = 0xD7;
    const bool ascii = unit >= u'A' && unit <= u'Z';
    const bool latin = unit >= 0xC0 && unit <= 0xDE && unit != multiplicationSign;
    return ascii || latin ? static_cast<char16_t>(unit + toLower) : unit;
}

constexpr bool sameName(std::u16string_view a, std::u16string_view b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (a[i] != b[i] && foldUnit(a[i]) != foldUnit(b[i])) return false;
    return true;
}

/// The same for names that are the same.
constexpr std::uint32_t hashName(std::u16string_view name) {
    constexpr std::uint32_t start = 2166136261u;
    constexpr std::uint32_t prime = 16777619u;
    std::uint32_t hash = start;
    for (const char16_t unit : name)
        hash = (hash ^ foldUnit(unit)) * prime;
    return hash ^ (hash >> 15);
}

} // namespace automation
