// Drawing against Cairo's image surface and Qt's raster painter: the small operations that controls are
// painted with, on a picture of 1280 by 800 pixels of 32 bits, and whole pictures against the machine's own
// fill and copy of the same bytes.

#include "measure.h"

#include "platform/gdi.h"

#include <cairo.h>

#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include <cstring>
#include <memory>

namespace {

using namespace platform;

constexpr int width = 1280;
constexpr int height = 800;
constexpr int iconSide = 16;
constexpr int spriteSide = 32;

/// Where the next of many equal drawings goes, and its colour.
struct Place {
    int number = 0;

    int x() const { return number * 37 % 1000; }
    int y() const { return number * 53 % 700; }
    unsigned red() const { return static_cast<unsigned>(number * 7 & 0xFF); }
    COLORREF color() const { return RGB(red(), 64, 128); }
    QColor qtColor() const { return QColor(static_cast<int>(red()), 64, 128); }
    void cairoColor(cairo_t* cairo) const { cairo_set_source_rgb(cairo, red() / 255.0, 0.25, 0.5); }
};

/// A memory context with a picture of its own.
class Picture {
public:
    Picture(int w, int h) : dc_(CreateCompatibleDC(HDC())) {
        BITMAPINFO info;
        info.bmiHeader.biWidth = w;
        info.bmiHeader.biHeight = -h;
        info.bmiHeader.biBitCount = 32;
        bitmap_ = CreateDIBSection(dc_, &info, DIB_RGB_COLORS, &bits_, HANDLE(), 0);
        previous_ = SelectObject(dc_, bitmap_);
        for (int i = 0; i < w * h; ++i)
            words()[i] = 0xFF000000u | static_cast<std::uint32_t>(i * 2654435761u) >> 8;
    }
    ~Picture() {
        SelectObject(dc_, previous_);
        DeleteObject(bitmap_);
        DeleteDC(dc_);
    }
    Picture(const Picture&) = delete;
    Picture& operator=(const Picture&) = delete;

    HDC dc() const { return dc_; }
    HBITMAP bitmap() const { return bitmap_; }
    std::uint32_t* words() const { return static_cast<std::uint32_t*>(bits_); }

private:
    HDC dc_;
    void* bits_ = nullptr;
    HBITMAP bitmap_;
    HGDIOBJ previous_;
};

/// The same surfaces for all three.
class Stage {
public:
    Stage()
        : target_(width, height), source_(width, height), qtTarget(width, height, QImage::Format_RGB32),
          qtSource(width, height, QImage::Format_RGB32),
          qtAlpha(spriteSide, spriteSide, QImage::Format_ARGB32_Premultiplied), qtPainter(&qtTarget),
          cairoTarget(cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, height)),
          cairoSource(cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, height)),
          cairoAlpha(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, spriteSide, spriteSide)),
          cairo(cairo_create(cairoTarget)) {
        qtSource.fill(0xFF336699);
        qtAlpha.fill(QColor(200, 10, 10, 120));
        cairo_set_antialias(cairo, CAIRO_ANTIALIAS_NONE);
        cairo_set_line_width(cairo, 1);
        cairo_t* sprite = cairo_create(cairoAlpha);
        cairo_set_source_rgba(sprite, 0.8, 0, 0, 0.5);
        cairo_paint(sprite);
        cairo_destroy(sprite);
        makeIcon();
        pen_ = CreatePen(PS_SOLID, 0, RGB(10, 20, 30));
        SelectObject(dc(), pen_);
    }
    ~Stage() {
        SelectObject(dc(), GetStockObject(BLACK_PEN));
        DeleteObject(pen_);
        DestroyIcon(icon_);
        cairo_destroy(cairo);
        cairo_surface_destroy(cairoTarget);
        cairo_surface_destroy(cairoSource);
        cairo_surface_destroy(cairoAlpha);
    }
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;

    HDC dc() const { return target_.dc(); }
    HDC source() const { return source_.dc(); }
    HICON icon() const { return icon_; }
    std::uint32_t* words() const { return target_.words(); }
    std::uint32_t* sourceWords() const { return source_.words(); }

private:
    void makeIcon() {
        const Picture color(iconSide, iconSide);
        for (int i = 0; i < iconSide * iconSide; ++i)
            color.words()[i] = static_cast<std::uint32_t>(i) << 24 | 0x336699;
        ICONINFO info;
        info.hbmMask = CreateBitmap(iconSide, iconSide, 1, 1, nullptr);
        info.hbmColor = color.bitmap();
        icon_ = CreateIconIndirect(&info);
        DeleteObject(info.hbmMask);
    }

    Picture target_;
    Picture source_;
    HICON icon_;
    HPEN pen_;

public:
    QImage qtTarget;
    QImage qtSource;
    QImage qtAlpha;
    QPainter qtPainter;
    cairo_surface_t* cairoTarget;
    cairo_surface_t* cairoSource;
    cairo_surface_t* cairoAlpha;
    cairo_t* cairo;
};

/// A drawing repeated at many places.
template <class Draw>
std::function<void()> times(int count, Draw draw) {
    return [count, draw] {
        for (Place place; place.number < count; ++place.number)
            draw(place);
    };
}

/// The three libraries' ways of one drawing.
template <class Ours, class Cairo, class Qt>
void compareAll(const std::string& name, int count, Ours ours, Cairo cairo, Qt qt) {
    bench::compare(
        name, {{"tesela", times(count, ours)}, {"cairo", times(count, cairo)}, {"qt", times(count, qt)}});
}

void fill(HDC dc, const RECT& r, COLORREF color) {
    const HBRUSH brush = CreateSolidBrush(color);
    FillRect(dc, &r, brush);
    DeleteObject(brush);
}

void fillBoxes(Stage& stage, const std::string& name, int side, int count) {
    compareAll(
        name, count,
        [&stage, side](const Place& p) {
            fill(stage.dc(), {p.x(), p.y(), p.x() + side, p.y() + side}, p.color());
        },
        [&stage, side](const Place& p) {
            p.cairoColor(stage.cairo);
            cairo_rectangle(stage.cairo, p.x(), p.y(), side, side);
            cairo_fill(stage.cairo);
        },
        [&stage, side](const Place& p) { stage.qtPainter.fillRect(p.x(), p.y(), side, side, p.qtColor()); });
}

void selectPen(HDC dc, HPEN& current, COLORREF color) {
    const HPEN pen = CreatePen(PS_SOLID, 0, color);
    SelectObject(dc, pen);
    if (current) DeleteObject(current);
    current = pen;
}

/// A frame in light and shadow.
void drawBoxes(Stage& stage) {
    constexpr int w = 60;
    constexpr int h = 20;
    HPEN pen;
    compareAll(
        "drawbox", 20000,
        [&stage, &pen](const Place& p) {
            const HDC dc = stage.dc();
            selectPen(dc, pen, p.color());
            MoveToEx(dc, p.x(), p.y() + h, nullptr);
            LineTo(dc, p.x(), p.y());
            LineTo(dc, p.x() + w, p.y());
            selectPen(dc, pen, RGB(128, 128, 128));
            LineTo(dc, p.x() + w, p.y() + h);
            LineTo(dc, p.x(), p.y() + h);
            SetPixelV(dc, p.x(), p.y() + h, RGB(128, 128, 128));
        },
        [&stage](const Place& p) {
            cairo_t* cairo = stage.cairo;
            p.cairoColor(cairo);
            cairo_move_to(cairo, p.x() + 0.5, p.y() + h + 0.5);
            cairo_line_to(cairo, p.x() + 0.5, p.y() + 0.5);
            cairo_line_to(cairo, p.x() + w + 0.5, p.y() + 0.5);
            cairo_stroke(cairo);
            cairo_set_source_rgb(cairo, 0.5, 0.5, 0.5);
            cairo_move_to(cairo, p.x() + w + 0.5, p.y() + 0.5);
            cairo_line_to(cairo, p.x() + w + 0.5, p.y() + h + 0.5);
            cairo_line_to(cairo, p.x() + 0.5, p.y() + h + 0.5);
            cairo_stroke(cairo);
        },
        [&stage](const Place& p) {
            const QPoint light[] = {{p.x(), p.y() + h}, {p.x(), p.y()}, {p.x() + w, p.y()}};
            const QPoint shadow[] = {{p.x() + w, p.y()}, {p.x() + w, p.y() + h}, {p.x(), p.y() + h}};
            stage.qtPainter.setPen(p.qtColor());
            stage.qtPainter.drawPolyline(light, 3);
            stage.qtPainter.setPen(QColor(128, 128, 128));
            stage.qtPainter.drawPolyline(shadow, 3);
        });
    SelectObject(stage.dc(), GetStockObject(BLACK_PEN));
    DeleteObject(pen);
}

void drawLines(Stage& stage) {
    stage.qtPainter.setPen(QColor(10, 20, 30));
    compareAll(
        "hline100", 50000,
        [&stage](const Place& p) {
            MoveToEx(stage.dc(), p.x(), p.y(), nullptr);
            LineTo(stage.dc(), p.x() + 100, p.y());
        },
        [&stage](const Place& p) {
            cairo_move_to(stage.cairo, p.x(), p.y() + 0.5);
            cairo_line_to(stage.cairo, p.x() + 100, p.y() + 0.5);
            cairo_stroke(stage.cairo);
        },
        [&stage](const Place& p) { stage.qtPainter.drawLine(p.x(), p.y(), p.x() + 99, p.y()); });
}

/// A part of another picture with Cairo: 1:1, opaque or blended.
void cairoCopy(cairo_t* cairo, cairo_surface_t* source, const Place& p, int w, int h, double alpha) {
    cairo_save(cairo);
    cairo_set_source_surface(cairo, source, p.x(), p.y());
    cairo_rectangle(cairo, p.x(), p.y(), w, h);
    cairo_clip(cairo);
    if (alpha < 1) {
        cairo_paint_with_alpha(cairo, alpha);
    } else {
        cairo_paint(cairo);
    }
    cairo_restore(cairo);
}

void copies(Stage& stage) {
    constexpr int w = 100;
    constexpr int h = 20;
    const QRect part(0, 0, w, h);
    compareAll(
        "bitblt_100x20", 20000,
        [&stage](const Place& p) { BitBlt(stage.dc(), p.x(), p.y(), w, h, stage.source(), 0, 0, SRCCOPY); },
        [&stage](const Place& p) { cairoCopy(stage.cairo, stage.cairoSource, p, w, h, 1); },
        [&stage, part](const Place& p) {
            stage.qtPainter.drawImage(QPoint(p.x(), p.y()), stage.qtSource, part);
        });
    const BLENDFUNCTION half{AC_SRC_OVER, 0, 128, 0};
    compareAll(
        "alphablend_100x20", 20000,
        [&stage, half](const Place& p) {
            AlphaBlend(stage.dc(), p.x(), p.y(), w, h, stage.source(), 0, 0, w, h, half);
        },
        [&stage](const Place& p) { cairoCopy(stage.cairo, stage.cairoSource, p, w, h, 0.5); },
        [&stage, part](const Place& p) {
            stage.qtPainter.setOpacity(0.5);
            stage.qtPainter.drawImage(QPoint(p.x(), p.y()), stage.qtSource, part);
            stage.qtPainter.setOpacity(1);
        });
    compareAll(
        "transparentblt_32", 20000,
        [&stage](const Place& p) {
            TransparentBlt(stage.dc(), p.x(), p.y(), spriteSide, spriteSide, stage.source(), 0, 0, spriteSide,
                           spriteSide, RGB(255, 0, 255));
        },
        [&stage](const Place& p) { cairoCopy(stage.cairo, stage.cairoAlpha, p, spriteSide, spriteSide, 1); },
        [&stage](const Place& p) { stage.qtPainter.drawImage(QPoint(p.x(), p.y()), stage.qtAlpha); });
    compareAll(
        "icon16", 20000,
        [&stage](const Place& p) {
            DrawIconEx(stage.dc(), p.x(), p.y(), stage.icon(), iconSide, iconSide, 0, HBRUSH(), DI_NORMAL);
        },
        [&stage](const Place& p) { cairoCopy(stage.cairo, stage.cairoAlpha, p, iconSide, iconSide, 1); },
        [&stage](const Place& p) {
            stage.qtPainter.drawImage(QPoint(p.x(), p.y()), stage.qtAlpha, QRect(0, 0, iconSide, iconSide));
        });
}

void gradients(Stage& stage) {
    constexpr int w = 100;
    constexpr int h = 20;
    compareAll(
        "gradient_v_100x20", 20000,
        [&stage](const Place& p) {
            const TRIVERTEX corners[] = {{p.x(), p.y(), 0xFF00, 0xFF00, 0xFF00, 0},
                                         {p.x() + w, p.y() + h, 0x4000, 0x6000, 0x8000, 0}};
            const GRADIENT_RECT mesh{0, 1};
            GradientFill(stage.dc(), corners, 2, &mesh, 1, GRADIENT_FILL_RECT_V);
        },
        [&stage](const Place& p) {
            cairo_pattern_t* pattern = cairo_pattern_create_linear(0, p.y(), 0, p.y() + h);
            cairo_pattern_add_color_stop_rgb(pattern, 0, 1, 1, 1);
            cairo_pattern_add_color_stop_rgb(pattern, 1, 0.25, 0.375, 0.5);
            cairo_set_source(stage.cairo, pattern);
            cairo_rectangle(stage.cairo, p.x(), p.y(), w, h);
            cairo_fill(stage.cairo);
            cairo_pattern_destroy(pattern);
        },
        [&stage](const Place& p) {
            QLinearGradient gradient(0, p.y(), 0, p.y() + h);
            gradient.setColorAt(0, Qt::white);
            gradient.setColorAt(1, QColor(64, 96, 128));
            stage.qtPainter.fillRect(p.x(), p.y(), w, h, gradient);
        });
}

void wholePictures(Stage& stage) {
    constexpr std::size_t bytes = std::size_t{width} * height * 4;
    constexpr int count = 20;
    bench::compare("fillbox_full", {{"tesela", times(count,
                                                     [&stage](const Place& p) {
                                                         fill(stage.dc(), {0, 0, width, height}, p.color());
                                                     })},
                                    {"memset", times(count,
                                                     [&stage](const Place& p) {
                                                         std::memset(stage.words(), static_cast<int>(p.red()),
                                                                     bytes);
                                                         bench::keep(stage.words()[0]);
                                                     })},
                                    {"cairo", times(count,
                                                    [&stage](const Place& p) {
                                                        p.cairoColor(stage.cairo);
                                                        cairo_paint(stage.cairo);
                                                    })},
                                    {"qt", times(count, [&stage](const Place& p) {
                                         stage.qtPainter.fillRect(0, 0, width, height, p.qtColor());
                                     })}});
    bench::compare(
        "bitblt_full",
        {{"tesela", times(count,
                          [&stage](const Place&) {
                              BitBlt(stage.dc(), 0, 0, width, height, stage.source(), 0, 0, SRCCOPY);
                          })},
         {"memcpy", times(count,
                          [&stage](const Place&) {
                              std::memcpy(stage.words(), stage.sourceWords(), bytes);
                              bench::keep(stage.words()[0]);
                          })},
         {"cairo", times(count,
                         [&stage](const Place&) {
                             cairo_set_source_surface(stage.cairo, stage.cairoSource, 0, 0);
                             cairo_paint(stage.cairo);
                         })},
         {"qt", times(count, [&stage](const Place&) { stage.qtPainter.drawImage(0, 0, stage.qtSource); })}});
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    Stage stage;
    fillBoxes(stage, "fillbox16", 16, 50000);
    fillBoxes(stage, "fillbox256", 256, 2000);
    drawBoxes(stage);
    drawLines(stage);
    copies(stage);
    gradients(stage);
    wholePictures(stage);
}
