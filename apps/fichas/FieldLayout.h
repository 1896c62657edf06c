#pragma once
// Where the fields of a record stand in the window, in pixels of its client area.

#include "fichas/RecordSource.h"
#include "platform/types.h"

#include <span>
#include <vector>

namespace fichas {

/// What the layout must know of a field.
struct FieldMeasure {
    int captionWidth = 0; ///< Of its name in the window's font
    ColumnType type = ColumnType::Text;
    int length = 0; ///< Of a text: the most characters; 0 without a limit
    int lines = 1;  ///< Rows that it takes
};

struct FieldPlace {
    int page = 0; ///< Counted from 0: fields that do not fit share the window page by page
    platform::RECT caption;
    platform::RECT value;
    platform::RECT hour; ///< Of a point of time, beside the day; empty for other types
};

struct FieldLayout {
    std::vector<FieldPlace> fields;
    int pages = 1;
    platform::SIZE client; ///< The client area that they need
    platform::RECT note;   ///< The line below the fields
};

/// One column of fields, or two where they are many, or pages of two. Names end at one edge and values
/// begin at one; the rows of both columns stand level. `lineHeight` is that of the font; `noteWidth` is what
/// the line below the fields takes.
FieldLayout layOutFields(std::span<const FieldMeasure> fields, int lineHeight, int noteWidth);

} // namespace fichas
