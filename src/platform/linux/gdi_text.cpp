// Text: output at a point, extents, metrics and the list of fonts.

#include "platform/gdi.h"
#include "platform/linux/colors.h"
#include "platform/linux/metafile_recorder.h"
#include "platform/linux/painter.h"
#include "platform/linux/polygons.h"
#include "platform/linux/text_layout.h"
#include "platform/linux/text_measure.h"
#include "platform/linux/text_painter.h"
#include "platform/locale.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <limits>

namespace platform::driver {

namespace {

/// What the ground of text is filled with. On 1 bit a background that is neither of the two colours becomes
/// the other one than a text that is one of them.
std::uint32_t groundPixelOf(const DeviceContext& context) {
    const ContextState& state = context.state;
    const bool isOther = context.surface->bitsPerPixel == 1 && !isColorOfTwo(context, state.backColor) &&
                         isColorOfTwo(context, state.textColor);
    return isOther ? ~pixelOf(context, state.textColor) : backPixelOf(context);
}

/// Fills a strip of a text: a rectangle of a level text, within `clip` when given.
void fillStrip(DeviceContext& context, const std::array<POINT, 4>& corners, const Painter& painter,
               const RECT* clip, bool isLevel) {
    const auto fill = [&](const RECT& r) { painter.fill(clip ? intersection(r, *clip) : r); };
    if (isLevel) {
        fill(ordered({corners[0].x, corners[0].y, corners[2].x, corners[2].y}));
        return;
    }
    const Region strip = polygonRegion(corners, WINDING, context.drawable().bounds());
    for (const RECT& r : strip.rectangles())
        fill(r);
}

/// The lines of a face as they are told under the context's mapping: their measures in whole logical units,
/// those laid from the logical origin, and the thickness of a strike-out with the direction of the axis. No
/// line is thinner than a pixel.
TextLines linesOf(const DeviceContext& context, const FontFace& face) {
    const Mapping& mapping = context.state.mapping;
    const TextScale down = TextScale::down(context.state);
    if (!face.lines()) return TextLines::ofAscent(down.toPixels(down.toLogical(face.metrics().tmAscent)));
    TextLines lines = *face.lines();
    if (!mapping.isUnscaled()) {
        const auto whole = [&](int pixels) {
            const int length = mapping.sizeOnDevice({0, down.toLogical(pixels)}).cy;
            return pixels < 0 ? -length : length;
        };
        lines.underline = {whole(lines.underline.position), whole(lines.underline.height)};
        lines.strikeOut.position = whole(lines.strikeOut.position);
        const int sign = down.isReversed() ? -1 : 1;
        const int thickness = down.toLogical(std::int64_t{sign} * lines.strikeOut.height);
        const int least = thickness != 0 ? 1 : 0;
        lines.strikeOut.height = sign * std::max<int>(least, mapping.sizeOnDevice({0, thickness}).cy);
    }
    for (TextLine* line : {&lines.underline, &lines.strikeOut})
        if (line->height == 0) line->height = 1;
    return lines;
}

/// The underline and the strike-out that the font has, each as a strip. Lines are drawn as shapes are, with
/// corners at logical points.
std::vector<std::array<POINT, 4>> lineStrips(const DeviceContext& context, const FontFace& face,
                                             const TextLayout& layout) {
    std::vector<std::array<POINT, 4>> strips;
    const auto add = [&](const TextLine& line) {
        std::array<POINT, 4>& corners =
            strips.emplace_back(layout.strip(line.top(), line.top() - line.height));
        if (!context.state.mapping.isUnscaled())
            for (POINT& corner : corners)
                corner = context.toSurface(context.toLogical(corner));
    };
    const LOGFONTW& font = context.font().data;
    if (font.lfUnderline) add(linesOf(context, face).underline);
    if (font.lfStrikeOut) add(linesOf(context, face).strikeOut);
    return strips;
}

/// True when all that is drawn is characters from a point on: the place of the text's end does not matter.
bool isSimple(const DeviceContext& context) {
    const LOGFONTW& font = context.font().data;
    return context.state.backMode == TRANSPARENT && context.state.textAlign == 0 && font.lfUnderline == 0 &&
           font.lfStrikeOut == 0 && font.lfEscapement == 0 && context.state.mapping.isUnscaled();
}

void drawCharacters(DeviceContext& context, FontFace& face, POINT start, std::u16string_view text,
                    const RECT* clip) {
    TextPainter painter(context, clip);
    std::int64_t x = start.x;
    // Letters may lean out of their cells to the left, but not by more than this. What lies behind is not
    // made.
    const std::int64_t reach = std::int64_t{face.metrics().tmMaxCharWidth} + face.metrics().tmHeight;
    const std::int64_t end = context.drawable().bounds().right + reach;
    for (const char16_t c : text) {
        if (x >= end) return;
        const Glyph& glyph = face.glyph(c);
        painter.draw(glyph, boundedCoordinate(x), start.y);
        x += glyph.advance;
    }
}

void drawCharacters(DeviceContext& context, FontFace& face, const TextLayout& layout, const TextRun& run,
                    const RECT* clip) {
    TextPainter painter(context, clip);
    TextAdvances advances(context.state, face, run.advances);
    for (const char16_t c : run.text) {
        const Glyph& glyph = face.glyph(c);
        const POINT p = layout.point(advances);
        painter.draw(glyph, p.x, p.y);
        if (advances.areSet() || !layout.isLevel())
            advances.pass(c);
        else
            advances.pass(c, glyph.advance);
    }
}

/// Within a path bracket text is nothing but its outlines and lines.
void addTextToPath(DeviceContext& context, POINT at, const TextRun& run) {
    const std::shared_ptr<FontFace> drawn = drawingFaceOf(context);
    const std::shared_ptr<FontFace> measured = faceOf(context);
    if (!drawn || !measured) return;
    const TextLayout layout(context, *measured, at, run);
    Path& path = context.state.path;
    TextAdvances advances(context.state, *measured, run.advances);
    for (const char16_t c : run.text) {
        const POINT p = layout.point(advances);
        GlyphOutline outline = drawn->outline(c);
        for (POINT& point : outline.points)
            point = {boundedCoordinate(std::int64_t{point.x} + p.x),
                     boundedCoordinate(std::int64_t{point.y} + p.y)};
        if (!outline.points.empty()) path.add(outline.points, outline.types);
        advances.pass(c);
    }
    for (const std::array<POINT, 4>& strip : lineStrips(context, *measured, layout))
        path.add(std::array{strip[0], strip[1], strip[2], strip[3], strip[0]}, PT_LINETO, true);
    if ((context.state.textAlign & TA_UPDATECP) != 0) layout.advancePosition();
}

void drawText(DeviceContext& context, POINT at, const TextRun& run, const RECT* clip) {
    const std::shared_ptr<FontFace> drawn = drawingFaceOf(context);
    if (!drawn) return;
    if (!run.advances && context.state.characterExtra == 0 && context.state.breakCount == 0 &&
        isSimple(context)) {
        POINT start = context.toSurface(at);
        start.y += drawn->metrics().tmAscent;
        drawCharacters(context, *drawn, start, run.text, clip);
        return;
    }
    const std::shared_ptr<FontFace> measured = faceOf(context);
    const TextLayout layout(context, *measured, at, run);
    if (context.state.backMode == OPAQUE)
        fillStrip(context, layout.cell(), Painter(context, groundPixelOf(context), rop3Of(PATCOPY)), clip,
                  layout.isLevel());
    drawCharacters(context, *drawn, layout, run, clip);
    Brush brush;
    brush.data.lbStyle = BS_SOLID;
    brush.data.lbColor = context.state.textColor;
    for (const std::array<POINT, 4>& strip : lineStrips(context, *measured, layout))
        fillStrip(context, strip, Painter(context, brush, rop3Of(PATCOPY)), clip, layout.isLevel());
    if ((context.state.textAlign & TA_UPDATECP) != 0) layout.advancePosition();
}

} // namespace

TextBox measureText(DeviceContext& context, POINT at, std::u16string_view text, const INT* given) {
    TextBox box;
    const std::shared_ptr<FontFace> face = faceOf(context);
    if (!face) return box;
    for (std::size_t i = 0; i < text.size(); ++i) {
        // Each by itself, as if it were all of the text.
        TextAdvances advance(context.state, *face, given ? given + i : nullptr);
        advance.pass(text[i]);
        box.advances.push_back(advance.logical());
    }
    const TextLayout layout(context, *face, at, {text, given});
    const std::array<POINT, 4> corners = layout.cell();
    box.bounds = {corners[0].x, corners[0].y, corners[0].x, corners[0].y};
    for (const POINT& p : corners)
        box.bounds = {std::min(box.bounds.left, p.x), std::min(box.bounds.top, p.y),
                      std::max(box.bounds.right, p.x), std::max(box.bounds.bottom, p.y)};
    return box;
}

namespace {

/// As the room for GetTextExtentExPoint: everything fits.
constexpr int noLimit = -1;

bool isLength(int length, const void* text) {
    return length >= 0 && (text || length == 0);
}

/// Bytes of the ANSI code page as characters. Short texts, which most are, take no memory of their own.
class WideText {
public:
    WideText(const char* text, int length) : length_(length) {
        if (length <= shortest) {
            for (int i = 0; i < length; ++i)
                short_[static_cast<std::size_t>(i)] =
                    charactersOfBytes()[static_cast<unsigned char>(text[i])];
        } else {
            long_ = wideFromAnsi({text, static_cast<std::size_t>(length)});
        }
    }
    const char16_t* data() const { return length_ <= shortest ? short_.data() : long_.data(); }

private:
    static constexpr int shortest = 128;

    static const std::array<char16_t, 256>& charactersOfBytes() {
        static const std::array<char16_t, 256> table = [] {
            std::array<char16_t, 256> result{};
            for (std::size_t byte = 0; byte < result.size(); ++byte) {
                const char text = static_cast<char>(byte);
                result[byte] = wideFromAnsi({&text, 1}).front();
            }
            return result;
        }();
        return table;
    }

    int length_;
    std::array<char16_t, shortest> short_;
    std::u16string long_;
};

template <std::size_t Size>
void copyName(std::u16string_view name, char16_t (&out)[Size]) {
    out[name.copy(out, Size - 1)] = 0;
}

/// From pixels to logical units.
void scaleMetrics(const ContextState& state, TEXTMETRICW& metrics) {
    const TextScale down = TextScale::down(state);
    const TextScale across = TextScale::across(state);
    metrics.tmHeight = down.toLogical(metrics.tmHeight);
    metrics.tmAscent = down.toLogical(metrics.tmAscent);
    metrics.tmDescent = down.toLogical(metrics.tmDescent);
    metrics.tmInternalLeading = down.toLogical(metrics.tmInternalLeading);
    metrics.tmExternalLeading = down.toLogical(metrics.tmExternalLeading);
    metrics.tmAveCharWidth = across.toLogical(metrics.tmAveCharWidth);
    metrics.tmMaxCharWidth = across.toLogical(metrics.tmMaxCharWidth);
    metrics.tmOverhang = across.toLogical(metrics.tmOverhang);
}

/// A character of a font's metrics as a byte; those beyond are told as the last one.
BYTE narrowLimit(char16_t character) {
    constexpr char16_t last = 0xFF;
    return static_cast<BYTE>(std::min(character, last));
}

/// The first character as a byte: an outline font has it two places before the one that breaks words.
char16_t firstByte(const TEXTMETRICW& metrics) {
    const bool isOutline = (metrics.tmPitchAndFamily & TMPF_TRUETYPE) != 0;
    return isOutline ? static_cast<char16_t>(metrics.tmBreakChar - 2) : metrics.tmFirstChar;
}

/// A font of the list as a record, at the height that fonts without a size are reported in.
int reportFont(const FontEntry& entry, const FontEnumerator& each) {
    constexpr LONG reportedEm = 32;
    LOGFONTW request;
    request.lfHeight = -reportedEm;
    request.lfWeight = entry.source.isBold ? FW_BOLD : FW_NORMAL;
    request.lfItalic = entry.source.isItalic ? 1 : 0;
    copyName(entry.family, request.lfFaceName);
    const std::shared_ptr<FontFace> face = FontFace::get(request);
    if (!face) return 1;
    const TEXTMETRICW& metrics = face->metrics();
    const bool isOutline = (metrics.tmPitchAndFamily & TMPF_TRUETYPE) != 0;
    ENUMLOGFONTEXW font;
    font.elfLogFont = request;
    font.elfLogFont.lfHeight = metrics.tmHeight;
    font.elfLogFont.lfWidth = metrics.tmAveCharWidth;
    font.elfLogFont.lfWeight = metrics.tmWeight;
    font.elfLogFont.lfCharSet = metrics.tmCharSet;
    font.elfLogFont.lfPitchAndFamily = static_cast<BYTE>(
        (metrics.tmPitchAndFamily & 0xF0) |
        ((metrics.tmPitchAndFamily & TMPF_FIXED_PITCH) != 0 ? VARIABLE_PITCH : FIXED_PITCH));
    copyName(entry.family, font.elfFullName);
    copyName(entry.style, font.elfStyle);
    copyName(metrics.tmCharSet == SYMBOL_CHARSET ? u"Symbol" : u"Western", font.elfScript);
    return each(font, metrics, isOutline ? TRUETYPE_FONTTYPE : RASTER_FONTTYPE);
}

} // namespace

} // namespace platform::driver

namespace platform {

using namespace driver;

BOOL TextOutW(HDC dc, int x, int y, const char16_t* text, int length) {
    return isLength(length, text) &&
           ExtTextOutW(dc, x, y, 0, nullptr, text, static_cast<UINT>(length), nullptr);
}

BOOL TextOutA(HDC dc, int x, int y, const char* text, int length) {
    return isLength(length, text) &&
           ExtTextOutA(dc, x, y, 0, nullptr, text, static_cast<UINT>(length), nullptr);
}

BOOL ExtTextOutW(HDC dc, int x, int y, UINT options, const RECT* rect, const char16_t* text, UINT length,
                 const INT* advances) {
    DeviceContext* context = find<DeviceContext>(dc);
    constexpr UINT longest = std::numeric_limits<INT>::max();
    if (!context || (!text && length > 0) || length > longest) return FALSE_;
    const TextRun run{{text, length}, advances};
    if (context->state.path.isOpen()) {
        if (length > 0) addTextToPath(*context, {x, y}, run);
        return TRUE_;
    }
    if (context->recorder) context->recorder->text({x, y}, options, rect, run.text, advances);
    RECT area;
    if (rect) area = ordered(context->toSurface(*rect));
    if (rect && (options & ETO_OPAQUE) != 0)
        Painter(*context, groundPixelOf(*context), rop3Of(PATCOPY)).fill(area);
    if (length > 0) drawText(*context, {x, y}, run, rect && (options & ETO_CLIPPED) != 0 ? &area : nullptr);
    return TRUE_;
}

BOOL ExtTextOutA(HDC dc, int x, int y, UINT options, const RECT* rect, const char* text, UINT length,
                 const INT* advances) {
    if (!text && length > 0) return FALSE_;
    constexpr UINT longest = std::numeric_limits<INT>::max();
    if (length > longest) return FALSE_;
    const WideText wide(text, static_cast<int>(length));
    return ExtTextOutW(dc, x, y, options, rect, wide.data(), length, advances);
}

BOOL GetTextExtentPoint32W(HDC dc, const char16_t* text, int length, SIZE* size) {
    return GetTextExtentExPointW(dc, text, length, 0, nullptr, nullptr, size);
}

BOOL GetTextExtentPoint32A(HDC dc, const char* text, int length, SIZE* size) {
    return GetTextExtentExPointA(dc, text, length, 0, nullptr, nullptr, size);
}

BOOL GetTextExtentExPointW(HDC dc, const char16_t* text, int length, int maxExtent, INT* fit, INT* extents,
                           SIZE* size) {
    DeviceContext* context = find<DeviceContext>(dc);
    if (!context || !size || !isLength(length, text) || maxExtent < noLimit) return FALSE_;
    const std::shared_ptr<FontFace> face = faceOf(*context);
    if (!face) return FALSE_;
    TextAdvances advances(context->state, *face, nullptr);
    int fitting = 0;
    for (int i = 0; i < length; ++i) {
        advances.pass(text[i]);
        if ((!extents && !fit) || fitting < i) continue;
        const int width = advances.logical();
        const bool fits = width >= 0 && width <= maxExtent;
        if (fit && maxExtent != noLimit && !fits) continue; // without a count there is no limit
        if (extents) extents[i] = width;
        ++fitting;
    }
    if (fit) *fit = fitting;
    const int height = length > 0 ? face->metrics().tmHeight : 0; // no text has no size at all
    *size = {advances.logical(), TextScale::down(context->state).extentToLogical(height)};
    return TRUE_;
}

BOOL GetTextExtentExPointA(HDC dc, const char* text, int length, int maxExtent, INT* fit, INT* extents,
                           SIZE* size) {
    if (!isLength(length, text)) return FALSE_;
    const WideText wide(text, length);
    return GetTextExtentExPointW(dc, wide.data(), length, maxExtent, fit, extents, size);
}

BOOL GetTextMetricsW(HDC dc, TEXTMETRICW* metrics) {
    DeviceContext* context = find<DeviceContext>(dc);
    const std::shared_ptr<FontFace> face = context ? faceOf(*context) : nullptr;
    if (!face || !metrics) return FALSE_;
    constexpr BYTE yes = 255;
    *metrics = face->metrics();
    metrics->tmUnderlined = context->font().data.lfUnderline ? yes : 0;
    metrics->tmStruckOut = context->font().data.lfStrikeOut ? yes : 0;
    if (!context->state.mapping.isUnscaled()) scaleMetrics(context->state, *metrics);
    return TRUE_;
}

BOOL GetTextMetricsA(HDC dc, TEXTMETRICA* metrics) {
    TEXTMETRICW wide;
    if (!metrics || !GetTextMetricsW(dc, &wide)) return FALSE_;
    *metrics = {wide.tmHeight,
                wide.tmAscent,
                wide.tmDescent,
                wide.tmInternalLeading,
                wide.tmExternalLeading,
                wide.tmAveCharWidth,
                wide.tmMaxCharWidth,
                wide.tmWeight,
                wide.tmOverhang,
                wide.tmDigitizedAspectX,
                wide.tmDigitizedAspectY,
                narrowLimit(firstByte(wide)),
                narrowLimit(wide.tmLastChar),
                narrowLimit(wide.tmDefaultChar),
                narrowLimit(wide.tmBreakChar),
                wide.tmItalic,
                wide.tmUnderlined,
                wide.tmStruckOut,
                wide.tmPitchAndFamily,
                wide.tmCharSet};
    return TRUE_;
}

BOOL GetCharWidth32W(HDC dc, UINT first, UINT last, INT* widths) {
    DeviceContext* context = find<DeviceContext>(dc);
    const std::shared_ptr<FontFace> face = context ? faceOf(*context) : nullptr;
    constexpr UINT lastCharacter = 0xFFFF;
    if (!face || !widths || first > last || last > lastCharacter) return FALSE_;
    const TextScale across = TextScale::across(context->state);
    for (UINT c = first; c <= last; ++c)
        widths[c - first] = across.toLogical(face->advance(static_cast<char16_t>(c)));
    return TRUE_;
}

BOOL GetCharWidth32A(HDC dc, UINT first, UINT last, INT* widths) {
    DeviceContext* context = find<DeviceContext>(dc);
    const std::shared_ptr<FontFace> face = context ? faceOf(*context) : nullptr;
    constexpr UINT lastCharacter = 0xFF;
    if (!face || !widths || first > last || last > lastCharacter) return FALSE_;
    const TextScale across = TextScale::across(context->state);
    for (UINT c = first; c <= last; ++c) {
        const char byte = static_cast<char>(c);
        widths[c - first] = across.toLogical(face->advance(*WideText(&byte, 1).data()));
    }
    return TRUE_;
}

BOOL GetCharABCWidthsW(HDC dc, UINT first, UINT last, ABC* widths) {
    DeviceContext* context = find<DeviceContext>(dc);
    const std::shared_ptr<FontFace> face = context ? faceOf(*context) : nullptr;
    constexpr UINT lastCharacter = 0xFFFF;
    if (!face || !widths || first > last || last > lastCharacter) return FALSE_;
    if ((face->metrics().tmPitchAndFamily & TMPF_TRUETYPE) == 0) return FALSE_;
    const TextScale across = TextScale::across(context->state);
    for (UINT c = first; c <= last; ++c) {
        const InkSpan ink = face->ink(static_cast<char16_t>(c));
        const int advance = face->advance(static_cast<char16_t>(c));
        const int after = advance - ink.left - ink.width;
        const auto withSign = [&](int pixels) {
            return pixels < 0 ? -across.toLogical(-pixels) : across.toLogical(pixels);
        };
        widths[c - first] = {withSign(ink.left), static_cast<UINT>(across.toLogical(ink.width)),
                             withSign(after)};
    }
    return TRUE_;
}

int GetTextFaceW(HDC dc, int size, char16_t* name) {
    DeviceContext* context = find<DeviceContext>(dc);
    const std::shared_ptr<FontFace> face = context ? faceOf(*context) : nullptr;
    if (!face) return 0;
    const std::u16string& text = face->faceName();
    if (!name) return static_cast<int>(text.size()) + 1;
    if (size <= 0) return 0;
    const std::size_t copied = text.copy(name, static_cast<std::size_t>(size) - 1);
    name[copied] = 0;
    return static_cast<int>(copied) + 1;
}

int EnumFontFamiliesExW(HDC dc, const LOGFONTW* filter, const FontEnumerator& each) {
    if (!find<DeviceContext>(dc) || !each) return 0;
    const std::u16string_view family =
        filter ? std::u16string_view(filter->lfFaceName) : std::u16string_view();
    int result = 1;
    for (const FontEntry& entry : listFonts(family)) {
        result = reportFont(entry, each);
        if (result == 0) break;
    }
    return result;
}

std::vector<std::u16string> fontFamilies() {
    std::vector<std::u16string> names;
    for (const FontEntry& entry : listFonts({}))
        names.push_back(entry.family);
    std::sort(names.begin(), names.end());
    names.erase(std::unique(names.begin(), names.end()), names.end());
    return names;
}

} // namespace platform
