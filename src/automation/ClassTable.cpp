#include "automation/ClassTable.h"

#include "automation/Names.h"

#include <algorithm>
#include <array>

namespace automation {

namespace {

// Name given to the new value of a property in the tables.
constexpr char16_t newValueName[] = u"Valor";

/// What a parameter without an argument receives when the table states no default: its type's zero.
const Variant& zeroOf(const TypeDescription& type) {
    static const Variant empty;
    static const Variant nothing = Variant::nothing();
    static const Variant emptyText = String();
    static const Variant missing = Variant::missing();
    static const Variant noArray = Array();
    if (type.tag & VT_ARRAY) return noArray;
    switch (type.tag) {
    case VT_VARIANT:
        return missing;
    case VT_DISPATCH:
        return nothing;
    case VT_BSTR:
        return emptyText;
    default:
        return empty;
    }
}

/// The arguments of a call in the order of the parameters, as the thunks take them. Each place points to
/// the caller's value, to a default or to the collected parameter array.
class Layout {
public:
    Layout(const Member& member, const Arguments& arguments, bool lastIsNewValue)
        : parameters_(member.parameters) {
        if (parameters_.size() > few_.size()) {
            many_.resize(parameters_.size());
            places_ = many_.data();
        }
        std::size_t count = arguments.positional.size();
        if (lastIsNewValue) {
            if (count == 0 || parameters_.empty()) throwError(errors::WrongArgumentCount);
            places_[parameters_.size() - 1] = &arguments.positional[--count];
            open_ = parameters_.size() - 1;
        } else {
            open_ = parameters_.size();
        }
        placePositional(arguments.positional.first(count));
        for (const NamedArgument& named : arguments.named)
            placeNamed(named);
        fillRest();
    }

    const Variant* const* places() const { return places_; }

private:
    void placePositional(std::span<const Variant> given) {
        const bool collects = open_ > 0 && parameters_[open_ - 1].parameterArray;
        const std::size_t plain = collects ? open_ - 1 : open_;
        if (given.size() > plain && !collects) throwError(errors::WrongArgumentCount);
        for (std::size_t i = 0; i < std::min(plain, given.size()); ++i)
            if (!given[i].isMissing()) places_[i] = &given[i];
        if (!collects) return;
        collected_ =
            Array::ofVariants(given.size() > plain ? given.subspan(plain) : std::span<const Variant>());
        places_[plain] = &collected_;
    }

    void placeNamed(const NamedArgument& named) {
        const auto found =
            std::find_if(parameters_.begin(), parameters_.begin() + static_cast<std::ptrdiff_t>(open_),
                         [&](const Parameter& p) { return sameName(p.name, named.name); });
        const auto place = static_cast<std::size_t>(found - parameters_.begin());
        if (place == open_ || found->parameterArray || places_[place])
            throwError(errors::NamedArgumentNotFound);
        places_[place] = &named.value;
    }

    void fillRest() {
        for (std::size_t i = 0; i < open_; ++i) {
            if (places_[i]) continue;
            const Parameter& parameter = parameters_[i];
            if (!parameter.optional) throwError(errors::ArgumentNotOptional);
            places_[i] =
                parameter.defaultValue.isMissing() ? &zeroOf(parameter.type) : &parameter.defaultValue;
        }
    }

    const std::vector<Parameter>& parameters_;
    std::size_t open_ = 0; // parameters that arguments fill; the new value of a property is not among them
    std::array<const Variant*, 8> few_{};
    std::vector<const Variant*> many_;
    const Variant** places_ = few_.data();
    Variant collected_;
};

/// An element of an array, or the default member of an object, by the arguments that a property without
/// arguments of its own was given.
Variant indexInto(const Variant& container, const Arguments& arguments) {
    if (container.isArray()) {
        std::vector<std::int32_t> subscripts;
        for (const Variant& argument : arguments.positional)
            subscripts.push_back(argumentToLong(argument));
        return container.asArray().at(subscripts);
    }
    if (!container.isObject()) throwError(errors::WrongArgumentCount);
    if (container.isNothing()) throwError(errors::ObjectVariableNotSet);
    // NOLINTNEXTLINE(performance-unnecessary-copy-initialization): the call may drop the container
    const Ref<Object> object = container.asObject();
    return object->invoke(DISPID_VALUE, CallKind::MethodOrGet, arguments);
}

bool takesNoArguments(const Member& member) {
    return member.kind != MemberKind::Method && member.parameters.empty();
}

constexpr std::size_t smallestHash = 16;

} // namespace

void ClassTable::describe(Member& member, ParameterNames names, std::vector<Parameter> types) {
    auto given = names.begin();
    for (std::size_t i = 0; i < types.size(); ++i) {
        Parameter& parameter = types[i];
        if (given != names.end()) {
            parameter.name = String::fromUtf8(given->name);
            parameter.optional = given->isOptional;
            parameter.defaultValue = given->defaultValue;
            ++given;
        } else if (i + 1 == types.size() &&
                   (member.kind == MemberKind::Let || member.kind == MemberKind::Set)) {
            parameter.name = newValueName;
        } else {
            parameter.name = u"Arg" + String::fromUtf8(std::to_string(i + 1));
        }
    }
    // A table that names more arguments than the function has is wrong from the start.
    if (given != names.end()) throwError(errors::WrongArgumentCount);
    member.parameters = std::move(types);
}

Member& ClassTable::add(Member member) {
    if (member.kind == MemberKind::Event) {
        member.id = ++lastEventId_;
        members_.push_back(std::move(member));
        return members_.back();
    }
    Entry* entry = entryNamed(member.name);
    if (!entry) {
        entry = &entries_.emplace_back();
        entry->id = ++lastId_;
        places_[entry->id] = entries_.size() - 1;
    }
    member.id = entry->id;
    const int place = static_cast<int>(members_.size());
    switch (member.kind) {
    case MemberKind::Method:
        entry->method = place;
        break;
    case MemberKind::Get:
        entry->get = place;
        break;
    case MemberKind::Let:
        entry->let = place;
        break;
    case MemberKind::Set:
        entry->set = place;
        break;
    default:
        entry->field = place;
        break;
    }
    members_.push_back(std::move(member));
    rehash();
    return members_.back();
}

void ClassTable::changeId(std::int32_t id) {
    const std::int32_t old = members_.back().id;
    const auto place = places_.find(old);
    if (members_.back().kind == MemberKind::Event || place == places_.end() || places_.count(id) != 0)
        throwError(errors::InvalidCall);
    const std::size_t entry = place->second;
    places_.erase(place);
    places_[id] = entry;
    entries_[entry].id = id;
    for (Member& member : members_) {
        if (member.kind == MemberKind::Event || member.id != old) continue;
        member.id = id;
        member.isDefault = id == DISPID_VALUE;
    }
}

void ClassTable::rehash() {
    std::size_t size = smallestHash;
    while (size < entries_.size() * 2)
        size *= 2;
    names_.assign(size, 0);
    for (std::size_t e = 0; e < entries_.size(); ++e) {
        const Entry& entry = entries_[e];
        const int any = std::max({entry.method, entry.get, entry.let, entry.set, entry.field});
        if (any < 0 || static_cast<std::size_t>(any) >= members_.size()) continue;
        std::size_t slot = hashName(members_[static_cast<std::size_t>(any)].name) & (size - 1);
        while (names_[slot] != 0)
            slot = (slot + 1) & (size - 1);
        names_[slot] = static_cast<std::int32_t>(e) + 1;
    }
}

ClassTable::Entry* ClassTable::entryNamed(std::u16string_view name) noexcept {
    const std::int32_t id = find(name);
    return id == DISPID_UNKNOWN ? nullptr : &entries_[places_.at(id)];
}

const ClassTable::Entry* ClassTable::entryOf(std::int32_t id) const noexcept {
    const auto place = places_.find(id);
    return place == places_.end() ? nullptr : &entries_[place->second];
}

std::int32_t ClassTable::find(std::u16string_view name) const noexcept {
    if (names_.empty()) return DISPID_UNKNOWN;
    const std::size_t mask = names_.size() - 1;
    for (std::size_t slot = hashName(name) & mask; names_[slot] != 0; slot = (slot + 1) & mask) {
        const Entry& entry = entries_[static_cast<std::size_t>(names_[slot]) - 1];
        const int any = std::max({entry.method, entry.get, entry.let, entry.set, entry.field});
        if (sameName(members_[static_cast<std::size_t>(any)].name, name)) return entry.id;
    }
    return DISPID_UNKNOWN;
}

const Member* ClassTable::member(std::int32_t id, CallKind kind) const noexcept {
    const Entry* entry = entryOf(id);
    if (!entry) return nullptr;
    int place = -1;
    if (includes(kind, CallKind::Method)) place = entry->method;
    if (place < 0 && includes(kind, CallKind::Get)) place = entry->get >= 0 ? entry->get : entry->field;
    if (place < 0 && includes(kind, CallKind::Set)) place = entry->set >= 0 ? entry->set : entry->let;
    if (place < 0 && includes(kind, CallKind::Let)) place = entry->let >= 0 ? entry->let : entry->set;
    if (place < 0 && includes(kind, CallKind::Let | CallKind::Set)) place = entry->field;
    return place < 0 ? nullptr : &members_[static_cast<std::size_t>(place)];
}

const Member* ClassTable::event(std::u16string_view name) const noexcept {
    for (const Member& member : members_)
        if (member.kind == MemberKind::Event && sameName(member.name, name)) return &member;
    return nullptr;
}

const Member* ClassTable::event(std::int32_t id) const noexcept {
    for (const Member& member : members_)
        if (member.kind == MemberKind::Event && member.id == id) return &member;
    return nullptr;
}

Variant ClassTable::invoke(Object& object, std::int32_t id, CallKind kind, const Arguments& arguments) const {
    const Member* found = member(id, kind);
    if (!found) throwError(errors::MemberNotSupported);
    const bool writes = includes(kind, CallKind::Let | CallKind::Set);
    if (writes && found->kind == MemberKind::Field) {
        if (arguments.positional.size() != 1 || !arguments.named.empty())
            throwError(errors::WrongArgumentCount);
        const Variant* value = &arguments.positional[0];
        return found->put(object, &value);
    }
    if (!writes && takesNoArguments(*found) && !arguments.positional.empty())
        return indexInto(found->call(object, nullptr), arguments);
    const Layout layout(*found, arguments, writes);
    return found->call(object, layout.places());
}

} // namespace automation
