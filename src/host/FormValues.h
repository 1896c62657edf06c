#pragma once
// How plain values stand in a form's file: a word alone ("True"), or a type's word and digits ("Long 5").
// The digits are the same in every locale.

#include "automation/Variant.h"

#include <charconv>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

namespace host {

/// The shortest digits that read back as the same number.
template <class T>
std::u16string writeDigits(T value) {
    char digits[64];
    return {std::begin(digits), std::to_chars(std::begin(digits), std::end(digits), value).ptr};
}

/// False for a text that is not this type's number from its first to its last unit.
template <class T>
bool readDigits(std::u16string_view text, T& value) {
    std::string digits;
    for (const char16_t c : text) {
        if (c >= 0x80) return false;
        digits += static_cast<char>(c);
    }
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    return !digits.empty() && error == std::errc() && end == digits.data() + digits.size();
}

/// A type of numbers: its word in the file and its digits.
struct NumberType {
    automation::VARTYPE tag;
    std::u16string_view word;
    std::u16string (*write)(const automation::Variant& value);
    /// Nothing for digits that are no number of the type.
    std::optional<automation::Variant> (*read)(std::u16string_view digits);
};

/// Null for another word or tag.
const NumberType* numberTypeNamed(std::u16string_view word);
const NumberType* numberTypeOf(automation::VARTYPE tag);

/// The value that a word alone stands for ("Empty", "Null", "Nothing", "True", "False"), and back.
std::optional<automation::Variant> valueOfWord(std::u16string_view word);
std::optional<std::u16string_view> wordOfValue(const automation::Variant& value);

} // namespace host
