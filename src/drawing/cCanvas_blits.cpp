// Block transfers, translucency and the opening animation.

#include "drawing/cCanvas_private.h"

#include "automation/Conversions.h"
#include "drawing/memory_surface.h"
#include "drawing/rounding.h"
#include "frame/Globales.h"
#include "platform/clock.h"
#include "platform/windows.h"

#include <memory>
#include <new>

namespace tesela {

namespace {

platform::DWORD rop(std::int32_t code) {
    return static_cast<platform::DWORD>(code);
}

/// Bytes of a row of a device-independent bitmap. Each step rounds, so that the row may come out four bytes
/// longer than it need be.
std::int32_t rowBytes(std::int32_t width, std::int32_t bitsPerPixel) {
    double bytes = width * (bitsPerPixel / 8.0);
    if (bitsPerPixel == 1) bytes = (width + 7) / 8.0;
    if (bitsPerPixel == 4) bytes = (width + 1) / 2.0;
    return roundToLong((roundToLong(bytes) + 3) / 4.0) * 4;
}

/// What DIB_StretchBlt could not do; the numbers are those that it gives and logs.
enum DibError : std::int32_t {
    dibDone = 0,
    dibNoBitmap = 1,
    dibNoBitmapData = 2,
    dibNoContext = 3,
    dibNoMemory = 4,
    dibNoBits = 6,
    dibNotPainted = 7,
};

struct StretchedArea {
    platform::RECT target; ///< Right and bottom hold the width and height, as in the next
    platform::RECT source;
};

std::int32_t stretchBits(platform::HDC target, platform::HDC source, const StretchedArea& area,
                         std::int32_t rasterOp) {
    const platform::HGDIOBJ object = platform::GetCurrentObject(source, platform::OBJ_BITMAP);
    if (!object) return dibNoBitmap;
    const platform::HBITMAP bitmap(object.value);
    platform::BITMAP about;
    if (!platform::GetObjectBitmap(bitmap, &about)) return dibNoBitmapData;
    platform::BITMAPINFO info;
    info.bmiHeader.biWidth = about.bmWidth;
    info.bmiHeader.biHeight = about.bmHeight;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = about.bmBitsPixel;
    const auto size = static_cast<std::size_t>(rowBytes(about.bmWidth, about.bmBitsPixel)) *
                      static_cast<std::size_t>(about.bmHeight);
    const MemoryContext memory(source);
    if (!platform::HDC(memory)) return dibNoContext;
    const std::unique_ptr<std::uint8_t[]> bits(new (std::nothrow) std::uint8_t[size]);
    if (!bits) return dibNoMemory;
    const auto rows = static_cast<platform::UINT>(about.bmHeight);
    if (platform::GetDIBits(memory, bitmap, 0, rows, bits.get(), &info, platform::DIB_RGB_COLORS) <= 0)
        return dibNoBits;
    const platform::RECT &to = area.target, &from = area.source;
    const int painted =
        platform::StretchDIBits(target, to.left, to.top, to.right, to.bottom, from.left, from.top, from.right,
                                from.bottom, bits.get(), &info, platform::DIB_RGB_COLORS, rop(rasterOp));
    return painted > 0 ? dibDone : dibNotPainted;
}

} // namespace

std::int32_t cCanvas::DIB_StretchBlt(platform::HDC nSourceDC, std::int32_t nX, std::int32_t nY,
                                     std::int32_t width, std::int32_t height, std::int32_t nXSrc,
                                     std::int32_t nYSrc, std::int32_t nSrcWidth, std::int32_t nSrcHeight,
                                     std::int32_t nRasterOp) {
    const StretchedArea area{{nX, nY, width, height},
                             {nXSrc, nYSrc, nSrcWidth ? nSrcWidth : width, nSrcHeight ? nSrcHeight : height}};
    const std::int32_t error = stretchBits(nPaintDC, nSourceDC, area, nRasterOp);
    if (error != dibDone && globales().oLogFile)
        globales().oLogFile->WriteLog(u"Error # " + automation::CStr(error) +
                                      u" en \"cCanvas.DIB_StretchBlt()\"");
    return error;
}

std::int32_t cCanvas::BitBlt(platform::HDC nHSourceDC, std::int32_t nX, std::int32_t nY, std::int32_t width,
                             std::int32_t height, std::int32_t nXSrc, std::int32_t nYSrc,
                             std::int32_t nRasterOp) {
    return platform::BitBlt(nPaintDC, nX, nY, width, height, nHSourceDC, nXSrc, nYSrc, rop(nRasterOp));
}

std::int32_t cCanvas::StretchBlt(platform::HDC nHSourceDC, std::int32_t nX, std::int32_t nY,
                                 std::int32_t width, std::int32_t height, std::int32_t nXSrc,
                                 std::int32_t nYSrc, std::int32_t nSrcWidth, std::int32_t nSrcHeight,
                                 std::int32_t nRasterOp) {
    return platform::StretchBlt(nPaintDC, nX, nY, width, height, nHSourceDC, nXSrc, nYSrc,
                                nSrcWidth ? nSrcWidth : width, nSrcHeight ? nSrcHeight : height,
                                rop(nRasterOp));
}

std::int32_t cCanvas::SetStretchBltMode(StretchBltConstants nMode) {
    return platform::SetStretchBltMode(nPaintDC, nMode);
}

std::int32_t cCanvas::TransparentBlt(platform::HDC nHSourceDC, std::int32_t nX, std::int32_t nY,
                                     std::int32_t width, std::int32_t height, std::int32_t /*nXSrc*/,
                                     std::int32_t /*nYSrc*/, std::int32_t nSrcWidth, std::int32_t nSrcHeight,
                                     host::OLE_COLOR nTransparentColor) {
    const auto leftOut = static_cast<platform::COLORREF>(nTransparentColor);
    const bool keepsSize =
        (nSrcWidth == 0 || nSrcWidth == width) && (nSrcHeight == 0 || nSrcHeight == height);
    if (keepsSize && platform::copyColorsAtOnce(nPaintDC, nX, nY, width, height, nHSourceDC, leftOut))
        return 1;
    const auto colors = [&] { return platform::CreateCompatibleBitmap(nPaintDC, width, height); };
    const auto mono = [&] { return platform::CreateBitmap(width, height, 1, 1, nullptr); };
    const MemorySurface copy(nPaintDC, colors());
    const MemorySurface mask(nPaintDC, mono());
    const MemorySurface inverse(nPaintDC, mono());
    const MemorySurface work(nPaintDC, colors());

    platform::StretchBlt(copy, 0, 0, width, height, nHSourceDC, 0, 0, nSrcWidth ? nSrcWidth : width,
                         nSrcHeight ? nSrcHeight : height, platform::SRCCOPY);
    // White where the source is of the transparent colour.
    const platform::COLORREF back = platform::SetBkColor(copy, leftOut);
    platform::BitBlt(mask, 0, 0, width, height, copy, 0, 0, platform::SRCCOPY);
    platform::BitBlt(inverse, 0, 0, width, height, mask, 0, 0, platform::NOTSRCCOPY);
    // What is there now, black where the source goes; the source, black where it is transparent.
    platform::BitBlt(work, 0, 0, width, height, nPaintDC, nX, nY, platform::SRCCOPY);
    platform::BitBlt(work, 0, 0, width, height, mask, 0, 0, platform::SRCAND);
    platform::SetBkColor(copy, back);
    platform::BitBlt(copy, 0, 0, width, height, inverse, 0, 0, platform::SRCAND);
    platform::BitBlt(work, 0, 0, width, height, copy, 0, 0, platform::SRCPAINT);
    return platform::StretchBlt(nPaintDC, nX, nY, width, height, work, 0, 0, width, height,
                                platform::SRCCOPY);
}

std::int32_t cCanvas::AlphaBlend(platform::HDC nHSourceDC, std::int32_t nX, std::int32_t nY,
                                 std::int32_t width, std::int32_t height, std::int32_t nXSrc,
                                 std::int32_t nYSrc, std::int32_t nSrcWidth, std::int32_t nSrcHeight,
                                 std::uint8_t nTransparencia) {
    const platform::BLENDFUNCTION blend{platform::AC_SRC_OVER, 0, nTransparencia, 0};
    const std::int32_t sourceWidth = nSrcWidth ? nSrcWidth : width;
    const std::int32_t sourceHeight = nSrcHeight ? nSrcHeight : height;
    const auto withoutLast = [](std::int32_t size) { return saturatingSum(size, -1); };
    return platform::AlphaBlend(nPaintDC, nX, nY, withoutLast(width), withoutLast(height), nHSourceDC, nXSrc,
                                nYSrc, withoutLast(sourceWidth), withoutLast(sourceHeight), blend);
}

host::OLE_COLOR cCanvas::CalculateColorMix(host::OLE_COLOR nColor1, host::OLE_COLOR nColor2,
                                           std::uint8_t nTransparency) const {
    return tesela::CalculateColorMix(nColor1, nColor2, nTransparency);
}

void cCanvas::RectangleTranslucency(std::int32_t left, std::int32_t top, std::int32_t nRight,
                                    std::int32_t nBottom, host::OLE_COLOR nColor,
                                    std::uint8_t nTransparency) {
    // Where no surface could be had there is nothing to colour; a veil as large as that would be made.
    const bool hasSurface = nBitmap || nHDC_Provider == DCProvider_User || nSavedPaintDC;
    if (!hasSurface) return;
    const std::int32_t width = saturatingSum(nRight, 1 - std::int64_t{left});
    const std::int32_t height = saturatingSum(nBottom, 1 - std::int64_t{top});
    cCanvas veil;
    if (!veil.Configure(nPaintDC, 0, 0, width, height)) return;
    veil.FillBox(0, 0, nWidth, nHeight, nColor);
    AlphaBlend(veil.GetPaintDC(), left, top, width, height, 0, 0, 0, 0, nTransparency);
}

void cCanvas::ApplyTranslucency(host::OLE_COLOR nColor, std::uint8_t nTransparency) {
    RectangleTranslucency(0, 0, nWidth, nHeight, nColor, nTransparency);
}

void cCanvas::ExplodingRect(std::int32_t nInicialX1, std::int32_t nInicialY1, std::int32_t nInicialX2,
                            std::int32_t nInicialY2, std::int32_t nFinalX1, std::int32_t nFinalY1,
                            std::int32_t nFinalX2, std::int32_t nFinalY2) {
    if (!globales().lGraphicsEffects) return;
    constexpr int passes = 2, steps = 10;
    constexpr platform::DWORD stepMilliseconds = 10;
    const auto between = [](std::int32_t initial, std::int32_t final, int step) {
        return roundToLong(initial + (static_cast<double>(final) - initial) / steps * step);
    };
    const platform::HDC desktop = platform::GetDC({});
    const auto distance = [](std::int64_t from, std::int64_t to) { return to - from; };
    Configure(desktop, 0, 0, saturatingSum(distance(nInicialX1, nInicialX2), distance(nFinalX1, nFinalX2)),
              saturatingSum(distance(nInicialY1, nInicialY2), distance(nFinalY1, nFinalY2)), DCProvider_User,
              true);
    SelectSimplePen(0);
    SelectNullBrush();
    SetDrawMode(BinaryMixMode_NotXorPen);
    for (int pass = 0; pass < passes; ++pass) // the second takes the frames of the first away
        for (int step = 1; step < steps; ++step) {
            Rectangle(between(nInicialX1, nFinalX1, step), between(nInicialY1, nFinalY1, step),
                      between(nInicialX2, nFinalX2, step), between(nInicialY2, nFinalY2, step));
            std::int32_t x = saturatingSum(nFinalX1, -std::int64_t{nInicialX1});
            std::int32_t y = saturatingSum(nFinalY1, -std::int64_t{nInicialY1});
            std::int32_t xTarget = x, yTarget = y, width = 0, height = 0;
            Paint({}, x, y, xTarget, yTarget, width, height);
            platform::Sleep(stepMilliseconds);
        }
    SetDrawMode(BinaryMixMode_CopyPen);
    platform::ReleaseDC({}, desktop);
}

} // namespace tesela
