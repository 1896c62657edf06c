#pragma once

#include "automation/Ref.h"
#include "automation/String.h"
#include "data/cMatriz.h"
#include "frame/enumerations.h"

#include <cstdint>
#include <vector>

namespace tesela {

/// What a window needs to show a table for inspection.
struct TableView {
    struct Column {
        automation::String header;
        std::int32_t width = 0; ///< Pixels
        tslTipoDatoConstants type = tslTipoDatoCaracter;
    };

    static constexpr std::int32_t mode = 17;     ///< A view with one button, OK
    static constexpr std::int32_t position = 7;  ///< In the middle of the screen
    static constexpr std::int32_t searchCol = 0; ///< None
    static constexpr std::int32_t minLinesForQSort = 2000;

    automation::Ref<cMatriz> data; ///< A copy behind a column of the logical row numbers, from 1
    automation::String caption;
    std::vector<Column> columns; ///< One for each column of `data`
};

/// The view of a table that has rows.
TableView viewOf(const cMatriz& table);

/// The dialog that shows views: it puts its opening here. Null as long as there is none.
using TableViewer = void (*)(const TableView& view);
TableViewer& tableViewer();

} // namespace tesela
