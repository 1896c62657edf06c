#pragma once
// Tag numbers of the automation values.

#include <cstdint>

namespace automation {

using VARTYPE = std::uint16_t;

inline constexpr VARTYPE VT_EMPTY = 0;
inline constexpr VARTYPE VT_NULL = 1;
inline constexpr VARTYPE VT_I2 = 2;
inline constexpr VARTYPE VT_I4 = 3;
inline constexpr VARTYPE VT_R4 = 4;
inline constexpr VARTYPE VT_R8 = 5;
inline constexpr VARTYPE VT_CY = 6;
inline constexpr VARTYPE VT_DATE = 7;
inline constexpr VARTYPE VT_BSTR = 8;
inline constexpr VARTYPE VT_DISPATCH = 9;
inline constexpr VARTYPE VT_ERROR = 10;
inline constexpr VARTYPE VT_BOOL = 11;
inline constexpr VARTYPE VT_VARIANT = 12; ///< Only as an array's element or behind a reference
inline constexpr VARTYPE VT_UNKNOWN = 13;
inline constexpr VARTYPE VT_DECIMAL = 14;
inline constexpr VARTYPE VT_UI1 = 17;
inline constexpr VARTYPE VT_VOID = 24; ///< Only as the result of a member that gives none
inline constexpr VARTYPE VT_RECORD = 36;
inline constexpr VARTYPE VT_ARRAY = 0x2000;
inline constexpr VARTYPE VT_BYREF = 0x4000;
inline constexpr VARTYPE VT_TYPEMASK = 0x0FFF;

/// The code that an argument left out carries in a VT_ERROR value.
inline constexpr std::int32_t DISP_E_PARAMNOTFOUND = static_cast<std::int32_t>(0x80020004u);

} // namespace automation
