#pragma once
// Our top-level windows on the X server: made when they are first shown, described to the window manager,
// placed, stacked, minimised and maximised, with or without a window manager.

#include "platform/linux/x11_server.h"

#include <map>

namespace platform::driver {

struct X11Window {
    ::Window id = 0;
    RECT place;              ///< What is shown, on the screen, as last heard or asked for
    unsigned long asked = 0; ///< The request that asked for it: older news are of no use
    bool isPopup = false;    ///< The window manager leaves it alone
    bool isInFrame = false;  ///< The window manager has put it into a window of its own
    bool isMinimized = false;
    bool isMaximized = false;
    bool isTopmost = false;
    bool hasShape = false;             ///< The pointer's
    std::optional<RECT> leftToManager; ///< Where the window manager puts it back by itself
};

class X11Windows {
public:
    explicit X11Windows(const X11Server& server) : server_(server) {}
    ~X11Windows();
    X11Windows(const X11Windows&) = delete;
    X11Windows& operator=(const X11Windows&) = delete;

    /// nullptr for a window that was never shown, or an unknown number.
    X11Window* find(HWND window);
    Window* windowOf(::Window id) const;
    std::map<HWND, X11Window>& all() { return windows_; }

    void show(Window& window);
    void hide(Window& window);
    void place(Window& window);
    void changeState(Window& window);
    void stack(const Window& window);
    void writeTopmost(const Window& window);
    void rename(const Window& window);
    void changeIcon(const Window& window);
    void giveKeyboard(const Window& window);
    void destroy(HWND window);

    /// Reads anew whether the window manager shows it minimised or maximised; true when that has changed.
    bool readState(X11Window& native) const;

    /// Where the news say that the window is now; false for news that are out of date.
    bool readPlace(X11Window& native, const XConfigureEvent& event) const;

private:
    X11Window& make(Window& window);
    void describe(const Window& window, const X11Window& native) const;
    void describeSize(const Window& window, const X11Window& native) const;
    void describeDecorations(const Window& window, const X11Window& native) const;
    void writeTitle(const Window& window, const X11Window& native) const;
    void writeIcon(const Window& window, const X11Window& native) const;
    void writeState(const Window& window, const X11Window& native) const;
    void askState(const X11Window& native, bool on, ::Atom first, ::Atom second = 0) const;
    void maximize(Window& window, X11Window& native, bool on) const;
    void configure(const Window& window, X11Window& native) const;
    ::Window neighbourAbove(const Window& window) const;

    const X11Server& server_;
    std::map<HWND, X11Window> windows_;
};

} // namespace platform::driver
