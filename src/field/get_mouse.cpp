// The mouse: caret, selection, companion buttons.

#include "field/get.h"
#include "platform/windows.h"

#include <cmath>

namespace tesela {

namespace {

std::int32_t pixel(float position) {
    return static_cast<std::int32_t>(std::lround(position));
}

} // namespace

/// What lies at a column: a button, or the field.
get::Companion get::companionAt(std::int32_t x) const {
    const std::int32_t end = nTextRight + nButtonWidth * buttonCount();
    if (x <= nTextRight || x > end) return Companion::Text;
    if (lBotonFicha && x >= nBtnFichaX) return Companion::Record;
    if (lBotonBuscar && x >= nBtnBuscarX) return Companion::Search;
    return lBotonCombo ? Companion::Combo : Companion::Text;
}

bool get::isOver(Companion companion, float X, float Y) const {
    return Y >= 0 && pixel(Y) <= nTextBottom && companionAt(pixel(X)) == companion;
}

void get::onMouseDown(short& Button, short& Shift, float& X, float& Y) {
    if (!gateOpen()) {
        Button = 0;
        return;
    }
    raise(MouseDown, Button, Shift, X, Y);
    if (!oFont || lEnEventoBoton || Button == 0) return;
    nBotonPulsado = Companion::None;
    const Companion part = companionAt(pixel(X));
    if (part == Companion::Text)
        mouseDownOnText(pixel(X), pixel(Y));
    else
        mouseDownOnButton(part, Button);
}

void get::mouseDownOnText(std::int32_t x, std::int32_t y) {
    if (!lEnabledGet) {
        returnFocus();
        return;
    }
    if (!lFocoAlPulsar && nAlignment != tslAlignmentLeftJustify) {
        nCaret = 0; // what lay under the pointer has moved to the left
        Render();
    } else if (cMascaraFocus.empty() || isNumber()) {
        nCaret = nCharDown = nSelStart = PosicionDesdePixel(x, y);
        nSelLength = 0;
        nBotonPulsado = Companion::Text;
        Render();
    } else {
        nCaret = 0;
        nSelLength = 0;
        Render();
    }
}

void get::mouseDownOnButton(Companion companion, short Button) {
    const bool presses =
        Button == host::LeftButton || (Button == host::RightButton && companion == Companion::Combo);
    if (!presses) return;
    if (!isEnabled(companion)) {
        CtrlFocus(nFocoAlPulsar);
        return;
    }
    nBotonPulsado = companion;
    lBotonEncima = true;
    Render();
}

void get::onMouseMove(short& Button, short& Shift, float& X, float& Y) {
    if (!gateOpen()) {
        Button = 0;
        return;
    }
    if (nBotonPulsado != Companion::Text)
        UserControl::MousePointer(pixel(X) <= nTextRight ? host::MousePointer::IBeam
                                                         : host::MousePointer::Default);
    raise(MouseMove, Button, Shift, X, Y);
    if (!oFont || lEnEventoBoton || nBotonPulsado == Companion::None) return;
    if (nBotonPulsado != Companion::Text) {
        const bool over = isOver(nBotonPulsado, X, Y);
        if (over == lBotonEncima) return;
        lBotonEncima = over;
        Render();
    } else if (lHasFocus) {
        const std::int32_t position = PosicionDesdePixel(pixel(X), pixel(Y));
        if (position == nCaret) return;
        nCaret = position;
        nSelStart = nCharDown;
        nSelLength = position - nCharDown;
        fitPositions();
        Render();
    }
}

void get::onMouseUp(short& Button, short& Shift, float& X, float& Y) {
    if (!gateOpen()) {
        Button = 0;
        return;
    }
    const automation::Ref<automation::Object> alive(this);
    raise(MouseUp, Button, Shift, X, Y);
    if (!oFont || lEnEventoBoton) return;
    const Companion released = std::exchange(nBotonPulsado, Companion::None);
    const bool acts = std::exchange(lBotonEncima, false);
    if (released == Companion::None || released == Companion::Text) return;
    if (!lHasFocus) {
        try {
            SetFocus();
        } catch (const automation::Error&) {
            // A control in front of it keeps the focus.
        }
    }
    const bool clears = released == Companion::Combo && Button == host::RightButton;
    if (acts && clears && lEnabledGet && !lLocked && !isDate()) {
        SetTextoInterno({}, true);
        nCaret = nSelStart = nSelLength = 0;
    }
    Render();
    if (acts) pressButton(released);
}

void get::onClick() {
    if (!gateOpen() || !lEnabledGet) return;
    if (!cMascaraFocus.empty() && nCaret > 0 && nCaret <= length() &&
        cTexto[static_cast<std::size_t>(nCaret - 1)] == u'-') {
        --nCaret;
        Render();
    }
    raise(Click);
}

void get::onDblClick() {
    if (!gateOpen() || !lEnabledGet) return;
    raise(DblClick);
    if (!oFont || !cMascaraFocus.empty() || hasSelection()) return;
    const std::u16string_view text = cTexto;
    std::int32_t from = nCaret, to = nCaret;
    while (from > 0 && text[static_cast<std::size_t>(from - 1)] != u' ')
        --from;
    while (to < length() && text[static_cast<std::size_t>(to)] != u' ')
        ++to;
    nSelStart = from;
    nSelLength = to - from;
    nCaret = to;
    Render();
}

// --- The on-screen keyboard ------------------------------------------------------------------------

void get::ProcesarTeclaFromOnScreenKeyboard(const automation::String& cKeyASCII, std::int32_t nKeyCode,
                                            std::int32_t nShiftKeys) {
    const automation::Ref<automation::Object> alive(this);
    lDesdeTeclado = true;
    if (!cKeyASCII.empty() && !(nShiftKeys & (host::CtrlMask | host::AltMask))) {
        auto code = static_cast<short>(static_cast<unsigned char>(cKeyASCII.left(1).ansi()[0]));
        onKeyPress(code);
        return;
    }
    if (nKeyCode < 0) {
        SetFocus();
        return;
    }
    if (nShiftKeys != 0 || nKeyCode == platform::VK_TAB) {
        SetFocus();
        cKeyboard& keyboard = *globales().oKeyboard;
        constexpr std::pair<short, int> modifiers[] = {{host::ShiftMask, platform::VK_SHIFT},
                                                       {host::CtrlMask, platform::VK_CONTROL},
                                                       {host::AltMask, platform::VK_MENU}};
        for (const auto& [mask, key] : modifiers)
            if (nShiftKeys & mask) keyboard.KeyDown(key);
        keyboard.KeyPress(nKeyCode);
        for (auto each = std::rbegin(modifiers); each != std::rend(modifiers); ++each)
            if (nShiftKeys & each->first) keyboard.KeyUp(each->second);
        return;
    }
    auto code = static_cast<short>(nKeyCode);
    auto shift = static_cast<short>(nShiftKeys);
    onKeyDown(code, shift);
    code = static_cast<short>(nKeyCode);
    onKeyUp(code, shift);
}

} // namespace tesela
