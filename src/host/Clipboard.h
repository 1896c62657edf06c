#pragma once

#include "automation/String.h"

namespace host {

/// Formats of the clipboard; the values are the platform's.
enum class ClipboardFormat : int { Text = 1, Bitmap = 2, Metafile = 3, DIB = 8, Palette = 9, EMetafile = 14 };

/// The system's clipboard.
class Clipboard {
public:
    static void Clear();
    /// The empty text if the clipboard holds none.
    static automation::String GetText();
    /// Throws automation::Error 521 if the clipboard can't be opened.
    static void SetText(const automation::String& text);
    static bool GetFormat(ClipboardFormat format);
};

} // namespace host
