#pragma once
// Plays the records of an enhanced metafile on a context.
//
// The player keeps the records' coordinate system itself and draws in pixels of the target: pens and
// distances are scaled before they are handed on. Upright text alone is drawn in the records' units. Records
// come from files of any origin, so nothing in them is believed: a record that contradicts itself is left
// out.

#include "platform/linux/blit.h"
#include "platform/linux/device_context.h"
#include "platform/linux/metafile.h"
#include "platform/linux/metafile_transform.h"
#include "platform/pictures.h"

#include <variant>

namespace platform::driver {

/// The union of any rectangles.
Region unionOf(std::span<const RECT> rectangles);

class MetafilePlayer {
public:
    /// `rect` is where the frame comes to lie, in logical units of the target.
    MetafilePlayer(HDC dc, DeviceContext& target, const Metafile& metafile, const RECT& rect);
    ~MetafilePlayer();
    MetafilePlayer(const MetafilePlayer&) = delete;
    MetafilePlayer& operator=(const MetafilePlayer&) = delete;

    /// False when some record was broken.
    bool play();

private:
    struct PenRecord {
        DWORD style = PS_SOLID;
        LONG width = 0;
        LOGBRUSH brush;
        std::vector<DWORD> dashes;
        bool isExtended = false;
    };
    /// A brush of the platform, deleted with its entry.
    class BrushEntry {
    public:
        explicit BrushEntry(HBRUSH brush) : brush_(brush) {}
        ~BrushEntry() { DeleteObject(brush_); }
        BrushEntry(const BrushEntry&) = delete;
        BrushEntry& operator=(const BrushEntry&) = delete;
        HBRUSH handle() const { return brush_; }

    private:
        HBRUSH brush_;
    };
    using Entry = std::variant<std::monostate, PenRecord, std::shared_ptr<BrushEntry>, LOGFONTW>;

    /// What SaveDC keeps besides the state of the target.
    struct State {
        MetafileMapping mapping;
        PenRecord pen;
        LOGFONTW font;
        int arcDirection = AD_COUNTERCLOCKWISE;
        POINT position; ///< As the last record that only moves has it
    };

    /// A text of a record, in the record's units.
    struct RecordedText {
        POINT at;
        DWORD options = 0;
        RECT box;
        std::u16string characters;
        std::vector<INT> advances; ///< None, or one for each character
    };

    /// Where the bits of a picture lie in a record.
    struct BitsPlace {
        DWORD usage = 0;
        DWORD headerAt = 0;
        DWORD headerSize = 0;
        DWORD bitsAt = 0;
        DWORD bitsSize = 0;
    };

    /// What records of copies begin with.
    struct CopyStart {
        POINT at;
        SIZE size;
        DWORD operation = 0; ///< Of rasters, or how to blend
        POINT from;
        BitsPlace place;

        RECT target() const { return rectOf(at.x, at.y, size.cx, size.cy); }
        RECT source() const { return rectOf(from.x, from.y, size.cx, size.cy); }
    };

    /// A picture of a record, selected into a context of its own.
    class Picture;

    using Handler = void (MetafilePlayer::*)(RecordReader&);
    struct Binding {
        RecordType type;
        Handler handler;
    };
    static const Binding bindings[];
    /// Rectangles in no order, of which a union may be made of as many squared.
    static constexpr std::size_t mostUnordered = 1024;
    static Handler handlerOf(DWORD type);

    // State: metafile_player_state.cpp.
    void setWindowExtent(RecordReader&);
    void setWindowOrigin(RecordReader&);
    void setViewportExtent(RecordReader&);
    void setViewportOrigin(RecordReader&);
    void scaleWindowExtent(RecordReader&);
    void scaleViewportExtent(RecordReader&);
    void setMapMode(RecordReader&);
    void setWorldTransform(RecordReader&);
    void modifyWorldTransform(RecordReader&);
    void setBrushOrigin(RecordReader&);
    template <auto Function>
    void setNumber(RecordReader&);
    void setTextJustification(RecordReader&);
    void setArcDirection(RecordReader&);
    void setMiterLimit(RecordReader&);
    void moveTo(RecordReader&);
    void saveState(RecordReader&);
    void restoreState(RecordReader&);
    void selectObject(RecordReader&);
    void deleteObject(RecordReader&);
    void createPen(RecordReader&);
    void createExtendedPen(RecordReader&);
    void createBrush(RecordReader&);
    void createMonoBrush(RecordReader&);
    void createPatternBrush(RecordReader&);
    void createFont(RecordReader&);
    void offsetClip(RecordReader&);
    void excludeClipRect(RecordReader&);
    void intersectClipRect(RecordReader&);
    void selectClipRegion(RecordReader&);
    void selectClipPath(RecordReader&);

    // Shapes: metafile_player_shapes.cpp.
    template <auto Function, class Coordinate>
    void drawPoints(RecordReader&);
    template <class Coordinate>
    void drawPolyPolygon(RecordReader&);
    template <class Coordinate>
    void drawPolyPolyline(RecordReader&);
    void lineTo(RecordReader&);
    void setPixel(RecordReader&);
    void drawRectangle(RecordReader&);
    void drawEllipse(RecordReader&);
    void drawRoundRect(RecordReader&);
    template <auto Function>
    void drawArc(RecordReader&);
    void drawAngleArc(RecordReader&);
    template <class Coordinate>
    void drawMixed(RecordReader&);
    void fillFlood(RecordReader&);
    template <auto Function>
    void call(RecordReader&);
    void fillRegion(RecordReader&);
    void frameRegion(RecordReader&);
    template <auto Function>
    void drawRegion(RecordReader&);
    HBRUSH brushOf(DWORD index) const;
    /// A region in pixels of the target; none when it comes out turned and of too many rectangles.
    std::optional<Region> onTarget(const Region& logical) const;
    HRGN targetRegion(RecordReader& reader, DWORD size);
    void drawText(RecordReader&, bool isWide);
    void drawTextA(RecordReader&);
    void drawTextW(RecordReader&);
    void drawSmallText(RecordReader&);
    void drawString(const RecordedText& text);
    /// True where text can be drawn in the units of the records: these are upright and neither tiny nor huge.
    bool takesUnits() const;
    void drawInUnits(const RecordedText& text);
    void drawInPixels(const RecordedText& text);
    void output(const RecordedText& text);

    // Pictures: metafile_player_blits.cpp.
    void bitBlt(RecordReader&);
    void maskBlt(RecordReader&);
    void plgBlt(RecordReader&);
    template <class Draw>
    void readStretch(RecordReader& reader, const Draw& draw);
    void stretchBlt(RecordReader&);
    void alphaBlend(RecordReader&);
    void transparentBlt(RecordReader&);
    void setDIBitsToDevice(RecordReader&);
    void stretchDIBits(RecordReader&);
    void fillGradient(RecordReader&);
    void blit(const RECT& target, const Picture& picture, const RECT& source, DWORD rop);
    void fillBox(const RECT& target, DWORD rop);
    std::optional<PictureData> pictureAt(RecordReader& reader, const BitsPlace& place);
    /// A bitmap of 1 bit, the caller's; none when it is broken.
    HBITMAP maskAt(RecordReader& reader, const BitsPlace& place);
    /// What the set bits of a mask cover on the target; see `onTarget`.
    std::optional<Region> maskedArea(POINT at, const Bitmap& mask, const RECT& part) const;
    template <class Draw>
    void drawWithin(const Region& region, const Draw& draw);
    static BitsPlace readPlace(RecordReader&);
    static CopyStart readCopyStart(RecordReader&);

    void setEntry(DWORD index, Entry entry);
    void useMapping();
    void clipToBase();
    std::optional<Region> readRegion(RecordReader& reader, DWORD size);
    void preparePen();
    HPEN extendedPen(const PenRecord& pen, LONG width) const;
    /// The font at the size and angle that it has on the target.
    LOGFONTW fontInPixels() const;
    void prepareFont();

    POINT toTarget(double x, double y) const;
    POINT toTarget(POINT p) const { return toTarget(p.x, p.y); }
    /// A rectangle whose right and bottom lie one past the last; it may come out mirrored.
    RECT toTarget(const RECT& r) const;

    HDC dc_;
    DeviceContext& target_;
    const Metafile& metafile_;
    ENHMETAHEADER header_;
    Transform base_; ///< From the recording device's pixels to the target's
    Transform all_;  ///< From logical units to the target's pixels
    State state_;
    std::vector<State> saved_;
    std::vector<Entry> entries_;
    std::optional<Region> baseClip_;
    HPEN pen_;
    HFONT font_;
    bool penIsStale_ = true;
    bool fontIsStale_ = true;
    std::int64_t pixelsLeft_; ///< What the pictures of one metafile may take in all
};

} // namespace platform::driver
