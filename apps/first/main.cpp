// The first program of the README: a form with one label.
#include "frame/lbl.h"
#include "host/Form.h"

int main() {
    const auto form = automation::make<host::Form>(u"frmSaludo");
    form->Caption(u"Saludo");
    auto& saludo = form->add<tesela::lbl>(u"lblSaludo");
    saludo.Extender().Move(240, 240, 2400, 300); // twips
    saludo.Caption(u"Hola, mundo");
    form->Show(true); // modal: returns when the window is closed
}
