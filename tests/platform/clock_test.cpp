#include "platform/clock.h"

#include "platform/errors.h"

#include <tuple>

using namespace platform;

namespace {

constexpr std::uint64_t unitsPerSecond = 10'000'000;

std::uint64_t units(const FILETIME& time) {
    return std::uint64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime;
}

FILETIME fileTime(std::uint64_t value) {
    return {static_cast<DWORD>(value), static_cast<DWORD>(value >> 32)};
}

auto fields(const SYSTEMTIME& t) {
    return std::tuple(t.wYear, t.wMonth, t.wDayOfWeek, t.wDay, t.wHour, t.wMinute, t.wSecond,
                      t.wMilliseconds);
}

using Fields = std::tuple<int, int, int, int, int, int, int, int>;

TEST(Clock, FileTimesBecomeCalendarTimes) {
    const struct {
        std::uint64_t value;
        Fields fields;
    } cases[] = {
        {0, {1601, 1, 1, 1, 0, 0, 0, 0}},
        {116'444'736'000'000'000, {1970, 1, 4, 1, 0, 0, 0, 0}},
        {116'444'735'999'999'999, {1969, 12, 3, 31, 23, 59, 59, 999}},
        {125'963'423'991'230'000, {2000, 2, 2, 29, 23, 59, 59, 123}},
        {125'963'424'000'000'000, {2000, 3, 3, 1, 0, 0, 0, 0}},
        {0x7FFFFFFFFFFFFFFF, {30828, 9, 4, 14, 2, 48, 5, 477}},
    };
    for (const auto& c : cases) {
        SYSTEMTIME time;
        const FILETIME file = fileTime(c.value);
        EXPECT_TRUE(FileTimeToSystemTime(&file, &time));
        EXPECT_EQ(Fields(fields(time)), c.fields) << c.value;
    }
}

TEST(Clock, EachDayOfFourCenturiesGoesThereAndBack) {
    constexpr std::uint64_t unitsPerDay = 86'400 * unitsPerSecond;
    WORD weekday = 1;
    for (std::uint64_t day = 0; day < 146'097; ++day) {
        const FILETIME file = fileTime(day * unitsPerDay);
        SYSTEMTIME time;
        FILETIME back;
        ASSERT_TRUE(FileTimeToSystemTime(&file, &time));
        ASSERT_EQ(time.wDayOfWeek, weekday);
        ASSERT_TRUE(SystemTimeToFileTime(&time, &back));
        ASSERT_EQ(units(back), units(file));
        weekday = static_cast<WORD>((weekday + 1) % 7);
    }
}

TEST(Clock, DatesThatDoNotExistAreRefused) {
    const SYSTEMTIME wrong[] = {{1600, 12, 0, 31, 0, 0, 0, 0}, {2001, 2, 0, 30, 0, 0, 0, 0},
                                {2001, 13, 0, 1, 0, 0, 0, 0},  {2001, 0, 0, 1, 0, 0, 0, 0},
                                {2001, 4, 0, 31, 0, 0, 0, 0},  {2001, 1, 0, 0, 0, 0, 0, 0},
                                {2001, 1, 0, 1, 24, 0, 0, 0},  {2001, 1, 0, 1, 0, 60, 0, 0},
                                {2001, 1, 0, 1, 0, 0, 60, 0},  {2001, 1, 0, 1, 0, 0, 0, 1000}};
    for (const auto& time : wrong) {
        FILETIME file{1, 2};
        EXPECT_FALSE(SystemTimeToFileTime(&time, &file));
        EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
        EXPECT_EQ(units(file), units({1, 2}));
    }
    const FILETIME tooLate = fileTime(0x8000000000000000);
    SYSTEMTIME time;
    EXPECT_FALSE(FileTimeToSystemTime(&tooLate, &time));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
}

TEST(Clock, LocalAndUniversalFileTimesAreEachOthersInverse) {
    const FILETIME file = fileTime(125'963'424'000'000'000);
    FILETIME local, back;
    EXPECT_TRUE(FileTimeToLocalFileTime(&file, &local));
    EXPECT_TRUE(LocalFileTimeToFileTime(&local, &back));
    EXPECT_EQ(units(back), units(file));
}

TEST(Clock, LocalTimeIsTheZonesDifferenceFromTheSystemTime) {
    SYSTEMTIME utc, local;
    FILETIME utcFile, localFile, expected;
    GetSystemTime(&utc);
    GetLocalTime(&local);
    SystemTimeToFileTime(&utc, &utcFile);
    SystemTimeToFileTime(&local, &localFile);
    FileTimeToLocalFileTime(&utcFile, &expected);
    const auto difference = static_cast<std::int64_t>(units(localFile) - units(expected));
    EXPECT_GE(difference, 0);
    EXPECT_LT(difference, static_cast<std::int64_t>(60 * unitsPerSecond));
}

TEST(Clock, TheCountersNeverGoBack) {
    LONGLONG frequency = 0, before = 0, after = 0;
    EXPECT_TRUE(QueryPerformanceFrequency(&frequency));
    EXPECT_GE(frequency, 1000);
    EXPECT_TRUE(QueryPerformanceCounter(&before));
    EXPECT_TRUE(QueryPerformanceCounter(&after));
    EXPECT_LE(before, after);
    const DWORD ticks = GetTickCount();
    EXPECT_LT(GetTickCount() - ticks, 60'000u);
}

} // namespace
