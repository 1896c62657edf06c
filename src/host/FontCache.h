#pragma once

#include "platform/gdi.h"

#include <cstddef>
#include <list>

namespace host {

/// GDI fonts shared by all font objects that ask for the same one.
class FontCache {
public:
    /// A font for these attributes; each call must be paired with a `release`.
    platform::HFONT acquire(const platform::LOGFONTW& wanted);
    void release(platform::HFONT font);
    /// Fonts alive now.
    std::size_t size() const { return entries_.size(); }

private:
    struct Entry {
        platform::LOGFONTW attributes;
        platform::HFONT font;
        int users = 0;
    };

    std::list<Entry> entries_;
};

} // namespace host
