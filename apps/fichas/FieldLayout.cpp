#include "fichas/FieldLayout.h"

#include <algorithm>

namespace fichas {

namespace {

constexpr int margin = 14;
constexpr int border = 3;  ///< Of a value, above and below its text
constexpr int rowGap = 6;  ///< Between two values
constexpr int nameGap = 8; ///< Between a name and its value
constexpr int columnGap = 28;
constexpr int noteGap = 12; ///< Above the line below the fields
constexpr int leastName = 60;
constexpr int mostName = 190;
constexpr std::size_t rowsAlone = 16; ///< The most that one column takes
constexpr std::size_t mostRows = 18;  ///< And each of two

constexpr int dayWidth = 82;
constexpr int hourWidth = 44;
constexpr int hourGap = 4; ///< Between a day and its hour

/// The whole value, the hour of a point of time included.
int valueWidth(const FieldMeasure& field) {
    constexpr int forText = 320;
    constexpr int forNumber = 130;
    constexpr int forTruth = 44;
    constexpr int frame = 12;
    constexpr int character = 7; // on average
    switch (field.type) {
    case ColumnType::Text:
        if (field.length == 0 || field.length > forText / character) return forText;
        return std::clamp(field.length * character + frame, forTruth, forText);
    case ColumnType::Boolean:
        return forTruth;
    case ColumnType::Date:
        return dayWidth;
    case ColumnType::Time:
        return hourWidth;
    case ColumnType::DateTime:
        return dayWidth + hourGap + hourWidth;
    default:
        return forNumber;
    }
}

/// The fields from `begin` to `end` (exclusive) on all pages that stand in the left or the right column.
class Columns {
public:
    explicit Columns(std::size_t fields) {
        if (fields <= rowsAlone) {
            rows_ = std::max<std::size_t>(fields, 1);
            columns_ = 1;
        } else {
            rows_ = std::min((fields + 1) / 2, mostRows);
            columns_ = 2;
        }
    }
    std::size_t rows() const { return rows_; }
    std::size_t count() const { return columns_; }
    std::size_t row(std::size_t field) const { return field % rows_; }
    std::size_t column(std::size_t field) const { return field / rows_ % columns_; }
    std::size_t page(std::size_t field) const { return field / (rows_ * columns_); }

private:
    std::size_t rows_;
    std::size_t columns_;
};

} // namespace

FieldLayout layOutFields(std::span<const FieldMeasure> fields, int lineHeight, int noteWidth) {
    const Columns columns(fields.size());
    int nameWidth[2] = {leastName, leastName};
    int widest[2] = {0, 0};
    for (std::size_t i = 0; i < fields.size(); ++i) {
        int& width = nameWidth[columns.column(i)];
        width = std::max(width, std::min(fields[i].captionWidth, mostName));
        int& value = widest[columns.column(i)];
        value = std::max(value, valueWidth(fields[i]));
    }
    const int left[2] = {margin, margin + nameWidth[0] + nameGap + widest[0] + columnGap};
    const int valueHeight = lineHeight + 2 * border;
    const int pitch = valueHeight + rowGap;

    FieldLayout layout;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const std::size_t column = columns.column(i);
        const int top = margin + static_cast<int>(columns.row(i)) * pitch;
        const int nameRight = left[column] + nameWidth[column];
        const int valueLeft = nameRight + nameGap;
        FieldPlace& place = layout.fields.emplace_back();
        place.page = static_cast<int>(columns.page(i));
        layout.pages = place.page + 1;
        place.caption = {left[column], top + border, nameRight, top + border + lineHeight};
        place.value = {valueLeft, top, valueLeft + valueWidth(fields[i]), top + valueHeight};
        if (fields[i].type == ColumnType::DateTime) {
            place.hour = {place.value.right - hourWidth, top, place.value.right, top + valueHeight};
            place.value.right -= hourWidth + hourGap;
        }
    }
    const std::size_t last = columns.count() - 1;
    const int right = std::max(left[last] + nameWidth[last] + nameGap + widest[last], margin + noteWidth);
    const int bottom = margin + static_cast<int>(columns.rows()) * pitch - rowGap;
    layout.note = {margin, bottom + noteGap, right, bottom + noteGap + lineHeight};
    layout.client = {right + margin, layout.note.bottom + margin};
    return layout;
}

} // namespace fichas
