#include "automation/Locale.h"

#include "platform/locale.h"

#include <cstdint>
#include <cstdlib>

namespace automation {

namespace {

using platform::LCID;
using platform::LCTYPE;

constexpr LCID primaryLanguageMask = 0x3FF;

/// The words of one language, by its primary language identifier.
struct LanguageWords {
    LCID language;
    std::u16string_view yes, no, trueText, falseText, on, off;
};

constexpr LanguageWords languageWords[] = {
    {0x09, u"Yes", u"No", u"True", u"False", u"On", u"Off"}, // English, and whatever is not listed
    {0x0A, u"Sí", u"No", u"Verdadero", u"Falso", u"Activado", u"Desactivado"},
    {0x1D, u"Ja", u"Nej", u"Sant", u"Falskt", u"På", u"Av"},
    {0x07, u"Ja", u"Nein", u"Wahr", u"Falsch", u"Ein", u"Aus"},
    {0x0C, u"Oui", u"Non", u"Vrai", u"Faux", u"Actif", u"Inactif"},
    {0x10, u"Sì", u"No", u"Vero", u"Falso", u"Attivato", u"Disattivato"},
    {0x16, u"Sim", u"Não", u"Verdadeiro", u"Falso", u"Ativado", u"Desativado"},
};

const LanguageWords& wordsOf(LCID id) {
    for (const LanguageWords& words : languageWords)
        if (words.language == (id & primaryLanguageMask)) return words;
    return languageWords[0];
}

std::u16string text(LCID id, LCTYPE type) {
    constexpr int longestText = 256;
    char16_t buffer[longestText];
    const int length = platform::GetLocaleInfoW(id, type, buffer, longestText);
    return length > 1 ? std::u16string(buffer, static_cast<std::size_t>(length - 1)) : std::u16string();
}

std::u16string textOr(LCID id, LCTYPE type, const char16_t* fallback) {
    std::u16string found = text(id, type);
    return found.empty() ? std::u16string(fallback) : found;
}

int number(LCID id, LCTYPE type, int fallback, int highest) {
    const std::u16string digits = text(id, type);
    if (digits.empty() || digits[0] < u'0' || digits[0] > u'9') return fallback;
    int value = 0;
    for (const char16_t digit : digits) {
        if (digit < u'0' || digit > u'9') break;
        value = value * 10 + (digit - u'0');
        if (value > highest) return fallback;
    }
    return value;
}

/// Reads `count` names that follow one another from `first`.
template <std::size_t Count>
void names(LCID id, LCTYPE first, std::array<std::u16string, Count>& into) {
    for (std::size_t i = 0; i < Count; ++i)
        into[i] = text(id, first + static_cast<LCTYPE>(i));
}

/// The system counts days from Monday, the language from Sunday.
void weekdayNames(LCID id, LCTYPE monday, std::array<std::u16string, 7>& into) {
    for (std::size_t i = 0; i < into.size(); ++i)
        into[(i + 1) % into.size()] = text(id, monday + static_cast<LCTYPE>(i));
}

} // namespace

Locale::Locale(LCID locale) : id(locale) {
    constexpr int highestForm = 15;
    constexpr int highestDecimals = 9;
    decimal = textOr(id, platform::LOCALE_SDECIMAL, u".");
    thousands = text(id, platform::LOCALE_STHOUSAND);
    list = textOr(id, platform::LOCALE_SLIST, u",");
    groupSize = number(id, platform::LOCALE_SGROUPING, 3, 9);
    decimals = number(id, platform::LOCALE_IDIGITS, 2, highestDecimals);
    leadingZero = number(id, platform::LOCALE_ILZERO, 1, 1) != 0;
    negativeNumberForm = number(id, platform::LOCALE_INEGNUMBER, 1, 4);

    currencySymbol = text(id, platform::LOCALE_SCURRENCY);
    currencyDecimal = textOr(id, platform::LOCALE_SMONDECIMALSEP, u".");
    currencyThousands = text(id, platform::LOCALE_SMONTHOUSANDSEP);
    currencyDecimals = number(id, platform::LOCALE_ICURRDIGITS, 2, highestDecimals);
    positiveCurrencyForm = number(id, platform::LOCALE_ICURRENCY, 0, 3);
    negativeCurrencyForm = number(id, platform::LOCALE_INEGCURR, 1, highestForm);

    dateSeparator = textOr(id, platform::LOCALE_SDATE, u"/");
    timeSeparator = textOr(id, platform::LOCALE_STIME, u":");
    shortDate = textOr(id, platform::LOCALE_SSHORTDATE, u"dd/MM/yyyy");
    longDate = textOr(id, platform::LOCALE_SLONGDATE, u"dddd, d MMMM yyyy");
    timeFormat = textOr(id, platform::LOCALE_STIMEFORMAT, u"H:mm:ss");
    dateOrder = static_cast<DateOrder>(number(id, platform::LOCALE_IDATE, 0, 2));
    hours24 = number(id, platform::LOCALE_ITIME, 1, 1) != 0;
    morning = text(id, platform::LOCALE_S1159);
    afternoon = text(id, platform::LOCALE_S2359);
    firstDayOfWeek = (number(id, platform::LOCALE_IFIRSTDAYOFWEEK, 0, 6) + 1) % 7 + 1;
    firstWeekOfYear = number(id, platform::LOCALE_IFIRSTWEEKOFYEAR, 0, 2);
    // The system orders the rules otherwise than the language: 0 first of January, 1 full week, 2 four days.
    firstWeekOfYear = firstWeekOfYear == 0 ? 1 : firstWeekOfYear == 1 ? 3 : 2;

    weekdayNames(id, platform::LOCALE_SDAYNAME1, dayNames);
    weekdayNames(id, platform::LOCALE_SABBREVDAYNAME1, shortDayNames);
    names(id, platform::LOCALE_SMONTHNAME1, monthNames);
    names(id, platform::LOCALE_SABBREVMONTHNAME1, shortMonthNames);

    const LanguageWords& words = wordsOf(id);
    yesText = words.yes;
    noText = words.no;
    trueText = words.trueText;
    falseText = words.falseText;
    onText = words.on;
    offText = words.off;
}

const Locale& Locale::user() {
    static Locale current(platform::GetUserDefaultLCID());
    const LCID now = platform::GetUserDefaultLCID();
    if (now != current.id) current = Locale(now);
    return current;
}

} // namespace automation
