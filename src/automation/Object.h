#pragma once
// Counted objects that answer calls by name.

#include "automation/Ref.h"
#include "automation/String.h"
#include "automation/Variant.h"

#include <cstdint>
#include <span>
#include <string_view>

namespace automation {

class ClassTable;
class EventBase;

/// What a call wants; the values are automation's and may be combined (method or get).
enum class CallKind : std::uint16_t { Method = 1, Get = 2, Let = 4, Set = 8, MethodOrGet = 3 };

constexpr CallKind operator|(CallKind a, CallKind b) {
    return static_cast<CallKind>(static_cast<int>(a) | static_cast<int>(b));
}
constexpr bool includes(CallKind set, CallKind kind) {
    return (static_cast<int>(set) & static_cast<int>(kind)) != 0;
}

/// Number of the default member, and the number that no member has.
inline constexpr std::int32_t DISPID_VALUE = 0;
inline constexpr std::int32_t DISPID_UNKNOWN = -1;

/// An argument given by its name.
struct NamedArgument {
    String name;
    Variant value;
};

/// The arguments of a late-bound call. By-reference arguments are values made with `Variant::byRef`;
/// left-out ones are `Variant::missing()`. The new value of a Let or Set is the last positional one.
struct Arguments {
    std::span<const Variant> positional;
    std::span<const NamedArgument> named;
};

/// Base of every class of the interface. Objects are counted: `make<T>()` gives the first reference, and
/// the last `Release` deletes the object. An object on the stack or inside another starts with one count
/// that is never released, so references to it may come and go while it lives.
class Object {
public:
    Object() noexcept = default;
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;
    virtual ~Object();

    void AddRef() const noexcept { ++count_; }
    void Release() const noexcept {
        if (--count_ == 0) destroy();
    }
    std::int32_t referenceCount() const noexcept { return count_; }

    /// The interface of the object's class.
    virtual const ClassTable& classTable() const = 0;
    /// Name of the class as programs see it.
    virtual String typeName() const;

    /// Number of the member of that name, whatever its case; DISPID_UNKNOWN when there is none.
    virtual std::int32_t memberId(std::u16string_view name) const;
    /// Calls a member by number. Errors: 438 no such member or not of that kind, 448 unknown named
    /// argument, 449 required argument missing, 450 too many arguments, 13 an argument that cannot be
    /// converted; and whatever the member throws.
    virtual Variant invoke(std::int32_t id, CallKind kind, const Arguments& arguments);
    /// The event of that name, or null.
    virtual EventBase* eventByName(std::u16string_view name);

    /// Calls a member by name; Error 438 when there is none.
    Variant invokeByName(std::u16string_view name, CallKind kind, const Arguments& arguments = {});

private:
    void destroy() const noexcept;

    mutable std::int32_t count_ = 1;
};

} // namespace automation
