#include "platform/linux/x11_screen.h"

#include <X11/Xatom.h>
#include <X11/extensions/shape.h>

#include <algorithm>
#include <bit>
#include <memory>

namespace platform::driver {

namespace {

/// 8 bits of a colour's share of a pixel.
std::uint32_t levelIn(unsigned long pixel, unsigned long mask) {
    if (!mask) return 0;
    const int low = std::countr_zero(mask);
    const unsigned long full = mask >> low;
    return static_cast<std::uint32_t>((((pixel & mask) >> low) * 255 + full / 2) / full);
}

std::uint32_t wordOf(const XImage& image, unsigned long pixel) {
    return levelIn(pixel, image.red_mask) << 16 | levelIn(pixel, image.green_mask) << 8 |
           levelIn(pixel, image.blue_mask);
}

void readNative(const XImage& image, int y, std::uint32_t* row) {
    constexpr std::uint32_t colors = 0xFFFFFF;
    const auto* from = reinterpret_cast<const std::uint32_t*>(image.data + static_cast<std::ptrdiff_t>(y) *
                                                                               image.bytes_per_line);
    std::transform(from, from + image.width, row, [](std::uint32_t word) { return word & colors; });
}

struct DestroyImage {
    void operator()(XImage* image) const { XDestroyImage(image); }
};

XRectangle rectangleOf(const RECT& r) {
    return {static_cast<short>(r.left), static_cast<short>(r.top), static_cast<unsigned short>(widthOf(r)),
            static_cast<unsigned short>(heightOf(r))};
}

} // namespace

X11Screen::~X11Screen() {
    if (veil_) XDestroyWindow(server_.display(), veil_);
}

bool X11Screen::read(const Surface& words) const {
    if (server_.isWaylands()) return false;
    std::unique_ptr<XImage, DestroyImage> image;
    const auto fetch = [&] {
        image.reset(XGetImage(server_.display(), server_.root(), 0, 0, static_cast<unsigned>(words.width),
                              static_cast<unsigned>(words.height), AllPlanes, ZPixmap));
    };
    if (!server_.accepts(fetch) || !image) return false;
    const bool native = isNative(*image);
    for (int y = 0; y < words.height; ++y) {
        auto* row =
            reinterpret_cast<std::uint32_t*>(words.bits + static_cast<std::ptrdiff_t>(y) * words.stride);
        if (native)
            readNative(*image, y, row);
        else
            for (int x = 0; x < words.width; ++x)
                row[x] = wordOf(*image, XGetPixel(image.get(), x, y));
    }
    return true;
}

void X11Screen::showInFront(const Surface& words, const Region& region) {
    if (region.empty() && !isVeilShown_) return;
    if (region.empty()) {
        XUnmapWindow(server_.display(), veil_);
        isVeilShown_ = false;
    } else if (veil_ || makeVeil()) {
        cutVeilTo(region);
        XMapRaised(server_.display(), veil_);
        isVeilShown_ = true;
        const RECT bounds = region.bounds();
        painter_.show(words, bounds, veil_, {bounds.left, bounds.top});
    }
    XFlush(server_.display());
}

/// A window that no window manager takes care of and that takes no input.
bool X11Screen::makeVeil() {
    ::Display* display = server_.display();
    int events = 0, errors = 0;
    if (!XShapeQueryExtension(display, &events, &errors)) return false;
    const XVisualInfo& visual = server_.visual();
    XSetWindowAttributes attributes{};
    attributes.override_redirect = 1;
    attributes.colormap = server_.colors();
    veil_ = XCreateWindow(display, server_.root(), 0, 0, 1, 1, 0, visual.depth, InputOutput, visual.visual,
                          CWOverrideRedirect | CWBorderPixel | CWColormap, &attributes);
    server_.setValues(veil_, server_.atoms().netType, XA_ATOM, {server_.atoms().netTypePopup});
    XShapeCombineRectangles(display, veil_, ShapeInput, 0, 0, nullptr, 0, ShapeSet, Unsorted);
    return true;
}

/// Many rectangles do not fit into one request.
void X11Screen::cutVeilTo(const Region& region) const {
    constexpr std::size_t mostInOneRequest = 8000;
    const RECT bounds = region.bounds();
    XResizeWindow(server_.display(), veil_, static_cast<unsigned>(bounds.right),
                  static_cast<unsigned>(bounds.bottom));
    std::vector<XRectangle> parts;
    int operation = ShapeSet;
    const auto send = [&] {
        XShapeCombineRectangles(server_.display(), veil_, ShapeBounding, 0, 0, parts.data(),
                                static_cast<int>(parts.size()), operation, YXBanded);
        operation = ShapeUnion;
        parts.clear();
    };
    for (const RECT& part : region.rectangles()) {
        parts.push_back(rectangleOf(part));
        if (parts.size() == mostInOneRequest) send();
    }
    if (!parts.empty()) send();
}

} // namespace platform::driver
