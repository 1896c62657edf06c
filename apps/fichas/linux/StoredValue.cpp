#include "fichas/linux/StoredValue.h"

#include "automation/Conversions.h"
#include "automation/Date.h"
#include "automation/Decimal.h"
#include "automation/Error.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>

namespace fichas {

using automation::Date;
using automation::Variant;
using platform::DatabaseValue;

namespace {

constexpr double julianDayOfDateZero = 2415018.5;     ///< 30 December 1899, 0:00
constexpr std::int64_t dayOf1970 = 25569;             ///< In days since 30 December 1899
constexpr std::int64_t lastUnixSecond = 253402300799; ///< Of 9999; larger numbers count milliseconds
constexpr std::int64_t millisecondsPerSecond = 1000;

template <class... Parts>
std::string printed(const char* pattern, Parts... parts) {
    std::array<char, 40> text{};
    std::snprintf(text.data(), text.size(), pattern, parts...);
    return text.data();
}

/// "2024-02-29 10:30:00", with what the former text had between day and time and behind it.
std::string isoText(Date value, ColumnType type, const std::string& former) {
    constexpr std::size_t dayLength = 10;
    const automation::DateParts parts = value.split();
    std::string day = printed("%04d-%02d-%02d", parts.year, parts.month, parts.day);
    std::string time = printed("%02d:%02d:%02d", parts.hour, parts.minute, parts.second);
    if (type == ColumnType::Date) return day;
    if (type == ColumnType::Time) return time;
    const bool isJoinedByT = former.size() > dayLength && former[dayLength] == 'T';
    return day + (isJoinedByT ? "T" : " ") + time + (former.ends_with('Z') ? "Z" : "");
}

DatabaseValue storedDate(Date value, ColumnType type, const DatabaseValue& former) {
    if (std::holds_alternative<double>(former))
        return value.dayNumber() + value.secondOfDay() / double{Date::secondsPerDay} + julianDayOfDateZero;
    if (const auto* number = std::get_if<std::int64_t>(&former)) {
        const std::int64_t second =
            (value.dayNumber() - dayOf1970) * Date::secondsPerDay + value.secondOfDay();
        const bool countsMilliseconds = *number > lastUnixSecond || *number < -lastUnixSecond;
        return countsMilliseconds ? second * millisecondsPerSecond : second;
    }
    const auto* text = std::get_if<std::string>(&former);
    return isoText(value, type, text ? *text : std::string());
}

/// A number where the former value was one, though the column takes anything.
DatabaseValue storedText(const automation::String& text, const DatabaseValue& former) {
    const bool wasNumber =
        std::holds_alternative<std::int64_t>(former) || std::holds_alternative<double>(former);
    if (!wasNumber || !automation::IsNumeric(Variant(text))) return text.utf8();
    const double number = automation::CDbl(Variant(text));
    constexpr double exact = 9007199254740992.0; // every whole number up to here is a Double
    if (number == std::trunc(number) && std::fabs(number) <= exact) return static_cast<std::int64_t>(number);
    return number;
}

DatabaseValue storedWhole(const Variant& value) {
    const std::string digits = automation::CStr(value).utf8();
    std::int64_t number = 0;
    const auto end = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (end.ptr != digits.data() + digits.size()) automation::throwError(automation::errors::Overflow);
    return number;
}

} // namespace

DatabaseValue storedValue(const Variant& value, ColumnType type, const DatabaseValue& former) {
    switch (value.type()) {
    case automation::VT_NULL:
        return std::monostate{};
    case automation::VT_BOOL:
        return std::int64_t{value.asBoolean() ? 1 : 0};
    case automation::VT_DATE:
        return storedDate(value.asDate(), type, former);
    case automation::VT_BSTR:
        return storedText(value.asString(), former);
    default:
        if (type == ColumnType::Integer) return storedWhole(value);
        return automation::CDbl(value);
    }
}

} // namespace fichas
