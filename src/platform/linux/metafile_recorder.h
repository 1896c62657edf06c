#pragma once
// Writes what is drawn on a context as records of an enhanced metafile.
//
// The state of the context is not recorded when it is set: before a drawing, what has changed since the last
// one is written. So a state that nothing is drawn with leaves no trace, and SaveDC needs no record. Only
// extents under MM_ISOTROPIC are recorded at once: what they were before they were fitted is nowhere else.

#include "platform/linux/device_context.h"
#include "platform/linux/metafile.h"
#include "platform/linux/metafile_records.h"

#include <string>
#include <unordered_map>

namespace platform::driver {

/// What CreateEnhMetaFile was given.
struct RecordingTarget {
    std::u16string file; ///< Empty for memory
    std::optional<RECT> frame;
    std::u16string description; ///< With its NULs
};

/// The source of a blit.
struct BlitSource {
    DeviceContext& context;
    RECT area; ///< Logical units of that context; mirrored when right lies left of left
};

class MetafileRecorder {
public:
    MetafileRecorder(DeviceContext& context, HDC reference, RecordingTarget target);

    /// Writes the end and the header. No bytes when the file can't be written.
    std::vector<BYTE> finish();

    // Each writes one drawing, in logical units of the context. What is drawn within an open path bracket is
    // not handed here: the path is, when it is used.

    void lineTo(POINT end);
    /// Polyline, Polygon, PolyBezier and those that begin at the current position.
    void points(RecordType type, const POINT* points, std::size_t count);
    void polyPoints(RecordType type, const POINT* points, const DWORD* counts, std::size_t figures);
    void polyDraw(const POINT* points, const BYTE* types, std::size_t count);
    /// Rectangle or Ellipse.
    void box(RecordType type, const RECT& r);
    void roundRect(const RECT& r, SIZE corner);
    /// Arc, ArcTo, Chord or Pie.
    void arc(RecordType type, const RECT& r, POINT start, POINT end);
    void pixel(POINT at, COLORREF color);
    void floodFill(POINT at, COLORREF color, UINT mode);
    /// The path of the context, which StrokePath, FillPath or StrokeAndFillPath is about to use up.
    void path(RecordType type, const std::vector<POINT>& devicePoints, const std::vector<BYTE>& types);

    /// A rectangle under an operation without source, in the selected brush or another.
    void patternBlit(const RECT& r, DWORD rop);
    void fill(const RECT& r, const Brush& brush, DWORD rop = PATCOPY);
    void frame(const RECT& r, const Brush& brush);
    void focusRect(const RECT& r);
    void region(RecordType type, const Region& region, const Brush* brush, SIZE frame = {});

    void blit(const RECT& target, const BlitSource& source, DWORD rop);
    /// A copy under MAKEROP4; `source` is null where neither operation has one.
    void maskedBlit(const RECT& target, DeviceContext* source, const RECT& sourceArea, const Bitmap& mask,
                    POINT maskFrom, DWORD rop);
    /// PlgBlt, with its three corners.
    void parallelogram(const POINT* corners, const BlitSource& source, const Bitmap* mask, POINT maskFrom);
    /// AlphaBlend, whose `parameter` is the blend function, or TransparentBlt, where it is the colour.
    void blend(RecordType type, const RECT& target, const BlitSource& source, DWORD parameter);
    void gradient(std::span<const TRIVERTEX> vertices, const void* meshes, DWORD meshCount, DWORD mode);
    void icon(const Icon& icon, const RECT& r, UINT flags);

    void text(POINT at, UINT options, const RECT* rect, std::u16string_view text, const INT* advances);
    void comment(std::span<const BYTE> data);

    /// Writes what a program has asked for under MM_ISOTROPIC, which players fit themselves: the extents have
    /// changed from those of `before`. `viewport` is what the viewport's was fitted from; null where it was
    /// only fitted anew.
    void extentsFitted(const Mapping& before, const SIZE* viewport = nullptr);

private:
    /// A picture as it goes into a record: top row first.
    struct Pixels {
        int width = 0;
        int height = 0;
        std::vector<std::uint32_t> words;
    };

    /// A device-independent bitmap as it goes into a record.
    struct Dib {
        std::vector<BYTE> header; ///< With its colours
        std::vector<BYTE> bits;
    };

    /// The state as the records written so far have left it.
    struct Written {
        std::uint32_t brush = 0;
        std::uint32_t pen = 0;
        std::uint32_t font = 0;
        COLORREF dcBrushColor = 0x00FFFFFF;
        COLORREF dcPenColor = 0;
        COLORREF textColor = 0;
        COLORREF backColor = 0x00FFFFFF;
        int backMode = OPAQUE;
        int rop2 = R2_COPYPEN;
        int polyFillMode = ALTERNATE;
        int stretchMode = BLACKONWHITE;
        int arcDirection = AD_COUNTERCLOCKWISE;
        UINT textAlign = 0;
        POINT brushOrigin;
        std::optional<POINT> position;
        Mapping mapping;
        std::optional<Region> clip;
    };

    void writeFigures(const std::vector<POINT>& points, const std::vector<BYTE>& types);
    RecordWriter record(RecordType type);
    /// A record that begins with its bounds.
    RecordWriter drawing(RecordType type, const RECT& bounds);
    static void writeBits(RecordWriter& writer, std::size_t offsets, const Pixels& pixels);
    static void writeDib(RecordWriter& writer, std::size_t offsets, const Dib& dib);
    Dib dibOf(const Bitmap& bitmap, int depth) const;
    void number(RecordType type, DWORD value);
    template <class Value>
    void changed(Value& written, Value value, RecordType type);

    // State: metafile_recorder_state.cpp.
    void writeState();
    void writeMapping();
    void writeClip();
    void writePosition();
    void writeTextState();
    void select(std::uint32_t& written, std::uint32_t handle);
    DWORD tableEntry(std::uint32_t handle);
    DWORD newEntry();
    void dropEntries();
    void writePen(DWORD entry, const Pen& pen);
    void writeExtendedPen(DWORD entry, const Pen& pen);
    void writeBrush(DWORD entry, const Brush& brush);
    void writePatternBrush(DWORD entry, const Bitmap& pattern);
    void writeFont(DWORD entry, const LOGFONTW& font);
    static std::size_t regionSize(const Region& region);
    static void writeRegion(RecordWriter& writer, const Region& region);

    // Bits: metafile_recorder_blits.cpp.
    void writeBlit(RecordType type, const RECT& target, const Pixels& pixels, DWORD parameter);
    Pixels pixelsOf(const BlitSource& source, RECT& target) const;
    std::optional<Pixels> iconPixels(const Bitmap& bitmap, const RECT& area) const;

    RECT addBounds(const POINT* points, std::size_t count);
    RECT addBounds(const RECT& logical);
    RECT addDeviceBounds(RECT device);
    std::vector<BYTE> wholeHeader() const;

    DeviceContext& context_;
    RecordingTarget target_;
    SIZE deviceSize_;
    SIZE deviceMillimetres_;
    std::vector<BYTE> bytes_;
    DWORD records_ = 1; ///< The header
    Written written_;
    std::unordered_map<std::uint32_t, DWORD> table_; ///< Objects by handle
    DWORD entries_ = 1;
    RECT bounds_{}; ///< Device units; empty until something is drawn
};

} // namespace platform::driver
