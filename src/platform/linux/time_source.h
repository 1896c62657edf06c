#pragma once
// Where all clocks of the driver take their time: the timers of the message queue, GetTickCount, Sleep,
// QueryPerformanceCounter and the local time. The desktop display lets time run; the headless display holds
// it until it is moved.

#include "platform/types.h"

#include <cstdint>
#include <functional>

namespace platform::driver {

/// Nanoseconds that never run back; the start is of no meaning.
std::int64_t monotonicNanoseconds();

/// Nanoseconds since 1 January 1970, UTC.
std::int64_t wallClockNanoseconds();

/// Sleep: waits, or with held time moves it on and calls the handler.
void passMilliseconds(DWORD milliseconds);

/// What happens while a program sleeps in held time; an empty function is nothing.
void setSleepHandler(std::function<void()> handler);

/// Holds time where it is now, or lets it run again from the system's clocks.
void holdTime(bool held);
bool timeIsHeld();

/// Moves held time on. Both clocks move.
void advanceHeldTime(std::int64_t nanoseconds);

/// Sets the held wall clock, in nanoseconds since 1970, UTC; the monotonic one stays.
void setHeldWallClock(std::int64_t nanoseconds);

} // namespace platform::driver
