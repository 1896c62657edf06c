#pragma once
// What every desktop's display has to do with its windows: what of a window it shows, and how the window
// learns what happened to it there. The desktop draws captions and frames; our frame around the client area
// is there in coordinates only.

#include "platform/linux/window_system.h"

#include <string>

namespace platform::driver {

/// What of the window the desktop shows, on the screen: all but the frame that the desktop draws.
RECT shownPart(const Window& window);

/// A list or a hint: the desktop neither frames it nor gives it the keyboard.
bool isPopup(const Window& window);

std::string utf8Title(const Window& window);

/// Adds the whole window, or a part of what is shown of it, to what is to be presented.
void showAgain(Window& window);
void showAgain(Window& window, const RECT& part);

// News of the desktop as messages of the window.

/// The part that is shown has another place or size, on the screen.
void tellPlace(Window& window, const RECT& part);
void tellState(Window& window, bool minimized, bool maximized);
void tellCloseWish(Window& window);

/// Notes where the window is before it is maximised or minimised, so that the program can restore it.
void keepNormalPlace(Window& window);

/// The window that the desktop gave the keyboard, which becomes the active one; nullptr: none of ours.
void tellFocus(Window* window);

// Input that reaches no window in particular.

/// Characters that no key is known for.
void postText(std::u16string text);
void postPointer(POINT screen);
void postButton(int button, bool up, POINT screen);
void postWheel(int notches, POINT screen);

/// Takes over whether a lock key is on.
void noteLock(int virtualKey, bool on);

} // namespace platform::driver
