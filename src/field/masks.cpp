#include "field/masks.h"

#include "automation/Characters.h"
#include "automation/Error.h"
#include "automation/Numbers.h"
#include "automation/Strings.h"
#include "drawing/rounding.h"

#include <algorithm>
#include <array>
#include <string>

namespace tesela {

using automation::String;

namespace {

constexpr std::u16string_view pairMark = u";;";
constexpr std::u16string_view longestNumber = u"###,###,###,###,###,###,##0";
constexpr std::int32_t digitsPerGroup = 3;
constexpr std::size_t mostDecimals = 255;

constexpr std::pair<char16_t, tslMayusculasConstants> caseLetters[] = {{u'x', tslMayusculasNoFilter},
                                                                       {u'm', tslMayusculasLCase},
                                                                       {u'M', tslMayusculasUCase},
                                                                       {u'P', tslMayusculasProper}};

bool isLetter(char16_t character) {
    return automation::isAsciiLetter(character) ||
           std::u16string_view(u"ÑñÇç").find(character) != std::u16string_view::npos;
}

/// Takes a first character off the text; false if another one stands there.
bool takeFirst(std::u16string_view& text, char16_t character) {
    if (text.empty() || text.front() != character) return false;
    text.remove_prefix(1);
    return true;
}

/// A count of digits as it is written in a list; 0 for what is no number.
std::int32_t countIn(std::u16string_view text) {
    try {
        return std::max(roundToLong(automation::Val(text)), 0);
    } catch (const automation::Error&) {
        return 0;
    }
}

/// The pattern of a number with so many digits, with thousands separators.
std::u16string numberPattern(std::int32_t integers, std::int32_t decimals) {
    const std::int64_t length = std::int64_t{integers} + (std::int64_t{integers} - 1) / digitsPerGroup;
    const std::size_t shown = std::min(static_cast<std::size_t>(length), longestNumber.size());
    std::u16string pattern(longestNumber.substr(longestNumber.size() - shown));
    if (decimals > 0)
        pattern += u'.' + std::u16string(std::min(static_cast<std::size_t>(decimals), mostDecimals), u'0');
    return pattern;
}

} // namespace

bool isMaskPlace(char16_t maskCharacter) {
    return isMaskInput(maskCharacter) || maskCharacter == u'0';
}

bool isMaskInput(char16_t maskCharacter) {
    return maskCharacter == u'#' || maskCharacter == u'A' || maskCharacter == u'X';
}

bool maskTakes(char16_t maskCharacter, char16_t character) {
    switch (maskCharacter) {
    case u'#':
        return automation::isDigit(character);
    case u'A':
        return isLetter(character);
    case u'X':
        return true;
    default:
        return false;
    }
}

String fillMask(std::u16string_view text, std::u16string_view mask) {
    std::u16string result;
    result.reserve(mask.size());
    std::size_t next = 0;
    for (const char16_t place : mask) {
        if (isMaskInput(place)) {
            result += next < text.size() && maskTakes(place, text[next]) ? text[next] : u' ';
            ++next;
        } else {
            result += place;
            if (next < text.size() && text[next] == place) ++next;
        }
    }
    return result;
}

String stripMask(std::u16string_view text, std::u16string_view mask) {
    std::u16string result;
    for (std::size_t i = 0; i < std::min(text.size(), mask.size()); ++i)
        if (isMaskPlace(mask[i])) result += text[i];
    return result;
}

String withLiterals(std::u16string_view text, std::u16string_view original, std::u16string_view mask) {
    std::u16string result(text);
    for (std::size_t i = 0; i < std::min({result.size(), original.size(), mask.size()}); ++i)
        if (!isMaskInput(mask[i])) result[i] = original[i];
    return result;
}

std::pair<String, String> splitMasks(const String& masks) {
    const std::size_t mark = masks.find(pairMark);
    if (mark == String::npos) return {masks, masks};
    return {masks.left(mark), masks.substring(mark + pairMark.size())};
}

NumberDigits digitsOfMask(std::u16string_view mask) {
    const auto digits = [](std::u16string_view part) {
        return static_cast<std::int32_t>(
            std::count_if(part.begin(), part.end(), [](char16_t c) { return c != u',' && c != u'.'; }));
    };
    const std::size_t point = mask.find(u'.');
    if (point == std::u16string_view::npos) return {digits(mask), 0};
    return {digits(mask.substr(0, point)), digits(mask.substr(point + 1))};
}

CompactMask readCompactMask(std::u16string_view text) {
    CompactMask result;
    for (const auto& [letter, letterCase] : caseLetters)
        if (takeFirst(text, letter)) result.letterCase = letterCase;
    result.blankWhenEmpty = takeFirst(text, u'Z');
    std::u16string pattern;
    if (takeFirst(text, u'(')) {
        const std::size_t end = std::min(text.find(u')'), text.size());
        const auto counts = automation::Split(text.substr(0, end), u",");
        const auto count = [&](std::size_t i) { return i < counts.size() ? countIn(counts[i]) : 0; };
        pattern = numberPattern(count(0), count(1));
        result.phantomDigits = count(2);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    result.mask = pattern + std::u16string(text);
    return result;
}

} // namespace tesela
