#pragma once
// Text cut into lines, as DrawTextW shows it: tabs, access-key marks, breaks between words, an ellipsis.

#include "platform/gdi.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace platform::driver {

struct TextLineLayout {
    std::u16string text; ///< As drawn, without marks; tabs are still in it
    int underlined = -1; ///< Index of the character that a mark underlines, or -1
    std::u16string rest; ///< What follows in the paragraph; kept for DT_END_ELLIPSIS only
};

/// Width of a piece of text in the font in use.
using TextMeasure = std::function<int(std::u16string_view)>;

/// How text is cut.
struct LineRules {
    UINT format = 0; ///< DT_... flags
    int width = 0;   ///< Room for one line
    int tabWidth = 0;
};

/// The lines of a text. There is at least one, which may be empty.
std::vector<TextLineLayout> layOutLines(std::u16string_view text, const LineRules& rules,
                                        const TextMeasure& measure);

/// Width of a line with its tabs expanded to multiples of the tab width.
int lineWidth(std::u16string_view line, const LineRules& rules, const TextMeasure& measure);

/// Cuts a line that is too wide and ends it with three dots; `always` puts them behind one that fits, too.
void endWithEllipsis(TextLineLayout& line, bool always, const LineRules& rules, const TextMeasure& measure);

} // namespace platform::driver
