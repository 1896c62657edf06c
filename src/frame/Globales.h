#pragma once
// The state that every control and class of the library shares inside one process, and the procedure that
// fills it. One user-interface thread reads and writes it, with no lock.

#include "automation/Array.h"
#include "automation/Date.h"
#include "automation/Object.h"
#include "automation/String.h"
#include "automation/Variant.h"
#include "drawing/cCanvas.h"
#include "host/Picture.h"
#include "platform/locale.h"
#include "platform/types.h"
#include "system/cKeyboard.h"
#include "system/cLogFile.h"

#include <cstdint>

namespace tesela {

/// How high a line of text is in a font.
struct LineaMedida {
    automation::Ref<host::StdFont> oFont; ///< As it was then
    float nFontWidth = 0;
    std::int32_t nAltura = 0; ///< In pixels
};

/// The fields have their empty values until ProcedimientoInicio has run; an empty `cSepDecimal` is the sign
/// that it has not.
struct Globales {
    automation::Ref<cLogFile> oLogFile;     ///< The library's own log
    automation::Ref<cKeyboard> oKeyboard;   ///< Shared keyboard access
    automation::Ref<cCanvas> oCanvasGlobal; ///< 1 by 1 on the screen, for what is asked of the display
    bool lGraphicsEffects = false;
    bool lVisualStyleAqua = false;
    bool lPocketPC = false;
    bool lEjecutandoDesdeIDE = false;
    std::int32_t nFormZoom = 0;       ///< Percentage applied to sizes
    std::int32_t nEventsDisabled = 0; ///< Events are raised only while this is below 1
    std::int32_t nRegion = 0;
    automation::String cFontDefault; ///< The sans-serif font of all schemes
    bool lSansSerifScalable = false; ///< The scalable form of that font is installed
    automation::String cSepDecimal;
    automation::String cSepMiles;
    automation::String cSepFecha;
    automation::String cSepHora;
    automation::String cOrdenFecha; ///< "0" month first, "1" day first, "2" year first
    automation::String cIdioma;     ///< Language identifier, hexadecimal
    automation::String cFmtFecha;   ///< Long-year pattern, ";;", short-year pattern
    automation::String cFmtHora;
    bool lHighColor = false;                  ///< 15 bits a pixel or more: gradients and colour mixes
    automation::Array xGlobalCtlCfg;          ///< The colour table, elements 1 to 24; see GlobalCtlCfg.h
    automation::Ref<host::Picture> oPicAquaL; ///< Left piece of the Aqua button
    automation::Ref<host::Picture> oPicAquaC; ///< Centre piece of the Aqua button
    std::int32_t nHWndFocus = 0;              ///< The library control that has the focus
    std::int32_t nHWndFocusPrev = 0;          ///< The one that had it before
    bool lGoingToChangeFocus = false;
    std::int16_t nLastKey = 0;
    double nValidateTimer = 0; ///< TimerSegundos of a pending validation
    std::int32_t nHWndValidate = 0;
    automation::Date dInicioEjercicio; ///< Start of the fiscal year
    std::int32_t nAñoCompletar = 0;    ///< Year that completes a date without one; -1 is the current year
    std::int32_t nHWndReclamar = 0;
    double nTimerReclamar = 0;
    LineaMedida xLineaMedida;                       ///< The one that was measured last
    bool lIgnoreNextCR = false;                     ///< The next Enter on a button is ignored
    bool lClickTrace = false;                       ///< Diagnostic: the grid logs each click
    automation::Ref<automation::Object> oAppAssert; ///< The application's own object for assertions
};

/// The one instance of this process.
Globales& globales();

/// Fills the state: the log, the keyboard, the locale, the colour table. Runs when the library is first
/// entered; controls run it from Initialize through `EnsureInicio`.
void ProcedimientoInicio();

/// Runs ProcedimientoInicio if it has not run.
void EnsureInicio();

/// One string of the user's locale; empty if there is none of that type.
automation::String GetLocaleString(platform::LCTYPE nLCType);

/// A short date pattern of the locale as the pair that fields use: "d/M/yy" gives "dd/MM/yyyy;;dd/MM/yy".
automation::String NormalizarFmtFecha(const automation::String& cPatron);

/// The long-year pattern of `cFmtFecha`, as "dd/MM/yyyy".
automation::String longDatePattern();

/// True if the array holds an element equal to the value; the first hit wins. A value that is no array
/// holds nothing.
bool ValorEnArray(const automation::Variant& xValor, const automation::Variant& xLista);

/// Seconds of a calendar that has twelve months of 31 days and no years, from the local time: good to
/// measure short intervals only, it jumps at the turn of most months.
double TimerSegundos();

/// Remembers a window that wants the focus back, and gives it back to it if another one (`nHWndActual`)
/// got it less than 0.1 seconds later; True if it did. Each note serves once.
void NotaFocusReclamar(std::int32_t nHWnd);
bool ReclamarFocus(std::int32_t nHWndActual);

/// A picture of the library's resources with its size: pixels for icons and cursors (`nType` 1 and 2),
/// himetric for bitmaps (0). Null and 0 by 0 if there is none.
automation::Ref<host::Picture> LoadResIcon(const automation::Variant& xResourceID, std::int32_t nType,
                                           std::int32_t& nWidth, std::int32_t& nHeight);

} // namespace tesela
