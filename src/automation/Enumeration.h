#pragma once
// Tables of the constants that the interface uses.

#include "automation/String.h"

#include <concepts>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string_view>
#include <vector>

namespace automation {

/// A named, ordered list of constants. An enumeration type is tied to its table by a function beside it:
///
///     enum tslBackStyleConstants : std::int32_t { tslBackStyleTransparent, tslBackStyleOpaque };
///     const automation::Enumeration& enumerationOf(tslBackStyleConstants);
///
/// whose body holds `static const Enumeration table("tslBackStyleConstants", {...}); return table;`.
/// Names are UTF-8.
class Enumeration {
public:
    struct Entry {
        String name;
        std::int32_t value;
        Entry(const char* entryName, std::int32_t entryValue)
            : name(String::fromUtf8(entryName)), value(entryValue) {}
    };

    Enumeration(const char* name, std::initializer_list<Entry> entries, const char* help = "")
        : name_(String::fromUtf8(name)), help_(String::fromUtf8(help)), entries_(entries) {}
    Enumeration(const Enumeration&) = delete;
    Enumeration& operator=(const Enumeration&) = delete;

    const String& name() const noexcept { return name_; }
    const String& help() const noexcept { return help_; }
    const std::vector<Entry>& entries() const noexcept { return entries_; }
    /// The constant of that name, whatever its case.
    std::optional<std::int32_t> find(std::u16string_view name) const;
    /// Name of the first entry with the value; empty if none has it.
    String nameOf(std::int32_t value) const;

private:
    String name_;
    String help_;
    std::vector<Entry> entries_;
};

/// A type that has its table.
template <class E>
concept Enumerated = requires(E value) {
    { enumerationOf(value) } -> std::same_as<const Enumeration&>;
};

} // namespace automation
