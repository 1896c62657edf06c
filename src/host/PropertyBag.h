#pragma once

#include "automation/String.h"
#include "automation/Variant.h"

#include <cstdint>
#include <optional>
#include <span>
#include <utility>
#include <vector>

namespace host {

/// A list of different names, each of which is found whatever the case of its letters.
class PropertyNames {
public:
    explicit PropertyNames(std::vector<automation::String> names);

    std::size_t size() const { return names_.size(); }
    const automation::String& operator[](std::size_t place) const { return names_[place]; }
    /// The place of a name; size() where it isn't in the list.
    std::size_t find(std::u16string_view name) const;

private:
    std::vector<automation::String> names_;
    std::vector<std::uint32_t> slots_; ///< Places by the names' hashes
};

/// An ordered store of named values in which a control's properties persist. A value that equals its
/// default is not stored. Names compare without case. Fonts and pictures are values too (objects).
class PropertyBag {
public:
    using Item = std::pair<automation::String, automation::Variant>;

    virtual ~PropertyBag() = default;

    /// The stored value, or `defaultValue` if there is none of that name. A container's own bag answers it in
    /// its own way.
    virtual automation::Variant ReadProperty(const automation::String& name,
                                             const automation::Variant& defaultValue = {}) const;
    /// Many at once: what is stored under each of the names goes to the same place of `values`, which has a
    /// place for each name. Places of names without a value stay as they are.
    virtual void ReadProperties(const PropertyNames& names,
                                std::span<std::optional<automation::Variant>> values) const;

    /// Stores the value under its name, in the place of an older one; a value equal to the default removes
    /// it. Fonts are equal if all their attributes are, other objects if they are the same.
    void WriteProperty(const automation::String& name, const automation::Variant& value,
                       const automation::Variant& defaultValue = {});

    bool contains(const automation::String& name) const;
    /// In the order of their first writing.
    const std::vector<Item>& items() const { return items_; }
    void clear() { items_.clear(); }

    /// All values as text, one a line, in the language of form files; the writing replaces all.
    automation::String Contents() const;
    void Contents(const automation::String& text);

private:
    std::vector<Item> items_;
};

} // namespace host
