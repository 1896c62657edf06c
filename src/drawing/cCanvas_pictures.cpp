// Pictures: painting them, and making them of handles, bytes and resources.

#include "drawing/cCanvas_private.h"

#include "automation/Conversions.h"
#include "automation/Numbers.h"
#include "drawing/memory_surface.h"
#include "drawing/rounding.h"
#include "host/StockPictures.h"
#include "platform/processes.h"
#include "platform/resources.h"

#include <algorithm>

namespace tesela {

using automation::Ref;
using host::Picture;
using host::PictureType;

namespace {

constexpr double himetricPerInch = 2540.0;
constexpr std::int32_t pixels = 3, himetric = 8; ///< Units of ScaleX and ScaleY
constexpr std::int32_t iconImage = 1, cursorImage = 2;

std::int32_t orOwn(std::int32_t given, std::int32_t own) {
    return given == 0 ? own : given;
}

platform::ResourceType resourceType(std::int32_t type) {
    if (type == iconImage) return platform::ResourceType::Icon;
    return type == cursorImage ? platform::ResourceType::Cursor : platform::ResourceType::Bitmap;
}

platform::WORD resourceNumber(const automation::Variant& id) {
    return static_cast<platform::WORD>(automation::CLng(id));
}

/// A resource by its number or its name; a name of a hash sign and digits is the number.
platform::ResourceName resourceName(const automation::Variant& id) {
    if (!id.isString()) return resourceNumber(id);
    const automation::String& name = id.asString();
    if (!name.view().starts_with(u'#')) return name.view();
    constexpr double last = 0xFFFF;
    return static_cast<platform::WORD>(std::clamp(automation::Val(name.view().substr(1)), 0.0, last));
}

/// A bitmap with the same pixels.
platform::HBITMAP copyOf(platform::HDC like, platform::HBITMAP bitmap) {
    platform::BITMAP about;
    if (!platform::GetObjectBitmap(bitmap, &about)) return {};
    const platform::HBITMAP copy =
        platform::CreateBitmap(about.bmWidth, about.bmHeight, about.bmPlanes, about.bmBitsPixel, nullptr);
    const SelectedBitmap source(like, bitmap);
    const SelectedBitmap target(like, copy);
    platform::BitBlt(target, 0, 0, about.bmWidth, about.bmHeight, source, 0, 0, platform::SRCCOPY);
    return copy;
}

} // namespace

// --- Painting --------------------------------------------------------------------------------------

void cCanvas::paintBitmap(platform::HBITMAP bitmap, const PictureArea& area, platform::DWORD rasterOp) {
    const SelectedBitmap source(nPaintDC, bitmap);
    if (area.target == area.source)
        platform::BitBlt(nPaintDC, area.x, area.y, area.target.cx, area.target.cy, source, area.xSource,
                         area.ySource, rasterOp);
    else
        platform::StretchBlt(nPaintDC, area.x, area.y, area.target.cx, area.target.cy, source, area.xSource,
                             area.ySource, area.source.cx, area.source.cy, rasterOp);
}

/// The target's pixels are enlarged to the source size, the icon is drawn over them in its own size, and the
/// whole goes back to the target's size.
void cCanvas::paintScaledIcon(platform::HICON icon, const PictureArea& area) {
    const platform::SIZE &target = area.target, &source = area.source;
    const MemorySurface enlarged(nPaintDC, platform::CreateCompatibleBitmap(nPaintDC, source.cx, source.cy));
    platform::StretchBlt(enlarged, 0, 0, source.cx, source.cy, nPaintDC, area.x, area.y, target.cx, target.cy,
                         platform::SRCCOPY);
    platform::DrawIconEx(enlarged, 0, 0, icon, source.cx, source.cy, 0, {}, platform::DI_NORMAL);
    platform::SetStretchBltMode(nPaintDC, platform::HALFTONE);
    platform::StretchBlt(nPaintDC, area.x, area.y, target.cx, target.cy, enlarged, 0, 0, source.cx, source.cy,
                         platform::SRCCOPY);
    platform::SetStretchBltMode(nPaintDC, platform::COLORONCOLOR);
}

void cCanvas::PaintPicture(const Ref<Picture>& oPicture, std::int32_t nX, std::int32_t nY, std::int32_t width,
                           std::int32_t height, std::int32_t nXSrc, std::int32_t nYSrc,
                           std::int32_t nWidthSrc, std::int32_t nHeightScr, std::int32_t nRasterOp) {
    if (!oPicture) return;
    const Picture& picture = *oPicture;
    PictureArea area{nX, nY, {width, height}, nXSrc, nYSrc, {nWidthSrc, nHeightScr}};
    switch (picture.Type()) {
    case PictureType::Bitmap:
    case PictureType::EnhMetafile:
        area.source = {orOwn(nWidthSrc, roundToLong(static_cast<double>(picture.Width()) * nPixelsPerInchX /
                                                    himetricPerInch)),
                       orOwn(nHeightScr, roundToLong(static_cast<double>(picture.Height()) * nPixelsPerInchY /
                                                     himetricPerInch))};
        area.target = {orOwn(width, area.source.cx), orOwn(height, area.source.cy)};
        if (picture.Type() == PictureType::Bitmap)
            paintBitmap(picture.hBitmap(), area, static_cast<platform::DWORD>(nRasterOp));
        else
            PlayMetafile(picture.hEnhMetaFile(), nX, nY, area.target.cx, area.target.cy);
        break;
    case PictureType::Icon:
        if (nWidthSrc == width || nWidthSrc < 1) {
            platform::DrawIconEx(nPaintDC, nX, nY, picture.hIcon(), width, height, 0, {},
                                 platform::DI_NORMAL);
            break;
        }
        area.target = {
            orOwn(width, roundToLong(ScaleX(static_cast<float>(picture.Width()), himetric, pixels))),
            orOwn(height, roundToLong(ScaleY(static_cast<float>(picture.Height()), himetric, pixels)))};
        area.source = {orOwn(nWidthSrc, area.target.cx), orOwn(nHeightScr, area.target.cy)};
        paintScaledIcon(picture.hIcon(), area);
        break;
    case PictureType::None:
    case PictureType::Metafile:
        break;
    }
}

// --- Making ----------------------------------------------------------------------------------------

Ref<Picture> cCanvas::BitMap2Picture(platform::HGDIOBJ hBitmap, platform::HPALETTE hPalette,
                                     std::int32_t nType) {
    if (nType == iconImage || nType == cursorImage) {
        const platform::HICON icon(hBitmap.value);
        platform::ICONINFO about;
        if (!platform::GetIconInfo(icon, &about)) return {};
        platform::DeleteObject(about.hbmMask);
        if (about.hbmColor) platform::DeleteObject(about.hbmColor);
        return automation::make<Picture>(icon);
    }
    platform::HBITMAP bitmap(hBitmap.value);
    if (!bitmap) {
        // The canvas and the picture both end the bitmap that they own, so each has its own.
        platform::SelectObject(surfaceDC(), nOldBitmap);
        bitmap = copyOf(surfaceDC(), nBitmap);
        platform::SelectObject(surfaceDC(), nBitmap);
    }
    platform::BITMAP about;
    if (!platform::GetObjectBitmap(bitmap, &about)) return {};
    return automation::make<Picture>(bitmap, hPalette);
}

Ref<Picture> cCanvas::Bytes2Picture(const automation::Array& aBytes) {
    if (aBytes.dimensions() == 0) return {};
    const auto bytes = aBytes.bytes();
    try {
        return Picture::fromBytes({bytes.begin(), bytes.end()});
    } catch (const automation::Error&) {
        return {}; // no picture
    }
}

Ref<Picture> cCanvas::GetResPicture(const automation::Variant& xResourceID, std::int32_t nType,
                                    platform::HINSTANCE nHInstance) {
    const automation::Variant id = xResourceID.dereferenced();
    if (id.isString() && id.asString().empty()) return {};
    const platform::HINSTANCE module = nHInstance ? nHInstance : platform::moduleInstance();
    std::vector<std::uint8_t> bytes = platform::resourceBytes(module, resourceType(nType), resourceName(id));
    if (bytes.empty()) return {};
    try {
        return Picture::fromBytes(std::move(bytes));
    } catch (const automation::Error&) {
        return {}; // no picture
    }
}

Ref<Picture> cCanvas::GetSysPicture(const automation::Variant& nID, std::int32_t nType) {
    const automation::Variant id = nID.dereferenced();
    if (id.isString()) return {}; // the system's have numbers only
    const platform::WORD number = resourceNumber(id);
    if (const std::uint32_t handle = platform::systemImage(resourceType(nType), number))
        return BitMap2Picture(platform::HGDIOBJ(handle), {}, nType);
    return host::stockPicture(resourceType(nType), number);
}

} // namespace tesela
