#include "platform/linux/metafile_recorder.h"

#include "platform/linux/blit.h"
#include "platform/linux/text_measure.h"

#include <algorithm>
#include <limits>

namespace platform::driver {

namespace {

constexpr RECT nothing{std::numeric_limits<LONG>::max(), std::numeric_limits<LONG>::max(),
                       std::numeric_limits<LONG>::min(), std::numeric_limits<LONG>::min()};
constexpr int micrometresPerMillimetre = 1000;
constexpr int hundredthsPerMillimetre = 100;

/// What is in a metafile takes numbers of 16 bits where they suffice.
constexpr bool isShort(LONG value) {
    return value >= std::numeric_limits<std::int16_t>::min() &&
           value <= std::numeric_limits<std::int16_t>::max();
}

bool areShort(const POINT* points, std::size_t count) {
    return std::all_of(points, points + count, [](POINT p) { return isShort(p.x) && isShort(p.y); });
}

/// The short form of a record of points.
RecordType shortForm(RecordType type) {
    switch (type) {
    case RecordType::PolyBezier:
        return RecordType::PolyBezier16;
    case RecordType::Polygon:
        return RecordType::Polygon16;
    case RecordType::Polyline:
        return RecordType::Polyline16;
    case RecordType::PolyBezierTo:
        return RecordType::PolyBezierTo16;
    case RecordType::PolylineTo:
        return RecordType::PolylineTo16;
    case RecordType::PolyPolyline:
        return RecordType::PolyPolyline16;
    case RecordType::PolyPolygon:
        return RecordType::PolyPolygon16;
    default:
        return RecordType::PolyDraw16;
    }
}

void writePoints(RecordWriter& writer, const POINT* points, std::size_t count, bool isNarrow) {
    for (std::size_t i = 0; i < count; ++i) {
        if (isNarrow)
            writer.value(static_cast<std::int16_t>(points[i].x))
                .value(static_cast<std::int16_t>(points[i].y));
        else
            writer.value(points[i]);
    }
}

void extend(RECT& box, POINT p) {
    box = {std::min(box.left, p.x), std::min(box.top, p.y), std::max(box.right, p.x),
           std::max(box.bottom, p.y)};
}

/// The form in which records tell rectangles.
RECT inclusive(const RECT& r) {
    return isEmpty(r) ? RECT{0, 0, -1, -1} : RECT{r.left, r.top, r.right - 1, r.bottom - 1};
}

LONG himetric(LONG pixels, LONG millimetres, LONG device) {
    return static_cast<LONG>(std::int64_t{pixels} * millimetres * hundredthsPerMillimetre /
                             std::max<LONG>(1, device));
}

} // namespace

MetafileRecorder::MetafileRecorder(DeviceContext& context, HDC reference, RecordingTarget target)
    : context_(context), target_(std::move(target)), deviceSize_{GetDeviceCaps(reference, HORZRES),
                                                                 GetDeviceCaps(reference, VERTRES)},
      deviceMillimetres_{GetDeviceCaps(reference, HORZSIZE), GetDeviceCaps(reference, VERTSIZE)},
      bounds_(nothing) {
    written_.brush = stockObject(WHITE_BRUSH);
    written_.pen = stockObject(BLACK_PEN);
    written_.font = stockObject(SYSTEM_FONT);
}

RecordWriter MetafileRecorder::record(RecordType type) {
    ++records_;
    return {bytes_, type};
}

RecordWriter MetafileRecorder::drawing(RecordType type, const RECT& bounds) {
    ++records_;
    return {bytes_, type, inclusive(bounds)};
}

void MetafileRecorder::number(RecordType type, DWORD value) {
    record(type).value(value);
}

RECT MetafileRecorder::addDeviceBounds(RECT device) {
    if (context_.state.clip) device = intersection(device, context_.state.clip->bounds());
    if (isEmpty(device)) return {};
    bounds_ = {std::min(bounds_.left, device.left), std::min(bounds_.top, device.top),
               std::max(bounds_.right, device.right), std::max(bounds_.bottom, device.bottom)};
    return device;
}

RECT MetafileRecorder::addBounds(const POINT* points, std::size_t count) {
    RECT box = nothing;
    for (std::size_t i = 0; i < count; ++i)
        extend(box, context_.toSurface(points[i]));
    // The pen reaches out by half of its width, and a pointed joint by more; a box may be too large.
    const LONG width = std::clamp<LONG>(context_.pen().data.lopnWidth.x, 0, 1 << 15);
    const POINT ends[] = {context_.toSurface(POINT{0, 0}), context_.toSurface(POINT{width, width})};
    const LONG reach = std::max(std::abs(ends[1].x - ends[0].x), std::abs(ends[1].y - ends[0].y));
    return addDeviceBounds(
        {box.left - reach, box.top - reach, box.right + reach + 1, box.bottom + reach + 1});
}

RECT MetafileRecorder::addBounds(const RECT& logical) {
    return addDeviceBounds(ordered(context_.toSurface(logical)));
}

void MetafileRecorder::lineTo(POINT end) {
    writeState();
    writePosition();
    const POINT both[] = {context_.state.position, end};
    addBounds(both, 2);
    record(RecordType::LineTo).value(end);
    written_.position = end;
}

void MetafileRecorder::points(RecordType type, const POINT* points, std::size_t count) {
    const bool continues = type == RecordType::PolylineTo || type == RecordType::PolyBezierTo;
    writeState();
    std::vector<POINT> all(points, points + count);
    if (continues) {
        writePosition();
        all.push_back(context_.state.position);
        written_.position = points[count - 1];
    }
    const RECT bounds = addBounds(all.data(), all.size());
    const bool isNarrow = areShort(points, count);
    RecordWriter writer = drawing(isNarrow ? shortForm(type) : type, bounds);
    writer.value(static_cast<DWORD>(count));
    writePoints(writer, points, count, isNarrow);
}

void MetafileRecorder::polyPoints(RecordType type, const POINT* points, const DWORD* counts,
                                  std::size_t figures) {
    writeState();
    std::size_t sum = 0;
    for (std::size_t i = 0; i < figures; ++i)
        sum += counts[i];
    const RECT bounds = addBounds(points, sum);
    const bool isNarrow = areShort(points, sum);
    RecordWriter writer = drawing(isNarrow ? shortForm(type) : type, bounds);
    writer.value(static_cast<DWORD>(figures)).value(static_cast<DWORD>(sum));
    writer.block(counts, figures * sizeof(DWORD));
    writePoints(writer, points, sum, isNarrow);
}

void MetafileRecorder::polyDraw(const POINT* points, const BYTE* types, std::size_t count) {
    if (count == 0) return;
    writeState();
    writePosition();
    const RECT bounds = addBounds(points, count);
    const bool isNarrow = areShort(points, count);
    RecordWriter writer = drawing(isNarrow ? RecordType::PolyDraw16 : RecordType::PolyDraw, bounds);
    writer.value(static_cast<DWORD>(count));
    writePoints(writer, points, count, isNarrow);
    writer.block(types, count);
    written_.position.reset();
}

void MetafileRecorder::box(RecordType type, const RECT& r) {
    writeState();
    const POINT corners[] = {{r.left, r.top}, {r.right, r.bottom}};
    addBounds(corners, 2);
    record(type).value(inclusive(ordered(r)));
}

void MetafileRecorder::roundRect(const RECT& r, SIZE corner) {
    writeState();
    const POINT corners[] = {{r.left, r.top}, {r.right, r.bottom}};
    addBounds(corners, 2);
    record(RecordType::RoundRect).value(inclusive(ordered(r))).value(corner);
}

void MetafileRecorder::arc(RecordType type, const RECT& r, POINT start, POINT end) {
    writeState();
    if (type == RecordType::ArcTo) writePosition();
    const POINT corners[] = {{r.left, r.top}, {r.right, r.bottom}, context_.state.position};
    addBounds(corners, type == RecordType::ArcTo ? 3 : 2);
    record(type).value(inclusive(ordered(r))).value(start).value(end);
    if (type == RecordType::ArcTo) written_.position.reset();
}

void MetafileRecorder::pixel(POINT at, COLORREF color) {
    writeState();
    addBounds(rectOf(boundedCoordinate(at.x), boundedCoordinate(at.y), 1, 1));
    record(RecordType::SetPixelV).value(at).value(color);
}

void MetafileRecorder::floodFill(POINT at, COLORREF color, UINT mode) {
    writeState();
    record(RecordType::ExtFloodFill).value(at).value(color).value(mode);
}

void MetafileRecorder::path(RecordType type, const std::vector<POINT>& devicePoints,
                            const std::vector<BYTE>& types) {
    if (devicePoints.empty()) return;
    writeState();
    std::vector<POINT> logical = devicePoints;
    for (POINT& p : logical)
        p = context_.state.mapping.toLogical(p);
    record(RecordType::BeginPath);
    writeFigures(logical, types);
    record(RecordType::EndPath);
    drawing(type, addBounds(logical.data(), logical.size()));
    written_.position.reset();
}

void MetafileRecorder::writeFigures(const std::vector<POINT>& points, const std::vector<BYTE>& types) {
    // Runs of one type become a record each: more programs know these than the one that mixes types.
    for (std::size_t i = 0; i < points.size();) {
        const int kind = types[i] & ~PT_CLOSEFIGURE;
        std::size_t end = i + 1;
        while (end < points.size() && kind != PT_MOVETO && (types[end] & ~PT_CLOSEFIGURE) == kind &&
               (types[end - 1] & PT_CLOSEFIGURE) == 0)
            ++end;
        if (kind == PT_MOVETO) {
            record(RecordType::MoveToEx).value(points[i]);
        } else {
            const bool isNarrow = areShort(&points[i], end - i);
            const RecordType whole = kind == PT_BEZIERTO ? RecordType::PolyBezierTo : RecordType::PolylineTo;
            RecordWriter writer = drawing(isNarrow ? shortForm(whole) : whole, {});
            writer.value(static_cast<DWORD>(end - i));
            writePoints(writer, &points[i], end - i, isNarrow);
        }
        if ((types[end - 1] & PT_CLOSEFIGURE) != 0) record(RecordType::CloseFigure);
        i = end;
    }
}

void MetafileRecorder::region(RecordType type, const Region& region, const Brush* brush, SIZE frame) {
    writeState();
    const DWORD entry = brush ? tableEntry(brush->handle) : 0;
    const RECT bounds = addBounds(region.bounds());
    const std::size_t size = regionSize(region);
    RecordWriter writer = drawing(type, bounds);
    writer.value(static_cast<DWORD>(size));
    if (brush) writer.value(entry);
    if (type == RecordType::FrameRgn) writer.value(frame);
    writeRegion(writer, region);
}

void MetafileRecorder::text(POINT at, UINT options, const RECT* rect, std::u16string_view text,
                            const INT* advances) {
    constexpr DWORD compatibleMode = 1;
    constexpr std::size_t fixedSize = 76;
    writeState();
    writeTextState();
    const bool follows = (context_.state.textAlign & TA_UPDATECP) != 0;
    if (follows) {
        writePosition();
        written_.position.reset();
    }
    const TextBox box = measureText(context_, at, text, advances);
    RECT bounds = text.empty() ? RECT{} : addDeviceBounds(box.bounds);
    if (rect && (options & ETO_OPAQUE) != 0) bounds = addBounds(*rect);
    const SIZE scale{context_.state.mapping.viewportExtent.cx, context_.state.mapping.viewportExtent.cy};
    const auto perUnit = [](LONG millimetres, LONG device, LONG viewport, LONG window) {
        return static_cast<float>(hundredthsPerMillimetre) * static_cast<float>(millimetres) /
               static_cast<float>(device) *
               std::abs(static_cast<float>(viewport) / static_cast<float>(window));
    };
    const SIZE window = context_.state.mapping.windowExtent;
    RecordWriter writer = drawing(RecordType::ExtTextOutW, bounds);
    writer.value(compatibleMode)
        .value(perUnit(deviceMillimetres_.cx, deviceSize_.cx, scale.cx, window.cx))
        .value(perUnit(deviceMillimetres_.cy, deviceSize_.cy, scale.cy, window.cy))
        .value(follows ? context_.state.position : at)
        .value(static_cast<DWORD>(text.size()))
        .value(static_cast<DWORD>(fixedSize))
        .value(options)
        .value(rect ? *rect : RECT{0, 0, -1, -1});
    const std::size_t offsetOfAdvances = writer.size();
    writer.value(DWORD{0}).block(text.data(), text.size() * sizeof(char16_t)).pad();
    writer.put(offsetOfAdvances, static_cast<DWORD>(writer.size()));
    for (const INT advance : box.advances)
        writer.value(advance);
}

void MetafileRecorder::comment(std::span<const BYTE> data) {
    record(RecordType::GdiComment).value(static_cast<DWORD>(data.size())).block(data.data(), data.size());
}

std::vector<BYTE> MetafileRecorder::wholeHeader() const {
    ENHMETAHEADER header;
    const bool isEmpty = bounds_.left > bounds_.right;
    header.rclBounds = isEmpty ? RECT{0, 0, -1, -1} : inclusive(bounds_);
    if (target_.frame) {
        header.rclFrame = *target_.frame;
    } else if (isEmpty) {
        header.rclFrame = {0, 0, -1, -1};
    } else {
        header.rclFrame = {himetric(bounds_.left, deviceMillimetres_.cx, deviceSize_.cx),
                           himetric(bounds_.top, deviceMillimetres_.cy, deviceSize_.cy),
                           himetric(bounds_.right, deviceMillimetres_.cx, deviceSize_.cx),
                           himetric(bounds_.bottom, deviceMillimetres_.cy, deviceSize_.cy)};
    }
    header.nDescription = static_cast<DWORD>(target_.description.size());
    header.offDescription = target_.description.empty() ? 0 : sizeof header;
    const std::size_t units = (target_.description.size() + 1) / 2 * 2;
    header.nSize = static_cast<DWORD>(sizeof header + units * sizeof(char16_t));
    header.nBytes = header.nSize + static_cast<DWORD>(bytes_.size());
    header.nRecords = records_;
    header.nHandles = static_cast<WORD>(entries_);
    header.szlDevice = deviceSize_;
    header.szlMillimeters = deviceMillimetres_;
    header.szlMicrometers = {deviceMillimetres_.cx * micrometresPerMillimetre,
                             deviceMillimetres_.cy * micrometresPerMillimetre};
    std::vector<BYTE> whole(header.nSize);
    std::memcpy(whole.data(), &header, sizeof header);
    std::memcpy(whole.data() + sizeof header, target_.description.data(),
                target_.description.size() * sizeof(char16_t));
    return whole;
}

std::vector<BYTE> MetafileRecorder::finish() {
    constexpr DWORD sizeOfEnd = 20;
    // No colours of a palette, whose offset is that of the size at the record's end.
    record(RecordType::Eof).value(DWORD{0}).value(DWORD{16}).value(sizeOfEnd);
    std::vector<BYTE> whole = wholeHeader();
    whole.insert(whole.end(), bytes_.begin(), bytes_.end());
    if (!target_.file.empty() && !writeMetafileFile(target_.file.c_str(), whole)) return {};
    return whole;
}

} // namespace platform::driver
