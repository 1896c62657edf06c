#pragma once
// Events: member objects that any number of handlers join.

#include "automation/Argument.h"
#include "automation/Ref.h"
#include "automation/Variant.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <tuple>
#include <utility>
#include <vector>

namespace automation {

/// Number of a handler in its event, for leaving; 0 is none.
using EventCookie = std::uint32_t;

/// The handlers of an event, apart from the event itself so that a raise survives the sender's end.
class EventHandlers {
public:
    EventHandlers() noexcept = default;
    EventHandlers(const EventHandlers&) = delete;
    EventHandlers& operator=(const EventHandlers&) = delete;
    virtual ~EventHandlers() = default;
    void AddRef() const noexcept { ++count_; }
    void Release() const noexcept {
        if (--count_ == 0) delete this;
    }

    /// Unknown cookies are passed over.
    void leave(EventCookie cookie) noexcept;
    /// The sender is gone: no handler is called any more.
    void close() noexcept;
    /// Handlers that are joined now.
    std::size_t size() const noexcept;

protected:
    struct Slot {
        virtual ~Slot() = default;
        EventCookie cookie = 0;
        bool left = false;
    };
    /// Calls `visit` with each slot that was there at the start and has not left meanwhile.
    void raiseEach(const std::function<void(Slot&)>& visit);
    EventCookie add(std::unique_ptr<Slot> slot);

private:
    void sweep() noexcept;

    mutable std::int32_t count_ = 1;
    std::vector<std::unique_ptr<Slot>> slots_;
    EventCookie lastCookie_ = 0;
    int raising_ = 0;
    bool closed_ = false;
};

/// Keeps a handler joined while it lives; the event may end before it.
class Subscription {
public:
    Subscription() noexcept = default;
    Subscription(Ref<EventHandlers> handlers, EventCookie cookie) noexcept
        : handlers_(std::move(handlers)), cookie_(cookie) {}
    Subscription(Subscription&& other) noexcept
        : handlers_(std::move(other.handlers_)), cookie_(std::exchange(other.cookie_, 0)) {}
    Subscription& operator=(Subscription&& other) noexcept {
        std::swap(handlers_, other.handlers_);
        std::swap(cookie_, other.cookie_);
        return *this;
    }
    ~Subscription() { leave(); }
    void leave() noexcept {
        if (handlers_) handlers_->leave(std::exchange(cookie_, 0));
        handlers_.reset();
    }

private:
    Ref<EventHandlers> handlers_;
    EventCookie cookie_ = 0;
};

/// An event as programs reach it by name: handlers take Variants, by-reference arguments as references
/// (`Variant::isByRef`, written with `store`).
class EventBase {
public:
    using LateHandler = std::function<void(std::span<Variant>)>;

    EventBase(const EventBase&) = delete;
    EventBase& operator=(const EventBase&) = delete;
    virtual ~EventBase() {
        if (handlers_) handlers_->close();
    }

    virtual EventCookie joinLate(LateHandler handler) = 0;
    void leave(EventCookie cookie) noexcept {
        if (handlers_) handlers_->leave(cookie);
    }
    bool hasHandlers() const noexcept { return handlers_ && handlers_->size() != 0; }

protected:
    EventBase() noexcept = default;
    Ref<EventHandlers> handlers_; ///< Made by the first handler: an event nobody joins costs nothing.
};

/// One argument on its way from C++ to a late-bound handler.
template <class A>
class LateArgument {
public:
    explicit LateArgument(const A& value) : variant_(toVariant<std::remove_cvref_t<A>>(value)) {}
    Variant variant() { return variant_; }
    void finish() {}

private:
    Variant variant_;
};

template <Writable A>
class LateArgument<A&> {
public:
    explicit LateArgument(A& variable) : variable_(variable) {
        if constexpr (!Referable<A>) temporary_ = toVariant<A>(variable);
    }
    Variant variant() {
        if constexpr (Referable<A>) {
            return Variant::byRef(variable_);
        } else {
            return Variant::byRef(temporary_);
        }
    }
    void finish() {
        if constexpr (!Referable<A>) variable_ = fromVariant<A>(temporary_);
    }

private:
    A& variable_;
    Variant temporary_;
};

/// An event with its arguments; by-reference ones are C++ references. Handlers are called in the order of
/// joining. While it is raised, handlers may join (they wait for the next raise), leave (they are not
/// called any more), raise it again and destroy the sender (the remaining handlers are not called). What
/// a handler throws comes out of `raise`.
template <class... Args>
class Event final : public EventBase {
public:
    using Handler = std::function<void(Args...)>;

    EventCookie join(Handler handler) { return handlers().join(std::move(handler)); }
    EventCookie joinLate(LateHandler handler) override {
        return join([handler = std::move(handler)](Args... args) { raiseLate(handler, args...); });
    }
    /// Joins for as long as the result lives.
    [[nodiscard]] Subscription subscribe(Handler handler) {
        const EventCookie cookie = join(std::move(handler));
        return Subscription(handlers_, cookie);
    }

    void raise(Args... args) const {
        if (!hasHandlers()) return;
        const Ref<EventHandlers> alive = handlers_;
        static_cast<Handlers&>(*alive).raise(args...);
    }

private:
    class Handlers final : public EventHandlers {
    public:
        EventCookie join(Handler handler) {
            auto slot = std::make_unique<TypedSlot>();
            slot->handler = std::move(handler);
            return add(std::move(slot));
        }
        void raise(Args... args) {
            raiseEach([&](Slot& slot) { static_cast<TypedSlot&>(slot).handler(args...); });
        }

    private:
        struct TypedSlot final : Slot {
            Handler handler;
        };
    };

    Handlers& handlers() {
        if (!handlers_) handlers_ = make<Handlers>();
        return static_cast<Handlers&>(*handlers_);
    }

    static void raiseLate(const LateHandler& handler, std::add_lvalue_reference_t<Args>... args) {
        std::tuple<LateArgument<Args>...> carried{LateArgument<Args>(args)...};
        std::apply(
            [&](auto&... each) {
                std::array<Variant, sizeof...(Args)> list{each.variant()...};
                handler(list);
                (each.finish(), ...);
            },
            carried);
    }
};

} // namespace automation
