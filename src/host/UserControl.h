#pragma once

#include "host/Control.h"
#include "host/DrawingWindow.h"

namespace host {

/// Base of every control with a window. The container's calls arrive as the handlers below, in this order:
/// onInitialize, then onInitProperties (a new control) or onReadProperties (a saved one), then onResize,
/// onShow, onPaint and the input as they come, onWriteProperties when the container saves, onTerminate.
class UserControl : public Control, public DrawingWindow {
public:
    UserControl();
    ~UserControl() override;

    /// A disabled control gets no keys and no mouse.
    bool Enabled() const { return enabled_; }
    void Enabled(bool value);
    host::BackStyle BackStyle() const { return backStyle_; }
    void BackStyle(host::BackStyle value);
    /// Size of the whole control in twips; a write asks the container as Size does.
    float Width() const { return bounds().width; }
    void Width(float value);
    float Height() const { return bounds().height; }
    void Height(float value);
    /// Asks the container for a new size, in twips.
    void Size(float width, float height);
    /// Tells the container that a property has a new value and that the control must be saved.
    void PropertyChanged(std::u16string_view name);
    /// The characters that reach the control with Alt.
    const automation::String& AccessKeys() const { return accessKeys_; }
    void AccessKeys(const automation::String& value);
    /// Gives the focus to the control; throws automation::Error 5 if it can't take it now.
    void SetFocus();
    /// Whether the control's own window has the focus.
    bool hasFocus() const;

    // What containers call.
    void enter(ControlSite& site, DrawingWindow* container, platform::HWND parent,
               const Bounds& bounds) override;
    void leave() override;
    void initProperties() override;
    void readProperties(PropertyBag& bag) override;
    void writeProperties(PropertyBag& bag) override;
    void applyBounds(const Bounds& bounds) override;
    void applyVisible(bool visible) override;
    void ambientChanged(const automation::String& name) override;
    void accessKeyPress(short KeyAscii) override;
    automation::String accessKeys() const override { return accessKeys_; }
    platform::HWND window() const override { return hWnd(); }
    bool enabled() const override { return enabled_; }
    bool canGetFocus() const override { return true; }
    void focusLeft() override;

    automation::Object& self() override { return *this; }

protected:
    virtual void onInitialize() {}
    virtual void onInitProperties() {}
    virtual void onReadProperties(PropertyBag&) {}
    virtual void onWriteProperties(PropertyBag&) {}
    virtual void onShow() {}
    virtual void onHide() {}
    virtual void onEnterFocus() {} ///< Before onGotFocus
    virtual void onExitFocus() {}  ///< After onLostFocus
    /// The default takes the focus.
    virtual void onAccessKeyPress(short& KeyAscii);
    /// The name of the ambient property that changed; empty: several.
    virtual void onAmbientChanged(const automation::String&) {}
    virtual void onTerminate() {}

    host::BackStyle paintedBackStyle() const override { return backStyle_; }
    bool translateKey(platform::UINT message, platform::WPARAM& wParam, platform::LPARAM lParam) override;
    void focusByMouse() override;
    void focusCame() override;
    void focusGoes(platform::HWND next) override;
    bool takesInput() const override { return enabled_; }
    double containerUnitTwips(Axis axis) const override;
    void paintBehind(platform::HDC dc) override;
    void mouseActivity(platform::UINT message, const automation::String& innerToolTip) override;
    /// A form places a control when its properties are read. Until then no size need be asked for.
    bool awaitsPlace() const { return containerWindow() && !resizedOnce_; }
    /// Changes the window's frame (WS_EX_...).
    void frame(platform::DWORD exStyle, platform::DWORD style);

private:
    automation::String accessKeys_;
    host::BackStyle backStyle_ = host::BackStyle::Opaque;
    bool enabled_ = true;
    bool visible_ = false;
    bool initialized_ = false;
    bool resizedOnce_ = false;
    bool focused_ = false; ///< onGotFocus was called and onLostFocus not yet
};

} // namespace host
