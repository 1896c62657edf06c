#pragma once
// Member tables: the interface of a class, stated once. Late-bound calls, and later type libraries and
// reference pages, are made from them.

#include "automation/Argument.h"
#include "automation/Event.h"
#include "automation/Object.h"
#include "automation/TypeDescription.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace automation {

enum class MemberKind : std::uint8_t { Method, Get, Let, Set, Field, Event };

/// An argument of a member. The last one of a Let or Set is the new value.
struct Parameter {
    String name;
    TypeDescription type;
    bool byReference = false;
    bool optional = false;
    bool parameterArray = false;               ///< Takes all remaining arguments
    Variant defaultValue = Variant::missing(); ///< Missing where the table states none
};

/// A member of a class. A property has one entry for each of its kinds, all with one number.
struct Member {
    using Thunk = std::function<Variant(Object&, const Variant* const* arguments)>;

    String name;
    std::int32_t id = 0;
    MemberKind kind = MemberKind::Method;
    std::vector<Parameter> parameters;
    TypeDescription result;
    bool isDefault = false;
    bool hidden = false;
    String help;

    Thunk call;                               ///< Empty for events
    Thunk put;                                ///< Fields only: the write
    std::function<EventBase&(Object&)> event; ///< Events only
};

/// An argument's name in a table; `optional` and plain text make it.
struct ParameterName {
    const char* name;
    bool isOptional = false;
    Variant defaultValue = Variant::missing();
    ParameterName(const char* text) : name(text) {}
    ParameterName(const char* text, Variant value)
        : name(text), isOptional(true), defaultValue(std::move(value)) {}
};
using ParameterNames = std::initializer_list<ParameterName>;

/// An argument that callers may leave out. Without a default a Variant argument arrives as missing
/// (`isMissing`) and another one with its type's zero value.
inline ParameterName optional(const char* name, Variant defaultValue = Variant::missing()) {
    return ParameterName(name, std::move(defaultValue));
}

/// The interface of one class. Built once, in the class's own function:
///
///     const ClassTable& cLogFile::table() {
///         static const ClassTable table =
///             ClassTable::of<cLogFile>("cLogFile")
///                 .method("Start", &cLogFile::Start,
///                         {"cPath", "cNombreComponente", optional("lMarkRecord", true)})
///                 .property("Caption", &cLogFile::Caption, &cLogFile::Caption).defaultMember()
///                 .get("hWND", &cLogFile::hWND)
///                 .field("lLive", &cLogFile::lLive)
///                 .event("Click", &cLogFile::Click, {"nButton"});
///         return table;
///     }
///
/// Names are UTF-8 and are looked up whatever the case of their letters, accented ones too. Numbers
/// follow the order from 1 on; the default member is 0; events count on their own. An argument of type
/// `T&` is by reference, one of type `ParamArray` takes the remaining arguments, enumerations and records
/// bring their tables along.
class ClassTable {
public:
    template <class C>
    class Builder;
    template <class C>
    static Builder<C> of(const char* name);

    ClassTable(ClassTable&&) = default;

    const String& name() const noexcept { return name_; }
    const String& help() const noexcept { return help_; }
    /// All members in the order of the table, events too.
    const std::vector<Member>& members() const noexcept { return members_; }

    /// Number of the member of that name (events apart), or DISPID_UNKNOWN.
    std::int32_t find(std::u16string_view name) const noexcept;
    /// The member of that number that answers one of the kinds, or null. Let and Set stand in for each
    /// other where only one exists; a field answers Get and Let.
    const Member* member(std::int32_t id, CallKind kind) const noexcept;
    /// The event of that name, or null.
    const Member* event(std::u16string_view name) const noexcept;
    /// The event of that number, or null.
    const Member* event(std::int32_t id) const noexcept;

    /// Calls a member; see `Object::invoke` for the errors.
    Variant invoke(Object& object, std::int32_t id, CallKind kind, const Arguments& arguments) const;

private:
    struct Entry {
        std::int32_t id = DISPID_UNKNOWN;
        // Places in members_, -1 where there is none.
        int method = -1, get = -1, let = -1, set = -1, field = -1;
    };

    ClassTable() = default;
    Member& add(Member member);
    void describe(Member& member, ParameterNames names, std::vector<Parameter> types);
    void changeId(std::int32_t id);
    Entry* entryNamed(std::u16string_view name) noexcept;
    const Entry* entryOf(std::int32_t id) const noexcept;
    void rehash();

    String name_;
    String help_;
    std::vector<Member> members_;
    std::vector<Entry> entries_;
    std::vector<std::int32_t> names_; // open-addressed: place in entries_ plus one, 0 free
    std::unordered_map<std::int32_t, std::size_t> places_;
    std::int32_t lastId_ = 0;
    std::int32_t lastEventId_ = 0;
};

/// One argument on its way from a late-bound call to C++.
template <class A>
class EarlyArgument {
public:
    explicit EarlyArgument(const Variant& source) : value_(fromVariant<Plain>(source)) {}
    const std::remove_cvref_t<A>& get() const { return value_; }
    void finish(const Variant&) {}

private:
    using Plain = std::remove_cvref_t<A>;
    Plain value_;
};

template <Writable A>
class EarlyArgument<A&> {
public:
    explicit EarlyArgument(const Variant& source) : value_(fromVariant<A>(source)) {}
    A& get() { return value_; }
    void finish(const Variant& source) {
        if (source.isByRef()) source.storeThrough(toVariant<A>(value_));
    }

private:
    A value_;
};

template <>
class EarlyArgument<std::u16string_view> {
public:
    explicit EarlyArgument(const Variant& source) : value_(argumentToString(source)) {}
    std::u16string_view get() const { return value_.view(); }
    void finish(const Variant&) {}

private:
    String value_;
};

/// Calls `function` with the C++ arguments made of `sources`, and writes by-reference ones back.
template <class R, class... A, class F, std::size_t... I>
Variant callWith(F&& function, [[maybe_unused]] const Variant* const* sources, std::index_sequence<I...>) {
    std::tuple<EarlyArgument<A>...> carried{EarlyArgument<A>(*sources[I])...};
    if constexpr (std::is_void_v<R>) {
        function(std::get<I>(carried).get()...);
        (std::get<I>(carried).finish(*sources[I]), ...);
        return {};
    } else {
        Variant result = toVariant<std::remove_cvref_t<R>>(function(std::get<I>(carried).get()...));
        (std::get<I>(carried).finish(*sources[I]), ...);
        return result;
    }
}

template <class A>
Parameter parameterOf() {
    Parameter parameter;
    parameter.type = describe<A>();
    parameter.byReference = std::is_same_v<A, PassedArgument> ||
                            (std::is_lvalue_reference_v<A> && !std::is_const_v<std::remove_reference_t<A>>);
    parameter.parameterArray = std::is_same_v<std::remove_cvref_t<A>, ParamArray>;
    return parameter;
}

/// Builds a table member by member; `defaultMember`, `hidden`, `elements`, `help` and `id` speak of the last
/// one.
template <class C>
class ClassTable::Builder {
public:
    explicit Builder(const char* name) { table_.name_ = String::fromUtf8(name); }

    template <class R, class B, class... A>
    Builder& method(const char* name, R (B::*function)(A...), ParameterNames names = {}) {
        return add<R, A...>(MemberKind::Method, name, names, caller<R, B, A...>(function));
    }
    template <class R, class B, class... A>
    Builder& method(const char* name, R (B::*function)(A...) const, ParameterNames names = {}) {
        return add<R, A...>(MemberKind::Method, name, names, caller<R, B, A...>(function));
    }
    /// The function as a template argument, for functions without overloads.
    template <auto F>
    Builder& method(const char* name, ParameterNames names = {}) {
        return method(name, F, names);
    }

    /// A property that is only read.
    template <class R, class B, class... A>
    Builder& get(const char* name, R (B::*getter)(A...) const, ParameterNames names = {}) {
        return add<R, A...>(MemberKind::Get, name, names, caller<R, B, A...>(getter));
    }
    template <class R, class B>
    Builder& get(const char* name, R (B::*getter)()) {
        return add<R>(MemberKind::Get, name, {}, caller<R, B>(getter));
    }
    /// The write of a property; `names` are those of its index arguments.
    template <class B, class... A>
    Builder& let(const char* name, void (B::*setter)(A...), ParameterNames names = {}) {
        using Value = std::remove_cvref_t<std::tuple_element_t<sizeof...(A) - 1, std::tuple<A...>>>;
        const MemberKind kind =
            automation::describe<Value>().tag == VT_DISPATCH ? MemberKind::Set : MemberKind::Let;
        return add<void, A...>(kind, name, names, caller<void, B, A...>(setter));
    }
    /// A property as a pair of overloads: `.property("Text", &C::Text, &C::Text)`. The reader is const or
    /// takes no arguments, the writer gives nothing.
    template <class R, class B, class... A, class D, class... S>
    Builder& property(const char* name, R (B::*getter)(A...) const, void (D::*setter)(S...),
                      ParameterNames names = {}) {
        get(name, getter, names);
        return let(name, setter, names);
    }
    template <class R, class B, class D, class... S>
    Builder& property(const char* name, R (B::*getter)(), void (D::*setter)(S...)) {
        get(name, getter);
        return let(name, setter);
    }
    /// A public variable.
    template <class T, class B>
    Builder& field(const char* name, T B::*variable) {
        Member member;
        member.name = String::fromUtf8(name);
        member.kind = MemberKind::Field;
        member.result = automation::describe<T>();
        member.call = [variable](Object& object, const Variant* const*) {
            return toVariant<T>(static_cast<C&>(object).*variable);
        };
        member.put = [variable](Object& object, const Variant* const* arguments) {
            static_cast<C&>(object).*variable = fromVariant<T>(*arguments[0]);
            return Variant();
        };
        table_.add(std::move(member));
        return *this;
    }
    template <class B, class... A>
    Builder& event(const char* name, Event<A...> B::*event, ParameterNames names = {}) {
        Member member;
        member.name = String::fromUtf8(name);
        member.kind = MemberKind::Event;
        member.event = [event](Object& object) -> EventBase& { return static_cast<C&>(object).*event; };
        table_.describe(member, names, {parameterOf<A>()...});
        table_.add(std::move(member));
        return *this;
    }

    /// Adds the members that `group` adds: a function template that takes a Builder, for members that
    /// several classes share.
    template <class F>
    Builder& with(F&& group) {
        group(*this);
        return *this;
    }

    /// The last member (a property with all its kinds) is the class's default one, number 0.
    Builder& defaultMember() { return id(DISPID_VALUE); }
    Builder& id(std::int32_t number) {
        table_.changeId(number);
        return *this;
    }
    Builder& hidden() {
        for (Member* member : lastNamed())
            member->hidden = true;
        return *this;
    }
    /// Arrays that the last member takes or gives have elements of this type; they are Variants otherwise.
    Builder& elements(VARTYPE type) {
        for (Member* member : lastNamed()) {
            setElements(member->result, type);
            for (Parameter& parameter : member->parameters)
                if (!parameter.parameterArray) setElements(parameter.type, type);
        }
        return *this;
    }
    /// Help for the last member, or for the class before the first one.
    Builder& help(const char* text) {
        if (table_.members_.empty()) table_.help_ = String::fromUtf8(text);
        for (Member* member : lastNamed())
            member->help = String::fromUtf8(text);
        return *this;
    }

    operator ClassTable() { return std::move(table_); }

private:
    template <class R, class B, class... A, class F>
    static Member::Thunk caller(F function) {
        return [function](Object& object, const Variant* const* sources) {
            C& target = static_cast<C&>(object);
            return callWith<R, A...>(
                [&](auto&&... values) -> R {
                    return (target.*function)(std::forward<decltype(values)>(values)...);
                },
                sources, std::index_sequence_for<A...>());
        };
    }
    template <class R, class... A>
    Builder& add(MemberKind kind, const char* name, ParameterNames names, Member::Thunk call) {
        Member member;
        member.name = String::fromUtf8(name);
        member.kind = kind;
        member.result = automation::describe<R>();
        member.call = std::move(call);
        table_.describe(member, names, {parameterOf<A>()...});
        table_.add(std::move(member));
        return *this;
    }
    static void setElements(TypeDescription& description, VARTYPE type) {
        if (description.tag & VT_ARRAY) description.tag = static_cast<VARTYPE>(VT_ARRAY | type);
    }
    /// The last member and its other kinds just before it.
    std::vector<Member*> lastNamed() {
        std::vector<Member*> found;
        auto& members = table_.members_;
        for (std::size_t i = members.size();
             i-- > 0 && members[i].id == members.back().id &&
             (members[i].kind == MemberKind::Event) == (members.back().kind == MemberKind::Event);)
            found.push_back(&members[i]);
        return found;
    }

    ClassTable table_;
};

template <class C>
ClassTable::Builder<C> ClassTable::of(const char* name) {
    return Builder<C>(name);
}

} // namespace automation
