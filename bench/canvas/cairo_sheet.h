#pragma once
// The operations as a program that draws with Cairo on an image surface calls them; shapes and lines without
// smoothing, as the canvas draws them.

#include "operations.h"

#include <cairo.h>

namespace bench {

class CairoSheet {
public:
    explicit CairoSheet(const Sheet& sheet);
    ~CairoSheet();
    CairoSheet(const CairoSheet&) = delete;
    CairoSheet& operator=(const CairoSheet&) = delete;

    Operations operations();
    const Sheet& sheet() const { return extent_; }

private:
    void fillBox(const Place& place, int side);
    void fillBox16(const Place& place);
    void fillBox256(const Place& place);
    void fillWhole(const Place& place);
    void drawBox(const Place& place);
    void horizontal(const Place& place);
    void diagonal(const Place& place);
    void gradient(const Place& place);
    void paintPart(cairo_surface_t* source, const Place& place, int width, int height, double alpha);
    void copy(const Place& place);
    void copyWhole(const Place& place);
    void blend(const Place& place);
    void sprite(const Place& place);
    void icon(const Place& place);
    void textOut(const Place& place);
    void textExtent(const Place& place);
    void triangle(const Place& place);
    void ellipse(const Place& place);

    void color(const Place& place);

    const Sheet& extent_;
    cairo_surface_t* surface_;
    cairo_surface_t* source_;
    cairo_surface_t* sprite_;
    cairo_surface_t* icon_;
    cairo_t* context_;
};

} // namespace bench
