// One sheet with every look of the label: how each property changes it, in columns.
#include "frame/lbl.h"
#include "shot/form_picture.h"
#include "shot/scenes.h"

namespace shot {

namespace {

using automation::String;
using tesela::lbl;

constexpr float pixel = 15; // twips
constexpr float columnWidth = 240 * pixel;
constexpr float margin = 16 * pixel;
constexpr float gap = 6 * pixel;
constexpr float cellWidth = 208 * pixel;

/// Places labels from top to bottom in columns.
class Sheet {
public:
    explicit Sheet(host::Form& form) : form_(form) {}

    void column(const char16_t* title) {
        left_ = margin + static_cast<float>(columns_++) * columnWidth;
        top_ = margin;
        lbl& head = place(0);
        head.Scheme(tesela::tslSchemeHeader_B);
        head.BackStyle(tesela::tslBackStyleTransparent);
        head.Caption(title);
        advance(head);
        top_ += gap;
    }

    /// A label of a height in pixels that `look` sets up; 0 leaves the size to the label.
    template <class Look>
    lbl& add(const char16_t* caption, float heightPixels, Look look) {
        lbl& label = place(heightPixels);
        look(label);
        label.Caption(caption); // last, so that a label that fits its text fits it with its border
        advance(label);
        return label;
    }

private:
    lbl& place(float heightPixels) {
        lbl& label = form_.add<lbl>(String(u"lbl") + String::fromUtf8(std::to_string(++count_)));
        if (heightPixels > 0) {
            label.AutoSize(tesela::tslAutoSize_NO);
            label.Extender().Move(left_, top_, cellWidth, heightPixels * pixel);
        } else {
            label.Extender().Left(left_);
            label.Extender().Top(top_);
        }
        return label;
    }
    void advance(lbl& label) { top_ += label.Extender().Height() + gap; }

    host::Form& form_;
    int columns_ = 0;
    int count_ = 0;
    float left_ = 0;
    float top_ = 0;
};

void bordered(lbl& label) {
    label.BorderStyle(tesela::tslBorderStyleFixedSingle);
}

void alignments(Sheet& sheet) {
    sheet.column(u"Alineación y borde");
    for (const auto alignment :
         {tesela::tslAlignmentLeftJustify, tesela::tslAlignmentRightJustify, tesela::tslAlignmentCenter}) {
        sheet.add(u"Importe: 1.234,56 €", 17, [=](lbl& label) { label.Alignment(alignment); });
        sheet.add(u"Importe: 1.234,56 €", 21, [=](lbl& label) {
            bordered(label);
            label.Alignment(alignment);
        });
    }
    sheet.add(u"Fondo de ventana", 21, [](lbl& label) {
        bordered(label);
        label.BackColor(host::colorWindowBackground);
    });
    sheet.add(u"Fondo amarillo, texto azul", 21, [](lbl& label) {
        bordered(label);
        label.BackColor(0xC0FFFF);
        label.ForeColor(0x800000);
    });
    sheet.add(u"Transparente", 21, [](lbl& label) { label.BackStyle(tesela::tslBackStyleTransparent); });
    sheet.add(u"Un texto demasiado largo para su sitio se corta", 17, [](lbl&) {});
}

void states(Sheet& sheet) {
    sheet.column(u"Estados y teclas");
    sheet.add(u"Activada", 17, [](lbl&) {});
    sheet.add(u"Desactivada", 17, [](lbl& label) { label.Enabled(false); });
    sheet.add(u"Desactivada, con borde", 21, [](lbl& label) {
        bordered(label);
        label.Enabled(false);
    });
    sheet.add(u"&Nombre del cliente", 17, [](lbl&) {});
    sheet.add(u"Pérez && Hijos", 17, [](lbl&) {});
    sheet.add(u"áéíóú ñ ü ç ¿¡ €", 17, [](lbl&) {});
    sheet.add(u"dos\r\nlíneas", 30, bordered);
    sheet.add(u"Línea que se parte sola porque lleva bastante más texto del que cabe", 0, [](lbl& label) {
        bordered(label);
        label.AutoSize(tesela::tslAutoSize_NO);
        label.Extender().Width(120 * pixel);
        label.AutoSize(tesela::tslAutoSize_Y);
    });
    sheet.add(u"Tan ancha como su texto", 0, bordered);
}

void schemes(Sheet& sheet) {
    sheet.column(u"Esquemas y tipos de letra");
    const struct {
        tesela::tslSchemeConstants scheme;
        const char16_t* caption;
    } all[] = {
        {tesela::tslSchemeUseAmbient, u"Esquema del contenedor"},
        {tesela::tslSchemeUseDefault, u"Esquema por defecto"},
        {tesela::tslSchemeHeader_A, u"Cabecera A"},
        {tesela::tslSchemeHeader_B, u"Cabecera B"},
    };
    for (const auto& each : all) {
        lbl& label = sheet.add(each.caption, 0, [&](lbl& l) { l.Scheme(each.scheme); });
        label.BackStyle(tesela::tslBackStyleTransparent);
    }
    const auto styled = [&](const char16_t* caption, auto change) {
        sheet.add(caption, 0, [&](lbl& label) { change(*label.Font()); });
    };
    styled(u"Negrita", [](host::StdFont& font) { font.Bold(true); });
    styled(u"Cursiva", [](host::StdFont& font) { font.Italic(true); });
    styled(u"Subrayado y tachado", [](host::StdFont& font) {
        font.Underline(true);
        font.Strikethrough(true);
    });
    const char16_t* const fonts[] = {u"Arial", u"Tahoma", u"Times New Roman", u"Courier New"};
    for (const char16_t* name : fonts)
        sheet.add(name, 0, [&](lbl& label) {
            label.Font()->Name(name);
            label.Font()->Size(automation::Currency(10));
        });
}

} // namespace

bool label(const std::string& file) {
    const auto form = sheetForm(u"lbl", 3 * columnWidth + margin, 340 * pixel);
    Sheet sheet(*form);
    alignments(sheet);
    states(sheet);
    schemes(sheet);
    return savePicture(*form, file);
}

} // namespace shot
