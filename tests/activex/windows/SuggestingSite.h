#pragma once

#include "activex/windows/ControlLibrary.h"

namespace support {

/// A control's site of another container, with ambient properties that a program adds. It lives longer than
/// it is the control's site.
class SuggestingSite final : public ::IOleClientSite, public ::IDispatch {
public:
    explicit SuggestingSite(ComPointer<::IOleClientSite> site) : site_(std::move(site)) {}
    SuggestingSite(const SuggestingSite&) = delete;
    SuggestingSite& operator=(const SuggestingSite&) = delete;
    virtual ~SuggestingSite() = default;

    bool userMode = true;

    ::HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** result) override {
        *result = nullptr;
        if (id == IID_IUnknown || id == IID_IOleClientSite) *result = static_cast<::IOleClientSite*>(this);
        if (id == IID_IDispatch) *result = static_cast<::IDispatch*>(this);
        return *result ? S_OK : site_->QueryInterface(id, result);
    }
    ::ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ::ULONG STDMETHODCALLTYPE Release() override { return 1; }
    // IOleClientSite: what the other container does
    ::HRESULT STDMETHODCALLTYPE SaveObject() override { return site_->SaveObject(); }
    ::HRESULT STDMETHODCALLTYPE GetMoniker(DWORD assign, DWORD which, ::IMoniker** result) override {
        return site_->GetMoniker(assign, which, result);
    }
    ::HRESULT STDMETHODCALLTYPE GetContainer(::IOleContainer** result) override {
        return site_->GetContainer(result);
    }
    ::HRESULT STDMETHODCALLTYPE ShowObject() override { return site_->ShowObject(); }
    ::HRESULT STDMETHODCALLTYPE OnShowWindow(BOOL show) override { return site_->OnShowWindow(show); }
    ::HRESULT STDMETHODCALLTYPE RequestNewObjectLayout() override { return site_->RequestNewObjectLayout(); }
    // IDispatch
    ::HRESULT STDMETHODCALLTYPE GetTypeInfoCount(::UINT* count) override { return *count = 0, S_OK; }
    ::HRESULT STDMETHODCALLTYPE GetTypeInfo(::UINT, ::LCID, ::ITypeInfo**) override { return E_NOTIMPL; }
    ::HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, ::LPOLESTR*, ::UINT, ::LCID, ::DISPID*) override {
        return DISP_E_UNKNOWNNAME;
    }
    ::HRESULT STDMETHODCALLTYPE Invoke(::DISPID id, REFIID, ::LCID, WORD, ::DISPPARAMS*, ::VARIANT* result,
                                       ::EXCEPINFO*, ::UINT*) override {
        if (id != DISPID_AMBIENT_USERMODE) return DISP_E_MEMBERNOTFOUND;
        result->vt = VT_BOOL;
        result->boolVal = userMode ? VARIANT_TRUE : VARIANT_FALSE;
        return S_OK;
    }

private:
    ComPointer<::IOleClientSite> site_;
};

} // namespace support
