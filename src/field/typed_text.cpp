#include "field/typed_text.h"

#include "automation/Characters.h"
#include "automation/DateFunctions.h"
#include "automation/Numbers.h"
#include "automation/Strings.h"
#include "drawing/rounding.h"

#include <algorithm>
#include <limits>
#include <string>

namespace tesela {

using automation::Date;
using automation::isDigit;
using automation::String;

namespace {

constexpr std::int32_t firstYear = 1753;
constexpr std::int32_t endless = std::numeric_limits<std::int32_t>::max();

bool isSeparator(char16_t character, std::u16string_view separator) {
    return separator.size() == 1 && character == separator.front();
}

/// Collects the characters that pass and moves the caret back over the others.
class Sieve {
public:
    explicit Sieve(std::int32_t caret) : caret_(caret) {}

    void pass(char16_t character) { result_ += character; }
    /// `index` counts from 0 in the text being sieved.
    void drop(std::size_t index) {
        if (static_cast<std::int32_t>(index) <= caret_) --caret_;
    }
    void insertZero() {
        result_ += u'0';
        ++caret_;
    }
    TypedText finish(std::u16string_view sign) const { return {String(sign) + result_, caret_}; }

private:
    std::u16string result_;
    std::int32_t caret_;
};

bool isBlank(std::u16string_view text) {
    return text.find_first_not_of(u' ') == std::u16string_view::npos;
}

std::int32_t wholeNumber(std::u16string_view text) {
    return roundToLong(automation::Val(text));
}

} // namespace

String inCase(const String& text, tslMayusculasConstants letterCase) {
    switch (letterCase) {
    case tslMayusculasUCase:
        return automation::UCase(text);
    case tslMayusculasLCase:
        return automation::LCase(text);
    case tslMayusculasProper:
        return automation::StrConv(text, automation::StringConversion::ProperCase);
    default:
        return text;
    }
}

String trimmed(const String& text, std::int32_t autoTrim) {
    constexpr char16_t blank = u' ';
    const std::u16string_view whole = text;
    std::size_t first = 0, end = whole.size();
    if (autoTrim & tslAutoTrim_Left) first = std::min(whole.find_first_not_of(blank), end);
    if (autoTrim & tslAutoTrim_Right) end = std::max(whole.find_last_not_of(blank) + 1, first);
    return text.substring(first, end - first); // the text itself where nothing is cut off
}

TypedText filterNumber(const TypedText& typed, std::u16string_view decimalSeparator, LeadingZero zero) {
    const String unindented = automation::LTrim(typed.text);
    const bool negative = !unindented.empty() && unindented[0] == u'-';
    const std::u16string_view digits = negative ? unindented.view().substr(1) : typed.text.view();
    Sieve sieve(typed.caret);
    bool separated = false;
    for (std::size_t i = 0; i < digits.size(); ++i) {
        if (isDigit(digits[i])) {
            sieve.pass(digits[i]);
        } else if (isSeparator(digits[i], decimalSeparator) && !separated) {
            if (i == 0 && zero == LeadingZero::Yes) sieve.insertZero();
            sieve.pass(digits[i]);
            separated = true;
        } else {
            sieve.drop(i);
        }
    }
    return sieve.finish(negative ? u"-" : u"");
}

TypedText filterDate(const TypedText& typed, std::u16string_view dateSeparator) {
    std::u16string_view rest = typed.text;
    std::u16string_view sign;
    if (!rest.empty() && (rest.front() == u'-' || rest.front() == u'+')) {
        sign = rest.substr(0, 1);
        rest.remove_prefix(1);
    }
    Sieve sieve(typed.caret);
    for (std::size_t i = 0; i < rest.size(); ++i) {
        const char16_t c = rest[i];
        if (isDigit(c) || c == u' ' || c == u'/' || c == u'-' || isSeparator(c, dateSeparator))
            sieve.pass(c);
        else
            sieve.drop(i);
    }
    return sieve.finish(sign);
}

bool isBlankDate(std::u16string_view text, std::u16string_view separator) {
    return std::all_of(text.begin(), text.end(),
                       [&](char16_t c) { return c == u' ' || c == u'-' || isSeparator(c, separator); });
}

std::optional<Date> relativeDate(std::u16string_view text, Date today) {
    if (text.empty() || (text.front() != u'+' && text.front() != u'-')) return std::nullopt;
    const std::u16string_view count = text.substr(1);
    const std::int32_t days = wholeNumber(count);
    if (days == 0 && count != u"0") return std::nullopt;
    return automation::DateSerial(
        automation::Year(today), automation::Month(today),
        saturatingSum(automation::Day(today), text.front() == u'-' ? -std::int64_t{days} : days));
}

std::optional<Date> typedDate(std::u16string_view text, const DateEntry& entry) {
    const String dashed = automation::Replace(automation::Replace(text, u"/", u"-"), entry.separator, u"-");
    const auto parts = automation::Split(dashed, u"-", 3);
    std::int32_t first = 0, second = 0, third = 0;
    if (parts.size() > 1) first = wholeNumber(parts[0]);
    if (parts.size() > 2 && isBlank(parts[1])) {
        second = automation::Month(entry.today);
        third = automation::Year(entry.today);
    } else if (parts.size() > 2) {
        const std::int32_t completed =
            entry.completingYear == -1 ? automation::Year(entry.today) : entry.completingYear;
        second = wholeNumber(parts[1]);
        third = isBlank(parts[2]) ? completed : wholeNumber(parts[2]);
    }
    std::int32_t day = first, month = second, year = third;
    if (entry.order == u"0") {
        month = first;
        day = second;
    } else if (entry.order == u"2") {
        year = first;
        day = third;
    }
    const Date date = automation::DateSerial(year, month, day);
    if (automation::Month(date) != month || automation::Day(date) != day ||
        automation::Year(date) < firstYear)
        return std::nullopt;
    return date;
}

std::optional<TypedTime> typedTime(std::u16string_view text, std::u16string_view timeSeparator) {
    constexpr std::int32_t lastHour = 23, lastMinute = 59;
    const String unified = automation::Replace(text, timeSeparator, u":");
    if (unified.view().find_first_not_of(u": ") == std::u16string_view::npos) return TypedTime{true, {}};
    const std::size_t colon = unified.find(u":");
    if (colon == String::npos) return std::nullopt;
    const std::int32_t hours = wholeNumber(unified.left(colon));
    const std::int32_t minutes = wholeNumber(unified.substring(colon + 1));
    if (hours < 0 || hours > lastHour || minutes < 0 || minutes > lastMinute) return std::nullopt;
    return TypedTime{false, automation::TimeSerial(hours, minutes, 0)};
}

// --- Lists of codes --------------------------------------------------------------------------------

namespace {

/// The text with one `single` for each run of it.
String withoutRuns(String text, std::u16string_view run, std::u16string_view single) {
    while (text.find(run) != String::npos)
        text = text.replaced(run, single);
    return text;
}

} // namespace

String CodeList::normalised(std::u16string_view text) {
    String result = withoutRuns(automation::Trim(text), u"  ", u" ");
    result = result.replaced(u" -", u"-").replaced(u"- ", u"-");
    result = withoutRuns(result, u"--", u"-");
    result = withoutRuns(result.replaced(u" ", u","), u",,", u",");
    if (!result.empty() && result[result.length() - 1] == u',') result = result.left(result.length() - 1);
    return result;
}

CodeList::CodeList(std::u16string_view text) {
    std::size_t position = 0;
    while (position < text.size()) {
        const std::size_t comma = std::min(text.find(u',', position), text.size());
        const std::u16string_view element = text.substr(position, comma - position);
        if (!add(automation::Trim(element), static_cast<std::int32_t>(position),
                 static_cast<std::int32_t>(element.size())))
            return;
        position = comma + 1;
    }
    sort();
    check();
}

/// Adds an element; false if it is at fault.
bool CodeList::add(std::u16string_view element, std::int32_t start, std::int32_t length) {
    if (element.empty()) return true;
    Row row{0, 0, start, length};
    const std::size_t dash = element.find(u'-');
    if (dash != std::u16string_view::npos) return addRange(element, dash, row);
    row.from = wholeNumber(element);
    rows_.push_back(row);
    return true;
}

bool CodeList::addRange(std::u16string_view element, std::size_t dash, Row row) {
    if (element.rfind(u'-') != dash) {
        mark(Fault::TwoDashes, row);
        return false;
    }
    row.from = wholeNumber(element.substr(0, dash));
    row.to = wholeNumber(element.substr(dash + 1));
    if (row.from == 0 && row.to == 0) {
        mark(Fault::NoBounds, row);
        return false;
    }
    if (row.to == 0)
        row.to = endless;
    else if (row.from > row.to)
        std::swap(row.from, row.to);
    else if (row.from == row.to)
        row.to = 0;
    rows_.push_back(row);
    return true;
}

void CodeList::mark(Fault fault, const Row& row) {
    fault_ = fault;
    faultStart_ = row.start;
    faultLength_ = row.length;
}

CodeList::Fault CodeList::between(const Row& first, const Row& second) {
    if (first.isRange() && second.isRange())
        return second.from <= first.to ? Fault::RangesOverlap : Fault::None;
    if (first.isRange()) return first.contains(second.from) ? Fault::RangeOverElement : Fault::None;
    if (second.isRange()) return second.contains(first.from) ? Fault::ElementInRange : Fault::None;
    return first.from == second.from ? Fault::EqualElements : Fault::None;
}

/// Ascending. Equal beginnings come in the order in which exchanging each row with every lower one behind it
/// leaves them: which fault is told and marked depends on it. Many rows would take too long for that.
void CodeList::sort() {
    constexpr std::size_t most = 4096;
    std::vector<Row> exchanged = rows_;
    std::stable_sort(rows_.begin(), rows_.end(), [](const Row& a, const Row& b) { return a.from < b.from; });
    const auto twins = std::adjacent_find(rows_.begin(), rows_.end(),
                                          [](const Row& a, const Row& b) { return a.from == b.from; });
    if (twins == rows_.end() || rows_.size() > most) return;
    for (auto row = exchanged.begin(); row != exchanged.end(); ++row)
        for (auto later = row + 1; later != exchanged.end(); ++later)
            if (later->from < row->from) std::swap(*row, *later);
    rows_ = std::move(exchanged);
}

/// In ascending order a row that doesn't meet the next one meets none of those behind it.
void CodeList::check() {
    for (std::size_t i = 1; i < rows_.size(); ++i)
        if (const Fault fault = between(rows_[i - 1], rows_[i]); fault != Fault::None)
            return mark(fault, rows_[i - 1]);
}

String CodeList::text() const {
    const auto number = [](std::int32_t value) { return String::fromUtf8(std::to_string(value)); };
    String result;
    for (const Row& row : rows_) {
        if (!result.empty()) result += u", ";
        if (!row.isRange()) {
            result += number(row.from);
            continue;
        }
        if (row.from != 0) result += number(row.from);
        result += u"-";
        if (row.to != endless) result += number(row.to);
    }
    return result;
}

String CodeList::message(Fault fault) {
    switch (fault) {
    case Fault::None:
        break;
    case Fault::TwoDashes:
        return u"No puede haber más de 1 guión entre un par de comas.";
    case Fault::NoBounds:
        return u"Un rango necesita especificar al menos un valor (el inicial o el final).";
    case Fault::EqualElements:
        return u"Dos elementos son iguales.";
    case Fault::ElementInRange:
        return u"Un elemento está incluido en el rango que le sigue.";
    case Fault::RangeOverElement:
        return u"Un rango incluye a un elemento posterior.";
    case Fault::RangesOverlap:
        return u"Dos rangos se solapan.";
    }
    return {};
}

} // namespace tesela
