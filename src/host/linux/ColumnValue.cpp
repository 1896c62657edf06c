#include "host/linux/ColumnValue.h"

#include "automation/Array.h"
#include "automation/Currency.h"
#include "automation/Date.h"
#include "automation/Decimal.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>
#include <string>

namespace host {

using automation::Currency;
using automation::Date;
using automation::Decimal;
using automation::Variant;
using platform::DatabaseValue;

const automation::Enumeration& enumerationOf(FieldType) {
    static const automation::Enumeration table("DataTypeEnum", {{"adInteger", 3},
                                                                {"adDouble", 5},
                                                                {"adCurrency", 6},
                                                                {"adBoolean", 11},
                                                                {"adVariant", 12},
                                                                {"adDBDate", 133},
                                                                {"adDBTime", 134},
                                                                {"adDBTimeStamp", 135},
                                                                {"adVarWChar", 202},
                                                                {"adLongVarBinary", 205}});
    return table;
}

// -------------------------------------------------------------------------------------- declarations

namespace {

/// Words within a declaration, the more telling first: "DATETIME" before "DATE" and "TIME", and "POINT"
/// before the "INT" within it.
constexpr struct {
    std::string_view word;
    FieldType type;
    std::int32_t size;
} words[] = {
    {"BOOL", FieldType::Boolean, 2},      {"BIT", FieldType::Boolean, 2},
    {"DATETIME", FieldType::DateTime, 8}, {"TIMESTAMP", FieldType::DateTime, 8},
    {"DATE", FieldType::Date, 8},         {"TIME", FieldType::Time, 8},
    {"MONEY", FieldType::Currency, 8},    {"CURRENCY", FieldType::Currency, 8},
    {"DECIMAL", FieldType::Currency, 8},  {"NUMERIC", FieldType::Currency, 8},
    {"POINT", FieldType::Double, 8},      {"INT", FieldType::Integer, 4},
    {"CHAR", FieldType::Text, 0},         {"CLOB", FieldType::Text, 0},
    {"TEXT", FieldType::Text, 0},         {"BLOB", FieldType::Binary, 0},
    {"BINARY", FieldType::Binary, 0},     {"REAL", FieldType::Double, 8},
    {"FLOA", FieldType::Double, 8},       {"DOUB", FieldType::Double, 8},
    {"NUMBER", FieldType::Currency, 8},
};

int numberAt(std::string_view text, std::size_t place) {
    while (place < text.size() && text[place] == ' ')
        ++place;
    int number = 0;
    if (place < text.size()) std::from_chars(text.data() + place, text.data() + text.size(), number);
    return std::max(number, 0);
}

} // namespace

FieldDeclaration fieldDeclaration(std::string_view declaredType) {
    std::string capitals(declaredType);
    for (char& c : capitals)
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    FieldDeclaration declaration;
    const auto* found = std::find_if(std::begin(words), std::end(words), [&](const auto& entry) {
        return capitals.find(entry.word) != std::string::npos;
    });
    if (found == std::end(words)) return declaration;
    declaration.type = found->type;
    declaration.size = found->size;
    const std::size_t open = capitals.find('(');
    if (open == std::string::npos) return declaration;
    const int inBrackets = numberAt(capitals, open + 1);
    if (found->size == 0) declaration.size = inBrackets;
    if (found->type == FieldType::Currency || found->type == FieldType::Double) {
        const std::size_t comma = capitals.find(',', open);
        declaration.precision = inBrackets;
        declaration.scale = comma == std::string::npos ? 0 : numberAt(capitals, comma + 1);
    }
    return declaration;
}

// -------------------------------------------------------------------------------------------- values

namespace {

constexpr double julianDayOfDateZero = 2415018.5; ///< 30 December 1899, 0:00
constexpr double lastJulianDay = 5373484.5;       ///< The end of 9999
constexpr double dayOf1970 = 25569;               ///< In days since 30 December 1899
constexpr double lastUnixSecond =
    253402300799.0; ///< The same end in seconds since 1970; beyond: milliseconds
constexpr double secondsPerDay = 86400;
constexpr double millisecondsPerSecond = 1000;

/// A Date out of days counted in a straight line, negative ones too.
std::optional<Date> dateFromDays(double days) {
    const double day = std::floor(days);
    double second = std::round((days - day) * secondsPerDay);
    double wholeDay = day;
    if (second >= secondsPerDay) {
        second = 0;
        wholeDay += 1;
    }
    if (wholeDay < Date::firstDay || wholeDay > Date::lastDay) return std::nullopt;
    return Date::fromDayAndSecond(static_cast<std::int32_t>(wholeDay), static_cast<int>(second));
}

/// SQLite's own rule: what can be a Julian day is one, else it counts seconds since 1970.
std::optional<Date> dateFromNumber(double number) {
    if (!std::isfinite(number)) return std::nullopt;
    if (number >= 0 && number < lastJulianDay) return dateFromDays(number - julianDayOfDateZero);
    if (std::abs(number) > lastUnixSecond) number /= millisecondsPerSecond;
    return dateFromDays(number / secondsPerDay + dayOf1970);
}

/// Digits of a fixed count off the front.
std::optional<int> takeDigits(std::string_view& text, std::size_t count) {
    if (text.size() < count) return std::nullopt;
    int number = 0;
    for (std::size_t i = 0; i < count; ++i) {
        if (text[i] < '0' || text[i] > '9') return std::nullopt;
        number = number * 10 + (text[i] - '0');
    }
    text.remove_prefix(count);
    return number;
}

bool takeOne(std::string_view& text, char wanted) {
    if (text.empty() || text.front() != wanted) return false;
    text.remove_prefix(1);
    return true;
}

std::optional<std::int32_t> takeDay(std::string_view& text) {
    constexpr int firstYear = 100;
    const auto year = takeDigits(text, 4);
    if (!year || !takeOne(text, '-')) return std::nullopt;
    const auto month = takeDigits(text, 2);
    if (!month || !takeOne(text, '-')) return std::nullopt;
    const auto day = takeDigits(text, 2);
    if (!day || *year < firstYear || *month < 1 || *month > 12 || *day < 1 ||
        *day > Date::daysInMonth(*year, *month))
        return std::nullopt;
    return Date::dayNumberOf(*year, *month, *day);
}

/// "HH:MM", "HH:MM:SS" or "HH:MM:SS.fff" to the end of the text; a "Z" may follow.
std::optional<int> takeSecondOfDay(std::string_view text) {
    const auto hour = takeDigits(text, 2);
    if (!hour || *hour > 23 || !takeOne(text, ':')) return std::nullopt;
    const auto minute = takeDigits(text, 2);
    if (!minute || *minute > 59) return std::nullopt;
    int second = 0;
    if (takeOne(text, ':')) {
        const auto seconds = takeDigits(text, 2);
        if (!seconds || *seconds > 59) return std::nullopt;
        second = *seconds;
        if (takeOne(text, '.'))
            text.remove_prefix(std::min(text.find_first_not_of("0123456789"), text.size()));
    }
    takeOne(text, 'Z');
    if (!text.empty()) return std::nullopt;
    return (*hour * 60 + *minute) * 60 + second;
}

std::optional<Date> dateFromText(std::string_view text) {
    std::string_view rest = text;
    const auto day = takeDay(rest);
    if (!day) {
        const auto alone = takeSecondOfDay(text);
        return alone ? std::optional(Date::fromDayAndSecond(0, *alone)) : std::nullopt;
    }
    if (rest.empty()) return Date::fromDayAndSecond(*day, 0);
    if (!takeOne(rest, ' ') && !takeOne(rest, 'T')) return std::nullopt;
    const auto second = takeSecondOfDay(rest);
    return second ? std::optional(Date::fromDayAndSecond(*day, *second)) : std::nullopt;
}

Variant wholeNumber(std::int64_t number) {
    if (number >= std::numeric_limits<std::int32_t>::min() &&
        number <= std::numeric_limits<std::int32_t>::max())
        return static_cast<std::int32_t>(number);
    return Decimal::fromInt64(number);
}

/// Money where Currency holds the number exactly: its nearest Currency is the same Double again.
Variant money(double number) {
    constexpr double bound = 9e14; // below the range of Currency and where a Double still has its decimals
    if (!(std::abs(number) < bound)) return number;
    const Currency nearest = Currency::fromDouble(number);
    if (nearest.toDouble() != number) return number;
    return nearest;
}

Variant money(std::int64_t number) {
    constexpr std::int64_t bound = std::numeric_limits<std::int64_t>::max() / Currency::scale;
    if (number > bound || number < -bound) return Decimal::fromInt64(number);
    return Currency::fromScaled(number * Currency::scale);
}

bool isDateType(FieldType type) {
    return type == FieldType::Date || type == FieldType::Time || type == FieldType::DateTime;
}

Variant orElse(const std::optional<Date>& date, const Variant& stored) {
    return date ? Variant(*date) : stored;
}

/// One value of each storage, as the column's type has it.
struct Converter {
    FieldType type;

    Variant operator()(std::monostate) const { return Variant::null(); }

    Variant operator()(std::int64_t number) const {
        if (type == FieldType::Boolean) return number != 0;
        if (type == FieldType::Currency) return money(number);
        if (type == FieldType::Double) return static_cast<double>(number);
        if (isDateType(type)) return orElse(dateFromNumber(static_cast<double>(number)), wholeNumber(number));
        return wholeNumber(number);
    }

    Variant operator()(double number) const {
        if (type == FieldType::Boolean) return number != 0;
        if (type == FieldType::Currency) return money(number);
        if (isDateType(type)) return orElse(dateFromNumber(number), number);
        return number;
    }

    Variant operator()(const std::string& text) const {
        const Variant stored(automation::String::fromUtf8(text));
        return isDateType(type) ? orElse(dateFromText(text), stored) : stored;
    }

    Variant operator()(const platform::Bytes& bytes) const { return automation::Array::ofBytes(bytes); }
};

} // namespace

Variant columnValue(const DatabaseValue& value, FieldType type) {
    return std::visit(Converter{type}, value);
}

} // namespace host
