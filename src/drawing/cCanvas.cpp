// The canvas's surface: its contexts and its bitmap.

#include "drawing/cCanvas.h"

#include "drawing/cCanvas_private.h"

#include "automation/LateBound.h"
#include "drawing/rounding.h"
#include "frame/Globales.h"
#include "host/Colors.h"
#include "host/MsgBox.h"
#include "platform/windows.h"

namespace tesela {

using automation::Variant;

namespace {

constexpr double himetricPerInch = 2540.0;
constexpr std::int32_t scaleModePixels = 3;

enum PictureKind : std::int32_t { kindBitmap = 1, kindMetafile = 2, kindIcon = 3, kindEnhMetafile = 4 };

/// The kinds that a canvas can be made of.
bool hasImage(std::int32_t kind) {
    return kind == kindBitmap || kind == kindMetafile || kind == kindEnhMetafile;
}

/// A number that an object gives by name; `fallback` when it doesn't.
std::int32_t numberOf(const automation::Ref<automation::Object>& object, std::u16string_view member,
                      std::int32_t fallback) {
    try {
        if (object) return automation::fromVariant<std::int32_t>(automation::getProperty(*object, member));
    } catch (const automation::Error&) {
        // The object doesn't answer.
    }
    return fallback;
}

} // namespace

cCanvas::cCanvas() : nClearColor(host::systemColor(platform::COLOR_BTNFACE)) {}

cCanvas::~cCanvas() {
    dropRecording();
    if (nOldBitmap) platform::SelectObject(nPaintDC, nOldBitmap);
    if (nBitmap) platform::DeleteObject(nBitmap);
    if (nHalftonePalette) {
        platform::SelectPalette(nPaintDC, nOldPalette, platform::FALSE_);
        platform::DeleteObject(nHalftonePalette);
    }
    Minimize_GDI_UsedResources();
    if (nHDC_Provider == DCProvider_Auto && nPaintDC) platform::DeleteDC(nPaintDC);
}

void cCanvas::reportGDIError(const char16_t* text) {
    host::MsgBox(text, host::MsgBoxStyle::Critical, u"Error gráfico G.D.I.");
}

void cCanvas::Minimize_GDI_UsedResources() {
    dropOwned(nCurPen, platform::BLACK_PEN);
    dropOwned(nCurBrush, platform::WHITE_BRUSH);
    dropOwned(nCurFont, platform::SYSTEM_FONT);
    for (platform::HFONT* font : {&nFontFixed, &nFontNormal, &nFontNumbers})
        if (*font) platform::DeleteObject(std::exchange(*font, {}));
}

void cCanvas::noteSize(std::int32_t width, std::int32_t height) {
    nWidth = width;
    nHeight = height;
    xPaintRect = {0, 0, width, height};
}

/// Ends a recording that nobody has ended.
void cCanvas::dropRecording() {
    if (nSavedPaintDC) DeleteMetafile(EndRecordMetafile(false));
}

/// Ends the bitmap of the former configuration, and its context unless that is the caller's: `Resize` gives
/// the caller's a bitmap too.
void cCanvas::releaseSurface() {
    if (nOldBitmap) platform::SelectObject(nPaintDC, nOldBitmap);
    if (nBitmap) platform::DeleteObject(nBitmap);
    if (nHDC_Provider == DCProvider_Auto && nPaintDC) platform::DeleteDC(nPaintDC);
    nOldBitmap = {};
    nBitmap = {};
    nPaintDC = {};
}

/// Puts the canvas's bitmap into the context; false if there is no bitmap.
bool cCanvas::selectBitmap() {
    if (!nBitmap) return false;
    if (const platform::HGDIOBJ former = platform::SelectObject(surfaceDC(), nBitmap)) nOldBitmap = former;
    return true;
}

bool cCanvas::makeSurface(platform::HDC reference) {
    nPaintDC = platform::CreateCompatibleDC(reference);
    nBitmap = platform::CreateCompatibleBitmap(reference, nWidth, nHeight);
    return selectBitmap();
}

bool cCanvas::Configure(platform::HDC newTargetDC, std::int32_t left, std::int32_t top, std::int32_t width,
                        std::int32_t height, DCProviderConstants provider, bool isStatic) {
    noteSize(width, height);
    nLeft = left;
    nTop = top;
    lStatic_HDC_Target = isStatic;
    const platform::HDC reference = isStatic ? newTargetDC : platform::GetDC({});
    // A control may set its canvas up before it has a window. The context stays what it was, and whose.
    if (!reference) return true;
    dropRecording();
    releaseSurface();
    nHDC_Provider = provider;
    nTargetDC = reference;
    lPaintDCReleased = false;
    bool made = true;
    if (provider == DCProvider_User)
        nPaintDC = nTargetDC;
    else
        made = makeSurface(reference);
    platform::SetBkMode(nPaintDC, platform::TRANSPARENT);
    nPixelsPerInchX = platform::GetDeviceCaps(reference, platform::LOGPIXELSX);
    nPixelsPerInchY = platform::GetDeviceCaps(reference, platform::LOGPIXELSY);
    if (!isStatic) platform::ReleaseDC({}, reference);
    return made;
}

bool cCanvas::Resize(std::int32_t width, std::int32_t height, platform::HDC nNewCompatDC) {
    noteSize(width, height);
    if (!lStatic_HDC_Target) nTargetDC = nNewCompatDC;
    if (!nTargetDC) return true;
    platform::SelectObject(surfaceDC(), nOldBitmap);
    platform::DeleteObject(nBitmap);
    nBitmap = platform::CreateCompatibleBitmap(nTargetDC, width, height);
    return selectBitmap();
}

void cCanvas::BeginPaint() {
    if (!lPaintDCReleased || lStatic_HDC_Target || nPaintDC) return;
    lPaintDCReleased = false;
    nPaintDC = platform::CreateCompatibleDC({}); // like the screen
    selectBitmap();
    platform::SetBkMode(nPaintDC, platform::TRANSPARENT);
}

void cCanvas::EndPaint() {
    if (lPaintDCReleased || lStatic_HDC_Target || !nPaintDC) return;
    dropRecording();
    if (nOldBitmap) platform::SelectObject(nPaintDC, nOldBitmap);
    Minimize_GDI_UsedResources();
    platform::DeleteDC(nPaintDC);
    nPaintDC = {};
    lPaintDCReleased = true;
}

void cCanvas::Paint(platform::HDC nActualDC, std::int32_t& nOffsetXSource, std::int32_t& nOffsetYSource,
                    std::int32_t& nOffsetXTarget, std::int32_t& nOffsetYTarget, std::int32_t& nWidthSource,
                    std::int32_t& nHeightSource) {
    if (nWidthSource == 0) nWidthSource = nWidth;
    if (nHeightSource == 0) nHeightSource = nHeight;
    nOffsetXTarget = saturatingSum(nOffsetXTarget, nLeft);
    nOffsetYTarget = saturatingSum(nOffsetYTarget, nTop);
    const platform::HDC target = lStatic_HDC_Target ? nTargetDC : nActualDC;
    if (!lStatic_HDC_Target && !target) {
        if (globales().oLogFile) globales().oLogFile->WriteLog(u"Uso de un hDC inválido");
        return;
    }
    platform::BitBlt(target, nOffsetXTarget, nOffsetYTarget, nWidthSource, nHeightSource, nPaintDC,
                     nOffsetXSource, nOffsetYSource, platform::SRCCOPY);
}

void cCanvas::Paint(platform::HDC nActualDC) {
    std::int32_t xSource = 0, ySource = 0, xTarget = 0, yTarget = 0, width = 0, height = 0;
    Paint(nActualDC, xSource, ySource, xTarget, yTarget, width, height);
}

platform::HDC cCanvas::GetTargetDC() const {
    if (lStatic_HDC_Target) return nTargetDC;
    reportGDIError(u"No puede retornarse el hDC: no es estático");
    return nPaintDC;
}

bool cCanvas::CreateFromPicture(automation::Ref<automation::Object>& oPic, platform::HDC nDC_Target) {
    // Each step that an object doesn't answer is passed over, the question for its kind too.
    if (!hasImage(numberOf(oPic, u"Type", kindBitmap))) return true;
    const auto pixels = [&](std::u16string_view side, int resolution) {
        return roundToLong(numberOf(oPic, side, 0) *
                           static_cast<double>(platform::GetDeviceCaps(nDC_Target, resolution)) /
                           himetricPerInch);
    };
    const std::int32_t width = pixels(u"Width", platform::LOGPIXELSX);
    const std::int32_t height = pixels(u"Height", platform::LOGPIXELSY);
    if (!Configure(nDC_Target, 0, 0, width, height)) return false;
    PaintPicture(automation::Ref<host::Picture>(dynamic_cast<host::Picture*>(oPic.get())), 0, 0);
    return true;
}

bool cCanvas::CreateInPictureBox(automation::Ref<automation::Object>& oPBox, bool lCopyPicture) {
    using automation::getProperty;
    using automation::letProperty;
    if (!oPBox || oPBox->typeName() != u"PictureBox") return false;
    if (!automation::fromVariant<bool>(getProperty(*oPBox, u"HasDC"))) return false;
    letProperty(*oPBox, u"AutoRedraw", true);
    letProperty(*oPBox, u"ScaleMode", scaleModePixels);
    const auto number = [&](std::u16string_view name) {
        return automation::fromVariant<std::int32_t>(getProperty(*oPBox, name));
    };
    const platform::HDC boxDC(static_cast<std::uint32_t>(number(u"hDC")));
    const std::int32_t width = number(u"ScaleWidth");
    const std::int32_t height = number(u"ScaleHeight");
    const bool configured = Configure(boxDC, 0, 0, width, height);
    if (lCopyPicture) BitBlt(boxDC, 0, 0, width, height);
    return configured;
}

automation::Variant cCanvas::GlobalCtlCfg(tslCtlGlobalCfgConstants nIndex) const {
    return tesela::GlobalCtlCfg(nIndex);
}

void cCanvas::GlobalCtlCfg(tslCtlGlobalCfgConstants nIndex, const Variant& xValue) {
    tesela::GlobalCtlCfg(nIndex, xValue);
}

} // namespace tesela
