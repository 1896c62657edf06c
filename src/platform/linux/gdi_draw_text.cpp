// DrawText: text laid out in a rectangle.

#include "platform/gdi.h"
#include "platform/linux/colors.h"
#include "platform/linux/device_context.h"
#include "platform/linux/painter.h"
#include "platform/linux/text_lines.h"
#include "platform/locale.h"

#include <algorithm>
#include <string>

namespace platform::driver {

namespace {

constexpr int tabCharacters = 8;

bool has(UINT format, UINT flag) {
    return (format & flag) != 0;
}

/// One call of DrawTextW.
class RectangleText {
public:
    RectangleText(HDC dc, DeviceContext& context, const RECT& rect, UINT format)
        : dc_(dc), context_(context), rect_(rect), format_(format) {
        GetTextMetricsW(dc, &metrics_);
        lineHeight_ = metrics_.tmHeight + (has(format, DT_EXTERNALLEADING) ? metrics_.tmExternalLeading : 0);
        rules_ = {format, rect.right - rect.left, metrics_.tmAveCharWidth * tabCharacters};
        measure_ = [dc](std::u16string_view text) {
            SIZE size;
            GetTextExtentPoint32W(dc, text.data(), static_cast<int>(text.size()), &size);
            return size.cx;
        };
    }

    /// Draws, unless only the rectangle is asked for. Returns the height; `rect` becomes that of the text
    /// with DT_CALCRECT.
    int run(std::u16string_view text, RECT& rect) {
        if (text.empty()) return runEmpty(rect);
        std::vector<TextLineLayout> lines = layOutLines(text, rules_, measure_);
        int widest = 0;
        int y = firstTop();
        const bool measuresOnly = has(format_, DT_CALCRECT);
        for (std::size_t i = 0; i < lines.size(); ++i) {
            const bool isLastShown = i + 1 == lines.size() || isBeyond(y + lineHeight_);
            if (isLastShown && has(format_, DT_END_ELLIPSIS)) {
                // The last line that there is room for shows as much as it can of what is left.
                lines[i].text += lines[i].rest;
                endWithEllipsis(lines[i], i + 1 < lines.size(), rules_, measure_);
            }
            const int width = lineWidth(lines[i].text, rules_, measure_);
            widest = std::max(widest, width);
            if (!measuresOnly) drawLine(lines[i], y, width);
            y += lineHeight_;
            // An edit control shows whole lines only.
            const int needed = has(format_, DT_EDITCONTROL) ? lineHeight_ : 0;
            if (!measuresOnly && isBeyond(y + needed)) break;
        }
        if (measuresOnly) {
            rect.right = rect.left + widest;
            rect.bottom = y;
        }
        return y - rect_.top;
    }

private:
    int runEmpty(RECT& rect) const {
        if (has(format_, DT_CALCRECT)) {
            rect.right = rect.left;
            rect.bottom = rect.top + (has(format_, DT_SINGLELINE) ? lineHeight_ : 0);
        }
        return lineHeight_;
    }

    bool isBeyond(int y) const { return !has(format_, DT_NOCLIP | DT_CALCRECT) && y > rect_.bottom; }

    int firstTop() const {
        if (!has(format_, DT_SINGLELINE)) return rect_.top;
        if (has(format_, DT_VCENTER))
            return rect_.top + (rect_.bottom - rect_.top) / 2 - metrics_.tmHeight / 2;
        return has(format_, DT_BOTTOM) ? rect_.bottom - metrics_.tmHeight : rect_.top;
    }

    int firstLeft(int width) const {
        if (has(format_, DT_CENTER)) return (rect_.left + rect_.right - width) / 2;
        return has(format_, DT_RIGHT) ? rect_.right - width : rect_.left;
    }

    void drawLine(const TextLineLayout& line, int y, int width) const {
        const int left = firstLeft(width);
        if (!has(format_, DT_PREFIXONLY)) drawPieces(line.text, left, y);
        const bool showsMark = line.underlined >= 0 && !has(format_, DT_HIDEPREFIX);
        if (showsMark) underline(line, left, y);
    }

    /// Draws the text between tabs, each piece at its stop.
    void drawPieces(std::u16string_view text, int left, int y) const {
        const UINT options = has(format_, DT_NOCLIP) ? 0u : ETO_CLIPPED;
        if (!has(format_, DT_EXPANDTABS) || text.find(u'\t') == std::u16string_view::npos) {
            ExtTextOutW(dc_, left, y, options, &rect_, text.data(), static_cast<UINT>(text.size()), nullptr);
            return;
        }
        std::size_t begin = 0;
        while (begin <= text.size()) {
            const std::size_t end = std::min(text.find(u'\t', begin), text.size());
            const int x = left + lineWidth(text.substr(0, begin), rules_, measure_);
            ExtTextOutW(dc_, x, y, options, &rect_, text.data() + begin, static_cast<UINT>(end - begin),
                        nullptr);
            begin = end + 1;
        }
    }

    void underline(const TextLineLayout& line, int left, int y) const {
        const std::u16string_view text = line.text;
        const std::size_t index = static_cast<std::size_t>(line.underlined);
        const int x = left + lineWidth(text.substr(0, index), rules_, measure_);
        const int end = left + lineWidth(text.substr(0, index + 1), rules_, measure_) - 1;
        const int row = y + metrics_.tmAscent + 1;
        RECT r{x, row, end, row + 1};
        if (!has(format_, DT_NOCLIP)) r = intersection(r, ordered(rect_));
        if (isEmpty(r)) return;
        const HPEN pen = CreatePen(PS_SOLID, 0, context_.state.textColor);
        const HGDIOBJ previous = SelectObject(dc_, pen);
        POINT position;
        MoveToEx(dc_, r.left, row, &position);
        LineTo(dc_, r.right, row);
        MoveToEx(dc_, position.x, position.y, nullptr);
        SelectObject(dc_, previous);
        DeleteObject(pen);
    }

    HDC dc_;
    DeviceContext& context_;
    RECT rect_;
    UINT format_;
    TEXTMETRICW metrics_;
    int lineHeight_ = 0;
    LineRules rules_;
    TextMeasure measure_;
};

} // namespace

} // namespace platform::driver

namespace platform {

using namespace driver;

int DrawTextW(HDC dc, const char16_t* text, int length, RECT* rect, UINT format) {
    DeviceContext* context = find<DeviceContext>(dc);
    if (!context || !text || !rect || length < -1) return 0;
    const std::u16string_view whole =
        length < 0 ? std::u16string_view(text) : std::u16string_view(text, static_cast<std::size_t>(length));
    return RectangleText(dc, *context, *rect, format).run(whole, *rect);
}

int DrawTextA(HDC dc, const char* text, int length, RECT* rect, UINT format) {
    if (!text || length < -1) return 0;
    const std::string_view bytes =
        length < 0 ? std::string_view(text) : std::string_view(text, static_cast<std::size_t>(length));
    const std::u16string wide = wideFromAnsi(bytes);
    return DrawTextW(dc, wide.data(), static_cast<int>(wide.size()), rect, format);
}

} // namespace platform
