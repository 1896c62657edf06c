#include "fichas/CsvEncoding.h"

#include "platform/locale.h"

#include <algorithm>
#include <cstring>

namespace fichas {

namespace {

/// The characters of 0x80 to 0x9F; the five bytes without one give the control character of their number.
constexpr char16_t windows1252[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

constexpr std::uint8_t firstNonAscii = 0x80;
constexpr std::uint8_t firstLatin = 0xA0; ///< From here on Windows-1252 is Latin-1

std::u16string decodeWindows1252(std::string_view bytes) {
    std::u16string text(bytes.size(), u' ');
    std::transform(bytes.begin(), bytes.end(), text.begin(), [](char c) {
        const auto byte = static_cast<std::uint8_t>(c);
        return byte >= firstNonAscii && byte < firstLatin ? windows1252[byte - firstNonAscii]
                                                          : char16_t{byte};
    });
    return text;
}

std::u16string decodeUtf16(std::string_view bytes, bool bigEndian) {
    std::u16string text(bytes.size() / 2, u' ');
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto first = static_cast<std::uint8_t>(bytes[2 * i]);
        const auto second = static_cast<std::uint8_t>(bytes[2 * i + 1]);
        text[i] = static_cast<char16_t>(bigEndian ? first << 8 | second : second << 8 | first);
    }
    return text;
}

/// "?" for what there is not.
std::string encodeWindows1252(std::u16string_view text) {
    std::string bytes(text.size(), '?');
    std::transform(text.begin(), text.end(), bytes.begin(), [](char16_t c) {
        const auto* special = std::find(std::begin(windows1252), std::end(windows1252), c);
        if (special != std::end(windows1252))
            return static_cast<char>(firstNonAscii + (special - std::begin(windows1252)));
        const bool isLatin = c < firstNonAscii || (c >= firstLatin && c <= 0xFF);
        return isLatin ? static_cast<char>(c) : '?';
    });
    return bytes;
}

std::string encodeUtf16(std::u16string_view text, bool bigEndian) {
    std::string bytes;
    for (const char16_t c : text) {
        const auto high = static_cast<char>(c >> 8);
        const auto low = static_cast<char>(c & 0xFF);
        bytes += bigEndian ? high : low;
        bytes += bigEndian ? low : high;
    }
    return bytes;
}

bool isUtf8(std::string_view bytes) {
    Utf8Checker checker;
    const auto* data = reinterpret_cast<const std::uint8_t*>(bytes.data());
    return checker.check({data, bytes.size()}) == Utf8Checker::valid && !checker.isWithinSequence();
}

/// How many non-ASCII sequences are right and how many bytes are wrong.
struct Utf8Score {
    std::size_t right = 0;
    std::size_t wrong = 0;
};

Utf8Score scoreUtf8(std::span<const std::uint8_t> bytes) {
    constexpr std::size_t longestSequence = 4;
    Utf8Score score;
    for (std::size_t i = 0; i < bytes.size();) {
        if (bytes[i] < firstNonAscii) {
            ++i;
            continue;
        }
        Utf8Checker checker;
        std::size_t length = 0;
        bool right = true;
        do {
            right = checker.check(bytes.subspan(i + length, 1)) == Utf8Checker::valid;
            ++length;
        } while (right && checker.isWithinSequence() && i + length < bytes.size() &&
                 length < longestSequence);
        if (right && checker.isWithinSequence()) break; // the end cuts it
        ++(right ? score.right : score.wrong);
        i += right ? length : 1;
    }
    return score;
}

} // namespace

Encoding decided(Encoding encoding, std::string_view around) {
    if (encoding != Encoding::Undecided) return encoding;
    return isUtf8(around) ? Encoding::Utf8 : Encoding::Windows1252;
}

std::optional<std::string> encode(std::u16string_view text, Encoding encoding) {
    std::string bytes;
    switch (encoding) {
    case Encoding::Windows1252:
        bytes = encodeWindows1252(text);
        break;
    case Encoding::Utf16LittleEndian:
    case Encoding::Utf16BigEndian:
        bytes = encodeUtf16(text, encoding == Encoding::Utf16BigEndian);
        break;
    default:
        bytes = platform::utf8FromWide(text);
        break;
    }
    return decode(bytes, encoding) == text ? std::optional(bytes) : std::nullopt;
}

bool Utf8Checker::begin(std::uint8_t lead) {
    low_ = 0x80;
    high_ = 0xBF;
    if (lead >= 0xC2 && lead <= 0xDF) {
        left_ = 1;
    } else if (lead >= 0xE0 && lead <= 0xEF) {
        left_ = 2;
        if (lead == 0xE0) low_ = 0xA0;  // shorter forms exist
        if (lead == 0xED) high_ = 0x9F; // surrogates
    } else if (lead >= 0xF0 && lead <= 0xF4) {
        left_ = 3;
        if (lead == 0xF0) low_ = 0x90;
        if (lead == 0xF4) high_ = 0x8F; // beyond U+10FFFF
    } else {
        return false;
    }
    return true;
}

std::size_t Utf8Checker::check(std::span<const std::uint8_t> bytes) {
    constexpr std::uint64_t highBits = 0x8080808080808080u;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (left_ == 0) {
            std::uint64_t eight = 0;
            while (i + sizeof eight <= bytes.size()) {
                std::memcpy(&eight, bytes.data() + i, sizeof eight);
                if (eight & highBits) break;
                i += sizeof eight;
            }
            if (i >= bytes.size()) break;
            if (bytes[i] >= firstNonAscii && !begin(bytes[i])) return i;
        } else {
            if (bytes[i] < low_ || bytes[i] > high_) {
                left_ = 0;
                return i;
            }
            low_ = 0x80;
            high_ = 0xBF;
            --left_;
        }
    }
    return valid;
}

EncodingFound findEncoding(std::span<const std::uint8_t> head) {
    const auto startsWith = [&](std::initializer_list<std::uint8_t> mark) {
        return head.size() >= mark.size() && std::equal(mark.begin(), mark.end(), head.begin());
    };
    if (startsWith({0xEF, 0xBB, 0xBF})) return {Encoding::Utf8, 3};
    if (startsWith({0xFF, 0xFE})) return {Encoding::Utf16LittleEndian, 2};
    if (startsWith({0xFE, 0xFF})) return {Encoding::Utf16BigEndian, 2};
    const Utf8Score score = scoreUtf8(head);
    if (score.right == 0 && score.wrong == 0) return {Encoding::Undecided, 0};
    return {score.right > score.wrong ? Encoding::Utf8 : Encoding::Windows1252, 0};
}

std::u16string decode(std::string_view bytes, Encoding encoding) {
    switch (encoding) {
    case Encoding::Utf8:
        return platform::wideFromUtf8(bytes);
    case Encoding::Windows1252:
        return decodeWindows1252(bytes);
    case Encoding::Utf16LittleEndian:
        return decodeUtf16(bytes, false);
    case Encoding::Utf16BigEndian:
        return decodeUtf16(bytes, true);
    case Encoding::Undecided:
        break;
    }
    return isUtf8(bytes) ? platform::wideFromUtf8(bytes) : decodeWindows1252(bytes);
}

} // namespace fichas
