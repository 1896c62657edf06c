#include "platform/linux/x11_pointer.h"

#include <X11/cursorfont.h>

#include <algorithm>

namespace platform::driver {

namespace {

struct ShapeNumber {
    WORD id;
    unsigned number; ///< In the server's cursor font; a theme has its own pictures for these
};

constexpr ShapeNumber ShapeNumbers[] = {{IDC_ARROW, XC_left_ptr},
                                        {IDC_IBEAM, XC_xterm},
                                        {IDC_WAIT, XC_watch},
                                        {IDC_CROSS, XC_crosshair},
                                        {IDC_UPARROW, XC_center_ptr},
                                        {IDC_SIZENWSE, XC_bottom_right_corner},
                                        {IDC_SIZENESW, XC_bottom_left_corner},
                                        {IDC_SIZEWE, XC_sb_h_double_arrow},
                                        {IDC_SIZENS, XC_sb_v_double_arrow},
                                        {IDC_SIZEALL, XC_fleur},
                                        {IDC_NO, XC_X_cursor},
                                        {IDC_HAND, XC_hand2},
                                        {IDC_APPSTARTING, XC_watch},
                                        {IDC_HELP, XC_question_arrow}};

constexpr unsigned MouseEvents = ButtonPressMask | ButtonReleaseMask | PointerMotionMask;

} // namespace

X11Pointer::~X11Pointer() {
    for (const auto& [id, shape] : shapes_)
        XFreeCursor(server_.display(), shape);
}

void X11Pointer::showIn(::Window window) {
    Cursor& shape = shapes_[chosen_];
    if (!shape) shape = chosen_ ? shapeOf(chosen_) : makeHidden();
    XDefineCursor(server_.display(), window, shape);
}

Cursor X11Pointer::shapeOf(WORD id) {
    const auto found = std::find_if(std::begin(ShapeNumbers), std::end(ShapeNumbers),
                                    [&](const ShapeNumber& s) { return s.id == id; });
    return XCreateFontCursor(server_.display(),
                             found == std::end(ShapeNumbers) ? XC_left_ptr : found->number);
}

/// A shape of one pixel that is left out.
Cursor X11Pointer::makeHidden() const {
    constexpr char NoPixel[] = {0};
    ::Display* display = server_.display();
    const Pixmap bits = XCreateBitmapFromData(display, server_.root(), NoPixel, 1, 1);
    XColor black{};
    const Cursor hidden = XCreatePixmapCursor(display, bits, bits, &black, &black, 0, 0);
    XFreePixmap(display, bits);
    return hidden;
}

void X11Pointer::capture(::Window window) const {
    XGrabPointer(server_.display(), window, 0, MouseEvents, GrabModeAsync, GrabModeAsync, 0, 0, CurrentTime);
}

void X11Pointer::release() const {
    XUngrabPointer(server_.display(), CurrentTime);
    XFlush(server_.display());
}

void X11Pointer::move(POINT screen) const {
    XWarpPointer(server_.display(), 0, server_.root(), 0, 0, 0, 0, screen.x, screen.y);
    XFlush(server_.display());
}

POINT X11Pointer::place() const {
    ::Window root = 0;
    ::Window below = 0;
    int x = 0;
    int y = 0;
    int insideX = 0;
    int insideY = 0;
    unsigned buttons = 0;
    XQueryPointer(server_.display(), server_.root(), &root, &below, &x, &y, &insideX, &insideY, &buttons);
    return {x, y};
}

} // namespace platform::driver
