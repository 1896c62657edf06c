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
    request.lfEscapement = request.lfOrientation = font.lfEscapement;
    if (!smooths) request.lfQuality = measuresAsDrawn(context) ? fewColorsQuality : NONANTIALIASED_QUALITY;
    return FontFace::get(request);
}

TextScale TextScale::across(const ContextState& state) {
    return {state.mapping.windowExtent.cx, state.mapping.viewportExtent.cx};
}

TextScale TextScale::down(const ContextState& state) {
    return {state.mapping.windowExtent.cy, state.mapping.viewportExtent.cy};
}

int TextScale::scaled(std::int64_t length, LONG to, LONG from) {
    if (to == from) return boundedCoordinate(length);
    const double exact = std::fabs(static_cast<double>(to) / from) * static_cast<double>(length);
    return boundedCoordinate(static_cast<std::int64_t>(std::floor(exact + 0.5)));
}

TextAdvances::TextAdvances(const ContextState& state, FontFace& face, const INT* given)
    : state_(state), face_(face), given_(given), scale_(TextScale::across(state)) {
    if (state.breakCount > 0) {
        const int extra = std::abs(state.breakExtra);
        perBreak_ = extra / state.breakCount;
        breaksWithOneMore_ = extra % state.breakCount;
    }
}

void TextAdvances::pass(char16_t character, int pixels) {
    if (given_) {
        units_ += *given_++;
        return;
    }
    pixels_ += pixels;
    units_ += state_.characterExtra;
    if (character != u' ' || state_.breakCount == 0) return;
    units_ += perBreak_;
    if (breaksWithOneMore_ > 0) {
        ++units_;
        --breaksWithOneMore_;
    }
}

TextLayout::TextLayout(DeviceContext& context, FontFace& face, POINT at, const TextRun& run)
    : context_(context) {
    const ContextState& state = context.state;
    TextAdvances advances(state, face, run.advances);
    for (const char16_t c : run.text)
        advances.pass(c);
    width_ = state.mapping.isUnscaled() ? advances.pixels()
                                        : TextScale::across(state).toPixels(advances.logical());
    const LONG escapement = context.font().data.lfEscapement % 3600;
    const bool canLean = (face.metrics().tmPitchAndFamily & TMPF_TRUETYPE) != 0; // bitmaps stay level
    if (escapement != 0 && canLean) {
        const double angle = escapement * std::numbers::pi / 1800;
        cos_ = std::cos(angle);
        sin_ = std::sin(angle);
    }
    const bool followsPosition = (state.textAlign & TA_UPDATECP) != 0;
    start_ = context.toSurface(followsPosition ? state.position : at);
    const POINT end = point(width_);
    const POINT along{end.x - start_.x, end.y - start_.y};
    if ((state.textAlign & horizontalAlign) == TA_CENTER)
        start_ = {start_.x - along.x / 2, start_.y - along.y / 2};
    if ((state.textAlign & horizontalAlign) == TA_RIGHT) start_ = {start_.x - along.x, start_.y - along.y};
    int down = 0;
    if ((state.textAlign & verticalAlign) == TA_TOP) down = face.metrics().tmAscent;
    if ((state.textAlign & verticalAlign) == TA_BOTTOM) down = -face.metrics().tmDescent;
    start_ = below(start_, down);
}

POINT TextLayout::point(int along) const {
    return {boundedCoordinate(start_.x + std::int64_t{cut(along * cos_)}),
            boundedCoordinate(start_.y - std::int64_t{cut(along * sin_)})};
}

POINT TextLayout::below(POINT p, int pixels) const {
    return {cut(p.x + pixels * sin_), cut(p.y + pixels * cos_)};
}

std::array<POINT, 4> TextLayout::strip(int top, int bottom) const {
    const POINT left = below(start_, -top);
    const POINT right = below(point(width_), -top);
    return {left, right, below(right, top - bottom), below(left, top - bottom)};
}

void TextLayout::advancePosition() const {
    const UINT align = context_.state.textAlign & horizontalAlign;
    if (align == TA_CENTER) return;
    const int along = align == TA_RIGHT ? -width_ : width_;
    const TextScale across = TextScale::across(context_.state);
    const TextScale down = TextScale::down(context_.state);
    POINT& position = context_.state.position;
    const auto signedLength = [](const TextScale& scale, double pixels) {
        const int length = scale.toLogical(std::abs(cut(pixels)));
        return pixels < 0 ? -length : length;
    };
    position.x = boundedCoordinate(std::int64_t{position.x} + signedLength(across, along * cos_));
    position.y = boundedCoordinate(std::int64_t{position.y} - signedLength(down, along * sin_));
}

} // namespace platform::driver
