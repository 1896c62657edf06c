// Text: output at a point, extents, metrics and the list of fonts.

#include "platform/gdi.h"
#include "platform/linux/colors.h"
#include "platform/linux/metafile_recorder.h"
#include "platform/linux/painter.h"
#include "platform/linux/text_measure.h"
#include "platform/linux/text_painter.h"
#include "platform/locale.h"

#include <algorithm>
#include <limits>

namespace platform::driver {

namespace {

/// The face of the context's font; null when the system has no font.
FontFace* faceOf(DeviceContext& context) {
    Font& font = context.font();
    if (!font.face) font.face = FontFace::get(font.data);
    return font.face.get();
}

/// The same for drawing: a surface of few colours takes pictures made without smoothing.
std::shared_ptr<FontFace> drawingFaceOf(DeviceContext& context) {
    faceOf(context);
    const Font& font = context.font();
    if (canSmooth(*context.surface)) return font.face;
    LOGFONTW plain = font.data;
    plain.lfQuality = NONANTIALIASED_QUALITY;
    return FontFace::get(plain);
}

/// Gives each character the distance to the next: the program's own, or the font's with the extra space of
/// the context.
class Advances {
public:
    Advances(const ContextState& state, FontFace& face, const INT* given)
        : state_(state), face_(face), given_(given) {
        if (state.breakCount > 0) {
            perBreak_ = state.breakExtra / state.breakCount;
            breaksWithOneMore_ = state.breakExtra % state.breakCount;
        }
    }

    /// True when the distances are other than the pictures' own.
    bool areSet() const { return given_ || state_.characterExtra != 0 || state_.breakCount > 0; }

    int next(char16_t character) {
        if (given_) return *given_++;
        int width = face_.advance(character) + state_.characterExtra;
        if (character == u' ' && state_.breakCount > 0) {
            width += perBreak_;
            if (breaksWithOneMore_ > 0) {
                ++width;
                --breaksWithOneMore_;
            }
        }
        return width;
    }

private:
    const ContextState& state_;
    FontFace& face_;
    const INT* given_;
    int perBreak_ = 0;
    int breaksWithOneMore_ = 0;
};

int widthOf(const ContextState& state, FontFace& face, std::u16string_view text, const INT* given) {
    Advances advances(state, face, given);
    std::int64_t width = 0;
    for (const char16_t c : text)
        width += advances.next(c);
    return boundedCoordinate(width);
}

/// Where the left end of the base line lies for the alignment of the context.
POINT baseLine(const ContextState& state, const TEXTMETRICW& metrics, POINT at, int width) {
    constexpr UINT horizontal = TA_CENTER;
    constexpr UINT vertical = TA_BASELINE;
    if ((state.textAlign & horizontal) == TA_CENTER) at.x -= width / 2;
    if ((state.textAlign & horizontal) == TA_RIGHT) at.x -= width;
    switch (state.textAlign & vertical) {
    case TA_TOP:
        at.y += metrics.tmAscent;
        break;
    case TA_BOTTOM:
        at.y -= metrics.tmDescent;
        break;
    default:
        break;
    }
    return at;
}

void fillBackground(DeviceContext& context, const RECT& r) {
    Painter(context, backPixelOf(context), rop3Of(PATCOPY)).fill(r);
}

void drawTextLine(DeviceContext& context, const RECT* clip, int x, int width, int y, const TextLine& line) {
    RECT r{x, y - line.top, x + width, y - line.top + line.height};
    if (clip) r = intersection(r, *clip);
    Painter(context, pixelOf(context, context.state.textColor), rop3Of(PATCOPY)).fill(r);
}

/// Leaves the current position behind the text, as TA_UPDATECP asks for.
void advancePosition(DeviceContext& context, int width) {
    constexpr UINT horizontal = TA_CENTER;
    switch (context.state.textAlign & horizontal) {
    case TA_LEFT:
        context.state.position.x += width;
        break;
    case TA_RIGHT:
        context.state.position.x -= width;
        break;
    default:
        break;
    }
}

struct TextOutput {
    std::u16string_view text;
    const INT* advances = nullptr;
    const RECT* clip = nullptr; ///< On the surface
    bool backgroundDone = false;
};

void drawText(DeviceContext& context, FontFace& face, POINT at, const TextOutput& output) {
    const TEXTMETRICW& metrics = face.metrics();
    const int width = widthOf(context.state, face, output.text, output.advances);
    const bool followsPosition = (context.state.textAlign & TA_UPDATECP) != 0;
    POINT start = context.toSurface(followsPosition ? context.state.position : at);
    start = baseLine(context.state, metrics, start, width);
    if (context.state.backMode == OPAQUE && !output.backgroundDone) {
        const RECT cell{start.x, start.y - metrics.tmAscent, start.x + width, start.y + metrics.tmDescent};
        fillBackground(context, output.clip ? intersection(cell, *output.clip) : cell);
    }
    TextPainter painter(context, output.clip);
    Advances advances(context.state, face, output.advances);
    std::int64_t x = start.x;
    for (const char16_t c : output.text) {
        const Glyph& glyph = face.glyph(c);
        painter.draw(glyph, boundedCoordinate(x), start.y);
        x += advances.areSet() ? advances.next(c) : glyph.advance;
    }
    const LOGFONTW& font = context.font().data;
    if (font.lfUnderline) drawTextLine(context, output.clip, start.x, width, start.y, face.underline());
    if (font.lfStrikeOut) drawTextLine(context, output.clip, start.x, width, start.y, face.strikeOut());
    if (followsPosition) advancePosition(context, width);
}

} // namespace

TextBox measureText(DeviceContext& context, POINT at, std::u16string_view text, const INT* given) {
    TextBox box;
    FontFace* face = faceOf(context);
    if (!face) return box;
    Advances advances(context.state, *face, given);
    for (const char16_t c : text)
        box.advances.push_back(advances.next(c));
    const int width = widthOf(context.state, *face, text, given);
    const bool follows = (context.state.textAlign & TA_UPDATECP) != 0;
    const POINT start = baseLine(context.state, face->metrics(),
                                 context.toSurface(follows ? context.state.position : at), width);
    box.bounds = {start.x, start.y - face->metrics().tmAscent, start.x + width,
                  start.y + face->metrics().tmDescent};
    return box;
}

namespace {

/// As the room for GetTextExtentExPoint: everything fits.
constexpr int noLimit = -1;

bool isLength(int length, const void* text) {
    return length >= 0 && (text || length == 0);
}

std::u16string wideText(const char* text, int length) {
    return wideFromAnsi(std::string_view(text ? text : "", static_cast<std::size_t>(length)));
}

template <std::size_t Size>
void copyName(std::u16string_view name, char16_t (&out)[Size]) {
    out[name.copy(out, Size - 1)] = 0;
}

/// A character of a font's metrics as a byte; those beyond are told as the last one.
BYTE narrowLimit(char16_t character) {
    constexpr char16_t last = 0xFF;
    return static_cast<BYTE>(std::min(character, last));
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
    if (context->recorder) context->recorder->text({x, y}, options, rect, {text, length}, advances);
    RECT area;
    if (rect) area = ordered(context->toSurface(*rect));
    const bool isOpaque = rect && (options & ETO_OPAQUE) != 0;
    if (isOpaque) fillBackground(*context, area);
    const std::shared_ptr<FontFace> face = length > 0 ? drawingFaceOf(*context) : nullptr;
    if (!face) return TRUE_;
    TextOutput output{std::u16string_view(text, length), advances, nullptr, false};
    if (rect && (options & ETO_CLIPPED) != 0) output.clip = &area;
    drawText(*context, *face, {x, y}, output);
    return TRUE_;
}

BOOL ExtTextOutA(HDC dc, int x, int y, UINT options, const RECT* rect, const char* text, UINT length,
                 const INT* advances) {
    if (!text && length > 0) return FALSE_;
    const std::u16string wide = wideText(text, static_cast<int>(length));
    return ExtTextOutW(dc, x, y, options, rect, wide.data(), static_cast<UINT>(wide.size()), advances);
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
    FontFace* face = faceOf(*context);
    if (!face) return FALSE_;
    Advances advances(context->state, *face, nullptr);
    std::int64_t width = 0;
    int fitting = 0;
    for (int i = 0; i < length; ++i) {
        width += advances.next(text[i]);
        if (extents) extents[i] = boundedCoordinate(width);
        if ((maxExtent == noLimit || width <= maxExtent) && fitting == i) ++fitting;
    }
    if (fit) *fit = fitting;
    *size = {boundedCoordinate(width), face->metrics().tmHeight};
    return TRUE_;
}

BOOL GetTextExtentExPointA(HDC dc, const char* text, int length, int maxExtent, INT* fit, INT* extents,
                           SIZE* size) {
    if (!isLength(length, text)) return FALSE_;
    const std::u16string wide = wideText(text, length);
    return GetTextExtentExPointW(dc, wide.data(), static_cast<int>(wide.size()), maxExtent, fit, extents,
                                 size);
}

BOOL GetTextMetricsW(HDC dc, TEXTMETRICW* metrics) {
    DeviceContext* context = find<DeviceContext>(dc);
    FontFace* face = context ? faceOf(*context) : nullptr;
    if (!face || !metrics) return FALSE_;
    *metrics = face->metrics();
    metrics->tmUnderlined = context->font().data.lfUnderline;
    metrics->tmStruckOut = context->font().data.lfStrikeOut;
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
                narrowLimit(wide.tmFirstChar),
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
    FontFace* face = context ? faceOf(*context) : nullptr;
    constexpr UINT lastCharacter = 0xFFFF;
    if (!face || !widths || first > last || last > lastCharacter) return FALSE_;
    for (UINT c = first; c <= last; ++c)
        widths[c - first] = face->advance(static_cast<char16_t>(c));
    return TRUE_;
}

BOOL GetCharWidth32A(HDC dc, UINT first, UINT last, INT* widths) {
    DeviceContext* context = find<DeviceContext>(dc);
    FontFace* face = context ? faceOf(*context) : nullptr;
    constexpr UINT lastCharacter = 0xFF;
    if (!face || !widths || first > last || last > lastCharacter) return FALSE_;
    for (UINT c = first; c <= last; ++c) {
        const char byte = static_cast<char>(c);
        widths[c - first] = face->advance(wideText(&byte, 1).front());
    }
    return TRUE_;
}

int GetTextFaceW(HDC dc, int size, char16_t* name) {
    DeviceContext* context = find<DeviceContext>(dc);
    FontFace* face = context ? faceOf(*context) : nullptr;
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
