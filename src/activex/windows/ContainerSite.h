#pragma once

#include "activex/windows/ComPointer.h"

#include <span>

namespace activex {

class ControlObject;

/// The number under which containers know an ambient value.
struct AmbientId {
    ::DISPID id;
    host::AmbientValue value;
};
std::span<const AmbientId> ambientIds();

/// A control's container as the control sees it, made of the interfaces that the container gives. Where the
/// container keeps no properties for its controls (no extended control), a few are kept here.
class ContainerSite final : public host::ControlSite {
public:
    explicit ContainerSite(ControlObject& owner) : owner_(owner) {}

    automation::Variant ambientValue(host::AmbientValue which) override;
    automation::Variant extenderValue(host::ExtenderValue which) override;
    void setExtenderValue(host::ExtenderValue which, const automation::Variant& value) override;
    void move(float left, float top, float width, float height) override;
    void requestSize(float widthTwips, float heightTwips) override;
    void propertyChanged(std::u16string_view name) override;
    void accessKeysChanged() override;
    void zOrder(host::ZOrderPosition position) override;
    bool takeFocus() override;
    bool translateKey(platform::UINT message, platform::WPARAM& wParam, platform::LPARAM lParam) override;
    bool focusArrived() override;
    bool focusLeaving(platform::HWND next) override;
    void paintBehind(platform::HDC dc) override;
    void enabledChanged() override;
    void mouseActivity(platform::UINT, const automation::String&) override {}

    /// The container is being designed: its controls are seen and not used.
    bool isDesigning();

private:
    automation::Ref<automation::Object> extended() const;
    automation::Variant ownValue(host::ExtenderValue which) const;
    void setOwnValue(host::ExtenderValue which, const automation::Variant& value);
    void setTabStop(bool value);
    template <class F>
    bool inExtended(const F& action) const;

    ControlObject& owner_;
    automation::String name_;
    automation::String toolTipText_;
    automation::String tag_;
    bool tabStop_ = true;
    bool causesValidation_ = true;
};

} // namespace activex
