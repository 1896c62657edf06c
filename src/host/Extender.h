#pragma once

#include "automation/Event.h"
#include "automation/Object.h"
#include "automation/String.h"
#include "host/ControlSite.h"

namespace host {

/// The properties that a container keeps for a control. Reading or writing one of a control that stands in
/// no container throws automation::Error 398. Programs that call by name find these members on the control
/// itself, behind its own. Lengths are in the container's scale, twips on most.
class Extender : public automation::Object {
public:
    explicit Extender(Control& control) : control_(control) {}
    automation::String Name() const;
    void Name(const automation::String& value);
    /// Place in its control array; -1 outside of arrays.
    short Index() const;
    float Left() const;
    void Left(float value);
    float Top() const;
    void Top(float value);
    float Width() const;
    void Width(float value);
    float Height() const;
    void Height(float value);
    bool Visible() const;
    void Visible(bool value);
    bool TabStop() const;
    void TabStop(bool value);
    /// 0-based place in the container's Tab order; the others close up around a new one.
    short TabIndex() const;
    void TabIndex(short value);
    automation::String ToolTipText() const;
    void ToolTipText(const automation::String& value);
    bool CausesValidation() const;
    void CausesValidation(bool value);
    automation::String Tag() const;
    void Tag(const automation::String& value);
    bool Default() const;
    void Default(bool value);
    bool Cancel() const;
    void Cancel(bool value);
    automation::Ref<automation::Object> Parent() const;
    automation::Ref<automation::Object> Container() const;

    /// All four at once, with one Resize.
    void Move(float left, float top, float width, float height);
    void ZOrder(ZOrderPosition position = ZOrderPosition::Front);
    /// Throws automation::Error 5 if the control can't take the focus now.
    void SetFocus();

    automation::Event<> GotFocus;
    automation::Event<> LostFocus;
    /// Before the focus goes to a control that causes validation; True in the argument keeps it here.
    automation::Event<bool&> Validate;

    const automation::ClassTable& classTable() const override { return table(); }
    static const automation::ClassTable& table();

private:
    void MoveBy(float left, const automation::Variant& top, const automation::Variant& width,
                const automation::Variant& height);
    ControlSite& site() const;
    automation::Variant value(ExtenderValue which) const;

    Control& control_;
};

} // namespace host
