#pragma once
// The connection with the X server: its screen, the names that windows and programs talk to each other in,
// and the requests that more than one part of the display makes.

#include "platform/linux/display.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace platform::driver {

/// Names that the server knows by number.
struct X11Atoms {
    ::Atom clipboard, clipboardManager, incremental, multiple, saveTargets, targets, timestamp, transfer;
    ::Atom text, utf8, plainText, plainTextUtf8;
    ::Atom protocols, deleteWindow, ping, state, changeState, motifHints;
    ::Atom netSupported, netCheck, netWorkArea, netDesktop, netActive, netIcon, netName, netProcess,
        netUserTime;
    ::Atom netState, netStateAbove, netStateHidden, netStateHigh, netStateWide, netStateNoTaskbar;
    ::Atom netType, netTypeNormal, netTypeDialog, netTypePopup;
    ::Atom scrollLock; ///< Its light: in most layouts the key stands for no modifier
};

class X11Server {
public:
    /// To the server that DISPLAY names; nullptr when it cannot be reached or shows no true colours.
    static std::unique_ptr<X11Server> connect();
    ~X11Server();
    X11Server(const X11Server&) = delete;
    X11Server& operator=(const X11Server&) = delete;

    ::Display* display() const { return display_; }
    ::Window root() const { return RootWindow(display_, screen_); }
    const XVisualInfo& visual() const { return visual_; }
    Colormap colors() const { return colors_; }
    const X11Atoms& atoms() const { return atoms_; }

    /// Of the first monitor.
    SIZE screenSize() const;
    /// All of the first monitor where no window manager says how much of it is free.
    RECT workArea() const;
    bool hasWindowManager() const;
    /// Whether it is the one that shows programs for X11 on Wayland: it does not know what the screen shows.
    bool isWaylands() const;

    /// Forgets what an event on the root window makes out of date.
    void noteRootChange(const XEvent& event);

    /// What lies in a property of the type: 32-bit values or bytes. Empty: no such property.
    std::vector<unsigned long> values(::Window window, ::Atom property, ::Atom type) const;
    void setValues(::Window window, ::Atom property, ::Atom type,
                   const std::vector<unsigned long>& values) const;
    void setText(::Window window, ::Atom property, const std::string& utf8) const;

    /// Asks the window manager for something about a window.
    void askManager(::Window window, ::Atom what, const std::array<long, 5>& details) const;

    /// Does requests and returns whether the server accepts them all. Waits for it.
    bool accepts(const std::function<void()>& requests) const;

    /// Waits until the server sends something, at most so long (negative: without end).
    void wait(std::int64_t milliseconds) const;

    /// The time of the last event of the user, 0 before there is one.
    Time userTime() const { return userTime_; }
    void noteUserTime(Time time) { userTime_ = time; }

    void ringBell() const;
    void lockKeys(const BYTE* states) const; ///< 256 key states: the lock keys' toggles
    void lightScrollLock(bool on) const;

private:
    X11Server(::Display* display, const XVisualInfo& visual);
    bool looksManaged() const;
    const RECT& monitor() const;

    ::Display* display_;
    int screen_;
    XVisualInfo visual_;
    Colormap colors_;
    X11Atoms atoms_{};
    Time userTime_ = 0;
    mutable std::optional<bool> managed_;
    mutable std::optional<RECT> monitor_;
};

} // namespace platform::driver
