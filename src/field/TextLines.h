#pragma once

#include "automation/String.h"

#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

namespace tesela {

/// How many characters two texts have in common from their beginning.
std::size_t commonLength(std::u16string_view a, std::u16string_view b);

/// The lines of a text that is broken at a width, and behind line feeds that a program has written. They are
/// found as far as somebody asks, and kept for the next text as far as that one begins alike, so that a key
/// in a long text breaks again only what stands near the caret. Positions count characters from 0, widths are
/// pixels.
class TextLines {
public:
    struct Line {
        std::int32_t start, length;
        std::int32_t seen; ///< Where the characters end that have decided on its length
    };
    /// Gives how far each character of a piece of text reaches from the piece's beginning.
    using Measure = std::function<void(std::u16string_view piece, std::vector<std::int32_t>& reach)>;

    /// The text that is to be broken, and its width.
    void take(const automation::String& text, std::int32_t width);
    /// The letters have other widths now.
    void forget();
    /// Finds lines until there are `count` of them and one holds the position, as far as the text goes. The
    /// empty text has one line.
    void find(std::size_t count, std::int32_t position, const Measure& measure);

    std::size_t size() const { return lines_.size(); }
    const Line& operator[](std::size_t index) const { return lines_[index]; }
    /// The characters of a line that show: without its line end.
    std::u16string_view shown(std::size_t index) const;
    /// The line found that holds a position; the end of a line that goes on is the start of the next one.
    std::size_t at(std::int32_t position) const;

private:
    class Ruler;
    bool complete() const;
    std::size_t end() const;
    Line next(Ruler& ruler) const;

    automation::String text_;
    std::int32_t width_ = 0;
    std::vector<Line> lines_;
};

} // namespace tesela
