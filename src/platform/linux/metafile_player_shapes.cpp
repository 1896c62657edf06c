// Shapes and text of a metafile that is played.

#include "platform/linux/metafile_player.h"

#include "platform/linux/shapes.h"
#include "platform/locale.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace platform::driver {

namespace {

/// Points of 16 bits.
struct ShortPoint {
    std::int16_t x = 0;
    std::int16_t y = 0;
};

constexpr DWORD noRectangle = 0x0100;    ///< Options of text: no rectangle follows, ...
constexpr DWORD narrowText = 0x0200;     ///< ... one byte a character, ...
constexpr DWORD glyphNumbers = 0x0010;   ///< ... numbers of glyphs instead of characters, ...
constexpr DWORD pairedAdvances = 0x2000; ///< ... each distance with one along the other axis

} // namespace

/// Reads a box that includes its right and bottom.
static RECT readBox(RecordReader& reader) {
    const RECT r = reader.value<RECT>();
    return {r.left, r.top, boundedCoordinate(std::int64_t{r.right} + 1),
            boundedCoordinate(std::int64_t{r.bottom} + 1)};
}

template <auto Function, class Coordinate>
void MetafilePlayer::drawPoints(RecordReader& reader) {
    reader.skip(sizeof(RECT));
    const DWORD count = reader.number();
    if (reader.failed() || count > reader.left() / sizeof(Coordinate)) {
        reader.fail();
        return;
    }
    std::vector<POINT> points;
    points.reserve(count);
    for (DWORD i = 0; i < count; ++i) {
        const auto p = reader.value<Coordinate>();
        points.push_back(toTarget(p.x, p.y));
    }
    preparePen();
    Function(dc_, points.data(), count);
}

namespace {

/// The counts and points of a record of several figures; no counts when they contradict each other.
template <class Coordinate, class Count>
struct Figures {
    std::vector<Count> counts;
    std::vector<Coordinate> points;

    explicit Figures(RecordReader& reader) {
        reader.skip(sizeof(RECT));
        const DWORD figures = reader.number();
        const DWORD sum = reader.number();
        if (reader.failed() || figures > reader.left() / sizeof(DWORD)) {
            reader.fail();
            return;
        }
        std::uint64_t counted = 0;
        for (DWORD i = 0; i < figures; ++i) {
            const DWORD count = reader.number();
            counted += count;
            counts.push_back(static_cast<Count>(count));
        }
        if (counted != sum || sum > reader.left() / sizeof(Coordinate)) {
            reader.fail();
            counts.clear();
            return;
        }
        for (DWORD i = 0; i < sum; ++i)
            points.push_back(reader.value<Coordinate>());
    }
};

} // namespace

template <class Coordinate>
void MetafilePlayer::drawPolyPolygon(RecordReader& reader) {
    const Figures<Coordinate, INT> figures(reader);
    std::vector<POINT> points;
    for (const Coordinate& p : figures.points)
        points.push_back(toTarget(p.x, p.y));
    preparePen();
    if (!figures.counts.empty())
        PolyPolygon(dc_, points.data(), figures.counts.data(), static_cast<int>(figures.counts.size()));
}

template <class Coordinate>
void MetafilePlayer::drawPolyPolyline(RecordReader& reader) {
    const Figures<Coordinate, DWORD> figures(reader);
    std::vector<POINT> points;
    for (const Coordinate& p : figures.points)
        points.push_back(toTarget(p.x, p.y));
    preparePen();
    if (!figures.counts.empty())
        PolyPolyline(dc_, points.data(), figures.counts.data(), static_cast<DWORD>(figures.counts.size()));
}

void MetafilePlayer::lineTo(RecordReader& reader) {
    const POINT p = toTarget(reader.value<POINT>());
    preparePen();
    if (!reader.failed()) LineTo(dc_, p.x, p.y);
}

void MetafilePlayer::setPixel(RecordReader& reader) {
    const POINT p = toTarget(reader.value<POINT>());
    const COLORREF color = reader.number();
    if (!reader.failed()) SetPixel(dc_, p.x, p.y, color);
}

void MetafilePlayer::drawRectangle(RecordReader& reader) {
    const RECT box = readBox(reader);
    if (reader.failed()) return;
    preparePen();
    if (all_.isUpright()) {
        const RECT r = toTarget(box);
        Rectangle(dc_, r.left, r.top, r.right, r.bottom);
        return;
    }
    const POINT corners[] = {toTarget(box.left, box.top), toTarget(box.right - 1, box.top),
                             toTarget(box.right - 1, box.bottom - 1), toTarget(box.left, box.bottom - 1)};
    Polygon(dc_, corners, 4);
}

void MetafilePlayer::drawEllipse(RecordReader& reader) {
    const RECT box = readBox(reader);
    if (reader.failed()) return;
    preparePen();
    if (all_.isUpright()) {
        const RECT r = toTarget(box);
        Ellipse(dc_, r.left, r.top, r.right, r.bottom);
        return;
    }
    constexpr int corners = 120;
    const double radiusX = (box.right - 1.0 - box.left) / 2;
    const double radiusY = (box.bottom - 1.0 - box.top) / 2;
    std::vector<POINT> points;
    for (int i = 0; i < corners; ++i) {
        const double angle = 2 * std::numbers::pi * i / corners;
        points.push_back(
            toTarget(box.left + radiusX * (1 + std::cos(angle)), box.top + radiusY * (1 + std::sin(angle))));
    }
    Polygon(dc_, points.data(), corners);
}

void MetafilePlayer::drawRoundRect(RecordReader& reader) {
    const RECT r = toTarget(readBox(reader));
    const SIZE corner = reader.value<SIZE>();
    if (reader.failed()) return;
    preparePen();
    RoundRect(dc_, r.left, r.top, r.right, r.bottom, roundedCoordinate(corner.cx * all_.scaleX()),
              roundedCoordinate(corner.cy * all_.scaleY()));
}

template <auto Function>
void MetafilePlayer::drawArc(RecordReader& reader) {
    const RECT r = toTarget(readBox(reader));
    const POINT start = toTarget(reader.value<POINT>());
    const POINT end = toTarget(reader.value<POINT>());
    if (reader.failed()) return;
    preparePen();
    // A mapping that mirrors one axis turns the direction round.
    const bool isMirrored = all_.m11 * all_.m22 - all_.m12 * all_.m21 < 0;
    const int opposite = AD_CLOCKWISE + AD_COUNTERCLOCKWISE - state_.arcDirection;
    SetArcDirection(dc_, isMirrored ? opposite : state_.arcDirection);
    Function(dc_, r.left, r.top, r.right, r.bottom, start.x, start.y, end.x, end.y);
}

void MetafilePlayer::drawAngleArc(RecordReader& reader) {
    constexpr double largestStep = 3; // degrees
    constexpr float largestSweep = 3600;
    const POINT centre = reader.value<POINT>();
    const double radius = reader.number();
    const float start = reader.value<float>();
    const float sweep = reader.value<float>();
    if (reader.failed() || !(std::fabs(start) <= largestSweep) || !(std::fabs(sweep) <= largestSweep)) return;
    const int steps = static_cast<int>(std::fabs(sweep) / largestStep) + 1;
    std::vector<POINT> points;
    for (int i = 0; i <= steps; ++i) {
        const double angle = (start + sweep * i / steps) * std::numbers::pi / 180;
        points.push_back(toTarget(centre.x + radius * std::cos(angle), centre.y - radius * std::sin(angle)));
    }
    preparePen();
    PolylineTo(dc_, points.data(), static_cast<int>(points.size()));
}

template <class Coordinate>
void MetafilePlayer::drawMixed(RecordReader& reader) {
    reader.skip(sizeof(RECT));
    const DWORD count = reader.number();
    if (reader.failed() || count > reader.left() / (sizeof(Coordinate) + 1)) {
        reader.fail();
        return;
    }
    std::vector<POINT> points;
    std::vector<BYTE> types;
    for (DWORD i = 0; i < count; ++i) {
        const auto p = reader.value<Coordinate>();
        points.push_back(toTarget(p.x, p.y));
    }
    for (DWORD i = 0; i < count; ++i)
        types.push_back(reader.value<BYTE>());
    preparePen();
    PolyDraw(dc_, points.data(), types.data(), static_cast<int>(count));
}

void MetafilePlayer::fillFlood(RecordReader& reader) {
    const POINT at = toTarget(reader.value<POINT>());
    const COLORREF color = reader.number();
    const UINT mode = reader.number();
    if (!reader.failed()) ExtFloodFill(dc_, at.x, at.y, color, mode);
}

template <auto Function>
void MetafilePlayer::call(RecordReader&) {
    preparePen();
    Function(dc_);
}

HBRUSH MetafilePlayer::brushOf(DWORD index) const {
    if ((index & stockObjectBit) != 0)
        return HBRUSH(GetStockObject(static_cast<int>(index & ~stockObjectBit)).value);
    if (index >= entries_.size()) return {};
    const auto* brush = std::get_if<std::shared_ptr<BrushEntry>>(&entries_[index]);
    return brush ? (*brush)->handle() : HBRUSH();
}

std::optional<Region> MetafilePlayer::onTarget(const Region& logical) const {
    const std::span<const RECT> rectangles = logical.rectangles();
    const bool staysInRows = all_.isUpright();
    if (!staysInRows && rectangles.size() > mostUnordered) return std::nullopt;
    std::vector<RECT> placed;
    for (const RECT& r : rectangles)
        placed.push_back(ordered(toTarget(r)));
    // Rows of rectangles stay such rows when they are scaled, and may only come to touch each other. Turned
    // ones lie in any order.
    return staysInRows ? Region::ofRows(std::move(placed)) : unionOf(placed);
}

HRGN MetafilePlayer::targetRegion(RecordReader& reader, DWORD size) {
    const std::optional<Region> logical = readRegion(reader, size);
    if (!logical) return {};
    std::optional<Region> placed = onTarget(*logical);
    if (placed) return addRegion(std::move(*placed));
    reader.fail();
    return {};
}

void MetafilePlayer::fillRegion(RecordReader& reader) {
    reader.skip(sizeof(RECT));
    const DWORD size = reader.number();
    const HBRUSH brush = brushOf(reader.number());
    const HRGN region = targetRegion(reader, size);
    FillRgn(dc_, region, brush);
    DeleteObject(region);
}

void MetafilePlayer::frameRegion(RecordReader& reader) {
    reader.skip(sizeof(RECT));
    const DWORD size = reader.number();
    const HBRUSH brush = brushOf(reader.number());
    const SIZE frame = reader.value<SIZE>();
    const HRGN region = targetRegion(reader, size);
    FrameRgn(dc_, region, brush, std::max(1, roundedCoordinate(frame.cx * all_.scaleX())),
             std::max(1, roundedCoordinate(frame.cy * all_.scaleY())));
    DeleteObject(region);
}

template <auto Function>
void MetafilePlayer::drawRegion(RecordReader& reader) {
    reader.skip(sizeof(RECT));
    const DWORD size = reader.number();
    const HRGN region = targetRegion(reader, size);
    Function(dc_, region);
    DeleteObject(region);
}

void MetafilePlayer::drawString(const RecordedText& text) {
    if ((text.options & glyphNumbers) != 0) return;
    prepareFont();
    if (takesUnits()) {
        drawInUnits(text);
    } else {
        drawInPixels(text);
    }
}

/// Lengths of text are rounded in the units of the record.
void MetafilePlayer::drawInUnits(const RecordedText& text) {
    const POINT pixel = target_.state.position;
    const auto axis = [](double scale, double offset) {
        return MappingAxis{static_cast<float>(scale), static_cast<float>(offset)};
    };
    target_.state.mapping = Mapping::of({axis(all_.m11, all_.dx), axis(all_.m22, all_.dy)});
    const bool isKnown = toTarget(state_.position) == pixel;
    target_.state.position = isKnown ? state_.position : target_.state.mapping.toLogical(pixel);
    output(text);
    state_.position = target_.state.position;
    target_.state.mapping = {};
    target_.state.position = toTarget(state_.position);
}

void MetafilePlayer::drawInPixels(const RecordedText& text) {
    RecordedText placed = text;
    placed.at = toTarget(text.at);
    placed.box = ordered(toTarget(text.box));
    // Distances are rounded where they end, so that they do not add up to another width.
    double end = 0;
    int last = 0;
    for (INT& advance : placed.advances) {
        end += advance * all_.scaleX();
        const int next = roundedCoordinate(end);
        advance = next - last;
        last = next;
    }
    output(placed);
}

void MetafilePlayer::output(const RecordedText& text) {
    const DWORD options = text.options & (ETO_OPAQUE | ETO_CLIPPED);
    const bool hasBox = (text.options & noRectangle) == 0 && options != 0;
    const bool areGiven = text.advances.size() == text.characters.size() && !text.characters.empty();
    ExtTextOutW(dc_, text.at.x, text.at.y, options, hasBox ? &text.box : nullptr, text.characters.data(),
                static_cast<UINT>(text.characters.size()), areGiven ? text.advances.data() : nullptr);
}

void MetafilePlayer::drawText(RecordReader& reader, bool isWide) {
    constexpr DWORD mostCharacters = 1 << 16;
    RecordedText text;
    reader.skip(sizeof(RECT) + 3 * sizeof(DWORD)); // bounds, mode and scale
    text.at = reader.value<POINT>();
    const DWORD length = reader.number();
    const DWORD textAt = reader.number();
    text.options = reader.number();
    text.box = reader.value<RECT>();
    const DWORD advancesAt = reader.number();
    if (reader.failed() || length > mostCharacters) {
        reader.fail();
        return;
    }
    const std::span<const BYTE> bytes = reader.at(textAt, std::uint64_t{length} * (isWide ? 2 : 1));
    if (isWide && !bytes.empty()) {
        text.characters.resize(bytes.size() / sizeof(char16_t));
        std::memcpy(text.characters.data(), bytes.data(), bytes.size());
    } else if (!isWide) {
        text.characters = wideFromAnsi({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
    }
    if (advancesAt != 0 && !reader.failed()) {
        const std::size_t step = (text.options & pairedAdvances) != 0 ? 2 : 1;
        const std::span<const BYTE> numbers =
            reader.at(advancesAt, std::uint64_t{length} * step * sizeof(LONG));
        for (std::size_t i = 0; i < numbers.size() / sizeof(LONG); i += step) {
            LONG advance = 0;
            std::memcpy(&advance, numbers.data() + i * sizeof(LONG), sizeof advance);
            text.advances.push_back(advance);
        }
    }
    if (!reader.failed()) drawString(text);
}

void MetafilePlayer::drawTextA(RecordReader& reader) {
    drawText(reader, false);
}

void MetafilePlayer::drawTextW(RecordReader& reader) {
    drawText(reader, true);
}

void MetafilePlayer::drawSmallText(RecordReader& reader) {
    RecordedText text;
    text.at = reader.value<POINT>();
    const DWORD length = reader.number();
    text.options = reader.number();
    reader.skip(3 * sizeof(DWORD)); // mode and scale
    if ((text.options & noRectangle) == 0) text.box = reader.value<RECT>();
    const bool isNarrow = (text.options & narrowText) != 0;
    if (reader.failed() || length > reader.left() / (isNarrow ? 1 : 2)) {
        reader.fail();
        return;
    }
    for (DWORD i = 0; i < length; ++i)
        text.characters += isNarrow ? static_cast<char16_t>(reader.value<BYTE>()) : reader.value<char16_t>();
    drawString(text);
}

template <auto Function>
void MetafilePlayer::setNumber(RecordReader& reader) {
    const DWORD value = reader.number();
    if (!reader.failed()) Function(dc_, static_cast<int>(value));
}

/// In the order of their numbers; a record that is not here has no effect on what is drawn.
const MetafilePlayer::Binding MetafilePlayer::bindings[] = {
    {RecordType::PolyBezier, &MetafilePlayer::drawPoints<&platform::PolyBezier, POINT>},
    {RecordType::Polygon, &MetafilePlayer::drawPoints<&platform::Polygon, POINT>},
    {RecordType::Polyline, &MetafilePlayer::drawPoints<&platform::Polyline, POINT>},
    {RecordType::PolyBezierTo, &MetafilePlayer::drawPoints<&platform::PolyBezierTo, POINT>},
    {RecordType::PolylineTo, &MetafilePlayer::drawPoints<&platform::PolylineTo, POINT>},
    {RecordType::PolyPolyline, &MetafilePlayer::drawPolyPolyline<POINT>},
    {RecordType::PolyPolygon, &MetafilePlayer::drawPolyPolygon<POINT>},
    {RecordType::SetWindowExtEx, &MetafilePlayer::setWindowExtent},
    {RecordType::SetWindowOrgEx, &MetafilePlayer::setWindowOrigin},
    {RecordType::SetViewportExtEx, &MetafilePlayer::setViewportExtent},
    {RecordType::SetViewportOrgEx, &MetafilePlayer::setViewportOrigin},
    {RecordType::SetBrushOrgEx, &MetafilePlayer::setBrushOrigin},
    {RecordType::SetPixelV, &MetafilePlayer::setPixel},
    {RecordType::SetMapMode, &MetafilePlayer::setMapMode},
    {RecordType::SetBkMode, &MetafilePlayer::setNumber<&platform::SetBkMode>},
    {RecordType::SetPolyFillMode, &MetafilePlayer::setNumber<&platform::SetPolyFillMode>},
    {RecordType::SetRop2, &MetafilePlayer::setNumber<&platform::SetROP2>},
    {RecordType::SetStretchBltMode, &MetafilePlayer::setNumber<&platform::SetStretchBltMode>},
    {RecordType::SetTextAlign, &MetafilePlayer::setNumber<&platform::SetTextAlign>},
    {RecordType::SetTextColor, &MetafilePlayer::setNumber<&platform::SetTextColor>},
    {RecordType::SetBkColor, &MetafilePlayer::setNumber<&platform::SetBkColor>},
    {RecordType::OffsetClipRgn, &MetafilePlayer::offsetClip},
    {RecordType::MoveToEx, &MetafilePlayer::moveTo},
    {RecordType::ExcludeClipRect, &MetafilePlayer::excludeClipRect},
    {RecordType::IntersectClipRect, &MetafilePlayer::intersectClipRect},
    {RecordType::ScaleViewportExtEx, &MetafilePlayer::scaleViewportExtent},
    {RecordType::ScaleWindowExtEx, &MetafilePlayer::scaleWindowExtent},
    {RecordType::SaveDC, &MetafilePlayer::saveState},
    {RecordType::RestoreDC, &MetafilePlayer::restoreState},
    {RecordType::SetWorldTransform, &MetafilePlayer::setWorldTransform},
    {RecordType::ModifyWorldTransform, &MetafilePlayer::modifyWorldTransform},
    {RecordType::SelectObject, &MetafilePlayer::selectObject},
    {RecordType::CreatePen, &MetafilePlayer::createPen},
    {RecordType::CreateBrushIndirect, &MetafilePlayer::createBrush},
    {RecordType::DeleteObject, &MetafilePlayer::deleteObject},
    {RecordType::AngleArc, &MetafilePlayer::drawAngleArc},
    {RecordType::Ellipse, &MetafilePlayer::drawEllipse},
    {RecordType::Rectangle, &MetafilePlayer::drawRectangle},
    {RecordType::RoundRect, &MetafilePlayer::drawRoundRect},
    {RecordType::Arc, &MetafilePlayer::drawArc<&platform::Arc>},
    {RecordType::Chord, &MetafilePlayer::drawArc<&platform::Chord>},
    {RecordType::Pie, &MetafilePlayer::drawArc<&platform::Pie>},
    {RecordType::ExtFloodFill, &MetafilePlayer::fillFlood},
    {RecordType::LineTo, &MetafilePlayer::lineTo},
    {RecordType::ArcTo, &MetafilePlayer::drawArc<&platform::ArcTo>},
    {RecordType::PolyDraw, &MetafilePlayer::drawMixed<POINT>},
    {RecordType::SetArcDirection, &MetafilePlayer::setArcDirection},
    {RecordType::SetMiterLimit, &MetafilePlayer::setMiterLimit},
    {RecordType::BeginPath, &MetafilePlayer::call<&platform::BeginPath>},
    {RecordType::EndPath, &MetafilePlayer::call<&platform::EndPath>},
    {RecordType::CloseFigure, &MetafilePlayer::call<&platform::CloseFigure>},
    {RecordType::FillPath, &MetafilePlayer::call<&platform::FillPath>},
    {RecordType::StrokeAndFillPath, &MetafilePlayer::call<&platform::StrokeAndFillPath>},
    {RecordType::StrokePath, &MetafilePlayer::call<&platform::StrokePath>},
    {RecordType::FlattenPath, &MetafilePlayer::call<&platform::FlattenPath>},
    {RecordType::WidenPath, &MetafilePlayer::call<&platform::WidenPath>},
    {RecordType::SelectClipPath, &MetafilePlayer::selectClipPath},
    {RecordType::AbortPath, &MetafilePlayer::call<&platform::AbortPath>},
    {RecordType::FillRgn, &MetafilePlayer::fillRegion},
    {RecordType::FrameRgn, &MetafilePlayer::frameRegion},
    {RecordType::InvertRgn, &MetafilePlayer::drawRegion<&platform::InvertRgn>},
    {RecordType::PaintRgn, &MetafilePlayer::drawRegion<&platform::PaintRgn>},
    {RecordType::ExtSelectClipRgn, &MetafilePlayer::selectClipRegion},
    {RecordType::BitBlt, &MetafilePlayer::bitBlt},
    {RecordType::StretchBlt, &MetafilePlayer::stretchBlt},
    {RecordType::MaskBlt, &MetafilePlayer::maskBlt},
    {RecordType::PlgBlt, &MetafilePlayer::plgBlt},
    {RecordType::SetDIBitsToDevice, &MetafilePlayer::setDIBitsToDevice},
    {RecordType::StretchDIBits, &MetafilePlayer::stretchDIBits},
    {RecordType::ExtCreateFontIndirectW, &MetafilePlayer::createFont},
    {RecordType::ExtTextOutA, &MetafilePlayer::drawTextA},
    {RecordType::ExtTextOutW, &MetafilePlayer::drawTextW},
    {RecordType::PolyBezier16, &MetafilePlayer::drawPoints<&platform::PolyBezier, ShortPoint>},
    {RecordType::Polygon16, &MetafilePlayer::drawPoints<&platform::Polygon, ShortPoint>},
    {RecordType::Polyline16, &MetafilePlayer::drawPoints<&platform::Polyline, ShortPoint>},
    {RecordType::PolyBezierTo16, &MetafilePlayer::drawPoints<&platform::PolyBezierTo, ShortPoint>},
    {RecordType::PolylineTo16, &MetafilePlayer::drawPoints<&platform::PolylineTo, ShortPoint>},
    {RecordType::PolyPolyline16, &MetafilePlayer::drawPolyPolyline<ShortPoint>},
    {RecordType::PolyPolygon16, &MetafilePlayer::drawPolyPolygon<ShortPoint>},
    {RecordType::PolyDraw16, &MetafilePlayer::drawMixed<ShortPoint>},
    {RecordType::CreateMonoBrush, &MetafilePlayer::createMonoBrush},
    {RecordType::CreateDibPatternBrushPt, &MetafilePlayer::createPatternBrush},
    {RecordType::ExtCreatePen, &MetafilePlayer::createExtendedPen},
    {RecordType::SmallTextOut, &MetafilePlayer::drawSmallText},
    {RecordType::AlphaBlend, &MetafilePlayer::alphaBlend},
    {RecordType::TransparentBlt, &MetafilePlayer::transparentBlt},
    {RecordType::GradientFill, &MetafilePlayer::fillGradient},
    {RecordType::SetTextJustification, &MetafilePlayer::setTextJustification},
    {RecordType::Eof, nullptr},
};

} // namespace platform::driver
