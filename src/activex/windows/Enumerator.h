#pragma once

#include "activex/windows/ComPointer.h"
#include "activex/windows/Counted.h"
#include "activex/windows/Failures.h"

#include <vector>

namespace activex {

/// What an enumerator gives of what it holds: a reference for the caller.
template <class T>
T* given(const ComPointer<T>& held) {
    return ComPointer<T>(held).detach();
}

/// Steps through a list that was fixed when it was made. `Interface` is one of the system's IEnum interfaces,
/// `Item` what it gives, by the function `given`, of each `Held`.
template <class Interface, class Item, class Held = ComPointer<std::remove_pointer_t<Item>>>
class Enumerator final : public Counted<Interface> {
public:
    explicit Enumerator(std::vector<Held> items, std::size_t place = 0)
        : items_(std::move(items)), place_(place) {}

    ::HRESULT STDMETHODCALLTYPE Next(::ULONG count, Item* items, ::ULONG* fetched) override {
        if (!items || (count != 1 && !fetched)) return E_POINTER;
        ::ULONG filled = 0;
        while (filled < count && place_ < items_.size())
            items[filled++] = given(items_[place_++]);
        if (fetched) *fetched = filled;
        return filled == count ? S_OK : S_FALSE;
    }
    ::HRESULT STDMETHODCALLTYPE Skip(::ULONG count) override {
        const std::size_t left = items_.size() - place_;
        place_ += count < left ? count : left;
        return count <= left ? S_OK : S_FALSE;
    }
    ::HRESULT STDMETHODCALLTYPE Reset() override {
        place_ = 0;
        return S_OK;
    }
    ::HRESULT STDMETHODCALLTYPE Clone(Interface** result) override {
        if (!result) return E_POINTER;
        *result = nullptr;
        return guarded([&]() -> ::HRESULT {
            *result = new Enumerator(items_, place_);
            return S_OK;
        });
    }

private:
    std::vector<Held> items_;
    std::size_t place_;
};

} // namespace activex
