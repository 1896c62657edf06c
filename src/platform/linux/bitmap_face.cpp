#include "platform/linux/bitmap_face.h"

#include "platform/locale.h"

#include FT_WINFONTS_H

#include <algorithm>
#include <cstdlib>

namespace platform::driver {

namespace {

constexpr int slantPerRow = 4; ///< Rows up for one pixel to the right

bool readHeader(FT_Face face, FT_WinFNT_HeaderRec& header) {
    return FT_Get_WinFNT_Header(face, &header) == 0;
}

/// What a record's height is compared with: the cell, or without the space above the letters.
int comparedHeight(const FT_WinFNT_HeaderRec& header, LONG height) {
    return height < 0 ? header.pixel_height - header.internal_leading : header.pixel_height;
}

/// How many times a size is enlarged for a height. The next whole multiple is taken when no more than a
/// quarter of the cell is missing, or a fifth where it would be the first.
int scaleFor(const FT_WinFNT_HeaderRec& header, LONG height) {
    constexpr std::int64_t tallest = 4096;
    const int cell = header.pixel_height;
    const int wanted = static_cast<int>(std::min(
        std::llabs(height) + (height < 0 ? header.internal_leading : 0), static_cast<long long>(tallest)));
    const int scale = std::max(1, wanted / cell);
    const int missing = (scale + 1) * cell - wanted;
    const int share = scale == 1 ? 5 : 4;
    return wanted > cell && missing * share <= cell ? scale + 1 : scale;
}

} // namespace

std::shared_ptr<FontFace> BitmapFace::open(const FontSource& source, const LOGFONTW& request) {
    FacePointer best;
    FT_WinFNT_HeaderRec bestHeader{};
    const LONG wanted = std::abs(std::max<LONG>(request.lfHeight, -0x7FFFFFFF));
    for (int index = 0;; ++index) {
        FacePointer face = openFace(source.path, index);
        FT_WinFNT_HeaderRec header{};
        if (!face || !readHeader(face.get(), header) || header.pixel_height == 0) break;
        // The largest that does not exceed the height, else the smallest.
        const int size = comparedHeight(header, request.lfHeight);
        const int bestSize = comparedHeight(bestHeader, request.lfHeight);
        const bool fits = size <= wanted;
        const bool bestFits = best && bestSize <= wanted;
        const bool better = !best || (fits ? !bestFits || size > bestSize : !bestFits && size < bestSize);
        if (!better) continue;
        best = std::move(face);
        bestHeader = header;
    }
    if (!best) return nullptr;
    FT_Select_Size(best.get(), 0);
    if (best->num_charmaps > 0) FT_Set_Charmap(best.get(), best->charmaps[0]);
    const int scale = scaleFor(bestHeader, request.lfHeight);
    std::shared_ptr<BitmapFace> made(new BitmapFace(std::move(best), source, scale));
    made->chooseWidth(request.lfWidth);
    return made;
}

BitmapFace::BitmapFace(FacePointer face, const FontSource& source, int scale)
    : face_(std::move(face)), scale_(scale), embolden_(source.embolden), slant_(source.slant) {
    faceName_ = source.faceName;
    readMetrics(source);
}

void BitmapFace::readMetrics(const FontSource& source) {
    FT_WinFNT_HeaderRec header{};
    readHeader(face_.get(), header);
    defaultCharacter_ = static_cast<unsigned>(header.first_char + header.default_char);
    const int bolder = embolden_ ? 1 : 0;
    metrics_.tmHeight = header.pixel_height * scale_;
    metrics_.tmAscent = header.ascent * scale_;
    metrics_.tmDescent = metrics_.tmHeight - metrics_.tmAscent;
    metrics_.tmInternalLeading = header.internal_leading * scale_;
    metrics_.tmExternalLeading = header.external_leading * scale_;
    metrics_.tmAveCharWidth = (header.avg_width + bolder) * scale_;
    metrics_.tmMaxCharWidth = (header.max_width + bolder) * scale_;
    metrics_.tmWeight = embolden_ ? FW_BOLD : static_cast<LONG>(header.weight);
    metrics_.tmOverhang = bolder;
    metrics_.tmDigitizedAspectX = header.horizontal_resolution;
    metrics_.tmDigitizedAspectY = header.vertical_resolution;
    metrics_.tmFirstChar = header.first_char;
    metrics_.tmLastChar = header.last_char;
    metrics_.tmDefaultChar = static_cast<char16_t>(defaultCharacter_);
    metrics_.tmBreakChar = static_cast<char16_t>(header.first_char + header.break_char);
    metrics_.tmItalic = source.slant ? 255 : 0;
    metrics_.tmPitchAndFamily = static_cast<BYTE>(header.pitch_and_family);
    metrics_.tmCharSet = header.charset;
}

void BitmapFace::chooseWidth(LONG width) {
    constexpr LONG widest = 4096;
    if (width == 0) return;
    FT_WinFNT_HeaderRec header{};
    readHeader(face_.get(), header);
    widthOfItself_ = std::max<int>(1, header.avg_width);
    widthWanted_ = std::min(std::abs(std::max(width, -widest)), widest);
    const int bolder = embolden_ ? 1 : 0;
    const auto widened = [&](int own) {
        return ((own + bolder) * widthWanted_ * 2 + widthOfItself_) / (2 * widthOfItself_);
    };
    metrics_.tmMaxCharWidth = widened(header.max_width);
    metrics_.tmAveCharWidth = widened(header.avg_width);
}

bool BitmapFace::load(char16_t character) {
    const std::string byte = ansiFromWide(std::u16string_view(&character, 1));
    unsigned code = byte.size() == 1 ? static_cast<unsigned char>(byte[0]) : defaultCharacter_;
    if (code == '?' && character != u'?') code = defaultCharacter_;
    unsigned index = FT_Get_Char_Index(face_.get(), code);
    if (index == 0) index = FT_Get_Char_Index(face_.get(), defaultCharacter_);
    return FT_Load_Glyph(face_.get(), index, FT_LOAD_DEFAULT) == 0;
}

int BitmapFace::measure(char16_t character) {
    if (!load(character)) return 0;
    const int own = static_cast<int>(face_->glyph->advance.x >> 6);
    const int bolder = embolden_ ? 1 : 0;
    if (widthWanted_ == 0) return own * scale_ + bolder;
    // The pictures stay as they are: only the distances between them change.
    return (own * widthWanted_ + widthOfItself_ - 1) / widthOfItself_ + bolder;
}

Glyph BitmapFace::makeGlyph(char16_t character) {
    Glyph glyph;
    glyph.advance = measure(character);
    if (!load(character)) return glyph;
    const FT_Bitmap& bitmap = face_->glyph->bitmap;
    const int rows = static_cast<int>(bitmap.rows) * scale_;
    const int columns = static_cast<int>(bitmap.width) * scale_;
    const int extraSlant = slant_ ? (rows + slantPerRow - 1) / slantPerRow : 0;
    glyph.top = face_->glyph->bitmap_top * scale_;
    glyph.left = face_->glyph->bitmap_left * scale_;
    // Letters lean around the base line, so that they neither run ahead nor lag behind.
    if (slant_) glyph.left -= (rows - glyph.top) / slantPerRow + 1;
    glyph.width = columns + (embolden_ ? 1 : 0) + extraSlant;
    glyph.height = rows;
    glyph.coverage.assign(static_cast<std::size_t>(glyph.width) * static_cast<std::size_t>(rows), 0);
    for (int y = 0; y < rows; ++y) {
        const unsigned char* row = bitmap.buffer + std::ptrdiff_t{bitmap.pitch} * (y / scale_);
        const int shift = slant_ ? (rows - 1 - y) / slantPerRow : 0;
        std::uint8_t* out = glyph.coverage.data() + static_cast<std::ptrdiff_t>(y) * glyph.width + shift;
        for (int column = 0; column < static_cast<int>(bitmap.width); ++column) {
            if (!(row[column >> 3] >> (7 - (column & 7)) & 1)) continue;
            std::fill_n(out + std::ptrdiff_t{column} * scale_, scale_ + (embolden_ ? 1 : 0),
                        std::uint8_t{fullCoverage});
        }
    }
    return glyph;
}

} // namespace platform::driver
