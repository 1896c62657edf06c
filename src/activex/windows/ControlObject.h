#pragma once

#include "activex/windows/ComObject.h"
#include "activex/windows/ContainerSite.h"

#include <memory>

namespace activex {

/// The face of a control: what `ComObject` gives, and what containers call. The control lives in a window
/// that nobody sees until the container activates it.
class ControlObject final : public ComObject,
                            public ::IOleObject,
                            public ::IOleControl,
                            public ::IOleInPlaceObject,
                            public ::IOleInPlaceActiveObject,
                            public ::IViewObject2,
                            public ::IPersistStreamInit,
                            public ::IPersistPropertyBag,
                            public ::IPersistStorage {
public:
    /// What containers are told of all controls: active while they are seen, the site first.
    static constexpr DWORD miscStatus = OLEMISC_RECOMPOSEONRESIZE | OLEMISC_CANTLINKINSIDE |
                                        OLEMISC_INSIDEOUT | OLEMISC_ACTIVATEWHENVISIBLE |
                                        OLEMISC_SETCLIENTSITEFIRST;

    ControlObject(automation::Ref<host::UserControl> control, ::IUnknown* outer);
    ~ControlObject() override;

    // What the control asks of its container, through ContainerSite.
    host::UserControl& control() const { return *control_; }
    ::IOleClientSite* client() const { return client_.get(); }
    ::IUnknown& identity() const { return outer(); }
    ComPointer<::IUnknown> keepAlive() const { return ComPointer<::IUnknown>(&outer()); }
    bool isActive() const { return inPlace_.operator bool(); }
    bool isShown() const { return shown_; }
    void show(bool visible);
    void requestPlace(const host::Bounds& wanted);
    void propertyChanged(std::u16string_view name);
    bool takeFocus();
    void focusChanged(bool here);
    bool passToContainer(::MSG& key);

    // IUnknown
    ::HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** result) override {
        return ComObject::QueryInterface(id, result);
    }
    ::ULONG STDMETHODCALLTYPE AddRef() override { return ComObject::AddRef(); }
    ::ULONG STDMETHODCALLTYPE Release() override { return ComObject::Release(); }
    // IOleObject
    ::HRESULT STDMETHODCALLTYPE SetClientSite(::IOleClientSite* site) override;
    ::HRESULT STDMETHODCALLTYPE GetClientSite(::IOleClientSite** result) override;
    ::HRESULT STDMETHODCALLTYPE SetHostNames(::LPCOLESTR, ::LPCOLESTR) override { return S_OK; }
    ::HRESULT STDMETHODCALLTYPE Close(DWORD option) override;
    ::HRESULT STDMETHODCALLTYPE SetMoniker(DWORD, ::IMoniker*) override { return E_NOTIMPL; }
    ::HRESULT STDMETHODCALLTYPE GetMoniker(DWORD, DWORD, ::IMoniker** result) override;
    ::HRESULT STDMETHODCALLTYPE InitFromData(::IDataObject*, BOOL, DWORD) override { return E_NOTIMPL; }
    ::HRESULT STDMETHODCALLTYPE GetClipboardData(DWORD, ::IDataObject** result) override;
    ::HRESULT STDMETHODCALLTYPE DoVerb(LONG verb, ::MSG* message, ::IOleClientSite* site, LONG which,
                                       ::HWND parent, const ::RECT* place) override;
    ::HRESULT STDMETHODCALLTYPE EnumVerbs(::IEnumOLEVERB** result) override;
    ::HRESULT STDMETHODCALLTYPE Update() override { return S_OK; }
    ::HRESULT STDMETHODCALLTYPE IsUpToDate() override { return S_OK; }
    ::HRESULT STDMETHODCALLTYPE GetUserClassID(::CLSID* result) override;
    ::HRESULT STDMETHODCALLTYPE GetUserType(DWORD form, ::LPOLESTR* result) override;
    ::HRESULT STDMETHODCALLTYPE SetExtent(DWORD aspect, ::SIZEL* size) override;
    ::HRESULT STDMETHODCALLTYPE GetExtent(DWORD aspect, ::SIZEL* size) override;
    ::HRESULT STDMETHODCALLTYPE Advise(::IAdviseSink* sink, DWORD* cookie) override;
    ::HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override;
    ::HRESULT STDMETHODCALLTYPE EnumAdvise(::IEnumSTATDATA** result) override;
    ::HRESULT STDMETHODCALLTYPE GetMiscStatus(DWORD aspect, DWORD* status) override;
    ::HRESULT STDMETHODCALLTYPE SetColorScheme(::LOGPALETTE*) override { return E_NOTIMPL; }
    // IOleControl
    ::HRESULT STDMETHODCALLTYPE GetControlInfo(::CONTROLINFO* info) override;
    ::HRESULT STDMETHODCALLTYPE OnMnemonic(::MSG* key) override;
    ::HRESULT STDMETHODCALLTYPE OnAmbientPropertyChange(::DISPID which) override;
    ::HRESULT STDMETHODCALLTYPE FreezeEvents(BOOL freeze) override;
    // IOleInPlaceObject, IOleInPlaceActiveObject
    ::HRESULT STDMETHODCALLTYPE GetWindow(::HWND* window) override;
    ::HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
    ::HRESULT STDMETHODCALLTYPE InPlaceDeactivate() override;
    ::HRESULT STDMETHODCALLTYPE UIDeactivate() override;
    ::HRESULT STDMETHODCALLTYPE SetObjectRects(const ::RECT* place, const ::RECT* clip) override;
    ::HRESULT STDMETHODCALLTYPE ReactivateAndUndo() override { return INPLACE_E_NOTUNDOABLE; }
    ::HRESULT STDMETHODCALLTYPE TranslateAccelerator(::MSG* key) override;
    ::HRESULT STDMETHODCALLTYPE OnFrameWindowActivate(BOOL) override { return S_OK; }
    ::HRESULT STDMETHODCALLTYPE OnDocWindowActivate(BOOL) override { return S_OK; }
    ::HRESULT STDMETHODCALLTYPE ResizeBorder(const ::RECT*, ::IOleInPlaceUIWindow*, BOOL) override {
        return S_OK;
    }
    ::HRESULT STDMETHODCALLTYPE EnableModeless(BOOL) override { return S_OK; }
    // IViewObject2
    ::HRESULT STDMETHODCALLTYPE Draw(DWORD aspect, LONG which, void* extra, ::DVTARGETDEVICE* device,
                                     ::HDC targetContext, ::HDC dc, const ::RECTL* bounds,
                                     const ::RECTL* windowBounds,
                                     BOOL(STDMETHODCALLTYPE* proceed)(::ULONG_PTR),
                                     ::ULONG_PTR token) override;
    ::HRESULT STDMETHODCALLTYPE GetColorSet(DWORD, LONG, void*, ::DVTARGETDEVICE*, ::HDC,
                                            ::LOGPALETTE** result) override;
    ::HRESULT STDMETHODCALLTYPE Freeze(DWORD, LONG, void*, DWORD*) override { return E_NOTIMPL; }
    ::HRESULT STDMETHODCALLTYPE Unfreeze(DWORD) override { return E_NOTIMPL; }
    ::HRESULT STDMETHODCALLTYPE SetAdvise(DWORD aspects, DWORD flags, ::IAdviseSink* sink) override;
    ::HRESULT STDMETHODCALLTYPE GetAdvise(DWORD* aspects, DWORD* flags, ::IAdviseSink** sink) override;
    ::HRESULT STDMETHODCALLTYPE GetExtent(DWORD aspect, LONG which, ::DVTARGETDEVICE* device,
                                          ::SIZEL* size) override;
    // IPersist and its kinds
    ::HRESULT STDMETHODCALLTYPE GetClassID(::CLSID* result) override { return GetUserClassID(result); }
    ::HRESULT STDMETHODCALLTYPE IsDirty() override { return dirty_ ? S_OK : S_FALSE; }
    ::HRESULT STDMETHODCALLTYPE InitNew() override;
    ::HRESULT STDMETHODCALLTYPE Load(::IStream* stream) override;
    ::HRESULT STDMETHODCALLTYPE Save(::IStream* stream, BOOL clearDirty) override;
    ::HRESULT STDMETHODCALLTYPE GetSizeMax(::ULARGE_INTEGER*) override { return E_NOTIMPL; }
    ::HRESULT STDMETHODCALLTYPE Load(::IPropertyBag* bag, ::IErrorLog* log) override;
    ::HRESULT STDMETHODCALLTYPE Save(::IPropertyBag* bag, BOOL clearDirty, BOOL saveAll) override;
    ::HRESULT STDMETHODCALLTYPE InitNew(::IStorage*) override { return InitNew(); }
    ::HRESULT STDMETHODCALLTYPE Load(::IStorage* storage) override;
    ::HRESULT STDMETHODCALLTYPE Save(::IStorage* storage, BOOL same) override;
    ::HRESULT STDMETHODCALLTYPE SaveCompleted(::IStorage*) override { return S_OK; }
    ::HRESULT STDMETHODCALLTYPE HandsOffStorage() override { return S_OK; }

protected:
    void* find(REFIID id) override;
    std::vector<ConnectionPoint*> connectionPoints() override;
    bool eventsFrozen() const override { return frozen_ > 0; }
    void finish() override;

private:
    class ParkingWindow;

    ::HRESULT activate(bool withUi, const ::RECT* place);
    ::HRESULT activateInPlace(const ::RECT* place);
    ::HRESULT activateUi();
    void tellFrames(::IOleInPlaceActiveObject* active);
    void load(host::PropertyBag& bag);
    ::SIZEL storedSize(const host::PropertyBag& bag) const;
    static bool isPossible(const ::SIZEL& himetric);
    host::PropertyBag saved();
    void applySize(const ::SIZEL& himetric);
    ::SIZEL himetricSize() const;
    ::RECT place() const;
    void park();
    void viewChanged();
    void paint(::HDC dc);

    std::shared_ptr<ParkingWindow> parking_; ///< Outlives the control
    automation::Ref<host::UserControl> control_;
    ContainerSite site_;
    ConnectionPoint notifications_;
    ComPointer<::IOleClientSite> client_;
    ComPointer<::IOleInPlaceSite> inPlace_; ///< While active in its place
    ComPointer<::IOleInPlaceFrame> frame_;
    ComPointer<::IOleInPlaceUIWindow> document_;
    ComPointer<::IOleAdviseHolder> advised_;
    ComPointer<::IAdviseSink> viewer_;
    DWORD viewAspects_ = 0;
    DWORD viewFlags_ = 0;
    ::HACCEL accessKeys_ = nullptr;
    int frozen_ = 0;
    bool ui_ = false;
    bool shown_ = false;
    bool dirty_ = false;
};

/// Lengths as containers state them, hundredths of a millimetre, and pixels of a screen of so many dots an
/// inch; to the nearest.
int himetricFromPixels(int pixels, int dotsPerInch);
int pixelsFromHimetric(int himetric, int dotsPerInch);

} // namespace activex
