#include "frame/Globales.h"

#include "automation/Clock.h"
#include "automation/Conversions.h"
#include "automation/DateFunctions.h"
#include "automation/Operators.h"
#include "drawing/rounding.h"
#include "frame/GlobalCtlCfg.h"
#include "host/App.h"
#include "host/ScaleMode.h"
#include "host/Screen.h"
#include "platform/clock.h"
#include "platform/gdi.h"
#include "platform/windows.h"

#include <cmath>

namespace tesela {

using automation::String;
using automation::Variant;

namespace {

constexpr std::int32_t logSizeKB = 1024;
constexpr int highColorBits = 15; ///< From this depth on gradients are painted
constexpr double reclaimSeconds = 0.1;
constexpr std::int32_t regionWithOwnIcon = 1;
constexpr std::int32_t regionalIcon = 125;
constexpr std::int32_t regionalIconReplacement = 144;

constexpr const char16_t* scalableSansSerif = u"Microsoft Sans Serif";

void resetSwitches(Globales& g) {
    g.lGraphicsEffects = true;
    g.lVisualStyleAqua = false;
    g.lPocketPC = false;
    g.lEjecutandoDesdeIDE = false;
    g.nFormZoom = 100;
    g.nEventsDisabled = 0;
    g.nRegion = 0;
}

/// The bound is the count itself: the index past the end matches nothing.
bool fontInstalled(const char16_t* name) {
    const int count = host::Screen::FontCount();
    for (int i = 0; i <= count; ++i)
        if (host::Screen::Fonts(static_cast<short>(i)) == name) return true;
    return false;
}

void readLocale(Globales& g) {
    g.cIdioma = GetLocaleString(platform::LOCALE_ILANGUAGE);
    g.cSepDecimal = GetLocaleString(platform::LOCALE_SDECIMAL);
    g.cSepMiles = GetLocaleString(platform::LOCALE_STHOUSAND);
    g.cSepFecha = GetLocaleString(platform::LOCALE_SDATE);
    g.cSepHora = GetLocaleString(platform::LOCALE_STIME);
    g.cOrdenFecha = GetLocaleString(platform::LOCALE_IDATE);
    g.cFmtFecha = GetLocaleString(platform::LOCALE_SSHORTDATE);
}

automation::Ref<cCanvas> screenCanvas() {
    auto canvas = automation::make<cCanvas>();
    const platform::HDC screen = platform::GetDC({});
    canvas->Configure(screen, 0, 0, 1, 1);
    platform::ReleaseDC({}, screen);
    return canvas;
}

/// The pieces of the Aqua button: resources of the library, or files beside the program. A build without
/// them goes on with none, as only that style of the button shows them.
void loadAqua(Globales& g) {
    g.oPicAquaL = g.oCanvasGlobal->GetResPicture(Variant(u"AQUA_L_70x101"));
    g.oPicAquaC = g.oCanvasGlobal->GetResPicture(Variant(u"AQUA_C_70x101"));
    if (g.oPicAquaL) return;
    const String folder = host::App::Path() + u"\\Recursos\\Estilo visual 'Aqua'\\";
    try {
        g.oPicAquaL = host::LoadPicture(folder + u"Aqua-L 70x101x256.ico");
        g.oPicAquaC = host::LoadPicture(folder + u"Aqua-C 70x101x256.ico");
    } catch (const automation::Error&) {
    }
}

} // namespace

Globales& globales() {
    static Globales state;
    return state;
}

void ProcedimientoInicio() {
    Globales& g = globales();
    g.oLogFile = automation::make<cLogFile>();
    g.oLogFile->Start(host::App::Path(), u"TeselaCtl", false, true, logSizeKB);
    resetSwitches(g);
    g.cFontDefault = u"MS Sans Serif";
    g.lSansSerifScalable = fontInstalled(scalableSansSerif);
    g.oKeyboard = automation::make<cKeyboard>();
    g.oCanvasGlobal = screenCanvas();
    readLocale(g);
    g.cFmtFecha = NormalizarFmtFecha(g.cFmtFecha);
    g.cFmtHora = u"HH:mm";
    g.lHighColor = g.oCanvasGlobal->GetDevCaps(GDIDeviceCaps_BitsPixel) >= highColorBits;
    g.xGlobalCtlCfg = InitialGlobalCtlCfg(g.lHighColor);
    loadAqua(g);
    g.nHWndFocus = 0;
    g.dInicioEjercicio = automation::Date::join(automation::Year(automation::Today()), 1, 1);
    g.nAñoCompletar = -1;
    g.oLogFile->WriteLog(u"Procedimiento de inicio realizado con éxito");
}

void EnsureInicio() {
    if (globales().cSepDecimal.empty()) ProcedimientoInicio();
}

String GetLocaleString(platform::LCTYPE nLCType) {
    constexpr int bufferSize = 100;
    char buffer[bufferSize] = {};
    const int got = platform::GetLocaleInfoA(platform::GetUserDefaultLCID(), nLCType, buffer, bufferSize - 1);
    if (got < 1) return {};
    return String::fromAnsi({buffer, static_cast<std::size_t>(got - 1)});
}

String NormalizarFmtFecha(const String& cPatron) {
    String pattern = cPatron.replaced(u"dddd", u"dd").replaced(u"ddd", u"dd");
    if (pattern.find(u"dd") == String::npos) pattern = pattern.replaced(u"d", u"dd");
    pattern = pattern.replaced(u"MMMM", u"MM").replaced(u"MMM", u"MM");
    if (pattern.find(u"MM") == String::npos) pattern = pattern.replaced(u"M", u"MM");
    if (pattern.find(u"yyyy") == String::npos) pattern = pattern.replaced(u"yy", u"yyyy");
    if (pattern.find(u"yyyy") == String::npos) pattern = pattern.replaced(u"y", u"yyyy");
    return pattern + u";;" + pattern.replaced(u"yyyy", u"yy");
}

String longDatePattern() {
    constexpr std::size_t length = 10;
    return globales().cFmtFecha.left(length);
}

bool ValorEnArray(const Variant& xValor, const Variant& xLista) {
    const Variant list = xLista.dereferenced();
    if (!list.isArray()) return false;
    const automation::Array& array = list.asArray();
    for (std::size_t i = 0; i < array.size(); ++i)
        if (automation::isEqual(array.element(i), xValor)) return true;
    return false;
}

double TimerSegundos() {
    platform::SYSTEMTIME now;
    platform::GetLocalTime(&now);
    return now.wMonth * 2678400.0 + now.wDay * 86400.0 + now.wHour * 3600.0 + now.wMinute * 60.0 +
           now.wSecond + now.wMilliseconds / 1000.0;
}

void NotaFocusReclamar(std::int32_t nHWnd) {
    globales().nTimerReclamar = TimerSegundos();
    globales().nHWndReclamar = nHWnd;
}

bool ReclamarFocus(std::int32_t nHWndActual) {
    Globales& g = globales();
    const std::int32_t noted = g.nHWndReclamar;
    const bool reclaims =
        noted != 0 && noted != nHWndActual && TimerSegundos() - g.nTimerReclamar < reclaimSeconds;
    if (reclaims) platform::SetFocus(platform::HWND(static_cast<std::uint32_t>(noted)));
    // Afterwards, so that a note that a handler makes while the focus moves is gone too.
    g.nHWndReclamar = 0;
    return reclaims;
}

namespace {

/// The identifier that stands for this one in the user's region.
Variant regional(const Variant& identifier, std::int32_t type) {
    const bool replaced = globales().nRegion == regionWithOwnIcon && type == 1 && !identifier.isString() &&
                          automation::CLng(identifier) == regionalIcon;
    return replaced ? Variant(regionalIconReplacement) : identifier;
}

/// From the library's own resources, or else from the program's; null if neither has it.
automation::Ref<host::Picture> resourcePicture(const Variant& identifier, std::int32_t type) {
    try {
        if (auto picture = globales().oCanvasGlobal->GetResPicture(identifier, type)) return picture;
        const auto kind = static_cast<host::ResourcePicture>(type);
        if (identifier.isString()) return host::LoadResPicture(identifier.asString().view(), kind);
        return host::LoadResPicture(static_cast<platform::WORD>(automation::CLng(identifier)), kind);
    } catch (const automation::Error&) {
        return {};
    }
}

} // namespace

automation::Ref<host::Picture> LoadResIcon(const Variant& xResourceID, std::int32_t nType,
                                           std::int32_t& nWidth, std::int32_t& nHeight) {
    nWidth = 0;
    nHeight = 0;
    const Variant identifier = xResourceID.dereferenced();
    if (identifier.isString() && identifier.asString().empty()) return {};
    automation::Ref<host::Picture> picture = resourcePicture(regional(identifier, nType), nType);
    if (!picture) return {}; // the caller paints without it
    if (nType >= 1) {
        constexpr std::int32_t himetric = 8, pixels = 3;
        const cCanvas& canvas = *globales().oCanvasGlobal;
        nWidth = roundToLong(canvas.ScaleX(static_cast<float>(picture->Width()), himetric, pixels));
        nHeight = roundToLong(canvas.ScaleY(static_cast<float>(picture->Height()), himetric, pixels));
    } else {
        nWidth = picture->Width();
        nHeight = picture->Height();
    }
    return picture;
}

} // namespace tesela
