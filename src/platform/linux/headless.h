#pragma once
// The headless display: a desktop in memory. Input is injected, the clock moves when told, windows and the
// whole desktop can be read back as pixels or saved as PNG.

#include "platform/linux/surface.h"
#include "platform/windows.h"

#include <functional>
#include <string>
#include <string_view>

namespace platform::headless {

/// Whether the headless display is the one in use. Starts the display.
bool active();

// Keys. Each goes to the queue as keyboard input; the messages come when the queue is read.
void injectKeyDown(int virtualKey);
void injectKeyUp(int virtualKey);
void injectKey(int virtualKey); ///< Down and up

/// Types text as a Spanish keyboard does: the key that carries each character, with its Shift, Alt Gr or
/// dead key, and the character by itself when no key does.
void injectText(std::u16string_view text);

// Mouse, screen coordinates. `button` is VK_LBUTTON, VK_RBUTTON or VK_MBUTTON.
void injectMouseMove(int x, int y);
void injectMouseDown(int button);
void injectMouseUp(int button);
void injectClick(int x, int y, int button = VK_LBUTTON);
void injectDoubleClick(int x, int y, int button = VK_LBUTTON);
void injectWheel(int delta); ///< WHEEL_DELTA is one notch, positive away from the user

/// Another program comes to the front, or leaves it to the window that was active.
void injectForegroundLoss();
void injectForegroundReturn();

/// What the wait of a message loop does when the queue is empty, before it moves the clock: returns true
/// if it brought something. An empty function takes it back.
void setIdleHandler(std::function<bool()> handler);

/// What happens while the program sleeps, each time after the clock was moved. An empty function takes it
/// back.
void setSleepHandler(std::function<void()> handler);

/// Moves the clock. Timers that fall due become WM_TIMER when the queue is read.
void advanceClock(DWORD milliseconds);

/// Sets the wall clock, local time; timers are not touched.
void setLocalTime(const SYSTEMTIME& time);

// Pixels.

/// The window's own surface, frame included; nullptr for no top-level window. Valid until it is resized.
const driver::Surface* frameBuffer(HWND topLevel);

/// The desktop's background and all visible top-level windows in their order.
const driver::Surface& desktop();

/// Paints what waits to be painted and saves a window with its frame (a child: its part of it) or, with
/// 0, the desktop. False when there is no such window or the file cannot be written.
bool screenshot(HWND window, const std::string& path);

/// How often the program has beeped.
int beeps();

/// Live windows and timers, for tests that count them.
int liveWindows();
int liveTimers();

/// Destroys all windows, timers and waiting messages, releases all keys; the clock stays.
void reset();

} // namespace platform::headless
