#include "host/Control.h"

#include "host/ScaleMode.h"

namespace host {

namespace {

/// The extender's members are numbered from here, out of the way of a class's own.
constexpr std::int32_t ExtenderIds = 0x10000;

} // namespace

platform::RECT Bounds::pixels() const {
    return {pixelsFromTwips(left, Axis::Horizontal), pixelsFromTwips(top, Axis::Vertical),
            pixelsFromTwips(double(left) + width, Axis::Horizontal),
            pixelsFromTwips(double(top) + height, Axis::Vertical)};
}

Control::Control() : extender_(*this), ambient_(*this) {}

Control::~Control() = default;

void Control::enter(ControlSite& site, DrawingWindow* container, platform::HWND, const Bounds& bounds) {
    site_ = &site;
    container_ = container;
    bounds_ = bounds;
}

void Control::leave() {
    site_ = nullptr;
    container_ = nullptr;
}

void Control::applyBounds(const Bounds& bounds) {
    bounds_ = bounds;
}

std::int32_t Control::memberId(std::u16string_view name) const {
    const std::int32_t own = Object::memberId(name);
    if (own != automation::DISPID_UNKNOWN) return own;
    const std::int32_t extended = extender_.memberId(name);
    return extended == automation::DISPID_UNKNOWN ? extended : ExtenderIds + extended;
}

automation::Variant Control::invoke(std::int32_t id, automation::CallKind kind,
                                    const automation::Arguments& arguments) {
    if (id >= ExtenderIds) return extender_.invoke(id - ExtenderIds, kind, arguments);
    return Object::invoke(id, kind, arguments);
}

automation::EventBase* Control::eventByName(std::u16string_view name) {
    if (auto* own = Object::eventByName(name)) return own;
    return extender_.eventByName(name);
}

} // namespace host
