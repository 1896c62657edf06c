// What controls paint through the canvas class: arrowheads, curves, diagonals, a marked-up paragraph and a
// whole cell like a button, against Cairo's image surface and Qt's raster painter.
#include "measure.h"

#include "drawing/cHTML.h"
#include "frame/Globales.h"

#include <QFont>
#include <QGuiApplication>
#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <QTextDocument>

#include <cairo.h>

#include <memory>

namespace {

using bench::Candidate;
using tesela::cCanvas;

constexpr int width = 1280, height = 800;
constexpr int callsPerRun = 500;
constexpr int cellWidth = 100, cellHeight = 24, iconSide = 16;
constexpr int triangleLines = 7, ellipseSide = 40, diagonal = 100;
constexpr const char16_t* paragraph =
    u"Un párrafo con <B>negrita</B>, <I>cursiva</I> y <FONT COLOR='#C00000'>color</FONT> que ocupa varias "
    u"líneas, porque no cabe en el ancho de la celda en que se escribe.";
constexpr int paragraphWidth = 240;

/// Where a call draws, so that not always the same pixels are meant.
int leftOf(int call) {
    return call * 37 % 900;
}
int topOf(int call) {
    return call * 53 % 600;
}
int colorOf(int call) {
    return (call * 7 & 0xFF) | 0x804000;
}
QColor qtColorOf(int call) {
    return QColor(call * 7 & 0xFF, 0x40, 0x80);
}

class OurSheet {
public:
    OurSheet() {
        tesela::EnsureInicio();
        canvas_->Configure({}, 0, 0, width, height, tesela::DCProvider_Auto, false);
        canvas_->FillBox(0, 0, width, height, 0xFFFFFF);
        html_->Canvas(canvas_);
        html_->HTMLText(paragraph);
        makeIcon();
    }

    void triangles() {
        for (int i = 0; i < callsPerRun; ++i)
            canvas_->DrawTriangle(leftOf(i), topOf(i), triangleLines, colorOf(i));
    }
    void ellipses() {
        canvas_->SelectSimplePen(0);
        for (int i = 0; i < callsPerRun; ++i) {
            canvas_->SelectSolidBrush(colorOf(i));
            canvas_->Ellipse(leftOf(i), topOf(i), leftOf(i) + ellipseSide - 1, topOf(i) + ellipseSide - 1);
        }
    }
    void diagonals() {
        for (int i = 0; i < callsPerRun; ++i)
            canvas_->DrawLine(leftOf(i), topOf(i), leftOf(i) + diagonal, topOf(i) + diagonal * 7 / 10,
                              colorOf(i));
    }
    void paragraphs() {
        for (int i = 0; i < callsPerRun / 10; ++i) {
            html_->SetMargenes(leftOf(i), topOf(i), leftOf(i) + paragraphWidth);
            html_->Render(false);
        }
    }
    void cells() {
        cCanvas& c = *canvas_;
        c.SelectFont(u"Liberation Sans", -13);
        c.SetTextColor(0);
        for (int i = 0; i < callsPerRun; ++i) {
            const int x = leftOf(i), y = topOf(i), right = x + cellWidth - 1, bottom = y + cellHeight - 1;
            c.GradientFillRect(x, y, right + 1, bottom + 1, false, 0xFFFFFF, colorOf(i));
            c.DrawBox(x, y, right, bottom, 0xE0E0E0, 0x404040);
            c.DrawBox(x + 1, y + 1, right - 1, bottom - 1, 0xFFFFFF, 0x808080);
            c.TextOut(x + 24, y + 5, u"Aceptar");
            c.PaintPicture(icon_, x + 4, y + 4, iconSide, iconSide);
        }
    }

private:
    void makeIcon() {
        platform::BITMAPINFO info;
        info.bmiHeader.biWidth = info.bmiHeader.biHeight = iconSide;
        info.bmiHeader.biBitCount = 32;
        void* bits = nullptr;
        platform::ICONINFO parts;
        parts.hbmColor = platform::CreateDIBSection({}, &info, platform::DIB_RGB_COLORS, &bits, {}, 0);
        for (int i = 0; i < iconSide * iconSide; ++i)
            static_cast<std::uint32_t*>(bits)[i] = static_cast<std::uint32_t>(i) << 24 | 0x336699;
        parts.hbmMask = platform::CreateBitmap(iconSide, iconSide, 1, 1, nullptr);
        const platform::HICON icon = platform::CreateIconIndirect(&parts);
        platform::DeleteObject(parts.hbmColor);
        platform::DeleteObject(parts.hbmMask);
        icon_ = canvas_->BitMap2Picture(platform::HGDIOBJ(icon.value), {}, 1);
    }

    automation::Ref<cCanvas> canvas_ = automation::make<cCanvas>();
    automation::Ref<tesela::cHTML> html_ = automation::make<tesela::cHTML>();
    automation::Ref<host::Picture> icon_;
};

class QtSheet {
public:
    QtSheet()
        : image_(width, height, QImage::Format_RGB32), icon_(iconSide, iconSide, QImage::Format_ARGB32),
          painter_((image_.fill(Qt::white), &image_)) {
        for (int i = 0; i < iconSide * iconSide; ++i)
            icon_.setPixel(i % iconSide, i / iconSide, static_cast<unsigned>(i) << 24 | 0x336699);
        icon_.convertTo(QImage::Format_ARGB32_Premultiplied);
        font_.setFamily("Liberation Sans");
        font_.setPixelSize(13);
        document_.setDefaultFont(QFont("Verdana", 8));
    }

    void triangles() {
        painter_.setPen(Qt::NoPen);
        for (int i = 0; i < callsPerRun; ++i) {
            const int x = leftOf(i), y = topOf(i);
            const QPoint corners[] = {{x - triangleLines, y - 3}, {x + triangleLines, y - 3}, {x, y + 4}};
            painter_.setBrush(qtColorOf(i));
            painter_.drawPolygon(corners, 3);
        }
    }
    void ellipses() {
        painter_.setPen(Qt::black);
        for (int i = 0; i < callsPerRun; ++i) {
            painter_.setBrush(qtColorOf(i));
            painter_.drawEllipse(leftOf(i), topOf(i), ellipseSide - 1, ellipseSide - 1);
        }
    }
    void diagonals() {
        for (int i = 0; i < callsPerRun; ++i) {
            painter_.setPen(qtColorOf(i));
            painter_.drawLine(leftOf(i), topOf(i), leftOf(i) + diagonal, topOf(i) + diagonal * 7 / 10);
        }
    }
    void paragraphs() {
        const QString text = QString::fromUtf16(paragraph);
        for (int i = 0; i < callsPerRun / 10; ++i) {
            document_.setHtml(text);
            document_.setTextWidth(paragraphWidth);
            painter_.save();
            painter_.translate(leftOf(i), topOf(i));
            document_.drawContents(&painter_);
            painter_.restore();
        }
    }
    void cells() {
        painter_.setFont(font_);
        const QString text = "Aceptar";
        for (int i = 0; i < callsPerRun; ++i) {
            const int x = leftOf(i), y = topOf(i), right = x + cellWidth - 1, bottom = y + cellHeight - 1;
            QLinearGradient gradient(x, y, x, y + cellHeight);
            gradient.setColorAt(0, Qt::white);
            gradient.setColorAt(1, qtColorOf(i));
            painter_.fillRect(x, y, cellWidth, cellHeight, gradient);
            frame(x, y, right, bottom, 0xFFE0E0E0, 0xFF404040);
            frame(x + 1, y + 1, right - 1, bottom - 1, 0xFFFFFFFF, 0xFF808080);
            painter_.setPen(Qt::black);
            painter_.drawText(x + 24, y + 17, text);
            painter_.drawImage(x + 4, y + 4, icon_);
        }
    }

private:
    void frame(int left, int top, int right, int bottom, QRgb light, QRgb shadow) {
        painter_.setPen(QColor(light));
        painter_.drawLine(left, bottom, left, top);
        painter_.drawLine(left, top, right, top);
        painter_.setPen(QColor(shadow));
        painter_.drawLine(right, top, right, bottom);
        painter_.drawLine(right, bottom, left, bottom);
    }

    QImage image_, icon_;
    QPainter painter_;
    QFont font_;
    QTextDocument document_;
};

class CairoSheet {
public:
    CairoSheet()
        : surface_(cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, height)),
          context_(cairo_create(surface_)) {
        cairo_set_antialias(context_, CAIRO_ANTIALIAS_NONE);
        cairo_set_line_width(context_, 1);
    }
    ~CairoSheet() {
        cairo_destroy(context_);
        cairo_surface_destroy(surface_);
    }
    CairoSheet(const CairoSheet&) = delete;
    CairoSheet& operator=(const CairoSheet&) = delete;

    void triangles() {
        for (int i = 0; i < callsPerRun; ++i) {
            color(i);
            cairo_move_to(context_, leftOf(i) - triangleLines, topOf(i) - 3);
            cairo_line_to(context_, leftOf(i) + triangleLines, topOf(i) - 3);
            cairo_line_to(context_, leftOf(i), topOf(i) + 4);
            cairo_fill(context_);
        }
    }
    void ellipses() {
        for (int i = 0; i < callsPerRun; ++i) {
            color(i);
            cairo_arc(context_, leftOf(i) + ellipseSide / 2.0, topOf(i) + ellipseSide / 2.0,
                      ellipseSide / 2.0, 0, 6.283185307179586);
            cairo_fill_preserve(context_);
            cairo_set_source_rgb(context_, 0, 0, 0);
            cairo_stroke(context_);
        }
    }
    void diagonals() {
        for (int i = 0; i < callsPerRun; ++i) {
            color(i);
            cairo_move_to(context_, leftOf(i), topOf(i));
            cairo_line_to(context_, leftOf(i) + diagonal, topOf(i) + diagonal * 7 / 10.0);
            cairo_stroke(context_);
        }
    }

private:
    void color(int call) { cairo_set_source_rgb(context_, (call * 7 & 0xFF) / 255.0, 0.25, 0.5); }

    cairo_surface_t* surface_;
    cairo_t* context_;
};

} // namespace

int main(int argc, char** argv) {
    // Qt's painter needs an application for its fonts, but no display.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    OurSheet ours;
    QtSheet qt;
    CairoSheet cairo;
    const auto shape = [&](const char* name, auto our, auto qts, auto cairos) {
        bench::compare(name, {{"ours", [&] { (ours.*our)(); }},
                              {"cairo", [&] { (cairo.*cairos)(); }},
                              {"qt", [&] { (qt.*qts)(); }}});
    };
    shape("triangle7", &OurSheet::triangles, &QtSheet::triangles, &CairoSheet::triangles);
    shape("ellipse40", &OurSheet::ellipses, &QtSheet::ellipses, &CairoSheet::ellipses);
    shape("diagonal100", &OurSheet::diagonals, &QtSheet::diagonals, &CairoSheet::diagonals);
    bench::compare("html_paragraph",
                   {{"ours", [&] { ours.paragraphs(); }}, {"qt", [&] { qt.paragraphs(); }}});
    const std::vector<Candidate> cells = {{"ours", [&] { ours.cells(); }}, {"qt", [&] { qt.cells(); }}};
    const auto times = bench::interleaved(cells, 15);
    bench::ratio("button_cell", "qt", times[0], times[1]);
    std::printf("button_cell: %.0f cells a second, Qt %.0f\n", callsPerRun / times[0],
                callsPerRun / times[1]);
    return 0;
}
