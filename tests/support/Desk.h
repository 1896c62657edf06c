#pragma once
// The user at the desk, for tests: keys, mouse, the clock, and a look at the screen. The tests say what the
// user does; how it reaches the windows is the system's matter (tests/support/linux, tests/support/windows).

#include "platform/windows.h"

#include <string_view>
#include <vector>

namespace support {

/// Pixels of a window's client area.
struct Picture {
    int width = 0;
    int height = 0;
    std::vector<platform::COLORREF> pixels; ///< Top row first

    platform::COLORREF at(int x, int y) const {
        if (x < 0 || y < 0 || x >= width || y >= height) return 0xFFFFFFFF;
        return pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                      static_cast<std::size_t>(x)];
    }
    friend bool operator==(const Picture&, const Picture&) = default;
};

/// One user at an empty desk: windows left by others are destroyed, no key is down, no message waits. What
/// the user does lies in the input queue until pump() or the program under test reads it.
class Desk {
public:
    Desk();
    ~Desk();
    Desk(const Desk&) = delete;
    Desk& operator=(const Desk&) = delete;

    void pressKey(int virtualKey);
    void releaseKey(int virtualKey);
    void strikeKey(int virtualKey);
    void type(std::u16string_view text); ///< Characters of the ANSI code page

    // Screen coordinates. Buttons are VK_LBUTTON, VK_RBUTTON and VK_MBUTTON.
    void moveMouse(platform::POINT to);
    void pressButton(int button = platform::VK_LBUTTON);
    void releaseButton(int button = platform::VK_LBUTTON);
    void click(platform::POINT at, int button = platform::VK_LBUTTON);
    void doubleClick(platform::POINT at, int button = platform::VK_LBUTTON);
    void turnWheel(int notches); ///< Positive: away from the user

    /// Lets time pass; timers that fall due in it tick when messages are read.
    void advance(platform::DWORD milliseconds);

    /// Reads and dispatches messages, as a program's loop does, until none waits. Returns their number.
    int pump();

    /// What the window shows, without the caret.
    Picture look(platform::HWND window);
};

} // namespace support
