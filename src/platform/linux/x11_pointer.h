#pragma once
// The pointer on the X server: its shapes, and the mouse that one window takes for itself.

#include "platform/linux/x11_server.h"

#include <map>

namespace platform::driver {

class X11Pointer {
public:
    explicit X11Pointer(const X11Server& server) : server_(server) {}
    ~X11Pointer();
    X11Pointer(const X11Pointer&) = delete;
    X11Pointer& operator=(const X11Pointer&) = delete;

    /// IDC_...; 0 hides it. Windows take the shape that is chosen with showIn.
    void choose(WORD id) { chosen_ = id; }
    void showIn(::Window window);

    void capture(::Window window) const;
    void release() const;
    void move(POINT screen) const;
    POINT place() const; ///< As the server knows it. Waits for its answer.

private:
    Cursor shapeOf(WORD id);
    Cursor makeHidden() const;

    const X11Server& server_;
    std::map<WORD, Cursor> shapes_;
    WORD chosen_ = IDC_ARROW;
};

} // namespace platform::driver
