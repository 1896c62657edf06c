#pragma once
// Fonts drawn pixel by pixel in a few sizes; a larger size than there is comes from enlarging one.

#include "platform/linux/font_face.h"
#include "platform/linux/freetype.h"

namespace platform::driver {

class BitmapFace : public FontFace {
public:
    /// Null when the file is not a font of this kind.
    static std::shared_ptr<FontFace> open(const FontSource& source, const LOGFONTW& request);

protected:
    Glyph makeGlyph(char16_t character) override;
    int measure(char16_t character) override;

private:
    BitmapFace(FacePointer face, const FontSource& source, int scale);

    void readMetrics(const FontSource& source);
    bool load(char16_t character);
    void chooseWidth(LONG width);

    FacePointer face_;
    int scale_;
    bool embolden_;
    bool slant_;
    int widthWanted_ = 0;   ///< Average width of a character to which the distances are stretched, and
    int widthOfItself_ = 0; ///< what it is without; both 0 for letters as they are
    unsigned defaultCharacter_ = 0;
};

} // namespace platform::driver
