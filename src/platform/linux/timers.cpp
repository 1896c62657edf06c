// Timers: due ones become WM_TIMER when nothing else waits, and late ticks are one.

#include "platform/linux/message_queue.h"
#include "platform/linux/window_system.h"

#include <algorithm>

namespace platform::driver {

namespace {

constexpr UINT ShortestPeriod = 10;
constexpr UINT LongestPeriod = 0x7FFFFFFF;
constexpr UINT_PTR FirstThreadTimer = 0x100;

auto findTimer(HWND window, UINT_PTR id) {
    auto& timers = messageQueue().timers;
    return std::find_if(timers.begin(), timers.end(),
                        [&](const Timer& t) { return t.window == window && t.id == id; });
}

} // namespace

bool takeTimer(const MessageFilter& filter, bool remove, MSG& message) {
    if (!filter.takesNumber(WM_TIMER)) return false;
    auto& timers = messageQueue().timers;
    const std::int64_t now = milliseconds();
    Timer* next = nullptr;
    for (Timer& timer : timers)
        if (timer.due <= now && filter.takesWindow(timer.window) && (!next || timer.due < next->due))
            next = &timer;
    if (!next) return false;
    message = {next->window, WM_TIMER, next->id, reinterpret_cast<LPARAM>(next->procedure), tickCount(), {}};
    GetCursorPos(&message.pt);
    if (remove) next->due = now + next->period;
    return true;
}

std::optional<std::int64_t> nextTimerDue() {
    std::optional<std::int64_t> due;
    for (const Timer& timer : messageQueue().timers)
        if (!due || timer.due < *due) due = timer.due;
    return due;
}

void removeTimersOf(HWND window) {
    auto& timers = messageQueue().timers;
    timers.erase(
        std::remove_if(timers.begin(), timers.end(), [&](const Timer& t) { return t.window == window; }),
        timers.end());
}

} // namespace platform::driver

namespace platform {

using namespace driver;

UINT_PTR SetTimer(HWND window, UINT_PTR id, UINT period, TIMERPROC procedure) {
    if (window && !findWindow(window)) return 0;
    static UINT_PTR lastThreadTimer = FirstThreadTimer;
    if (!window && (!id || findTimer({}, id) == messageQueue().timers.end())) id = ++lastThreadTimer;
    Timer timer{window, id, std::clamp(period, ShortestPeriod, LongestPeriod), 0, procedure};
    timer.due = milliseconds() + timer.period;
    const auto running = findTimer(window, id);
    if (running != messageQueue().timers.end())
        *running = timer;
    else
        messageQueue().timers.push_back(timer);
    return id ? id : 1;
}

BOOL KillTimer(HWND window, UINT_PTR id) {
    const auto running = findTimer(window, id);
    if (running == messageQueue().timers.end()) return FALSE_;
    messageQueue().timers.erase(running);
    return TRUE_;
}

} // namespace platform
