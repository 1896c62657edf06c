#pragma once
// What a container answers that has nothing for its controls. Containers of tests state what they do beyond
// that.

#include "activex/windows/System.h"

namespace support {

/// The site of a control. It does not count who holds it.
class EmptySite : public ::IOleClientSite,
                  public ::IOleInPlaceSite,
                  public ::IOleControlSite,
                  public ::IDispatch,
                  public ::IPropertyNotifySink {
public:
    EmptySite() = default;
    EmptySite(const EmptySite&) = delete;
    EmptySite& operator=(const EmptySite&) = delete;
    virtual ~EmptySite() = default;

    ::ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ::ULONG STDMETHODCALLTYPE Release() override { return 1; }
    // IOleClientSite
    ::HRESULT STDMETHODCALLTYPE SaveObject() override { return S_OK; }
    ::HRESULT STDMETHODCALLTYPE GetMoniker(DWORD, DWORD, ::IMoniker**) override { return E_NOTIMPL; }
    ::HRESULT STDMETHODCALLTYPE GetContainer(::IOleContainer** result) override {
        *result = nullptr;
        return E_NOINTERFACE;
    }
    ::HRESULT STDMETHODCALLTYPE ShowObject() override { return S_OK; }
    ::HRESULT STDMETHODCALLTYPE OnShowWindow(BOOL) override { return S_OK; }
    ::HRESULT STDMETHODCALLTYPE RequestNewObjectLayout() override { return E_NOTIMPL; }
    // IOleInPlaceSite
    ::HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
    ::HRESULT STDMETHODCALLTYPE CanInPlaceActivate() override { return S_OK; }
    ::HRESULT STDMETHODCALLTYPE OnInPlaceActivate() override { return S_OK; }
    ::HRESULT STDMETHODCALLTYPE OnUIActivate() override { return S_OK; }
    ::HRESULT STDMETHODCALLTYPE Scroll(::SIZE) override { return E_NOTIMPL; }
    ::HRESULT STDMETHODCALLTYPE OnUIDeactivate(BOOL) override { return S_OK; }
    ::HRESULT STDMETHODCALLTYPE OnInPlaceDeactivate() override { return S_OK; }
    ::HRESULT STDMETHODCALLTYPE DiscardUndoState() override { return E_NOTIMPL; }
    ::HRESULT STDMETHODCALLTYPE DeactivateAndUndo() override { return E_NOTIMPL; }
    // IOleControlSite
    ::HRESULT STDMETHODCALLTYPE OnControlInfoChanged() override { return S_OK; }
    ::HRESULT STDMETHODCALLTYPE LockInPlaceActive(BOOL) override { return E_NOTIMPL; }
    ::HRESULT STDMETHODCALLTYPE GetExtendedControl(::IDispatch** result) override {
        *result = nullptr;
        return E_NOTIMPL;
    }
    ::HRESULT STDMETHODCALLTYPE TransformCoords(::POINTL*, ::POINTF*, DWORD) override { return E_NOTIMPL; }
    ::HRESULT STDMETHODCALLTYPE TranslateAccelerator(::MSG*, DWORD) override { return S_FALSE; }
    ::HRESULT STDMETHODCALLTYPE OnFocus(BOOL) override { return S_OK; }
    ::HRESULT STDMETHODCALLTYPE ShowPropertyFrame() override { return E_NOTIMPL; }
    // IDispatch: the ambient properties, which are called by their numbers
    ::HRESULT STDMETHODCALLTYPE GetTypeInfoCount(::UINT* count) override { return *count = 0, S_OK; }
    ::HRESULT STDMETHODCALLTYPE GetTypeInfo(::UINT, ::LCID, ::ITypeInfo**) override { return E_NOTIMPL; }
    ::HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, ::LPOLESTR*, ::UINT, ::LCID, ::DISPID*) override {
        return DISP_E_UNKNOWNNAME;
    }
    // IPropertyNotifySink
    ::HRESULT STDMETHODCALLTYPE OnChanged(::DISPID) override { return S_OK; }
    ::HRESULT STDMETHODCALLTYPE OnRequestEdit(::DISPID) override { return S_OK; }

protected:
    /// The interface of that identifier; null where it is none of these.
    void* find(REFIID id) {
        if (id == IID_IUnknown || id == IID_IOleClientSite) return static_cast<::IOleClientSite*>(this);
        if (id == IID_IOleInPlaceSite || id == IID_IOleWindow) return static_cast<::IOleInPlaceSite*>(this);
        if (id == IID_IOleControlSite) return static_cast<::IOleControlSite*>(this);
        if (id == IID_IDispatch) return static_cast<::IDispatch*>(this);
        if (id == IID_IPropertyNotifySink) return static_cast<::IPropertyNotifySink*>(this);
        return nullptr;
    }
};

/// The frame around the sites, without room for tools.
class EmptyFrame : public ::IOleInPlaceFrame {
public:
    EmptyFrame() = default;
    EmptyFrame(const EmptyFrame&) = delete;
    EmptyFrame& operator=(const EmptyFrame&) = delete;
    virtual ~EmptyFrame() = default;

    ::ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ::ULONG STDMETHODCALLTYPE Release() override { return 1; }
    ::HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
    ::HRESULT STDMETHODCALLTYPE GetBorder(::RECT*) override { return INPLACE_E_NOTOOLSPACE; }
    ::HRESULT STDMETHODCALLTYPE RequestBorderSpace(const ::BORDERWIDTHS*) override {
        return INPLACE_E_NOTOOLSPACE;
    }
    ::HRESULT STDMETHODCALLTYPE SetBorderSpace(const ::BORDERWIDTHS*) override { return S_OK; }
    ::HRESULT STDMETHODCALLTYPE InsertMenus(::HMENU, ::OLEMENUGROUPWIDTHS*) override { return E_NOTIMPL; }
    ::HRESULT STDMETHODCALLTYPE SetMenu(::HMENU, ::HOLEMENU, ::HWND) override { return S_OK; }
    ::HRESULT STDMETHODCALLTYPE RemoveMenus(::HMENU) override { return E_NOTIMPL; }
    ::HRESULT STDMETHODCALLTYPE SetStatusText(::LPCOLESTR) override { return S_OK; }
    ::HRESULT STDMETHODCALLTYPE EnableModeless(BOOL) override { return S_OK; }
    ::HRESULT STDMETHODCALLTYPE TranslateAccelerator(::MSG*, WORD) override { return S_FALSE; }
};

} // namespace support
