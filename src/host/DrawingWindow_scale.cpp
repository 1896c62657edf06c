// Scales: the window's units, conversions and the extents of texts.

#include "automation/Error.h"
#include "host/DrawingWindow.h"
#include "platform/gdi.h"

namespace host {

namespace {

constexpr bool exists(ScaleMode mode) {
    return mode >= ScaleMode::User && mode <= ScaleMode::ContainerSize;
}

/// Calls `each` with every line of a text; CR, LF and CR LF end one.
template <class F>
void eachLine(std::u16string_view text, F each) {
    std::size_t start = 0;
    while (true) {
        const std::size_t end = text.find_first_of(u"\r\n", start);
        each(text.substr(start, end == text.npos ? text.npos : end - start));
        if (end == text.npos) return;
        start = end + (text.substr(end, 2) == u"\r\n" ? 2 : 1);
    }
}

/// The screen's context with a font, to measure with.
class MeasuringContext {
public:
    explicit MeasuringContext(platform::HFONT font) : dc_(platform::CreateCompatibleDC({})) {
        former_ = platform::SelectObject(dc_, font);
    }
    ~MeasuringContext() {
        platform::SelectObject(dc_, former_);
        platform::DeleteDC(dc_);
    }
    MeasuringContext(const MeasuringContext&) = delete;
    MeasuringContext& operator=(const MeasuringContext&) = delete;

    int width(std::u16string_view text) const {
        platform::SIZE size;
        platform::GetTextExtentPoint32W(dc_, text.data(), static_cast<int>(text.size()), &size);
        return size.cx;
    }
    int lineHeight() const {
        platform::TEXTMETRICW metrics;
        platform::GetTextMetricsW(dc_, &metrics);
        return metrics.tmHeight;
    }

private:
    platform::HDC dc_;
    platform::HGDIOBJ former_;
};

} // namespace

double DrawingWindow::unitTwips(Axis axis) const {
    switch (scaleMode_) {
    case host::ScaleMode::User:
        return axis == Axis::Horizontal ? userX_ : userY_;
    case host::ScaleMode::ContainerPosition:
    case host::ScaleMode::ContainerSize:
        return containerUnitTwips(axis);
    default:
        return twipsPerUnit(scaleMode_, axis);
    }
}

void DrawingWindow::ScaleMode(host::ScaleMode value) {
    if (!exists(value)) throw automation::Error(automation::errors::InvalidPropertyValue);
    if (value == host::ScaleMode::User) {
        toUserScale();
        return;
    }
    scaleMode_ = value;
    scaleLeft_ = 0;
    scaleTop_ = 0;
    lookChanged(u"ScaleUnits");
}

void DrawingWindow::toUserScale() {
    const double x = unitTwips(Axis::Horizontal);
    const double y = unitTwips(Axis::Vertical);
    userX_ = x;
    userY_ = y;
    scaleMode_ = host::ScaleMode::User;
}

float DrawingWindow::unitX(int pixels) const {
    return static_cast<float>(pixels * twipsPerPixel(Axis::Horizontal) / unitTwips(Axis::Horizontal)) +
           scaleLeft_;
}

float DrawingWindow::unitY(int pixels) const {
    return static_cast<float>(pixels * twipsPerPixel(Axis::Vertical) / unitTwips(Axis::Vertical)) + scaleTop_;
}

float DrawingWindow::ScaleWidth() const {
    return unitX(clientSize().cx) - scaleLeft_;
}

void DrawingWindow::ScaleWidth(float value) {
    const double twips = clientSize().cx * twipsPerPixel(Axis::Horizontal);
    if (value == 0) throw automation::Error(automation::errors::InvalidPropertyValue);
    toUserScale();
    if (twips > 0) userX_ = twips / value;
}

float DrawingWindow::ScaleHeight() const {
    return unitY(clientSize().cy) - scaleTop_;
}

void DrawingWindow::ScaleHeight(float value) {
    const double twips = clientSize().cy * twipsPerPixel(Axis::Vertical);
    if (value == 0) throw automation::Error(automation::errors::InvalidPropertyValue);
    toUserScale();
    if (twips > 0) userY_ = twips / value;
}

void DrawingWindow::ScaleLeft(float value) {
    toUserScale();
    scaleLeft_ = value;
}

void DrawingWindow::ScaleTop(float value) {
    toUserScale();
    scaleTop_ = value;
}

double DrawingWindow::unitOf(host::ScaleMode mode, Axis axis) const {
    if (!exists(mode)) throw automation::Error(automation::errors::InvalidPropertyValue);
    if (mode == scaleMode_) return unitTwips(axis);
    switch (mode) {
    case host::ScaleMode::User:
        return axis == Axis::Horizontal ? userX_ : userY_;
    case host::ScaleMode::ContainerPosition:
    case host::ScaleMode::ContainerSize:
        return containerUnitTwips(axis);
    default:
        return twipsPerUnit(mode, axis);
    }
}

float DrawingWindow::ScaleX(float length, host::ScaleMode from, host::ScaleMode to) const {
    return static_cast<float>(length * unitOf(from, Axis::Horizontal) / unitOf(to, Axis::Horizontal));
}

float DrawingWindow::ScaleX(float length, host::ScaleMode from) const {
    return ScaleX(length, from, scaleMode_);
}

float DrawingWindow::ScaleY(float length, host::ScaleMode from, host::ScaleMode to) const {
    return static_cast<float>(length * unitOf(from, Axis::Vertical) / unitOf(to, Axis::Vertical));
}

float DrawingWindow::ScaleY(float length, host::ScaleMode from) const {
    return ScaleY(length, from, scaleMode_);
}

float DrawingWindow::TextWidth(const automation::String& text) const {
    const MeasuringContext context(font_->hFont());
    int widest = 0;
    eachLine(text, [&](std::u16string_view line) { widest = std::max(widest, context.width(line)); });
    return unitX(widest) - scaleLeft_;
}

float DrawingWindow::TextHeight(const automation::String& text) const {
    const MeasuringContext context(font_->hFont());
    int lines = 0;
    eachLine(text, [&](std::u16string_view) { ++lines; });
    return unitY(lines * context.lineHeight()) - scaleTop_;
}

} // namespace host
