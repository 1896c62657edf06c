#pragma once
// What the patterns of `Format` have in common: kinds, sections, dates and texts by pattern.

#include "automation/Date.h"

#include <array>
#include <cstddef>
#include <string_view>

namespace automation {

class Locale;
class TextBuilder;

/// What a pattern formats: the first unit in it that has a meaning decides. `Plain` patterns have none.
enum class PatternKind { Plain, Number, Date, Text };

PatternKind kindOfPattern(std::u16string_view pattern);

/// The sections of a pattern, parted by ";" outside quoted and escaped text.
struct PatternSections {
    static constexpr std::size_t most = 4;

    explicit PatternSections(std::u16string_view pattern);

    /// Whether section `index` is there and not empty.
    bool has(std::size_t index) const { return index < count && !section[index].empty(); }

    std::array<std::u16string_view, most> section;
    std::size_t count = 0;
};

/// Writes a date by a pattern of c, d, w, m, q, y, h, n, s, t and AM/PM runs in any case; "/" and ":" are the
/// locale's separators, "m" right after hours is minutes.
void writeDatePattern(TextBuilder& out, std::u16string_view pattern, Date date, int firstDay, int firstWeek,
                      const Locale& locale);

/// Writes a text by a pattern of places: "@" (a character or a blank), "&" (a character or nothing), "<" and
/// ">" (lower and upper case) and "!" (fill from the left).
void writeTextPattern(TextBuilder& out, std::u16string_view section, std::u16string_view text);

} // namespace automation
