#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace host {

class FormSite;

/// The places of a form's controls by name and index, whatever the case of the names.
class SiteNames {
public:
    /// Null where there is none.
    FormSite* find(std::u16string_view name, short index) const;
    void add(FormSite& site);
    /// Under the name that it was added with; passed over if it wasn't.
    void remove(const FormSite& site);
    void clear();

private:
    struct Entry {
        std::uint32_t hash = 0;
        FormSite* site = nullptr; ///< Null in a free entry
    };

    std::size_t start(std::uint32_t hash) const { return hash & (entries_.size() - 1); }
    std::size_t after(std::size_t place) const { return (place + 1) & (entries_.size() - 1); }
    void put(Entry entry);
    void grow();

    // Each entry lies where its hash says or, when that was taken, behind in a row without free ones.
    std::vector<Entry> entries_; ///< A power of two of them, or none; half of them are free
    std::size_t count_ = 0;
};

} // namespace host
