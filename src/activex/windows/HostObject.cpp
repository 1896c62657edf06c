#include "activex/windows/HostObject.h"

#include "activex/windows/Failures.h"
#include "activex/windows/Values.h"

#include <unordered_map>
#include <vector>

namespace activex {

using automation::Arguments;
using automation::CallKind;
using automation::Ref;
using automation::String;
using automation::Variant;

namespace {

/// By the identity of the program's object. Their references are counted by whoever holds them.
std::unordered_map<::IUnknown*, HostObject*>& known() {
    static auto& objects = *new std::unordered_map<::IUnknown*, HostObject*>;
    return objects;
}

/// The arguments of a call in the system's form: backwards, references as references to variables of the
/// same type.
class OutgoingArguments {
public:
    explicit OutgoingArguments(std::span<const Variant> values)
        : values_(values), holders_(values.size()), list_(values.size()) {
        for (std::size_t i = 0; i < values.size(); ++i) {
            ::VARIANT& holder = holders_[i];
            toSystem(values[i], holder);
            list_[values.size() - 1 - i] = values[i].isByRef() ? reference(values[i], holder) : holder;
        }
    }

    std::vector<::VARIANT>& list() { return list_; }
    /// What the callee changed goes to the variables that were passed by reference.
    void writeBack() const {
        for (std::size_t i = 0; i < values_.size(); ++i)
            if (values_[i].isByRef()) values_[i].storeThrough(fromSystem(holders_[i]));
    }

private:
    static ::VARIANT reference(const Variant& value, ::VARIANT& holder) {
        if (value.type() != (VT_BYREF | VT_VARIANT)) return referenceTo(holder);
        ::VARIANT result;
        ::VariantInit(&result);
        result.vt = VT_BYREF | VT_VARIANT;
        result.pvarVal = &holder;
        return result;
    }

    std::span<const Variant> values_;
    std::vector<SystemValue> holders_;
    std::vector<::VARIANT> list_;
};

String nameOf(::ITypeInfo& type) {
    ::BSTR name = nullptr;
    if (FAILED(type.GetDocumentation(MEMBERID_NIL, &name, nullptr, nullptr, nullptr))) return {};
    String result = fromBstr(name);
    ::SysFreeString(name);
    return result;
}

/// A class by the name of its default interface, which by custom is that name behind an underscore.
std::u16string_view withoutUnderscore(std::u16string_view name) {
    return name.starts_with(u'_') ? name.substr(1) : name;
}

WORD flagsOf(CallKind kind) {
    return static_cast<WORD>(kind);
}

} // namespace

HostObject::HostObject(ComPointer<::IDispatch> object, ComPointer<::IUnknown> identity)
    : object_(std::move(object)), identity_(std::move(identity)) {}

HostObject::~HostObject() {
    known().erase(identity_.get());
}

Ref<HostObject> HostObject::of(::IDispatch& object) {
    ComPointer<::IUnknown> identity = ComPointer<::IUnknown>::of(&object);
    const auto found = known().find(identity.get());
    if (found != known().end()) return found->second;
    auto* const key = identity.get();
    auto fresh =
        Ref<HostObject>::adopt(new HostObject(ComPointer<::IDispatch>(&object), std::move(identity)));
    known()[key] = fresh.get();
    return fresh;
}

const automation::ClassTable& HostObject::classTable() const {
    static const automation::ClassTable table = automation::ClassTable::of<HostObject>("Object");
    return table;
}

String HostObject::typeName() const {
    ComPointer<::ITypeInfo> type;
    if (const auto described = ComPointer<::IProvideClassInfo>::of(object_.get()))
        described->GetClassInfo(type.out());
    if (type) return nameOf(*type.get());
    if (FAILED(object_->GetTypeInfo(0, LOCALE_USER_DEFAULT, type.out())) || !type) return classTable().name();
    const String name = nameOf(*type.get());
    return withoutUnderscore(name);
}

std::int32_t HostObject::memberId(std::u16string_view name) const {
    const String text(name);
    auto* names = const_cast<wchar_t*>(wide(text.c_str()));
    ::DISPID id = DISPID_UNKNOWN;
    const ::HRESULT result = object_->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id);
    return FAILED(result) ? DISPID_UNKNOWN : static_cast<std::int32_t>(id);
}

Variant HostObject::invoke(std::int32_t id, CallKind kind, const Arguments& arguments) {
    constexpr std::int32_t noNamedArguments = 446;
    if (!arguments.named.empty()) automation::throwError(noNamedArguments);
    const Ref<Object> alive(this);
    OutgoingArguments outgoing(arguments.positional);
    ::DISPID newValue = DISPID_PROPERTYPUT;
    const bool writes = includes(kind, CallKind::Let | CallKind::Set);
    ::DISPPARAMS parameters{outgoing.list().data(), writes ? &newValue : nullptr,
                            static_cast<::UINT>(outgoing.list().size()), writes ? 1u : 0u};
    SystemValue result;
    ::EXCEPINFO exception{};
    const ::HRESULT code = object_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flagsOf(kind), &parameters,
                                           writes ? nullptr : &result, &exception, nullptr);
    if (FAILED(code)) throw fromException(code, exception);
    outgoing.writeBack();
    return fromSystem(result);
}

} // namespace activex
