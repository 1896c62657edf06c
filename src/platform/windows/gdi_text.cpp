// Fonts and text: forwards to the system.

#include "platform/gdi.h"

#include "platform/windows/callbacks.h"
#include "platform/windows/convert.h"

#include <set>
#include <string>

namespace platform {

using driver::afterCallbacks;
using driver::as;
using driver::guarded;
using driver::handleFrom;
using driver::native;
using driver::wide;

HFONT CreateFontIndirectW(const LOGFONTW* data) {
    return handleFrom<HFONT>(::CreateFontIndirectW(as<::LOGFONTW>(data)));
}

HFONT CreateFontA(int height, int width, int escapement, int orientation, int weight, DWORD italic,
                  DWORD underline, DWORD strikeOut, DWORD charSet, DWORD outPrecision, DWORD clipPrecision,
                  DWORD quality, DWORD pitchAndFamily, const char* faceName) {
    return handleFrom<HFONT>(::CreateFontA(height, width, escapement, orientation, weight, italic, underline,
                                           strikeOut, charSet, outPrecision, clipPrecision, quality,
                                           pitchAndFamily, faceName));
}

BOOL TextOutW(HDC dc, int x, int y, const char16_t* text, int length) {
    return ::TextOutW(native(dc), x, y, wide(text), length);
}

BOOL TextOutA(HDC dc, int x, int y, const char* text, int length) {
    return ::TextOutA(native(dc), x, y, text, length);
}

BOOL ExtTextOutW(HDC dc, int x, int y, UINT options, const RECT* rect, const char16_t* text, UINT length,
                 const INT* advances) {
    return ::ExtTextOutW(native(dc), x, y, options, as<::RECT>(rect), wide(text), length, advances);
}

BOOL ExtTextOutA(HDC dc, int x, int y, UINT options, const RECT* rect, const char* text, UINT length,
                 const INT* advances) {
    return ::ExtTextOutA(native(dc), x, y, options, as<::RECT>(rect), text, length, advances);
}

int DrawTextW(HDC dc, const char16_t* text, int length, RECT* rect, UINT format) {
    return ::DrawTextW(native(dc), wide(text), length, as<::RECT>(rect), format);
}

int DrawTextA(HDC dc, const char* text, int length, RECT* rect, UINT format) {
    return ::DrawTextA(native(dc), text, length, as<::RECT>(rect), format);
}

BOOL GetTextExtentPoint32W(HDC dc, const char16_t* text, int length, SIZE* size) {
    return ::GetTextExtentPoint32W(native(dc), wide(text), length, as<::SIZE>(size));
}

BOOL GetTextExtentPoint32A(HDC dc, const char* text, int length, SIZE* size) {
    return ::GetTextExtentPoint32A(native(dc), text, length, as<::SIZE>(size));
}

BOOL GetTextExtentExPointW(HDC dc, const char16_t* text, int length, int maxExtent, INT* fit, INT* extents,
                           SIZE* size) {
    return ::GetTextExtentExPointW(native(dc), wide(text), length, maxExtent, fit, extents, as<::SIZE>(size));
}

BOOL GetTextExtentExPointA(HDC dc, const char* text, int length, int maxExtent, INT* fit, INT* extents,
                           SIZE* size) {
    return ::GetTextExtentExPointA(native(dc), text, length, maxExtent, fit, extents, as<::SIZE>(size));
}

BOOL GetTextMetricsW(HDC dc, TEXTMETRICW* metrics) {
    return ::GetTextMetricsW(native(dc), as<::TEXTMETRICW>(metrics));
}

BOOL GetTextMetricsA(HDC dc, TEXTMETRICA* metrics) {
    return ::GetTextMetricsA(native(dc), as<::TEXTMETRICA>(metrics));
}

BOOL GetCharWidth32W(HDC dc, UINT first, UINT last, INT* widths) {
    // Not every version of the system looks at the order before it reads the table.
    if (last < first) return FALSE_;
    return ::GetCharWidth32W(native(dc), first, last, widths);
}

BOOL GetCharWidth32A(HDC dc, UINT first, UINT last, INT* widths) {
    if (last < first) return FALSE_;
    return ::GetCharWidth32A(native(dc), first, last, widths);
}

BOOL GetCharABCWidthsW(HDC dc, UINT first, UINT last, ABC* widths) {
    if (last < first) return FALSE_;
    return ::GetCharABCWidthsW(native(dc), first, last, as<::ABC>(widths));
}

int GetTextFaceW(HDC dc, int size, char16_t* name) {
    return ::GetTextFaceW(native(dc), size, wide(name));
}

namespace {

struct Enumeration {
    const FontEnumerator& each;
    bool families;
    std::set<std::u16string> seen;
};

/// The system tells a family once for each of its scripts; the ring tells it once.
int CALLBACK passFont(const ::LOGFONTW* font, const ::TEXTMETRICW* metrics, ::DWORD type,
                      ::LPARAM parameter) {
    auto& enumeration = *reinterpret_cast<Enumeration*>(parameter);
    ENUMLOGFONTEXW data;
    TEXTMETRICW measures;
    *as<::ENUMLOGFONTEXW>(&data) = *reinterpret_cast<const ::ENUMLOGFONTEXW*>(font);
    *as<::TEXTMETRICW>(&measures) = *metrics;
    if (enumeration.families && !enumeration.seen.insert(data.elfLogFont.lfFaceName).second) return 1;
    return guarded(0, [&] { return enumeration.each(data, measures, type); });
}

} // namespace

int EnumFontFamiliesExW(HDC dc, const LOGFONTW* filter, const FontEnumerator& each) {
    ::LOGFONTW wanted{};
    if (filter)
        wanted = *as<::LOGFONTW>(filter);
    else
        wanted.lfCharSet = DEFAULT_CHARSET;
    Enumeration enumeration{each, wanted.lfFaceName[0] == 0, {}};
    return afterCallbacks(
        ::EnumFontFamiliesExW(native(dc), &wanted, passFont, reinterpret_cast<::LPARAM>(&enumeration), 0));
}

} // namespace platform
