#pragma once
// Where the characters of a text come to lie: from the context's font, alignment, extra space and mapping.
//
// Faces measure in pixels; what a program sets (its own distances, extra space) counts in logical units. A
// length keeps both parts apart until it is asked for in the one or the other, so that neither is rounded
// twice.

#include "platform/linux/device_context.h"
#include "platform/linux/font_face.h"

#include <string_view>

namespace platform::driver {

/// The face of the context's font at the size that the mapping gives it; null when the system has no font.
std::shared_ptr<FontFace> faceOf(DeviceContext& context);

/// The same for drawing: a surface of few colours takes pictures made without smoothing, and the characters
/// lean with the escapement.
std::shared_ptr<FontFace> drawingFaceOf(DeviceContext& context);

/// Lengths of text between pixels and logical units, along one axis.
class TextScale {
public:
    TextScale(LONG window, LONG viewport) : window_(window), viewport_(viewport) {}
    static TextScale across(const ContextState& state);
    static TextScale down(const ContextState& state);

    /// True where the axis points against that of the device.
    bool isUpward() const { return (window_ < 0) != (viewport_ < 0); }
    int toLogical(std::int64_t pixels) const { return scaled(pixels, window_, viewport_); }
    int toPixels(std::int64_t units) const { return scaled(units, viewport_, window_); }

private:
    static int scaled(std::int64_t length, LONG to, LONG from);

    LONG window_;
    LONG viewport_;
};

/// Adds up the distances from character to character.
class TextAdvances {
public:
    /// `given` are the program's own distances, or null.
    TextAdvances(const ContextState& state, FontFace& face, const INT* given);

    /// False when characters lie as their pictures have it, whose widths may differ from the measure.
    bool areSet() const { return given_ || state_.characterExtra != 0 || state_.breakCount > 0; }

    /// Goes past a character that is measured, or whose picture is this wide.
    void pass(char16_t character) { pass(character, given_ ? 0 : face_.advance(character)); }
    void pass(char16_t character, int pixels);

    int pixels() const { return boundedCoordinate(pixels_ + scale_.toPixels(units_)); }
    int logical() const { return boundedCoordinate(scale_.toLogical(pixels_) + units_); }

private:
    const ContextState& state_;
    FontFace& face_;
    const INT* given_;
    TextScale scale_;
    std::int64_t pixels_ = 0;
    std::int64_t units_ = 0;
    int perBreak_ = 0;
    int breaksWithOneMore_ = 0;
};

/// A text as ExtTextOut draws it.
struct TextRun {
    std::u16string_view text;
    const INT* advances = nullptr; ///< The program's own, or null
};

/// The base line of a text on the surface, and the cell around it.
class TextLayout {
public:
    TextLayout(DeviceContext& context, FontFace& face, POINT at, const TextRun& run);

    bool isLevel() const { return cos_ == 1; }
    POINT start() const { return start_; }
    /// In pixels along the base line.
    int width() const { return width_; }

    /// A point so many pixels along the base line, on the surface.
    POINT point(int along) const;

    /// A strip along the whole text, from `top` to `bottom` pixels above the base line: its corners in turn.
    std::array<POINT, 4> strip(int top, int bottom) const;

    /// Moves the current position behind the text, as TA_UPDATECP asks for.
    void advancePosition() const;

private:
    /// What lies so many pixels below a point of the surface, as the text leans.
    POINT below(POINT p, int pixels) const;

    DeviceContext& context_;
    double cos_ = 1;
    double sin_ = 0;
    POINT start_;
    int width_ = 0;
};

} // namespace platform::driver
