#include "activex/windows/ScriptHost.h"

#include "activex/windows/Failures.h"

#include <deque>

namespace support {

namespace {

/// The events of an object by the numbers that listeners get.
struct Events {
    ComPointer<::IConnectionPoint> point;
    ::IID id{};
    std::map<::DISPID, std::wstring> names;
};

std::map<::DISPID, std::wstring> namesOf(::ITypeInfo& type) {
    std::map<::DISPID, std::wstring> names;
    ::FUNCDESC* function = nullptr;
    for (::UINT i = 0; SUCCEEDED(type.GetFuncDesc(i, &function)); ++i) {
        ::BSTR name = nullptr;
        ::UINT count = 0;
        if (SUCCEEDED(type.GetNames(function->memid, &name, 1, &count)) && count == 1) {
            names[function->memid] = name;
            ::SysFreeString(name);
        }
        type.ReleaseFuncDesc(function);
    }
    return names;
}

/// As a host without a header of the library finds them: by what the object tells of its class.
Events eventsOf(::IDispatch& object) {
    Events events;
    ComPointer<::ITypeInfo> type;
    ComPointer<::ITypeLib> library;
    ::UINT index = 0;
    const auto information = ComPointer<::IProvideClassInfo2>::of(&object);
    const auto points = ComPointer<::IConnectionPointContainer>::of(&object);
    if (!information || !points) return events;
    if (FAILED(information->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &events.id)) ||
        FAILED(information->GetClassInfo(type.out())) ||
        FAILED(type->GetContainingTypeLib(library.out(), &index)) ||
        FAILED(library->GetTypeInfoOfGuid(events.id, type.out())))
        return events;
    events.names = namesOf(*type.get());
    points->FindConnectionPoint(events.id, events.point.out());
    return events;
}

/// An argument of an event as a variable of the script: what is written there comes back, in the event's
/// type.
class ScriptVariable {
public:
    explicit ScriptVariable(::VARIANT& argument) : argument_(argument) {
        ::VariantCopyInd(&content_, &argument);
    }

    ::VARIANT reference() {
        ::VARIANT result;
        ::VariantInit(&result);
        result.vt = VT_BYREF | VT_VARIANT;
        result.pvarVal = &content_;
        return result;
    }
    void writeBack() {
        if (!(argument_.vt & VT_BYREF)) return;
        const auto type = static_cast<VARTYPE>(argument_.vt & ~VT_BYREF);
        if (type != VT_VARIANT && FAILED(::VariantChangeType(&content_, &content_, 0, type))) return;
        activex::storeThrough(argument_, activex::fromSystem(content_));
    }

private:
    ::VARIANT& argument_;
    SystemValue content_;
};

/// Passes an event on to a procedure, its arguments in the order in which they come: backwards.
void raise(::IDispatch& procedures, const std::wstring& name, std::vector<::VARIANT*>& arguments) {
    const ::DISPID id = memberId(procedures, name.c_str());
    if (id == DISPID_UNKNOWN) return; // the script takes no notice of this one
    std::deque<ScriptVariable> variables;
    std::vector<::VARIANT> list;
    for (auto each = arguments.rbegin(); each != arguments.rend(); ++each)
        list.push_back(variables.emplace_back(**each).reference());
    call(procedures, id, DISPATCH_METHOD, {list.data(), nullptr, static_cast<::UINT>(list.size()), 0});
    for (ScriptVariable& each : variables)
        each.writeBack();
}

} // namespace

ScriptHost::ScriptHost(const wchar_t* language) {
    ::CLSID id{};
    if (FAILED(::CLSIDFromProgID(language, &id)) ||
        FAILED(::CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, __uuidof(::IActiveScript),
                                  engine_.address())))
        return;
    engine_->SetScriptSite(this);
    if (const auto parser = ComPointer<::IActiveScriptParse>::of(engine_.get())) parser->InitNew();
}

ScriptHost::~ScriptHost() {
    while (!listeners_.empty())
        disconnect(std::wstring(listeners_.begin()->first));
    if (engine_) engine_->Close();
}

void ScriptHost::add(const std::wstring& name, ::IDispatch& object) {
    objects_[name] = ComPointer<::IDispatch>(&object);
    engine_->AddNamedItem(name.c_str(), SCRIPTITEM_ISVISIBLE);
}

bool ScriptHost::run(const wchar_t* text) {
    const auto parser = ComPointer<::IActiveScriptParse>::of(engine_.get());
    if (!parser) return false;
    failure_.clear();
    const ::HRESULT parsed = parser->ParseScriptText(text, nullptr, nullptr, nullptr, 0, 0,
                                                     SCRIPTTEXT_ISVISIBLE, nullptr, nullptr);
    return SUCCEEDED(parsed) && SUCCEEDED(engine_->SetScriptState(SCRIPTSTATE_CONNECTED)) && failure_.empty();
}

int ScriptHost::connect(const std::wstring& name) {
    Events events = eventsOf(*objects_[name].get());
    if (!events.point) return 0;
    Listener listener;
    listener.point = events.point;
    listener.sink = programObject(
        {}, [this, name, names = events.names](::DISPID id, std::vector<::VARIANT*>& arguments, ::VARIANT*) {
            const auto known = names.find(id);
            const auto script = procedures();
            if (known == names.end() || !script) return E_FAIL;
            raise(*script.get(), name + L"_" + known->second, arguments);
            return S_OK;
        });
    listener.sink->listenTo(events.id);
    if (FAILED(listener.point->Advise(listener.sink.get(), &listener.cookie))) return 0;
    listeners_[name] = listener;
    return static_cast<int>(events.names.size());
}

void ScriptHost::disconnect(const std::wstring& name) {
    const auto found = listeners_.find(name);
    if (found == listeners_.end()) return;
    const Listener leaving = found->second;
    listeners_.erase(found);
    leaving.point->Unadvise(leaving.cookie);
}

Variant ScriptHost::variable(const wchar_t* name) {
    const auto script = procedures();
    return script ? call(*script.get(), name, {}, DISPATCH_PROPERTYGET).value : Variant();
}

ComPointer<::IDispatch> ScriptHost::procedures() {
    ComPointer<::IDispatch> script;
    engine_->GetScriptDispatch(nullptr, script.out());
    return script;
}

::HRESULT ScriptHost::GetLCID(::LCID* locale) {
    *locale = ::GetUserDefaultLCID();
    return S_OK;
}

::HRESULT ScriptHost::GetItemInfo(::LPCOLESTR name, DWORD wanted, ::IUnknown** object, ::ITypeInfo** type) {
    const auto found = objects_.find(name);
    if (found == objects_.end()) return TYPE_E_ELEMENTNOTFOUND;
    if (wanted & SCRIPTINFO_IUNKNOWN) *object = ComPointer<::IUnknown>::of(found->second.get()).detach();
    if (wanted & SCRIPTINFO_ITYPEINFO) {
        *type = nullptr;
        if (const auto information = ComPointer<::IProvideClassInfo>::of(found->second.get()))
            information->GetClassInfo(type);
    }
    return S_OK;
}

::HRESULT ScriptHost::OnScriptError(::IActiveScriptError* error) {
    ::EXCEPINFO exception{};
    error->GetExceptionInfo(&exception);
    failure_ = u"error " + activex::fromException(DISP_E_EXCEPTION, exception).description().string();
    return S_OK;
}

} // namespace support
