#pragma once
// The masks of the data-entry field. In a text mask "#" takes a digit, "A" a letter, "X" anything, "0" counts
// as a place of the text but is filled like a literal, and every other character is a literal. Number masks
// are patterns of Format, date masks are date patterns. A pair of masks is written "display;;edit".

#include "automation/String.h"
#include "field/field_enumerations.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>

namespace tesela {

/// Whether a mask character is a place for a character of the text.
bool isMaskPlace(char16_t maskCharacter);
/// Whether a mask character is one that the user types at: "#", "A" or "X".
bool isMaskInput(char16_t maskCharacter);
/// Whether a place of the mask takes the character; literals take none.
bool maskTakes(char16_t maskCharacter, char16_t character);

/// The text laid into the mask, of the mask's length: what doesn't fit becomes a blank, a character of the
/// text that equals the literal at its place is used up by it.
automation::String fillMask(std::u16string_view text, std::u16string_view mask);

/// The text with the characters that the original has in the places of the mask's literals.
automation::String withLiterals(std::u16string_view text, std::u16string_view original,
                                std::u16string_view mask);

/// The characters of a masked text that stand at the mask's places.
automation::String stripMask(std::u16string_view text, std::u16string_view mask);

/// The two masks of a pair; both are the whole text when there is no ";;" in it.
std::pair<automation::String, automation::String> splitMasks(const automation::String& masks);

/// How many digits a number mask has before and behind its point.
struct NumberDigits {
    std::int32_t integers = 0;
    std::int32_t decimals = 0;
    friend bool operator==(const NumberDigits&, const NumberDigits&) = default;
};
NumberDigits digitsOfMask(std::u16string_view mask);

/// What a compact mask such as "Z(7,2)" says: letters for the case and for the blank zero, then the digits of
/// a number, then the mask itself.
struct CompactMask {
    std::optional<tslMayusculasConstants> letterCase;
    bool blankWhenEmpty = false;
    std::int32_t phantomDigits = 0;
    automation::String mask;
};
CompactMask readCompactMask(std::u16string_view text);

} // namespace tesela
