#pragma once
// Text functions of an automation host's language. Positions count from 1 and characters are UTF-16 units.

#include "automation/String.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace automation {

class Variant;

/// How texts are compared: by their units, or by the locale's dictionary without case.
namespace CompareMethod {
enum : int { Binary, Text };
}

/// Case by the locale, character by character; the length never changes.
String UCase(std::u16string_view text);
String LCase(std::u16string_view text);

/// Only blanks (U+0020) are taken off.
String LTrim(std::u16string_view text);
String RTrim(std::u16string_view text);
String Trim(std::u16string_view text);

/// Error 5 for a negative length.
String Left(std::u16string_view text, std::int32_t length);
String Right(std::u16string_view text, std::int32_t length);

/// From `start` (1 or more, else Error 5), all or `length` characters (0 or more).
String Mid(std::u16string_view text, std::int32_t start);
String Mid(std::u16string_view text, std::int32_t start, std::int32_t length);

/// The position of `what` at or after `start`, 0 when there is none. An empty `what` is found at `start`.
std::int32_t InStr(std::int32_t start, std::u16string_view text, std::u16string_view what,
                   int compare = CompareMethod::Binary);
std::int32_t InStr(std::u16string_view text, std::u16string_view what);

/// The last position at which `what` ends at or before `start` (-1: the end).
std::int32_t InStrRev(std::u16string_view text, std::u16string_view what, std::int32_t start = -1,
                      int compare = CompareMethod::Binary);

/// The text from `start` on, with up to `count` (-1: all) occurrences replaced.
String Replace(std::u16string_view text, std::u16string_view what, std::u16string_view with,
               std::int32_t start = 1, std::int32_t count = -1, int compare = CompareMethod::Binary);

/// Up to `limit` (-1: all) pieces; none of an empty text, one where the separator is empty.
std::vector<String> Split(std::u16string_view text, std::u16string_view separator = u" ",
                          std::int32_t limit = -1, int compare = CompareMethod::Binary);
String Join(const std::vector<String>& pieces, std::u16string_view separator = u" ");

/// `count` blanks or units; Error 5 for a negative count.
String Space(std::int32_t count);
String Repeat(std::int32_t count, char16_t unit);

String StrReverse(std::u16string_view text);

/// The first character's byte in the ANSI code page; Error 5 for an empty text.
int Asc(std::u16string_view text);

/// The first character's unit as an Integer.
std::int16_t AscW(std::u16string_view text);

/// The character of byte 0 to 255 in the ANSI code page, else Error 5.
String Chr(int code);
String ChrW(std::int32_t unit);

/// Conversions of `StrConv`; the case ones may be joined with one of the others.
namespace StringConversion {
enum : int {
    UpperCase = 1,
    LowerCase = 2,
    ProperCase = 3,
    Wide = 4,
    Narrow = 8,
    Katakana = 16,
    Hiragana = 32,
    Unicode = 64,
    FromUnicode = 128
};
}

/// Proper case raises each letter that begins a word (after a blank, tab, line end or NUL) and lowers the
/// others. `StringConversion::FromUnicode` packs the ANSI bytes of the text two to a unit,
/// `StringConversion::Unicode` takes them apart. Error 5 for a kind that is none or that contradicts itself.
String StrConv(std::u16string_view text, int kind);

} // namespace automation
