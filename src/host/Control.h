#pragma once

#include "automation/Object.h"
#include "host/Ambient.h"
#include "host/ControlSite.h"
#include "host/Extender.h"

namespace host {

class DrawingWindow;
class PropertyBag;

/// A place in a container, in twips.
struct Bounds {
    float left = 0;
    float top = 0;
    float width = 0;
    float height = 0;
    friend bool operator==(const Bounds&, const Bounds&) = default;
    /// In whole pixels: each edge is rounded by itself.
    platform::RECT pixels() const;
};

/// Anything that can stand in a container: a UserControl with a window of its own or a windowless one such
/// as Label. The public part is for programs; the rest is what containers call, in this order: `enter`
/// once, `initProperties` or `readProperties` once, then bounds, visibility, ambient changes and
/// `writeProperties` as they come, and `leave` once.
class Control : public automation::Object {
public:
    Control();
    ~Control() override;

    host::Extender& Extender() { return extender_; }
    const host::Extender& Extender() const { return extender_; }
    host::Ambient& Ambient() { return ambient_; }
    const host::Ambient& Ambient() const { return ambient_; }

    /// Null while the control stands in no container.
    ControlSite* site() const { return site_; }
    /// The window or picture box that holds the control; null outside of C++ containers.
    DrawingWindow* containerWindow() const { return container_; }
    const Bounds& bounds() const { return bounds_; }

    /// Puts the control into a container. `container` is null where `parent` belongs to a foreign one.
    virtual void enter(ControlSite& site, DrawingWindow* container, platform::HWND parent,
                       const Bounds& bounds);
    /// Takes it out: its window goes, Terminate is raised.
    virtual void leave();

    virtual void initProperties() {}
    virtual void readProperties(PropertyBag&) {}
    virtual void writeProperties(PropertyBag&) {}
    virtual void applyBounds(const Bounds& bounds);
    virtual void applyVisible(bool visible) = 0;
    virtual void ambientChanged(const automation::String&) {}
    /// The user pressed one of the control's access keys, or Enter or Esc of a default or cancel control.
    virtual void accessKeyPress(short) {}
    /// Characters that reach the control with Alt, in upper case.
    virtual automation::String accessKeys() const { return {}; }
    /// Zero for a windowless control.
    virtual platform::HWND window() const { return {}; }
    virtual bool enabled() const { return true; }
    /// Whether the focus may come to it at all; its visibility, `enabled` and TabStop are asked apart.
    virtual bool canGetFocus() const { return false; }
    /// The focus has gone for good (the container held the news back while it validated).
    virtual void focusLeft() {}

    /// A new control of the same class, for control arrays; null for a class that makes none.
    virtual automation::Ref<Control> another() const { return {}; }

    // Behind the class's own members come the extender's.
    std::int32_t memberId(std::u16string_view name) const override;
    automation::Variant invoke(std::int32_t id, automation::CallKind kind,
                               const automation::Arguments& arguments) override;
    automation::EventBase* eventByName(std::u16string_view name) override;

protected:
    void setBounds(const Bounds& bounds) { bounds_ = bounds; }

private:
    ControlSite* site_ = nullptr;
    DrawingWindow* container_ = nullptr;
    Bounds bounds_;
    host::Extender extender_;
    host::Ambient ambient_;
};

} // namespace host
