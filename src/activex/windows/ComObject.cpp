#include "activex/windows/ComObject.h"

#include "activex/windows/CallArguments.h"
#include "activex/windows/ControlObject.h"
#include "activex/windows/Enumerator.h"
#include "activex/windows/Failures.h"
#include "activex/windows/TypeInformation.h"
#include "activex/windows/Values.h"
#include "automation/Names.h"

#include <unordered_map>

namespace activex {

using automation::CallKind;
using automation::Member;
using automation::Object;
using automation::Ref;
using automation::Variant;

namespace {

std::unordered_map<Object*, ComObject*>& faces() {
    static auto& all = *new std::unordered_map<Object*, ComObject*>;
    return all;
}

/// An event's argument as sinks get it: of the type that the table states, by reference where it says so.
void prepare(const automation::Parameter& parameter, const Variant& value, ::VARIANT& holder,
             ::VARIANT& argument) {
    toSystem(value, holder);
    if (!(parameter.type.tag & VT_ARRAY) && !parameter.type.record) changeType(holder, parameter.type.tag);
    if (!parameter.byReference) {
        argument = holder;
    } else if (parameter.type.tag == VT_VARIANT) {
        ::VariantInit(&argument);
        argument.vt = VT_BYREF | VT_VARIANT;
        argument.pvarVal = &holder;
    } else {
        argument = referenceTo(holder);
    }
}

/// The place of the parameter of that name; -1 where the member has none.
::DISPID parameterNamed(const automation::ClassTable& table, ::DISPID id, std::u16string_view name) {
    for (const Member& member : table.members()) {
        if (member.id != id || member.kind == automation::MemberKind::Event) continue;
        for (std::size_t i = 0; i < member.parameters.size(); ++i) {
            const automation::String& own = member.parameters[i].name;
            if (automation::sameName(own, name) || automation::sameName(plainName(own), name))
                return static_cast<::DISPID>(i);
        }
    }
    return DISPID_UNKNOWN;
}

::DISPID memberNamed(const Object& object, std::u16string_view name) {
    const std::int32_t id = object.memberId(name);
    if (id != DISPID_UNKNOWN) return id;
    for (const Member& member : object.classTable().members())
        if (member.kind != automation::MemberKind::Event &&
            automation::sameName(plainName(member.name), name))
            return member.id;
    return DISPID_UNKNOWN;
}

} // namespace

const ::IID& OwnObject::id() {
    static const Guid own = Guid::parse("ae375ee6-bb39-4b60-afcf-11d55ccfed6b");
    return native(own);
}

ComObject::ComObject(Ref<Object> object, ::IUnknown* outer)
    : object_(std::move(object)), exported_(exportedClass(object_->classTable())), inner_(*this),
      outer_(outer ? outer : &inner_), events_(*this, exported_ ? exported_->eventsId() : Guid()) {
    faces()[object_.get()] = this;
}

ComObject::~ComObject() {
    for (const auto& [event, cookie] : joined_)
        event->leave(cookie);
    faces().erase(object_.get());
}

::IUnknown* ComObject::create(Ref<Object> object, ::IUnknown* outer) {
    if (auto* control = dynamic_cast<host::UserControl*>(object.get()))
        return &(new ControlObject(Ref<host::UserControl>(control), outer))->inner_;
    return &(new ComObject(std::move(object), outer))->inner_;
}

::IDispatch* ComObject::of(Object& object) {
    const auto found = faces().find(&object);
    if (found != faces().end()) return ComPointer<::IDispatch>::of(&found->second->outer()).detach();
    // Only controls that a program created stand in one of its containers.
    return new ComObject(Ref<Object>(&object), nullptr);
}

// Counting

::HRESULT ComObject::Inner::QueryInterface(REFIID id, void** result) {
    if (!result) return E_POINTER;
    *result = nullptr;
    if (id == __uuidof(::IUnknown)) {
        AddRef();
        *result = static_cast<::IUnknown*>(this);
        return S_OK;
    }
    *result = owner_.find(id);
    if (!*result) return E_NOINTERFACE;
    owner_.AddRef();
    return S_OK;
}

::ULONG ComObject::Inner::AddRef() {
    return ++count_;
}

::ULONG ComObject::Inner::Release() {
    const ::ULONG left = --count_;
    if (left != 0) return left;
    count_ = 1; // what ends now may be counted again on the way, but not end twice
    owner_.finish();
    delete &owner_;
    return 0;
}

::HRESULT ComObject::QueryInterface(REFIID id, void** result) {
    return outer_->QueryInterface(id, result);
}

::ULONG ComObject::AddRef() {
    return outer_->AddRef();
}

::ULONG ComObject::Release() {
    return outer_->Release();
}

void* ComObject::find(REFIID id) {
    if (id == __uuidof(::IDispatch)) return static_cast<::IDispatch*>(this);
    if (exported_ && id == native(exported_->interfaceId())) return static_cast<::IDispatch*>(this);
    if (id == OwnObject::id()) return static_cast<OwnObject*>(this);
    if (id == __uuidof(::ISupportErrorInfo)) return static_cast<::ISupportErrorInfo*>(this);
    if (!exported_) return nullptr;
    if (id == __uuidof(::IProvideClassInfo) || id == __uuidof(::IProvideClassInfo2))
        return static_cast<::IProvideClassInfo2*>(this);
    if (id == __uuidof(::IConnectionPointContainer)) return static_cast<::IConnectionPointContainer*>(this);
    return nullptr;
}

// Calls by name

std::u16string ComObject::source() const {
    return std::u16string(libraryName) + u"." + object_->classTable().name().string();
}

::HRESULT ComObject::GetTypeInfoCount(::UINT* count) {
    if (!count) return E_POINTER;
    *count = exported_ ? 1 : 0;
    return S_OK;
}

::HRESULT ComObject::GetTypeInfo(::UINT which, ::LCID, ::ITypeInfo** result) {
    if (!result) return E_POINTER;
    *result = nullptr;
    if (which != 0 || !exported_) return DISP_E_BADINDEX;
    *result = typeInformation(exported_->interfaceId()).detach();
    return *result ? S_OK : TYPE_E_CANTLOADLIBRARY;
}

::HRESULT ComObject::GetIDsOfNames(REFIID id, ::LPOLESTR* names, ::UINT count, ::LCID, ::DISPID* ids) {
    if (id != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    if (!names || !ids || count == 0) return E_INVALIDARG;
    return guarded([&]() -> ::HRESULT {
        const auto text = [&](::UINT which) {
            return std::u16string_view(names[which] ? reinterpret_cast<const char16_t*>(names[which]) : u"");
        };
        ids[0] = memberNamed(*object_, text(0));
        bool known = ids[0] != DISPID_UNKNOWN;
        for (::UINT i = 1; i < count; ++i) {
            ids[i] = parameterNamed(object_->classTable(), ids[0], text(i));
            known = known && ids[i] != DISPID_UNKNOWN;
        }
        return known ? S_OK : DISP_E_UNKNOWNNAME;
    });
}

::HRESULT ComObject::Invoke(::DISPID member, REFIID id, ::LCID, WORD flags, ::DISPPARAMS* parameters,
                            ::VARIANT* result, ::EXCEPINFO* exception, ::UINT*) {
    if (id != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    constexpr WORD all =
        DISPATCH_METHOD | DISPATCH_PROPERTYGET | DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF;
    if (!parameters || (flags & all) == 0 || (flags & ~all) != 0) return E_INVALIDARG;
    if (parameters->cArgs != 0 && !parameters->rgvarg) return E_INVALIDARG;
    if (parameters->cNamedArgs != 0 && !parameters->rgdispidNamedArgs) return E_INVALIDARG;
    const auto fail = [&](const automation::Error& error) -> ::HRESULT {
        if (exception) describe(error, source(), *exception);
        return DISP_E_EXCEPTION;
    };
    if (result) ::VariantInit(result);
    try {
        const Ref<Object> alive = object_; // the call may drop this face
        const auto kind = static_cast<CallKind>(flags);
        const bool writes = includes(kind, CallKind::Let | CallKind::Set);
        const CallArguments arguments(*parameters, alive->classTable().member(member, kind), writes);
        const Variant value = alive->invoke(member, kind, arguments.arguments());
        arguments.writeBack();
        if (result) toSystem(value, *result);
        return S_OK;
    } catch (const automation::Error& error) {
        return fail(error);
    } catch (const std::bad_alloc&) {
        return fail(automation::Error(automation::errors::OutOfMemory));
    } catch (...) {
        return E_UNEXPECTED;
    }
}

// What the class is

::HRESULT ComObject::GetClassInfo(::ITypeInfo** result) {
    if (!result) return E_POINTER;
    *result = exported_ ? typeInformation(exported_->id).detach() : nullptr;
    return *result ? S_OK : TYPE_E_CANTLOADLIBRARY;
}

::HRESULT ComObject::GetGUID(DWORD kind, ::GUID* result) {
    if (!result) return E_POINTER;
    *result = {};
    if (kind != GUIDKIND_DEFAULT_SOURCE_DISP_IID) return E_INVALIDARG;
    if (!exported_ || !exported_->hasEvents()) return E_FAIL;
    *result = native(exported_->eventsId());
    return S_OK;
}

::HRESULT ComObject::InterfaceSupportsErrorInfo(REFIID id) {
    return find(id) ? S_OK : S_FALSE;
}

// Events

std::vector<ConnectionPoint*> ComObject::connectionPoints() {
    if (exported_ && exported_->hasEvents()) return {&events_};
    return {};
}

::HRESULT ComObject::EnumConnectionPoints(::IEnumConnectionPoints** result) {
    if (!result) return E_POINTER;
    *result = nullptr;
    return guarded([&]() -> ::HRESULT {
        std::vector<ComPointer<::IConnectionPoint>> points;
        for (ConnectionPoint* point : connectionPoints())
            points.emplace_back(point);
        *result = new Enumerator<::IEnumConnectionPoints, ::IConnectionPoint*>(std::move(points));
        return S_OK;
    });
}

::HRESULT ComObject::FindConnectionPoint(REFIID id, ::IConnectionPoint** result) {
    if (!result) return E_POINTER;
    *result = nullptr;
    return guarded([&]() -> ::HRESULT {
        for (ConnectionPoint* point : connectionPoints()) {
            if (point->id() != fromNative(id)) continue;
            if (point == &events_) joinEvents();
            point->AddRef();
            *result = point;
            return S_OK;
        }
        return CONNECT_E_NOCONNECTION;
    });
}

void ComObject::joinEvents() {
    if (!joined_.empty()) return;
    for (const Member& member : object_->classTable().members()) {
        if (member.kind != automation::MemberKind::Event) continue;
        automation::EventBase& event = member.event(*object_);
        joined_.emplace_back(&event, event.joinLate([this, &member](std::span<Variant> arguments) {
            raise(member, arguments);
        }));
    }
}

void ComObject::raise(const Member& event, std::span<Variant> arguments) {
    if (events_.empty() || eventsFrozen()) return;
    const ComPointer<::IUnknown> alive(&outer()); // a sink may drop the last reference
    try {
        std::vector<SystemValue> holders(arguments.size());
        std::vector<::VARIANT> list(arguments.size());
        for (std::size_t i = 0; i < arguments.size(); ++i)
            prepare(event.parameters[i], arguments[i], holders[i], list[arguments.size() - 1 - i]);
        events_.callEach([&](::IUnknown& sink) {
            const auto listener = ComPointer<::IDispatch>(static_cast<::IDispatch*>(&sink));
            ::DISPPARAMS parameters{list.data(), nullptr, static_cast<::UINT>(list.size()), 0};
            listener->Invoke(event.id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr,
                             nullptr, nullptr);
        });
        for (std::size_t i = 0; i < arguments.size(); ++i)
            if (event.parameters[i].byReference) arguments[i].store(fromSystem(holders[i]));
    } catch (const automation::Error&) {
        // What a sink made of an argument does not fit it: the argument stays.
    }
}

} // namespace activex
