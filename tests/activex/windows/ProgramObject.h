#pragma once
// An object of a program: what it does is stated by the test.

#include "activex/windows/ControlLibrary.h"
#include "activex/windows/Counted.h"

#include <functional>
#include <string>
#include <vector>

namespace support {

/// What tells the class of an object.
class ClassInfo final : public activex::Counted<::IProvideClassInfo> {
public:
    explicit ClassInfo(ComPointer<::ITypeInfo> type) : type_(std::move(type)) {}
    ::HRESULT STDMETHODCALLTYPE GetClassInfo(::ITypeInfo** type) override {
        *type = ComPointer(type_).detach();
        return S_OK;
    }

private:
    ComPointer<::ITypeInfo> type_;
};

/// Answers calls by name through a function; as a listener also the calls of events by their number.
class ProgramObject final : public activex::Counted<::IDispatch> {
public:
    /// The member's number, the arguments in their order, and the result to be set.
    using Answerer = std::function<::HRESULT(::DISPID, std::vector<::VARIANT*>&, ::VARIANT*)>;

    explicit ProgramObject(std::vector<std::wstring> names = {}, Answerer answerer = {})
        : answerer_(std::move(answerer)), names_(std::move(names)) {}

    /// The interface of events that it listens to, beside that of calls by name.
    void listenTo(const ::IID& id) { events_ = id; }
    /// What it tells of its interface and of its class; null, as at first, tells nothing.
    void describe(ComPointer<::ITypeInfo> interfaceType, ComPointer<::ITypeInfo> classType = {}) {
        interfaceType_ = std::move(interfaceType);
        classType_ = std::move(classType);
    }
    /// How it was called the last time: DISPATCH_METHOD and its like.
    WORD calledAs() const { return calledAs_; }
    ::ULONG references() {
        AddRef();
        return Release();
    }

    ::HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** result) override {
        if (result && id == events_ && id != IID_NULL) {
            AddRef();
            *result = static_cast<::IDispatch*>(this);
            return S_OK;
        }
        if (result && classType_ && id == __uuidof(::IProvideClassInfo)) {
            *result = new ClassInfo(classType_);
            return S_OK;
        }
        return Counted::QueryInterface(id, result);
    }
    ::HRESULT STDMETHODCALLTYPE GetTypeInfoCount(::UINT* count) override {
        *count = interfaceType_ ? 1 : 0;
        return S_OK;
    }
    ::HRESULT STDMETHODCALLTYPE GetTypeInfo(::UINT, ::LCID, ::ITypeInfo** type) override {
        if (!interfaceType_) return E_NOTIMPL;
        *type = ComPointer(interfaceType_).detach();
        return S_OK;
    }
    ::HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, ::LPOLESTR* names, ::UINT, ::LCID,
                                              ::DISPID* ids) override {
        for (std::size_t i = 0; i < names_.size(); ++i) {
            if (::lstrcmpiW(names_[i].c_str(), names[0]) != 0) continue;
            ids[0] = static_cast<::DISPID>(i) + 1;
            return S_OK;
        }
        ids[0] = DISPID_UNKNOWN;
        return DISP_E_UNKNOWNNAME;
    }
    ::HRESULT STDMETHODCALLTYPE Invoke(::DISPID id, REFIID, ::LCID, WORD flags, ::DISPPARAMS* parameters,
                                       ::VARIANT* result, ::EXCEPINFO*, ::UINT*) override {
        calledAs_ = flags;
        const activex::ComPointer<::IDispatch> alive(this);
        std::vector<::VARIANT*> arguments;
        for (::UINT i = parameters->cArgs; i-- > 0;)
            arguments.push_back(&parameters->rgvarg[i]);
        const Answerer answerer = answerer_;
        return answerer ? answerer(id, arguments, result) : S_OK;
    }

private:
    Answerer answerer_;
    std::vector<std::wstring> names_;
    WORD calledAs_ = 0;
    ::IID events_{};
    ComPointer<::ITypeInfo> interfaceType_;
    ComPointer<::ITypeInfo> classType_;
};

inline ComPointer<ProgramObject> programObject(std::vector<std::wstring> names = {},
                                               ProgramObject::Answerer answerer = {}) {
    return ComPointer<ProgramObject>::adopt(new ProgramObject(std::move(names), std::move(answerer)));
}

/// Connects a listener to the events of an object of that class; the cookie, 0 if it is refused.
DWORD listen(::IDispatch& object, std::u16string_view className, ::IUnknown& listener);
void stopListening(::IDispatch& object, std::u16string_view className, DWORD cookie);

} // namespace support
