// The form's window: frame, place, size and the messages that only forms use.

#include "host/Form.h"
#include "host/FormSite.h"
#include "host/Label.h"
#include "host/Picture.h"
#include "host/ToolTipWindow.h"

#include <algorithm>

namespace host {

namespace {

float twips(int pixels, Axis axis) {
    return static_cast<float>(pixels * twipsPerPixel(axis));
}

constexpr platform::WPARAM SmallIcon = 0;
constexpr platform::WPARAM BigIcon = 1;

} // namespace

platform::DWORD Form::windowStyle() const {
    platform::DWORD style = platform::WS_CLIPCHILDREN;
    if (borderStyle_ == FormBorderStyle::None) return style | platform::WS_POPUP;
    style |= platform::WS_CAPTION;
    if (controlBox_) style |= platform::WS_SYSMENU;
    const bool plain =
        borderStyle_ == FormBorderStyle::FixedSingle || borderStyle_ == FormBorderStyle::Sizable;
    if (plain && minButton_) style |= platform::WS_MINIMIZEBOX;
    if (plain && maxButton_) style |= platform::WS_MAXIMIZEBOX;
    if (borderStyle_ == FormBorderStyle::Sizable || borderStyle_ == FormBorderStyle::SizableToolWindow)
        style |= platform::WS_THICKFRAME;
    return style;
}

platform::DWORD Form::windowExStyle() const {
    switch (borderStyle_) {
    case FormBorderStyle::FixedDialog:
        return platform::WS_EX_DLGMODALFRAME;
    case FormBorderStyle::FixedToolWindow:
    case FormBorderStyle::SizableToolWindow:
        return platform::WS_EX_TOOLWINDOW;
    default:
        return 0;
    }
}

void Form::ensureWindow() {
    if (hWnd()) return;
    const platform::RECT place = bounds_.pixels();
    const platform::POINT anywhere{platform::CW_USEDEFAULT, platform::CW_USEDEFAULT};
    makeWindow("TeselaHostForm", windowStyle(), windowExStyle(),
               positioned_ ? platform::POINT{place.left, place.top} : anywhere,
               {place.right - place.left, place.bottom - place.top}, {});
    platform::SetWindowTextW(hWnd(), caption_.c_str());
    if (!enabled_) platform::EnableWindow(hWnd(), platform::FALSE_);
    Icon(icon_);
}

void Form::restyle() {
    if (!hWnd()) return;
    constexpr platform::DWORD Frame = platform::WS_POPUP | platform::WS_CAPTION | platform::WS_SYSMENU |
                                      platform::WS_MINIMIZEBOX | platform::WS_MAXIMIZEBOX |
                                      platform::WS_THICKFRAME;
    const auto now = static_cast<platform::DWORD>(platform::GetWindowLongA(hWnd(), platform::GWL_STYLE));
    platform::SetWindowLongA(hWnd(), platform::GWL_STYLE,
                             static_cast<platform::LONG>((now & ~Frame) | windowStyle()));
    platform::SetWindowLongA(hWnd(), platform::GWL_EXSTYLE, static_cast<platform::LONG>(windowExStyle()));
    constexpr platform::UINT Flags = platform::SWP_NOMOVE | platform::SWP_NOSIZE | platform::SWP_NOZORDER |
                                     platform::SWP_NOACTIVATE | platform::SWP_FRAMECHANGED;
    platform::SetWindowPos(hWnd(), {}, 0, 0, 0, 0, Flags);
}

void Form::Caption(const automation::String& value) {
    caption_ = value;
    if (hWnd()) platform::SetWindowTextW(hWnd(), caption_.c_str());
}

void Form::Icon(const automation::Ref<host::Picture>& value) {
    icon_ = value;
    if (!hWnd() || !icon_) return;
    const auto handle = static_cast<platform::LPARAM>(icon_->hIcon().value);
    platform::SendMessageA(hWnd(), platform::WM_SETICON, BigIcon, handle);
    platform::SendMessageA(hWnd(), platform::WM_SETICON, SmallIcon, handle);
}

void Form::BorderStyle(FormBorderStyle value) {
    borderStyle_ = value;
    restyle();
}

void Form::ControlBox(bool value) {
    controlBox_ = value;
    restyle();
}

void Form::MinButton(bool value) {
    minButton_ = value;
    restyle();
}

void Form::MaxButton(bool value) {
    maxButton_ = value;
    restyle();
}

void Form::Enabled(bool value) {
    enabled_ = value;
    if (hWnd()) platform::EnableWindow(hWnd(), value);
    broadcastAmbient(nameOf(AmbientValue::UIDead));
}

host::WindowState Form::WindowState() const {
    if (hWnd() && platform::IsIconic(hWnd())) return host::WindowState::Minimized;
    if (hWnd() && platform::IsZoomed(hWnd())) return host::WindowState::Maximized;
    return host::WindowState::Normal;
}

void Form::WindowState(host::WindowState value) {
    if (value == WindowState()) return;
    load();
    switch (value) {
    case host::WindowState::Normal:
        platform::ShowWindow(hWnd(), platform::SW_RESTORE);
        break;
    case host::WindowState::Minimized:
        platform::ShowWindow(hWnd(), platform::SW_MINIMIZE);
        break;
    case host::WindowState::Maximized:
        platform::ShowWindow(hWnd(), platform::SW_MAXIMIZE);
        break;
    }
}

// Place.

Bounds Form::screenBounds() const {
    platform::RECT window;
    if (!hWnd() || !platform::GetWindowRect(hWnd(), &window)) return bounds_;
    return {twips(window.left, Axis::Horizontal), twips(window.top, Axis::Vertical),
            twips(window.right - window.left, Axis::Horizontal),
            twips(window.bottom - window.top, Axis::Vertical)};
}

float Form::Left() const {
    return screenBounds().left;
}

float Form::Top() const {
    return screenBounds().top;
}

float Form::Width() const {
    return screenBounds().width;
}

float Form::Height() const {
    return screenBounds().height;
}

void Form::Left(float value) {
    const Bounds now = screenBounds();
    Move(value, now.top, now.width, now.height);
}

void Form::Top(float value) {
    const Bounds now = screenBounds();
    Move(now.left, value, now.width, now.height);
}

void Form::Width(float value) {
    resizeTo(value, screenBounds().height);
}

void Form::Height(float value) {
    resizeTo(screenBounds().width, value);
}

void Form::Move(float left, float top, float width, float height) {
    positioned_ = true;
    bounds_ = {left, top, std::max(0.0F, width), std::max(0.0F, height)};
    if (!hWnd()) return;
    const platform::RECT place = bounds_.pixels();
    platform::MoveWindow(hWnd(), place.left, place.top, place.right - place.left, place.bottom - place.top,
                         platform::TRUE_);
}

void Form::resizeTo(float width, float height) {
    bounds_ = screenBounds();
    bounds_.width = std::max(0.0F, width);
    bounds_.height = std::max(0.0F, height);
    if (!hWnd()) return;
    platform::SetWindowPos(hWnd(), {}, 0, 0, pixelsFromTwips(bounds_.width, Axis::Horizontal),
                           pixelsFromTwips(bounds_.height, Axis::Vertical),
                           platform::SWP_NOMOVE | platform::SWP_NOZORDER | platform::SWP_NOACTIVATE);
}

void Form::SetClientSize(float width, float height) {
    platform::RECT frame{0, 0, pixelsFromTwips(width, Axis::Horizontal),
                         pixelsFromTwips(height, Axis::Vertical)};
    platform::AdjustWindowRectEx(&frame, windowStyle(), platform::FALSE_, windowExStyle());
    resizeTo(twips(frame.right - frame.left, Axis::Horizontal),
             twips(frame.bottom - frame.top, Axis::Vertical));
}

void Form::place(const Form* owner) {
    platform::RECT around;
    platform::SystemParametersInfoA(platform::SPI_GETWORKAREA, 0, &around, 0);
    const bool byOwner = startUpPosition_ == host::StartUpPosition::CenterOwner;
    if (byOwner && owner && owner->hWnd()) platform::GetWindowRect(owner->hWnd(), &around);
    if (!byOwner && startUpPosition_ != host::StartUpPosition::CenterScreen) return;
    platform::RECT own;
    platform::GetWindowRect(hWnd(), &own);
    const int x = around.left + (around.right - around.left - (own.right - own.left)) / 2;
    const int y = around.top + (around.bottom - around.top - (own.bottom - own.top)) / 2;
    platform::SetWindowPos(hWnd(), {}, x, y, 0, 0,
                           platform::SWP_NOSIZE | platform::SWP_NOZORDER | platform::SWP_NOACTIVATE);
}

void Form::ZOrder(ZOrderPosition position) {
    if (!hWnd()) return;
    platform::SetWindowPos(hWnd(),
                           position == ZOrderPosition::Front ? platform::HWND_TOP : platform::HWND_BOTTOM, 0,
                           0, 0, 0, platform::SWP_NOMOVE | platform::SWP_NOSIZE | platform::SWP_NOACTIVATE);
}

void Form::limitSize(platform::MINMAXINFO& limits) const {
    const auto limit = [](platform::LONG& side, float wanted, Axis axis) {
        if (wanted > 0) side = pixelsFromTwips(wanted, axis);
    };
    limit(limits.ptMinTrackSize.x, minWidth_, Axis::Horizontal);
    limit(limits.ptMinTrackSize.y, minHeight_, Axis::Vertical);
    limit(limits.ptMaxTrackSize.x, maxWidth_, Axis::Horizontal);
    limit(limits.ptMaxTrackSize.y, maxHeight_, Axis::Vertical);
}

void Form::windowSized() {
    if (loaded_ && shownOnce_) raiseResize();
}

void Form::raiseResize() {
    const platform::SIZE size = clientSize();
    if (size == lastSize_) return;
    lastSize_ = size;
    onResize();
}

// Messages.

platform::LRESULT Form::otherMessage(platform::UINT code, platform::WPARAM wParam, platform::LPARAM lParam) {
    switch (code) {
    case platform::WM_CLOSE:
        if (loaded_)
            unload(UnloadMode::FormControlMenu);
        else
            Hide();
        return 0;
    case platform::WM_GETMINMAXINFO: {
        const platform::LRESULT result = DrawingWindow::otherMessage(code, wParam, lParam);
        limitSize(*reinterpret_cast<platform::MINMAXINFO*>(lParam));
        return result;
    }
    case platform::WM_ACTIVATE:
        if (platform::LOWORD(wParam) != platform::WA_INACTIVE) {
            onActivate();
        } else {
            hover(nullptr, {}, code);
            onDeactivate();
        }
        break;
    default:
        break;
    }
    return DrawingWindow::otherMessage(code, wParam, lParam);
}

// Tool tips.

void Form::hover(const void* what, const automation::String& text, platform::UINT message) {
    if (message != platform::WM_MOUSEMOVE || text.empty() || !userMode_) {
        if (toolTip_) toolTip_->hide();
        return;
    }
    if (!toolTip_) toolTip_ = automation::make<ToolTipWindow>();
    toolTip_->over(what, text);
}

void Form::mouseActivity(platform::UINT message, const automation::String& toolTip) {
    hover(this, toolTip, message);
}

} // namespace host
