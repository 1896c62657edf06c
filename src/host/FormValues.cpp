#include "host/FormValues.h"

#include <algorithm>
#include <array>

namespace host {

using automation::Currency;
using automation::Date;
using automation::Variant;

namespace {

template <class T>
std::optional<Variant> readNumber(std::u16string_view digits) {
    T value{};
    if (!readDigits(digits, value)) return std::nullopt;
    return Variant(value);
}

std::optional<Variant> readDate(std::u16string_view digits) {
    double days = 0;
    if (!readDigits(digits, days)) return std::nullopt;
    return Variant(Date(days));
}

/// "12.5"
std::u16string writeCurrency(const Variant& value) {
    const std::int64_t scaled = value.asCurrency().scaled();
    const std::uint64_t size =
        scaled < 0 ? 0 - static_cast<std::uint64_t>(scaled) : static_cast<std::uint64_t>(scaled);
    const auto scale = static_cast<std::uint64_t>(Currency::scale);
    std::u16string text = (scaled < 0 ? u"-" : u"") + writeDigits(size / scale);
    if (size % scale == 0) return text;
    std::u16string decimals = writeDigits(size % scale + scale).substr(1);
    while (decimals.back() == u'0')
        decimals.pop_back();
    return text + u"." + decimals;
}

std::optional<Variant> readCurrency(std::u16string_view text) {
    constexpr std::size_t mostDecimals = 4;
    const std::size_t point = text.find(u'.');
    const std::u16string whole(text.substr(0, point));
    std::u16string decimals(point == text.npos ? std::u16string_view() : text.substr(point + 1));
    if (whole.empty() || whole == u"-" || decimals.size() > mostDecimals ||
        (point != text.npos && decimals.empty()) || decimals.find_first_not_of(u"0123456789") != text.npos)
        return std::nullopt;
    decimals.resize(mostDecimals, u'0');
    std::int64_t scaled = 0;
    if (!readDigits(whole + decimals, scaled)) return std::nullopt;
    return Variant(Currency::fromScaled(scaled));
}

constexpr NumberType numberTypes[] = {
    {automation::VT_UI1, u"Byte", [](const Variant& v) { return writeDigits(unsigned{v.asByte()}); },
     readNumber<std::uint8_t>},
    {automation::VT_I2, u"Integer", [](const Variant& v) { return writeDigits(v.asInteger()); },
     readNumber<std::int16_t>},
    {automation::VT_I4, u"Long", [](const Variant& v) { return writeDigits(v.asLong()); },
     readNumber<std::int32_t>},
    {automation::VT_R4, u"Single", [](const Variant& v) { return writeDigits(v.asSingle()); },
     readNumber<float>},
    {automation::VT_R8, u"Double", [](const Variant& v) { return writeDigits(v.asDouble()); },
     readNumber<double>},
    {automation::VT_CY, u"Currency", writeCurrency, readCurrency},
    {automation::VT_DATE, u"Date", [](const Variant& v) { return writeDigits(v.asDate().value()); },
     readDate},
};

template <class Matches>
const NumberType* find(Matches matches) {
    const auto* const found = std::find_if(std::begin(numberTypes), std::end(numberTypes), matches);
    return found == std::end(numberTypes) ? nullptr : found;
}

struct Word {
    std::u16string_view word;
    Variant value;
};

const std::array<Word, 5>& words() {
    static const std::array<Word, 5> table{{
        {u"Empty", Variant()},
        {u"Null", Variant::null()},
        {u"Nothing", Variant::nothing()},
        {u"True", true},
        {u"False", false},
    }};
    return table;
}

bool isSame(const Variant& a, const Variant& b) {
    if (a.type() != b.type() || a.isNothing() != b.isNothing()) return false;
    return a.type() != automation::VT_BOOL || a.asBoolean() == b.asBoolean();
}

} // namespace

const NumberType* numberTypeNamed(std::u16string_view word) {
    return find([word](const NumberType& each) { return each.word == word; });
}

const NumberType* numberTypeOf(automation::VARTYPE tag) {
    return find([tag](const NumberType& each) { return each.tag == tag; });
}

std::optional<Variant> valueOfWord(std::u16string_view word) {
    for (const Word& each : words())
        if (each.word == word) return each.value;
    return std::nullopt;
}

std::optional<std::u16string_view> wordOfValue(const Variant& value) {
    for (const Word& each : words())
        if (isSame(each.value, value)) return each.word;
    return std::nullopt;
}

} // namespace host
