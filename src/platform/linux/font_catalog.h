#pragma once
// From the font that a program asks for to the file that serves it. The names that programs of the platform
// use lead to metric-compatible fonts; other names are looked up among all fonts of the system.

#include "platform/gdi_types.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace platform::driver {

enum class FontFamily { Sans, Serif, Fixed, Decorative };

/// One font file chosen for a request, and what is still to be done to its glyphs.
struct FontSource {
    std::string path;
    int index = 0;           ///< Of the face in the file
    std::u16string faceName; ///< What GetTextFaceW answers
    FontFamily family = FontFamily::Sans;
    bool isBold = false;   ///< The file's own weight
    bool isItalic = false; ///< The file's own slant
    bool embolden = false;
    bool slant = false;
};

/// The best file for a font record. The path is empty when the system has no font at all.
FontSource findFont(const LOGFONTW& request);

/// A family as EnumFontFamiliesExW reports it.
struct FontEntry {
    std::u16string family;
    std::u16string style;
    FontSource source;
};

/// All families in order of their names, or the styles of one family. A name in the table of the platform's
/// fonts is a family of its own.
std::vector<FontEntry> listFonts(std::u16string_view family);

} // namespace platform::driver
