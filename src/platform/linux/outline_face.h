#pragma once
// Scalable fonts.

#include "platform/linux/font_face.h"
#include "platform/linux/freetype.h"

namespace platform::driver {

class OutlineFace : public FontFace {
public:
    /// Null when the file cannot be read or does not scale.
    static std::shared_ptr<FontFace> open(const FontSource& source, const LOGFONTW& request);

    InkSpan ink(char16_t character) override;
    GlyphOutline outline(char16_t character) override;

protected:
    Glyph makeGlyph(char16_t character) override;
    int measure(char16_t character) override;

private:
    OutlineFace(FacePointer face, const FontSource& source, const LOGFONTW& request);

    void chooseSize(const LOGFONTW& request);
    void chooseShape(const LOGFONTW& request);
    void chooseSmoothing(BYTE quality);
    void readMetrics(const FontSource& source);
    unsigned indexOf(char16_t character) const;
    bool load(char16_t character, int flags);
    /// What stretches, slants and turns an outline.
    FT_Matrix transform() const;
    /// Where the loaded outline may paint, in 26.6 and whole pixels: the box around it, cut to the cell and
    /// then stretched, slanted and turned.
    FT_BBox room() const;
    void shape();
    int loadedAdvance() const;
    void drawOutline(Glyph& glyph);
    static void takePicture(const FT_Bitmap& bitmap, Glyph& glyph);
    bool isStretched() const { return widthWanted_ != widthOfItself_; }
    bool isRotated() const { return sin_ != 0 || cos_ != 1; }
    int stretched(int pixels) const;
    int scaled(int units) const;

    FacePointer face_;
    bool embolden_;
    bool slant_;
    int widthWanted_ = 0;   ///< Average width of a character to be stretched to, and
    int widthOfItself_ = 0; ///< what it is without; both 0 for letters as they are
    double cos_ = 1;        ///< Of the angle by which the letters lean
    double sin_ = 0;
    bool smooth_ = true;
    bool measuresAsDrawn_ = false;
    bool isSymbol_ = false;
    int pixelsPerEm_ = 1;
    int ascentUnits_ = 0;
    int descentUnits_ = 0;
};

} // namespace platform::driver
