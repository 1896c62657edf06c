#pragma once
// A container that misbehaves once.

#include "activex/windows/ControlLibrary.h"
#include "activex/windows/EmptyContainer.h"

#include <functional>

namespace support {

/// What the container does instead of an answer.
enum class Misdeed {
    Refuses,         ///< Gives an error
    GivesNothing,    ///< Succeeds, and leaves out what it was asked for
    DropsTheControl, ///< Lets go of the control, and answers
    ClosesTheControl ///< Closes the control, takes its site away and lets go of it, and answers
};

/// Gives a control all that containers give. Its calls are numbered; one of them it does not answer as it
/// should. It lives longer than the control.
class UnreliableContainer final : public EmptySite,
                                  public EmptyFrame,
                                  public ::IAdviseSink,
                                  public ::IPropertyBag {
public:
    /// `failing` is the number of the call, from 0.
    UnreliableContainer(::HWND window, ComPointer<::IDispatch> control, int failing, Misdeed misdeed)
        : window_(window), control_(std::move(control)), failing_(failing), misdeed_(misdeed) {}

    /// The control; null when it was dropped.
    const ComPointer<::IDispatch>& control() const { return control_; }
    template <class I>
    ComPointer<I> as() const {
        return ComPointer<I>::of(control_.get());
    }
    ::IUnknown& self() { return *static_cast<::IOleClientSite*>(this); }
    void drop() { control_.reset(); }
    bool misbehaved() const { return calls_ > failing_; }
    long references() const { return references_; }

    /// Answers one call of the control by `answer`, or misbehaves.
    ::HRESULT answer(const std::function<::HRESULT()>& answer);

    ::HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** result) override;
    ::ULONG STDMETHODCALLTYPE AddRef() override { return static_cast<::ULONG>(++references_); }
    ::ULONG STDMETHODCALLTYPE Release() override { return static_cast<::ULONG>(--references_); }
    // IOleClientSite
    ::HRESULT STDMETHODCALLTYPE SaveObject() override { return succeed(); }
    ::HRESULT STDMETHODCALLTYPE GetContainer(::IOleContainer** result) override;
    ::HRESULT STDMETHODCALLTYPE ShowObject() override { return succeed(); }
    ::HRESULT STDMETHODCALLTYPE OnShowWindow(BOOL) override { return succeed(); }
    // IOleInPlaceSite, IOleInPlaceFrame
    ::HRESULT STDMETHODCALLTYPE GetWindow(::HWND* window) override;
    ::HRESULT STDMETHODCALLTYPE CanInPlaceActivate() override { return succeed(); }
    ::HRESULT STDMETHODCALLTYPE OnInPlaceActivate() override { return succeed(); }
    ::HRESULT STDMETHODCALLTYPE OnUIActivate() override { return succeed(); }
    ::HRESULT STDMETHODCALLTYPE GetWindowContext(::IOleInPlaceFrame** frame, ::IOleInPlaceUIWindow** document,
                                                 ::RECT* own, ::RECT* clip, ::OLEINPLACEFRAMEINFO*) override;
    ::HRESULT STDMETHODCALLTYPE OnUIDeactivate(BOOL) override { return succeed(); }
    ::HRESULT STDMETHODCALLTYPE OnInPlaceDeactivate() override { return succeed(); }
    ::HRESULT STDMETHODCALLTYPE OnPosRectChange(const ::RECT* wanted) override;
    ::HRESULT STDMETHODCALLTYPE SetBorderSpace(const ::BORDERWIDTHS*) override { return succeed(); }
    ::HRESULT STDMETHODCALLTYPE SetActiveObject(::IOleInPlaceActiveObject*, ::LPCOLESTR) override {
        return succeed();
    }
    ::HRESULT STDMETHODCALLTYPE InsertMenus(::HMENU, ::OLEMENUGROUPWIDTHS*) override { return succeed(); }
    ::HRESULT STDMETHODCALLTYPE SetMenu(::HMENU, ::HOLEMENU, ::HWND) override { return succeed(); }
    ::HRESULT STDMETHODCALLTYPE RemoveMenus(::HMENU) override { return succeed(); }
    ::HRESULT STDMETHODCALLTYPE SetStatusText(::LPCOLESTR) override { return succeed(); }
    ::HRESULT STDMETHODCALLTYPE EnableModeless(BOOL) override { return succeed(); }
    using EmptyFrame::TranslateAccelerator;
    // IOleControlSite
    ::HRESULT STDMETHODCALLTYPE OnControlInfoChanged() override { return succeed(); }
    ::HRESULT STDMETHODCALLTYPE GetExtendedControl(::IDispatch** result) override;
    ::HRESULT STDMETHODCALLTYPE TranslateAccelerator(::MSG*, DWORD) override { return succeed(); }
    ::HRESULT STDMETHODCALLTYPE OnFocus(BOOL) override { return succeed(); }
    // IDispatch: the ambient properties
    ::HRESULT STDMETHODCALLTYPE Invoke(::DISPID id, REFIID, ::LCID, WORD, ::DISPPARAMS*, ::VARIANT* result,
                                       ::EXCEPINFO*, ::UINT*) override;
    // IPropertyNotifySink
    ::HRESULT STDMETHODCALLTYPE OnChanged(::DISPID) override { return succeed(); }
    ::HRESULT STDMETHODCALLTYPE OnRequestEdit(::DISPID) override { return succeed(); }
    // IAdviseSink
    void STDMETHODCALLTYPE OnDataChange(::FORMATETC*, ::STGMEDIUM*) override { succeed(); }
    void STDMETHODCALLTYPE OnViewChange(DWORD, LONG) override { succeed(); }
    void STDMETHODCALLTYPE OnRename(::IMoniker*) override { succeed(); }
    void STDMETHODCALLTYPE OnSave() override { succeed(); }
    void STDMETHODCALLTYPE OnClose() override { succeed(); }
    // IPropertyBag
    ::HRESULT STDMETHODCALLTYPE Read(::LPCOLESTR name, ::VARIANT* value, ::IErrorLog*) override;
    ::HRESULT STDMETHODCALLTYPE Write(::LPCOLESTR, ::VARIANT*) override { return succeed(); }

private:
    ::HRESULT succeed() {
        return answer([] { return S_OK; });
    }
    void* findAny(REFIID id);

    ::HWND window_;
    ComPointer<::IDispatch> control_;
    int failing_;
    Misdeed misdeed_;
    int calls_ = 0;
    long references_ = 0;
};

} // namespace support
