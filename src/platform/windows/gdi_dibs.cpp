// Device-independent pixels and palettes: forwards to the system.

#include "platform/gdi.h"

#include "platform/windows/convert.h"

namespace platform {

using driver::as;
using driver::handleFrom;
using driver::native;

namespace {

/// The ring's record has the longest colour table, the system's an open one.
::BITMAPINFO* dib(BITMAPINFO* info) {
    return reinterpret_cast<::BITMAPINFO*>(info);
}
const ::BITMAPINFO* dib(const BITMAPINFO* info) {
    return reinterpret_cast<const ::BITMAPINFO*>(info);
}

} // namespace

HBITMAP CreateDIBSection(HDC dc, const BITMAPINFO* info, UINT usage, void** bits, HANDLE section,
                         DWORD offset) {
    return handleFrom<HBITMAP>(
        ::CreateDIBSection(native(dc), dib(info), usage, bits, native(section), offset));
}

HBITMAP CreateDIBitmap(HDC dc, const BITMAPINFOHEADER* header, DWORD init, const void* bits,
                       const BITMAPINFO* info, UINT usage) {
    return handleFrom<HBITMAP>(
        ::CreateDIBitmap(native(dc), as<::BITMAPINFOHEADER>(header), init, bits, dib(info), usage));
}

int GetDIBits(HDC dc, HBITMAP bitmap, UINT start, UINT lines, void* bits, BITMAPINFO* info, UINT usage) {
    return ::GetDIBits(native(dc), native(bitmap), start, lines, bits, dib(info), usage);
}

int SetDIBits(HDC dc, HBITMAP bitmap, UINT start, UINT lines, const void* bits, const BITMAPINFO* info,
              UINT usage) {
    return ::SetDIBits(native(dc), native(bitmap), start, lines, bits, dib(info), usage);
}

int SetDIBitsToDevice(HDC dc, int x, int y, DWORD width, DWORD height, int xSource, int ySource, UINT start,
                      UINT lines, const void* bits, const BITMAPINFO* info, UINT usage) {
    return ::SetDIBitsToDevice(native(dc), x, y, width, height, xSource, ySource, start, lines, bits,
                               dib(info), usage);
}

int StretchDIBits(HDC dc, int x, int y, int width, int height, int xSource, int ySource, int widthSource,
                  int heightSource, const void* bits, const BITMAPINFO* info, UINT usage, DWORD rop) {
    return ::StretchDIBits(native(dc), x, y, width, height, xSource, ySource, widthSource, heightSource, bits,
                           dib(info), usage, rop);
}

UINT GetDIBColorTable(HDC dc, UINT start, UINT count, RGBQUAD* colors) {
    return ::GetDIBColorTable(native(dc), start, count, as<::RGBQUAD>(colors));
}

UINT SetDIBColorTable(HDC dc, UINT start, UINT count, const RGBQUAD* colors) {
    return ::SetDIBColorTable(native(dc), start, count, as<::RGBQUAD>(colors));
}

HPALETTE CreatePalette(const LOGPALETTE* data) {
    return handleFrom<HPALETTE>(::CreatePalette(reinterpret_cast<const ::LOGPALETTE*>(data)));
}

HPALETTE CreateHalftonePalette(HDC dc) {
    return handleFrom<HPALETTE>(::CreateHalftonePalette(native(dc)));
}

HPALETTE SelectPalette(HDC dc, HPALETTE palette, BOOL forceBackground) {
    return handleFrom<HPALETTE>(::SelectPalette(native(dc), native(palette), forceBackground));
}

UINT RealizePalette(HDC dc) {
    return ::RealizePalette(native(dc));
}

BOOL UnrealizeObject(HGDIOBJ object) {
    return ::UnrealizeObject(native(object));
}

UINT GetPaletteEntries(HPALETTE palette, UINT start, UINT count, PALETTEENTRY* entries) {
    return ::GetPaletteEntries(native(palette), start, count, as<::PALETTEENTRY>(entries));
}

UINT SetPaletteEntries(HPALETTE palette, UINT start, UINT count, const PALETTEENTRY* entries) {
    return ::SetPaletteEntries(native(palette), start, count, as<::PALETTEENTRY>(entries));
}

BOOL ResizePalette(HPALETTE palette, UINT count) {
    return ::ResizePalette(native(palette), count);
}

UINT GetNearestPaletteIndex(HPALETTE palette, COLORREF color) {
    return ::GetNearestPaletteIndex(native(palette), color);
}

UINT GetSystemPaletteEntries(HDC dc, UINT start, UINT count, PALETTEENTRY* entries) {
    return ::GetSystemPaletteEntries(native(dc), start, count, as<::PALETTEENTRY>(entries));
}

} // namespace platform
