#pragma once

#include "automation/Object.h"
#include "automation/String.h"
#include "host/Control.h"
#include "host/ControlSite.h"

#include <memory>

namespace host {

class Form;

/// A form's place for one control: what the form keeps for it, and the form's answers to its calls. Sites are
/// shared, so that one whose control is taken off by a handler lives until its present call returns.
class FormSite : public ControlSite, public std::enable_shared_from_this<FormSite> {
public:
    FormSite(Form& form, automation::Ref<Control> control, automation::String name, short index,
             DrawingWindow& container);

    Control& control() const { return *control_; }
    const automation::String& name() const { return name_; }
    short index() const { return index_; }
    DrawingWindow& container() const { return container_; }
    bool visible() const { return visible_; }
    bool tabStop() const { return tabStop_; }
    bool causesValidation() const { return causesValidation_; }
    const automation::String& toolTipText() const { return toolTipText_; }
    const automation::String& tag() const { return tag_; }
    bool isDefault() const { return default_; }
    bool isCancel() const { return cancel_; }
    bool gone() const { return gone_; }
    /// The control is off the form.
    void setGone() { gone_ = true; }
    /// Whether the control could take the focus now: shown with all that holds it, and enabled.
    bool canTakeFocus() const;
    void show();

    automation::Variant ambientValue(AmbientValue which) override;
    automation::Variant extenderValue(ExtenderValue which) override;
    void setExtenderValue(ExtenderValue which, const automation::Variant& value) override;
    void move(float left, float top, float width, float height) override;
    void requestSize(float widthTwips, float heightTwips) override;
    void propertyChanged(std::u16string_view name) override;
    void accessKeysChanged() override {}
    void zOrder(ZOrderPosition position) override;
    bool takeFocus() override;
    bool translateKey(platform::UINT message, platform::WPARAM& wParam, platform::LPARAM lParam) override;
    bool focusArrived() override;
    bool focusLeaving(platform::HWND next) override;
    void paintBehind(platform::HDC dc) override;
    void enabledChanged() override;
    void mouseActivity(platform::UINT message, const automation::String& innerToolTip) override;

private:
    friend class Form;

    void setVisible(bool value);
    void setSide(ExtenderValue which, float value);
    float side(ExtenderValue which) const;

    Form& form_;
    automation::Ref<Control> control_;
    automation::String name_;
    automation::String tag_;
    automation::String toolTipText_;
    DrawingWindow& container_;
    short index_;
    bool visible_ = true;
    bool tabStop_ = true;
    bool causesValidation_ = true;
    bool default_ = false;
    bool cancel_ = false;
    bool gone_ = false;
};

} // namespace host
