#include "fichas/ColumnJudge.h"

#include "automation/Conversions.h"
#include "fichas/CsvValues.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string_view>

namespace fichas {

using automation::Variant;

namespace {

constexpr int leastDecimals = 2;
constexpr int mostDecimals = 6;

/// Decimals of the shortest text that reads back as the number.
int decimalsOf(double number) {
    std::array<char, 400> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed);
    const std::string_view digits(text.data(), static_cast<std::size_t>(end.ptr - text.data()));
    const std::size_t point = digits.find('.');
    return point == std::string_view::npos ? 0 : static_cast<int>(digits.size() - point - 1);
}

bool isWhole(const Variant& value) {
    return value.type() == automation::VT_I4 || value.type() == automation::VT_DECIMAL;
}

bool isIso(std::u16string_view text) {
    constexpr std::size_t yearLength = 4;
    return text.size() > yearLength && text[yearLength] == u'-';
}

} // namespace

void ColumnJudge::take(const Variant& value) {
    if (value.isNull() || value.isEmpty()) return;
    any_ = true;
    const bool isNumber =
        isWhole(value) || value.type() == automation::VT_R8 || value.type() == automation::VT_CY;
    whole_ = whole_ && isWhole(value);
    numbers_ = numbers_ && isNumber;
    if (isNumber) decimals_ = std::max(decimals_, decimalsOf(automation::CDbl(value)));
    takeText(value.isString() ? value.asString().view() : std::u16string_view());
}

void ColumnJudge::takeText(std::u16string_view text) {
    const auto date = isIso(text) ? readDate(text) : std::nullopt;
    dates_ = dates_ && date;
    hasTime_ = hasTime_ || (date && date->hasTime);
    times_ = times_ && readTime(text).has_value();
}

ColumnType ColumnJudge::type() const {
    if (!any_) return ColumnType::Text;
    if (whole_) return ColumnType::Integer;
    if (numbers_) return ColumnType::Number;
    if (dates_) return hasTime_ ? ColumnType::DateTime : ColumnType::Date;
    return times_ ? ColumnType::Time : ColumnType::Text;
}

int ColumnJudge::decimals() const {
    return std::clamp(decimals_, leastDecimals, mostDecimals);
}

Variant ColumnJudge::valueAs(ColumnType type, const Variant& text) {
    const std::u16string_view view = text.asString();
    if (type == ColumnType::Date || type == ColumnType::DateTime) {
        if (const auto date = isIso(view) ? readDate(view) : std::nullopt) return date->value;
    } else if (type == ColumnType::Time) {
        if (const auto time = readTime(view)) return *time;
    }
    return text;
}

} // namespace fichas
