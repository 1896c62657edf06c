#include "platform/linux/time_source.h"

#include <chrono>
#include <thread>

namespace platform::driver {

namespace {

constexpr std::int64_t NanosecondsPerMillisecond = 1'000'000;

struct HeldTime {
    bool held = false;
    std::int64_t monotonic = 0;
    std::int64_t wall = 0;
};

std::function<void()>& sleepHandler() {
    static std::function<void()> handler;
    return handler;
}

HeldTime& heldTime() {
    static HeldTime time;
    return time;
}

template <class Clock>
std::int64_t now() {
    return std::chrono::duration_cast<std::chrono::nanoseconds>(Clock::now().time_since_epoch()).count();
}

} // namespace

std::int64_t monotonicNanoseconds() {
    return heldTime().held ? heldTime().monotonic : now<std::chrono::steady_clock>();
}

std::int64_t wallClockNanoseconds() {
    return heldTime().held ? heldTime().wall : now<std::chrono::system_clock>();
}

void passMilliseconds(DWORD milliseconds) {
    if (!heldTime().held) {
        std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
        return;
    }
    advanceHeldTime(static_cast<std::int64_t>(milliseconds) * NanosecondsPerMillisecond);
    if (sleepHandler()) sleepHandler()();
}

void setSleepHandler(std::function<void()> handler) {
    sleepHandler() = std::move(handler);
}

void holdTime(bool held) {
    HeldTime& time = heldTime();
    if (held && !time.held) {
        time.monotonic = now<std::chrono::steady_clock>();
        time.wall = now<std::chrono::system_clock>();
    }
    time.held = held;
}

bool timeIsHeld() {
    return heldTime().held;
}

void advanceHeldTime(std::int64_t nanoseconds) {
    heldTime().monotonic += nanoseconds;
    heldTime().wall += nanoseconds;
}

void setHeldWallClock(std::int64_t nanoseconds) {
    heldTime().wall = nanoseconds;
}

} // namespace platform::driver
