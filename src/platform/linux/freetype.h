#pragma once
// FreeType's library and faces with owners.

#include <ft2build.h>
#include FT_FREETYPE_H

#include <memory>
#include <string>

namespace platform::driver {

struct FaceCloser {
    void operator()(FT_Face face) const { FT_Done_Face(face); }
};
using FacePointer = std::unique_ptr<FT_FaceRec_, FaceCloser>;

/// A face of a font file; null when it cannot be read.
FacePointer openFace(const std::string& path, int index);

} // namespace platform::driver
