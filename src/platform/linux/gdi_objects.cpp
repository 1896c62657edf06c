// The stock of objects, and the making, selecting and ending of pens, brushes and fonts.

#include "platform/gdi.h"
#include "platform/linux/device_context.h"
#include "platform/linux/display_colors.h"
#include "platform/linux/metafile_recorder.h"
#include "platform/locale.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace platform::driver {

namespace {

constexpr int stockCount = defaultBitmapIndex + 1;

struct StockFont {
    int index;
    LONG height;
    LONG width;
    LONG weight;
    BYTE charSet;
    BYTE pitchAndFamily;
    const char16_t* face;
};

constexpr StockFont stockFonts[] = {
    {OEM_FIXED_FONT, 12, 0, FW_NORMAL, OEM_CHARSET, FIXED_PITCH | FF_MODERN, u""},
    {ANSI_FIXED_FONT, 12, 0, FW_NORMAL, ANSI_CHARSET, FIXED_PITCH | FF_MODERN, u"Courier"},
    {ANSI_VAR_FONT, 12, 0, FW_NORMAL, ANSI_CHARSET, VARIABLE_PITCH | FF_SWISS, u"MS Sans Serif"},
    {SYSTEM_FONT, 16, 7, FW_BOLD, ANSI_CHARSET, VARIABLE_PITCH | FF_SWISS, u"System"},
    {DEVICE_DEFAULT_FONT, 16, 0, FW_BOLD, ANSI_CHARSET, VARIABLE_PITCH | FF_SWISS, u"System"},
    {SYSTEM_FIXED_FONT, 16, 0, FW_NORMAL, ANSI_CHARSET, FIXED_PITCH | FF_MODERN, u"Courier"},
    {DEFAULT_GUI_FONT, -11, 0, FW_NORMAL, ANSI_CHARSET, VARIABLE_PITCH | FF_SWISS, u"MS Shell Dlg"},
};

struct StockColor {
    int index;
    UINT style;
    COLORREF color;
};

constexpr StockColor stockBrushes[] = {
    {WHITE_BRUSH, BS_SOLID, RGB(255, 255, 255)}, {LTGRAY_BRUSH, BS_SOLID, RGB(192, 192, 192)},
    {GRAY_BRUSH, BS_SOLID, RGB(128, 128, 128)},  {DKGRAY_BRUSH, BS_SOLID, RGB(64, 64, 64)},
    {BLACK_BRUSH, BS_SOLID, RGB(0, 0, 0)},       {NULL_BRUSH, BS_NULL, RGB(0, 0, 0)},
    {DC_BRUSH, BS_SOLID, RGB(255, 255, 255)},
};

constexpr StockColor stockPens[] = {
    {WHITE_PEN, PS_SOLID, RGB(255, 255, 255)},
    {BLACK_PEN, PS_SOLID, RGB(0, 0, 0)},
    {NULL_PEN, PS_NULL, RGB(0, 0, 0)},
    {DC_PEN, PS_SOLID, RGB(0, 0, 0)},
};

using Stock = std::array<std::uint32_t, stockCount>;

std::uint32_t addStock(std::unique_ptr<Object> object) {
    object->stock = true;
    return addObject(std::move(object));
}

std::unique_ptr<Object> makeStockFont(const StockFont& stock) {
    auto font = std::make_unique<Font>();
    font->data.lfHeight = stock.height;
    font->data.lfWidth = stock.width;
    font->data.lfWeight = stock.weight;
    font->data.lfCharSet = stock.charSet;
    font->data.lfPitchAndFamily = stock.pitchAndFamily;
    std::u16string_view(stock.face).copy(font->data.lfFaceName, LF_FACESIZE - 1);
    return font;
}

std::unique_ptr<Object> makeStockPalette() {
    auto palette = std::make_unique<Palette>();
    for (const std::uint32_t color : staticColors())
        palette->entries.push_back(paletteEntryOf(color));
    return palette;
}

Stock makeStock() {
    Stock result{};
    for (const StockFont& s : stockFonts)
        result[static_cast<std::size_t>(s.index)] = addStock(makeStockFont(s));
    for (const StockColor& s : stockBrushes) {
        auto brush = std::make_unique<Brush>();
        brush->data = {s.style, s.color, 0};
        result[static_cast<std::size_t>(s.index)] = addStock(std::move(brush));
    }
    for (const StockColor& s : stockPens) {
        auto pen = std::make_unique<Pen>();
        pen->data = {s.style, {}, s.color};
        result[static_cast<std::size_t>(s.index)] = addStock(std::move(pen));
    }
    result[DEFAULT_PALETTE] = addStock(makeStockPalette());
    result[defaultBitmapIndex] = addStock(makeBitmap(1, 1, 1));
    return result;
}

/// Puts `object` in the place of `current` and returns what was there.
template <class Kind>
HGDIOBJ exchange(Handle<Kind>& current, Object& object) {
    const std::uint32_t previous = current.value;
    retainObject(object);
    current = Handle<Kind>(object.handle);
    if (Object* last = findObject(previous)) releaseObject(*last);
    return HGDIOBJ(previous);
}

HGDIOBJ selectBitmap(DeviceContext& context, Bitmap& bitmap) {
    if (!context.isMemory) return {};
    if (bitmap.owner != 0 && bitmap.owner != context.handle) return {};
    const int depth = bitmap.surface.bitsPerPixel;
    if (!bitmap.isSection && depth != 1 && depth != displayBitsPerPixel()) return {};
    if (Bitmap* previous = context.selectedBitmap()) previous->owner = 0;
    if (!bitmap.stock) bitmap.owner = context.handle;
    context.surface = &bitmap.surface;
    context.visible = Region(RECT{0, 0, bitmap.surface.width, bitmap.surface.height});
    context.clipChanged();
    return exchange(context.bitmap, bitmap);
}

DWORD typeOf(const DeviceContext& context) {
    if (context.recorder) return OBJ_ENHMETADC;
    return context.isMemory ? OBJ_MEMDC : OBJ_DC;
}

DWORD typeOf(const Object& object) {
    switch (object.kind) {
    case HandleKind::DeviceContext:
        return typeOf(static_cast<const DeviceContext&>(object));
    case HandleKind::Bitmap:
        return OBJ_BITMAP;
    case HandleKind::Brush:
        return OBJ_BRUSH;
    case HandleKind::Pen:
        return static_cast<const Pen&>(object).extended ? OBJ_EXTPEN : OBJ_PEN;
    case HandleKind::Font:
        return OBJ_FONT;
    case HandleKind::Region:
        return OBJ_REGION;
    case HandleKind::Palette:
        return OBJ_PAL;
    case HandleKind::MetaFile:
        return OBJ_ENHMETAFILE;
    default:
        return 0;
    }
}

bool isHatch(std::uintptr_t style) {
    return style <= static_cast<std::uintptr_t>(HS_DIAGCROSS);
}

bool areDashes(const DWORD* dashes, DWORD count) {
    constexpr DWORD mostDashes = 16;
    return dashes && count >= 1 && count <= mostDashes &&
           std::all_of(dashes, dashes + count, [](DWORD length) { return static_cast<LONG>(length) >= 0; }) &&
           std::any_of(dashes, dashes + count, [](DWORD length) { return length > 0; });
}

/// A cosmetic pen is one pixel of a plain colour; only it can paint every second pixel, and only a geometric
/// one can stay inside its frame.
bool isExtendedPen(DWORD style, DWORD width, const LOGBRUSH& brush) {
    const int line = static_cast<int>(style & PS_STYLE_MASK);
    if (line > PS_ALTERNATE) return false;
    if ((style & PS_TYPE_MASK) == PS_GEOMETRIC) return line != PS_ALTERNATE && brush.lbStyle <= BS_HATCHED;
    return width == 1 && brush.lbStyle == BS_SOLID && line != PS_INSIDEFRAME;
}

HPEN addPen(UINT style, LONG width, COLORREF color) {
    if (style == static_cast<UINT>(PS_NULL)) return HPEN(stockObject(NULL_PEN));
    auto pen = std::make_unique<Pen>();
    pen->data.lopnStyle = style > static_cast<UINT>(PS_INSIDEFRAME) ? static_cast<UINT>(PS_SOLID) : style;
    pen->data.lopnWidth.x = std::abs(std::max<LONG>(width, -0x7FFFFFFF));
    pen->data.lopnColor = color;
    return HPEN(addObject(std::move(pen)));
}

HBRUSH addBrush(const LOGBRUSH& data) {
    auto brush = std::make_unique<Brush>();
    brush->data = data;
    return HBRUSH(addObject(std::move(brush)));
}

} // namespace

std::uint32_t stockObject(int index) {
    static const Stock instance = makeStock();
    return index >= 0 && index < stockCount ? instance[static_cast<std::size_t>(index)] : 0;
}

} // namespace platform::driver

namespace platform {

using namespace driver;

HGDIOBJ GetStockObject(int index) {
    return HGDIOBJ(index <= DC_PEN ? stockObject(index) : 0);
}

HGDIOBJ SelectObject(HDC dc, HGDIOBJ handle) {
    DeviceContext* context = find<DeviceContext>(dc);
    Object* object = findObject(handle.value);
    if (!context || !object) return {};
    switch (object->kind) {
    case HandleKind::Brush:
        return exchange(context->state.brush, *object);
    case HandleKind::Pen:
        return exchange(context->state.pen, *object);
    case HandleKind::Font:
        return exchange(context->state.font, *object);
    case HandleKind::Bitmap:
        return selectBitmap(*context, static_cast<Bitmap&>(*object));
    case HandleKind::Region:
        return HGDIOBJ(static_cast<std::uint32_t>(SelectClipRgn(dc, HRGN(handle.value))));
    default:
        return {};
    }
}

HGDIOBJ GetCurrentObject(HDC dc, DWORD type) {
    const DeviceContext* context = find<DeviceContext>(dc);
    if (!context) return {};
    switch (type) {
    case OBJ_PEN:
        return context->state.pen;
    case OBJ_BRUSH:
        return context->state.brush;
    case OBJ_FONT:
        return context->state.font;
    case OBJ_BITMAP:
        return context->bitmap;
    case OBJ_PAL:
        return context->palette;
    default:
        return {};
    }
}

BOOL DeleteObject(HGDIOBJ handle) {
    Object* object = findObject(handle.value);
    if (!object) return FALSE_;
    switch (object->kind) {
    case HandleKind::DeviceContext:
        return DeleteDC(HDC(handle.value));
    case HandleKind::Icon:
    case HandleKind::MetaFile:
        return FALSE_;
    default:
        deleteObject(*object);
        return TRUE_;
    }
}

DWORD GetObjectType(HGDIOBJ handle) {
    const Object* object = findObject(handle.value);
    return object ? typeOf(*object) : 0;
}

DWORD GetObjectType(HDC dc) {
    return GetObjectType(HGDIOBJ(dc.value));
}

BOOL GetObjectBrush(HBRUSH handle, LOGBRUSH* data) {
    const Brush* brush = find<Brush>(handle);
    if (!brush || !data) return FALSE_;
    *data = brush->data;
    return TRUE_;
}

BOOL GetObjectPen(HPEN handle, LOGPEN* data) {
    const Pen* pen = find<Pen>(handle);
    if (!pen || !data) return FALSE_;
    *data = pen->data;
    return TRUE_;
}

BOOL GetObjectFont(HFONT handle, LOGFONTW* data) {
    const Font* font = find<Font>(handle);
    if (!font || !data) return FALSE_;
    *data = font->data;
    return TRUE_;
}

DWORD GetGuiResources(DWORD flags) {
    if (flags == GR_USEROBJECTS) return handleCount(HandleKind::Icon);
    return flags == GR_GDIOBJECTS ? handleCount() - handleCount(HandleKind::Icon) : 0;
}

HBRUSH CreateSolidBrush(COLORREF color) {
    return addBrush({BS_SOLID, color, 0});
}

HBRUSH CreateHatchBrush(int style, COLORREF color) {
    if (!isHatch(static_cast<std::uintptr_t>(style))) return {};
    return addBrush({BS_HATCHED, color, static_cast<std::uintptr_t>(style)});
}

HBRUSH CreatePatternBrush(HBITMAP handle) {
    const Bitmap* source = find<Bitmap>(handle);
    if (!source) return {};
    auto brush = std::make_unique<Brush>();
    brush->data = {BS_PATTERN, 0, handle.value};
    brush->pattern = copyOf(*source);
    if (!brush->pattern) return {};
    return HBRUSH(addObject(std::move(brush)));
}

HBRUSH CreateBrushIndirect(const LOGBRUSH* data) {
    if (!data) return {};
    switch (data->lbStyle) {
    case BS_SOLID:
        return CreateSolidBrush(data->lbColor);
    case BS_NULL:
        return addBrush({BS_NULL, 0, 0});
    case BS_HATCHED:
        return isHatch(data->lbHatch) ? CreateHatchBrush(static_cast<int>(data->lbHatch), data->lbColor)
                                      : HBRUSH();
    case BS_PATTERN:
        return CreatePatternBrush(HBITMAP(static_cast<std::uint32_t>(data->lbHatch)));
    default:
        return {};
    }
}

HPEN CreatePen(int style, int width, COLORREF color) {
    return addPen(static_cast<UINT>(style), width, color);
}

HPEN CreatePenIndirect(const LOGPEN* data) {
    return data ? addPen(data->lopnStyle, data->lopnWidth.x, data->lopnColor) : HPEN();
}

HFONT CreateFontA(int height, int width, int escapement, int orientation, int weight, DWORD italic,
                  DWORD underline, DWORD strikeOut, DWORD charSet, DWORD outPrecision, DWORD clipPrecision,
                  DWORD quality, DWORD pitchAndFamily, const char* faceName) {
    LOGFONTW data{height,
                  width,
                  escapement,
                  orientation,
                  weight,
                  static_cast<BYTE>(italic),
                  static_cast<BYTE>(underline),
                  static_cast<BYTE>(strikeOut),
                  static_cast<BYTE>(charSet),
                  static_cast<BYTE>(outPrecision),
                  static_cast<BYTE>(clipPrecision),
                  static_cast<BYTE>(quality),
                  static_cast<BYTE>(pitchAndFamily),
                  {}};
    if (faceName) wideFromAnsi(faceName).copy(data.lfFaceName, LF_FACESIZE - 1);
    return CreateFontIndirectW(&data);
}

HPEN ExtCreatePen(DWORD style, DWORD width, const LOGBRUSH* brush, DWORD dashCount, const DWORD* dashes) {
    if (!brush) return {};
    const DWORD line = style & PS_STYLE_MASK;
    const bool isGeometric = (style & PS_TYPE_MASK) == PS_GEOMETRIC;
    const bool hasDashes = line == static_cast<DWORD>(PS_USERSTYLE);
    if (!isExtendedPen(style, width, *brush) || (hasDashes ? !areDashes(dashes, dashCount) : dashCount != 0))
        return {};
    if (line == static_cast<DWORD>(PS_NULL)) return HPEN(stockObject(NULL_PEN));
    auto pen = std::make_unique<Pen>();
    pen->data = {line, {isGeometric ? static_cast<LONG>(width) : 1, 0}, brush->lbColor};
    pen->extended = true;
    pen->form = style & ~PS_STYLE_MASK;
    pen->brush = *brush;
    if (hasDashes) pen->dashes.assign(dashes, dashes + dashCount);
    return HPEN(addObject(std::move(pen)));
}

HFONT CreateFontIndirectW(const LOGFONTW* data) {
    if (!data) return {};
    auto font = std::make_unique<Font>();
    font->data = *data;
    font->data.lfFaceName[LF_FACESIZE - 1] = 0;
    return HFONT(addObject(std::move(font)));
}

} // namespace platform
