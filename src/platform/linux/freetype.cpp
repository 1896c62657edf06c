#include "platform/linux/freetype.h"

namespace platform::driver {

FacePointer openFace(const std::string& path, int index) {
    // Never closed: faces in the fonts of living contexts need it to the end.
    static const FT_Library library = [] {
        FT_Library made = nullptr;
        return FT_Init_FreeType(&made) == 0 ? made : nullptr;
    }();
    FT_Face face = nullptr;
    if (!library || FT_New_Face(library, path.c_str(), index, &face) != 0) return nullptr;
    return FacePointer(face);
}

} // namespace platform::driver
