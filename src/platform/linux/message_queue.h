#pragma once
// The queue of the one thread: posted messages, input as it came from the devices, timers. Input becomes
// messages when it is read, because where it goes depends on what the messages before it did.

#include "platform/windows.h"

#include <deque>
#include <optional>
#include <string>
#include <vector>

namespace platform::driver {

/// One event of keyboard or mouse.
struct RawInput {
    enum class Kind { Key, Move, Button, Wheel };
    Kind kind = Kind::Key;
    int virtualKey = 0; ///< The key or the button
    bool up = false;
    BYTE scanCode = 0;
    bool extended = false;
    int wheel = 0;
    POINT at; ///< Screen
    DWORD time = 0;
    bool hasText = false; ///< The display knows what the key types
    std::u16string text;
    char16_t plain = 0; ///< What the key types by itself, for access keys; 0: ask the layout
};

struct Timer {
    HWND window;
    UINT_PTR id = 0;
    UINT period = 0;
    std::int64_t due = 0; ///< Milliseconds of the monotonic clock
    TIMERPROC procedure = nullptr;
};

/// Which messages a reader wants.
struct MessageFilter {
    HWND window; ///< 0: all; -1: those of the thread
    UINT first = 0;
    UINT last = 0;
    bool takesNumber(UINT message) const {
        return (first == 0 && last == 0) || (message >= first && message <= last);
    }
    bool takesWindow(HWND target) const;
    bool takes(const MSG& m) const { return takesNumber(m.message) && takesWindow(m.hwnd); }
};

struct MessageQueue {
    std::deque<MSG> posted;
    std::deque<RawInput> input;
    std::vector<Timer> timers;
    bool quitting = false;
    int exitCode = 0;
    DWORD newKinds = 0; ///< QS_... since the last GetQueueStatus
    DWORD lastTime = 0;
    POINT lastPoint;
};

MessageQueue& messageQueue();

std::int64_t milliseconds(); ///< Of the monotonic clock
DWORD tickCount();

void postInput(RawInput input);
void postMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

/// Input as a message, if there is some for the filter (input_messages.cpp). Removing it updates the
/// thread's key state and sends what goes with a mouse message.
bool takeInput(const MessageFilter& filter, bool remove, MSG& message);

/// A due timer's WM_TIMER (timers.cpp).
bool takeTimer(const MessageFilter& filter, bool remove, MSG& message);
std::optional<std::int64_t> nextTimerDue();
void removeTimersOf(HWND window);

/// Takes a dead window's messages out of the queue.
void removeMessagesOf(HWND window);

} // namespace platform::driver
