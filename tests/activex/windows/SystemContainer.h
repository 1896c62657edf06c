#pragma once
// The system's own container: windows of the class AtlAxWin100, one a control.

#include "activex/windows/ComPointer.h"

namespace support {

using activex::ComPointer;

/// What a program calls to use the class.
class SystemContainer {
public:
    SystemContainer() { function<BOOL WINAPI()>("AtlAxWinInit")(); }

    /// Puts the control into a window of the class.
    ::HRESULT attach(::IUnknown& control, ::HWND host) const {
        ComPointer<::IUnknown> container;
        return function<::HRESULT WINAPI(::IUnknown*, ::HWND, ::IUnknown**)>("AtlAxAttachControl")(
            &control, host, container.out());
    }
    /// The control that stands in a window of the class.
    ComPointer<::IUnknown> controlOf(::HWND host) const {
        ComPointer<::IUnknown> control;
        function<::HRESULT WINAPI(::HWND, ::IUnknown**)>("AtlAxGetControl")(host, control.out());
        return control;
    }

    /// The container's part for a window of the class.
    ComPointer<::IUnknown> hostOf(::HWND host) const {
        ComPointer<::IUnknown> part;
        function<::HRESULT WINAPI(::HWND, ::IUnknown**)>("AtlAxGetHost")(host, part.out());
        return part;
    }

private:
    template <class F>
    F* function(const char* name) const {
        return reinterpret_cast<F*>(reinterpret_cast<void*>(::GetProcAddress(system_, name)));
    }

    ::HMODULE system_ = ::LoadLibraryW(L"atl100.dll");
};

/// A window of the class, through which Tab gets at what stands in it.
class SystemHost {
public:
    SystemHost(::HWND parent, const ::RECT& place)
        : window_(::CreateWindowExW(WS_EX_CONTROLPARENT, L"AtlAxWin100", L"", WS_CHILD | WS_VISIBLE,
                                    place.left, place.top, place.right - place.left, place.bottom - place.top,
                                    parent, nullptr, nullptr, nullptr)) {}
    SystemHost(const SystemHost&) = delete;
    SystemHost& operator=(const SystemHost&) = delete;
    ~SystemHost() { ::DestroyWindow(window_); }
    ::HWND handle() const { return window_; }

private:
    ::HWND window_;
};

} // namespace support
