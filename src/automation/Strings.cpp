#include "automation/Strings.h"

#include "automation/Error.h"
#include "automation/Locale.h"

#include "platform/locale.h"

#include <algorithm>
#include <string>

namespace automation {

namespace {

void require(bool condition) {
    if (!condition) throwError(errors::InvalidCall);
}

std::size_t sizeOf(std::int32_t length) {
    require(length >= 0);
    return static_cast<std::size_t>(length);
}

std::int32_t positionOf(std::size_t place) {
    return place == std::u16string_view::npos ? 0 : static_cast<std::int32_t>(place) + 1;
}

/// A text as it takes part in searches: itself, or folded for comparison without case. The lengths agree.
class Searched {
public:
    Searched(std::u16string_view text, int compare) : view_(text) {
        require(compare == CompareMethod::Binary || compare == CompareMethod::Text);
        if (compare == CompareMethod::Binary) return;
        folded_ = platform::lowerCase(text);
        view_ = folded_;
    }
    Searched(const Searched&) = delete;
    Searched& operator=(const Searched&) = delete;
    std::u16string_view view() const { return view_; }

private:
    std::u16string folded_;
    std::u16string_view view_;
};

} // namespace

String UCase(std::u16string_view text) {
    return String(platform::upperCase(text));
}

String LCase(std::u16string_view text) {
    return String(platform::lowerCase(text));
}

String LTrim(std::u16string_view text) {
    const std::size_t first = text.find_first_not_of(u' ');
    return first == std::u16string_view::npos ? String() : String(text.substr(first));
}

String RTrim(std::u16string_view text) {
    return String(text.substr(0, text.find_last_not_of(u' ') + 1));
}

String Trim(std::u16string_view text) {
    return LTrim(text.substr(0, text.find_last_not_of(u' ') + 1));
}

String Left(std::u16string_view text, std::int32_t length) {
    return String(text.substr(0, sizeOf(length)));
}

String Right(std::u16string_view text, std::int32_t length) {
    const std::size_t count = std::min(sizeOf(length), text.size());
    return String(text.substr(text.size() - count));
}

String Mid(std::u16string_view text, std::int32_t start) {
    return Mid(text, start, static_cast<std::int32_t>(text.size()));
}

String Mid(std::u16string_view text, std::int32_t start, std::int32_t length) {
    require(start >= 1);
    const std::size_t first = std::min(static_cast<std::size_t>(start - 1), text.size());
    return String(text.substr(first, sizeOf(length)));
}

std::int32_t InStr(std::int32_t start, std::u16string_view text, std::u16string_view what, int compare) {
    require(start >= 1);
    const std::size_t from = static_cast<std::size_t>(start - 1);
    if (text.empty() || from >= text.size()) return 0;
    if (what.empty()) return start;
    const Searched where(text, compare), wanted(what, compare);
    return positionOf(where.view().find(wanted.view(), from));
}

std::int32_t InStr(std::u16string_view text, std::u16string_view what) {
    return InStr(1, text, what);
}

std::int32_t InStrRev(std::u16string_view text, std::u16string_view what, std::int32_t start, int compare) {
    require(start == -1 || start >= 1);
    const std::size_t last = start == -1 ? text.size() : static_cast<std::size_t>(start);
    if (text.empty() || last > text.size()) return 0;
    if (what.empty()) return static_cast<std::int32_t>(last);
    if (what.size() > last) return 0;
    const Searched where(text, compare), wanted(what, compare);
    return positionOf(where.view().rfind(wanted.view(), last - what.size()));
}

String Replace(std::u16string_view text, std::u16string_view what, std::u16string_view with,
               std::int32_t start, std::int32_t count, int compare) {
    require(start >= 1 && count >= -1);
    const std::size_t from = static_cast<std::size_t>(start - 1);
    if (from >= text.size()) return {};
    text = text.substr(from);
    if (what.empty() || count == 0) return String(text);
    const Searched where(text, compare), wanted(what, compare);
    std::u16string result;
    std::size_t done = 0;
    while (count != 0) {
        const std::size_t found = where.view().find(wanted.view(), done);
        if (found == std::u16string_view::npos) break;
        result.append(text, done, found - done).append(with);
        done = found + what.size();
        if (count > 0) --count;
    }
    result.append(text, done);
    return String(result);
}

std::vector<String> Split(std::u16string_view text, std::u16string_view separator, std::int32_t limit,
                          int compare) {
    require(limit >= -1);
    std::vector<String> pieces;
    if (text.empty() || limit == 0) return pieces;
    const Searched where(text, compare), wanted(separator, compare);
    std::size_t done = 0;
    while (!separator.empty() && (limit == -1 || pieces.size() + 1 < static_cast<std::size_t>(limit))) {
        const std::size_t found = where.view().find(wanted.view(), done);
        if (found == std::u16string_view::npos) break;
        pieces.emplace_back(text.substr(done, found - done));
        done = found + separator.size();
    }
    pieces.emplace_back(text.substr(done));
    return pieces;
}

String Join(const std::vector<String>& pieces, std::u16string_view separator) {
    std::u16string result;
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        if (i > 0) result.append(separator);
        result.append(pieces[i].view());
    }
    return String(result);
}

String Space(std::int32_t count) {
    return String::repeat(u' ', sizeOf(count));
}

String Repeat(std::int32_t count, char16_t unit) {
    return String::repeat(unit, sizeOf(count));
}

String StrReverse(std::u16string_view text) {
    return String(std::u16string(text.rbegin(), text.rend()));
}

int Asc(std::u16string_view text) {
    require(!text.empty());
    const std::string bytes = platform::ansiFromWide(text.substr(0, 1));
    return bytes.empty() ? 0 : static_cast<unsigned char>(bytes[0]);
}

std::int16_t AscW(std::u16string_view text) {
    require(!text.empty());
    return static_cast<std::int16_t>(text[0]);
}

String Chr(int code) {
    constexpr int highestByte = 255;
    require(code >= 0 && code <= highestByte);
    const char byte = static_cast<char>(code);
    return String(platform::wideFromAnsi({&byte, 1}));
}

String ChrW(std::int32_t unit) {
    constexpr std::int32_t lowest = -32768, highest = 65535;
    require(unit >= lowest && unit <= highest);
    const char16_t character = static_cast<char16_t>(unit);
    return String(std::u16string_view(&character, 1));
}

namespace {

std::u16string properCase(std::u16string_view text) {
    const std::u16string upper = platform::upperCase(text);
    std::u16string result = platform::lowerCase(text);
    bool first = true;
    for (std::size_t i = 0; i < result.size(); ++i) {
        if (first) result[i] = upper[i];
        const char16_t unit = text[i];
        first = unit == u'\0' || unit == u' ' || (unit >= u'\t' && unit <= u'\r');
    }
    return result;
}

constexpr char16_t firstFullWidth = 0xFF01, lastFullWidth = 0xFF5E, wideBlank = 0x3000;
constexpr char16_t fullWidthOffset = firstFullWidth - u'!';
constexpr char16_t hiraganaFirst = 0x3041, hiraganaLast = 0x3096, kanaOffset = 0x60;

char16_t widened(char16_t unit) {
    if (unit == u' ') return wideBlank;
    return unit >= u'!' && unit <= u'~' ? static_cast<char16_t>(unit + fullWidthOffset) : unit;
}

char16_t narrowed(char16_t unit) {
    if (unit == wideBlank) return u' ';
    return unit >= firstFullWidth && unit <= lastFullWidth ? static_cast<char16_t>(unit - fullWidthOffset)
                                                           : unit;
}

char16_t toKatakana(char16_t unit) {
    return unit >= hiraganaFirst && unit <= hiraganaLast ? static_cast<char16_t>(unit + kanaOffset) : unit;
}

char16_t toHiragana(char16_t unit) {
    const bool katakana = unit >= hiraganaFirst + kanaOffset && unit <= hiraganaLast + kanaOffset;
    return katakana ? static_cast<char16_t>(unit - kanaOffset) : unit;
}

std::u16string mapped(std::u16string text, char16_t (*map)(char16_t)) {
    std::transform(text.begin(), text.end(), text.begin(), map);
    return text;
}

/// The ANSI bytes of the text, two to a unit, the first one low; an odd last byte stands alone.
std::u16string packedBytes(std::u16string_view text) {
    const std::string bytes = platform::ansiFromWide(text);
    std::u16string result((bytes.size() + 1) / 2, u'\0');
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const auto byte = static_cast<unsigned char>(bytes[i]);
        result[i / 2] = static_cast<char16_t>(result[i / 2] | (i % 2 == 0 ? byte : byte << 8));
    }
    return result;
}

/// Each of the text's bytes as an ANSI character.
std::u16string unpackedBytes(std::u16string_view text) {
    std::string bytes;
    bytes.reserve(text.size() * 2);
    for (const char16_t unit : text) {
        bytes.push_back(static_cast<char>(unit & 0xFF));
        bytes.push_back(static_cast<char>(unit >> 8));
    }
    return platform::wideFromAnsi(bytes);
}

bool isOneOf(int value, int a, int b) {
    return value == 0 || value == a || value == b;
}

} // namespace

String StrConv(std::u16string_view text, int kind) {
    constexpr int widths = StringConversion::Wide | StringConversion::Narrow,
                  kana = StringConversion::Katakana | StringConversion::Hiragana,
                  bytes = StringConversion::Unicode | StringConversion::FromUnicode;
    require((kind & ~(StringConversion::ProperCase | widths | kana | bytes)) == 0 && kind != 0);
    require(isOneOf(kind & widths, StringConversion::Wide, StringConversion::Narrow) &&
            isOneOf(kind & kana, StringConversion::Katakana, StringConversion::Hiragana) &&
            isOneOf(kind & bytes, StringConversion::Unicode, StringConversion::FromUnicode));
    std::u16string result(text);
    switch (kind & StringConversion::ProperCase) {
    case StringConversion::UpperCase:
        result = platform::upperCase(result);
        break;
    case StringConversion::LowerCase:
        result = platform::lowerCase(result);
        break;
    case StringConversion::ProperCase:
        result = properCase(result);
        break;
    default:
        break;
    }
    if (kind & StringConversion::Wide) result = mapped(std::move(result), widened);
    if (kind & StringConversion::Narrow) result = mapped(std::move(result), narrowed);
    if (kind & StringConversion::Katakana) result = mapped(std::move(result), toKatakana);
    if (kind & StringConversion::Hiragana) result = mapped(std::move(result), toHiragana);
    if (kind & StringConversion::Unicode) result = unpackedBytes(result);
    if (kind & StringConversion::FromUnicode) result = packedBytes(result);
    return String(result);
}

} // namespace automation
