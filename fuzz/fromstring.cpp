// Delimited text: a table takes it as a plain walk through it says, or refuses it and is empty.
#include "automation/Conversions.h"
#include "automation/Error.h"
#include "automation/Operators.h"
#include "automation/Strings.h"
#include "data/cMatriz.h"
#include "host/Form.h"
#include "host/Screen.h"
#include "host/Timer.h"
#include "input.h"
#include "platform/windows.h"

#include <algorithm>
#include <optional>
#include <vector>

using automation::String;
using automation::Variant;

namespace {

void check(bool holds) {
    if (!holds) __builtin_trap();
}

/// While it lives, messages that tell of a piece that does not convert are closed.
class MessageCloser {
public:
    MessageCloser() {
        timer_.Tick.join([] {
            if (host::Form* form = host::Screen::ActiveForm())
                platform::PostMessageA(form->hWnd(), platform::WM_CLOSE, 0, 0);
        });
        timer_.Interval(1);
    }

private:
    host::Timer timer_;
};

Variant converted(const String& piece, char16_t type) {
    switch (type) {
    case u'N':
        return automation::CDbl(piece);
    case u'M':
        return automation::CCur(piece);
    case u'D':
        return automation::CDate(piece);
    case u'L':
        return automation::CBool(piece);
    default:
        return piece;
    }
}

/// The cells of the text, row after row; none if a piece does not convert.
std::optional<std::vector<Variant>> cellsOf(std::u16string_view text, char16_t separator,
                                            const String& types) {
    std::vector<Variant> cells;
    try {
        while (!text.empty()) {
            const std::size_t length = std::min(text.find(separator), text.size());
            const char16_t type = types.empty() ? u'S' : types[cells.size() % types.length()];
            cells.push_back(converted(String(text.substr(0, length)), type));
            text.remove_prefix(std::min(length + 1, text.size()));
        }
    } catch (const automation::Error&) {
        return {};
    }
    return cells;
}

bool isSame(const Variant& a, const Variant& b) {
    return a.type() == b.type() && automation::isEqual(a, b);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::chooseLocale(fuzz::takeByte(data, size));
    const MessageCloser closer;
    constexpr std::u16string_view letters = u"NMDLC";
    const auto separator = static_cast<char16_t>(fuzz::takeByte(data, size));
    const std::int32_t columns = fuzz::takeByte(data, size) % 6 - 1;
    std::u16string types;
    for (std::uint8_t count = fuzz::takeByte(data, size) % 5; count > 0; --count)
        types += letters[fuzz::takeByte(data, size) % letters.size()];
    const String text(fuzz::text(data, size));

    const auto table = automation::make<tesela::cMatriz>();
    const bool taken = table->DataFromString(text, String(std::u16string(1, separator)), columns, types);
    if (text.empty() || (types.empty() && columns == 0)) {
        check(!taken && table->Cols() == 1 && table->Rows() == 0);
        return 0;
    }
    const auto cells = cellsOf(text, separator, types);
    const std::size_t width = types.empty() ? static_cast<std::size_t>(std::max(columns, 1)) : types.size();
    const bool isComplete = cells && cells->size() % width == 0;
    check(taken == isComplete);
    check(static_cast<std::size_t>(table->Cols()) == width);
    check(static_cast<std::size_t>(table->Rows()) == (isComplete ? cells->size() / width : 0));
    for (std::size_t i = 0; isComplete && i < cells->size(); ++i)
        check(isSame((*cells)[i], table->Item(static_cast<std::int32_t>(i % width) + 1,
                                              static_cast<std::int32_t>(i / width) + 1)));
    check(table->EndAddRows() == -1);
    return 0;
}
