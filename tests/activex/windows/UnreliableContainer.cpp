#include "activex/windows/UnreliableContainer.h"

namespace support {

::HRESULT UnreliableContainer::answer(const std::function<::HRESULT()>& usual) {
    if (calls_++ != failing_) return usual();
    const ComPointer<::IOleObject> object = as<::IOleObject>();
    switch (misdeed_) {
    case Misdeed::Refuses:
        return E_FAIL;
    case Misdeed::GivesNothing:
        return S_OK;
    case Misdeed::ClosesTheControl:
        if (object) {
            object->Close(OLECLOSE_NOSAVE);
            object->SetClientSite(nullptr);
        }
        drop();
        return usual();
    case Misdeed::DropsTheControl:
        drop();
        return usual();
    }
    return S_OK;
}

void* UnreliableContainer::findAny(REFIID id) {
    if (id == IID_IAdviseSink) return static_cast<::IAdviseSink*>(this);
    return find(id);
}

::HRESULT UnreliableContainer::QueryInterface(REFIID id, void** result) {
    *result = nullptr;
    const ::HRESULT code = answer([&] {
        *result = findAny(id);
        if (*result) AddRef();
        return *result ? S_OK : E_NOINTERFACE;
    });
    return *result ? code : E_NOINTERFACE; // success without an interface breaks a rule that all rely on
}

::HRESULT UnreliableContainer::GetContainer(::IOleContainer** result) {
    *result = nullptr;
    return answer([] { return E_NOINTERFACE; });
}

::HRESULT UnreliableContainer::GetWindow(::HWND* window) {
    *window = nullptr;
    return answer([&] {
        *window = window_;
        return S_OK;
    });
}

::HRESULT UnreliableContainer::GetWindowContext(::IOleInPlaceFrame** frame, ::IOleInPlaceUIWindow** document,
                                                ::RECT* own, ::RECT* clip, ::OLEINPLACEFRAMEINFO*) {
    *frame = nullptr;
    *document = nullptr;
    return answer([&] {
        *frame = ComPointer<::IOleInPlaceFrame>(this).detach();
        *document = ComPointer<::IOleInPlaceUIWindow>(this).detach();
        *own = {10, 10, 130, 34};
        ::GetClientRect(window_, clip);
        return S_OK;
    });
}

::HRESULT UnreliableContainer::OnPosRectChange(const ::RECT* wanted) {
    const ::RECT place = *wanted;
    return answer([&] {
        const auto object = as<::IOleInPlaceObject>();
        return object ? object->SetObjectRects(&place, &place) : S_OK;
    });
}

::HRESULT UnreliableContainer::GetExtendedControl(::IDispatch** result) {
    *result = nullptr;
    return answer([&] {
        *result = ComPointer<::IDispatch>(control_).detach();
        return *result ? S_OK : E_NOTIMPL;
    });
}

::HRESULT UnreliableContainer::Invoke(::DISPID id, REFIID, ::LCID, WORD, ::DISPPARAMS*, ::VARIANT* result,
                                      ::EXCEPINFO*, ::UINT*) {
    return answer([&]() -> ::HRESULT {
        if (id != DISPID_AMBIENT_USERMODE) return DISP_E_MEMBERNOTFOUND;
        result->vt = VT_BOOL;
        result->boolVal = VARIANT_TRUE;
        return S_OK;
    });
}

::HRESULT UnreliableContainer::Read(::LPCOLESTR name, ::VARIANT* value, ::IErrorLog*) {
    return answer([&]() -> ::HRESULT {
        if (std::wstring(name) != L"Alias") return E_INVALIDARG;
        value->vt = VT_BSTR;
        value->bstrVal = ::SysAllocString(L"clientes");
        return S_OK;
    });
}

} // namespace support
