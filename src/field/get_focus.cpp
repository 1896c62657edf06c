// How the focus comes and goes, and whom the field tells.

#include "automation/Conversions.h"
#include "automation/DateFunctions.h"
#include "automation/Format.h"
#include "automation/LateBound.h"
#include "field/get.h"
#include "field/masks.h"
#include "platform/windows.h"

namespace tesela {

using automation::String;
using automation::Variant;

namespace {

constexpr std::size_t shortPatternStart = 12; ///< In the pair of date patterns
constexpr int firstShortYear = 1930, lastShortYear = 2029;

platform::HWND windowOf(std::int32_t handle) {
    return platform::HWND(static_cast<std::uint32_t>(handle));
}

/// The top-level window that holds a window; the window itself if nothing does.
platform::HWND topLevel(platform::HWND window) {
    while (const platform::HWND parent = platform::GetParent(window))
        window = parent;
    return window;
}

bool isDown(int virtualKey) {
    return globales().oKeyboard->KeyPressed(virtualKey);
}

bool isMousePressed() {
    return isDown(platform::VK_LBUTTON) || isDown(platform::VK_RBUTTON) || isDown(platform::VK_MBUTTON);
}

} // namespace

// --- Arrival ---------------------------------------------------------------------------------------

void get::onGotFocus() {
    if (!ReclamarFocus(hWND())) focusArrives();
}

void get::focusArrives() {
    Globales& g = globales();
    g.lGoingToChangeFocus = false;
    if (!lDesdeTeclado) {
        lInsertando = isNumber() || (!isDate() && cMascaraFocus.empty());
        g.oKeyboard->InsertState(lInsertando);
    }
    g.nValidateTimer = 0;
    if (!lHasFocus) {
        nDireccion = tslForwardFocus_Unknown;
        g.nHWndFocusPrev = g.nHWndFocus;
        g.nHWndFocus = hWND();
        lHasFocus = true;
        setCausesValidation(false);
        cTextoOriginal = cTexto;
    }
    makeCaret(naturalCaretWidth());
    takeEditForm();
    const bool walked = isDown(platform::VK_RETURN) || isDown(platform::VK_TAB) || isDown(platform::VK_UP) ||
                        isDown(platform::VK_DOWN);
    if (!lPreserveCaret && walked) nCaret = 0;
    const bool keepsCaret = std::exchange(lPreserveCaret, false);
    if (!keepsCaret && nBotonPulsado == Companion::None && !isMousePressed() && !lDesdeTeclado) {
        nCaret = 0;
        nSelStart = 0;
        const bool whole = nSeleccionado == tslSeleccionadoSiempre ||
                           (nSeleccionado == tslSeleccionadoNumeros && isNumber());
        nSelLength = whole ? length() : 0;
    }
    notifyCompanions();
    takeText(cTexto, false);
    if (!lPerdidoAOtraApp) xValorOriginal = Value();
    lPerdidoAOtraApp = false;
    Render();
}

/// The text as it is edited: dates with a short year, masked texts in the mask of the focus.
void get::takeEditForm() {
    if (lLocked) return;
    if (isDate()) {
        String pattern = globales().cFmtFecha.substring(shortPatternStart);
        if (automation::IsDate(cTexto) && pattern.find(u"yyyy") == String::npos) {
            const int year = automation::Year(automation::CDate(cTexto));
            if (year < firstShortYear || year > lastShortYear) pattern = pattern.replaced(u"yy", u"yyyy");
        }
        if (ValidateFecha() && automation::IsDate(cTexto))
            cTexto = automation::Format(automation::CDate(cTexto), pattern);
        fitPositions();
    } else if (hasTextMask()) {
        SetTextoInterno(LlenarMascara(cTexto, {}), false);
    } else if (!isNumber() && !cMascara.empty()) {
        SetTextoInterno(stripMask(cTexto, cMascara), false);
        MaxLength(length());
    }
}

void get::notifyCompanions() {
    if (oStBar) {
        if (cMsgStatusBar.empty())
            automation::callMethod(*oStBar, u"SetToolTipFromCtl", ToolTip());
        else
            automation::callMethod(*oStBar, u"SetTextAlertFromCtl", cMsgStatusBar);
    }
    if (oOSK) automation::callMethod(*oOSK, u"SetNewCtl", Variant(static_cast<automation::Object*>(this)));
    lDesdeTeclado = false;
}

/// Of the associated control, whose press shall not validate this field while it has the focus.
void get::setCausesValidation(bool value) {
    if (oControlAsociado) automation::letProperty(*oControlAsociado, u"CausesValidation", value);
}

// --- Departure -------------------------------------------------------------------------------------

void get::onLostFocus() {
    try {
        if (isDown(platform::VK_TAB)) {
            short code = platform::VK_TAB;
            short shift = isDown(platform::VK_SHIFT) ? host::ShiftMask : short{0};
            nDireccion = shift ? tslForwardFocus_Backward : tslForwardFocus_Forward;
            raiseInput(KeyWatch, code, shift);
        }
        tidyText();
        takeDisplayForm();
        setCausesValidation(true);
        if (oStBar && !cMsgStatusBar.empty()) {
            cMsgStatusBar = {};
            automation::callMethod(*oStBar, u"ClearTextAlertFromCtl", ToolTip());
        }
        lHasFocus = false;
    } catch (const automation::Error&) {
        return; // a companion that doesn't answer
    }
    focusGone();
}

void get::tidyText() {
    if (!lDesdeTeclado && (cMascaraFocus.empty() || nTipoDato != tslTipoDatoCaracter))
        cTexto = trimmed(cTexto, nAutoTrim);
    if (nAutoFormat != tslGetAutoFormatDefault && !lAutoFormatPendiente) {
        const String tidy = AutoFormatearTexto(cTexto, nAutoFormat);
        if (nMaxLength <= 0 || tidy.length() <= static_cast<std::size_t>(nMaxLength)) cTexto = tidy;
        lAutoFormatPendiente = true;
    }
    fitPositions();
}

void get::takeDisplayForm() {
    if (nTipoDato != tslTipoDatoCaracter || lLocked || !cMascaraFocus.empty() || cMascara.empty()) return;
    MaxLength(static_cast<std::int32_t>(cMascara.length()));
    SetTextoInterno(LlenarMascara(cTexto, cMascara), false);
}

void get::focusGone() {
    try {
        const std::int32_t form = automation::fromVariant<std::int32_t>(
            automation::getProperty(Variant(Extender().Parent()), u"hWnd"));
        lPerdidoAOtraApp = platform::GetForegroundWindow() != windowOf(form);
    } catch (const automation::Error&) {
        // A container whose form tells no window.
    }
    if (lDesdeTeclado) return;
    dropCaret();
    if (!isDate() || ValidateFecha()) takeText(cTexto, false);
    Render();
}

// --- Passing it on ---------------------------------------------------------------------------------

tslForwardFocusConstants get::IsForwarding() const {
    if (!isDown(platform::VK_TAB)) return nDireccion;
    return isDown(platform::VK_SHIFT) ? tslForwardFocus_Backward : tslForwardFocus_Forward;
}

void get::CtrlFocus(std::int32_t value) {
    if (value == 0) value = globales().nHWndFocusPrev;
    if (value == 0) return;
    globales().nHWndFocus = value;
    platform::SetFocus(windowOf(value));
}

void get::SetFocusToCtl(const automation::Ref<automation::Object>& oNewCtl) {
    if (!oNewCtl) automation::throwError(automation::errors::ObjectVariableNotSet);
    NotaFocusReclamar(automation::fromVariant<std::int32_t>(automation::getProperty(*oNewCtl, u"hWND")));
}

void get::SetFocusIfEnabled(const Variant& oBtn, const Variant& nLastCtlHWND) {
    const automation::Ref<automation::Object> alive(this);
    try {
        if (Extender().Visible() && Enabled() && lShownEnabled && lEnabledGet) {
            SetFocus();
            return;
        }
        const Variant button = oBtn.dereferenced();
        const bool hasButton = button.isObject() && !button.isNothing();
        const std::int32_t last = nLastCtlHWND.isMissing() ? 0 : automation::CLng(nLastCtlHWND);
        const platform::HWND lastTop = last ? topLevel(windowOf(last)) : platform::HWND();
        if (!hasButton) {
            if (last && lastTop == topLevel(hWnd())) CtrlFocus(last);
            return;
        }
        const auto window = automation::fromVariant<std::int32_t>(automation::getProperty(button, u"hWND"));
        if (last && lastTop && topLevel(windowOf(window)) == lastTop)
            automation::letProperty(button, u"CtrlFocus", last);
        else if (automation::fromVariant<bool>(automation::getProperty(button, u"Enabled")))
            automation::callMethod(button, u"SetFocus");
    } catch (const automation::Error&) {
        // The focus stays where it is.
    }
}

// --- Leaving it to others --------------------------------------------------------------------------

/// A press of the mouse on a field that can't be edited leaves the focus where it was.
void get::returnFocus() {
    const std::int32_t had = globales().nHWndFocus;
    nCaret = 0;
    try {
        if (had && topLevel(hWnd()) == topLevel(windowOf(had)))
            CtrlFocus(had);
        else
            automation::callMethod(Variant(Extender().Parent()), u"SetFocus");
    } catch (const automation::Error&) {
        // Nothing there takes it.
    }
}

/// A press takes the focus before the field is told of it: what it needs to know of the time before is noted.
void get::focusByMouse() {
    lFocoAlPulsar = lHasFocus;
    nFocoAlPulsar = globales().nHWndFocus;
    if (lEnabledGet) UserControl::focusByMouse();
}

} // namespace tesela
