#include "platform/linux/font_face.h"

#include "platform/linux/bitmap_face.h"
#include "platform/linux/outline_face.h"

#include <algorithm>
#include <cstring>

namespace platform::driver {

namespace {

constexpr std::size_t glyphBytesPerFace = 1 << 20;
constexpr std::size_t widthsPerFace = 1 << 14;
constexpr std::size_t facesKept = 24;

struct CachedFace {
    LOGFONTW request;
    std::shared_ptr<FontFace> face;
};

bool sameRequest(const LOGFONTW& a, const LOGFONTW& b) {
    return a.lfHeight == b.lfHeight && a.lfWidth == b.lfWidth && a.lfEscapement == b.lfEscapement &&
           a.lfOrientation == b.lfOrientation && a.lfWeight == b.lfWeight && a.lfItalic == b.lfItalic &&
           a.lfCharSet == b.lfCharSet && a.lfQuality == b.lfQuality &&
           a.lfPitchAndFamily == b.lfPitchAndFamily && std::u16string_view(a.lfFaceName) == b.lfFaceName;
}

std::shared_ptr<FontFace> makeFace(const LOGFONTW& request) {
    const FontSource source = findFont(request);
    if (source.path.empty()) return nullptr;
    if (std::shared_ptr<FontFace> face = BitmapFace::open(source, request)) return face;
    return OutlineFace::open(source, request);
}

/// The runs of a picture.
std::vector<GlyphRun> runsOf(const Glyph& glyph) {
    std::vector<GlyphRun> runs;
    const std::uint8_t* pixel = glyph.coverage.data();
    for (int y = 0; y < glyph.height; ++y) {
        for (int x = 0; x < glyph.width; ++x, ++pixel) {
            if (*pixel <= faintCoverage) continue;
            const bool continues = x > 0 && pixel[-1] > faintCoverage;
            if (continues)
                ++runs.back().length;
            else
                runs.push_back({static_cast<std::int16_t>(x), static_cast<std::int16_t>(y), 1});
        }
    }
    return runs;
}

} // namespace

void FontFace::makeRoom(std::size_t bytes) {
    if (bytes_ + bytes <= glyphBytesPerFace) return;
    for (std::unique_ptr<Glyph>& glyph : direct_)
        glyph.reset();
    others_.clear();
    bytes_ = 0;
}

const Glyph& FontFace::glyph(char16_t character) {
    if (character < directCount && direct_[character]) return *direct_[character];
    if (character >= directCount) {
        if (const auto found = others_.find(character); found != others_.end()) return found->second;
    }
    Glyph made = makeGlyph(character);
    made.runs = runsOf(made);
    const std::size_t bytes = sizeof(Glyph) + made.coverage.size() + made.runs.size() * sizeof(GlyphRun);
    makeRoom(bytes);
    bytes_ += bytes;
    if (character >= directCount) return others_.insert_or_assign(character, std::move(made)).first->second;
    direct_[character] = std::make_unique<Glyph>(std::move(made));
    return *direct_[character];
}

int FontFace::findAdvance(char16_t character) {
    if (character < directCount) return directAdvances_[character] = measure(character);
    if (const auto found = otherAdvances_.find(character); found != otherAdvances_.end())
        return found->second;
    if (otherAdvances_.size() >= widthsPerFace) otherAdvances_.clear();
    return otherAdvances_[character] = measure(character);
}

std::shared_ptr<FontFace> FontFace::get(const LOGFONTW& request) {
    // Never destroyed: fonts may be selected into contexts that outlive other static objects.
    static std::list<CachedFace>& cache = *new std::list<CachedFace>;
    const auto found = std::find_if(cache.begin(), cache.end(),
                                    [&](const CachedFace& c) { return sameRequest(c.request, request); });
    if (found != cache.end()) {
        cache.splice(cache.begin(), cache, found);
        return found->face;
    }
    std::shared_ptr<FontFace> face = makeFace(request);
    if (!face) return nullptr;
    cache.push_front({request, face});
    if (cache.size() > facesKept) cache.pop_back();
    return face;
}

} // namespace platform::driver
