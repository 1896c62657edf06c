#include "automation/Format.h"

#include "automation/Conversions.h"
#include "automation/DateFunctions.h"
#include "automation/DateText.h"
#include "automation/Digits.h"
#include "automation/Error.h"
#include "automation/FormatPattern.h"
#include "automation/LateBound.h"
#include "automation/Locale.h"
#include "automation/NumberPattern.h"
#include "automation/NumberText.h"
#include "automation/TextBuilder.h"
#include "automation/Variant.h"

#include "platform/clock.h"

#include <optional>

namespace automation {

namespace {

enum class Named {
    GeneralNumber,
    Currency,
    Fixed,
    Standard,
    Percent,
    Scientific,
    YesNo,
    TrueFalse,
    OnOff,
    GeneralDate,
    LongDate,
    MediumDate,
    ShortDate,
    LongTime,
    MediumTime,
    ShortTime
};

struct NamedFormat {
    std::u16string_view name; ///< In lower case
    Named format;
    std::u16string_view pattern; ///< For the formats that are no more than a pattern
};

constexpr NamedFormat namedFormats[] = {
    {u"general number", Named::GeneralNumber, {}},
    {u"currency", Named::Currency, {}},
    {u"fixed", Named::Fixed, u"0.00"},
    {u"standard", Named::Standard, u"#,##0.00"},
    {u"percent", Named::Percent, u"0.00%"},
    {u"scientific", Named::Scientific, u"0.00E+00"},
    {u"yes/no", Named::YesNo, {}},
    {u"true/false", Named::TrueFalse, {}},
    {u"on/off", Named::OnOff, {}},
    {u"general date", Named::GeneralDate, u"c"},
    {u"long date", Named::LongDate, u"dddddd"},
    {u"medium date", Named::MediumDate, u"dd\\-mmm\\-yy"},
    {u"short date", Named::ShortDate, u"ddddd"},
    {u"long time", Named::LongTime, u"ttttt"},
    {u"medium time", Named::MediumTime, u"hh:nn ampm"},
    {u"short time", Named::ShortTime, u"hh:nn"},
};

/// In locales that write the year first.
constexpr std::u16string_view mediumDateYearFirst = u"yy\\-mmm\\-dd";

const NamedFormat* namedFormat(std::u16string_view pattern) {
    const auto same = [](char16_t unit, char16_t lower) {
        return unit == lower || (unit >= u'A' && unit <= u'Z' && (unit | 0x20) == lower);
    };
    for (const NamedFormat& known : namedFormats)
        if (std::equal(pattern.begin(), pattern.end(), known.name.begin(), known.name.end(), same))
            return &known;
    return nullptr;
}

/// The digits of a value that is no text.
Digits digitsOf(const Variant& value) {
    switch (value.type()) {
    case VT_I2:
        return Digits::ofScaled(value.asInteger(), 0);
    case VT_I4:
        return Digits::ofScaled(value.asLong(), 0);
    case VT_UI1:
        return Digits::ofScaled(value.asByte(), 0);
    case VT_BOOL:
        return Digits::ofScaled(value.asBoolean() ? -1 : 0, 0);
    case VT_CY:
        return Digits::ofScaled(value.asCurrency().scaled(), 4);
    case VT_DECIMAL:
        return Digits::of(value.asDecimal());
    default:
        return Digits::of(CDbl(value));
    }
}

/// The digits of the value; nothing for a text that is no number.
std::optional<Digits> numberIn(const Variant& value, const Locale& locale) {
    if (!value.isString()) return digitsOf(value);
    NumberText number;
    double real = 0;
    if (!number.parse(value.asString(), locale) || number.toDouble(real) != Reading::Ok) return std::nullopt;
    return Digits::of(real);
}

int currentYear() {
    platform::SYSTEMTIME now;
    platform::GetLocalTime(&now);
    return now.wYear;
}

/// The date that the value is or counts; nothing where it is none.
std::optional<Date> dateIn(const Variant& value, const Locale& locale) {
    if (value.type() == VT_DATE)
        return value.asDate().isValid() ? std::optional(value.asDate()) : std::nullopt;
    double days = 0;
    if (value.isString()) {
        Date date;
        if (readDate(value.asString(), locale, currentYear(), date)) return date;
        NumberText number;
        if (!number.parse(value.asString(), locale) || number.toDouble(days) != Reading::Ok)
            return std::nullopt;
    } else {
        days = CDbl(value);
    }
    const Date date(days);
    return date.isValid() ? std::optional(date) : std::nullopt;
}

/// The section of a number pattern for a number of this sign, and whether it shows the sign by itself.
void writeNumberSections(TextBuilder& out, std::u16string_view pattern, const Digits& digits,
                         const Locale& locale) {
    const PatternSections sections(pattern);
    if (digits.isFinite() && digits.isZero() && sections.has(2))
        return writeByPattern(out, sections.section[2], digits, false, locale);
    if (digits.negative && sections.has(1)) {
        Digits magnitude = digits;
        magnitude.negative = !digits.isFinite();
        return writeByPattern(out, sections.section[1], magnitude, false, locale);
    }
    writeByPattern(out, sections.section[0], digits, digits.negative, locale);
}

NumberChoices choicesOf(int decimals, int ownDecimals, int leadingDigit, int parentheses, int group,
                        const Locale& locale, bool ownParentheses) {
    constexpr int mostDecimals = 255;
    const auto choose = [](int choice, bool own) {
        if (choice != Tristate::Default && choice != Tristate::Yes && choice != Tristate::No)
            throwError(errors::InvalidCall);
        return choice == Tristate::Default ? own : choice == Tristate::Yes;
    };
    if (decimals < -1 || decimals > mostDecimals) throwError(errors::InvalidCall);
    NumberChoices choices;
    choices.decimals = decimals == -1 ? ownDecimals : decimals;
    choices.leadingZero = choose(leadingDigit, locale.leadingZero);
    choices.parentheses = choose(parentheses, ownParentheses);
    choices.grouped = choose(group, locale.groupSize > 0);
    return choices;
}

/// Whether the locale's own form of negative money has parentheses.
bool currencyInParentheses(const Locale& locale) {
    const int form = locale.negativeCurrencyForm;
    return form == 0 || form == 4 || form >= 14;
}

void writeNamedNumber(TextBuilder& out, const NamedFormat& format, const Digits& digits,
                      const Locale& locale) {
    const bool nonzero = !digits.isZero() || !digits.isFinite();
    switch (format.format) {
    case Named::Currency:
        writeCurrency(out, digits,
                      choicesOf(-1, locale.currencyDecimals, Tristate::Default, Tristate::Default,
                                Tristate::Default, locale, currencyInParentheses(locale)),
                      locale);
        break;
    case Named::YesNo:
        out.add(nonzero ? locale.yesText : locale.noText);
        break;
    case Named::TrueFalse:
        out.add(nonzero ? locale.trueText : locale.falseText);
        break;
    case Named::OnOff:
        out.add(nonzero ? locale.onText : locale.offText);
        break;
    default:
        writeNumberSections(out, format.pattern, digits, locale);
    }
}

String formatDate(const Variant& value, std::u16string_view pattern, int firstDay, int firstWeek,
                  const Locale& locale) {
    if (value.isString() && value.asString().empty()) return {};
    const std::optional<Date> date = dateIn(value, locale);
    if (!date) return CStr(value);
    TextBuilder out;
    writeDatePattern(out, pattern, *date, firstDay, firstWeek, locale);
    return out.text();
}

String generalNumber(const Variant& value) {
    const bool asNumber = value.isString() || value.type() == VT_BOOL || value.type() == VT_DATE;
    return asNumber ? textOf(CDbl(value)) : CStr(value);
}

String formatNamed(const Variant& value, const NamedFormat& format, int firstDay, int firstWeek,
                   const Locale& locale) {
    if (format.format == Named::MediumDate && locale.dateOrder == DateOrder::YearMonthDay)
        return formatDate(value, mediumDateYearFirst, firstDay, firstWeek, locale);
    if (format.format >= Named::GeneralDate)
        return formatDate(value, format.pattern, firstDay, firstWeek, locale);
    const std::optional<Digits> digits = numberIn(value, locale);
    if (!digits) return CStr(value);
    if (format.format == Named::GeneralNumber) return generalNumber(value);
    TextBuilder out;
    writeNamedNumber(out, format, *digits, locale);
    return out.text();
}

String formatNumber(const Variant& value, std::u16string_view pattern, const Locale& locale) {
    const std::optional<Digits> digits = numberIn(value, locale);
    if (!digits) return CStr(value);
    TextBuilder out;
    writeNumberSections(out, pattern, *digits, locale);
    return out.text();
}

String formatText(std::u16string_view text, std::u16string_view pattern) {
    const PatternSections sections(pattern);
    TextBuilder out;
    writeTextPattern(out, sections.section[text.empty() && sections.count > 1 ? 1 : 0], text);
    return out.text();
}

/// Null and Empty have a text only where a section of the pattern gives it.
String formatNothing(PatternKind kind, std::u16string_view pattern, const Locale& locale) {
    if (kind == PatternKind::Text) return formatText({}, pattern);
    constexpr std::size_t nullSection = 3;
    const PatternSections sections(pattern);
    if (kind != PatternKind::Number || !sections.has(nullSection)) return {};
    TextBuilder out;
    writeByPattern(out, sections.section[nullSection], Digits::ofScaled(0, 0), false, locale);
    return out.text();
}

void checkCalendar(int firstDay, int firstWeek) {
    if (firstDay < FirstDay::SystemDay || firstDay > FirstDay::Saturday ||
        firstWeek < FirstWeek::SystemWeek || firstWeek > FirstWeek::Full)
        throwError(errors::InvalidCall);
}

template <class Write>
String formatWith(const Variant& value, Write write) {
    const std::optional<Digits> digits =
        numberIn(value.isByRef() || value.isObject() ? automation::value(value) : value, Locale::user());
    if (!digits) throwTypeMismatch();
    TextBuilder out;
    write(out, *digits);
    return out.text();
}

} // namespace

String Format(const Variant& source, std::u16string_view pattern, int firstDay, int firstWeek) {
    checkCalendar(firstDay, firstWeek);
    if (source.isByRef() || source.isObject()) return Format(value(source), pattern, firstDay, firstWeek);
    if (source.isArray() || source.isError() || source.type() == VT_RECORD) throwTypeMismatch();
    const Locale& locale = Locale::user();
    const bool nothing = source.isNull() || source.isEmpty();
    if (pattern.empty()) return source.isNull() ? String() : CStr(source);
    if (const NamedFormat* format = namedFormat(pattern))
        return nothing ? String() : formatNamed(source, *format, firstDay, firstWeek, locale);
    const PatternKind kind = kindOfPattern(pattern);
    if (nothing) return formatNothing(kind, pattern, locale);
    switch (kind) {
    case PatternKind::Date:
        return formatDate(source, pattern, firstDay, firstWeek, locale);
    case PatternKind::Text:
        return formatText(CStr(source), pattern);
    default:
        return formatNumber(source, pattern, locale);
    }
}

String FormatNumber(const Variant& value, int decimals, int leadingDigit, int parentheses, int group) {
    const Locale& locale = Locale::user();
    const NumberChoices choices = choicesOf(decimals, locale.decimals, leadingDigit, parentheses, group,
                                            locale, locale.negativeNumberForm == 0);
    return formatWith(
        value, [&](TextBuilder& out, const Digits& digits) { writeNumber(out, digits, choices, locale); });
}

String FormatCurrency(const Variant& value, int decimals, int leadingDigit, int parentheses, int group) {
    const Locale& locale = Locale::user();
    const NumberChoices choices = choicesOf(decimals, locale.currencyDecimals, leadingDigit, parentheses,
                                            group, locale, currencyInParentheses(locale));
    return formatWith(
        value, [&](TextBuilder& out, const Digits& digits) { writeCurrency(out, digits, choices, locale); });
}

String FormatPercent(const Variant& value, int decimals, int leadingDigit, int parentheses, int group) {
    const Locale& locale = Locale::user();
    const NumberChoices choices = choicesOf(decimals, locale.decimals, leadingDigit, parentheses, group,
                                            locale, locale.negativeNumberForm == 0);
    return formatWith(
        value, [&](TextBuilder& out, const Digits& digits) { writePercent(out, digits, choices, locale); });
}

String FormatDateTime(const Variant& value, int named) {
    constexpr std::u16string_view patterns[] = {u"c", u"dddddd", u"ddddd", u"ttttt", u"hh:nn"};
    if (named < NamedDateFormat::GeneralDate || named > NamedDateFormat::ShortTime)
        throwError(errors::InvalidCall);
    TextBuilder out;
    writeDatePattern(out, patterns[named], CDate(value), FirstDay::Sunday, FirstWeek::WithJanuary1,
                     Locale::user());
    return out.text();
}

} // namespace automation
