// Marked-up texts in their styles, wrapped at several widths.
#include "drawing/cHTML.h"
#include "shot/CanvasSheet.h"
#include "shot/scenes.h"

namespace shot {

namespace {

const struct {
    const char16_t* shows;
    const char16_t* text;
} samples[] = {
    {u"B, I, U", u"<B>Negrita</B>, <I>cursiva</I> y <U>subrayada</U>"},
    {u"Etiquetas anidadas", u"<B>uno <I>dos <U>tres</U> dos</I> uno</B>"},
    {u"COLOR", u"<FONT COLOR='C00000'>rojo</FONT> <FONT COLOR='008000'>verde</FONT> "
               u"<FONT COLOR='0000C0'>azul</FONT>"},
    {u"SIZE", u"<FONT SIZE='6'>seis</FONT> ocho <FONT SIZE='12'>doce</FONT> <FONT SIZE='18'>18</FONT>"},
    {u"FACE", u"<FONT FACE='Courier New'>fijo</FONT> y <FONT FACE='Times New Roman' SIZE='11'>romano</FONT>"},
    {u"BR y fin de línea", u"Primera línea<BR>segunda\r\n<B>tercera</B>"},
    {u"Ajuste entre palabras",
     u"Un párrafo que no cabe en una línea, y por eso se parte <B>entre palabras</B> donde puede."},
    {u"Palabra muy larga", u"Unapalabramuchomáslargaquelalíneaenteradondesedibuja"},
    {u"Etiqueta desconocida", u"etiqueta <p> desconocida, y < suelto"},
    {u"Cierre sin apertura", u"sin abrir</B>cerrada y sigue"},
    {u"COLOR de tres cifras", u"<FONT COLOR='FF0'>000FF0: azul</FONT>"},
    {u"Ajuste en signos", u"uno,dos:tres;cuatro.cinco,seis:siete;ocho"},
};

} // namespace

bool html(const std::string& file) {
    constexpr std::int32_t textWidth = CanvasSheet::cellWidth - 14, textHeight = CanvasSheet::cellHeight - 26;
    CanvasSheet sheet(2);
    const auto renderer = automation::make<tesela::cHTML>();
    for (const auto& sample : samples) {
        sheet.cell(sample.shows, [&](tesela::cCanvas& canvas) {
            const auto cell = automation::make<tesela::cCanvas>();
            cell->Configure(canvas.GetPaintDC(), 0, 0, textWidth, textHeight);
            cell->FillBox(0, 0, textWidth, textHeight, 0xFFFFFF);
            renderer->Canvas(cell);
            renderer->HTMLText(sample.text);
            renderer->SetMargenes(2, 2, textWidth - 2);
            std::int32_t right = 0, bottom = 0;
            renderer->Render(false, right, bottom);
            cell->DrawLine(0, bottom, right, bottom, 0xFFC0A0); // the measured extent
            canvas.BitBlt(cell->GetPaintDC(), 0, 0, textWidth, textHeight);
        });
    }
    renderer->Canvas({});
    return sheet.save(u"cHTML", file);
}

} // namespace shot
