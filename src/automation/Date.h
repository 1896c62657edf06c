#pragma once
// Points in time as automation counts them.

#include <compare>
#include <cstdint>

namespace automation {

/// A date and time in parts. `weekday` is an output only: 0 is Sunday.
struct DateParts {
    int year = 1899;
    int month = 12; ///< 1 to 12
    int day = 30;   ///< 1 to 31
    int hour = 0;
    int minute = 0;
    int second = 0;
    int weekday = 6;
};

/// A moment as days since 30 December 1899, the time as the fraction of the day. Before that day the
/// whole part counts days backwards while the fraction still counts time forwards, away from zero: -1.25
/// is 29 December 1899, 6:00. The range is 1 January 100 to 31 December 9999. Comparison is that of the
/// numbers.
class Date {
public:
    static constexpr std::int32_t firstDay = -657434; ///< 1 January 100
    static constexpr std::int32_t lastDay = 2958465;  ///< 31 December 9999
    static constexpr int secondsPerDay = 86400;

    constexpr Date() noexcept = default;
    /// Takes the number as it is; `isValid` tells whether it lies in the range.
    constexpr explicit Date(double value) noexcept : value_(value) {}

    constexpr double value() const noexcept { return value_; }
    bool isValid() const noexcept;

    /// Error 5 for parts that name no moment of the range.
    static Date join(const DateParts& parts);
    static Date join(int year, int month, int day, int hour = 0, int minute = 0, int second = 0);
    /// The parts, rounded to the nearest second. Error 5 out of the range.
    DateParts split() const;

    /// The day alone, as the count of whole days since 30 December 1899 (rounded as `split` rounds).
    std::int32_t dayNumber() const;
    /// Whole seconds since midnight, rounded as `split` rounds.
    int secondOfDay() const;
    /// A moment out of its day count and its seconds since midnight (0 to 86399).
    static Date fromDayAndSecond(std::int32_t dayNumber, int second);

    /// Day count of a date of the proleptic Gregorian calendar, unchecked.
    static std::int32_t dayNumberOf(int year, int month, int day) noexcept;
    static int daysInMonth(int year, int month) noexcept;
    static bool isLeapYear(int year) noexcept;

    friend constexpr bool operator==(Date, Date) = default;
    friend constexpr auto operator<=>(Date, Date) = default;

private:
    struct Split {
        std::int32_t day;
        int second;
    };
    Split splitDays() const;

    double value_ = 0;
};

} // namespace automation
