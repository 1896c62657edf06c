#include "platform/linux/outline_face.h"

#include FT_OUTLINE_H
#include FT_GASP_H
#include FT_GLYPH_H
#include FT_TRUETYPE_TABLES_H

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <numbers>

namespace platform::driver {

namespace {

constexpr int defaultHeight = 16;
constexpr int largestSize = 2048;           ///< Pixels per em; larger text is cut down to this
constexpr FT_Fixed slantOfItalics = 0x4000; ///< One to the right for four up, 16.16
constexpr int emboldenShare = 24;           ///< Made bold by a 24th of the em
constexpr char16_t symbolArea = 0xF000;     ///< Where symbol fonts keep the codes of one byte

/// The product divided and rounded to the nearest, halves away from zero.
int roundedRatio(std::int64_t a, std::int64_t b, std::int64_t divisor) {
    const std::int64_t product = a * b;
    const std::int64_t half = divisor / 2;
    return static_cast<int>(product >= 0 ? (product + half) / divisor : -((-product + half) / divisor));
}

TT_OS2* os2Of(FT_Face face) {
    return static_cast<TT_OS2*>(FT_Get_Sfnt_Table(face, FT_SFNT_OS2));
}
TT_HoriHeader* horizontalHeaderOf(FT_Face face) {
    return static_cast<TT_HoriHeader*>(FT_Get_Sfnt_Table(face, FT_SFNT_HHEA));
}

/// What the font says of its own looks.
BYTE familyBits(const TT_OS2* os2, bool isFixed) {
    constexpr int latinText = 2;
    constexpr int firstSerif = 2;
    constexpr int lastSerif = 10;
    if (isFixed) return FF_MODERN;
    const bool isSerif =
        os2 && os2->panose[0] == latinText && os2->panose[1] >= firstSerif && os2->panose[1] <= lastSerif;
    return isSerif ? FF_ROMAN : FF_SWISS;
}

/// FreeType's 256 levels as those of a glyph.
std::uint8_t coverageOf(unsigned level) {
    return static_cast<std::uint8_t>(level * (fullCoverage + 1) / 256);
}

// Whole pixels in 26.6.
FT_Pos floorOf(FT_Pos position) {
    return position & -64;
}
FT_Pos ceilingOf(FT_Pos position) {
    return floorOf(position + 63);
}

/// Reads FreeType's outlines as figures of lines and cubic curves.
class OutlineReader {
public:
    GlyphOutline read(FT_Outline& outline) {
        const FT_Outline_Funcs callbacks{&moveTo, &lineTo, &conicTo, &cubicTo, 0, 0};
        FT_Outline_Decompose(&outline, &callbacks, this);
        closeFigure();
        return std::move(result_);
    }

private:
    static OutlineReader& self(void* user) { return *static_cast<OutlineReader*>(user); }

    static int moveTo(const FT_Vector* to, void* user) {
        self(user).closeFigure();
        self(user).add(*to, PT_MOVETO);
        return 0;
    }
    static int lineTo(const FT_Vector* to, void* user) {
        self(user).add(*to, PT_LINETO);
        return 0;
    }
    static int conicTo(const FT_Vector* control, const FT_Vector* to, void* user) {
        // The cubic curve of the same shape: its controls lie two thirds of the way to that of the conic one.
        const auto towards = [control](const FT_Vector& end) {
            return FT_Vector{end.x + (control->x - end.x) * 2 / 3, end.y + (control->y - end.y) * 2 / 3};
        };
        const FT_Vector first = towards(self(user).last_);
        const FT_Vector second = towards(*to);
        return cubicTo(&first, &second, to, user);
    }
    static int cubicTo(const FT_Vector* first, const FT_Vector* second, const FT_Vector* to, void* user) {
        for (const FT_Vector* point : {first, second, to})
            self(user).add(*point, PT_BEZIERTO);
        return 0;
    }

    void add(const FT_Vector& point, BYTE type) {
        last_ = point;
        result_.points.push_back(
            {static_cast<LONG>((point.x + 32) >> 6), -static_cast<LONG>((point.y + 32) >> 6)});
        result_.types.push_back(type);
    }

    /// The line back to the start is told by the mark alone.
    void closeFigure() {
        if (result_.types.empty()) return;
        std::size_t start = result_.types.size() - 1;
        while (result_.types[start] != PT_MOVETO)
            --start;
        const bool returns =
            result_.types.back() == PT_LINETO && result_.points.back() == result_.points[start];
        if (returns) {
            result_.points.pop_back();
            result_.types.pop_back();
        }
        if (result_.types.back() != PT_MOVETO) result_.types.back() |= PT_CLOSEFIGURE;
    }

    GlyphOutline result_;
    FT_Vector last_{};
};

/// A bitmap without its rows' ends and with a byte for each pixel.
std::vector<std::uint8_t> coverageOf(const FT_Bitmap& bitmap) {
    std::vector<std::uint8_t> coverage;
    coverage.reserve(std::size_t{bitmap.width} * bitmap.rows);
    for (unsigned y = 0; y < bitmap.rows; ++y) {
        const unsigned char* row = bitmap.buffer + std::ptrdiff_t{bitmap.pitch} * y;
        for (unsigned x = 0; x < bitmap.width; ++x) {
            const bool isMono = bitmap.pixel_mode == FT_PIXEL_MODE_MONO;
            const bool isSet = isMono && (row[x >> 3] >> (7 - (x & 7)) & 1) != 0;
            coverage.push_back(isMono ? (isSet ? fullCoverage : 0) : coverageOf(row[x]));
        }
    }
    return coverage;
}

} // namespace

std::shared_ptr<FontFace> OutlineFace::open(const FontSource& source, const LOGFONTW& request) {
    FacePointer face = openFace(source.path, source.index);
    if (!face || !FT_IS_SCALABLE(face.get())) return nullptr;
    return std::shared_ptr<FontFace>(new OutlineFace(std::move(face), source, request));
}

OutlineFace::OutlineFace(FacePointer face, const FontSource& source, const LOGFONTW& request)
    : face_(std::move(face)), embolden_(source.embolden), slant_(source.slant) {
    faceName_ = source.faceName;
    if (FT_Select_Charmap(face_.get(), FT_ENCODING_UNICODE) != 0)
        isSymbol_ = FT_Select_Charmap(face_.get(), FT_ENCODING_MS_SYMBOL) == 0;
    chooseSize(request);
    chooseSmoothing(request.lfQuality);
    readMetrics(source);
    chooseShape(request);
}

void OutlineFace::chooseShape(const LOGFONTW& request) {
    if (request.lfWidth != 0) {
        constexpr LONG widest = 4096;
        widthOfItself_ = metrics_.tmAveCharWidth;
        widthWanted_ = std::min(std::abs(std::max(request.lfWidth, -widest)), widest);
        metrics_.tmMaxCharWidth = roundedRatio(metrics_.tmMaxCharWidth, widthWanted_, widthOfItself_);
        metrics_.tmAveCharWidth = widthWanted_;
    }
    if (request.lfEscapement % 3600 != 0) {
        const double angle = request.lfEscapement * std::numbers::pi / 1800;
        cos_ = std::cos(angle);
        sin_ = std::sin(angle);
    }
}

int OutlineFace::stretched(int pixels) const {
    return isStretched() ? (pixels * widthWanted_ + widthOfItself_ - 1) / widthOfItself_ : pixels;
}

void OutlineFace::chooseSize(const LOGFONTW& request) {
    const TT_OS2* os2 = os2Of(face_.get());
    ascentUnits_ = os2 && os2->usWinAscent + os2->usWinDescent > 0 ? os2->usWinAscent : face_->ascender;
    descentUnits_ = os2 && os2->usWinAscent + os2->usWinDescent > 0 ? os2->usWinDescent : -face_->descender;
    const LONG height = request.lfHeight == 0 ? defaultHeight : request.lfHeight;
    const int cell = std::max(1, ascentUnits_ + descentUnits_);
    std::int64_t size = -std::int64_t{height};
    if (height > 0) {
        constexpr LONG sensible = 1 << 20;
        const int fitted = std::min<LONG>(height, sensible);
        size = roundedRatio(face_->units_per_EM, fitted, cell);
        if (roundedRatio(size, cell, face_->units_per_EM) > fitted) --size;
    }
    pixelsPerEm_ = static_cast<int>(std::clamp<std::int64_t>(size, 1, largestSize));
    FT_Set_Pixel_Sizes(face_.get(), 0, static_cast<FT_UInt>(pixelsPerEm_));
}

void OutlineFace::chooseSmoothing(BYTE quality) {
    measuresAsDrawn_ = quality == fewColorsQuality;
    smooth_ = quality != NONANTIALIASED_QUALITY && !measuresAsDrawn_;
    const FT_Int advice = FT_Get_Gasp(face_.get(), static_cast<FT_UInt>(pixelsPerEm_));
    // The font's advice is for its upright letters.
    if (advice != FT_GASP_NO_TABLE && (advice & FT_GASP_DO_GRAY) == 0 && !slant_) smooth_ = false;
}

int OutlineFace::scaled(int units) const {
    return roundedRatio(units, pixelsPerEm_, face_->units_per_EM);
}

void OutlineFace::readMetrics(const FontSource& source) {
    const TT_OS2* os2 = os2Of(face_.get());
    const TT_HoriHeader* horizontal = horizontalHeaderOf(face_.get());
    metrics_.tmAscent = scaled(ascentUnits_);
    metrics_.tmDescent = scaled(descentUnits_);
    metrics_.tmHeight = metrics_.tmAscent + metrics_.tmDescent;
    metrics_.tmInternalLeading = scaled(ascentUnits_ + descentUnits_ - face_->units_per_EM);
    if (horizontal) {
        const int lines = horizontal->Ascender - horizontal->Descender + horizontal->Line_Gap;
        metrics_.tmExternalLeading = std::max(0, scaled(lines - ascentUnits_ - descentUnits_));
    }
    metrics_.tmAveCharWidth = os2 ? scaled(os2->xAvgCharWidth) : scaled(face_->max_advance_width);
    metrics_.tmMaxCharWidth = scaled(static_cast<int>(face_->bbox.xMax - face_->bbox.xMin));
    metrics_.tmAveCharWidth = std::max(1, static_cast<int>(metrics_.tmAveCharWidth));
    metrics_.tmMaxCharWidth = std::max(1, static_cast<int>(metrics_.tmMaxCharWidth));
    metrics_.tmWeight = embolden_ || source.isBold ? FW_BOLD : FW_NORMAL;
    constexpr int dotsPerInch = 96;
    metrics_.tmDigitizedAspectX = dotsPerInch;
    metrics_.tmDigitizedAspectY = dotsPerInch;
    const int first = os2 ? os2->usFirstCharIndex : u' ';
    metrics_.tmFirstChar = static_cast<char16_t>(first);
    metrics_.tmLastChar = os2 ? os2->usLastCharIndex : 0xFFFF;
    metrics_.tmBreakChar = static_cast<char16_t>(first <= 1 ? first + 2 : first > 0xFF ? u' ' : first);
    metrics_.tmDefaultChar = static_cast<char16_t>(metrics_.tmBreakChar - 1);
    metrics_.tmItalic = slant_ || source.isItalic ? 255 : 0;
    const bool isFixed = FT_IS_FIXED_WIDTH(face_.get());
    metrics_.tmPitchAndFamily = static_cast<BYTE>(TMPF_TRUETYPE | TMPF_VECTOR | familyBits(os2, isFixed) |
                                                  (isFixed ? 0 : TMPF_FIXED_PITCH));
    metrics_.tmCharSet = isSymbol_ ? SYMBOL_CHARSET : ANSI_CHARSET;
    // FreeType gives the middle of the underline; the lines are centred on its upper edge.
    const int thickness = scaled(face_->underline_thickness);
    const TextLine underline{scaled(face_->underline_position + face_->underline_thickness / 2), thickness};
    const TextLine strikeOut = os2 ? TextLine{scaled(os2->yStrikeoutPosition), scaled(os2->yStrikeoutSize)}
                                   : TextLine{static_cast<int>(metrics_.tmAscent / 3), thickness};
    lines_ = TextLines{underline, strikeOut};
}

unsigned OutlineFace::indexOf(char16_t character) const {
    if (!isSymbol_) return FT_Get_Char_Index(face_.get(), character);
    const unsigned index =
        FT_Get_Char_Index(face_.get(), character < 0x100 ? symbolArea + character : character);
    return index != 0 ? index : FT_Get_Char_Index(face_.get(), character);
}

bool OutlineFace::load(char16_t character, int flags) {
    return FT_Load_Glyph(face_.get(), indexOf(character), flags) == 0;
}

FT_Matrix OutlineFace::transform() const {
    constexpr FT_Fixed one = 0x10000;
    const auto fixed = [](double value) { return static_cast<FT_Fixed>(std::lround(value * one)); };
    FT_Matrix matrix{one, 0, 0, one};
    if (isStretched()) matrix.xx = std::int64_t{widthWanted_} * one / widthOfItself_; // cut, not rounded
    const FT_Matrix slant{one, slantOfItalics, 0, one};
    const FT_Matrix turn{fixed(cos_), fixed(-sin_), fixed(sin_), fixed(cos_)};
    if (slant_) FT_Matrix_Multiply(&slant, &matrix);
    if (isRotated()) FT_Matrix_Multiply(&turn, &matrix);
    return matrix;
}

void OutlineFace::shape() {
    FT_GlyphSlot slot = face_->glyph;
    if (slot->format != FT_GLYPH_FORMAT_OUTLINE) return;
    if (embolden_) FT_Outline_Embolden(&slot->outline, (pixelsPerEm_ << 6) / emboldenShare);
    if (!slant_ && !isStretched() && !isRotated()) return;
    const FT_Matrix matrix = transform();
    FT_Outline_Transform(&slot->outline, &matrix);
}

FT_BBox OutlineFace::room() const {
    const FT_Glyph_Metrics& metrics = face_->glyph->metrics;
    const FT_Pos ascent = std::int64_t{metrics_.tmAscent} * 64;
    const FT_Pos descent = std::int64_t{metrics_.tmDescent} * 64;
    const FT_Pos left = floorOf(metrics.horiBearingX);
    const FT_Pos right = ceilingOf(metrics.horiBearingX + metrics.width);
    const FT_Pos top = std::min(ceilingOf(metrics.horiBearingY), ascent);
    const FT_Pos bottom = std::max(floorOf(metrics.horiBearingY - metrics.height), -descent);
    std::array<FT_Vector, 4> corners{{{left, top}, {right, top}, {right, bottom}, {left, bottom}}};
    const FT_Matrix matrix = transform();
    for (FT_Vector& corner : corners)
        FT_Vector_Transform(&corner, &matrix);
    FT_BBox box{corners[0].x, corners[0].y, corners[0].x, corners[0].y};
    for (const FT_Vector& corner : corners)
        box = {std::min(box.xMin, corner.x), std::min(box.yMin, corner.y), std::max(box.xMax, corner.x),
               std::max(box.yMax, corner.y)};
    return {floorOf(box.xMin), floorOf(box.yMin), ceilingOf(box.xMax), ceilingOf(box.yMax)};
}

int OutlineFace::loadedAdvance() const {
    const int bolder = embolden_ ? std::max(1, pixelsPerEm_ / emboldenShare) : 0;
    return stretched(static_cast<int>((face_->glyph->advance.x + 32) >> 6) + bolder);
}

int OutlineFace::measure(char16_t character) {
    if (measuresAsDrawn_) return glyph(character).advance;
    return load(character, FT_LOAD_TARGET_NORMAL | FT_LOAD_NO_BITMAP) ? loadedAdvance() : 0;
}

InkSpan OutlineFace::ink(char16_t character) {
    if (!load(character, FT_LOAD_TARGET_NORMAL | FT_LOAD_NO_BITMAP)) return {};
    shape();
    FT_BBox box{};
    FT_Outline_Get_CBox(&face_->glyph->outline, &box);
    const int left = static_cast<int>(box.xMin >> 6);
    return {left, std::max(1, static_cast<int>((box.xMax + 63) >> 6) - left)};
}

GlyphOutline OutlineFace::outline(char16_t character) {
    if (!load(character, FT_LOAD_NO_BITMAP | FT_LOAD_TARGET_NORMAL)) return {};
    if (face_->glyph->format != FT_GLYPH_FORMAT_OUTLINE) return {};
    shape();
    return OutlineReader().read(face_->glyph->outline);
}

void OutlineFace::takePicture(const FT_Bitmap& bitmap, Glyph& glyph) {
    glyph.width = static_cast<int>(bitmap.width);
    glyph.height = static_cast<int>(bitmap.rows);
    glyph.coverage = coverageOf(bitmap);
    glyph.smooth = std::any_of(glyph.coverage.begin(), glyph.coverage.end(),
                               [](std::uint8_t c) { return c != 0 && c != fullCoverage; });
}

Glyph OutlineFace::makeGlyph(char16_t character) {
    Glyph glyph;
    // Ready-made pictures of small sizes are preferred, but cannot be leaned, thickened, stretched or turned.
    const int pictures = embolden_ || slant_ || isStretched() || isRotated() ? FT_LOAD_NO_BITMAP : 0;
    if (!load(character, pictures | (smooth_ ? FT_LOAD_TARGET_NORMAL : FT_LOAD_TARGET_MONO))) return glyph;
    glyph.advance = loadedAdvance();
    const FT_GlyphSlot slot = face_->glyph;
    if (slot->format == FT_GLYPH_FORMAT_OUTLINE) {
        drawOutline(glyph);
    } else {
        glyph.left = slot->bitmap_left;
        glyph.top = slot->bitmap_top;
        takePicture(slot->bitmap, glyph);
    }
    return glyph;
}

void OutlineFace::drawOutline(Glyph& glyph) {
    constexpr FT_Pos mostPixels = 1 << 26;
    const FT_BBox box = room();
    const FT_Pos width = (box.xMax - box.xMin) / 64;
    const FT_Pos height = (box.yMax - box.yMin) / 64;
    if (width <= 0 || height <= 0 || width > mostPixels / height) return;
    shape();
    const FT_GlyphSlot slot = face_->glyph;
    FT_Outline_Translate(&slot->outline, -box.xMin, -box.yMin);
    FT_Bitmap bitmap{};
    bitmap.width = static_cast<unsigned>(width);
    bitmap.rows = static_cast<unsigned>(height);
    bitmap.pitch = static_cast<int>(smooth_ ? width : (width + 7) / 8);
    bitmap.num_grays = 256;
    bitmap.pixel_mode = smooth_ ? FT_PIXEL_MODE_GRAY : FT_PIXEL_MODE_MONO;
    std::vector<unsigned char> rows(static_cast<std::size_t>(bitmap.pitch) * bitmap.rows);
    bitmap.buffer = rows.data();
    if (FT_Outline_Get_Bitmap(slot->library, &slot->outline, &bitmap) != 0) return;
    glyph.left = static_cast<int>(box.xMin / 64);
    glyph.top = static_cast<int>(box.yMax / 64);
    takePicture(bitmap, glyph);
}

} // namespace platform::driver
