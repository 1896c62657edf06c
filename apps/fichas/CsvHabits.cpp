#include "fichas/CsvHabits.h"

#include "automation/Conversions.h"
#include "automation/Currency.h"
#include "automation/Date.h"
#include "fichas/CsvValues.h"
#include "platform/locale.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

namespace fichas {

using automation::Date;
using automation::Variant;

namespace {

constexpr std::u16string_view digits = u"0123456789";

/// With zeros in front up to a length.
std::u16string padded(int number, std::size_t length) {
    std::u16string text = platform::wideFromUtf8(std::to_string(number));
    return text.size() < length ? std::u16string(length - text.size(), u'0') + text : text;
}

// ------------------------------------------------------------------------------------------- numbers

/// "-1234.5": what a number is, without the zeros behind its decimals.
std::string plainNumber(const Variant& value) {
    std::array<char, 400> text{};
    if (value.type() == automation::VT_CY) {
        constexpr std::size_t currencyDecimals = 4;
        std::string scaled = std::to_string(value.asCurrency().scaled());
        const std::size_t sign = scaled[0] == '-';
        if (scaled.size() - sign <= currencyDecimals)
            scaled.insert(sign, currencyDecimals + 1 - (scaled.size() - sign), '0');
        scaled.insert(scaled.size() - currencyDecimals, ".");
        scaled.erase(scaled.find_last_not_of('0') + 1);
        if (scaled.back() == '.') scaled.pop_back();
        return scaled;
    }
    if (value.type() == automation::VT_I4 || value.type() == automation::VT_DECIMAL)
        return automation::CStr(value).utf8(); // whole numbers
    const auto end = std::to_chars(text.data(), text.data() + text.size(), automation::CDbl(value),
                                   std::chars_format::fixed);
    return {text.data(), end.ptr};
}

std::u16string grouped(std::u16string whole, char16_t separator) {
    constexpr std::size_t groupLength = 3;
    for (std::size_t left = whole.size(); left > groupLength;)
        whole.insert(left -= groupLength, 1, separator);
    return whole;
}

/// What stands around the digits of a number: blanks, its currency, a sign behind.
struct Surroundings {
    std::u16string before, behind;
    bool signBehind = false;
};

Surroundings surroundingsOf(std::u16string_view number) {
    Surroundings around;
    const std::size_t first = number.find_first_of(u"0123456789.,");
    if (first == std::u16string_view::npos) return around;
    around.before = number.substr(0, first);
    around.behind = number.substr(number.find_last_of(u"0123456789.,") + 1);
    const auto isSign = [](char16_t c) { return c == u'-' || c == u'+'; };
    around.signBehind = std::ranges::any_of(around.behind, isSign);
    std::erase_if(around.before, isSign);
    std::erase_if(around.behind, isSign);
    return around;
}

// --------------------------------------------------------------------------------------------- dates

/// The way in which a date is written, with or without an hour.
struct DateForm {
    std::size_t width[3] = {2, 2, 4};      ///< Of its numbers, in their order
    char16_t separators[2] = {u'/', u'/'}; ///< Between them
    std::u16string_view hour;              ///< What follows, with what joins it
    bool yearFirst() const { return width[0] == 4; }
};

DateForm dateFormOf(std::u16string_view date) {
    DateForm form;
    for (std::size_t i = 0; i < 3; ++i) {
        form.width[i] = std::min(date.find_first_not_of(digits), date.size());
        date.remove_prefix(form.width[i]);
        if (i == 2 || date.empty()) break;
        form.separators[i] = date.front();
        date.remove_prefix(1);
    }
    form.hour = date;
    return form;
}

/// An hour like "9:30" or "09:30:00".
std::u16string hourLike(std::u16string_view model, int secondOfDay) {
    constexpr int minute = 60, hour = 3600;
    const std::size_t width = std::min(model.find_first_not_of(digits), model.size());
    const auto colons = std::ranges::count(model, u':');
    std::u16string text = padded(secondOfDay / hour, width) + u':' + padded(secondOfDay % hour / minute, 2);
    if (colons > 1) text += u':' + padded(secondOfDay % minute, 2);
    return text;
}

/// The hour of a date as it was written, where it stays; else another one in its form.
std::u16string hourOfDate(std::u16string_view model, int secondOfDay, bool stays) {
    if (stays) return std::u16string(model);
    if (model.empty()) return secondOfDay == 0 ? u"" : u" " + hourLike(u"00:00:00", secondOfDay);
    const bool isUniversal = model.ends_with(u'Z');
    return model.front() + hourLike(model.substr(1), secondOfDay) + (isUniversal ? u"Z" : u"");
}

std::u16string dateLike(std::u16string_view model, Date value) {
    constexpr int firstShortYear = 1930, century = 100;
    const automation::DateParts parts = value.split();
    const DateForm form = dateFormOf(model);
    const bool unpadded = std::min(form.width[0], form.width[1]) == 1; // "1/2/2024"
    const std::size_t least = unpadded ? 1 : 2;
    const bool shortYear = !form.yearFirst() && form.width[2] == 2 && parts.year >= firstShortYear &&
                           parts.year < firstShortYear + century;
    const std::u16string year = shortYear ? padded(parts.year % century, 2) : padded(parts.year, 4);
    const std::u16string month = padded(parts.month, least), day = padded(parts.day, least);
    const auto former = readDate(model);
    const bool hourStays = former && former->value.secondOfDay() == value.secondOfDay();
    return (form.yearFirst() ? year : day) + form.separators[0] + month + form.separators[1] +
           (form.yearFirst() ? day : year) + hourOfDate(form.hour, value.secondOfDay(), hourStays);
}

// --------------------------------------------------------------------------------------- truth values

constexpr std::pair<std::u16string_view, std::u16string_view> truthWords[] = {
    {u"sí", u"no"}, {u"si", u"no"}, {u"verdadero", u"falso"}, {u"true", u"false"}, {u"s", u"n"}};

/// A word in capitals or with one where the model has them.
std::u16string inCaseOf(std::u16string_view model, std::u16string_view word) {
    std::u16string text(word);
    const std::u16string lower = platform::lowerCase(model);
    if (model.empty() || model[0] == lower[0]) return text;
    const bool all = model.size() > 1 && model[1] != lower[1];
    const std::u16string upper = platform::upperCase(text);
    return all || text.size() == 1 ? upper : upper.substr(0, 1) + text.substr(1);
}

/// The other word of the pair that a word belongs to.
std::u16string oppositeOf(std::u16string_view word) {
    const std::u16string lower = platform::lowerCase(word);
    for (const auto& [yes, no] : truthWords) {
        if (lower == yes) return inCaseOf(word, no);
        if (lower == no) return inCaseOf(word, yes);
    }
    return {};
}

} // namespace

bool CsvHabits::isOfType(std::u16string_view field) const {
    switch (type_) {
    case ColumnType::Integer:
    case ColumnType::Number:
    case ColumnType::Currency:
        return readNumber(field, decimalSeparator_).has_value();
    case ColumnType::Date:
    case ColumnType::DateTime:
        return readDate(field).has_value();
    case ColumnType::Time:
        return readTime(field).has_value();
    default:
        return true;
    }
}

void CsvHabits::take(std::u16string_view field, bool isQuoted) {
    if (trimmed(field).empty()) return;
    any_ = true;
    allQuoted_ = allQuoted_ && isQuoted;
    if (!isOfType(field)) return;
    if (sample_.empty()) sample_ = field;
    if (const auto number = readNumber(field, decimalSeparator_)) {
        grouped_ = grouped_ || !number->isPlain;
        decimals_ = std::max(decimals_, number->decimals);
    }
    if (const auto truth = readBoolean(field))
        if (std::u16string& word = *truth ? yes_ : no_; word.empty()) word = trimmed(field);
}

/// A number that is short says nothing of thousands: the others of the column do.
std::u16string CsvHabits::number(const Variant& value, std::u16string_view model) const {
    constexpr std::size_t groupLength = 3;
    const auto former = readNumber(model, decimalSeparator_);
    const auto least = static_cast<std::size_t>(former ? former->decimals : decimals_);
    const bool isShort = !former || former->digits.size() <= groupLength + least;
    const bool groups = (former && !former->isPlain) || (isShort && grouped_);

    std::string plain = plainNumber(value);
    const bool isNegative = plain[0] == '-';
    plain.erase(0, isNegative);
    const std::size_t point = std::min(plain.find('.'), plain.size());
    std::u16string decimals = platform::wideFromUtf8(plain.substr(std::min(point + 1, plain.size())));
    if (decimals.size() < least) decimals.append(least - decimals.size(), u'0');
    std::u16string text = platform::wideFromUtf8(plain.substr(0, point));
    if (groups) text = grouped(std::move(text), decimalSeparator_ == u',' ? u'.' : u',');
    if (!decimals.empty()) text += decimalSeparator_ + decimals;

    const Surroundings around = surroundingsOf(former ? model : std::u16string_view(sample_));
    if (isNegative) text = around.signBehind ? text + u'-' : u'-' + text;
    return around.before + text + around.behind;
}

std::u16string CsvHabits::truth(bool value) const {
    const std::u16string& known = value ? yes_ : no_;
    if (!known.empty()) return known;
    const std::u16string opposite = oppositeOf(value ? no_ : yes_);
    return !opposite.empty() ? opposite : value ? u"sí" : u"no";
}

std::u16string CsvHabits::text(const Variant& value, std::u16string_view former) const {
    const bool isModel = !trimmed(former).empty() && isOfType(former);
    const std::u16string_view model = isModel ? former : std::u16string_view(sample_);
    switch (value.type()) {
    case automation::VT_NULL:
        return {};
    case automation::VT_BSTR:
        return value.asString().string();
    case automation::VT_BOOL:
        return truth(value.asBoolean());
    case automation::VT_DATE:
        return type_ == ColumnType::Time ? hourLike(trimmed(model), value.asDate().secondOfDay())
                                         : dateLike(trimmed(model), value.asDate());
    default:
        return number(value, isModel ? former : std::u16string_view());
    }
}

} // namespace fichas
