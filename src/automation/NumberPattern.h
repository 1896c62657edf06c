#pragma once
// Numbers written by a pattern of digit places, or by the locale's own forms.

#include "automation/Digits.h"

#include <cstdint>
#include <string_view>

namespace automation {

class Locale;
class TextBuilder;

/// Writes the number by one section of a pattern: 0 # . , % E+ E- e+ e-, quoted and escaped text, all else
/// as it stands. `minus` puts the sign before everything.
void writeByPattern(TextBuilder& out, std::u16string_view section, Digits digits, bool minus,
                    const Locale& locale);

/// What the locale leaves to the caller of the functions below.
struct NumberChoices {
    int decimals = 2;
    bool leadingZero = true;
    bool parentheses = false;
    bool grouped = true;
};

void writeNumber(TextBuilder& out, Digits digits, const NumberChoices& choices, const Locale& locale);
void writeCurrency(TextBuilder& out, Digits digits, const NumberChoices& choices, const Locale& locale);
void writePercent(TextBuilder& out, Digits digits, const NumberChoices& choices, const Locale& locale);

} // namespace automation
