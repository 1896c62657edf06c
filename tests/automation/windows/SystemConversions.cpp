#include "automation/windows/SystemConversions.h"

#include "automation/Error.h"
#include "automation/windows/Conformance.h"

#include "platform/locale.h"

#include <windows.h>

#include <oleauto.h>

#include <cstring>
#include <vector>

namespace tests::system {

namespace {

/// The text as the system takes it. Wine looks past the end of some texts: what it finds there is always
/// zeros.
std::wstring wide(std::u16string_view text) {
    constexpr std::size_t lookedPast = 16;
    std::wstring units(text.begin(), text.end());
    units.append(lookedPast, L'\0');
    return units;
}

std::string outcome(HRESULT result, const std::string& value) {
    return SUCCEEDED(result) ? value : "error " + std::to_string(automation::Error::numberOf(result));
}

/// Reads the text in `text` and gives its memory back.
std::string taken(HRESULT result, BSTR text) {
    std::u16string units;
    if (text) units.assign(text, text + SysStringLen(text));
    SysFreeString(text);
    return outcome(result, platform::utf8FromWide(units));
}

std::string numberIn(HRESULT result, const VARIANT& value) {
    return outcome(result, exactText(value.vt == VT_DATE ? value.date : value.dblVal));
}

VARIANT variantOf(VARTYPE type, double number) {
    VARIANT value;
    VariantInit(&value);
    value.vt = type;
    value.dblVal = number;
    return value;
}

std::string format(Locale locale, VARIANT& value, std::u16string_view pattern, int firstDay, int firstWeek) {
    std::wstring units = wide(pattern);
    std::vector<BYTE> tokens(4096);
    int used = 0;
    HRESULT result = VarTokenizeFormatString(units.data(), tokens.data(), static_cast<int>(tokens.size()),
                                             firstDay, firstWeek, locale, &used);
    BSTR text = nullptr;
    if (SUCCEEDED(result))
        result = VarFormatFromTokens(&value, units.data(), tokens.data(), 0, &text, locale);
    return taken(result, text);
}

} // namespace

std::string doubleFromText(Locale locale, std::u16string_view text) {
    DOUBLE value = 0;
    const HRESULT result = VarR8FromStr(wide(text).data(), locale, 0, &value);
    return outcome(result, exactText(value));
}

std::string singleFromText(Locale locale, std::u16string_view text) {
    FLOAT value = 0;
    const HRESULT result = VarR4FromStr(wide(text).data(), locale, 0, &value);
    return outcome(result, exactText(static_cast<double>(value)));
}

std::string longFromText(Locale locale, std::u16string_view text) {
    LONG value = 0;
    const HRESULT result = VarI4FromStr(wide(text).data(), locale, 0, &value);
    return outcome(result, exactText(std::int64_t(value)));
}

std::string integerFromText(Locale locale, std::u16string_view text) {
    SHORT value = 0;
    const HRESULT result = VarI2FromStr(wide(text).data(), locale, 0, &value);
    return outcome(result, exactText(std::int64_t(value)));
}

std::string byteFromText(Locale locale, std::u16string_view text) {
    BYTE value = 0;
    const HRESULT result = VarUI1FromStr(wide(text).data(), locale, 0, &value);
    return outcome(result, exactText(std::int64_t(value)));
}

std::string currencyFromText(Locale locale, std::u16string_view text) {
    CY value;
    value.int64 = 0;
    const HRESULT result = VarCyFromStr(wide(text).data(), locale, 0, &value);
    return outcome(result, exactText(std::int64_t(value.int64)));
}

std::string decimalFromText(Locale locale, std::u16string_view text) {
    DECIMAL value;
    std::memset(&value, 0, sizeof value);
    const HRESULT result = VarDecFromStr(wide(text).data(), locale, 0, &value);
    if (FAILED(result)) return outcome(result, "");
    BSTR digits = nullptr;
    const HRESULT written = VarBstrFromDec(&value, LOCALE_INVARIANT, 0, &digits);
    return taken(written, digits);
}

std::string booleanFromText(Locale locale, std::u16string_view text) {
    VARIANT_BOOL value = 0;
    const HRESULT result = VarBoolFromStr(wide(text).data(), locale, 0, &value);
    return outcome(result, exactText(std::int64_t(value)));
}

std::string dateFromText(Locale locale, std::u16string_view text) {
    DATE value = 0;
    const HRESULT result = VarDateFromStr(wide(text).data(), locale, 0, &value);
    return outcome(result, exactText(value));
}

std::string textFromDouble(Locale locale, double value) {
    BSTR text = nullptr;
    const HRESULT result = VarBstrFromR8(value, locale, 0, &text);
    return taken(result, text);
}

std::string textFromSingle(Locale locale, float value) {
    BSTR text = nullptr;
    const HRESULT result = VarBstrFromR4(value, locale, 0, &text);
    return taken(result, text);
}

std::string textFromLong(Locale locale, std::int32_t value) {
    BSTR text = nullptr;
    const HRESULT result = VarBstrFromI4(value, locale, 0, &text);
    return taken(result, text);
}

std::string textFromCurrency(Locale locale, std::int64_t scaled) {
    CY value;
    value.int64 = scaled;
    BSTR text = nullptr;
    const HRESULT result = VarBstrFromCy(value, locale, 0, &text);
    return taken(result, text);
}

std::string textFromDate(Locale locale, double value) {
    BSTR text = nullptr;
    const HRESULT result = VarBstrFromDate(value, locale, 0, &text);
    return taken(result, text);
}

std::string textFromDecimal(Locale locale, std::u16string_view digits) {
    DECIMAL value;
    std::memset(&value, 0, sizeof value);
    HRESULT result = VarDecFromStr(wide(digits).data(), LOCALE_INVARIANT, 0, &value);
    BSTR text = nullptr;
    if (SUCCEEDED(result)) result = VarBstrFromDec(&value, locale, 0, &text);
    return taken(result, text);
}

std::string textFromBoolean(Locale locale, bool value, bool localized) {
    BSTR text = nullptr;
    const HRESULT result =
        VarBstrFromBool(value ? VARIANT_TRUE : VARIANT_FALSE, locale, localized ? VAR_LOCALBOOL : 0, &text);
    return taken(result, text);
}

std::string formatNumber(Locale locale, double value, std::u16string_view pattern) {
    VARIANT number = variantOf(VT_R8, value);
    return format(locale, number, pattern, 1, 1);
}

std::string formatDate(Locale locale, double value, std::u16string_view pattern, int firstDay,
                       int firstWeek) {
    VARIANT date = variantOf(VT_DATE, value);
    return format(locale, date, pattern, firstDay, firstWeek);
}

std::string formatText(Locale locale, std::u16string_view value, std::u16string_view pattern) {
    VARIANT text;
    VariantInit(&text);
    text.vt = VT_BSTR;
    text.bstrVal = SysAllocString(wide(value).c_str());
    std::string result = format(locale, text, pattern, 1, 1);
    VariantClear(&text);
    return result;
}

std::string userFormatNumber(double value, int decimals, int leadingDigit, int parentheses, int group) {
    VARIANT number = variantOf(VT_R8, value);
    BSTR text = nullptr;
    const HRESULT result = VarFormatNumber(&number, decimals, leadingDigit, parentheses, group, 0, &text);
    return taken(result, text);
}

std::string userFormatCurrency(double value, int decimals, int leadingDigit, int parentheses, int group) {
    VARIANT number = variantOf(VT_R8, value);
    BSTR text = nullptr;
    const HRESULT result = VarFormatCurrency(&number, decimals, leadingDigit, parentheses, group, 0, &text);
    return taken(result, text);
}

std::string userFormatPercent(double value, int decimals, int leadingDigit, int parentheses, int group) {
    VARIANT number = variantOf(VT_R8, value);
    BSTR text = nullptr;
    const HRESULT result = VarFormatPercent(&number, decimals, leadingDigit, parentheses, group, 0, &text);
    return taken(result, text);
}

std::string userFormatDateTime(double value, int named) {
    VARIANT date = variantOf(VT_DATE, value);
    BSTR text = nullptr;
    const HRESULT result = VarFormatDateTime(&date, named, 0, &text);
    return taken(result, text);
}

std::string userMonthName(int month, bool abbreviate) {
    BSTR text = nullptr;
    const HRESULT result = VarMonthName(month, abbreviate ? 1 : 0, 0, &text);
    return taken(result, text);
}

std::string userWeekdayName(int weekday, bool abbreviate, int firstDay) {
    BSTR text = nullptr;
    const HRESULT result = VarWeekdayName(weekday, abbreviate ? 1 : 0, firstDay, 0, &text);
    return taken(result, text);
}

std::string round(double value, int decimals) {
    VARIANT number = variantOf(VT_R8, value), rounded = variantOf(VT_R8, 0);
    const HRESULT result = VarRound(&number, decimals, &rounded);
    return numberIn(result, rounded);
}

std::string wholeBelow(double value) {
    VARIANT number = variantOf(VT_R8, value), whole = variantOf(VT_R8, 0);
    const HRESULT result = VarInt(&number, &whole);
    return numberIn(result, whole);
}

std::string wholePart(double value) {
    VARIANT number = variantOf(VT_R8, value), whole = variantOf(VT_R8, 0);
    const HRESULT result = VarFix(&number, &whole);
    return numberIn(result, whole);
}

} // namespace tests::system
