#pragma once
// A host of scripts, as programs with macros have one, that uses nothing but the system's interfaces.

#include "activex/windows/ProgramObject.h"

#include <activscp.h>

#include <map>
#include <string>

namespace support {

/// One script in a language of the system, with the objects that it knows by name. The host connects their
/// events itself: Wine's engines leave an item that is marked as a source of events alone.
class ScriptHost final : public activex::Counted<::IActiveScriptSite> {
public:
    /// "VBScript" or "JScript".
    explicit ScriptHost(const wchar_t* language);
    ScriptHost(const ScriptHost&) = delete;
    ScriptHost& operator=(const ScriptHost&) = delete;
    ~ScriptHost() override;

    /// The script sees the object under that name, from its first line on.
    void add(const std::wstring& name, ::IDispatch& object);
    /// Runs the text; false if the language doesn't take it or it fails.
    bool run(const wchar_t* text);
    /// Calls the script's procedures `name_Event` for each event of an object that was added, from now on.
    /// Gives how many events there are.
    int connect(const std::wstring& name);
    void disconnect(const std::wstring& name);
    /// The content of a variable of the script.
    Variant variable(const wchar_t* name);
    /// What went wrong last, in the engine's words.
    const std::u16string& failure() const { return failure_; }

    ::HRESULT STDMETHODCALLTYPE GetLCID(::LCID* locale) override;
    ::HRESULT STDMETHODCALLTYPE GetItemInfo(::LPCOLESTR name, DWORD wanted, ::IUnknown** object,
                                            ::ITypeInfo** type) override;
    ::HRESULT STDMETHODCALLTYPE GetDocVersionString(::BSTR*) override { return E_NOTIMPL; }
    ::HRESULT STDMETHODCALLTYPE OnScriptTerminate(const ::VARIANT*, const ::EXCEPINFO*) override {
        return S_OK;
    }
    ::HRESULT STDMETHODCALLTYPE OnStateChange(::SCRIPTSTATE) override { return S_OK; }
    ::HRESULT STDMETHODCALLTYPE OnScriptError(::IActiveScriptError* error) override;
    ::HRESULT STDMETHODCALLTYPE OnEnterScript() override { return S_OK; }
    ::HRESULT STDMETHODCALLTYPE OnLeaveScript() override { return S_OK; }

private:
    /// The listener of one object, and its connection.
    struct Listener {
        ComPointer<ProgramObject> sink;
        ComPointer<::IConnectionPoint> point;
        DWORD cookie = 0;
    };

    ComPointer<::IDispatch> procedures();

    ComPointer<::IActiveScript> engine_;
    std::map<std::wstring, ComPointer<::IDispatch>> objects_;
    std::map<std::wstring, Listener> listeners_;
    std::u16string failure_;
};

} // namespace support
