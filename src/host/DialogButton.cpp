#include "host/DialogButton.h"

#include "automation/ClassTable.h"
#include "host/Form.h"
#include "host/Label.h"
#include "platform/gdi.h"

namespace host {

namespace {

constexpr int FocusInset = 4; ///< Pixels from the edge to the focus rectangle

platform::RECT shrunk(const platform::RECT& r, int by) {
    return {r.left + by, r.top + by, r.right - by, r.bottom - by};
}

} // namespace

DialogButton::DialogButton() {
    ScaleMode(host::ScaleMode::Pixels);
}

void DialogButton::Caption(const automation::String& value) {
    caption_ = value;
    AccessKeys(mnemonicOf(value));
    invalidate();
}

void DialogButton::onPaint() {
    const platform::SIZE size = clientSize();
    platform::RECT area{0, 0, size.cx, size.cy};
    const platform::HDC dc = hDC();
    if (hasFocus()) {
        platform::FrameRect(dc, &area, platform::GetSysColorBrush(platform::COLOR_WINDOWFRAME));
        area = shrunk(area, 1);
    }
    if (down_) {
        platform::FrameRect(dc, &area, platform::GetSysColorBrush(platform::COLOR_BTNSHADOW));
    } else {
        platform::RECT edge = area;
        platform::DrawEdge(dc, &edge, platform::EDGE_RAISED, platform::BF_RECT | platform::BF_SOFT);
    }
    const int shift = down_ ? 1 : 0;
    platform::RECT text{shift, shift, size.cx + shift, size.cy + shift};
    platform::SetTextColor(dc, platform::GetSysColor(platform::COLOR_BTNTEXT));
    platform::DrawTextW(dc, caption_.c_str(), static_cast<int>(caption_.length()), &text,
                        platform::DT_CENTER | platform::DT_VCENTER | platform::DT_SINGLELINE);
    if (!hasFocus()) return;
    const platform::RECT focus = shrunk({0, 0, size.cx, size.cy}, FocusInset);
    platform::SetTextColor(dc, 0);
    platform::DrawFocusRect(dc, &focus);
}

void DialogButton::press(bool down) {
    if (down == down_) return;
    down_ = down;
    Refresh();
}

bool DialogButton::inside(float x, float y) const {
    return x >= 0 && y >= 0 && x < ScaleWidth() && y < ScaleHeight();
}

void DialogButton::onLostFocus() {
    held_ = false;
    down_ = false;
    Refresh();
}

void DialogButton::onKeyDown(short& KeyCode, short& Shift) {
    auto* form = dynamic_cast<Form*>(Extender().Parent().get());
    switch (KeyCode) {
    case platform::VK_SPACE:
        held_ = true;
        press(true);
        break;
    case platform::VK_RETURN:
        if (Shift == 0) Click.raise();
        break;
    case platform::VK_RIGHT:
    case platform::VK_DOWN:
        if (form) form->moveFocus(true);
        break;
    case platform::VK_LEFT:
    case platform::VK_UP:
        if (form) form->moveFocus(false);
        break;
    default:
        break;
    }
}

void DialogButton::onKeyUp(short& KeyCode, short&) {
    if (KeyCode != platform::VK_SPACE || !held_) return;
    held_ = false;
    press(false);
    Click.raise();
}

void DialogButton::onMouseDown(short& Button, short&, float&, float&) {
    if (Button != LeftButton) return;
    held_ = true;
    press(true);
}

void DialogButton::onDblClick() {
    held_ = true;
    press(true);
}

void DialogButton::onMouseMove(short&, short&, float& X, float& Y) {
    if (held_) press(inside(X, Y));
}

void DialogButton::onMouseUp(short& Button, short&, float& X, float& Y) {
    if (Button != LeftButton || !held_) return;
    held_ = false;
    const bool clicked = inside(X, Y);
    press(false);
    if (clicked) Click.raise();
}

void DialogButton::onAccessKeyPress(short&) {
    Click.raise();
}

bool DialogButton::message(platform::UINT code, platform::WPARAM, platform::LPARAM,
                           platform::LRESULT& result) {
    // Enter on a button is its own, not the default button's.
    if (code != platform::WM_GETDLGCODE) return false;
    result = platform::DLGC_WANTALLKEYS;
    return true;
}

const automation::ClassTable& DialogButton::classTable() const {
    static const automation::ClassTable table =
        automation::ClassTable::of<DialogButton>("DialogButton")
            .property("Caption", &DialogButton::Caption, &DialogButton::Caption)
            .event("Click", &DialogButton::Click);
    return table;
}

} // namespace host
