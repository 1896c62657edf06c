// The state of a recorded context, written when something is drawn with it.

#include "platform/linux/metafile_recorder.h"

#include <algorithm>

namespace platform::driver {

namespace {

/// Objects that the metafile's table holds before those not selected make room.
constexpr std::size_t mostEntries = 1024;

/// The stock's number of an object as records name it; 0 for one that is not of the stock.
DWORD stockNumber(std::uint32_t handle) {
    for (int index = 0; index < DC_BRUSH; ++index)
        if (stockObject(index) == handle && handle != 0) return stockObjectBit | static_cast<DWORD>(index);
    return 0;
}

} // namespace

template <class Value>
void MetafileRecorder::changed(Value& written, Value value, RecordType type) {
    if (written == value) return;
    written = value;
    number(type, static_cast<DWORD>(value));
}

void MetafileRecorder::writeState() {
    const ContextState& state = context_.state;
    writeMapping();
    writeClip();
    changed(written_.backMode, state.backMode, RecordType::SetBkMode);
    changed(written_.backColor, state.backColor, RecordType::SetBkColor);
    changed(written_.textColor, state.textColor, RecordType::SetTextColor);
    changed(written_.rop2, state.rop2, RecordType::SetRop2);
    changed(written_.polyFillMode, state.polyFillMode, RecordType::SetPolyFillMode);
    changed(written_.stretchMode, state.stretchMode, RecordType::SetStretchBltMode);
    changed(written_.arcDirection, state.arcDirection, RecordType::SetArcDirection);
    if (written_.brushOrigin != state.brushOrigin) {
        written_.brushOrigin = state.brushOrigin;
        record(RecordType::SetBrushOrgEx).value(state.brushOrigin);
    }
    // The context's own colours have no records: they become a new object each time they change.
    if (written_.dcBrushColor != state.dcBrushColor && written_.brush == stockObject(DC_BRUSH))
        written_.brush = 0;
    if (written_.dcPenColor != state.dcPenColor && written_.pen == stockObject(DC_PEN)) written_.pen = 0;
    select(written_.brush, state.brush.value);
    select(written_.pen, state.pen.value);
}

void MetafileRecorder::writeMapping() {
    const Mapping& now = context_.state.mapping;
    Mapping& last = written_.mapping;
    const bool scaleChanged =
        now.windowExtent != last.windowExtent || now.viewportExtent != last.viewportExtent;
    const bool originChanged =
        now.windowOrigin != last.windowOrigin || now.viewportOrigin != last.viewportOrigin;
    if (scaleChanged) {
        number(RecordType::SetMapMode, MM_ANISOTROPIC);
        record(RecordType::SetWindowExtEx).value(now.windowExtent);
        record(RecordType::SetViewportExtEx).value(now.viewportExtent);
    }
    if (now.windowOrigin != last.windowOrigin) record(RecordType::SetWindowOrgEx).value(now.windowOrigin);
    if (now.viewportOrigin != last.viewportOrigin)
        record(RecordType::SetViewportOrgEx).value(now.viewportOrigin);
    if (scaleChanged || originChanged) written_.position.reset();
    const int mode = scaleChanged ? MM_ANISOTROPIC : last.mode;
    last = now;
    last.mode = mode;
}

void MetafileRecorder::extentsFitted(const Mapping& before, const SIZE* viewport) {
    const Mapping& now = context_.state.mapping;
    if (now.mode != MM_ISOTROPIC) return;
    Mapping& last = written_.mapping;
    const bool goesOn = last.mode == MM_ISOTROPIC && last.windowExtent == before.windowExtent &&
                        last.viewportExtent == before.viewportExtent;
    if (!goesOn && !viewport) return; // what was asked for is not known: the fitted extents will be written
    if (!goesOn) number(RecordType::SetMapMode, MM_ISOTROPIC);
    if (!goesOn || now.windowExtent != before.windowExtent)
        record(RecordType::SetWindowExtEx).value(now.windowExtent);
    if (viewport) record(RecordType::SetViewportExtEx).value(*viewport);
    last.mode = MM_ISOTROPIC;
    last.windowExtent = now.windowExtent;
    last.viewportExtent = now.viewportExtent;
    written_.position.reset();
}

std::size_t MetafileRecorder::regionSize(const Region& region) {
    constexpr std::size_t headerSize = 32;
    return headerSize + region.rectangles().size() * sizeof(RECT);
}

void MetafileRecorder::writeRegion(RecordWriter& writer, const Region& region) {
    constexpr DWORD headerSize = 32;
    constexpr DWORD rectangles = 1;
    writer.value(headerSize)
        .value(rectangles)
        .value(static_cast<DWORD>(region.rectangles().size()))
        .value(static_cast<DWORD>(region.rectangles().size() * sizeof(RECT)))
        .value(region.bounds());
    for (const RECT& r : region.rectangles())
        writer.value(r);
}

void MetafileRecorder::writeClip() {
    const std::optional<Region>& now = context_.state.clip;
    if (written_.clip == now) return;
    written_.clip = now;
    record(RecordType::ExtSelectClipRgn).value(DWORD{0}).value(DWORD{RGN_COPY});
    if (!now) return;
    const Mapping& mapping = context_.state.mapping;
    if (now->rectangles().size() == 1 && mapping.isUnscaled()) {
        // A rectangle has a record of its own, which more programs know than that of a region.
        const RECT& r = now->rectangles().front();
        const POINT topLeft = mapping.toLogical(POINT{r.left, r.top});
        record(RecordType::IntersectClipRect)
            .value(RECT{topLeft.x, topLeft.y, topLeft.x + r.right - r.left, topLeft.y + r.bottom - r.top});
        return;
    }
    // Some programs take a region only as one that narrows the clipping.
    RecordWriter writer = record(RecordType::ExtSelectClipRgn);
    writer.value(static_cast<DWORD>(regionSize(*now))).value(DWORD{RGN_AND});
    writeRegion(writer, *now);
}

void MetafileRecorder::writePosition() {
    if (written_.position == context_.state.position) return;
    written_.position = context_.state.position;
    record(RecordType::MoveToEx).value(context_.state.position);
}

void MetafileRecorder::writeTextState() {
    changed(written_.textAlign, context_.state.textAlign, RecordType::SetTextAlign);
    select(written_.font, context_.state.font.value);
}

void MetafileRecorder::select(std::uint32_t& written, std::uint32_t handle) {
    if (written == handle) return;
    const DWORD entry = tableEntry(handle);
    written = handle;
    number(RecordType::SelectObject, entry);
}

DWORD MetafileRecorder::newEntry() {
    if (table_.size() >= mostEntries) dropEntries();
    return entries_++;
}

void MetafileRecorder::dropEntries() {
    for (auto entry = table_.begin(); entry != table_.end();) {
        const bool isSelected =
            entry->first == written_.brush || entry->first == written_.pen || entry->first == written_.font;
        if (!isSelected) number(RecordType::DeleteObject, entry->second);
        entry = isSelected ? std::next(entry) : table_.erase(entry);
    }
}

DWORD MetafileRecorder::tableEntry(std::uint32_t handle) {
    if (const DWORD stock = stockNumber(handle)) return stock;
    const bool hasOwnColor = handle == stockObject(DC_BRUSH) || handle == stockObject(DC_PEN);
    const auto found = table_.find(handle);
    if (found != table_.end() && !hasOwnColor) return found->second;
    const DWORD entry = newEntry();
    const Object* object = findObject(handle);
    switch (object->kind) {
    case HandleKind::Pen:
        writePen(entry, static_cast<const Pen&>(*object));
        break;
    case HandleKind::Brush:
        writeBrush(entry, static_cast<const Brush&>(*object));
        break;
    default:
        writeFont(entry, static_cast<const Font&>(*object).data);
        break;
    }
    table_[handle] = entry;
    return entry;
}

void MetafileRecorder::writePen(DWORD entry, const Pen& pen) {
    if (pen.extended) {
        writeExtendedPen(entry, pen);
        return;
    }
    LOGPEN data = pen.data;
    if (pen.handle == stockObject(DC_PEN)) {
        written_.dcPenColor = context_.state.dcPenColor;
        data.lopnColor = written_.dcPenColor;
    }
    record(RecordType::CreatePen).value(entry).value(data);
}

void MetafileRecorder::writeExtendedPen(DWORD entry, const Pen& pen) {
    RecordWriter writer = record(RecordType::ExtCreatePen);
    writer.value(entry);
    for (int i = 0; i < 4; ++i)
        writer.value(DWORD{0}); // no picture for its brush
    writer.value(pen.form | pen.data.lopnStyle)
        .value(static_cast<DWORD>(pen.data.lopnWidth.x))
        .value(pen.brush.lbStyle)
        .value(pen.brush.lbColor)
        .value(static_cast<DWORD>(pen.brush.lbHatch))
        .value(static_cast<DWORD>(pen.dashes.size()))
        .block(pen.dashes.data(), pen.dashes.size() * sizeof(DWORD));
}

void MetafileRecorder::writeBrush(DWORD entry, const Brush& brush) {
    if (brush.pattern) {
        writePatternBrush(entry, *brush.pattern);
        return;
    }
    COLORREF color = brush.data.lbColor;
    if (brush.handle == stockObject(DC_BRUSH)) {
        written_.dcBrushColor = context_.state.dcBrushColor;
        color = written_.dcBrushColor;
    }
    record(RecordType::CreateBrushIndirect)
        .value(entry)
        .value(brush.data.lbStyle)
        .value(color)
        .value(static_cast<DWORD>(brush.data.lbHatch));
}

void MetafileRecorder::writeFont(DWORD entry, const LOGFONTW& font) {
    constexpr std::size_t extendedSize = 320; ///< Names, version and PANOSE numbers follow the record
    RecordWriter writer = record(RecordType::ExtCreateFontIndirectW);
    writer.value(entry).value(font);
    const std::vector<BYTE> rest(extendedSize - sizeof font);
    writer.block(rest.data(), rest.size());
}

} // namespace platform::driver
