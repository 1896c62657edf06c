// State and objects of a metafile that is played.

#include "platform/linux/metafile_bits.h"
#include "platform/linux/metafile_player.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace platform::driver {

namespace {

/// Modes of ModifyWorldTransform.
enum class WorldChange : DWORD { Identity = 1, LeftMultiply = 2, RightMultiply = 3, Set = 4 };

bool isFinite(const FileTransform& t) {
    constexpr float largest = 1e7f;
    for (const float value : {t.m11, t.m12, t.m21, t.m22, t.dx, t.dy})
        if (!(std::fabs(value) <= largest)) return false;
    return true;
}

LONG scaledLength(LONG length, double scale) {
    constexpr double longest = 1 << 20;
    return static_cast<LONG>(std::lround(std::clamp(length * scale, -longest, longest)));
}

/// True for the order that regions keep: disjoint, by rows of equal height from the top, each from the left.
/// No rectangle may be upside down.
bool areBanded(std::span<const RECT> rectangles) {
    for (std::size_t i = 1; i < rectangles.size(); ++i) {
        const RECT& a = rectangles[i - 1];
        const RECT& b = rectangles[i];
        const bool isSameRow = a.top == b.top && a.bottom == b.bottom && a.right <= b.left;
        if (!isSameRow && a.bottom > b.top) return false;
    }
    return true;
}

constexpr LONG wholeTurn = 3600; ///< In tenths of a degree

/// Tenths of a degree, counter-clockwise, by which a direction leans.
LONG angleOf(const Transform& t) {
    return static_cast<LONG>(std::lround(std::atan2(-t.m12, t.m11) * (wholeTurn / 2.0) / std::numbers::pi));
}

} // namespace

Region unionOf(std::span<const RECT> rectangles) {
    if (rectangles.empty()) return {};
    if (rectangles.size() == 1) return Region(ordered(rectangles.front()));
    const std::size_t half = rectangles.size() / 2;
    return unionOf(rectangles.first(half)).united(unionOf(rectangles.subspan(half)));
}

void MetafilePlayer::useMapping() {
    all_ = state_.mapping.toDevice().then(base_);
    penIsStale_ = fontIsStale_ = true;
}

void MetafilePlayer::setWindowExtent(RecordReader& reader) {
    const SIZE extent = reader.value<SIZE>();
    if (extent.cx == 0 || extent.cy == 0 || !state_.mapping.hasOwnExtents()) return;
    state_.mapping.windowExtent = {static_cast<double>(extent.cx), static_cast<double>(extent.cy)};
    state_.mapping.keepAspect(header_.szlDevice, header_.szlMillimeters);
    useMapping();
}

void MetafilePlayer::setViewportExtent(RecordReader& reader) {
    const SIZE extent = reader.value<SIZE>();
    if (extent.cx == 0 || extent.cy == 0 || !state_.mapping.hasOwnExtents()) return;
    state_.mapping.viewportExtent = {static_cast<double>(extent.cx), static_cast<double>(extent.cy)};
    state_.mapping.keepAspect(header_.szlDevice, header_.szlMillimeters);
    useMapping();
}

void MetafilePlayer::setWindowOrigin(RecordReader& reader) {
    const POINT origin = reader.value<POINT>();
    state_.mapping.windowOrigin = {static_cast<double>(origin.x), static_cast<double>(origin.y)};
    useMapping();
}

void MetafilePlayer::setViewportOrigin(RecordReader& reader) {
    const POINT origin = reader.value<POINT>();
    state_.mapping.viewportOrigin = {static_cast<double>(origin.x), static_cast<double>(origin.y)};
    useMapping();
}

namespace {

/// Multiplies an extent by the two fractions of a record, unless one of their parts is 0.
bool scaleBy(RecordReader& reader, RealPoint& extent) {
    const double multiplierX = reader.integer();
    const double divisorX = reader.integer();
    const double multiplierY = reader.integer();
    const double divisorY = reader.integer();
    if (multiplierX == 0 || divisorX == 0 || multiplierY == 0 || divisorY == 0) return false;
    extent = {extent.x * multiplierX / divisorX, extent.y * multiplierY / divisorY};
    return true;
}

} // namespace

void MetafilePlayer::scaleWindowExtent(RecordReader& reader) {
    if (!state_.mapping.hasOwnExtents() || !scaleBy(reader, state_.mapping.windowExtent)) return;
    state_.mapping.keepAspect(header_.szlDevice, header_.szlMillimeters);
    useMapping();
}

void MetafilePlayer::scaleViewportExtent(RecordReader& reader) {
    if (!state_.mapping.hasOwnExtents() || !scaleBy(reader, state_.mapping.viewportExtent)) return;
    state_.mapping.keepAspect(header_.szlDevice, header_.szlMillimeters);
    useMapping();
}

void MetafilePlayer::setMapMode(RecordReader& reader) {
    state_.mapping.setMode(reader.integer(), header_.szlDevice, header_.szlMillimeters);
    useMapping();
}

void MetafilePlayer::setWorldTransform(RecordReader& reader) {
    const auto transform = reader.value<FileTransform>();
    if (reader.failed() || !isFinite(transform)) return;
    state_.mapping.world = Transform::of(transform);
    useMapping();
}

void MetafilePlayer::modifyWorldTransform(RecordReader& reader) {
    const auto transform = reader.value<FileTransform>();
    const auto change = static_cast<WorldChange>(reader.number());
    if (reader.failed() || !isFinite(transform)) return;
    Transform& world = state_.mapping.world;
    switch (change) {
    case WorldChange::Identity:
        world = {};
        break;
    case WorldChange::LeftMultiply:
        world = Transform::of(transform).then(world);
        break;
    case WorldChange::RightMultiply:
        world = world.then(Transform::of(transform));
        break;
    case WorldChange::Set:
        world = Transform::of(transform);
        break;
    }
    useMapping();
}

void MetafilePlayer::setBrushOrigin(RecordReader& reader) {
    const POINT origin = reader.value<POINT>();
    const RealPoint p = base_.apply({static_cast<double>(origin.x), static_cast<double>(origin.y)});
    SetBrushOrgEx(dc_, static_cast<int>(std::clamp(p.x, -1e6, 1e6)),
                  static_cast<int>(std::clamp(p.y, -1e6, 1e6)), nullptr);
}

void MetafilePlayer::setTextJustification(RecordReader& reader) {
    const LONG extra = reader.integer();
    const LONG count = reader.integer();
    SetTextJustification(dc_, scaledLength(extra, all_.scaleX()), count);
}

void MetafilePlayer::setArcDirection(RecordReader& reader) {
    const int direction = reader.integer();
    if (direction == AD_CLOCKWISE || direction == AD_COUNTERCLOCKWISE) state_.arcDirection = direction;
}

void MetafilePlayer::setMiterLimit(RecordReader& reader) {
    const float limit = reader.value<float>();
    if (!reader.failed() && limit >= 1) SetMiterLimit(dc_, limit, nullptr);
}

void MetafilePlayer::moveTo(RecordReader& reader) {
    const auto position = reader.value<POINT>();
    if (reader.failed()) return;
    state_.position = position;
    const POINT p = toTarget(position);
    MoveToEx(dc_, p.x, p.y, nullptr);
}

void MetafilePlayer::saveState(RecordReader& reader) {
    constexpr std::size_t deepest = 4096;
    if (reader.failed() || saved_.size() >= deepest) return;
    SaveDC(dc_);
    saved_.push_back(state_);
}

void MetafilePlayer::restoreState(RecordReader& reader) {
    const LONG depth = reader.integer();
    const auto count = static_cast<LONG>(saved_.size());
    const LONG wanted = depth < 0 ? count + depth : depth - 1;
    if (reader.failed() || depth == 0 || wanted < 0 || wanted >= count) return;
    state_ = saved_[static_cast<std::size_t>(wanted)];
    while (static_cast<LONG>(saved_.size()) > wanted) {
        RestoreDC(dc_, -1);
        saved_.pop_back();
    }
    useMapping();
}

void MetafilePlayer::setEntry(DWORD index, Entry entry) {
    // Entry 0 is the metafile's own.
    if (index > 0 && index < entries_.size()) entries_[index] = std::move(entry);
}

void MetafilePlayer::selectObject(RecordReader& reader) {
    const DWORD index = reader.number();
    if ((index & stockObjectBit) != 0) {
        const HGDIOBJ stock = GetStockObject(static_cast<int>(index & ~stockObjectBit));
        LOGPEN pen;
        if (GetObjectPen(HPEN(stock.value), &pen)) {
            state_.pen = {pen.lopnStyle, pen.lopnWidth.x, {BS_SOLID, pen.lopnColor, 0}, {}, false};
            penIsStale_ = true;
        } else if (GetObjectFont(HFONT(stock.value), &state_.font)) {
            fontIsStale_ = true;
        } else {
            SelectObject(dc_, stock);
        }
        return;
    }
    if (index >= entries_.size()) {
        reader.fail();
        return;
    }
    const Entry& entry = entries_[index];
    if (const auto* pen = std::get_if<PenRecord>(&entry)) {
        state_.pen = *pen;
        penIsStale_ = true;
    } else if (const auto* font = std::get_if<LOGFONTW>(&entry)) {
        state_.font = *font;
        fontIsStale_ = true;
    } else if (const auto* brush = std::get_if<std::shared_ptr<BrushEntry>>(&entry)) {
        SelectObject(dc_, (*brush)->handle());
    }
}

void MetafilePlayer::deleteObject(RecordReader& reader) {
    setEntry(reader.number(), {});
}

void MetafilePlayer::createPen(RecordReader& reader) {
    const DWORD index = reader.number();
    const auto data = reader.value<LOGPEN>();
    if (reader.failed()) return;
    setEntry(index, PenRecord{data.lopnStyle, data.lopnWidth.x, {BS_SOLID, data.lopnColor, 0}, {}, false});
}

void MetafilePlayer::createExtendedPen(RecordReader& reader) {
    constexpr DWORD mostDashes = 16;
    const DWORD index = reader.number();
    reader.skip(4 * sizeof(DWORD)); // a picture for its brush
    PenRecord pen;
    pen.isExtended = true;
    pen.style = reader.number();
    pen.width = static_cast<LONG>(std::min<DWORD>(reader.number(), 1u << 20));
    pen.brush.lbStyle = reader.number();
    pen.brush.lbColor = reader.number();
    pen.brush.lbHatch = reader.number();
    const DWORD dashes = reader.number();
    for (DWORD i = 0; i < std::min(dashes, mostDashes); ++i)
        pen.dashes.push_back(reader.number());
    if (pen.brush.lbStyle > BS_HATCHED) pen.brush.lbStyle = BS_SOLID;
    if (!reader.failed()) setEntry(index, std::move(pen));
}

void MetafilePlayer::createBrush(RecordReader& reader) {
    const DWORD index = reader.number();
    LOGBRUSH data;
    data.lbStyle = reader.number();
    data.lbColor = reader.number();
    data.lbHatch = reader.number();
    if (reader.failed() || data.lbStyle > BS_HATCHED) return;
    if (const HBRUSH brush = CreateBrushIndirect(&data)) setEntry(index, std::make_shared<BrushEntry>(brush));
}

void MetafilePlayer::createMonoBrush(RecordReader& reader) {
    const DWORD index = reader.number();
    const BitsPlace place = readPlace(reader);
    const HBITMAP bitmap =
        monoBitmapOf(reader.at(place.headerAt, place.headerSize), reader.at(place.bitsAt, place.bitsSize));
    if (!bitmap) return;
    setEntry(index, std::make_shared<BrushEntry>(CreatePatternBrush(bitmap)));
    DeleteObject(bitmap);
}

void MetafilePlayer::createPatternBrush(RecordReader& reader) {
    const DWORD index = reader.number();
    const BitsPlace place = readPlace(reader);
    const std::optional<PictureData> picture = pictureOf(
        reader.at(place.headerAt, place.headerSize), reader.at(place.bitsAt, place.bitsSize), pixelsLeft_);
    if (reader.failed() || !picture) return;
    const HBITMAP bitmap = CreateBitmap(picture->width, picture->height, 1, 32, picture->argb.data());
    setEntry(index, std::make_shared<BrushEntry>(CreatePatternBrush(bitmap)));
    DeleteObject(bitmap);
}

void MetafilePlayer::createFont(RecordReader& reader) {
    const DWORD index = reader.number();
    LOGFONTW font = reader.value<LOGFONTW>();
    font.lfFaceName[LF_FACESIZE - 1] = 0;
    if (!reader.failed()) setEntry(index, font);
}

HPEN MetafilePlayer::extendedPen(const PenRecord& pen, LONG width) const {
    constexpr DWORD longestDash = 1 << 20;
    if ((pen.style & PS_TYPE_MASK) != PS_GEOMETRIC)
        return ExtCreatePen(pen.style, 1, &pen.brush, static_cast<DWORD>(pen.dashes.size()),
                            pen.dashes.data());
    std::vector<DWORD> dashes;
    for (const DWORD dash : pen.dashes)
        dashes.push_back(
            static_cast<DWORD>(scaledLength(static_cast<LONG>(std::min(dash, longestDash)), all_.scaleX())));
    return ExtCreatePen(pen.style, static_cast<DWORD>(std::max<LONG>(1, width)), &pen.brush,
                        static_cast<DWORD>(dashes.size()), dashes.data());
}

void MetafilePlayer::preparePen() {
    if (!penIsStale_) return;
    penIsStale_ = false;
    const PenRecord& pen = state_.pen;
    const LONG width = pen.width > 0 ? std::max<LONG>(1, scaledLength(pen.width, all_.scaleX())) : 0;
    const HPEN made = pen.isExtended ? extendedPen(pen, width)
                                     : CreatePen(static_cast<int>(pen.style), width, pen.brush.lbColor);
    if (!made) return;
    SelectObject(dc_, made);
    if (pen_) DeleteObject(pen_);
    pen_ = made;
}

bool MetafilePlayer::takesUnits() const {
    constexpr double smallest = 1e-4;
    constexpr double largest = 1e4;
    constexpr double farthest = 1e9;
    const auto isSensible = [](double scale, double offset) {
        return std::fabs(scale) >= smallest && std::fabs(scale) <= largest && std::fabs(offset) <= farthest;
    };
    return all_.isUpright() && isSensible(all_.m11, all_.dx) && isSensible(all_.m22, all_.dy);
}

LOGFONTW MetafilePlayer::fontInPixels() const {
    LOGFONTW font = state_.font;
    const LONG angle = angleOf(all_);
    font.lfHeight = scaledLength(font.lfHeight, all_.scaleY());
    if (font.lfHeight == 0 && state_.font.lfHeight != 0) font.lfHeight = state_.font.lfHeight < 0 ? -1 : 1;
    font.lfWidth = std::abs(scaledLength(font.lfWidth, all_.scaleX()));
    font.lfEscapement = font.lfEscapement % wholeTurn + angle;
    font.lfOrientation = font.lfOrientation % wholeTurn + angle;
    return font;
}

void MetafilePlayer::prepareFont() {
    if (!fontIsStale_) return;
    fontIsStale_ = false;
    const LOGFONTW font = takesUnits() ? state_.font : fontInPixels();
    const HFONT made = CreateFontIndirectW(&font);
    SelectObject(dc_, made);
    if (font_) DeleteObject(font_);
    font_ = made;
}

void MetafilePlayer::clipToBase() {
    if (!baseClip_) return;
    target_.state.clip = target_.state.clip ? target_.state.clip->intersected(*baseClip_) : *baseClip_;
    target_.clipChanged();
}

void MetafilePlayer::offsetClip(RecordReader& reader) {
    const POINT by = reader.value<POINT>();
    if (reader.failed()) return;
    const POINT from = toTarget(0, 0);
    const POINT to = toTarget(by);
    OffsetClipRgn(dc_, to.x - from.x, to.y - from.y);
    clipToBase();
}

void MetafilePlayer::excludeClipRect(RecordReader& reader) {
    const RECT r = toTarget(reader.value<RECT>());
    if (!reader.failed()) ExcludeClipRect(dc_, r.left, r.top, r.right, r.bottom);
}

void MetafilePlayer::intersectClipRect(RecordReader& reader) {
    const RECT r = toTarget(reader.value<RECT>());
    if (!reader.failed()) IntersectClipRect(dc_, r.left, r.top, r.right, r.bottom);
}

std::optional<Region> MetafilePlayer::readRegion(RecordReader& reader, DWORD size) {
    constexpr DWORD headerSize = 32;
    const DWORD ownSize = reader.number();
    reader.skip(sizeof(DWORD));
    const DWORD count = reader.number();
    reader.skip(sizeof(DWORD) + sizeof(RECT));
    if (ownSize != headerSize || size < headerSize || count > (size - headerSize) / sizeof(RECT) ||
        reader.left() < count * sizeof(RECT)) {
        reader.fail();
        return std::nullopt;
    }
    std::vector<RECT> rectangles;
    for (DWORD i = 0; i < count; ++i)
        rectangles.push_back(ordered(reader.value<RECT>()));
    if (rectangles.size() > mostUnordered && !areBanded(rectangles)) {
        reader.fail();
        return std::nullopt;
    }
    return unionOf(rectangles);
}

void MetafilePlayer::selectClipPath(RecordReader& reader) {
    const auto mode = static_cast<int>(reader.number());
    if (reader.failed()) return;
    SelectClipPath(dc_, mode);
    clipToBase();
}

void MetafilePlayer::selectClipRegion(RecordReader& reader) {
    const DWORD size = reader.number();
    const auto mode = static_cast<int>(reader.number());
    if (size == 0 && mode == RGN_COPY) {
        target_.state.clip = baseClip_;
        target_.clipChanged();
        return;
    }
    const std::optional<Region> device = readRegion(reader, size);
    if (!device) return;
    // The region counts in the recording device's pixels.
    std::vector<RECT> rectangles;
    for (const RECT& r : device->rectangles()) {
        const RealPoint a = base_.apply({static_cast<double>(r.left), static_cast<double>(r.top)});
        const RealPoint b = base_.apply({static_cast<double>(r.right), static_cast<double>(r.bottom)});
        rectangles.push_back(ordered({roundedCoordinate(a.x), roundedCoordinate(a.y), roundedCoordinate(b.x),
                                      roundedCoordinate(b.y)}));
    }
    const HRGN region = CreateRectRgn(0, 0, 0, 0);
    find<RegionObject>(region)->region = unionOf(rectangles);
    ExtSelectClipRgn(dc_, region, mode);
    DeleteObject(region);
    clipToBase();
}

} // namespace platform::driver
