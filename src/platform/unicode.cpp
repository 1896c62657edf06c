#include "platform/locale.h"

namespace platform {
namespace {

constexpr char32_t replacement = 0xFFFD;
constexpr char32_t firstSupplementary = 0x10000;

bool isHighSurrogate(char32_t c) {
    return c >= 0xD800 && c <= 0xDBFF;
}
bool isLowSurrogate(char32_t c) {
    return c >= 0xDC00 && c <= 0xDFFF;
}

void appendUtf8(std::string& out, char32_t c) {
    if (c < 0x80) {
        out += static_cast<char>(c);
        return;
    }
    if (c < 0x800) {
        out += static_cast<char>(0xC0 | c >> 6);
    } else {
        if (c < firstSupplementary) {
            out += static_cast<char>(0xE0 | c >> 12);
        } else {
            out += static_cast<char>(0xF0 | c >> 18);
            out += static_cast<char>(0x80 | (c >> 12 & 0x3F));
        }
        out += static_cast<char>(0x80 | (c >> 6 & 0x3F));
    }
    out += static_cast<char>(0x80 | (c & 0x3F));
}

void appendUtf16(std::u16string& out, char32_t c) {
    if (c < firstSupplementary) {
        out += static_cast<char16_t>(c);
        return;
    }
    c -= firstSupplementary;
    out += static_cast<char16_t>(0xD800 | c >> 10);
    out += static_cast<char16_t>(0xDC00 | (c & 0x3FF));
}

/// What the first byte of a sequence announces: how many bytes follow, the bits it carries, and the bounds
/// of the second byte, which exclude overlong forms, surrogates and values past the last character.
struct Sequence {
    int following;
    char32_t bits;
    unsigned lowest;
    unsigned highest;
};

Sequence sequenceOf(unsigned char lead) {
    if (lead < 0xC2 || lead > 0xF4) return {-1, 0, 0, 0};
    if (lead < 0xE0) return {1, lead & 0x1Fu, 0x80, 0xBF};
    if (lead < 0xF0) return {2, lead & 0x0Fu, lead == 0xE0 ? 0xA0u : 0x80u, lead == 0xED ? 0x9Fu : 0xBFu};
    return {3, lead & 0x07u, lead == 0xF0 ? 0x90u : 0x80u, lead == 0xF4 ? 0x8Fu : 0xBFu};
}

} // namespace

std::string utf8FromWide(std::u16string_view text) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t c = text[i];
        if (isHighSurrogate(c) && i + 1 < text.size() && isLowSurrogate(text[i + 1])) {
            c = firstSupplementary + ((c & 0x3FF) << 10) + (text[++i] & 0x3FFu);
        } else if (isHighSurrogate(c) || isLowSurrogate(c)) {
            c = replacement;
        }
        appendUtf8(out, c);
    }
    return out;
}

std::u16string wideFromUtf8(std::string_view bytes) {
    std::u16string out;
    out.reserve(bytes.size());
    for (std::size_t i = 0; i < bytes.size();) {
        const auto lead = static_cast<unsigned char>(bytes[i++]);
        if (lead < 0x80) {
            out += static_cast<char16_t>(lead);
            continue;
        }
        Sequence s = sequenceOf(lead);
        char32_t c = s.bits;
        for (; s.following > 0 && i < bytes.size(); --s.following, ++i) {
            const auto next = static_cast<unsigned char>(bytes[i]);
            if (next < s.lowest || next > s.highest) break;
            c = c << 6 | (next & 0x3F);
            s.lowest = 0x80;
            s.highest = 0xBF;
        }
        appendUtf16(out, s.following == 0 ? c : replacement);
    }
    return out;
}

} // namespace platform
