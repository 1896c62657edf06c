#pragma once

#include "activex/windows/System.h"

#include <utility>

namespace activex {

/// A counted pointer to an interface of the system.
template <class I>
class ComPointer {
public:
    ComPointer() noexcept = default;
    /// Takes a share.
    explicit ComPointer(I* pointer) noexcept : pointer_(pointer) {
        if (pointer_) pointer_->AddRef();
    }
    ComPointer(const ComPointer& other) noexcept : ComPointer(other.pointer_) {}
    ComPointer(ComPointer&& other) noexcept : pointer_(std::exchange(other.pointer_, nullptr)) {}
    ~ComPointer() {
        if (pointer_) pointer_->Release();
    }
    ComPointer& operator=(ComPointer other) noexcept {
        std::swap(pointer_, other.pointer_);
        return *this;
    }

    /// Takes over the count that the caller holds.
    static ComPointer adopt(I* pointer) noexcept {
        ComPointer result;
        result.pointer_ = pointer;
        return result;
    }
    /// The interface `I` of an object; null where it has none, or for null.
    static ComPointer of(::IUnknown* object, const ::IID& id = __uuidof(I)) noexcept {
        ComPointer result;
        if (object) object->QueryInterface(id, result.address());
        return result;
    }

    I* get() const noexcept { return pointer_; }
    I* operator->() const noexcept { return pointer_; }
    explicit operator bool() const noexcept { return pointer_ != nullptr; }
    /// Gives the count to the caller.
    I* detach() noexcept { return std::exchange(pointer_, nullptr); }
    void reset() noexcept { *this = ComPointer(); }
    /// Where a call puts a new interface; what was held goes.
    void** address() noexcept {
        reset();
        return reinterpret_cast<void**>(&pointer_);
    }
    I** out() noexcept {
        reset();
        return &pointer_;
    }

private:
    I* pointer_ = nullptr;
};

} // namespace activex
