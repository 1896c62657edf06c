#pragma once

#include "drawing/cHTML.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace tesela {

/// One rendering of a marked-up text. The text is taken chunk by chunk: what stands before the next tag is
/// drawn, then the tag acts.
class HtmlLayout {
public:
    HtmlLayout(cCanvas& canvas, const cHTML::Setup& setup, bool draws);

    void run(const automation::String& text);
    std::int32_t maxX() const { return maxX_; }
    std::int32_t maxY() const { return maxY_; }

private:
    /// Letters between two tags.
    struct Style {
        automation::String name;
        std::int32_t size = 0;
        std::int32_t color = 0; ///< 0x00bbggrr
        bool bold = false;
        bool italic = false;
        bool underline = false;
    };
    static constexpr std::size_t deepest = 100; ///< Tags open at once

    void begin(std::u16string text);
    std::u16string_view rest() const { return std::u16string_view(text_).substr(from_); }
    std::size_t lengthBeforeTag() const { return position_ > 0 ? position_ - 1 : 0; }

    // The markup. Positions count from 1; 0 is none.
    void findTag();
    bool takeTag();
    bool opensStyle() const;
    bool closesStyle() const;
    void openStyle();
    void closeStyle();
    void takeFontTag();
    std::u16string_view attribute(std::u16string_view name) const;
    void passLiteral(std::size_t& literalFrom);
    void complain(const char16_t* message);

    // The lines.
    void placeChunk();
    void wrapChunk();
    std::size_t breakPlace(std::u16string_view fitting) const;
    void newLine(std::int32_t height);
    void measureChunk();
    void advanceText();

    void selectBaseFont();
    void selectStyle(const Style& style);
    std::int32_t zoomed(std::int32_t size, std::int32_t unitsPerPoint) const;

    cCanvas& canvas_;
    const cHTML::Setup& setup_;
    const bool draws_;

    std::u16string text_;
    std::size_t from_ = 0;     ///< What stands before it is done
    std::size_t lastEnd_ = 0;  ///< Where the last ">" of the text stands
    std::u16string tag_;       ///< The tag that follows the chunk, in capitals
    std::size_t position_ = 0; ///< Where it stands in the rest

    std::array<Style, deepest + 1> styles_;
    std::size_t depth_ = 0;

    automation::String chunk_;
    platform::SIZE chunkSize_;
    std::vector<std::int32_t> widths_;
    std::int32_t x_ = 0;
    std::int32_t y_ = 0;
    std::int32_t lineHeight_ = 0;
    std::int32_t lineWidth_ = 0;
    std::int32_t lines_ = 0;
    std::int32_t maxX_ = 0;
    std::int32_t maxY_ = 0;
};

} // namespace tesela
