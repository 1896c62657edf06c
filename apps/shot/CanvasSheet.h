#pragma once

#include "automation/String.h"
#include "drawing/cCanvas.h"

#include <string>

namespace shot {

/// A canvas divided into labelled cells, shown in a window.
class CanvasSheet {
public:
    static constexpr std::int32_t cellWidth = 150, cellHeight = 104; ///< Pixels, label included
    static constexpr std::int32_t columns = 6;

    explicit CanvasSheet(std::int32_t rows);

    /// Writes the label of the next cell and lets `draw` paint below it, from (0, 0) on.
    template <class Draw>
    void cell(const char16_t* label, Draw draw) {
        tesela::cCanvas& canvas = begin(label);
        draw(canvas);
        end();
    }

    tesela::cCanvas& canvas() { return *canvas_; }
    /// Shows the sheet in a window and saves the picture of it. False when the file can't be written.
    bool save(const automation::String& caption, const std::string& file);

private:
    tesela::cCanvas& begin(const char16_t* label);
    void end();

    automation::Ref<tesela::cCanvas> canvas_ = automation::make<tesela::cCanvas>();
    std::int32_t count_ = 0;
};

} // namespace shot
