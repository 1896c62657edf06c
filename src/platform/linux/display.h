#pragma once
// What shows the windows and brings the input: memory (headless) or a real desktop.

#include "platform/linux/window_system.h"

#include <cstdint>
#include <map>
#include <string>

namespace platform::driver {

/// What is on the clipboard: one content in each form that it is there in, by media type.
using ClipboardContent = std::map<std::string, std::string>;
inline constexpr const char* PlainText = "text/plain;charset=utf-8";

class Display {
public:
    virtual ~Display() = default;

    virtual SIZE screenSize() = 0;
    virtual RECT workArea() = 0;

    /// Whether frames and captions are on our surface, and not the window manager's.
    virtual bool drawsFrames() const = 0;

    // What happened to a top-level window.
    virtual void shown(Window&) {}
    virtual void hidden(Window&) {}
    virtual void placed(Window&) {}
    virtual void stateChanged(Window&) {} ///< Minimised, maximised or neither; before it is placed
    virtual void raised(Window&) {}
    virtual void renamed(Window&) {}
    virtual void iconChanged(Window&) {}
    virtual void activated(Window&) {}
    virtual void destroyed(Window&) {}

    /// Brings what the desktop shows, with the windows of all programs, onto words. False where it is not
    /// known.
    virtual bool readScreen(const Surface&) { return false; }
    /// Shows a region of words of the screen's size in front of all windows, until it is an empty one.
    virtual void showInFront(const Surface&, const Region&) {}

    /// Shows what was drawn since the last time.
    virtual void present() {}

    /// Puts waiting input into the queue without waiting; sends no messages.
    virtual void collectInput() {}

    /// Tells the windows what happened to them on the desktop: sends messages.
    virtual void settle() {}
    virtual bool mustSettle() const { return false; }

    /// Waits for input at most so long (negative: without end). Returns false when none can ever come.
    virtual bool waitForInput(std::int64_t milliseconds) = 0;

    virtual POINT pointer() = 0;
    virtual void movePointer(POINT screen) = 0;
    virtual void showCursor(WORD) {} ///< IDC_...; 0 hides it
    virtual void captureMouse(bool) {}
    virtual void setLocks(const BYTE*) {} ///< 256 key states: the lock keys' toggles

    virtual bool clipboardHas(const std::string& type) = 0;
    virtual std::string clipboardBytes(const std::string& type) = 0; ///< Empty: not there in this type
    virtual void setClipboard(ClipboardContent content) = 0;         ///< Takes the place of what is there
    virtual void beep() {}
    virtual bool holdsTime() const { return false; }
};

/// The display chosen by TESELA_DISPLAY or found; started by the first call.
Display& display();
bool displayStarted();

/// "1280x800" of TESELA_SCREEN, or that default.
SIZE wantedScreenSize();

class HeadlessDisplay;
HeadlessDisplay* headlessDisplay(); ///< nullptr on a desktop

} // namespace platform::driver
