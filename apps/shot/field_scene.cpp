// One sheet with every look of the data-entry field, in columns. A look that needs the focus is taken from a
// live field, one after the other, and copied to its place.
#include "automation/DateFunctions.h"
#include "field/get.h"
#include "frame/lbl.h"
#include "host/MessageLoop.h"
#include "host/PictureBox.h"
#include "platform/gdi.h"
#include "platform/linux/headless.h"
#include "shot/form_picture.h"
#include "shot/scenes.h"

namespace shot {

namespace {

using automation::String;
using tesela::get;
using tesela::lbl;

constexpr float pixel = 15; // twips
constexpr int margin = 16, columnWidth = 300, captionWidth = 136, fieldWidth = 140, rowHeight = 27;
constexpr int columns = 3, rows = 20;
constexpr int sheetWidth = columns * columnWidth + margin, sheetHeight = rows * rowHeight + 2 * margin;

class Sheet {
public:
    explicit Sheet(host::Form& form) : form_(form) { form_.AutoRedraw(true); }

    void column(const char16_t* title) {
        column_++;
        row_ = 0;
        lbl& head = label(title);
        head.Scheme(tesela::tslSchemeHeader_B);
        head.BackStyle(tesela::tslBackStyleTransparent);
        row_ = 1;
    }

    /// A field without the focus, `height` pixels high.
    template <class Look>
    get& add(const char16_t* caption, Look look, int height = 20) {
        label(caption);
        get& field = place(left() + captionWidth, top(), height);
        look(field);
        row_ += (height + rowHeight - 1) / rowHeight;
        return field;
    }

    /// A field with the focus, after what `act` does with it.
    template <class Look, class Act>
    void focused(const char16_t* caption, Look look, Act act, int height = 20) {
        label(caption);
        get& field = place(left() + captionWidth, top(), height);
        look(field);
        if (!form_.Visible()) form_.Show();
        host::DoEvents();
        field.Extender().SetFocus();
        host::DoEvents();
        act(field);
        host::DoEvents();
        copy(field);
        form_.remove(field);
        row_ += (height + rowHeight - 1) / rowHeight;
    }

    /// None of the fields that stay has the focus.
    void parkFocus() {
        auto& corner = form_.add<host::PictureBox>(nextName());
        corner.Extender().Move(0, 0, pixel, pixel);
        corner.BackColor(form_.BackColor());
        corner.Extender().SetFocus();
        host::DoEvents();
    }

private:
    int left() const { return margin + column_ * columnWidth; }
    int top() const { return margin + row_ * rowHeight; }
    String nextName() { return u"ctl" + String::fromUtf8(std::to_string(++count_)); }

    lbl& label(const char16_t* caption) {
        lbl& made = form_.add<lbl>(nextName());
        made.AutoSize(tesela::tslAutoSize_NO);
        made.Extender().Move(static_cast<float>(left()) * pixel, static_cast<float>(top() + 4) * pixel,
                             (captionWidth - 6) * pixel, 16 * pixel);
        made.Caption(caption);
        return made;
    }
    get& place(int x, int y, int height) {
        get& made = form_.add<get>(nextName());
        made.AutoSize(tesela::tslAutoSize_NO);
        made.Extender().Move(static_cast<float>(x) * pixel, static_cast<float>(y) * pixel, fieldWidth * pixel,
                             static_cast<float>(height) * pixel);
        return made;
    }
    /// What the window of the field shows now stays on the form.
    void copy(get& field) {
        const platform::RECT area = field.bounds().pixels();
        const platform::HDC window = platform::GetDC(field.hWnd());
        platform::BitBlt(form_.hDC(), area.left, area.top, area.right - area.left, area.bottom - area.top,
                         window, 0, 0, platform::SRCCOPY);
        platform::ReleaseDC(field.hWnd(), window);
    }

    host::Form& form_;
    int column_ = -1;
    int row_ = 0;
    int count_ = 0;
};

void texted(get& field) {
    field.Text(u"Nombre del cliente");
}

void amount(get& field) {
    field.TipoDato(tesela::tslTipoDatoNumero);
    field.FormatoMascara(u"(7,2)");
    field.Value(12345.6);
}

void date(get& field) {
    field.TipoDato(tesela::tslTipoDatoFecha);
    field.Mascara(tesela::globales().cFmtFecha);
    field.Value(automation::DateSerial(2026, 3, 14));
}

void hour(get& field) {
    field.Mascara(u"##:##");
    field.Text(u"17:45");
}

void withButtons(get& field) {
    field.BotonCombo(true);
    field.BotonBuscar(true);
    field.BotonFicha(true);
    field.Text(u"Cliente");
}

void largeButtons(get& field) {
    withButtons(field);
    field.ButtonWidth(34);
}

void disabledButtons(get& field) {
    field.EnabledCombo(false);
    field.EnabledBuscar(false);
    field.EnabledFicha(false);
}

void locked(get& field) {
    texted(field);
    field.Locked(true);
}

/// Bands behind the groups of four digits of a long number.
void banded(get& field) {
    field.UserDrawnMode(tesela::tslCtlUserDrawnMode_Background);
    field.MaxLength(20);
    field.Font()->Name(u"Courier");
    field.PaintBackground.join([&field](automation::Ref<tesela::cCanvas>&) { field.PaintHGradient(4); });
}

void types(Sheet& sheet) {
    using namespace tesela;
    sheet.column(u"Tipos y aspecto");
    sheet.add(u"Texto", texted);
    sheet.add(u"Número", amount);
    sheet.add(u"Fecha", date);
    sheet.add(u"Hora", hour);
    sheet.add(u"Fecha en blanco", [](get& f) {
        date(f);
        f.Value(u"");
    });
    sheet.add(u"Contraseña", [](get& f) {
        f.PasswordChar(u"*");
        f.Text(u"secreto");
    });
    sheet.add(u"A la derecha", [](get& f) {
        texted(f);
        f.Alignment(tslAlignmentRightJustify);
    });
    sheet.add(u"Centrado", [](get& f) {
        texted(f);
        f.Alignment(tslAlignmentCenter);
    });
    sheet.add(u"Decimales fantasma", [](get& f) {
        f.TipoDato(tslTipoDatoNumero);
        f.FormatoMascara(u"(5,0,2)");
        f.Value(std::int32_t{1250});
    });
    sheet.add(u"Vacío en blanco", [](get& f) {
        amount(f);
        f.VacioEnBlanco(true);
        f.Value(std::int32_t{0});
    });
    sheet.add(u"Plano", [](get& f) {
        texted(f);
        f.Appearance(tslAppearanceFlat);
    });
    sheet.add(u"Sin borde", [](get& f) {
        texted(f);
        f.BorderStyle(tslBorderStyleNone);
    });
    sheet.add(u"Colores propios", [](get& f) {
        texted(f);
        f.BackColor(0xC0FFFF);
        f.ForeColor(0x800000);
    });
    sheet.add(u"Letras anchas", [](get& f) {
        texted(f);
        f.FontWidth(1.5F);
    });
    sheet.add(
        u"Varias líneas",
        [](get& f) {
            f.MultiLine(true);
            f.Text(u"Un texto que se reparte en varias líneas, cada una hasta donde cabe");
        },
        66);
}

void states(Sheet& sheet) {
    using namespace tesela;
    sheet.column(u"Estados y botones");
    sheet.add(u"Bloqueado", locked);
    sheet.add(u"Bloqueado sin Tab", [](get& f) {
        texted(f);
        f.Extender().TabStop(false);
        f.Locked(true);
    });
    sheet.add(u"ShownEnabled", [](get& f) {
        texted(f);
        f.ShownEnabled(false);
    });
    sheet.add(u"EnabledGet", [](get& f) {
        texted(f);
        f.EnabledGet(false);
    });
    sheet.add(u"Desactivado", [](get& f) {
        texted(f);
        f.Enabled(false);
    });
    sheet.add(u"Botones", withButtons);
    sheet.add(u"Botones planos", [](get& f) {
        withButtons(f);
        f.Appearance(tslAppearanceFlat);
    });
    sheet.add(u"Botones desactivados", [](get& f) {
        withButtons(f);
        disabledButtons(f);
    });
    sheet.add(u"Todo desactivado", [](get& f) {
        withButtons(f);
        f.Enabled(false);
    });
    sheet.add(u"Botones grandes", largeButtons, 40);
    sheet.add(
        u"Grandes, desactivados",
        [](get& f) {
            largeButtons(f);
            disabledButtons(f);
        },
        40);
    sheet.add(u"Progreso", [](get& f) {
        f.Text({});
        f.AutoPaintGauge(42, 100, true);
    });
    sheet.add(u"Progreso con decimales", [](get& f) {
        f.Text({});
        f.AutoPaintGauge(1, 3, true, 2, 0x80FF80);
    });
    sheet.add(u"Bandas", [](get& f) {
        banded(f);
        f.Text(u"21000418450200051332");
    });
    sheet.add(u"Dibujado encima", [](get& f) {
        f.UserDrawnMode(tslCtlUserDrawnMode_Foreground);
        f.UserDrawn.join([](automation::Ref<cCanvas>& canvas) {
            canvas->SelectSimplePen(0x0000FF);
            canvas->DrawLine(4, canvas->Height() / 2, canvas->Width() - 5, canvas->Height() / 2);
        });
        f.Text(u"Anulado");
    });
}

void focusLooks(Sheet& sheet) {
    using namespace tesela;
    using namespace platform;
    sheet.column(u"Con el foco");
    const auto nothing = [](get&) {};
    const auto strike = [](int key) { headless::injectKey(key); };
    sheet.focused(u"Texto", texted, [&](get&) { strike(VK_END); });
    sheet.focused(u"Número, seleccionado", amount, nothing);
    sheet.focused(u"Fecha", date, nothing);
    sheet.focused(u"Hora", hour, nothing);
    sheet.focused(u"Selección parcial", texted, [](get& f) {
        f.SelStart(3);
        f.SelLength(8);
    });
    sheet.focused(u"Más largo que el campo", texted, [&](get&) {
        strike(VK_END);
        headless::injectText(u", con un apellido muy largo");
    });
    sheet.focused(u"Sobrescribiendo", texted, [&](get&) { strike(VK_INSERT); });
    sheet.focused(u"Bloqueado", locked, nothing);
    sheet.focused(
        u"Bandas",
        [](get& f) {
            banded(f);
            f.Text(u"2100041845");
        },
        nothing);
    const auto press = [](std::int32_t fromRight) {
        return [fromRight](get& f) {
            POINT at{fieldWidth - fromRight, 10};
            ClientToScreen(f.hWnd(), &at);
            headless::injectMouseMove(at.x, at.y);
            headless::injectMouseDown(VK_LBUTTON);
        };
    };
    const auto released = [&] {
        host::DoEvents();
        headless::injectMouseMove(0, 0);
        headless::injectMouseUp(VK_LBUTTON);
        host::DoEvents();
    };
    sheet.focused(u"Lista pulsada", withButtons, press(40));
    released();
    sheet.focused(u"Búsqueda pulsada", withButtons, press(25));
    released();
    sheet.focused(u"Ficha pulsada", withButtons, press(10));
    released();
    sheet.focused(
        u"Varias líneas",
        [](get& f) {
            f.MultiLine(true);
            f.Text(u"Un texto que se reparte en varias líneas, con un trozo seleccionado");
        },
        [](get& f) {
            f.SelStart(14);
            f.SelLength(30);
        },
        66);
}

} // namespace

bool field(const std::string& file) {
    const auto form = sheetForm(u"get", sheetWidth * pixel, sheetHeight * pixel);
    Sheet sheet(*form);
    types(sheet);
    states(sheet);
    focusLooks(sheet);
    sheet.parkFocus();
    return savePicture(*form, file);
}

} // namespace shot
