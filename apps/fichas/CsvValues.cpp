#include "fichas/CsvValues.h"

#include "automation/Characters.h"
#include "automation/Currency.h"
#include "automation/Variant.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <set>

namespace fichas {

using automation::Currency;
using automation::Date;
using automation::isDigit;
using automation::Variant;

namespace {

/// As many digits as a Double holds for certain; longer runs are account numbers and the like.
constexpr std::size_t longestNumber = 15;
constexpr std::size_t groupLength = 3;

char16_t otherSeparator(char16_t decimalSeparator) {
    return decimalSeparator == u',' ? u'.' : u',';
}

/// Takes the sign and the currency off a number's text.
std::u16string_view stripNumber(std::u16string_view text, bool& negative) {
    text = trimmed(text);
    if (text.ends_with(u'\u20AC')) text = trimmed(text.substr(0, text.size() - 1));
    const auto isSign = [](char16_t c) { return c == u'-' || c == u'+'; };
    if (!text.empty() && isSign(text.front())) {
        negative = text.front() == u'-';
        text.remove_prefix(1);
    } else if (!text.empty() && isSign(text.back())) {
        negative = text.back() == u'-';
        text.remove_suffix(1);
    }
    return text;
}

/// Appends the digits of "1.234" or "1234"; false for groups of another length or another character.
bool takeWholePart(std::u16string_view text, char16_t group, WrittenNumber& number) {
    std::size_t run = 0;
    for (const char16_t c : text) {
        if (isDigit(c)) {
            number.digits += static_cast<char>(c);
            ++run;
            if (!number.isPlain && run > groupLength) return false;
        } else if (c == group && run > 0 && run <= groupLength && (number.isPlain || run == groupLength)) {
            number.isPlain = false;
            run = 0;
        } else {
            return false;
        }
    }
    return number.isPlain || run == groupLength;
}

} // namespace

std::u16string_view trimmed(std::u16string_view text) {
    constexpr std::u16string_view blanks = u" \t\u00A0";
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::u16string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::optional<WrittenNumber> readNumber(std::u16string_view text, char16_t decimalSeparator) {
    WrittenNumber number;
    text = stripNumber(text, number.negative);
    const std::size_t point = text.find(decimalSeparator);
    if (!takeWholePart(text.substr(0, point), otherSeparator(decimalSeparator), number)) return std::nullopt;
    if (number.digits.size() > 1 && number.digits[0] == '0') return std::nullopt;
    if (point != std::u16string_view::npos) {
        const std::u16string_view decimals = text.substr(point + 1);
        if (decimals.empty() || !std::all_of(decimals.begin(), decimals.end(), isDigit)) return std::nullopt;
        for (const char16_t c : decimals)
            number.digits += static_cast<char>(c);
        number.decimals = static_cast<int>(decimals.size());
    }
    if (number.digits.empty() || number.digits.size() > longestNumber) return std::nullopt;
    return number;
}

// --------------------------------------------------------------------------------- dates and times

namespace {

/// Takes digits off the front; nothing unless there are `least` to `most` of them.
std::optional<int> takeDigits(std::u16string_view& text, std::size_t least, std::size_t most) {
    std::size_t length = 0;
    int value = 0;
    while (length < text.size() && length < most && isDigit(text[length]))
        value = value * 10 + (text[length++] - u'0');
    if (length < least) return std::nullopt;
    text.remove_prefix(length);
    return value;
}

bool takeOne(std::u16string_view& text, char16_t wanted) {
    if (text.empty() || text.front() != wanted) return false;
    text.remove_prefix(1);
    return true;
}

struct Day {
    int year;
    int month;
    int day;
    bool isValid() const {
        constexpr int firstYear = 100;
        return year >= firstYear && month >= 1 && month <= 12 && day >= 1 &&
               day <= Date::daysInMonth(year, month);
    }
};

std::optional<Day> takeIsoDay(std::u16string_view& text) {
    const auto year = takeDigits(text, 4, 4);
    if (!year || !takeOne(text, u'-')) return std::nullopt;
    const auto month = takeDigits(text, 2, 2);
    if (!month || !takeOne(text, u'-')) return std::nullopt;
    const auto day = takeDigits(text, 2, 2);
    if (!day) return std::nullopt;
    return Day{*year, *month, *day};
}

std::optional<Day> takeSpanishDay(std::u16string_view& text) {
    constexpr int firstYearOfLastCentury = 30;
    const auto day = takeDigits(text, 1, 2);
    if (!day || text.empty()) return std::nullopt;
    const char16_t separator = text.front();
    if (separator != u'/' && separator != u'-' && separator != u'.') return std::nullopt;
    text.remove_prefix(1);
    const auto month = takeDigits(text, 1, 2);
    if (!month || !takeOne(text, separator)) return std::nullopt;
    const std::size_t before = text.size();
    auto year = takeDigits(text, 2, 4);
    const std::size_t length = before - text.size();
    if (!year || length == 3) return std::nullopt;
    if (length == 2) *year += *year < firstYearOfLastCentury ? 2000 : 1900;
    return Day{*year, *month, *day};
}

std::optional<int> takeSecondOfDay(std::u16string_view& text) {
    const auto hour = takeDigits(text, 1, 2);
    if (!hour || *hour > 23 || !takeOne(text, u':')) return std::nullopt;
    const auto minute = takeDigits(text, 2, 2);
    if (!minute || *minute > 59) return std::nullopt;
    int second = 0;
    if (takeOne(text, u':')) {
        const auto seconds = takeDigits(text, 2, 2);
        if (!seconds || *seconds > 59) return std::nullopt;
        second = *seconds;
        // Fractions of a second are more than a Date shows.
        if (takeOne(text, u'.') && !takeDigits(text, 1, 9)) return std::nullopt;
    }
    return (*hour * 60 + *minute) * 60 + second;
}

} // namespace

std::optional<WrittenDate> readDate(std::u16string_view text) {
    text = trimmed(text);
    std::u16string_view rest = text;
    auto day = takeIsoDay(rest);
    if (!day) {
        rest = text;
        day = takeSpanishDay(rest);
    }
    if (!day || !day->isValid()) return std::nullopt;
    const std::int32_t number = Date::dayNumberOf(day->year, day->month, day->day);
    if (rest.empty()) return WrittenDate{Date::fromDayAndSecond(number, 0), false};
    if (!takeOne(rest, u'T') && !takeOne(rest, u' ')) return std::nullopt;
    const auto second = takeSecondOfDay(rest);
    takeOne(rest, u'Z');
    if (!second || !rest.empty()) return std::nullopt;
    return WrittenDate{Date::fromDayAndSecond(number, *second), true};
}

std::optional<Date> readTime(std::u16string_view text) {
    text = trimmed(text);
    const auto second = takeSecondOfDay(text);
    if (!second || !text.empty()) return std::nullopt;
    return Date::fromDayAndSecond(0, *second);
}

std::optional<bool> readBoolean(std::u16string_view text) {
    constexpr std::u16string_view yes[] = {u"sí", u"si", u"verdadero", u"true", u"s"};
    constexpr std::u16string_view no[] = {u"no", u"falso", u"false", u"n"};
    std::u16string small(trimmed(text));
    for (char16_t& c : small) {
        if (c >= u'A' && c <= u'Z') c = static_cast<char16_t>(c - u'A' + u'a');
        if (c == u'Í') c = u'í';
    }
    if (std::find(std::begin(yes), std::end(yes), small) != std::end(yes)) return true;
    if (std::find(std::begin(no), std::end(no), small) != std::end(no)) return false;
    return std::nullopt;
}

// -------------------------------------------------------------------------------------- the columns

namespace {

/// What the values of one column have in common.
struct Judgement {
    bool hasValues = false;
    bool spanishNumbers = true; ///< All read as numbers with a decimal comma
    bool englishNumbers = true; ///< And with a decimal point
    bool plain = true;          ///< No separators at all
    int spanishDecimals = 0;
    int englishDecimals = 0;
    bool dates = true;
    bool anyTime = false;
    bool times = true;
    bool booleans = true;

    void take(std::u16string_view field);
    bool isNumeric() const { return hasValues && (spanishNumbers || englishNumbers); }
    bool readsOneWayOnly() const { return hasValues && spanishNumbers != englishNumbers; }
    bool isText() const { return !hasValues || (!isNumeric() && !dates && !times && !booleans); }
};

void takeNumber(std::u16string_view field, char16_t separator, bool& all, int& decimals, bool& plain) {
    if (!all) return;
    const auto number = readNumber(field, separator);
    all = number.has_value();
    if (!number) return;
    decimals = std::max(decimals, number->decimals);
    plain = plain && number->isPlain && number->decimals == 0;
}

void Judgement::take(std::u16string_view field) {
    if (trimmed(field).empty()) return;
    hasValues = true;
    takeNumber(field, u',', spanishNumbers, spanishDecimals, plain);
    takeNumber(field, u'.', englishNumbers, englishDecimals, plain);
    if (dates) {
        const auto date = readDate(field);
        dates = date.has_value();
        anyTime = anyTime || (date && date->hasTime);
    }
    times = times && readTime(field).has_value();
    booleans = booleans && readBoolean(field).has_value();
}

std::vector<Judgement> judge(const std::vector<CsvRow>& rows, std::size_t from, std::size_t columns) {
    std::vector<Judgement> judgements(columns);
    for (std::size_t i = from; i < rows.size(); ++i)
        for (std::size_t c = 0; c < std::min(columns, rows[i].size()); ++c)
            judgements[c].take(rows[i][c]);
    return judgements;
}

bool isHeader(const CsvRow& first, const std::vector<Judgement>& below) {
    std::set<std::u16string_view> names;
    bool allNamed = true;
    bool anyTwice = false;
    for (const std::u16string& field : first) {
        const std::u16string_view name = trimmed(field);
        Judgement alone;
        alone.take(name);
        if (!alone.isText() && !alone.booleans) return false;
        allNamed = allNamed && !name.empty();
        anyTwice = anyTwice || (!name.empty() && !names.insert(name).second);
    }
    for (std::size_t c = 0; c < first.size(); ++c) {
        // A text above values is a name; "no" above "sí" is a value.
        Judgement alone;
        alone.take(first[c]);
        if (!below[c].isText() && alone.isText() && alone.hasValues) return true;
    }
    return allNamed && !anyTwice;
}

/// The decimal separator of most columns.
char16_t findDecimalSeparator(const std::vector<Judgement>& judgements, char16_t separator) {
    int spanish = 0;
    int english = 0;
    for (const Judgement& judgement : judgements)
        if (judgement.readsOneWayOnly()) ++(judgement.spanishNumbers ? spanish : english);
    if (spanish != english) return spanish > english ? u',' : u'.';
    return separator == u',' ? u'.' : u',';
}

ColumnType typeOf(const Judgement& judgement, char16_t decimalSeparator, int& decimals) {
    if (!judgement.hasValues) return ColumnType::Text;
    const bool numbers = decimalSeparator == u',' ? judgement.spanishNumbers : judgement.englishNumbers;
    if (numbers) {
        constexpr int currencyDecimals = 4;
        decimals = decimalSeparator == u',' ? judgement.spanishDecimals : judgement.englishDecimals;
        if (decimals == 0) return ColumnType::Integer;
        return decimals <= currencyDecimals ? ColumnType::Currency : ColumnType::Number;
    }
    if (judgement.dates) return judgement.anyTime ? ColumnType::DateTime : ColumnType::Date;
    if (judgement.times) return ColumnType::Time;
    return judgement.booleans ? ColumnType::Boolean : ColumnType::Text;
}

double toDouble(const WrittenNumber& number) {
    std::string text = number.negative ? "-" : "";
    text += number.digits;
    text.insert(text.size() - static_cast<std::size_t>(number.decimals), number.decimals ? "." : "");
    double value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

Variant numberValue(const WrittenNumber& number, ColumnType type) {
    std::int64_t digits = 0;
    for (const char c : number.digits)
        digits = digits * 10 + (c - '0');
    if (number.negative) digits = -digits;
    if (type == ColumnType::Integer && number.decimals == 0) {
        const bool isLong = digits >= std::numeric_limits<std::int32_t>::min() &&
                            digits <= std::numeric_limits<std::int32_t>::max();
        return isLong ? Variant(static_cast<std::int32_t>(digits)) : Variant(static_cast<double>(digits));
    }
    constexpr int currencyDecimals = 4;
    constexpr std::int64_t largest = std::numeric_limits<std::int64_t>::max() / Currency::scale;
    if (type == ColumnType::Currency && number.decimals <= currencyDecimals && digits < largest &&
        digits > -largest) {
        for (int i = number.decimals; i < currencyDecimals; ++i)
            digits *= 10;
        return Currency::fromScaled(digits);
    }
    return toDouble(number);
}

} // namespace

Variant CsvColumns::value(std::size_t column, const std::u16string& field) const {
    const std::u16string_view text = trimmed(field);
    if (text.empty()) return Variant::null();
    const ColumnType type = columns[column].type;
    switch (type) {
    case ColumnType::Integer:
    case ColumnType::Number:
    case ColumnType::Currency:
        if (const auto number = readNumber(text, decimalSeparators[column]))
            return numberValue(*number, type);
        break;
    case ColumnType::Date:
    case ColumnType::DateTime:
        if (const auto date = readDate(text)) return date->value;
        break;
    case ColumnType::Time:
        if (const auto time = readTime(text)) return *time;
        break;
    case ColumnType::Boolean:
        if (const auto truth = readBoolean(text)) return *truth;
        break;
    case ColumnType::Text:
    case ColumnType::Binary:
        break;
    }
    return Variant(field);
}

CsvColumns findColumns(const std::vector<CsvRow>& rows, char16_t separator) {
    CsvColumns found;
    if (rows.empty()) return found;
    const std::size_t count = rows[0].size();
    std::vector<Judgement> judgements = judge(rows, 1, count);
    found.hasHeader = isHeader(rows[0], judgements);
    if (!found.hasHeader) judgements = judge(rows, 0, count);
    const char16_t usual = findDecimalSeparator(judgements, separator);
    for (std::size_t c = 0; c < count; ++c) {
        Column& column = found.columns.emplace_back();
        if (found.hasHeader) column.name = trimmed(rows[0][c]);
        if (column.name.empty())
            column.name = automation::String::fromUtf8("Columna " + std::to_string(c + 1));
        const char16_t own = judgements[c].spanishNumbers ? u',' : u'.';
        found.decimalSeparators.push_back(judgements[c].readsOneWayOnly() ? own : usual);
        column.type = typeOf(judgements[c], found.decimalSeparators[c], column.decimals);
    }
    return found;
}

} // namespace fichas
