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

/// In which row of which column on which page a field begins.
struct Slot {
    int page = 0;
    std::size_t column = 0;
    std::size_t row = 0;
};

/// How many rows and columns there are, and where each field stands in them: one below the other.
struct Grid {
    std::size_t rows = 1;
    std::size_t columns = 1;
    std::vector<Slot> slots;
};

Grid arrange(std::span<const FieldMeasure> fields) {
    std::size_t taken = 0, tallest = 1;
    for (const FieldMeasure& field : fields) {
        taken += static_cast<std::size_t>(field.lines);
        tallest = std::max(tallest, static_cast<std::size_t>(field.lines));
    }
    Grid grid;
    grid.columns = taken <= rowsAlone ? 1 : 2;
    // A tall field that does not fit below leaves rows free.
    grid.rows = grid.columns == 1 ? std::max<std::size_t>(taken, 1)
                                  : std::min((taken + 1) / 2 + tallest - 1, mostRows);
    Slot next;
    for (const FieldMeasure& field : fields) {
        const auto lines = static_cast<std::size_t>(field.lines);
        if (next.row + lines > grid.rows) {
            next.row = 0;
            if (++next.column == grid.columns) {
                next.column = 0;
                ++next.page;
            }
        }
        grid.slots.push_back(next);
        next.row += lines;
    }
    return grid;
}

} // namespace

FieldLayout layOutFields(std::span<const FieldMeasure> fields, int lineHeight, int noteWidth) {
    const Grid grid = arrange(fields);
    int nameWidth[2] = {leastName, leastName};
    int widest[2] = {0, 0};
    for (std::size_t i = 0; i < fields.size(); ++i) {
        int& width = nameWidth[grid.slots[i].column];
        width = std::max(width, std::min(fields[i].captionWidth, mostName));
        int& value = widest[grid.slots[i].column];
        value = std::max(value, valueWidth(fields[i]));
    }
    const int left[2] = {margin, margin + nameWidth[0] + nameGap + widest[0] + columnGap};
    const int valueHeight = lineHeight + 2 * border;
    const int pitch = valueHeight + rowGap;

    FieldLayout layout;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const std::size_t column = grid.slots[i].column;
        const int top = margin + static_cast<int>(grid.slots[i].row) * pitch;
        const int nameRight = left[column] + nameWidth[column];
        const int valueLeft = nameRight + nameGap;
        FieldPlace& place = layout.fields.emplace_back();
        place.page = grid.slots[i].page;
        layout.pages = place.page + 1;
        place.caption = {left[column], top + border, nameRight, top + border + lineHeight};
        place.value = {valueLeft, top, valueLeft + valueWidth(fields[i]),
                       top + valueHeight + (fields[i].lines - 1) * pitch};
        if (fields[i].type == ColumnType::DateTime) {
            place.hour = {place.value.right - hourWidth, top, place.value.right, top + valueHeight};
            place.value.right -= hourWidth + hourGap;
        }
    }
    const std::size_t last = grid.columns - 1;
    const int right = std::max(left[last] + nameWidth[last] + nameGap + widest[last], margin + noteWidth);
    const int bottom = margin + static_cast<int>(grid.rows) * pitch - rowGap;
    layout.note = {margin, bottom + noteGap, right, bottom + noteGap + lineHeight};
    layout.client = {right + margin, layout.note.bottom + margin};
    return layout;
}

} // namespace fichas
