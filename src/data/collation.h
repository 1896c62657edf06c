#pragma once
// Spanish dictionary order of texts of the ANSI code page 1252.

#include "automation/String.h"

#include <string>
#include <string_view>

namespace tesela {

/// The sign of the comparison of two texts as a Spanish dictionary orders them: -1, 0 or 1. Letters decide
/// first (ñ follows n, þ follows z; æ, œ and ß stand for two letters), then accents, then case, small before
/// capital. Signs come before digits, digits before letters. Control characters and the soft hyphen count for
/// nothing. The order is one table of the 256 characters, so it is the same on every system; it is that of
/// ICU's Spanish rules. Windows agrees on all letters but þ, which it takes for "th", and å, which it puts
/// after ä and ã.
int TS_Compara(std::string_view a, std::string_view b) noexcept;

/// The same of the texts' ANSI forms.
int TS_Compara(const automation::String& a, const automation::String& b);

/// The same under the name that the library's services give it.
int OCX_StrComp(const automation::String& cCadena1, const automation::String& cCadena2);

/// The comparison of the first text's capitals (`UCase`) with a text in its ANSI form.
int compareCapitals(const automation::String& a, std::string_view b);

/// Appends the bytes that stand for a text in bulk sorting: two keys compare by their bytes (`memcmp`, then
/// the shorter first) as `TS_Compara` compares their texts, and keys of texts that are equal to it are the
/// same. The key of a small, plain text is as long as the text; the longest has 9 bytes a character and 2
/// more.
void appendSortKey(std::string_view text, std::string& key);
void appendSortKey(const automation::String& text, std::string& key);

} // namespace tesela
