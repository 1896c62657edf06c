#pragma once
// Time: the calendar clock, the millisecond and the high-resolution counters, and the conversions between
// the calendar and the file forms of an instant. Under the headless display the clock is the display's: it
// stands still until it is moved, and Sleep moves it.

#include "platform/types.h"

namespace platform {

/// The time of day in the user's zone.
void GetLocalTime(SYSTEMTIME* time);

/// The time of day in UTC.
void GetSystemTime(SYSTEMTIME* time);

/// The present instant.
void GetSystemTimeAsFileTime(FILETIME* time);

/// Milliseconds of a counter that wraps round every 49.7 days.
DWORD GetTickCount();

/// A counter that never goes back; QueryPerformanceFrequency tells its steps a second.
BOOL QueryPerformanceCounter(LONGLONG* count);
BOOL QueryPerformanceFrequency(LONGLONG* stepsPerSecond);

/// Holds the calling thread, which is that of the windows, for so many milliseconds. What was drawn before is
/// seen meanwhile.
void Sleep(DWORD milliseconds);

/// Instants from 1 January 1601 up to the end of year 30827. Fails with ERROR_INVALID_PARAMETER beyond, and
/// leaves the result as it was.
BOOL FileTimeToSystemTime(const FILETIME* file, SYSTEMTIME* time);

/// The day of the week is not read. Fails with ERROR_INVALID_PARAMETER for a date that does not exist.
BOOL SystemTimeToFileTime(const SYSTEMTIME* time, FILETIME* file);

/// Between UTC and the user's zone, by the difference that holds now: both ways are each other's inverse,
/// and an instant of the other half of the year is off by the summer hour, as the platform has it.
BOOL FileTimeToLocalFileTime(const FILETIME* file, FILETIME* local);
BOOL LocalFileTimeToFileTime(const FILETIME* local, FILETIME* file);

} // namespace platform
