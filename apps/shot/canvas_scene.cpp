// One sheet with every primitive of the canvas.
#include "host/Colors.h"
#include "shot/CanvasSheet.h"
#include "shot/scenes.h"

#include <cmath>

namespace shot {

namespace {

using automation::String;
using platform::POINT;
using tesela::cCanvas;
using namespace tesela; // the names of its constants

constexpr std::int32_t black = 0, white = 0xFFFFFF, red = 0x2020D0, green = 0x30A030, blue = 0xD05020,
                       yellow = 0x30D8F8, violet = 0xB04090, grey = 0xA0A0A0, light = 0xFFF0E0;
constexpr double pi = 3.14159265358979;

void lines(CanvasSheet& sheet) {
    sheet.cell(u"DrawLine, SelectPen", [](cCanvas& c) {
        const PenStyleConstants styles[] = {PenStyle_Solid, PenStyle_Dash, PenStyle_Dot, PenStyle_DashDot,
                                            PenStyle_DashDotDot};
        std::int32_t y = 2;
        for (const PenStyleConstants style : styles) {
            c.SelectPen(style, 1, black);
            c.DrawLine(0, y, 60, y);
            y += 8;
        }
        for (std::int32_t width = 1; width <= 5; ++width) {
            c.SelectPen(PenStyle_Solid, width, blue);
            c.DrawLine(70, width * 11 - 8, 130, width * 11);
        }
        for (std::int32_t i = 0; i <= 60; i += 6)
            c.DrawLine(0, 44, 60, 44 + i / 2, i % 12 ? red : green);
    });
    sheet.cell(u"DrawBox", [](cCanvas& c) {
        c.DrawBox(0, 0, 40, 30, red, blue);
        c.DrawBox(50, 0, 90, 30, white, 0x808080);
        c.DrawBox(51, 1, 89, 29, 0xE0E0E0, 0x404040);
        c.DrawBox(100, 0, 130, 30, green);
        c.DrawBox(0, 40, 130, 70, -1, host::systemColor(13));
    });
    sheet.cell(u"FillBox, FillRect, SetPixel", [](cCanvas& c) {
        c.FillBox(0, 0, 30, 30, red);
        c.FillBox(32, 0, 32, 0, black);
        c.FillBox(40, 0, 70, 30, host::systemColor(13));
        c.SelectSolidBrush(yellow);
        c.FillRect(80, 0, 130, 30);
        for (std::int32_t y = 0; y < 32; ++y)
            for (std::int32_t x = 0; x < 130; ++x)
                c.SetPixel(x, 40 + y, x * 255 / 129 + (y * 8 << 8) + ((x * y) % 256 << 16));
    });
    sheet.cell(u"GradientFillRect", [](cCanvas& c) {
        c.GradientFillRect(0, 0, 130, 20, true, red, yellow);
        c.GradientFillRect(0, 24, 130, 46, false, white, grey);
        c.GradientFillRect(0, 50, 62, 72, false, light, blue);
        c.GradientFillRect(68, 50, 130, 72, true, black, white);
    });
    sheet.cell(u"SelectHatchBrush", [](cCanvas& c) {
        for (std::int32_t style = 0; style < 6; ++style) {
            c.SelectHatchBrush(static_cast<HatchStyleConstants>(style), style % 2 ? blue : red);
            const std::int32_t x = style % 3 * 44, y = style / 3 * 36;
            c.Rectangle(x, y, x + 40, y + 32);
        }
    });
    sheet.cell(u"SelectPatternBrush", [](cCanvas& c) {
        cCanvas tile;
        tile.Configure(c.GetPaintDC(), 0, 0, 8, 8);
        tile.FillBox(0, 0, 7, 7, light);
        tile.DrawLine(0, 0, 7, 7, red);
        tile.FillBox(5, 1, 6, 2, blue);
        const auto pattern = tile.BitMap2Picture();
        c.SelectPatternBrush(pattern->hBitmap());
        c.Rectangle(0, 0, 60, 70);
        c.Ellipse(66, 0, 130, 70);
    });
}

void shapes(CanvasSheet& sheet) {
    sheet.cell(u"Rectangle, RoundRect", [](cCanvas& c) {
        c.SelectSolidBrush(light);
        c.Rectangle(0, 0, 40, 30);
        c.SelectPen(PenStyle_Solid, 3, red);
        c.Rectangle(50, 2, 88, 30);
        c.SelectSimplePen(blue);
        c.RoundRect(0, 38, 60, 72, 16, 16);
        c.SelectPen(PenStyle_Solid, 4, green);
        c.RoundRect(70, 38, 130, 72, 40, 20);
    });
    sheet.cell(u"Ellipse", [](cCanvas& c) {
        c.SelectSolidBrush(yellow);
        c.Ellipse(0, 0, 60, 40);
        c.SelectNullBrush();
        c.SelectPen(PenStyle_Solid, 5, violet);
        c.Ellipse(72, 4, 128, 68);
        c.SelectSimplePen(red);
        for (std::int32_t size = 1; size < 9; ++size)
            c.Ellipse(size * 7, 50, size * 8, 50 + size);
    });
    sheet.cell(u"Pie, Chord, Arc", [](cCanvas& c) {
        c.SelectSolidBrush(green);
        c.Pie(0, 0, 40, 70, 40, 0, 0, 10);
        c.Chord(45, 0, 85, 70, 85, 0, 45, 60);
        c.Arc(90, 0, 130, 70, 130, 70, 90, 0);
    });
    sheet.cell(u"Sector, Cuerda, Arco", [](cCanvas& c) {
        const std::int32_t colors[] = {red, green, blue, yellow, violet};
        for (int i = 0; i < 5; ++i) {
            c.SelectSolidBrush(colors[i]);
            c.Sector(0, 0, 60, 60, i * 2 * pi / 5, (i + 1) * 2 * pi / 5);
        }
        c.Cuerda(66, 0, 96, 60, pi / 6, pi * 1.2);
        c.Arco(100, 0, 130, 60, pi / 2, pi * 1.9);
    });
    sheet.cell(u"Polygon, Polyline", [](cCanvas& c) {
        std::vector<POINT> star, zigzag;
        for (int i = 0; i < 5; ++i) {
            const double angle = i * 4 * pi / 5 - pi / 2;
            star.push_back({static_cast<std::int32_t>(std::lround(34 + 34 * std::cos(angle))),
                            static_cast<std::int32_t>(std::lround(36 + 34 * std::sin(angle)))});
        }
        for (std::int32_t i = 0; i < 9; ++i)
            zigzag.push_back({76 + i * 6, i % 2 ? 10 : 60});
        c.SelectSolidBrush(yellow);
        c.Polygon(star);
        c.SelectPen(PenStyle_Solid, 2, blue);
        c.Polyline(zigzag);
    });
    sheet.cell(u"PolyBezier, PolyBezierTo", [](cCanvas& c) {
        const POINT wave[] = {{0, 40}, {30, -20}, {60, 100}, {90, 40}, {105, 10}, {125, 10}, {130, 40}};
        c.SelectPen(PenStyle_Solid, 3, red);
        c.PolyBezier(wave);
        c.SelectSimplePen(blue);
        c.MoveTo(0, 70);
        const POINT on[] = {{40, 20}, {90, 20}, {130, 70}};
        c.PolyBezierTo(on);
    });
}

void fillsAndModes(CanvasSheet& sheet) {
    sheet.cell(u"FloodFill", [](cCanvas& c) {
        c.SelectSolidBrush(white);
        c.Ellipse(0, 0, 70, 70);
        c.Ellipse(40, 0, 130, 70);
        c.SelectSolidBrush(yellow);
        c.FloodFill(10, 35, white, true);
        c.SelectHatchBrush(HatchStyle_DiagCross, red);
        c.FloodFill(55, 35, black, false);
    });
    sheet.cell(u"DrawTriangle", [](cCanvas& c) {
        std::int32_t x = 10;
        for (const std::int32_t angle : {0, 90, 180, 270}) {
            c.DrawTriangle(x, 10, 4, black, angle);
            c.DrawTriangle(x, 40, 12, red, angle);
            x += 32;
        }
        for (std::int32_t lines = 1; lines < 9; ++lines)
            c.DrawTriangle(lines * 15, 66, lines, blue);
    });
    sheet.cell(u"SetDrawMode", [](cCanvas& c) {
        c.GradientFillRect(0, 0, 130, 72, true, red, blue);
        for (std::int32_t mode = 1; mode <= 16; ++mode) {
            c.SelectPen(PenStyle_Solid, 5, green);
            c.SetDrawMode(static_cast<BinaryMixModeConstants>(mode));
            const std::int32_t x = mode * 8 - 3;
            c.DrawLine(x, 6, x, 66);
        }
        c.SetDrawMode(BinaryMixMode_CopyPen);
    });
    sheet.cell(u"SetClippingRect, paths", [](cCanvas& c) {
        // The clipping is in pixels of the surface, wherever the origin lies.
        std::int32_t x = 0, y = 0;
        c.GetWndOrg(x, y);
        c.SetClippingRect({-x + 5, -y + 5, -x + 45, -y + 50});
        c.SelectSolidBrush(green);
        c.Ellipse(0, 0, 60, 70);
        c.ClearClipping();
        c.BeginPath();
        c.Ellipse(70, 0, 130, 40);
        c.EndPath();
        c.SetClippingPath(ClipPathMode_Copy);
        c.GradientFillRect(70, 0, 131, 41, false, yellow, red);
        c.ClearClipping();
        c.SelectPen(PenStyle_Solid, 2, blue);
        c.SelectSolidBrush(light);
        c.BeginPath();
        c.MoveTo(72, 48);
        c.LineTo(128, 48);
        c.LineTo(100, 72);
        c.CloseFigure();
        c.EndPath();
        c.StrokeAndFillPath();
    });
    sheet.cell(u"RectangleTranslucency", [](cCanvas& c) {
        c.SelectHatchBrush(HatchStyle_Cross, black);
        c.FillRect(0, 0, 130, 70);
        for (std::int32_t i = 0; i < 4; ++i)
            c.RectangleTranslucency(4 + i * 32, 10, 30 + i * 32, 60, red,
                                    static_cast<std::uint8_t>(60 + i * 60));
    });
    sheet.cell(u"CalculateColorMix", [](cCanvas& c) {
        for (std::int32_t i = 0; i < 128; i += 8) {
            const auto share = static_cast<std::uint8_t>(255 - std::min(255, i * 2));
            c.FillBox(i, 0, i + 7, 34, c.CalculateColorMix(red, yellow, share));
            c.FillBox(i, 36, i + 7, 70, c.CalculateColorMix(white, blue, share));
        }
    });
}

void text(CanvasSheet& sheet) {
    sheet.cell(u"CreateStandardFonts", [](cCanvas& c) {
        c.CreateStandardFonts();
        c.SelectStdFont(tslStdFont_Normal);
        c.TextOut(0, 0, u"Texto normal, año 2026");
        c.SelectStdFont(tslStdFont_Fixed);
        c.TextOut(0, 22, u"Texto fijo 1234");
        c.SelectStdFont(tslStdFont_Numbers);
        c.TextOut(0, 44, u"1.234.567,89 €");
    });
    sheet.cell(u"SelectSimpleFont", [](cCanvas& c) {
        const struct {
            const char16_t* text;
            std::int32_t style;
        } all[] = {{u"Normal", tslFontStyleNormal},
                   {u"Negrita", tslFontStyleBold},
                   {u"Cursiva", tslFontStyleItalic},
                   {u"Subrayada", tslFontStyleUnderline},
                   {u"Tachada", tslFontStyleStrikeOut}};
        std::int32_t y = 0;
        for (const auto& each : all) {
            String face = u"Arial";
            c.SelectSimpleFont(face, 90, each.style);
            c.TextOut(0, y, each.text);
            c.SelectSimpleFont(face, 90, each.style + tslFontStyleBold);
            c.TextOut(66, y, each.text);
            y += 15;
        }
    });
    sheet.cell(u"TextOutWithBorder", [](cCanvas& c) {
        c.GradientFillRect(0, 0, 130, 72, false, blue, light);
        c.SelectFont(u"Arial", -30, 0, false, false, false, 0, 0, 700);
        c.TextOutWithBorder(8, 16, u"Borde", yellow, black);
    });
    sheet.cell(u"TextOutRotatedOnCenter", [](cCanvas& c) {
        const struct {
            std::int32_t degrees;
            POINT centre;
        } all[] = {{0, {28, 60}}, {45, {28, 24}}, {90, {70, 36}}, {30, {105, 54}}, {-30, {105, 20}}};
        for (const auto& each : all) {
            c.SelectFont(u"Arial", -13, 0, false, false, false, each.degrees * 10, each.degrees * 10);
            c.SetTextColor(blue);
            c.TextOutRotatedOnCenter(u"girado", each.degrees, each.centre.x, each.centre.y);
            c.FillBox(each.centre.x - 1, each.centre.y - 1, each.centre.x + 1, each.centre.y + 1, red);
        }
    });
    sheet.cell(u"TextAlign, SetTextJustify", [](cCanvas& c) {
        c.SelectFont(u"Arial", -12);
        c.DrawLine(65, 0, 65, 46, grey);
        const TextAlignConstants aligns[] = {TextAlign_Left, TextAlign_Center, TextAlign_Right};
        std::int32_t y = 0;
        for (const TextAlignConstants align : aligns) {
            c.TextAlign(align);
            c.TextOut(65, y, u"texto");
            y += 15;
        }
        c.TextAlign(TextAlign_Left);
        std::int32_t width = 0, height = 0;
        c.GetTextExtent(u"uno dos tres", width, height);
        c.SetTextJustify(130 - width, 2);
        c.TextOut(0, 54, u"uno dos tres");
        c.SetTextJustify(0, 0);
    });
    sheet.cell(u"SelectVBStdFont", [](cCanvas& c) {
        const auto font = automation::make<host::StdFont>();
        font->Name(u"Arial");
        font->Size(automation::Currency(11));
        std::int32_t y = 0;
        for (const double factor : {0.6, 1.0, 1.5}) {
            c.SelectVBStdFont(font, tslFontStyleNormal, 0, FontQuality_Default, factor);
            c.TextOut(0, y, u"anchura");
            y += 22;
        }
    });
}

/// A ring with a hole through which the surface shows.
automation::Ref<host::Picture> ring(cCanvas& like) {
    constexpr std::int32_t size = 32;
    cCanvas colors;
    colors.Configure(like.GetPaintDC(), 0, 0, size, size);
    colors.SelectPen(PenStyle_Solid, 8, red);
    colors.SelectNullBrush();
    colors.Ellipse(5, 5, 26, 26);
    const auto image = colors.BitMap2Picture();
    const platform::HBITMAP maskBits = platform::CreateBitmap(size, size, 1, 1, nullptr);
    const platform::HDC maskDC = platform::CreateCompatibleDC({});
    const platform::HGDIOBJ former = platform::SelectObject(maskDC, maskBits);
    cCanvas mask;
    mask.Configure(maskDC, 0, 0, size, size, DCProvider_User);
    mask.FillBox(0, 0, size, size, white);
    mask.SelectPen(PenStyle_Solid, 8, black);
    mask.SelectNullBrush();
    mask.Ellipse(5, 5, 26, 26);
    mask.Minimize_GDI_UsedResources();
    platform::SelectObject(maskDC, former);
    platform::DeleteDC(maskDC);
    platform::ICONINFO parts;
    parts.hbmMask = maskBits;
    parts.hbmColor = image->hBitmap();
    const platform::HICON icon = platform::CreateIconIndirect(&parts);
    platform::DeleteObject(maskBits);
    return like.BitMap2Picture(platform::HGDIOBJ(icon.value), {}, 1);
}

/// A small landscape to copy about.
void landscape(cCanvas& c) {
    c.GradientFillRect(0, 0, 40, 24, false, blue, light);
    c.FillBox(0, 24, 39, 31, green);
    c.SelectSolidBrush(yellow);
    c.SelectNullPen();
    c.Ellipse(26, 3, 35, 12);
    c.DrawTriangle(12, 18, 12, violet, 90);
}

void copies(CanvasSheet& sheet) {
    cCanvas source;
    source.Configure(sheet.canvas().GetPaintDC(), 0, 0, 40, 32);
    landscape(source);
    const platform::HDC dc = source.GetPaintDC();
    sheet.cell(u"BitBlt, StretchBlt", [&](cCanvas& c) {
        c.BitBlt(dc, 0, 0, 40, 32);
        c.BitBlt(dc, 0, 38, 40, 32, 0, 0, static_cast<std::int32_t>(platform::NOTSRCCOPY));
        c.StretchBlt(dc, 46, 0, 84, 70, 0, 0, 40, 32);
    });
    sheet.cell(u"SetStretchBltMode, DIB", [&](cCanvas& c) {
        c.SetStretchBltMode(StretchBlt_ColorOnColor);
        c.StretchBlt(dc, 0, 0, 23, 19, 0, 0, 40, 32);
        c.SetStretchBltMode(StretchBlt_HalfTone);
        c.StretchBlt(dc, 0, 24, 23, 19, 0, 0, 40, 32);
        c.StretchBlt(dc, 30, 0, 100, 40, 0, 0, 40, 32);
        c.SetStretchBltMode(StretchBlt_ColorOnColor);
        c.DIB_StretchBlt(dc, 30, 46, 60, 24, 0, 0, 40, 32);
    });
    sheet.cell(u"TransparentBlt, AlphaBlend", [&](cCanvas& c) {
        c.SelectHatchBrush(HatchStyle_Cross, grey);
        c.FillRect(0, 0, 130, 72);
        c.TransparentBlt(dc, 4, 4, 40, 32, 0, 0, 0, 0, green);
        c.TransparentBlt(dc, 50, 4, 76, 32, 0, 0, 40, 32, violet);
        for (std::int32_t i = 0; i < 3; ++i)
            c.AlphaBlend(dc, 4 + i * 42, 40, 40, 32, 0, 0, 0, 0, static_cast<std::uint8_t>(64 + i * 80));
    });
    sheet.cell(u"PaintPicture", [&](cCanvas& c) {
        c.GradientFillRect(0, 0, 130, 72, true, white, grey);
        const auto picture = source.BitMap2Picture();
        const auto icon = ring(c);
        c.PaintPicture(picture, 0, 0);
        c.PaintPicture(picture, 0, 38, 60, 30);
        c.PaintPicture(icon, 70, 0);
        c.PaintPicture(icon, 106, 4, 20, 20, 0, 0, 32, 32);
        c.PaintPicture(icon, 70, 36, 16, 16);
        c.PaintPicture(icon, 90, 34, 38, 38);
    });
    sheet.cell(u"BeginRecordMetafile", [&](cCanvas& c) {
        const platform::HDC screen = c.GetDC({});
        cCanvas recorder;
        recorder.Configure(screen, 0, 0, 40, 32);
        recorder.BeginRecordMetafile();
        landscape(recorder);
        const platform::HENHMETAFILE metafile = recorder.EndRecordMetafile(false);
        c.ReleaseDC({}, screen);
        c.PlayMetafile(metafile, 0, 0, 40, 32);
        c.PlayMetafile(metafile, 50, 0, 80, 70);
        c.DeleteMetafile(metafile);
    });
    sheet.cell(u"ApplyTranslucency", [&](cCanvas& c) {
        for (std::int32_t i = 0; i < 3; ++i) {
            source.ApplyTranslucency(white, 90);
            c.BitBlt(dc, i * 44, 0, 40, 32);
        }
    });
}

} // namespace

bool canvas(const std::string& file) {
    CanvasSheet sheet(5);
    lines(sheet);
    shapes(sheet);
    fillsAndModes(sheet);
    text(sheet);
    copies(sheet);
    return sheet.save(u"cCanvas", file);
}

} // namespace shot
