#include "platform/clock.h"

#include "platform/windows/convert.h"

namespace platform {

using driver::as;

void GetLocalTime(SYSTEMTIME* time) {
    ::GetLocalTime(as<::SYSTEMTIME>(time));
}

void GetSystemTime(SYSTEMTIME* time) {
    ::GetSystemTime(as<::SYSTEMTIME>(time));
}

void GetSystemTimeAsFileTime(FILETIME* time) {
    ::GetSystemTimeAsFileTime(as<::FILETIME>(time));
}

DWORD GetTickCount() {
    return ::GetTickCount();
}

BOOL QueryPerformanceCounter(LONGLONG* count) {
    ::LARGE_INTEGER value{};
    const BOOL done = ::QueryPerformanceCounter(&value);
    *count = value.QuadPart;
    return done;
}

BOOL QueryPerformanceFrequency(LONGLONG* stepsPerSecond) {
    ::LARGE_INTEGER value{};
    const BOOL done = ::QueryPerformanceFrequency(&value);
    *stepsPerSecond = value.QuadPart;
    return done;
}

void Sleep(DWORD milliseconds) {
    ::Sleep(milliseconds);
}

BOOL FileTimeToSystemTime(const FILETIME* file, SYSTEMTIME* time) {
    return ::FileTimeToSystemTime(as<::FILETIME>(file), as<::SYSTEMTIME>(time));
}

BOOL SystemTimeToFileTime(const SYSTEMTIME* time, FILETIME* file) {
    return ::SystemTimeToFileTime(as<::SYSTEMTIME>(time), as<::FILETIME>(file));
}

BOOL FileTimeToLocalFileTime(const FILETIME* file, FILETIME* local) {
    return ::FileTimeToLocalFileTime(as<::FILETIME>(file), as<::FILETIME>(local));
}

BOOL LocalFileTimeToFileTime(const FILETIME* local, FILETIME* file) {
    return ::LocalFileTimeToFileTime(as<::FILETIME>(local), as<::FILETIME>(file));
}

} // namespace platform
