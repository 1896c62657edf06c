#pragma once
// What a container gives to each control that it holds. A form made in C++ and an automation container
// both implement it; a control asks through `Ambient`, `Extender` and `UserControl` and never knows which.

#include "automation/String.h"
#include "automation/Variant.h"
#include "platform/windows.h"

namespace host {

class Control;

/// Values that the container suggests to all of its controls.
enum class AmbientValue {
    BackColor,        ///< Long
    ForeColor,        ///< Long
    Font,             ///< Object: a StdFont
    UserMode,         ///< Boolean: False while the container is being designed
    ScaleUnits,       ///< String: "Twip", "Pixel"...
    DisplayName,      ///< String: how the container calls this control in messages
    LocaleID,         ///< Long
    DisplayAsDefault, ///< Boolean: this control is the container's default button now
    UIDead,           ///< Boolean: the container takes no input
};

/// Properties that the container keeps for a control.
enum class ExtenderValue {
    Name,  ///< String
    Index, ///< Integer; -1 outside control arrays; read only
    Left,  ///< Single, in the container's scale, as the three below
    Top,
    Width,
    Height,
    Visible,          ///< Boolean
    TabStop,          ///< Boolean
    TabIndex,         ///< Integer
    ToolTipText,      ///< String
    CausesValidation, ///< Boolean
    Tag,              ///< String
    Default,          ///< Boolean: Enter reaches this control
    Cancel,           ///< Boolean: Esc reaches this control
    Parent,           ///< Object: the form; read only
    Container,        ///< Object: the form or the picture box that holds the control; read only
};

/// A member of AmbientValue or ExtenderValue by the name that programs use.
const char16_t* nameOf(AmbientValue value);
const char16_t* nameOf(ExtenderValue value);

enum class ZOrderPosition { Front = 0, Back = 1 };

class ControlSite {
public:
    virtual ~ControlSite() = default;

    /// A value of the container; Empty where it offers none.
    virtual automation::Variant ambientValue(AmbientValue which) = 0;

    /// A property that the container keeps for this control. Throws automation::Error 438 where it keeps
    /// none of that kind and 383 for a write of a read-only one.
    virtual automation::Variant extenderValue(ExtenderValue which) = 0;
    virtual void setExtenderValue(ExtenderValue which, const automation::Variant& value) = 0;

    /// New place in the container's scale, in one step.
    virtual void move(float left, float top, float width, float height) = 0;

    /// The control wants this size, in twips. The container answers by Control::applyBounds.
    virtual void requestSize(float widthTwips, float heightTwips) = 0;

    virtual void propertyChanged(std::u16string_view name) = 0;
    virtual void accessKeysChanged() = 0;
    virtual void zOrder(ZOrderPosition position) = 0;

    /// Gives the focus to the control as the user would: false if it can't take it now or if the
    /// validation of the control that has it refused.
    virtual bool takeFocus() = 0;

    /// A message of the keyboard that has reached the control's window, before the control sees it.
    /// True if the container used it (Tab, access keys, default and cancel keys, key preview).
    virtual bool translateKey(platform::UINT message, platform::WPARAM& wParam, platform::LPARAM lParam) = 0;

    /// The control's window got the focus; false if the container has given it back to the control that
    /// had it, so that the control must not act as if it came.
    virtual bool focusArrived() = 0;

    /// The control's window is losing the focus to `next` (zero: to another program). True if the
    /// container will say itself, by Control::focusLeft, when the focus is gone for good.
    virtual bool focusLeaving(platform::HWND next) = 0;

    /// Draws what the container shows under the control, for transparent ones. The container moves its
    /// own origin so that (0, 0) of `dc` is the control's top left corner.
    virtual void paintBehind(platform::HDC dc) = 0;

    /// The control was enabled or disabled; a disabled one must not keep the focus.
    virtual void enabledChanged() = 0;

    /// The mouse did something in the control's window: what the container's tool tips go by. `innerToolTip`
    /// is the text of the constituent under the pointer; empty: the control's own (ToolTipText) holds.
    virtual void mouseActivity(platform::UINT message, const automation::String& innerToolTip) = 0;
};

} // namespace host
