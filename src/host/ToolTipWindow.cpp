#include "host/ToolTipWindow.h"

#include "automation/ClassTable.h"
#include "platform/gdi.h"

namespace host {

namespace {

constexpr std::int32_t RestMilliseconds = 500;
constexpr int Margin = 3;        ///< Pixels between the edge and the text
constexpr int BelowPointer = 20; ///< Pixels from the pointer's tip to the window

} // namespace

ToolTipWindow::ToolTipWindow() : wait_(automation::make<Timer>()) {
    ScaleMode(host::ScaleMode::Pixels);
    BackColor(systemColor(platform::COLOR_INFOBK));
    ForeColor(systemColor(platform::COLOR_INFOTEXT));
    ticks_ = wait_->Tick.subscribe([this] { show(); });
}

ToolTipWindow::~ToolTipWindow() {
    destroyWindow();
}

void ToolTipWindow::over(const void* what, const automation::String& text) {
    if (what == what_ && text == text_) return;
    hide();
    what_ = what;
    text_ = text;
    wait_->Interval(RestMilliseconds);
}

void ToolTipWindow::hide() {
    wait_->Interval(0);
    what_ = nullptr;
    destroyWindow();
}

void ToolTipWindow::show() {
    wait_->Interval(0);
    const auto width = static_cast<int>(TextWidth(text_)) + 2 * Margin;
    const auto height = static_cast<int>(TextHeight(text_)) + 2 * Margin;
    platform::POINT at;
    platform::GetCursorPos(&at);
    platform::RECT work;
    platform::SystemParametersInfoA(platform::SPI_GETWORKAREA, 0, &work, 0);
    const int left = std::max(work.left, std::min(at.x, work.right - width));
    const int below = at.y + BelowPointer;
    const int top = below + height > work.bottom ? at.y - height : below;
    constexpr platform::DWORD ExStyle =
        platform::WS_EX_TOOLWINDOW | platform::WS_EX_TOPMOST | platform::WS_EX_NOACTIVATE;
    makeWindow("TeselaHostToolTip", platform::WS_POPUP, ExStyle, {left, top}, {width, height}, {});
    platform::ShowWindow(hWnd(), platform::SW_SHOWNOACTIVATE);
}

void ToolTipWindow::onPaint() {
    const platform::SIZE size = clientSize();
    platform::RECT area{0, 0, size.cx, size.cy};
    platform::FrameRect(hDC(), &area, platform::GetSysColorBrush(platform::COLOR_WINDOWFRAME));
    area = {Margin, Margin, size.cx - Margin, size.cy - Margin};
    platform::DrawTextW(hDC(), text_.c_str(), static_cast<int>(text_.length()), &area,
                        platform::DT_LEFT | platform::DT_NOPREFIX);
}

const automation::ClassTable& ToolTipWindow::classTable() const {
    static const automation::ClassTable table = automation::ClassTable::of<ToolTipWindow>("ToolTipWindow");
    return table;
}

} // namespace host
