// The smallest program of this library that shows a window with a line of text.
#include "frame/lbl.h"
#include "host/Form.h"

int main() {
    const auto form = automation::make<host::Form>(u"start");
    form->BorderStyle(host::FormBorderStyle::None);
    form->BackColor(0xC06030); // blue, green, red
    form->Move(0, 0, 6000, 4500);
    auto& label = form->add<tesela::lbl>(u"lblNombre");
    label.Extender().Move(300, 300, 3000, 450);
    label.Caption(u"Nombre del cliente");
    form->Show(true);
    return 0;
}
