// Recording and playing of metafiles, and the clipboard.

#include "drawing/cCanvas.h"

#include "drawing/rounding.h"
#include "host/Clipboard.h"
#include "platform/input.h"
#include "platform/metafiles.h"

namespace tesela {

using automation::String;

namespace {

constexpr double millimetresPerInch = 25.4;
constexpr std::int32_t pixels = 3, himetric = 8; ///< Units of ScaleX and ScaleY

/// Two texts, each with a NUL, and one more NUL.
std::string descriptionOf(const String& program, const String& picture) {
    std::string text = (program.empty() ? String(u"Tesela Software OCX") : program).ansi();
    text += '\0';
    text += (picture.empty() ? String(u"cCanvas class") : picture).ansi();
    text += '\0';
    return text; // its own end is the last NUL
}

/// The length of so many pixels in the device's own pixels, by what the device says that it measures.
std::int32_t devicePixels(std::int32_t length, std::int32_t pixelsPerInch, platform::HDC device,
                          int resolution, int millimetres) {
    return roundToLong(static_cast<double>(length) / pixelsPerInch * millimetresPerInch *
                       platform::GetDeviceCaps(device, resolution) /
                       platform::GetDeviceCaps(device, millimetres));
}

} // namespace

bool cCanvas::BeginRecordMetafile(const String& cFileName, const String& cAplicacion,
                                  const String& cDescripcion) {
    if (nSavedPaintDC) return false; // one at a time
    const std::string description = descriptionOf(cAplicacion, cDescripcion);
    const std::string file = cFileName.ansi();
    const platform::RECT frame{0, 0, roundToLong(ScaleX(static_cast<float>(nWidth), pixels, himetric)),
                               roundToLong(ScaleY(static_cast<float>(nHeight), pixels, himetric))};
    const platform::HDC recorder = platform::CreateEnhMetaFileA(
        nTargetDC, file.empty() ? nullptr : file.c_str(), &frame, description.c_str());
    if (!recorder) return false;
    platform::SIZE viewport;
    try {
        viewport = {devicePixels(nWidth, nPixelsPerInchX, nTargetDC, platform::HORZRES, platform::HORZSIZE),
                    devicePixels(nHeight, nPixelsPerInchY, nTargetDC, platform::VERTRES, platform::VERTSIZE)};
    } catch (const automation::Error&) { // without a target there is nothing to measure by
        platform::DeleteEnhMetaFile(platform::CloseEnhMetaFile(recorder));
        throw;
    }
    nSavedPaintDC = nPaintDC;
    nPaintDC = recorder;
    platform::SetMapMode(nPaintDC, platform::MM_ANISOTROPIC);
    platform::SetWindowExtEx(nPaintDC, nWidth, nHeight, nullptr);
    platform::SetViewportExtEx(nPaintDC, viewport.cx, viewport.cy, nullptr);
    return true;
}

platform::HENHMETAFILE cCanvas::EndRecordMetafile(bool lPlayToTargetDC) {
    const platform::HENHMETAFILE metafile = platform::CloseEnhMetaFile(nPaintDC);
    if (!metafile && !nSavedPaintDC) return {}; // nothing was being recorded
    nPaintDC = nSavedPaintDC;
    nSavedPaintDC = {};
    if (lPlayToTargetDC) platform::PlayEnhMetaFile(nPaintDC, metafile, &xPaintRect);
    return metafile;
}

bool cCanvas::DeleteMetafile(platform::HENHMETAFILE nHEMF) {
    return platform::DeleteEnhMetaFile(nHEMF) != 0;
}

bool cCanvas::PlayMetafile(platform::HENHMETAFILE nHEMF, std::int32_t nX, std::int32_t nY, std::int32_t width,
                           std::int32_t height) {
    const platform::RECT area{nX, nY, saturatingSum(nX, width), saturatingSum(nY, height)};
    return platform::PlayEnhMetaFile(nPaintDC, nHEMF, &area) != 0;
}

void cCanvas::CopyToClipboard(platform::HENHMETAFILE nHEMF) {
    if (nHEMF) {
        // From here on the clipboard owns the metafile.
        if (platform::OpenClipboard({}) && platform::EmptyClipboard() &&
            platform::SetClipboardData(platform::CF_ENHMETAFILE, platform::HANDLE(nHEMF.value)))
            platform::CloseClipboard();
        return;
    }
    const automation::Ref<host::Picture> picture = BitMap2Picture();
    if (!picture) return;
    host::Clipboard::Clear();
    host::Clipboard::SetData(*picture, host::ClipboardFormat::DIB);
}

} // namespace tesela
