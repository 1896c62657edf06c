#pragma once
// The whole screen of the X server: what all programs show on it, and pixels of ours in front of them.

#include "platform/linux/x11_painter.h"

namespace platform::driver {

class X11Screen {
public:
    X11Screen(const X11Server& server, X11Painter& painter) : server_(server), painter_(painter) {}
    ~X11Screen();
    X11Screen(const X11Screen&) = delete;
    X11Screen& operator=(const X11Screen&) = delete;

    /// What the screen shows, brought onto words of its size. False: the server does not tell.
    bool read(const Surface& words) const;

    /// Shows a region of words of the screen's size in front of all windows, until it is an empty one. The
    /// pointer goes through.
    void showInFront(const Surface& words, const Region& region);

private:
    bool makeVeil();
    void cutVeilTo(const Region& region) const;

    const X11Server& server_;
    X11Painter& painter_;
    ::Window veil_ = 0; ///< Cut to what it shows
    bool isVeilShown_ = false;
};

} // namespace platform::driver
