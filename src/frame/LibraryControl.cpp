#include "frame/LibraryControl.h"

#include <algorithm>

namespace tesela {

using automation::String;

float LibraryControl::RightPos() const {
    return Extender().Left() + Extender().Width() - 1;
}
void LibraryControl::RightPos(float value) {
    Extender().Left(value - Extender().Width() + 1);
}

float LibraryControl::BottomPos() const {
    return Extender().Top() + Extender().Height() - 1;
}
void LibraryControl::BottomPos(float value) {
    Extender().Top(value - Extender().Height() + 1);
}

void LibraryControl::Alias(const String& value) {
    cAlias = value;
    PropertyChanged(u"Alias");
}

void LibraryControl::Campo(const String& value) {
    cCampo = value;
    PropertyChanged(u"Campo");
}

void LibraryControl::TipoDato(tslTipoDatoConstants value) {
    nTipoDato = value;
    PropertyChanged(u"TipoDato");
}

void LibraryControl::EventsEnabled(bool lEnabled) {
    std::int32_t& disabled = globales().nEventsDisabled;
    disabled = std::max(disabled + (lEnabled ? -1 : 1), 0);
}

void LibraryControl::setLive(bool value) {
    lLive = value;
    Extender().Visible(value);
    UserControl::Enabled(value);
}

void LibraryControl::assignFont(host::StdFont& font, const String& name, double size, bool bold) {
    font.Bold(bold);
    font.Italic(false);
    font.Name(name);
    font.Size(automation::Currency::fromDouble(size));
    font.Strikethrough(false);
    font.Underline(false);
}

} // namespace tesela
