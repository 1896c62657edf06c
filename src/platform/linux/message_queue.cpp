// Reading and writing the queue: posted messages, WM_QUIT, input, WM_PAINT and WM_TIMER in that order.

#include "platform/linux/message_queue.h"

#include "platform/linux/display.h"
#include "platform/linux/screen_contexts.h"
#include "platform/linux/time_source.h"
#include "platform/linux/window_system.h"

#include <algorithm>
#include <map>
#include <stdexcept>

namespace platform::driver {

namespace {

constexpr std::int64_t NanosecondsPerMillisecond = 1'000'000;
constexpr HWND ThreadMessages{0xFFFFFFFFu};
constexpr std::int64_t WithoutEnd = -1;

/// How long drawing may stay unseen while the program reads message after message.
constexpr std::int64_t PresentInterval = 15;

bool takePosted(const MessageFilter& filter, bool remove, MSG& message) {
    auto& posted = messageQueue().posted;
    const auto found =
        std::find_if(posted.begin(), posted.end(), [&](const MSG& m) { return filter.takes(m); });
    if (found == posted.end()) return false;
    message = *found;
    if (remove) posted.erase(found);
    return true;
}

bool takeQuit(bool remove, MSG& message) {
    MessageQueue& queue = messageQueue();
    if (!queue.quitting || !queue.posted.empty()) return false;
    message = {{}, WM_QUIT, static_cast<WPARAM>(queue.exitCode), 0, tickCount(), display().pointer()};
    if (remove) queue.quitting = false;
    return true;
}

bool takePaint(const MessageFilter& filter, MSG& message) {
    if (!filter.takesNumber(WM_PAINT) || filter.window == ThreadMessages) return false;
    const HWND window = nextToPaint(filter.window);
    if (!window) return false;
    message = {window, WM_PAINT, 0, 0, tickCount(), display().pointer()};
    return true;
}

void presentNowAndThen() {
    static std::int64_t last = 0;
    const std::int64_t now = milliseconds();
    if (now - last < PresentInterval) return;
    last = now;
    showDrawn();
}

bool take(const MessageFilter& filter, bool remove, MSG& message) {
    display().collectInput();
    display().settle();
    const bool found = takePosted(filter, remove, message) || takeQuit(remove, message) ||
                       takeInput(filter, remove, message) || takePaint(filter, message) ||
                       takeTimer(filter, remove, message);
    if (!found) {
        display().present();
        presentNowAndThen();
        return false;
    }
    if (remove) {
        messageQueue().lastTime = message.time;
        messageQueue().lastPoint = message.pt;
    }
    presentNowAndThen();
    return true;
}

DWORD waitingKinds() {
    const MessageQueue& queue = messageQueue();
    DWORD kinds = 0;
    if (!queue.posted.empty() || queue.quitting) kinds |= QS_POSTMESSAGE;
    for (const RawInput& input : queue.input)
        kinds |= input.kind == RawInput::Kind::Key ? QS_KEY : QS_MOUSE;
    if (nextToPaint({})) kinds |= QS_PAINT;
    const auto due = nextTimerDue();
    if (due && *due <= milliseconds()) kinds |= QS_TIMER;
    return kinds;
}

/// Waits once, for a new event, the next timer, the caret's blink or `limit`, whichever comes first.
bool waitOnce(std::int64_t limit) {
    showDrawn();
    std::int64_t pause = limit;
    const auto earlier = [&pause](std::int64_t other) {
        if (pause == WithoutEnd || other < pause) pause = std::max<std::int64_t>(other, 0);
    };
    if (const auto due = nextTimerDue()) earlier(*due - milliseconds());
    if (!display().holdsTime()) {
        const std::int64_t blink = nextBlink();
        if (blink >= 0) earlier(blink);
    }
    return display().waitForInput(pause);
}

} // namespace

bool MessageFilter::takesWindow(HWND target) const {
    if (!window) return true;
    if (window == ThreadMessages) return !target;
    return target == window || IsChild(window, target);
}

MessageQueue& messageQueue() {
    static MessageQueue queue;
    return queue;
}

std::int64_t milliseconds() {
    return monotonicNanoseconds() / NanosecondsPerMillisecond;
}

DWORD tickCount() {
    return static_cast<DWORD>(milliseconds());
}

void postMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    messageQueue().posted.push_back({window, message, wParam, lParam, tickCount(), display().pointer()});
    messageQueue().newKinds |= QS_POSTMESSAGE;
}

void removeMessagesOf(HWND window) {
    auto& posted = messageQueue().posted;
    posted.erase(std::remove_if(posted.begin(), posted.end(), [&](const MSG& m) { return m.hwnd == window; }),
                 posted.end());
    loseCaret(window);
}

} // namespace platform::driver

namespace platform {

using namespace driver;

LRESULT SendMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (window == HWND_BROADCAST) {
        for (HWND top : childHandles(desktopWindow()))
            SendMessageA(top, message, wParam, lParam);
        return TRUE_;
    }
    Window* target = findWindow(window);
    return target ? callProcedure(*target, message, wParam, lParam) : 0;
}

BOOL PostMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (window == HWND_BROADCAST) {
        for (HWND top : childHandles(desktopWindow()))
            postMessage(top, message, wParam, lParam);
        return TRUE_;
    }
    if (window && !findWindow(window)) return FALSE_;
    postMessage(window, message, wParam, lParam);
    return TRUE_;
}

void PostQuitMessage(int exitCode) {
    messageQueue().quitting = true;
    messageQueue().exitCode = exitCode;
}

BOOL PeekMessageA(MSG* message, HWND window, UINT first, UINT last, UINT remove) {
    if (!message) return FALSE_;
    if (window && window != ThreadMessages && !findWindow(window)) return FALSE_;
    return take({window, first, last}, (remove & PM_REMOVE) != 0, *message);
}

BOOL GetMessageA(MSG* message, HWND window, UINT first, UINT last) {
    while (true) {
        if (!message || (window && window != ThreadMessages && !findWindow(window))) return -1;
        if (take({window, first, last}, true, *message)) return message->message != WM_QUIT;
        if (!waitOnce(WithoutEnd))
            throw std::logic_error("GetMessageA: waiting for a message that cannot come");
    }
}

BOOL WaitMessage() {
    while (!waitingKinds() && !display().mustSettle()) {
        if (!waitOnce(WithoutEnd))
            throw std::logic_error("WaitMessage: waiting for a message that cannot come");
        display().collectInput();
    }
    return TRUE_;
}

bool waitMessageFor(DWORD duration) {
    const std::int64_t end = milliseconds() + duration;
    while (true) {
        display().collectInput();
        if (waitingKinds() || display().mustSettle()) return true;
        const std::int64_t left = end - milliseconds();
        if (left <= 0) return false;
        waitOnce(left);
    }
}

DWORD GetQueueStatus(UINT flags) {
    display().collectInput();
    const DWORD waiting = waitingKinds() & flags;
    const DWORD fresh = messageQueue().newKinds & waiting;
    messageQueue().newKinds = 0;
    return waiting << 16 | fresh;
}

LRESULT DispatchMessageA(const MSG* message) {
    if (!message) return 0;
    if (message->message == WM_TIMER && message->lParam) {
        const auto procedure = reinterpret_cast<TIMERPROC>(message->lParam);
        procedure(message->hwnd, WM_TIMER, message->wParam, tickCount());
        return 0;
    }
    return SendMessageA(message->hwnd, message->message, message->wParam, message->lParam);
}

DWORD GetMessageTime() {
    return messageQueue().lastTime;
}

DWORD GetMessagePos() {
    const POINT p = messageQueue().lastPoint;
    return static_cast<DWORD>(MAKELPARAM(p.x, p.y));
}

LPARAM GetMessageExtraInfo() {
    return 0;
}

UINT RegisterWindowMessageA(const char* name) {
    constexpr UINT FirstRegistered = 0xC000;
    constexpr UINT LastRegistered = 0xFFFF;
    static std::map<std::string, UINT> known;
    if (!name || !*name) return 0;
    const auto found = known.find(name);
    if (found != known.end()) return found->second;
    const UINT number = FirstRegistered + static_cast<UINT>(known.size());
    if (number > LastRegistered) return 0;
    known[name] = number;
    return number;
}

} // namespace platform
