#include "automation/NumberPattern.h"

#include "automation/Locale.h"
#include "automation/PatternLiteral.h"
#include "automation/TextBuilder.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <string>

namespace automation {

namespace {

/// Places of a number pattern, counted before anything is written.
struct Layout {
    int wholePlaces = 0;
    int forcedWhole = 0; ///< Places from the first 0 before the point on
    int decimals = 0;
    int forcedDecimals = 0; ///< Places up to the last 0 after the point
    int thousandsOff = 0;   ///< Commas that divide by a thousand
    int exponentPlaces = 0;
    bool grouped = false;
    bool percent = false;
    bool exponent = false;
};

bool startsExponent(std::u16string_view pattern) {
    return (pattern[0] | 0x20) == u'e' && pattern.size() > 1 && (pattern[1] == u'+' || pattern[1] == u'-');
}

int exponentPlacesOf(std::u16string_view pattern) {
    std::size_t i = 2;
    while (i < pattern.size() && (pattern[i] == u'0' || pattern[i] == u'#'))
        ++i;
    return static_cast<int>(i - 2);
}

Layout layoutOf(std::u16string_view pattern) {
    Layout layout;
    bool fraction = false;
    int commas = 0;
    while (!pattern.empty()) {
        std::size_t taken = std::max<std::size_t>(1, literalLength(pattern));
        const bool placed = layout.wholePlaces + layout.decimals > 0;
        switch (literalLength(pattern) > 0 ? u'\0' : pattern[0]) {
        case u'0':
        case u'#': {
            const bool zero = pattern[0] == u'0';
            if (fraction) {
                ++layout.decimals;
                if (zero) layout.forcedDecimals = layout.decimals;
            } else {
                ++layout.wholePlaces;
                if (zero || layout.forcedWhole > 0) ++layout.forcedWhole;
                layout.grouped = layout.grouped || commas > 0;
                commas = 0;
            }
            break;
        }
        case u',':
            if (fraction)
                layout.grouped = true;
            else if (layout.wholePlaces > 0)
                ++commas;
            break;
        case u'.':
            fraction = true;
            break;
        case u'%':
            layout.percent = true;
            break;
        case u'e':
        case u'E':
            if (!startsExponent(pattern) || layout.exponent || !placed) break;
            layout.exponent = true;
            layout.exponentPlaces = exponentPlacesOf(pattern);
            taken = 2 + static_cast<std::size_t>(layout.exponentPlaces);
            break;
        default:
            break;
        }
        pattern.remove_prefix(taken);
    }
    layout.thousandsOff = commas;
    return layout;
}

/// Writes the digits of a number into the places of a pattern, from left to right.
class PlaceWriter {
public:
    PlaceWriter(TextBuilder& out, const Digits& digits, const Layout& layout, const Locale& locale)
        : out_(out), digits_(digits), layout_(layout), locale_(locale), power_(layout.wholePlaces),
          wholeDigits_(std::max(digits.point, 0)), ownDecimals_(std::max(digits.count - digits.point, 0)),
          group_(locale.groupSize > 0 ? locale.groupSize : 3) {
        if (digits.isZero()) wholeDigits_ = ownDecimals_ = 0;
    }

    void wholePlace() {
        if (power_ == layout_.wholePlaces) excess();
        --power_;
        if (power_ < wholeDigits_ || power_ < layout_.forcedWhole) wholeDigit(power_);
    }

    /// The digits that have no place of their own before the point.
    void excess() {
        for (int power = wholeDigits_ - 1; power >= layout_.wholePlaces; --power)
            wholeDigit(power);
    }

    void decimalPlace() {
        ++decimal_;
        if (decimal_ <= layout_.forcedDecimals || decimal_ <= ownDecimals_) out_.add(digits_.at(-decimal_));
    }

private:
    void wholeDigit(int power) {
        out_.add(digits_.at(power));
        if (layout_.grouped && power > 0 && power % group_ == 0) out_.add(locale_.thousands);
    }

    TextBuilder& out_;
    const Digits& digits_;
    const Layout& layout_;
    const Locale& locale_;
    int power_;
    int decimal_ = 0;
    int wholeDigits_;
    int ownDecimals_;
    int group_;
};

void writeExponent(TextBuilder& out, std::u16string_view pattern, int exponent, int places) {
    out.add(pattern[0]);
    if (exponent < 0)
        out.add(u'-');
    else if (pattern[1] == u'+')
        out.add(u'+');
    constexpr int mostDigits = 10; // more than any exponent has
    if (places > mostDigits) out.add(static_cast<std::size_t>(places - mostDigits), u'0');
    out.addNumber(std::abs(exponent), std::clamp(places, 1, mostDigits));
}

void writePlaces(TextBuilder& out, std::u16string_view pattern, const Digits& digits, const Layout& layout,
                 int exponent, const Locale& locale) {
    PlaceWriter places(out, digits, layout, locale);
    bool fraction = false, exponentDone = false, placed = false;
    while (!pattern.empty()) {
        std::size_t taken = literalLength(pattern);
        if (taken > 0) {
            writeLiteral(out, pattern.substr(0, taken));
            pattern.remove_prefix(taken);
            continue;
        }
        taken = 1;
        const char16_t unit = pattern[0];
        if (unit == u'0' || unit == u'#') {
            if (fraction)
                places.decimalPlace();
            else
                places.wholePlace();
            placed = true;
        } else if (unit == u'.') {
            if (!fraction && layout.wholePlaces == 0) places.excess();
            if (fraction)
                out.add(unit);
            else
                out.add(locale.decimal);
            fraction = true;
        } else if (unit == u',') {
            if (!placed && !fraction) out.add(unit);
        } else if (startsExponent(pattern) && layout.exponent && !exponentDone && placed) {
            writeExponent(out, pattern, exponent, layout.exponentPlaces);
            exponentDone = true;
            taken = 2 + static_cast<std::size_t>(layout.exponentPlaces);
        } else {
            out.add(unit);
        }
        pattern.remove_prefix(taken);
    }
}

/// The digits, rounded, with the locale's or the given separators and no sign.
void writeGrouped(TextBuilder& out, const Digits& digits, const NumberChoices& choices,
                  std::u16string_view decimal, std::u16string_view thousands, int group) {
    const int whole = std::max(digits.isZero() ? 0 : digits.point, 0);
    if (whole == 0 && (choices.leadingZero || choices.decimals == 0)) out.add(u'0');
    for (int power = whole - 1; power >= 0; --power) {
        out.add(digits.at(power));
        if (choices.grouped && group > 0 && power > 0 && power % group == 0) out.add(thousands);
    }
    if (choices.decimals > 0) out.add(decimal);
    for (int place = 1; place <= choices.decimals; ++place)
        out.add(digits.at(-place));
}

/// Writes a form in which 'n' stands for the number and '$' for the currency symbol.
template <class WriteNumber>
void writeForm(TextBuilder& out, std::u16string_view form, std::u16string_view symbol, WriteNumber writeIt) {
    for (const char16_t unit : form) {
        if (unit == u'n')
            writeIt();
        else if (unit == u'$')
            out.add(symbol);
        else
            out.add(unit);
    }
}

constexpr std::u16string_view negativeNumberForms[] = {u"(n)", u"-n", u"- n", u"n-", u"n -"};
constexpr std::u16string_view positiveCurrencyForms[] = {u"$n", u"n$", u"$ n", u"n $"};
constexpr std::u16string_view negativeCurrencyForms[] = {
    u"($n)", u"-$n",  u"$-n",  u"$n-",  u"(n$)", u"-n$",  u"n-$",   u"n$-",
    u"-n $", u"-$ n", u"n $-", u"$ n-", u"$ -n", u"n- $", u"($ n)", u"(n $)"};
/// For each form above, the one that differs only in having a sign where that has parentheses, or parentheses
/// where that has a sign.
constexpr std::size_t signForms[] = {1, 1, 2, 3, 5, 5, 6, 7, 8, 9, 10, 11, 12, 13, 9, 8};
constexpr std::size_t parenthesisForms[] = {0, 0, 0, 0, 4, 4, 4, 4, 15, 14, 15, 14, 14, 15, 14, 15};

bool writeSpecial(TextBuilder& out, const Digits& digits) {
    if (digits.isFinite()) return false;
    if (digits.negative) out.add(u'-');
    out.addAscii(digits.special);
    return true;
}

} // namespace

void writeByPattern(TextBuilder& out, std::u16string_view section, Digits digits, bool minus,
                    const Locale& locale) {
    if (writeSpecial(out, digits)) return;
    const Layout layout = layoutOf(section);
    int exponent = 0;
    if (!digits.isZero()) {
        digits.point += (layout.percent ? 2 : 0) - 3 * layout.thousandsOff;
        if (layout.exponent) {
            digits.roundToCount(std::max(layout.wholePlaces + layout.decimals, 0));
            exponent = digits.isZero() ? 0 : digits.point - layout.wholePlaces;
            digits.point -= exponent;
        } else {
            digits.roundToDecimals(layout.decimals);
        }
    }
    if (minus && layout.wholePlaces + layout.decimals > 0) out.add(u'-');
    writePlaces(out, section, digits, layout, exponent, locale);
}

void writeNumber(TextBuilder& out, Digits digits, const NumberChoices& choices, const Locale& locale) {
    if (writeSpecial(out, digits)) return;
    digits.roundToDecimals(choices.decimals);
    const auto number = [&] {
        writeGrouped(out, digits, choices, locale.decimal, locale.thousands, locale.groupSize);
    };
    if (!digits.negative) return number();
    const int own = locale.negativeNumberForm == 0 ? 1 : locale.negativeNumberForm;
    writeForm(out, negativeNumberForms[choices.parentheses ? 0 : own], {}, number);
}

void writeCurrency(TextBuilder& out, Digits digits, const NumberChoices& choices, const Locale& locale) {
    if (writeSpecial(out, digits)) return;
    digits.roundToDecimals(choices.decimals);
    const auto number = [&] {
        writeGrouped(out, digits, choices, locale.currencyDecimal, locale.currencyThousands,
                     locale.groupSize);
    };
    if (!digits.negative)
        return writeForm(out, positiveCurrencyForms[locale.positiveCurrencyForm], locale.currencySymbol,
                         number);
    const std::size_t own = static_cast<std::size_t>(locale.negativeCurrencyForm);
    const std::size_t form = choices.parentheses ? parenthesisForms[own] : signForms[own];
    writeForm(out, negativeCurrencyForms[form], locale.currencySymbol, number);
}

void writePercent(TextBuilder& out, Digits digits, const NumberChoices& choices, const Locale& locale) {
    if (writeSpecial(out, digits)) return;
    if (!digits.isZero()) digits.point += 2;
    digits.roundToDecimals(choices.decimals);
    if (digits.negative) out.add(choices.parentheses ? u'(' : u'-');
    writeGrouped(out, digits, choices, locale.decimal, locale.thousands, locale.groupSize);
    if (digits.negative && choices.parentheses) out.add(u')');
    out.add(u'%');
}

} // namespace automation
