#pragma once
// Kinds of characters, which are the same in every locale.

namespace automation {

constexpr bool isDigit(char16_t unit) {
    return unit >= u'0' && unit <= u'9';
}

/// A to Z and a to z.
constexpr bool isAsciiLetter(char16_t unit) {
    return (unit >= u'A' && unit <= u'Z') || (unit >= u'a' && unit <= u'z');
}

} // namespace automation
