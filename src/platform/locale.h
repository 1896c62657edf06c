#pragma once
// The user's locale: its strings, the ANSI code page, collation and case. Windows answers for itself;
// on Linux the data are ICU's and the locale comes from the environment, es-ES where that says nothing.

#include "platform/types.h"

#include <string>
#include <string_view>

namespace platform {

using LCTYPE = DWORD;
inline constexpr LCTYPE LOCALE_ILANGUAGE = 0x0001;   ///< Language identifier, four hexadecimal digits
inline constexpr LCTYPE LOCALE_SLIST = 0x000C;       ///< List separator
inline constexpr LCTYPE LOCALE_SDECIMAL = 0x000E;    ///< Decimal separator
inline constexpr LCTYPE LOCALE_STHOUSAND = 0x000F;   ///< Thousands separator
inline constexpr LCTYPE LOCALE_SGROUPING = 0x0010;   ///< "3;0"
inline constexpr LCTYPE LOCALE_IDIGITS = 0x0011;     ///< Decimals of a number
inline constexpr LCTYPE LOCALE_ILZERO = 0x0012;      ///< "1": a leading zero before the decimal separator
inline constexpr LCTYPE LOCALE_SCURRENCY = 0x0014;   ///< Currency symbol
inline constexpr LCTYPE LOCALE_SINTLSYMBOL = 0x0015; ///< "EUR"
inline constexpr LCTYPE LOCALE_SMONDECIMALSEP = 0x0016;
inline constexpr LCTYPE LOCALE_SMONTHOUSANDSEP = 0x0017;
inline constexpr LCTYPE LOCALE_SMONGROUPING = 0x0018;
inline constexpr LCTYPE LOCALE_IINTLCURRDIGITS = 0x001A;
inline constexpr LCTYPE LOCALE_ICURRDIGITS = 0x0019;
inline constexpr LCTYPE LOCALE_ICURRENCY = 0x001B; ///< Form of positive currency, 0 to 3
inline constexpr LCTYPE LOCALE_INEGCURR = 0x001C;  ///< Form of negative currency, 0 to 15
inline constexpr LCTYPE LOCALE_SDATE = 0x001D;     ///< Date separator
inline constexpr LCTYPE LOCALE_STIME = 0x001E;     ///< Time separator
inline constexpr LCTYPE LOCALE_SSHORTDATE = 0x001F;
inline constexpr LCTYPE LOCALE_SLONGDATE = 0x0020;
inline constexpr LCTYPE LOCALE_IDATE = 0x0021; ///< Order of the short date: "0" M-D-Y, "1" D-M-Y, "2" Y-M-D
inline constexpr LCTYPE LOCALE_ITIME = 0x0023; ///< "0" 12 hours, "1" 24 hours
inline constexpr LCTYPE LOCALE_ICENTURY = 0x0024;        ///< "1": the short date has four digits of the year
inline constexpr LCTYPE LOCALE_S1159 = 0x0028;           ///< "AM"
inline constexpr LCTYPE LOCALE_S2359 = 0x0029;           ///< "PM"
inline constexpr LCTYPE LOCALE_SDAYNAME1 = 0x002A;       ///< Monday; the next six follow
inline constexpr LCTYPE LOCALE_SABBREVDAYNAME1 = 0x0031; ///< Monday; the next six follow
inline constexpr LCTYPE LOCALE_SMONTHNAME1 = 0x0038;     ///< January; the next eleven follow
inline constexpr LCTYPE LOCALE_SABBREVMONTHNAME1 = 0x0044;
inline constexpr LCTYPE LOCALE_SPOSITIVESIGN = 0x0050;
inline constexpr LCTYPE LOCALE_SNEGATIVESIGN = 0x0051;
inline constexpr LCTYPE LOCALE_SISO639LANGNAME = 0x0059;  ///< "es"
inline constexpr LCTYPE LOCALE_SISO3166CTRYNAME = 0x005A; ///< "ES"
inline constexpr LCTYPE LOCALE_SNAME = 0x005C;            ///< "es-ES"
inline constexpr LCTYPE LOCALE_SSHORTTIME = 0x0079;
inline constexpr LCTYPE LOCALE_STIMEFORMAT = 0x1003;
inline constexpr LCTYPE LOCALE_SYEARMONTH = 0x1006;
inline constexpr LCTYPE LOCALE_INEGNUMBER = 0x1010;      ///< Form of negative numbers, 0 to 4
inline constexpr LCTYPE LOCALE_IFIRSTDAYOFWEEK = 0x100C; ///< 0 is Monday
inline constexpr LCTYPE LOCALE_IFIRSTWEEKOFYEAR = 0x100D;

LCID GetUserDefaultLCID();

/// Writes one locale string, with its final NUL, in the ANSI code page into `data` of `size` bytes.
/// Returns the number of bytes with the NUL; with `size` 0 the number needed; 0 for an unknown type or a
/// buffer too small.
int GetLocaleInfoA(LCID locale, LCTYPE type, char* data, int size);

/// The same in UTF-16.
int GetLocaleInfoW(LCID locale, LCTYPE type, char16_t* data, int size);

/// The system's ANSI code page: 1252 on Linux.
UINT GetACP();

/// Text to bytes of the ANSI code page, one byte a character; what the page lacks becomes its best fit
/// or "?".
std::string ansiFromWide(std::u16string_view text);
std::u16string wideFromAnsi(std::string_view bytes);

/// Unpaired surrogates and malformed bytes become U+FFFD.
std::string utf8FromWide(std::u16string_view text);
std::u16string wideFromUtf8(std::string_view bytes);

inline constexpr DWORD NORM_IGNORECASE = 0x00000001;
inline constexpr DWORD SORT_STRINGSORT = 0x00001000; ///< Hyphens and apostrophes count as other signs do
inline constexpr int CSTR_LESS_THAN = 1;
inline constexpr int CSTR_EQUAL = 2;
inline constexpr int CSTR_GREATER_THAN = 3;

/// Linguistic comparison in the locale's dictionary order (CSTR_...); 0 on an unknown locale or flag.
int CompareStringW(LCID locale, DWORD flags, const char16_t* a, int lengthA, const char16_t* b, int lengthB);

/// Case of the whole text by the locale's simple one-to-one mapping; the length never changes.
std::u16string upperCase(std::u16string_view text);
std::u16string lowerCase(std::u16string_view text);

/// Sets the locale of this process by its name ("es-ES", "en-US", "sv-SE"; the empty name goes back to the
/// user's own) and returns whether it is known. Tests use it; on Windows the process's locale strings are
/// then read for that locale.
bool overrideUserLocale(std::string_view name);

} // namespace platform
