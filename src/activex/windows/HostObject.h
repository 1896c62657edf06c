#pragma once

#include "activex/windows/ComPointer.h"
#include "activex/windows/ModuleUse.h"

namespace activex {

/// An object of the program that loaded the library, called by the names of its members.
class HostObject final : public automation::Object {
public:
    /// The one for that object of the program; a second question gives the same as long as it lives.
    static automation::Ref<HostObject> of(::IDispatch& object);
    ~HostObject() override;

    ::IDispatch& dispatch() const { return *object_.get(); }

    const automation::ClassTable& classTable() const override;
    /// The class's name where the object tells its class, or else its interface's without a leading
    /// underscore.
    automation::String typeName() const override;
    std::int32_t memberId(std::u16string_view name) const override;
    automation::Variant invoke(std::int32_t id, automation::CallKind kind,
                               const automation::Arguments& arguments) override;

private:
    HostObject(ComPointer<::IDispatch> object, ComPointer<::IUnknown> identity);

    ModuleUse use_;
    ComPointer<::IDispatch> object_;
    ComPointer<::IUnknown> identity_;
};

} // namespace activex
