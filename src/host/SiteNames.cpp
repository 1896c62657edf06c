#include "host/SiteNames.h"

#include "automation/Names.h"
#include "host/FormSite.h"

#include <utility>

namespace host {

namespace {

constexpr std::size_t fewestEntries = 16;

std::uint32_t hashOf(std::u16string_view name, short index) {
    constexpr std::uint32_t spread = 0x9E3779B1;
    return automation::hashName(name) + spread * static_cast<std::uint32_t>(index + 1);
}

} // namespace

FormSite* SiteNames::find(std::u16string_view name, short index) const {
    if (entries_.empty()) return nullptr;
    const std::uint32_t hash = hashOf(name, index);
    for (std::size_t place = start(hash); entries_[place].site; place = after(place)) {
        FormSite* site = entries_[place].site;
        if (entries_[place].hash == hash && site->index() == index &&
            automation::sameName(site->name(), name))
            return site;
    }
    return nullptr;
}

void SiteNames::add(FormSite& site) {
    if (2 * (count_ + 1) > entries_.size()) grow();
    put({hashOf(site.name(), site.index()), &site});
    ++count_;
}

void SiteNames::put(Entry entry) {
    std::size_t place = start(entry.hash);
    while (entries_[place].site)
        place = after(place);
    entries_[place] = entry;
}

void SiteNames::grow() {
    const std::size_t wanted = entries_.empty() ? fewestEntries : 2 * entries_.size();
    const auto former = std::exchange(entries_, std::vector<Entry>(wanted));
    for (const Entry& entry : former)
        if (entry.site) put(entry);
}

void SiteNames::remove(const FormSite& site) {
    if (entries_.empty()) return;
    std::size_t place = start(hashOf(site.name(), site.index()));
    while (entries_[place].site && entries_[place].site != &site)
        place = after(place);
    if (!entries_[place].site) return;
    entries_[place] = {};
    --count_;
    // Those behind it may have lain where they do because it was in their way.
    for (place = after(place); entries_[place].site; place = after(place))
        put(std::exchange(entries_[place], Entry()));
}

void SiteNames::clear() {
    entries_.clear();
    count_ = 0;
}

} // namespace host
