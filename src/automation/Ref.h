#pragma once
// Counted references.

#include <concepts>
#include <cstddef>
#include <utility>

namespace automation {

/// A class whose pointers are pointers to T as well.
template <class U, class T>
concept PointsInto = std::convertible_to<U*, T*>;

/// A counted reference to a T that has `AddRef` and `Release`; null is "Nothing".
template <class T>
class Ref {
public:
    constexpr Ref() noexcept = default;
    constexpr Ref(std::nullptr_t) noexcept {}
    /// Takes a share of an object that others own too.
    Ref(T* object) noexcept : object_(object) {
        if (object_) object_->AddRef();
    }
    Ref(const Ref& other) noexcept : Ref(other.object_) {}
    Ref(Ref&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    template <PointsInto<T> U>
    Ref(const Ref<U>& other) noexcept : Ref(static_cast<T*>(other.get())) {}
    ~Ref() {
        if (object_) object_->Release();
    }

    Ref& operator=(const Ref& other) noexcept {
        Ref copy(other);
        std::swap(object_, copy.object_);
        return *this;
    }
    Ref& operator=(Ref&& other) noexcept {
        Ref taken(std::move(other));
        std::swap(object_, taken.object_);
        return *this;
    }

    /// Takes over the count that the caller holds.
    static Ref adopt(T* object) noexcept {
        Ref result;
        result.object_ = object;
        return result;
    }

    T* get() const noexcept { return object_; }
    T* operator->() const noexcept { return object_; }
    T& operator*() const noexcept { return *object_; }
    explicit operator bool() const noexcept { return object_ != nullptr; }
    void reset() noexcept { *this = Ref(); }

    /// Identity, not equality of values.
    friend bool operator==(const Ref& a, const Ref& b) noexcept { return a.object_ == b.object_; }
    friend bool operator==(const Ref& a, std::nullptr_t) noexcept { return a.object_ == nullptr; }

private:
    T* object_ = nullptr;
};

/// A new counted T: `auto log = make<cLogFile>();`
template <class T, class... Args>
Ref<T> make(Args&&... args) {
    return Ref<T>::adopt(new T(std::forward<Args>(args)...));
}

} // namespace automation
