// Text against Cairo's image surface and Qt's raster painter. text12 draws and extent12 measures twelve
// characters of the sans-serif font at 13 pixels, smoothed as each does by itself, on a sheet of 640 by 400
// pixels of 32 bits.

#include "measure.h"

#include "platform/gdi.h"

#include <QFont>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include <cairo.h>

#include <string_view>

namespace {

using bench::compare;
using bench::keep;

constexpr int sheetWidth = 640;
constexpr int sheetHeight = 400;
constexpr const char* text = "Importe neto";
constexpr int textLength = 12;
constexpr const char* family = "Liberation Sans";
constexpr int size = 13;
constexpr int callsPerRun = 2000;

/// Where the text of a call lies, so that not always the same pixels are drawn on.
constexpr int leftOf(int call) {
    return call * 7 % (sheetWidth - 100);
}
constexpr int topOf(int call) {
    return call * 13 % (sheetHeight - 20);
}

class OurSheet {
public:
    OurSheet()
        : dc_(platform::CreateCompatibleDC({})),
          bitmap_(platform::CreateBitmap(sheetWidth, sheetHeight, 1, 32, nullptr)),
          font_(platform::CreateFontA(-size, 0, 0, 0, platform::FW_NORMAL, 0, 0, 0, 0, 0, 0, 0, 0, family)) {
        formerBitmap_ = platform::SelectObject(dc_, bitmap_);
        formerFont_ = platform::SelectObject(dc_, font_);
        platform::PatBlt(dc_, 0, 0, sheetWidth, sheetHeight, platform::WHITENESS);
        platform::SetBkMode(dc_, platform::TRANSPARENT);
    }
    ~OurSheet() {
        platform::SelectObject(dc_, formerBitmap_);
        platform::SelectObject(dc_, formerFont_);
        platform::DeleteObject(font_);
        platform::DeleteObject(bitmap_);
        platform::DeleteDC(dc_);
    }
    OurSheet(const OurSheet&) = delete;
    OurSheet& operator=(const OurSheet&) = delete;

    void draw() const {
        for (int i = 0; i < callsPerRun; ++i)
            platform::TextOutA(dc_, leftOf(i), topOf(i), text, textLength);
    }
    void measure() const {
        for (int i = 0; i < callsPerRun; ++i) {
            platform::SIZE extent;
            platform::GetTextExtentPoint32A(dc_, text, textLength, &extent);
            keep(extent);
        }
    }

private:
    platform::HDC dc_;
    platform::HBITMAP bitmap_;
    platform::HFONT font_;
    platform::HGDIOBJ formerBitmap_;
    platform::HGDIOBJ formerFont_;
};

class CairoSheet {
public:
    CairoSheet()
        : surface_(cairo_image_surface_create(CAIRO_FORMAT_RGB24, sheetWidth, sheetHeight)),
          context_(cairo_create(surface_)) {
        cairo_set_source_rgb(context_, 1, 1, 1);
        cairo_paint(context_);
        cairo_set_source_rgb(context_, 0, 0, 0);
        cairo_select_font_face(context_, family, CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
        cairo_set_font_size(context_, size);
    }
    ~CairoSheet() {
        cairo_destroy(context_);
        cairo_surface_destroy(surface_);
    }
    CairoSheet(const CairoSheet&) = delete;
    CairoSheet& operator=(const CairoSheet&) = delete;

    void draw() const {
        for (int i = 0; i < callsPerRun; ++i) {
            cairo_move_to(context_, leftOf(i), topOf(i) + size);
            cairo_show_text(context_, text);
        }
        cairo_surface_flush(surface_);
    }
    void measure() const {
        for (int i = 0; i < callsPerRun; ++i) {
            cairo_text_extents_t extents;
            cairo_text_extents(context_, text, &extents);
            keep(extents);
        }
    }

private:
    cairo_surface_t* surface_;
    cairo_t* context_;
};

class QtSheet {
public:
    QtSheet() : image_(sheetWidth, sheetHeight, QImage::Format_RGB32), text_(QString::fromLatin1(text)) {
        image_.fill(Qt::white);
        font_.setFamily(QString::fromLatin1(family));
        font_.setPixelSize(size);
    }

    void draw() {
        QPainter painter(&image_);
        painter.setFont(font_);
        for (int i = 0; i < callsPerRun; ++i)
            painter.drawText(leftOf(i), topOf(i) + size, text_);
    }
    void measure() const {
        const QFontMetrics metrics(font_);
        for (int i = 0; i < callsPerRun; ++i) {
            const int width = metrics.horizontalAdvance(text_);
            keep(width);
        }
    }

private:
    QImage image_;
    QFont font_;
    QString text_;
};

} // namespace

int main(int argc, char** argv) {
    // Qt's painter needs an application for its fonts, but no display.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const OurSheet ours;
    const CairoSheet cairo;
    QtSheet qt;
    compare("text12",
            {{"ours", [&] { ours.draw(); }}, {"cairo", [&] { cairo.draw(); }}, {"qt", [&] { qt.draw(); }}});
    compare("extent12", {{"ours", [&] { ours.measure(); }},
                         {"cairo", [&] { cairo.measure(); }},
                         {"qt", [&] { qt.measure(); }}});
    return 0;
}
