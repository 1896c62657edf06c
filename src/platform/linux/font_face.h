#pragma once
// A font of one size: its metrics and its glyphs as coverage, kept as long as they are used.

#include "platform/linux/font_catalog.h"

#include <array>
#include <list>
#include <memory>
#include <optional>
#include <unordered_map>

namespace platform::driver {

/// A quality of the driver's own for fonts on displays of few colours: without smoothing, and measured as
/// drawn. A program's NONANTIALIASED_QUALITY is measured as if it were smoothed.
inline constexpr BYTE fewColorsQuality = 0x80;

/// Coverage runs from 0 to fullCoverage.
inline constexpr int fullCoverage = 16;
/// Coverage up to this leaves no trace.
inline constexpr int faintCoverage = 1;

/// Pixels of a glyph beside each other that all leave a trace.
struct GlyphRun {
    std::int16_t x = 0; ///< From the picture's left top corner
    std::int16_t y = 0;
    int length = 0;
};

/// One drawn character.
struct Glyph {
    int advance =
        0;        ///< To the next character when drawn; a picture of few pixels may differ from the measure
    int left = 0; ///< Of the picture, from the pen position
    int top = 0;  ///< Rows of the picture above the base line
    int width = 0;
    int height = 0;
    bool smooth = false;                ///< Has coverage between none and full
    std::vector<std::uint8_t> coverage; ///< Row by row from the top
    std::vector<GlyphRun> runs;         ///< The pixels that leave a trace
};

/// Where the ink of a character lies across, in pixels.
struct InkSpan {
    int left = 0; ///< From the pen position
    int width = 0;
};

/// The closed figures around a character's ink, in whole pixels from the pen position, y down.
struct GlyphOutline {
    std::vector<POINT> points;
    std::vector<BYTE> types; ///< PT_..., one for each point
};

/// A line below or through text, in pixels.
struct TextLine {
    int position = 0; ///< Of its middle above the base line
    int height = 1;
    int top() const { return position + height / 2; }
};

/// The two lines of a font.
struct TextLines {
    TextLine underline;
    TextLine strikeOut;

    /// As a font has them that says nothing of them.
    static TextLines ofAscent(int ascent) {
        const int height = ascent / 20 + 1;
        return {{0, height}, {ascent / 2, height}};
    }
};

class FontFace {
public:
    virtual ~FontFace() = default;

    const TEXTMETRICW& metrics() const { return metrics_; }
    const std::u16string& faceName() const { return faceName_; }
    /// What the font says of its lines, heights of none as they are; null when it says nothing.
    const TextLines* lines() const { return lines_ ? &*lines_ : nullptr; }

    /// The glyph of a character, a place-holder for one that the font does not have. Stays valid until the
    /// next call.
    const Glyph& glyph(char16_t character);

    /// Width of a character as measured, without building its picture.
    int advance(char16_t character) {
        const int known = character < directCount ? directAdvances_[character] : unknownAdvance;
        return known != unknownAdvance ? known : findAdvance(character);
    }

    /// The ink of a character as its outline has it.
    virtual InkSpan ink(char16_t character) {
        const Glyph& drawn = glyph(character);
        return {drawn.left, drawn.width};
    }

    /// The outline of a character as its smoothed picture has it; none of fonts that are made of bitmaps.
    virtual GlyphOutline outline(char16_t) { return {}; }

    /// The face for a font record, from a small store of those used last.
    static std::shared_ptr<FontFace> get(const LOGFONTW& request);

protected:
    virtual Glyph makeGlyph(char16_t character) = 0;
    virtual int measure(char16_t character) = 0;

    TEXTMETRICW metrics_;
    std::u16string faceName_;
    std::optional<TextLines> lines_;

private:
    static constexpr std::size_t directCount = 256;
    static constexpr int unknownAdvance = -1;

    std::array<std::unique_ptr<Glyph>, directCount> direct_; ///< Latin characters, found without searching
    std::unordered_map<char16_t, Glyph> others_;
    std::array<int, directCount> directAdvances_ = filled();
    std::unordered_map<char16_t, int> otherAdvances_;
    std::size_t bytes_ = 0;

    static std::array<int, directCount> filled() {
        std::array<int, directCount> advances{};
        advances.fill(unknownAdvance);
        return advances;
    }
    int findAdvance(char16_t character);
    void makeRoom(std::size_t bytes);
};

} // namespace platform::driver
