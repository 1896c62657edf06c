#include "automation/Conversions.h"

#include "automation/DateText.h"
#include "automation/Digits.h"
#include "automation/Error.h"
#include "automation/LateBound.h"
#include "automation/Locale.h"
#include "automation/NumberText.h"
#include "automation/Object.h"
#include "automation/TextBuilder.h"
#include "automation/Variant.h"

#include "platform/clock.h"
#include "platform/locale.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace automation {

namespace {

constexpr double dateLimit = Date::lastDay + 1.0;

void require(Reading reading) {
    if (reading == Reading::Mismatch) throwTypeMismatch();
    if (reading == Reading::Overflow) throwError(errors::Overflow);
}

/// Whether the value must be resolved before its tag says what it is.
bool isIndirect(const Variant& value) {
    return value.isByRef() || value.isObject();
}

/// What no conversion takes: Null, errors left out of account, arrays and records.
[[noreturn]] void refuse(const Variant& value) {
    if (value.isNull()) throwError(errors::InvalidUseOfNull);
    throwTypeMismatch();
}

NumberText parsedNumber(std::u16string_view text) {
    NumberText number;
    if (!number.parse(text, Locale::user())) throwTypeMismatch();
    return number;
}

/// Rounds half to even; Error 6 outside the bounds.
std::int64_t roundedToInteger(double value, double lowest, double highest) {
    const double rounded = std::nearbyint(value);
    if (!(rounded >= lowest && rounded <= highest)) throwError(errors::Overflow);
    return static_cast<std::int64_t>(rounded);
}

std::int64_t checked(std::int64_t value, std::int64_t lowest, std::int64_t highest) {
    if (value < lowest || value > highest) throwError(errors::Overflow);
    return value;
}

template <class Integer>
Integer toInteger(const Variant& source) {
    constexpr std::int64_t lowest = std::numeric_limits<Integer>::min();
    constexpr std::int64_t highest = std::numeric_limits<Integer>::max();
    constexpr int bits =
        std::numeric_limits<Integer>::digits + (std::numeric_limits<Integer>::is_signed ? 1 : 0);
    std::int64_t result = 0;
    switch (source.type()) {
    case VT_EMPTY:
        break;
    case VT_I2:
        result = source.asInteger();
        break;
    case VT_I4:
        result = source.asLong();
        break;
    case VT_UI1:
        result = source.asByte();
        break;
    case VT_BOOL:
        // A Byte takes the low eight bits of True.
        result = source.asBoolean() ? (bits == 8 ? 255 : -1) : 0;
        break;
    case VT_R4:
        result = roundedToInteger(static_cast<double>(source.asSingle()), lowest, highest);
        break;
    case VT_R8:
        result = roundedToInteger(source.asDouble(), lowest, highest);
        break;
    case VT_DATE:
        result = roundedToInteger(source.asDate().value(), lowest, highest);
        break;
    case VT_CY:
        result = Decimal::fromScaled(source.asCurrency().scaled(), 4).toInt64();
        break;
    case VT_DECIMAL:
        result = source.asDecimal().toInt64();
        break;
    case VT_ERROR:
        throwTypeMismatch();
    case VT_BSTR:
        require(parsedNumber(source.asString()).toInteger(lowest, highest, bits, result));
        break;
    default:
        if (!isIndirect(source)) refuse(source);
        return toInteger<Integer>(value(source));
    }
    return static_cast<Integer>(checked(result, lowest, highest));
}

int currentYear() {
    platform::SYSTEMTIME now;
    platform::GetLocalTime(&now);
    return now.wYear;
}

bool readDateText(std::u16string_view text, Date& date) {
    return readDate(text, Locale::user(), currentYear(), date);
}

Date dateOf(double days) {
    if (!(days > Date::firstDay - 1.0 && days < dateLimit)) throwError(errors::Overflow);
    return Date(days);
}

String decimalText(const Digits& digits, int precision) {
    TextBuilder out;
    digits.write(out, Locale::user().decimal[0], precision);
    return out.text();
}

String errorText(HResult code) {
    TextBuilder out;
    out.add(u"Error ");
    char buffer[16];
    const char* end = std::to_chars(buffer, buffer + sizeof buffer, Error::numberOf(code)).ptr;
    out.addAscii({buffer, static_cast<std::size_t>(end - buffer)});
    return out.text();
}

/// An ASCII word in any case.
bool isWord(std::u16string_view text, std::u16string_view word) {
    return text.size() == word.size() && platform::lowerCase(text) == platform::lowerCase(word);
}

bool booleanFromText(std::u16string_view text) {
    const Locale& locale = Locale::user();
    if (!text.empty() && (text[0] < u'0' || text[0] > u'9')) {
        if (isWord(text, u"True") || isWord(text, locale.trueText) || isWord(text, u"#TRUE#")) return true;
        if (isWord(text, u"False") || isWord(text, locale.falseText) || isWord(text, u"#FALSE#"))
            return false;
    }
    return !parsedNumber(text).isZero();
}

} // namespace

double doubleFromText(std::u16string_view text) {
    double result = 0;
    const Locale& locale = Locale::user();
    if (NumberText::readPlain(text, locale, result)) return result;
    NumberText number;
    if (!number.parse(text, locale)) throwTypeMismatch();
    require(number.toDouble(result));
    return result;
}

double CDbl(const Variant& source) {
    switch (source.type()) {
    case VT_EMPTY:
        return 0;
    case VT_I2:
        return source.asInteger();
    case VT_I4:
        return source.asLong();
    case VT_UI1:
        return source.asByte();
    case VT_BOOL:
        return source.asBoolean() ? -1 : 0;
    case VT_R4:
        return static_cast<double>(source.asSingle());
    case VT_R8:
        return source.asDouble();
    case VT_DATE:
        return source.asDate().value();
    case VT_CY:
        return source.asCurrency().toDouble();
    case VT_DECIMAL:
        return source.asDecimal().toDouble();
    case VT_BSTR:
        return doubleFromText(source.asString());
    default:
        if (!isIndirect(source)) refuse(source);
        return CDbl(value(source));
    }
}

float CSng(const Variant& source) {
    if (source.type() == VT_R4) return source.asSingle();
    const double exact = CDbl(source);
    const float result = static_cast<float>(exact);
    if (std::isinf(result) && !std::isinf(exact)) throwError(errors::Overflow);
    return result;
}

std::int32_t CLng(const Variant& source) {
    return source.type() == VT_I4 ? source.asLong() : toInteger<std::int32_t>(source);
}

std::int16_t CInt(const Variant& source) {
    return toInteger<std::int16_t>(source);
}

std::uint8_t CByte(const Variant& source) {
    return toInteger<std::uint8_t>(source);
}

Currency CCur(const Variant& source) {
    switch (source.type()) {
    case VT_CY:
        return source.asCurrency();
    case VT_EMPTY:
        return {};
    case VT_I2:
        return Currency(source.asInteger());
    case VT_I4:
        return Currency(source.asLong());
    case VT_UI1:
        return Currency(source.asByte());
    case VT_BOOL:
        return Currency(source.asBoolean() ? -1 : 0);
    case VT_R4:
        return Currency::fromDouble(static_cast<double>(source.asSingle()));
    case VT_R8:
        return Currency::fromDouble(source.asDouble());
    case VT_DATE:
        return Currency::fromDouble(source.asDate().value());
    case VT_DECIMAL:
        return Currency::fromScaled(source.asDecimal().toScaled(4));
    case VT_BSTR: {
        std::int64_t scaled = 0;
        require(parsedNumber(source.asString()).toCurrency(scaled));
        return Currency::fromScaled(scaled);
    }
    default:
        if (!isIndirect(source)) refuse(source);
        return CCur(value(source));
    }
}

Decimal CDec(const Variant& source) {
    switch (source.type()) {
    case VT_DECIMAL:
        return source.asDecimal();
    case VT_EMPTY:
        return {};
    case VT_I2:
        return Decimal::fromInt64(source.asInteger());
    case VT_I4:
        return Decimal::fromInt64(source.asLong());
    case VT_UI1:
        return Decimal::fromInt64(source.asByte());
    case VT_BOOL:
        return Decimal::fromInt64(source.asBoolean() ? -1 : 0);
    case VT_R4:
        return Decimal::fromFloat(source.asSingle());
    case VT_R8:
        return Decimal::fromDouble(source.asDouble());
    case VT_DATE:
        return Decimal::fromDouble(source.asDate().value());
    case VT_CY:
        return Decimal::fromScaled(source.asCurrency().scaled(), 4).normalized();
    case VT_BSTR: {
        Decimal result;
        require(parsedNumber(source.asString()).toDecimal(result));
        return result;
    }
    default:
        if (!isIndirect(source)) refuse(source);
        return CDec(value(source));
    }
}

bool CBool(const Variant& source) {
    switch (source.type()) {
    case VT_BOOL:
        return source.asBoolean();
    case VT_BSTR:
        return booleanFromText(source.asString());
    case VT_DECIMAL:
        return !source.asDecimal().isZero();
    case VT_CY:
        return source.asCurrency().scaled() != 0;
    default:
        if (isIndirect(source)) return CBool(value(source));
        return CDbl(source) != 0;
    }
}

Date dateFromText(std::u16string_view text) {
    Date result;
    if (!readDateText(text, result)) throwTypeMismatch();
    return result;
}

Date CDate(const Variant& source) {
    if (source.type() == VT_DATE) return source.asDate();
    if (source.isString()) return dateFromText(source.asString());
    if (isIndirect(source)) return CDate(value(source));
    return dateOf(CDbl(source));
}

String textOf(double source) {
    char16_t plain[Digits::longestPlain];
    const int length = Digits::writePlain(source, Locale::user().decimal[0], plain);
    if (length > 0) return String(std::u16string_view(plain, static_cast<std::size_t>(length)));
    return decimalText(Digits::of(source), Digits::doublePrecision);
}

String textOf(float source) {
    return decimalText(Digits::of(source), Digits::singlePrecision);
}

String textOf(Currency source) {
    return decimalText(Digits::ofScaled(source.scaled(), 4), Digits::capacity);
}

String textOf(const Decimal& source) {
    return decimalText(Digits::of(source), Digits::capacity);
}

String textOf(std::int32_t source) {
    char buffer[12];
    char16_t wide[12];
    const char* end = std::to_chars(buffer, buffer + sizeof buffer, source).ptr;
    std::copy(static_cast<const char*>(buffer), end, wide);
    return String(std::u16string_view(wide, static_cast<std::size_t>(end - buffer)));
}

String textOf(Date source) {
    TextBuilder out;
    writeDate(out, source, Locale::user());
    return out.text();
}

String localText(bool source) {
    const Locale& locale = Locale::user();
    return String(source ? locale.trueText : locale.falseText);
}

String CStr(const Variant& source) {
    switch (source.type()) {
    case VT_BSTR:
        return source.asString();
    case VT_EMPTY:
        return {};
    case VT_I2:
        return textOf(static_cast<std::int32_t>(source.asInteger()));
    case VT_I4:
        return textOf(source.asLong());
    case VT_UI1:
        return textOf(static_cast<std::int32_t>(source.asByte()));
    case VT_BOOL:
        return textOf(source.asBoolean());
    case VT_R4:
        return textOf(source.asSingle());
    case VT_R8:
        return textOf(source.asDouble());
    case VT_CY:
        return textOf(source.asCurrency());
    case VT_DECIMAL:
        return textOf(source.asDecimal());
    case VT_DATE:
        return textOf(source.asDate());
    case VT_ERROR:
        return errorText(source.asError());
    default:
        if (!isIndirect(source)) refuse(source);
        return CStr(value(source));
    }
}

String plainText(const Variant& source) {
    if (source.type() == VT_BOOL) return source.asBoolean() ? u"True" : u"False";
    return isIndirect(source) ? plainText(value(source)) : CStr(source);
}

bool IsNumeric(const Variant& source) {
    switch (source.type()) {
    case VT_EMPTY:
    case VT_I2:
    case VT_I4:
    case VT_UI1:
    case VT_BOOL:
    case VT_R4:
    case VT_R8:
    case VT_CY:
    case VT_DECIMAL:
        return true;
    case VT_BSTR: {
        NumberText number;
        double ignored = 0;
        return number.parse(source.asString(), Locale::user()) && number.toDouble(ignored) == Reading::Ok;
    }
    default:
        break;
    }
    if (!isIndirect(source)) return false;
    try {
        return IsNumeric(value(source));
    } catch (const Error&) {
        return false;
    }
}

bool IsDate(const Variant& source) {
    if (source.type() == VT_DATE) return true;
    if (source.isString()) {
        Date ignored;
        return readDateText(source.asString(), ignored);
    }
    if (!isIndirect(source)) return false;
    try {
        return IsDate(value(source));
    } catch (const Error&) {
        return false;
    }
}

bool IsNull(const Variant& source) {
    return source.dereferenced().isNull();
}

bool IsEmpty(const Variant& source) {
    return source.dereferenced().isEmpty();
}

bool IsArray(const Variant& source) {
    return source.dereferenced().isArray();
}

bool IsObject(const Variant& source) {
    return source.dereferenced().isObject();
}

bool IsError(const Variant& source) {
    return source.dereferenced().isError();
}

bool IsMissing(const Variant& source) {
    return source.dereferenced().isMissing();
}

std::int16_t VarType(const Variant& source) {
    const Variant plain = source.dereferenced();
    // An object counts as its default member has it, where it has one.
    if (plain.isObject() && !plain.isNothing()) {
        try {
            return static_cast<std::int16_t>(value(plain).type());
        } catch (const Error&) {
            return static_cast<std::int16_t>(VT_DISPATCH);
        }
    }
    return static_cast<std::int16_t>(plain.type());
}

namespace {

struct TypeText {
    VARTYPE type;
    std::u16string_view name;
};

constexpr TypeText typeTexts[] = {
    {VT_EMPTY, u"Empty"},     {VT_NULL, u"Null"},       {VT_I2, u"Integer"},  {VT_I4, u"Long"},
    {VT_R4, u"Single"},       {VT_R8, u"Double"},       {VT_CY, u"Currency"}, {VT_DATE, u"Date"},
    {VT_BSTR, u"String"},     {VT_DISPATCH, u"Object"}, {VT_ERROR, u"Error"}, {VT_BOOL, u"Boolean"},
    {VT_VARIANT, u"Variant"}, {VT_UNKNOWN, u"Unknown"}, {VT_UI1, u"Byte"},    {VT_DECIMAL, u"Decimal"},
};

std::u16string_view nameOfType(VARTYPE type) {
    for (const TypeText& text : typeTexts)
        if (text.type == type) return text.name;
    return u"Unknown";
}

} // namespace

String TypeName(const Variant& source) {
    const Variant plain = source.dereferenced();
    if (plain.isArray()) return String(nameOfType(plain.asArray().elementType())) + u"()";
    if (plain.isNothing()) return u"Nothing";
    if (plain.isObject()) return plain.asObject()->typeName();
    return nameOfType(plain.type());
}

} // namespace automation
