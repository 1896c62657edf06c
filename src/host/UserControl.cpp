#include "host/UserControl.h"

#include "automation/Error.h"
#include "platform/gdi.h"

namespace host {

namespace {

/// Twips of a control that neither its container nor its own Initialize gave a size.
constexpr float DefaultWidth = 1215;
constexpr float DefaultHeight = 495;

} // namespace

UserControl::UserControl() = default;

UserControl::~UserControl() {
    destroyWindow();
}

void UserControl::Enabled(bool value) {
    if (value == enabled_) return;
    enabled_ = value;
    if (hWnd()) platform::EnableWindow(hWnd(), value);
    if (site()) site()->enabledChanged();
}

void UserControl::BackStyle(host::BackStyle value) {
    backStyle_ = value;
    invalidate();
}

void UserControl::Width(float value) {
    Size(value, bounds().height);
}

void UserControl::Height(float value) {
    Size(bounds().width, value);
}

void UserControl::Size(float width, float height) {
    if (site())
        site()->requestSize(width, height);
    else
        setBounds({bounds().left, bounds().top, width, height});
}

void UserControl::PropertyChanged(std::u16string_view name) {
    if (site()) site()->propertyChanged(name);
}

void UserControl::AccessKeys(const automation::String& value) {
    accessKeys_ = value;
    if (site()) site()->accessKeysChanged();
}

void UserControl::SetFocus() {
    if (!site() || !site()->takeFocus()) throw automation::Error(automation::errors::InvalidCall);
}

bool UserControl::hasFocus() const {
    return hWnd() && platform::GetFocus() == hWnd();
}

void UserControl::enter(ControlSite& newSite, DrawingWindow* container, platform::HWND parent,
                        const Bounds& place) {
    if (!initialized_) {
        initialized_ = true;
        onInitialize();
    }
    Bounds own = place;
    if (own.width == 0 && own.height == 0) {
        own.width = bounds().width > 0 ? bounds().width : DefaultWidth;
        own.height = bounds().height > 0 ? bounds().height : DefaultHeight;
    }
    Control::enter(newSite, container, parent, own);
    const platform::DWORD style = platform::WS_CHILD | platform::WS_CLIPSIBLINGS | platform::WS_CLIPCHILDREN |
                                  (canGetFocus() ? platform::WS_TABSTOP : 0) |
                                  (enabled_ ? 0 : platform::WS_DISABLED);
    const platform::RECT pixels = own.pixels();
    makeWindow("TeselaHostControl", style, 0, {pixels.left, pixels.top},
               {pixels.right - pixels.left, pixels.bottom - pixels.top}, parent);
}

void UserControl::leave() {
    if (!site()) return;
    const automation::Ref<automation::Object> alive(this);
    destroyWindow();
    Control::leave();
    visible_ = false;
    focused_ = false;
    onTerminate();
}

void UserControl::initProperties() {
    onInitProperties();
}

void UserControl::readProperties(PropertyBag& bag) {
    onReadProperties(bag);
}

void UserControl::writeProperties(PropertyBag& bag) {
    onWriteProperties(bag);
}

void UserControl::applyBounds(const Bounds& place) {
    const bool sized = !resizedOnce_ || place.width != bounds().width || place.height != bounds().height;
    Control::applyBounds(place);
    const platform::RECT pixels = place.pixels();
    if (hWnd())
        platform::MoveWindow(hWnd(), pixels.left, pixels.top, pixels.right - pixels.left,
                             pixels.bottom - pixels.top, platform::TRUE_);
    if (!sized) return;
    resizedOnce_ = true;
    onResize();
}

void UserControl::applyVisible(bool value) {
    if (value == visible_ || !hWnd()) return;
    visible_ = value;
    platform::ShowWindow(hWnd(), value ? platform::SW_SHOWNA : platform::SW_HIDE);
    if (value)
        onShow();
    else
        onHide();
}

void UserControl::ambientChanged(const automation::String& name) {
    if (backStyle_ == host::BackStyle::Transparent) invalidate();
    onAmbientChanged(name);
}

void UserControl::accessKeyPress(short KeyAscii) {
    onAccessKeyPress(KeyAscii);
}

void UserControl::onAccessKeyPress(short&) {
    if (site()) site()->takeFocus();
}

// Focus. The container may hold the news of a loss back until it has validated, and may refuse a gain.

void UserControl::focusByMouse() {
    if (site() && !hasFocus() && canGetFocus()) site()->takeFocus();
}

void UserControl::focusCame() {
    if (site() && !site()->focusArrived()) return;
    if (focused_ || !hasFocus()) return;
    focused_ = true;
    onEnterFocus();
    onGotFocus();
    Extender().GotFocus.raise();
}

void UserControl::focusGoes(platform::HWND next) {
    if (site() && site()->focusLeaving(next)) return;
    focusLeft();
}

void UserControl::focusLeft() {
    if (!focused_) return;
    focused_ = false;
    onLostFocus();
    onExitFocus();
    Extender().LostFocus.raise();
}

bool UserControl::translateKey(platform::UINT message, platform::WPARAM& wParam, platform::LPARAM lParam) {
    return site() && site()->translateKey(message, wParam, lParam);
}

double UserControl::containerUnitTwips(Axis axis) const {
    return containerWindow() ? containerWindow()->unitTwips(axis) : 1.0;
}

void UserControl::paintBehind(platform::HDC dc) {
    if (site()) site()->paintBehind(dc);
}

void UserControl::mouseActivity(platform::UINT message, const automation::String& innerToolTip) {
    if (site()) site()->mouseActivity(message, innerToolTip);
}

void UserControl::frame(platform::DWORD exStyle, platform::DWORD style) {
    if (!hWnd()) return;
    constexpr platform::DWORD Frames = platform::WS_BORDER;
    constexpr platform::DWORD ExFrames = platform::WS_EX_CLIENTEDGE | platform::WS_EX_STATICEDGE;
    const auto now = static_cast<platform::DWORD>(platform::GetWindowLongA(hWnd(), platform::GWL_STYLE));
    const auto exNow = static_cast<platform::DWORD>(platform::GetWindowLongA(hWnd(), platform::GWL_EXSTYLE));
    platform::SetWindowLongA(hWnd(), platform::GWL_STYLE,
                             static_cast<platform::LONG>((now & ~Frames) | style));
    platform::SetWindowLongA(hWnd(), platform::GWL_EXSTYLE,
                             static_cast<platform::LONG>((exNow & ~ExFrames) | exStyle));
    constexpr platform::UINT Flags = platform::SWP_NOMOVE | platform::SWP_NOSIZE | platform::SWP_NOZORDER |
                                     platform::SWP_NOACTIVATE | platform::SWP_FRAMECHANGED;
    platform::SetWindowPos(hWnd(), {}, 0, 0, 0, 0, Flags);
    invalidate();
}

} // namespace host
