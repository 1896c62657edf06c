// What the companion buttons do.

#include "field/get.h"
#include "platform/windows.h"

namespace tesela {

namespace {

/// Sets a flag for as long as it lives.
class Raised {
public:
    explicit Raised(bool& flag) : flag_(flag) { flag_ = true; }
    ~Raised() { flag_ = false; }
    Raised(const Raised&) = delete;
    Raised& operator=(const Raised&) = delete;

private:
    bool& flag_;
};

} // namespace

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
        {
            const Raised running(lEnEventoBoton);
            bool forced = true, cancel = false;
            if (companion == Companion::Combo)
                raiseInput(EVCombo, forced, cancel);
            else if (companion == Companion::Search)
                raiseInput(EVBuscar);
            else
                raiseInput(EVFicha);
        }
        if (!oFont) return; // the handler has ended the field
        if (lHasFocus) makeCaret(naturalCaretWidth());
    }
    if (lNoReclamarFocus) return;
    SetFocusIfEnabled(automation::Variant::missing(), focused);
    globales().nHWndFocus = hWND();
    Render();
}

} // namespace tesela
