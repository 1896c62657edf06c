#include "automation/DateText.h"

#include "automation/Characters.h"
#include "automation/Locale.h"
#include "automation/TextBuilder.h"

#include "platform/locale.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <string>

namespace automation {

namespace {

constexpr int noValue = -1;
constexpr int mostDateNumbers = 3;
constexpr int numberLimit = 100000; // above every part of a date; keeps long digit runs from overflowing
constexpr char16_t noBreakSpace = 0x00A0;
constexpr char16_t narrowNoBreakSpace = 0x202F;

bool isBlank(char16_t unit) {
    return unit == u' ' || (unit >= u'\t' && unit <= u'\r') || unit == noBreakSpace ||
           unit == narrowNoBreakSpace;
}

/// Whether a word may hold the unit. Beyond ASCII only blanks end a word.
bool isLetter(char16_t unit) {
    return isAsciiLetter(unit) || (unit >= 0x80 && !isBlank(unit));
}

/// The orders that are tried for three numbers, the locale's own first. 0, 1, 2 are day, month and year.
struct NumberOrder {
    int day, month, year;
};
constexpr NumberOrder dayMonthYear{0, 1, 2}, monthDayYear{1, 0, 2}, yearMonthDay{2, 1, 0},
    yearDayMonth{1, 2, 0};
constexpr NumberOrder ordersOfThree[3][4] = {
    {monthDayYear, yearMonthDay, dayMonthYear, yearDayMonth},
    {dayMonthYear, monthDayYear, yearMonthDay, yearDayMonth},
    {yearMonthDay, monthDayYear, dayMonthYear, yearDayMonth},
};

/// Compares a word of the text with a name without regard to case.
bool sameWord(std::u16string_view word, std::u16string_view name) {
    if (word.size() != name.size()) return false;
    bool plain = true;
    for (std::size_t i = 0; i < word.size(); ++i) {
        if (word[i] == name[i]) continue;
        if (word[i] >= 0x80 || name[i] >= 0x80)
            plain = false;
        else if ((word[i] | 0x20) != (name[i] | 0x20) || !isLetter(word[i]))
            return false;
    }
    return plain || platform::lowerCase(word) == platform::lowerCase(name);
}

/// Abbreviations may end in a point, which the text may leave out.
std::u16string_view withoutPoint(std::u16string_view name) {
    if (!name.empty() && name.back() == u'.') name.remove_suffix(1);
    return name;
}

class DateReader {
public:
    DateReader(std::u16string_view text, const Locale& locale, int currentYear)
        : at_(text.data()), end_(text.data() + text.size()), locale_(locale), currentYear_(currentYear) {}

    bool read(Date& value);

private:
    enum class Last { Nothing, Item, Separator, Time };

    void skipBlanks() {
        while (at_ != end_ && isBlank(*at_))
            ++at_;
    }
    bool startsWith(std::u16string_view piece) const {
        return !piece.empty() && static_cast<std::size_t>(end_ - at_) >= piece.size() &&
               std::u16string_view(at_, piece.size()) == piece;
    }
    int readNumber();
    bool readNumberItem();
    bool readDotted(int first);
    bool readTime(int hour);
    bool readWord();
    bool readSeparator();
    int timeSeparatorLength() const;
    bool addNumber(int number);
    int matchHalfDay();
    bool matchHalfDayName(std::u16string_view name);
    bool isLiteralWord(std::u16string_view word) const;

    bool resolve(DateParts& parts) const;
    bool resolveNumbers(DateParts& parts) const;
    bool resolveWithMonth(DateParts& parts) const;
    bool tryDay(DateParts& parts, int year, int month, int day) const;

    const char16_t* at_;
    const char16_t* end_;
    const Locale& locale_;
    int currentYear_;
    std::array<int, mostDateNumbers> numbers_{};
    int numberCount_ = 0;
    int month_ = 0; ///< By name, 1 to 12
    int numbersBeforeMonth_ = 0;
    bool weekday_ = false;
    bool hasTime_ = false;
    int hour_ = 0, minute_ = 0, second_ = 0;
    Last last_ = Last::Nothing;
};

int DateReader::readNumber() {
    int number = 0;
    for (; at_ != end_ && isDigit(*at_); ++at_)
        number = std::min(numberLimit, number * 10 + (*at_ - u'0'));
    return number;
}

bool DateReader::addNumber(int number) {
    if (numberCount_ == mostDateNumbers || number >= numberLimit) return false;
    numbers_[static_cast<std::size_t>(numberCount_++)] = number;
    last_ = Last::Item;
    return true;
}

/// The length of a time separator here that stands between two digits, or 0.
int DateReader::timeSeparatorLength() const {
    const std::u16string_view own = locale_.timeSeparator;
    const bool colon = at_ != end_ && *at_ == u':';
    const std::size_t length = colon ? 1 : startsWith(own) ? own.size() : 0;
    // A locale whose times are written with a point reads points as a dotted group.
    if (length == 0 || (!colon && own == u".")) return 0;
    return static_cast<int>(length);
}

bool DateReader::readNumberItem() {
    const int number = readNumber();
    const char16_t* const afterNumber = at_;
    skipBlanks();
    if (timeSeparatorLength() > 0) return readTime(number);
    const bool marked = matchHalfDay() != noValue;
    at_ = afterNumber;
    if (marked) return readTime(number);
    if (at_ != end_ && end_ - at_ > 1 && *at_ == u'.' && isDigit(at_[1])) return readDotted(number);
    return addNumber(number);
}

/// Numbers joined by points: a time if they make one, else a date of three numbers. Where the locale's dates
/// are written with points, a date first.
bool DateReader::readDotted(int first) {
    std::array<int, mostDateNumbers> group{first, 0, 0};
    std::size_t count = 1;
    while (end_ - at_ > 1 && *at_ == u'.' && isDigit(at_[1])) {
        if (count == group.size()) return false;
        ++at_;
        group[count++] = readNumber();
    }
    const bool pointsInDates = locale_.dateSeparator == u".";
    constexpr int hours = 24, sixty = 60;
    const bool time = !hasTime_ && group[0] < hours && group[1] < sixty && group[2] < sixty;
    if (time && !pointsInDates) {
        hour_ = group[0];
        minute_ = group[1];
        second_ = group[2];
        return readTime(noValue);
    }
    if (numberCount_ > 0 || month_ > 0 || (count < group.size() && !pointsInDates)) return false;
    for (std::size_t i = 0; i < count; ++i)
        if (!addNumber(group[i])) return false;
    return true;
}

/// Reads what follows the hour, or only the mark of the half day after a dotted time (`hour` is noValue).
bool DateReader::readTime(int hour) {
    if (hasTime_ || (last_ == Last::Separator && numberCount_ + month_ == 0)) return false;
    if (hour != noValue) {
        int* const parts[] = {&minute_, &second_};
        hour_ = hour;
        for (int* part : parts) {
            const char16_t* const afterPart = at_;
            skipBlanks();
            const int separator = timeSeparatorLength();
            if (separator == 0) {
                at_ = afterPart;
                break;
            }
            at_ += separator;
            skipBlanks();
            if (at_ == end_ || !isDigit(*at_)) return false;
            *part = readNumber();
        }
    }
    constexpr int hours = 24, sixty = 60, noon = 12;
    if (hour_ >= hours || minute_ >= sixty || second_ >= sixty) return false;
    const char16_t* const afterTime = at_;
    skipBlanks();
    const int half = matchHalfDay();
    if (half == noValue) at_ = afterTime;
    if (half == 0 && hour_ == noon) hour_ = 0;
    if (half == 1 && hour_ < noon) hour_ += noon;
    hasTime_ = true;
    last_ = Last::Time;
    return at_ == end_ || isBlank(*at_) || *at_ == u',';
}

/// Whether `name` stands here; goes past it if so. Points and blanks in the name may be left out or others.
bool DateReader::matchHalfDayName(std::u16string_view name) {
    const bool dotted = name.find(u'.') != std::u16string_view::npos;
    const auto passed = [dotted](char16_t unit) { return dotted && (unit == u'.' || isBlank(unit)); };
    const char16_t* p = at_;
    bool any = false;
    for (const char16_t unit : name) {
        if (passed(unit)) continue;
        while (any && p != end_ && passed(*p))
            ++p;
        if (p == end_ || !sameWord({p, 1}, {&unit, 1})) return false;
        ++p;
        any = true;
    }
    if (!any || (p != end_ && isLetter(*p))) return false;
    if (dotted && p != end_ && *p == u'.') ++p;
    at_ = p;
    return true;
}

/// 0 for a mark of the morning here, 1 for one of the afternoon, noValue for none. The marks are the
/// locale's, AM and PM, and their first letters.
int DateReader::matchHalfDay() {
    if (at_ == end_ || !isLetter(*at_)) return noValue;
    if (matchHalfDayName(locale_.morning) || matchHalfDayName(u"AM")) return 0;
    if (matchHalfDayName(locale_.afternoon) || matchHalfDayName(u"PM")) return 1;
    return matchHalfDayName(u"A") ? 0 : matchHalfDayName(u"P") ? 1 : noValue;
}

bool DateReader::isLiteralWord(std::u16string_view word) const {
    bool quoted = false;
    const std::u16string& pattern = locale_.longDate;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        if (pattern[i] == u'\'') quoted = !quoted;
        if (!quoted || !isLetter(pattern[i]) || (i > 0 && isLetter(pattern[i - 1]))) continue;
        std::size_t length = 0;
        while (i + length < pattern.size() && isLetter(pattern[i + length]))
            ++length;
        if (sameWord(word, std::u16string_view(pattern).substr(i, length))) return true;
    }
    return false;
}

bool DateReader::readWord() {
    const char16_t* p = at_;
    while (p != end_ && isLetter(*p))
        ++p;
    const std::u16string_view word(at_, static_cast<std::size_t>(p - at_));
    const bool point = p != end_ && *p == u'.';
    at_ = p;
    for (std::size_t i = 0; i < locale_.monthNames.size(); ++i) {
        const bool whole = sameWord(word, locale_.monthNames[i]);
        if (!whole && !sameWord(word, withoutPoint(locale_.shortMonthNames[i]))) continue;
        if (month_ > 0) return false;
        if (!whole && point) ++at_;
        month_ = static_cast<int>(i) + 1;
        numbersBeforeMonth_ = numberCount_;
        last_ = Last::Item;
        return true;
    }
    for (std::size_t i = 0; i < locale_.dayNames.size(); ++i) {
        const bool whole = sameWord(word, locale_.dayNames[i]);
        if (!whole && !sameWord(word, withoutPoint(locale_.shortDayNames[i]))) continue;
        if (weekday_) return false;
        if (!whole && point) ++at_;
        weekday_ = true;
        skipBlanks();
        if (at_ != end_ && *at_ == u',') ++at_;
        return true;
    }
    return numberCount_ + month_ > 0 && isLiteralWord(word);
}

bool DateReader::readSeparator() {
    const bool own = startsWith(locale_.dateSeparator);
    if (!own && *at_ != u'/' && *at_ != u'-' && *at_ != u',') return false;
    // A comma may part the date from its time; other separators stand between the parts of a date.
    const bool comma = *at_ == u',' && !own;
    if (last_ != Last::Item && !(comma && last_ == Last::Time)) return false;
    at_ += own ? static_cast<std::ptrdiff_t>(locale_.dateSeparator.size()) : 1;
    if (!comma) last_ = Last::Separator;
    return true;
}

bool DateReader::read(Date& value) {
    for (skipBlanks(); at_ != end_; skipBlanks()) {
        const bool read = isDigit(*at_) ? readNumberItem() : isLetter(*at_) ? readWord() : readSeparator();
        if (!read) return false;
    }
    if (last_ == Last::Separator) return false;
    DateParts parts;
    if (numberCount_ + month_ > 0 ? !resolve(parts) : !hasTime_ || weekday_) return false;
    parts.hour = hour_;
    parts.minute = minute_;
    parts.second = second_;
    value = Date::join(parts);
    return true;
}

bool DateReader::tryDay(DateParts& parts, int year, int month, int day) const {
    constexpr int lowestYear = 100, highestYear = 9999;
    year = fullYear(year);
    if (year < lowestYear || year > highestYear || month < 1 || month > 12 || day < 1 ||
        day > Date::daysInMonth(year, month))
        return false;
    parts.year = year;
    parts.month = month;
    parts.day = day;
    return true;
}

bool DateReader::resolve(DateParts& parts) const {
    return month_ > 0 ? resolveWithMonth(parts) : resolveNumbers(parts);
}

bool DateReader::resolveNumbers(DateParts& parts) const {
    const int a = numbers_[0], b = numbers_[1];
    if (numberCount_ == mostDateNumbers) {
        for (const NumberOrder& order : ordersOfThree[static_cast<int>(locale_.dateOrder)]) {
            const auto part = [&](int place) { return numbers_[static_cast<std::size_t>(place)]; };
            if (tryDay(parts, part(order.year), part(order.month), part(order.day))) return true;
        }
        return false;
    }
    if (numberCount_ != 2) return false;
    const bool dayFirst = locale_.dateOrder == DateOrder::DayMonthYear;
    return tryDay(parts, currentYear_, dayFirst ? b : a, dayFirst ? a : b) ||
           tryDay(parts, currentYear_, dayFirst ? a : b, dayFirst ? b : a) || tryDay(parts, b, a, 1) ||
           tryDay(parts, a, b, 1);
}

bool DateReader::resolveWithMonth(DateParts& parts) const {
    const int a = numbers_[0], b = numbers_[1];
    if (numberCount_ == 1) return tryDay(parts, currentYear_, month_, a) || tryDay(parts, a, month_, 1);
    if (numberCount_ != 2) return false;
    if (numbersBeforeMonth_ == 0) return tryDay(parts, b, month_, a);
    if (numbersBeforeMonth_ == 2) return tryDay(parts, a, month_, b);
    const bool yearFirst = locale_.dateOrder == DateOrder::YearMonthDay;
    return yearFirst ? tryDay(parts, a, month_, b) || tryDay(parts, b, month_, a)
                     : tryDay(parts, b, month_, a) || tryDay(parts, a, month_, b);
}

/// Length of the run of equal letters at the start.
std::size_t runLength(std::u16string_view pattern) {
    std::size_t length = 1;
    while (length < pattern.size() && pattern[length] == pattern[0])
        ++length;
    return length;
}

} // namespace

bool readDate(std::u16string_view text, const Locale& locale, int currentYear, Date& value) {
    return DateReader(text, locale, currentYear).read(value);
}

void writeSystemPattern(TextBuilder& out, std::u16string_view pattern, const DateParts& parts,
                        const Locale& locale) {
    constexpr int noon = 12, century = 100;
    const std::size_t month = static_cast<std::size_t>(parts.month - 1);
    const std::size_t weekday = static_cast<std::size_t>(parts.weekday);
    while (!pattern.empty()) {
        const std::size_t run = runLength(pattern);
        const int width = static_cast<int>(std::min<std::size_t>(run, 2));
        const int hour12 = parts.hour % noon == 0 ? noon : parts.hour % noon;
        const std::u16string_view half = parts.hour < noon ? locale.morning : locale.afternoon;
        std::size_t taken = run;
        switch (pattern[0]) {
        case u'd':
            if (run < 3)
                out.addNumber(parts.day, width);
            else
                out.add(run == 3 ? locale.shortDayNames[weekday] : locale.dayNames[weekday]);
            break;
        case u'M':
            if (run < 3)
                out.addNumber(parts.month, width);
            else
                out.add(run == 3 ? locale.shortMonthNames[month] : locale.monthNames[month]);
            break;
        case u'y':
            if (run < 3)
                out.addNumber(parts.year % century, width);
            else
                out.addNumber(parts.year, 4);
            break;
        case u'h':
            out.addNumber(hour12, width);
            break;
        case u'H':
            out.addNumber(parts.hour, width);
            break;
        case u'm':
            out.addNumber(parts.minute, width);
            break;
        case u's':
            out.addNumber(parts.second, width);
            break;
        case u't':
            out.add(run == 1 ? half.substr(0, 1) : half);
            break;
        case u'g':
            break; // the era, which these locales leave out
        case u'\'': {
            const std::size_t close = pattern.find(u'\'', 1);
            out.add(pattern.substr(1, close == std::u16string_view::npos ? close : close - 1));
            taken = close == std::u16string_view::npos ? pattern.size() : close + 1;
            break;
        }
        default:
            out.add(run, pattern[0]);
        }
        pattern.remove_prefix(taken);
    }
}

void writeDate(TextBuilder& out, Date date, const Locale& locale) {
    const DateParts parts = date.split();
    const bool time = parts.hour != 0 || parts.minute != 0 || parts.second != 0;
    const bool day = parts.year != 1899 || parts.month != 12 || parts.day != 30;
    if (day) writeSystemPattern(out, locale.shortDate, parts, locale);
    if (day && time) out.add(u' ');
    if (time || !day) writeSystemPattern(out, locale.timeFormat, parts, locale);
}

} // namespace automation
