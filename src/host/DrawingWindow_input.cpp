// Keys and the mouse: messages to handlers.

#include "host/DrawingWindow.h"
#include "host/Label.h"

namespace host {

namespace {

bool keyDown(int virtualKey) {
    return platform::GetKeyState(virtualKey) < 0;
}

bool isKeyPress(platform::UINT message) {
    return message == platform::WM_KEYDOWN || message == platform::WM_SYSKEYDOWN;
}

} // namespace

short shiftState() {
    return static_cast<short>((keyDown(platform::VK_SHIFT) ? ShiftMask : 0) |
                              (keyDown(platform::VK_CONTROL) ? CtrlMask : 0) |
                              (keyDown(platform::VK_MENU) ? AltMask : 0));
}

void DrawingWindow::onKeyDown(short&, short&) {}
void DrawingWindow::onKeyPress(short&) {}
void DrawingWindow::onKeyUp(short&, short&) {}
void DrawingWindow::onMouseDown(short&, short&, float&, float&) {}
void DrawingWindow::onMouseMove(short&, short&, float&, float&) {}
void DrawingWindow::onMouseUp(short&, short&, float&, float&) {}
void DrawingWindow::onMouseWheel(short, short, float, float) {}

platform::LRESULT DrawingWindow::handleKey(platform::UINT code, platform::WPARAM wParam,
                                           platform::LPARAM lParam) {
    if (isKeyPress(code)) skipCharacter_ = 0;
    if (code == platform::WM_CHAR && skipCharacter_ == static_cast<int>(wParam)) {
        skipCharacter_ = 0;
        return 0;
    }
    if (translateKey(code, wParam, lParam)) {
        // The character that belongs to a key which the container used waits in the queue already.
        if (isKeyPress(code)) skipCharacter_ = static_cast<int>(wParam);
        return 0;
    }
    if (!takesInput()) return 0;
    auto key = static_cast<short>(wParam);
    short shift = shiftState();
    switch (code) {
    case platform::WM_KEYDOWN:
        onKeyDown(key, shift);
        return 0;
    case platform::WM_SYSKEYDOWN:
        onKeyDown(key, shift);
        return key == 0 || key == platform::VK_F10 ? 0 : otherMessage(code, wParam, lParam);
    case platform::WM_KEYUP:
    case platform::WM_SYSKEYUP:
        onKeyUp(key, shift);
        return 0;
    case platform::WM_CHAR:
        onKeyPress(key);
        return 0;
    case platform::WM_SYSCHAR:
        // Only Alt+Space opens something; the rest would beep.
        return wParam == platform::VK_SPACE ? otherMessage(code, wParam, lParam) : 0;
    default:
        return otherMessage(code, wParam, lParam);
    }
}

void DrawingWindow::handleMouse(platform::UINT code, platform::WPARAM wParam, platform::LPARAM lParam) {
    const platform::POINT at{platform::GET_X_LPARAM(lParam), platform::GET_Y_LPARAM(lParam)};
    const Label* under = labelAt(at);
    mouseActivity(code, under ? under->ToolTipText() : automation::String());
    if (!takesInput()) return;
    short shift = shiftState();
    float x = unitX(at.x);
    float y = unitY(at.y);
    switch (code) {
    case platform::WM_LBUTTONDOWN:
    case platform::WM_LBUTTONDBLCLK:
        buttonDown(LeftButton, at, code == platform::WM_LBUTTONDBLCLK);
        break;
    case platform::WM_RBUTTONDOWN:
    case platform::WM_RBUTTONDBLCLK:
        buttonDown(RightButton, at, code == platform::WM_RBUTTONDBLCLK);
        break;
    case platform::WM_MBUTTONDOWN:
    case platform::WM_MBUTTONDBLCLK:
        buttonDown(MiddleButton, at, code == platform::WM_MBUTTONDBLCLK);
        break;
    case platform::WM_LBUTTONUP:
        buttonUp(LeftButton, at);
        break;
    case platform::WM_RBUTTONUP:
        buttonUp(RightButton, at);
        break;
    case platform::WM_MBUTTONUP:
        buttonUp(MiddleButton, at);
        break;
    case platform::WM_MOUSEMOVE: {
        short buttons = buttonsDown_;
        if (!pressedLabel_ && !labelAt(at)) onMouseMove(buttons, shift, x, y);
        break;
    }
    case platform::WM_MOUSEWHEEL: {
        platform::POINT client = at;
        platform::ScreenToClient(window_, &client);
        onMouseWheel(static_cast<short>(platform::GET_WHEEL_DELTA_WPARAM(wParam)), shift, unitX(client.x),
                     unitY(client.y));
        break;
    }
    default:
        break;
    }
}

void DrawingWindow::buttonDown(short button, platform::POINT at, bool second) {
    focusByMouse();
    // Getting the focus ran handlers: the window may be gone, or a dialog may have shut it off.
    if (!window_) return;
    if (platform::IsWindowEnabled(window_) && platform::IsWindowVisible(window_))
        platform::SetCapture(window_);
    buttonsDown_ = static_cast<short>(buttonsDown_ | button);
    secondPress_ = second;
    pressedLabel_ = labelAt(at);
    if (pressedLabel_) {
        const automation::Ref<Label> alive(pressedLabel_);
        if (second) alive->DblClick.raise();
        return;
    }
    if (second) {
        onDblClick();
        return;
    }
    short shift = shiftState();
    float x = unitX(at.x);
    float y = unitY(at.y);
    onMouseDown(button, shift, x, y);
}

void DrawingWindow::buttonUp(short button, platform::POINT at) {
    const bool pressed = (buttonsDown_ & button) != 0;
    const bool second = secondPress_;
    const auto left = static_cast<short>(buttonsDown_ & ~button);
    Label* const label = std::exchange(pressedLabel_, nullptr);
    if (left == 0 && platform::GetCapture() == window_) platform::ReleaseCapture();
    buttonsDown_ = left;
    if (label) {
        const automation::Ref<Label> alive(label);
        if (pressed && !second && labelAt(at) == label) label->Click.raise();
        return;
    }
    short shift = shiftState();
    float x = unitX(at.x);
    float y = unitY(at.y);
    const platform::SIZE size = clientSize();
    const bool inside = at.x >= 0 && at.y >= 0 && at.x < size.cx && at.y < size.cy;
    onMouseUp(button, shift, x, y);
    if (window_ && pressed && !second && inside) onClick();
}

Label* DrawingWindow::labelAt(platform::POINT at) const {
    for (auto label = labels_.rbegin(); label != labels_.rend(); ++label) {
        const platform::RECT place = (*label)->bounds().pixels();
        if ((*label)->Enabled() && (*label)->Visible() && at.x >= place.left && at.x < place.right &&
            at.y >= place.top && at.y < place.bottom)
            return *label;
    }
    return nullptr;
}

} // namespace host
