#include "platform/linux/best_fit.h"
#include "platform/locale.h"

#include <algorithm>
#include <array>

namespace platform {
namespace {

constexpr UINT westernCodePage = 1252;
constexpr char unknownCharacter = '?';

/// What the bytes 0x80 to 0x9F stand for. The five that the page leaves free stand for themselves.
constexpr std::array<char16_t, 32> upperControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

bool isUpperControl(char16_t c) {
    return c >= 0x80 && c < 0xA0;
}

char bestFit(char16_t c) {
    const auto runs = driver::bestFitRuns();
    const auto after = std::upper_bound(runs.begin(), runs.end(), c,
                                        [](char16_t value, const auto& run) { return value < run.first; });
    if (after == runs.begin()) return unknownCharacter;
    const auto& run = *(after - 1);
    const int offset = c - run.first;
    return offset < run.count ? static_cast<char>(run.byte + offset) : unknownCharacter;
}

char ansiByte(char16_t c) {
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) return static_cast<char>(c);
    const auto found = std::find(upperControls.begin(), upperControls.end(), c);
    if (found != upperControls.end()) return static_cast<char>(0x80 + (found - upperControls.begin()));
    return bestFit(c);
}

} // namespace

UINT GetACP() {
    return westernCodePage;
}

std::string ansiFromWide(std::u16string_view text) {
    std::string out(text.size(), '\0');
    std::transform(text.begin(), text.end(), out.begin(), ansiByte);
    return out;
}

std::u16string wideFromAnsi(std::string_view bytes) {
    std::u16string out(bytes.size(), u'\0');
    std::transform(bytes.begin(), bytes.end(), out.begin(), [](char byte) {
        const auto c = static_cast<char16_t>(static_cast<unsigned char>(byte));
        return isUpperControl(c) ? upperControls[c - 0x80u] : c;
    });
    return out;
}

} // namespace platform
