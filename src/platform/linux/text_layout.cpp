#include "platform/linux/text_layout.h"

#include "platform/linux/display_colors.h"
#include "platform/linux/text_painter.h"

#include <cmath>
#include <cstdlib>
#include <numbers>

namespace platform::driver {

namespace {

/// The font as the device is asked for it. Widths grow with the height, as letters without a width do.
LOGFONTW requestOf(const DeviceContext& context) {
    LOGFONTW request = context.font().data;
    const Mapping& mapping = context.state.mapping;
    if (!mapping.isUnscaled()) {
        const int height = mapping.heightOnDevice(request.lfHeight);
        if (request.lfHeight != 0)
            request.lfHeight = request.lfHeight < 0 ? std::min(-1, -height) : std::max(1, height);
        request.lfWidth = mapping.heightOnDevice(request.lfWidth);
    }
    request.lfEscapement = request.lfOrientation = 0;
    return request;
}

/// Tenths of a degree by which text leans on the device: the other way where one axis alone is reversed.
LONG escapementOnDevice(const DeviceContext& context) {
    const LONG escapement = context.font().data.lfEscapement % 3600;
    const ContextState& state = context.state;
    const bool isMirrored = TextScale::across(state).isReversed() != TextScale::down(state).isReversed();
    return isMirrored ? -escapement : escapement;
}

/// On a display of few colours text is measured without smoothing too, so that it lies as wide as it was
/// measured. Masks, bitmaps of 1 bit on a display of many colours, measure as that display does.
bool measuresAsDrawn(const DeviceContext& context) {
    return context.surface && !canSmooth(*context.surface) && !canSmooth(displayDepth());
}

std::shared_ptr<FontFace> levelFaceOf(DeviceContext& context) {
    if (measuresAsDrawn(context)) {
        LOGFONTW request = requestOf(context);
        request.lfQuality = fewColorsQuality;
        return FontFace::get(request);
    }
    if (!context.state.mapping.isUnscaled()) return FontFace::get(requestOf(context));
    Font& font = context.font();
    if (!font.face) font.face = FontFace::get(requestOf(context));
    return font.face;
}

/// Positions of leaning text are cut to whole pixels, not rounded.
int cut(double pixels) {
    return boundedCoordinate(static_cast<std::int64_t>(pixels));
}

POINT moved(POINT p, POINT by) {
    return {boundedCoordinate(std::int64_t{p.x} + by.x), boundedCoordinate(std::int64_t{p.y} + by.y)};
}

constexpr UINT horizontalAlign = TA_CENTER;
constexpr UINT verticalAlign = TA_BASELINE;

} // namespace

std::shared_ptr<FontFace> faceOf(DeviceContext& context) {
    return levelFaceOf(context);
}

std::shared_ptr<FontFace> drawingFaceOf(DeviceContext& context) {
    const LOGFONTW& font = context.font().data;
    const bool smooths = canSmooth(*context.surface);
    if (smooths && font.lfEscapement == 0) return levelFaceOf(context);
    LOGFONTW request = requestOf(context);
    request.lfEscapement = request.lfOrientation = escapementOnDevice(context);
    if (!smooths) request.lfQuality = measuresAsDrawn(context) ? fewColorsQuality : NONANTIALIASED_QUALITY;
    return FontFace::get(request);
}

TextAdvances::TextAdvances(const ContextState& state, FontFace& face, const INT* given)
    : state_(state), face_(face), given_(given), scale_(TextScale::across(state)) {
    if (state.breakCount > 0) {
        perBreak_ = state.breakExtra / state.breakCount;
        breaksWithOneMore_ = state.breakExtra % state.breakCount;
    }
}

void TextAdvances::passBreak() {
    pixels_ += perBreak_;
    if (breaksWithOneMore_ > 0) {
        ++pixels_;
        --breaksWithOneMore_;
    }
}

int TextAdvances::pixels() const {
    if (!areSet() || state_.mapping.isUnscaled()) return boundedCoordinate(pixels_ + units_);
    const int length = logical();
    const int pixels = state_.mapping.sizeOnDevice({length, 0}).cx;
    return length < 0 ? -pixels : pixels;
}

TextLayout::TextLayout(DeviceContext& context, FontFace& face, POINT at, const TextRun& run)
    : context_(context) {
    const ContextState& state = context.state;
    TextAdvances advances(state, face, run.advances);
    for (const char16_t c : run.text)
        advances.pass(c);
    ascent_ = face.metrics().tmAscent;
    descent_ = face.metrics().tmDescent;
    if (!state.mapping.isUnscaled()) {
        const TextScale down = TextScale::down(state);
        ascent_ = state.mapping.sizeOnDevice({0, down.toLogical(ascent_)}).cy;
        descent_ = state.mapping.sizeOnDevice({0, down.toLogical(descent_)}).cy;
    }
    const LONG escapement = escapementOnDevice(context);
    const bool canLean = (face.metrics().tmPitchAndFamily & TMPF_TRUETYPE) != 0; // bitmaps stay level
    if (escapement != 0 && canLean) {
        const double angle = escapement * std::numbers::pi / 1800;
        cos_ = std::cos(angle);
        sin_ = std::sin(angle);
    }
    const bool followsPosition = (state.textAlign & TA_UPDATECP) != 0;
    start_ = context.toSurface(followsPosition ? state.position : at);
    // What a program is told in whole logical units is what its text takes.
    along_ = state.mapping.isUnscaled() ? reach(advances) : reach(advances.logical());
    if ((state.textAlign & horizontalAlign) == TA_CENTER)
        start_ = moved(start_, {-along_.x / 2, -along_.y / 2});
    if ((state.textAlign & horizontalAlign) == TA_RIGHT) start_ = moved(start_, {-along_.x, -along_.y});
    next_ = (state.textAlign & horizontalAlign) == TA_RIGHT ? start_ : moved(start_, along_);
    int down = 0;
    if ((state.textAlign & verticalAlign) == TA_TOP) down = ascent_;
    if ((state.textAlign & verticalAlign) == TA_BOTTOM) down = -descent_;
    start_ = below(start_, down);
}

POINT TextLayout::reach(const TextAdvances& passed) const {
    return isLevel() ? POINT{passed.pixels(), 0} : reach(passed.logical());
}

POINT TextLayout::reach(int units) const {
    const int across = cut(units * cos_);
    const int down = -cut(units * sin_);
    const SIZE size = context_.state.mapping.sizeOnDevice({across, down});
    return {across < 0 ? -size.cx : size.cx, down < 0 ? -size.cy : size.cy};
}

POINT TextLayout::point(const TextAdvances& passed) const {
    return moved(start_, reach(passed));
}

POINT TextLayout::below(POINT p, int pixels) const {
    return {cut(p.x + pixels * sin_), cut(p.y + pixels * cos_)};
}

std::array<POINT, 4> TextLayout::cell() const {
    return strip(ascent_, -descent_);
}

std::array<POINT, 4> TextLayout::strip(int top, int bottom) const {
    const POINT left = below(start_, -top);
    const POINT right = below(moved(start_, along_), -top);
    return {left, right, below(right, top - bottom), below(left, top - bottom)};
}

void TextLayout::advancePosition() const {
    if ((context_.state.textAlign & horizontalAlign) == TA_CENTER) return;
    context_.state.position = context_.toLogical(next_);
}

} // namespace platform::driver
