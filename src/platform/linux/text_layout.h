#pragma once
// Where the characters of a text come to lie: from the context's font, alignment, extra space and mapping.
//
// Faces measure in pixels; what a program sets (its own distances, extra space) counts in logical units. A
// length keeps both parts apart until it is asked for in the one or the other, so that neither is rounded
// twice.

#include "platform/linux/device_context.h"
#include "platform/linux/font_face.h"

#include <cmath>
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
    explicit TextScale(const AxisScale& axis) : axis_(axis) {}
    static TextScale across(const ContextState& state) { return TextScale(state.mapping.across()); }
    static TextScale down(const ContextState& state) { return TextScale(state.mapping.down()); }

    /// True where the axis points against that of the device.
    bool isReversed() const { return axis_.toDevice < 0; }
    /// Of measures, whose halves are rounded away from zero.
    int toLogical(std::int64_t pixels) const { return scaled(pixels, std::fabs(axis_.toLogical)); }
    int toPixels(std::int64_t units) const { return scaled(units, std::fabs(axis_.toDevice)); }
    /// Of extents: a half is rounded in the direction in which the axis points.
    int extentToLogical(std::int64_t pixels) const {
        const int length = scaled(pixels, axis_.toLogical);
        return isReversed() ? -length : length;
    }

private:
    static int scaled(std::int64_t length, double scale) {
        return boundedCoordinate(
            static_cast<std::int64_t>(std::floor(scale * static_cast<double>(length) + 0.5)));
    }

    AxisScale axis_;
};

/// Adds up the distances from character to character.
class TextAdvances {
public:
    /// `given` are the program's own distances, or null.
    TextAdvances(const ContextState& state, FontFace& face, const INT* given);

    /// False when characters lie as their pictures have it, whose widths may differ from the measure.
    bool areSet() const { return given_ || state_.characterExtra != 0 || state_.breakExtra != 0; }

    /// Goes past a character that is measured, or whose picture is this wide.
    void pass(char16_t character) { pass(character, given_ ? 0 : face_.advance(character)); }
    void pass(char16_t character, int pixels) {
        if (given_) {
            units_ += *given_++;
            return;
        }
        pixels_ += pixels;
        units_ += state_.characterExtra;
        if (character == u' ' && state_.breakCount != 0) passBreak();
    }

    int pixels() const;
    int logical() const { return boundedCoordinate(scale_.extentToLogical(pixels_) + units_); }

private:
    void passBreak();

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

    /// Behind the characters that have been passed, on the base line and the surface.
    POINT point(const TextAdvances& passed) const;

    /// What the text takes.
    std::array<POINT, 4> cell() const;

    /// A strip along the whole text, from `top` to `bottom` pixels above the base line: its corners in turn.
    std::array<POINT, 4> strip(int top, int bottom) const;

    /// Moves the current position behind the text, as TA_UPDATECP asks for.
    void advancePosition() const;

private:
    /// From the start to behind the characters that have been passed, in pixels.
    POINT reach(const TextAdvances& passed) const;
    /// The same for a length in logical units.
    POINT reach(int units) const;
    /// What lies so many pixels below a point of the surface, as the text leans.
    POINT below(POINT p, int pixels) const;

    DeviceContext& context_;
    double cos_ = 1;
    double sin_ = 0;
    POINT start_;
    POINT next_;  ///< Where a text that follows begins
    POINT along_; ///< From the start to the end
    int ascent_ = 0;
    int descent_ = 0;
};

} // namespace platform::driver
