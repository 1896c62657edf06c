#include "host/FontCache.h"

#include <algorithm>
#include <string_view>

namespace host {

namespace {

bool same(const platform::LOGFONTW& a, const platform::LOGFONTW& b) {
    return a.lfHeight == b.lfHeight && a.lfWeight == b.lfWeight && a.lfItalic == b.lfItalic &&
           a.lfUnderline == b.lfUnderline && a.lfStrikeOut == b.lfStrikeOut && a.lfCharSet == b.lfCharSet &&
           std::u16string_view(a.lfFaceName) == std::u16string_view(b.lfFaceName);
}

} // namespace

platform::HFONT FontCache::acquire(const platform::LOGFONTW& wanted) {
    auto entry = std::find_if(entries_.begin(), entries_.end(),
                              [&](const Entry& e) { return same(e.attributes, wanted); });
    if (entry == entries_.end())
        entry = entries_.insert(entries_.end(), Entry{wanted, platform::CreateFontIndirectW(&wanted), 0});
    ++entry->users;
    return entry->font;
}

void FontCache::release(platform::HFONT font) {
    const auto entry =
        std::find_if(entries_.begin(), entries_.end(), [&](const Entry& e) { return e.font == font; });
    if (entry == entries_.end() || --entry->users > 0) return;
    platform::DeleteObject(entry->font);
    entries_.erase(entry);
}

} // namespace host
