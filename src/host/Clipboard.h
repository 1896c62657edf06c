#pragma once

#include "host/Picture.h"

namespace host {

/// Formats of the clipboard; the values are the platform's.
enum class ClipboardFormat : int {
    None = 0,
    Text = 1,
    Bitmap = 2,
    Metafile = 3,
    DIB = 8,
    Palette = 9,
    EMetafile = 14
};

/// The system's clipboard.
class Clipboard {
public:
    static void Clear();
    /// The empty text if the clipboard holds none.
    static automation::String GetText();
    /// Throws automation::Error 521 if the clipboard can't be opened.
    static void SetText(const automation::String& text);
    static bool GetFormat(ClipboardFormat format);
    /// The picture on the clipboard; the empty picture if it holds none in that form. Without a format, a
    /// bitmap before a metafile. Throws automation::Error 461 for a format that isn't a picture's.
    static automation::Ref<Picture> GetData(ClipboardFormat format = ClipboardFormat::None);
    /// Puts a copy of a picture on the clipboard, beside what it holds. Without a format, in its own. Throws
    /// automation::Error 461 if the picture can't take the format, 521 if the clipboard can't be opened.
    static void SetData(const Picture& picture, ClipboardFormat format = ClipboardFormat::None);
};

} // namespace host
