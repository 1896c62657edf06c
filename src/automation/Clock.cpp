#include "automation/Clock.h"

#include "platform/clock.h"

namespace automation {

namespace {

std::int32_t dayOf(const platform::SYSTEMTIME& time) {
    return Date::dayNumberOf(time.wYear, time.wMonth, time.wDay);
}

int secondOf(const platform::SYSTEMTIME& time) {
    return (time.wHour * 60 + time.wMinute) * 60 + time.wSecond;
}

platform::SYSTEMTIME localTime() {
    platform::SYSTEMTIME time;
    platform::GetLocalTime(&time);
    return time;
}

} // namespace

Date Now() {
    const auto time = localTime();
    return Date::fromDayAndSecond(dayOf(time), secondOf(time));
}

Date Today() {
    return Date::fromDayAndSecond(dayOf(localTime()), 0);
}

Date TimeOfDay() {
    return Date::fromDayAndSecond(0, secondOf(localTime()));
}

} // namespace automation
