#include "cairo_sheet.h"

#include "../measure.h"

#include <numbers>

namespace bench {

namespace {

constexpr double whole = 255.0;
constexpr const char* latinText = "Importe neto";
constexpr const char* latinFamily = "Liberation Sans";

std::uint32_t multiplied(std::uint32_t pixel) {
    const std::uint32_t alpha = pixel >> 24;
    std::uint32_t result = alpha << 24;
    for (const int shift : {0, 8, 16})
        result |= ((pixel >> shift & 0xFF) * alpha + 127) / 255 << shift;
    return result;
}

/// A square picture made of its pixels, 0xAARRGGBB with colours multiplied by their alpha.
template <class Pixel>
cairo_surface_t* square(int side, Pixel pixel) {
    cairo_surface_t* result = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, side, side);
    cairo_surface_flush(result);
    unsigned char* bits = cairo_image_surface_get_data(result);
    const int stride = cairo_image_surface_get_stride(result);
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x)
            reinterpret_cast<std::uint32_t*>(bits + static_cast<std::ptrdiff_t>(y) * stride)[x] = pixel(x, y);
    cairo_surface_mark_dirty(result);
    return result;
}

} // namespace

CairoSheet::CairoSheet(const Sheet& sheet)
    : extent_(sheet), surface_(cairo_image_surface_create(CAIRO_FORMAT_RGB24, sheet.width, sheet.height)),
      source_(cairo_image_surface_create(CAIRO_FORMAT_RGB24, sheet.width, sheet.height)),
      sprite_(square(spriteSide,
                     [](int x, int y) {
                         constexpr std::uint32_t color =
                             0xFF000000u | spriteRed << 16 | spriteGreen << 8 | spriteBlue;
                         return isSprite(x, y) ? color : 0;
                     })),
      icon_(square(iconSide, [](int x, int y) { return multiplied(iconPixel(x, y)); })),
      context_(cairo_create(surface_)) {
    cairo_set_source_rgb(context_, 1, 1, 1);
    cairo_paint(context_);
    cairo_set_antialias(context_, CAIRO_ANTIALIAS_NONE);
    cairo_set_line_width(context_, 1);
    cairo_select_font_face(context_, latinFamily, CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
    cairo_set_font_size(context_, fontSize);
    cairo_t* source = cairo_create(source_);
    cairo_set_source_rgb(source, 0.2, 0.4, 0.6);
    cairo_paint(source);
    cairo_destroy(source);
}

CairoSheet::~CairoSheet() {
    cairo_destroy(context_);
    for (cairo_surface_t* surface : {surface_, source_, sprite_, icon_})
        cairo_surface_destroy(surface);
}

Operations CairoSheet::operations() {
    return {
        {"fillbox16", repeated<&CairoSheet::fillBox16>(*this)},
        {"fillbox256", repeated<&CairoSheet::fillBox256>(*this)},
        {"fillbox_full", repeated<&CairoSheet::fillWhole>(*this)},
        {"drawbox", repeated<&CairoSheet::drawBox>(*this)},
        {"hline100", repeated<&CairoSheet::horizontal>(*this)},
        {"diagonal100", repeated<&CairoSheet::diagonal>(*this)},
        {"gradient_v_100x20", repeated<&CairoSheet::gradient>(*this)},
        {"bitblt_100x20", repeated<&CairoSheet::copy>(*this)},
        {"bitblt_full", repeated<&CairoSheet::copyWhole>(*this)},
        {"alphablend_100x20", repeated<&CairoSheet::blend>(*this)},
        {"text12", repeated<&CairoSheet::textOut>(*this)},
        {"extent12", repeated<&CairoSheet::textExtent>(*this)},
        {"triangle7", repeated<&CairoSheet::triangle>(*this)},
        {"icon16", repeated<&CairoSheet::icon>(*this)},
        {"ellipse40", repeated<&CairoSheet::ellipse>(*this)},
        {"transparentblt_32", repeated<&CairoSheet::sprite>(*this)},
    };
}

void CairoSheet::color(const Place& p) {
    cairo_set_source_rgb(context_, p.red() / whole, Place::green / whole, Place::blue / whole);
}

void CairoSheet::fillBox(const Place& p, int side) {
    color(p);
    cairo_rectangle(context_, p.x(), p.y(), side, side);
    cairo_fill(context_);
}

void CairoSheet::fillBox16(const Place& p) {
    fillBox(p, smallBox);
}

void CairoSheet::fillBox256(const Place& p) {
    fillBox(p, largeBox);
}

void CairoSheet::fillWhole(const Place& p) {
    color(p);
    cairo_paint(context_);
}

void CairoSheet::drawBox(const Place& p) {
    const double left = p.x() + 0.5, top = p.y() + 0.5;
    const double right = left + frameWidth - 1, bottom = top + frameHeight - 1;
    color(p);
    cairo_move_to(context_, left, bottom);
    cairo_line_to(context_, left, top);
    cairo_line_to(context_, right, top);
    cairo_stroke(context_);
    cairo_set_source_rgb(context_, 0.5, 0.5, 0.5);
    cairo_move_to(context_, right, top);
    cairo_line_to(context_, right, bottom);
    cairo_line_to(context_, left, bottom);
    cairo_stroke(context_);
}

void CairoSheet::horizontal(const Place& p) {
    color(p);
    cairo_move_to(context_, p.x(), p.y() + 0.5);
    cairo_line_to(context_, p.x() + lineLength + 1, p.y() + 0.5);
    cairo_stroke(context_);
}

void CairoSheet::diagonal(const Place& p) {
    color(p);
    cairo_move_to(context_, p.x() + 0.5, p.y() + 0.5);
    cairo_line_to(context_, p.x() + lineLength + 0.5, p.y() + lineRise + 0.5);
    cairo_stroke(context_);
}

void CairoSheet::gradient(const Place& p) {
    cairo_pattern_t* pattern = cairo_pattern_create_linear(0, p.y(), 0, p.y() + bandHeight);
    cairo_pattern_add_color_stop_rgb(pattern, 0, 1, 1, 1);
    cairo_pattern_add_color_stop_rgb(pattern, 1, p.red() / whole, Place::green / whole, Place::blue / whole);
    cairo_set_source(context_, pattern);
    cairo_rectangle(context_, p.x(), p.y(), bandWidth, bandHeight);
    cairo_fill(context_);
    cairo_pattern_destroy(pattern);
}

void CairoSheet::paintPart(cairo_surface_t* source, const Place& p, int width, int height, double alpha) {
    cairo_set_source_surface(context_, source, p.x(), p.y());
    cairo_rectangle(context_, p.x(), p.y(), width, height);
    if (alpha == 1) {
        cairo_fill(context_);
        return;
    }
    cairo_save(context_);
    cairo_clip(context_);
    cairo_paint_with_alpha(context_, alpha);
    cairo_restore(context_);
}

void CairoSheet::copy(const Place& p) {
    paintPart(source_, p, bandWidth, bandHeight, 1);
}

void CairoSheet::copyWhole(const Place&) {
    cairo_set_source_surface(context_, source_, 0, 0);
    cairo_paint(context_);
}

void CairoSheet::blend(const Place& p) {
    paintPart(source_, p, bandWidth, bandHeight, 0.5);
}

void CairoSheet::sprite(const Place& p) {
    paintPart(sprite_, p, spriteSide, spriteSide, 1);
}

void CairoSheet::icon(const Place& p) {
    paintPart(icon_, p, iconSide, iconSide, 1);
}

void CairoSheet::textOut(const Place& p) {
    cairo_set_source_rgb(context_, 0, 0, 0);
    cairo_move_to(context_, p.x(), p.y() + fontSize);
    cairo_show_text(context_, latinText);
}

void CairoSheet::textExtent(const Place&) {
    cairo_text_extents_t extents;
    cairo_text_extents(context_, latinText, &extents);
    keep(extents);
}

void CairoSheet::triangle(const Place& p) {
    const int x = p.x() + triangleLines, y = p.y() + triangleLines;
    color(p);
    cairo_move_to(context_, x - triangleLines, y - 3);
    cairo_line_to(context_, x + triangleLines, y - 3);
    cairo_line_to(context_, x, y + 4);
    cairo_close_path(context_);
    cairo_fill(context_);
}

void CairoSheet::ellipse(const Place& p) {
    constexpr double radius = (ellipseSide - 1) / 2.0;
    color(p);
    cairo_new_path(context_);
    cairo_arc(context_, p.x() + radius + 0.5, p.y() + radius + 0.5, radius, 0, 2 * std::numbers::pi);
    cairo_fill_preserve(context_);
    cairo_set_source_rgb(context_, 0, 0, 0);
    cairo_stroke(context_);
}

} // namespace bench
