// What the companion buttons do.

#include "field/get.h"
#include "host/Raised.h"
#include "platform/windows.h"

namespace tesela {

bool get::isEnabled(Companion companion) const {
    switch (companion) {
    case Companion::Combo:
        return lEnabledCombo;
    case Companion::Search:
        return lEnabledBuscar;
    case Companion::Record:
        return lEnabledFicha;
    default:
        return lEnabledGet;
    }
}

/// Raises the button's event. The field takes the focus back afterwards, unless the application has opened a
/// window that is to keep it.
void get::pressButton(Companion companion) {
    const automation::Ref<automation::Object> alive(this);
    lNoReclamarFocus = false;
    const std::int32_t focused = globales().nHWndFocus;
    if (!lEnEventoBoton && Enabled() && isEnabled(companion)) {
        dropCaret();
        const auto caretBack = [this] {
            if (oFont && lHasFocus) makeCaret(naturalCaretWidth());
        };
        try {
            const host::Raised running(lEnEventoBoton);
            bool forced = true, cancel = false;
            if (companion == Companion::Combo)
                raiseInput(EVCombo, forced, cancel);
            else if (companion == Companion::Search)
                raiseInput(EVBuscar);
            else
                raiseInput(EVFicha);
        } catch (...) {
            caretBack();
            Render();
            throw;
        }
        if (!oFont) return; // the handler has ended the field
        caretBack();
    }
    if (lNoReclamarFocus) return;
    SetFocusIfEnabled(automation::Variant::missing(), focused);
    globales().nHWndFocus = hWND();
    Render();
}

} // namespace tesela
