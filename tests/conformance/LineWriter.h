#pragma once
// What random scripts about lines, shapes and regions are written with.

#include "conformance/Dice.h"
#include "platform/gdi_types.h"

#include <cstdint>
#include <initializer_list>
#include <string>

namespace conformance {

/// Writes a script line by line. Every choice is one statement, so that the order in which the dice fall is
/// the same with every compiler.
class LineWriter {
public:
    explicit LineWriter(int seed) : dice(static_cast<std::uint64_t>(seed)) {}

    Dice dice;
    std::string text;

    void line(const std::string& words) { text += words + '\n'; }
    void gdi(const std::string& call, std::initializer_list<int> numbers = {}) {
        std::string words = "gdi " + call;
        for (const int number : numbers)
            words += " " + std::to_string(number);
        line(words);
    }

    /// Combines the regions "a" and "b" to "area", in one of the ways from RGN_AND to `last`.
    void combineRegions(int last) {
        gdi("area = CreateRectRgn", {0, 0, 0, 0});
        line("show gdi CombineRgn area a b " + std::to_string(dice.between(platform::RGN_AND, last)));
        line("show gdi GetRgnBox area");
    }
    /// Frames "area", up to so many pixels wide and high.
    void frameRegion(int color, int widest) {
        gdi("frame = CreateSolidBrush", {color});
        const int width = dice.between(1, widest);
        gdi("FrameRgn area frame", {width, dice.between(1, widest)});
    }
    /// Takes "area" as the clipping, or combines both.
    void clipToRegion() {
        const int way = dice.between(platform::RGN_AND, platform::RGN_COPY);
        line("show gdi ExtSelectClipRgn area " + std::to_string(way));
        line("show gdi GetClipBox");
    }
};

} // namespace conformance
