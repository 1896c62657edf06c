#pragma once
// A container of controls that uses nothing but the system's interfaces.

#include "activex/windows/ControlLibrary.h"
#include "activex/windows/EmptyContainer.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace support {

/// One place in a window, with the control that stands there. What the control told its container is counted.
class Site final : public EmptySite {
public:
    Site(::HWND window, const ::RECT& place, std::u16string_view className);
    Site(::HWND window, const ::RECT& place, ComPointer<::IDispatch> control);
    ~Site() override;

    ::IDispatch& control() const { return *control_.get(); }
    template <class I>
    ComPointer<I> as() const {
        return ComPointer<I>::of(control_.get());
    }
    /// Activates in place; with `withUi` the control also gets the focus.
    ::HRESULT activate(bool withUi = false);
    /// The control's window; null while it is not active.
    ::HWND controlWindow() const;
    void drop() {
        notifications_.reset();
        control_.reset();
    }

    // What the container suggests, and what it saw.
    std::map<::DISPID, automation::Variant> ambient;
    ::RECT place;
    int uiActivations = 0;
    int uiDeactivations = 0;
    int saves = 0;
    std::vector<bool> focus;       ///< Gained, lost
    std::vector<::WPARAM> keys;    ///< That the control passed on
    std::vector<::DISPID> changes; ///< Properties that have new values
    bool refusesActivation = false;
    bool dropsOnUiActivate = false;
    ::IOleInPlaceFrame* frame = nullptr;          ///< Is told which control is active
    std::function<void()> onUiActivate;           ///< A control becomes the active one
    std::function<bool(const ::MSG&)> acceptsKey; ///< Whether the container uses a key; without it all

    ::HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** result) override;
    // IOleClientSite
    ::HRESULT STDMETHODCALLTYPE SaveObject() override { return ++saves, S_OK; }
    // IOleInPlaceSite
    ::HRESULT STDMETHODCALLTYPE GetWindow(::HWND* window) override;
    ::HRESULT STDMETHODCALLTYPE CanInPlaceActivate() override { return refusesActivation ? S_FALSE : S_OK; }
    ::HRESULT STDMETHODCALLTYPE OnUIActivate() override;
    ::HRESULT STDMETHODCALLTYPE GetWindowContext(::IOleInPlaceFrame** itsFrame,
                                                 ::IOleInPlaceUIWindow** document, ::RECT* own, ::RECT* clip,
                                                 ::OLEINPLACEFRAMEINFO*) override;
    ::HRESULT STDMETHODCALLTYPE OnUIDeactivate(BOOL) override { return ++uiDeactivations, S_OK; }
    ::HRESULT STDMETHODCALLTYPE OnPosRectChange(const ::RECT* wanted) override;
    // IOleControlSite
    ::HRESULT STDMETHODCALLTYPE TranslateAccelerator(::MSG* key, DWORD) override;
    ::HRESULT STDMETHODCALLTYPE OnFocus(BOOL gained) override;
    // IDispatch: the ambient properties
    ::HRESULT STDMETHODCALLTYPE Invoke(::DISPID id, REFIID, ::LCID, WORD, ::DISPPARAMS*, ::VARIANT* result,
                                       ::EXCEPINFO*, ::UINT*) override;
    // IPropertyNotifySink
    ::HRESULT STDMETHODCALLTYPE OnChanged(::DISPID id) override { return changes.push_back(id), S_OK; }

private:
    ::HWND window_;
    ComPointer<::IDispatch> control_;
    ComPointer<::IConnectionPoint> notifications_;
    DWORD cookie_ = 0;
};

/// A visible window for sites, with a grey background.
class ContainerWindow {
public:
    ContainerWindow();
    ContainerWindow(const ContainerWindow&) = delete;
    ContainerWindow& operator=(const ContainerWindow&) = delete;
    ~ContainerWindow();
    ::HWND handle() const { return window_; }

private:
    ::HWND window_;
};

/// The pixels of a device context, row by row.
std::vector<::COLORREF> pixels(::HDC dc, int width, int height);

/// What `paint` paints on a bitmap like that of a device context; without one, like the screen.
std::vector<::COLORREF> painted(::HDC like, int width, int height, const std::function<void(::HDC)>& paint);

/// What a control paints by IViewObject in a place of that size, at once or by a metafile that is played
/// then.
enum class Way { AtOnce, ThroughMetafile };
std::vector<::COLORREF> drawn(::IUnknown& control, int width, int height, Way way = Way::AtOnce);

} // namespace support
