#pragma once

#include "activex/windows/ModuleUse.h"
#include "activex/windows/System.h"

namespace activex {

/// The counting of an object with the one interface `I`. It starts with one count, that of whoever made it.
template <class I>
class Counted : public I {
public:
    Counted() = default;
    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;
    virtual ~Counted() = default;

    ::HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** result) override {
        if (!result) return E_POINTER;
        *result = nullptr;
        if (id != __uuidof(::IUnknown) && id != __uuidof(I)) return E_NOINTERFACE;
        *result = static_cast<I*>(this);
        AddRef();
        return S_OK;
    }
    ::ULONG STDMETHODCALLTYPE AddRef() override { return ++count_; }
    ::ULONG STDMETHODCALLTYPE Release() override {
        const ::ULONG left = --count_;
        if (left == 0) delete this;
        return left;
    }

private:
    std::atomic<::ULONG> count_ = 1;
    ModuleUse use_;
};

} // namespace activex
