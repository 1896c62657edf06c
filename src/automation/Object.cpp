#include "automation/Object.h"

#include "automation/ClassTable.h"

namespace automation {

Object::~Object() = default;

void Object::destroy() const noexcept {
    // References that the destructors take and drop again must not delete the object a second time.
    constexpr std::int32_t dying = 0x40000000;
    count_ = dying;
    delete this;
}

String Object::typeName() const {
    return classTable().name();
}

std::int32_t Object::memberId(std::u16string_view name) const {
    return classTable().find(name);
}

Variant Object::invoke(std::int32_t id, CallKind kind, const Arguments& arguments) {
    return classTable().invoke(*this, id, kind, arguments);
}

EventBase* Object::eventByName(std::u16string_view name) {
    const Member* member = classTable().event(name);
    return member ? &member->event(*this) : nullptr;
}

Variant Object::invokeByName(std::u16string_view name, CallKind kind, const Arguments& arguments) {
    const std::int32_t id = memberId(name);
    if (id == DISPID_UNKNOWN) throwError(errors::MemberNotSupported);
    return invoke(id, kind, arguments);
}

} // namespace automation
