#pragma once
// The records of enhanced metafiles: their numbers, writing and reading.

#include "platform/metafiles.h"

#include <algorithm>
#include <cstring>
#include <vector>

namespace platform::driver {

/// What a record does. The names are the format's, without EMR_.
enum class RecordType : DWORD {
    Header = 1,
    PolyBezier = 2,
    Polygon = 3,
    Polyline = 4,
    PolyBezierTo = 5,
    PolylineTo = 6,
    PolyPolyline = 7,
    PolyPolygon = 8,
    SetWindowExtEx = 9,
    SetWindowOrgEx = 10,
    SetViewportExtEx = 11,
    SetViewportOrgEx = 12,
    SetBrushOrgEx = 13,
    Eof = 14,
    SetPixelV = 15,
    SetMapMode = 17,
    SetBkMode = 18,
    SetPolyFillMode = 19,
    SetRop2 = 20,
    SetStretchBltMode = 21,
    SetTextAlign = 22,
    SetTextColor = 24,
    SetBkColor = 25,
    OffsetClipRgn = 26,
    MoveToEx = 27,
    ExcludeClipRect = 29,
    IntersectClipRect = 30,
    ScaleViewportExtEx = 31,
    ScaleWindowExtEx = 32,
    SaveDC = 33,
    RestoreDC = 34,
    SetWorldTransform = 35,
    ModifyWorldTransform = 36,
    SelectObject = 37,
    CreatePen = 38,
    CreateBrushIndirect = 39,
    DeleteObject = 40,
    AngleArc = 41,
    Ellipse = 42,
    Rectangle = 43,
    RoundRect = 44,
    Arc = 45,
    Chord = 46,
    Pie = 47,
    ExtFloodFill = 53,
    LineTo = 54,
    ArcTo = 55,
    PolyDraw = 56,
    SetArcDirection = 57,
    SetMiterLimit = 58,
    BeginPath = 59,
    EndPath = 60,
    CloseFigure = 61,
    FillPath = 62,
    StrokeAndFillPath = 63,
    StrokePath = 64,
    FlattenPath = 65,
    WidenPath = 66,
    SelectClipPath = 67,
    AbortPath = 68,
    GdiComment = 70,
    FillRgn = 71,
    FrameRgn = 72,
    InvertRgn = 73,
    PaintRgn = 74,
    ExtSelectClipRgn = 75,
    BitBlt = 76,
    StretchBlt = 77,
    MaskBlt = 78,
    PlgBlt = 79,
    SetDIBitsToDevice = 80,
    StretchDIBits = 81,
    ExtCreateFontIndirectW = 82,
    ExtTextOutA = 83,
    ExtTextOutW = 84,
    PolyBezier16 = 85,
    Polygon16 = 86,
    Polyline16 = 87,
    PolyBezierTo16 = 88,
    PolylineTo16 = 89,
    PolyPolyline16 = 90,
    PolyPolygon16 = 91,
    PolyDraw16 = 92,
    CreateMonoBrush = 93,
    CreateDibPatternBrushPt = 94,
    ExtCreatePen = 95,
    SmallTextOut = 108,
    AlphaBlend = 114,
    TransparentBlt = 116,
    GradientFill = 118,
    SetTextJustification = 120,
};

/// In SelectObject the number of a stock object has this bit.
inline constexpr DWORD stockObjectBit = 0x80000000;

/// The matrix of a record's source or world, as it lies in the file.
struct FileTransform {
    float m11 = 1;
    float m12 = 0;
    float m21 = 0;
    float m22 = 1;
    float dx = 0;
    float dy = 0;
};

/// Appends one record to the bytes of a metafile; its size is filled in at the end of the writer's life.
class RecordWriter {
public:
    RecordWriter(std::vector<BYTE>& bytes, RecordType type) : bytes_(bytes), start_(bytes.size()) {
        value(static_cast<DWORD>(type));
        value(DWORD{0});
    }
    /// One that begins with the bounds of what it draws.
    RecordWriter(std::vector<BYTE>& bytes, RecordType type, const RECT& bounds) : RecordWriter(bytes, type) {
        value(bounds);
    }
    ~RecordWriter() {
        pad();
        put(sizeof(DWORD), static_cast<DWORD>(size()));
    }
    RecordWriter(const RecordWriter&) = delete;
    RecordWriter& operator=(const RecordWriter&) = delete;

    /// Bytes written so far, the record's type and size included.
    std::size_t size() const { return bytes_.size() - start_; }

    /// A number, a record of numbers or several of them, each as it lies in memory.
    template <class Value>
    RecordWriter& value(const Value& v) {
        return block(&v, sizeof v);
    }
    RecordWriter& block(const void* data, std::size_t count) {
        const auto* from = static_cast<const BYTE*>(data);
        bytes_.insert(bytes_.end(), from, from + count);
        return *this;
    }
    /// Zeros up to a multiple of four bytes.
    RecordWriter& pad() {
        while (size() % sizeof(DWORD) != 0)
            bytes_.push_back(0);
        return *this;
    }
    /// Sets a number written before, such as the offset of what follows.
    void put(std::size_t offset, DWORD v) { std::memcpy(bytes_.data() + start_ + offset, &v, sizeof v); }

private:
    std::vector<BYTE>& bytes_;
    std::size_t start_;
};

/// Reads a record in order or by offset. What lies past its end reads as zeros and sets `failed`.
class RecordReader {
public:
    explicit RecordReader(std::span<const BYTE> record) : record_(record), at_(sizeof(ENHMETARECORD)) {}

    bool failed() const { return failed_; }
    void fail() { failed_ = true; }
    std::size_t left() const { return record_.size() - at_; }

    template <class Value>
    Value value() {
        Value v{};
        if (left() < sizeof v) {
            failed_ = true;
            at_ = record_.size();
            return v;
        }
        std::memcpy(static_cast<void*>(&v), record_.data() + at_, sizeof v);
        at_ += sizeof v;
        return v;
    }
    DWORD number() { return value<DWORD>(); }
    LONG integer() { return value<LONG>(); }
    void skip(std::size_t count) {
        if (count > left()) failed_ = true;
        at_ += std::min(count, left());
    }
    /// The bytes at an offset from the record's beginning; empty when they are not all in it.
    std::span<const BYTE> at(std::uint64_t offset, std::uint64_t count) {
        if (offset > record_.size() || count > record_.size() - offset) {
            failed_ = true;
            return {};
        }
        return record_.subspan(static_cast<std::size_t>(offset), static_cast<std::size_t>(count));
    }

private:
    std::span<const BYTE> record_;
    std::size_t at_;
    bool failed_ = false;
};

} // namespace platform::driver
