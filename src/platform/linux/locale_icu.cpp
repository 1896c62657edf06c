// Locales that the library does not carry with it, out of ICU's data and in the platform's forms.

#include "platform/linux/locale_data.h"

#include <unicode/ucal.h>
#include <unicode/udat.h>
#include <unicode/uloc.h>
#include <unicode/unum.h>

#include <algorithm>
#include <cstdio>
#include <list>
#include <mutex>

namespace platform::driver {
namespace {

using Text = std::u16string;

constexpr int textCapacity = 256;
constexpr LCID unknownLocale = 0x1000;
constexpr char16_t currencySign = 0x00A4;

/// Calls an ICU function that fills a buffer; empty on failure.
template <class Fill>
Text filled(Fill&& fill) {
    char16_t buffer[textCapacity];
    UErrorCode status = U_ZERO_ERROR;
    const int length = fill(buffer, textCapacity, &status);
    if (U_FAILURE(status) || length < 0 || length > textCapacity) return {};
    return Text(buffer, static_cast<std::size_t>(length));
}

Text numeral(int value) {
    return wideFromUtf8(std::to_string(value));
}

class NumberFormat {
public:
    NumberFormat(UNumberFormatStyle style, const std::string& locale) {
        UErrorCode status = U_ZERO_ERROR;
        format_ = unum_open(style, nullptr, 0, locale.c_str(), nullptr, &status);
    }
    ~NumberFormat() { unum_close(format_); }
    NumberFormat(const NumberFormat&) = delete;
    NumberFormat& operator=(const NumberFormat&) = delete;

    bool opened() const { return format_ != nullptr; }
    int attribute(UNumberFormatAttribute which) const { return unum_getAttribute(format_, which); }
    Text symbol(UNumberFormatSymbol which) const {
        return filled(
            [&](char16_t* b, int n, UErrorCode* s) { return unum_getSymbol(format_, which, b, n, s); });
    }
    Text grouping() const {
        const int first = attribute(UNUM_GROUPING_SIZE);
        const int next = attribute(UNUM_SECONDARY_GROUPING_SIZE);
        return next > 0 && next != first ? numeral(first) + u";" + numeral(next) + u";0"
                                         : numeral(first) + u";0";
    }
    /// 0 to 3: the sign before or after, without or with a space between.
    int currencyForm() const {
        const Text pattern = filled(
            [&](char16_t* b, int n, UErrorCode* s) { return unum_toPattern(format_, false, b, n, s); });
        const Text positive = pattern.substr(0, pattern.find(u';'));
        const std::size_t sign = positive.find(currencySign);
        if (sign == Text::npos) return 3;
        const bool before = sign < positive.find_first_of(u"#0");
        const std::size_t beside = before ? sign + 1 : sign - 1;
        const bool space = beside < positive.size() && (positive[beside] == u' ' || positive[beside] == 0xA0);
        return (before ? 0 : 1) + (space ? 2 : 0);
    }

private:
    UNumberFormat* format_ = nullptr;
};

class DateFormat {
public:
    DateFormat(UDateFormatStyle time, UDateFormatStyle date, const std::string& locale) {
        UErrorCode status = U_ZERO_ERROR;
        format_ = udat_open(time, date, locale.c_str(), nullptr, 0, nullptr, 0, &status);
    }
    ~DateFormat() { udat_close(format_); }
    DateFormat(const DateFormat&) = delete;
    DateFormat& operator=(const DateFormat&) = delete;

    bool opened() const { return format_ != nullptr; }
    Text pattern() const {
        return filled(
            [&](char16_t* b, int n, UErrorCode* s) { return udat_toPattern(format_, false, b, n, s); });
    }
    Text symbol(UDateFormatSymbolType type, int index) const {
        return filled([&](char16_t* b, int n, UErrorCode* s) {
            return udat_getSymbols(format_, type, index, b, n, s);
        });
    }
    /// Monday to Sunday; ICU's Sunday is 1.
    std::vector<Text> days(UDateFormatSymbolType type) const {
        std::vector<Text> names;
        names.reserve(7);
        for (int day = 0; day < 7; ++day)
            names.push_back(symbol(type, (day + 1) % 7 + 1));
        return names;
    }
    std::vector<Text> months(UDateFormatSymbolType type) const {
        std::vector<Text> names;
        names.reserve(12);
        for (int month = 0; month < 12; ++month)
            names.push_back(symbol(type, month));
        return names;
    }

private:
    UDateFormat* format_ = nullptr;
};

/// A run of one pattern letter in the platform's letters.
Text platformLetters(char16_t letter, std::size_t count) {
    switch (letter) {
    case u'E':
    case u'c':
    case u'e':
        return Text(count == 4 ? 4 : 3, u'd');
    case u'L':
        return Text(count, u'M');
    case u'y':
    case u'u':
        return Text(count == 2 ? 2 : 4, u'y');
    case u'a':
    case u'b':
    case u'B':
        return u"tt";
    case u'K':
        return Text(count, u'h');
    case u'k':
        return Text(count, u'H');
    case u'G':
        return u"gg";
    default:
        return Text(count, letter);
    }
}

Text platformPattern(const Text& pattern) {
    Text out;
    bool quoted = false;
    for (std::size_t i = 0; i < pattern.size();) {
        const char16_t c = pattern[i];
        const bool letter = (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
        if (c == u'\'') quoted = !quoted;
        if (quoted || !letter) {
            out += c == 0x202F ? u' ' : c;
            ++i;
            continue;
        }
        const std::size_t end = std::min(pattern.find_first_not_of(c, i), pattern.size());
        out += platformLetters(c, end - i);
        i = end;
    }
    return out;
}

/// What stands between two fields of a pattern: the first run of characters that are no letters.
Text separatorOf(const Text& pattern, const Text& otherwise) {
    const auto isLetter = [](char16_t c) { return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z'); };
    const auto begin = std::find_if_not(pattern.begin(), pattern.end(), isLetter);
    const auto end = std::find_if(begin, pattern.end(), isLetter);
    return begin == end || end == pattern.end() ? otherwise : Text(begin, end);
}

Text orderOf(const Text& datePattern) {
    const std::size_t first = datePattern.find_first_of(u"dMy");
    const char16_t field = first == Text::npos ? u'd' : datePattern[first];
    return field == u'M' ? u"0" : field == u'y' ? u"2" : u"1";
}

Text flag(bool value) {
    return value ? u"1" : u"0";
}

void addNumbers(LocaleData& data, const NumberFormat& number, const NumberFormat& money) {
    constexpr int negativeForms[] = {1, 5, 9, 8};
    const Text decimal = number.symbol(UNUM_DECIMAL_SEPARATOR_SYMBOL);
    const int form = money.currencyForm();
    const Text decimals = numeral(money.attribute(UNUM_FRACTION_DIGITS));
    data.strings.push_back({LOCALE_SLIST, {decimal == u"," ? u";" : u","}});
    data.strings.push_back(
        {LOCALE_SDECIMAL,
         {decimal, number.symbol(UNUM_GROUPING_SEPARATOR_SYMBOL), number.grouping(), u"2", u"1"}});
    data.strings.push_back(
        {LOCALE_SCURRENCY,
         {money.symbol(UNUM_CURRENCY_SYMBOL), money.symbol(UNUM_INTL_CURRENCY_SYMBOL),
          money.symbol(UNUM_MONETARY_SEPARATOR_SYMBOL), money.symbol(UNUM_MONETARY_GROUPING_SEPARATOR_SYMBOL),
          money.grouping(), decimals, decimals, numeral(form), numeral(negativeForms[form])}});
    // The platform writes every minus as a hyphen.
    data.strings.push_back({LOCALE_SPOSITIVESIGN, {u"", u"-"}});
    data.strings.push_back({LOCALE_INEGNUMBER, {u"1"}});
}

void addDates(LocaleData& data, const DateFormat& shortForm, const DateFormat& longForm) {
    const Text date = platformPattern(shortForm.pattern());
    const Text order = orderOf(date);
    data.strings.push_back(
        {LOCALE_SDATE,
         {separatorOf(date, u"/"), u":", date, platformPattern(longForm.pattern()), order, order}});
    data.strings.push_back({LOCALE_ICENTURY, {flag(date.find(u"yyyy") != Text::npos)}});
    data.strings.push_back(
        {LOCALE_S1159, {shortForm.symbol(UDAT_AM_PMS, 0), shortForm.symbol(UDAT_AM_PMS, 1)}});
    data.strings.push_back({LOCALE_SDAYNAME1, shortForm.days(UDAT_WEEKDAYS)});
    data.strings.push_back({LOCALE_SABBREVDAYNAME1, shortForm.days(UDAT_SHORT_WEEKDAYS)});
    data.strings.push_back({LOCALE_SMONTHNAME1, shortForm.months(UDAT_MONTHS)});
    data.strings.push_back({LOCALE_SABBREVMONTHNAME1, shortForm.months(UDAT_SHORT_MONTHS)});
}

void addTimes(LocaleData& data, const DateFormat& withSeconds, const DateFormat& withoutSeconds) {
    const Text time = platformPattern(withSeconds.pattern());
    data.strings.push_back({LOCALE_STIME, {separatorOf(time, u":")}});
    data.strings.push_back({LOCALE_ITIME, {flag(time.find(u'H') != Text::npos)}});
    data.strings.push_back({LOCALE_STIMEFORMAT, {time}});
    data.strings.push_back({LOCALE_SSHORTTIME, {platformPattern(withoutSeconds.pattern())}});
}

void addWeek(LocaleData& data, const std::string& locale) {
    UErrorCode status = U_ZERO_ERROR;
    UCalendar* calendar = ucal_open(nullptr, 0, locale.c_str(), UCAL_GREGORIAN, &status);
    if (U_FAILURE(status)) return;
    const int firstDay = ucal_getAttribute(calendar, UCAL_FIRST_DAY_OF_WEEK);
    const int daysOfFirstWeek = ucal_getAttribute(calendar, UCAL_MINIMAL_DAYS_IN_FIRST_WEEK);
    ucal_close(calendar);
    const Text rule = daysOfFirstWeek >= 7 ? u"1" : daysOfFirstWeek >= 4 ? u"2" : u"0";
    data.strings.push_back({LOCALE_IFIRSTDAYOFWEEK, {numeral((firstDay + 5) % 7), rule}});
}

/// Reads a locale by its ICU name; false if one of its parts is missing.
bool readLocale(const std::string& icuName, LocaleData& data) {
    const NumberFormat number(UNUM_DECIMAL, icuName);
    const NumberFormat money(UNUM_CURRENCY, icuName);
    const DateFormat shortDate(UDAT_NONE, UDAT_SHORT, icuName);
    const DateFormat longDate(UDAT_NONE, UDAT_FULL, icuName);
    const DateFormat time(UDAT_MEDIUM, UDAT_NONE, icuName);
    const DateFormat shortTime(UDAT_SHORT, UDAT_NONE, icuName);
    if (!number.opened() || !money.opened() || !shortDate.opened() || !longDate.opened() || !time.opened() ||
        !shortTime.opened())
        return false;
    char language[5];
    std::snprintf(language, sizeof language, "%04x", data.id & 0xFFFFu);
    data.strings.push_back({LOCALE_ILANGUAGE, {wideFromUtf8(language)}});
    // Times before dates: the short date's own list knows a separator of times too.
    addTimes(data, time, shortTime);
    addNumbers(data, number, money);
    addDates(data, shortDate, longDate);
    addWeek(data, icuName);
    data.strings.push_back({LOCALE_SNAME, {wideFromUtf8(data.name)}});
    return true;
}

/// The installed ICU locale of a name; empty when there is none for its language and country.
std::string installedName(const std::string& wanted) {
    for (int i = uloc_countAvailable() - 1; i >= 0; --i) {
        if (wanted == uloc_getAvailable(i)) return wanted;
    }
    return {};
}

const LocaleData* keep(const std::string& icuName) {
    static std::mutex guard;
    static std::list<LocaleData> known;
    const std::lock_guard lock(guard);
    std::string name = icuName;
    std::replace(name.begin(), name.end(), '_', '-');
    for (const auto& data : known) {
        if (data.name == name) return &data;
    }
    const std::string installed = installedName(icuName);
    LocaleData data;
    data.id = installed.empty() ? 0 : uloc_getLCID(installed.c_str());
    if (data.id == 0) data.id = unknownLocale;
    data.name = name;
    if (installed.empty() || !readLocale(installed, data)) return nullptr;
    return &known.emplace_back(std::move(data));
}

} // namespace

const LocaleData* systemLocale(std::string_view name) {
    std::string icuName(name);
    std::replace(icuName.begin(), icuName.end(), '-', '_');
    return keep(icuName);
}

const LocaleData* systemLocale(LCID id) {
    char name[ULOC_FULLNAME_CAPACITY];
    UErrorCode status = U_ZERO_ERROR;
    const int length = uloc_getLocaleForLCID(id, name, sizeof name, &status);
    if (U_FAILURE(status) || length <= 0) return nullptr;
    const LocaleData* data = keep(name);
    return data && data->id == id ? data : nullptr;
}

} // namespace platform::driver
