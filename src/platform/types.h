#pragma once
// The basic types of the platform's interface: 32-bit handles of distinct kinds, integers of fixed
// width and the records that several headers share. Names, layouts and meanings are the platform's own.

#include <compare>
#include <cstdint>

namespace platform {

using BOOL = int;
using BYTE = std::uint8_t;
using WORD = std::uint16_t;
using DWORD = std::uint32_t;
using UINT = std::uint32_t;
using INT = std::int32_t;
using LONG = std::int32_t;
using LONGLONG = std::int64_t;
using COLORREF = std::uint32_t; ///< 0x00bbggrr
using LCID = std::uint32_t;
using WPARAM = std::uintptr_t;
using LPARAM = std::intptr_t;
using LRESULT = std::intptr_t;
using LONG_PTR = std::intptr_t;

inline constexpr BOOL FALSE_ = 0;
inline constexpr BOOL TRUE_ = 1;

/// A handle of one kind. Zero is "no handle"; handles of different kinds do not mix. The value is what
/// automation programs see as a Long (`hWND`, `hDC`).
template <class Kind>
struct Handle {
    std::uint32_t value = 0;

    constexpr Handle() = default;
    constexpr explicit Handle(std::uint32_t v) : value(v) {}
    constexpr explicit operator bool() const { return value != 0; }
    friend constexpr bool operator==(Handle, Handle) = default;
    friend constexpr auto operator<=>(Handle, Handle) = default;
};

using HWND = Handle<struct WindowKind>;
using HDC = Handle<struct DeviceContextKind>;
using HBITMAP = Handle<struct BitmapKind>;
using HBRUSH = Handle<struct BrushKind>;
using HPEN = Handle<struct PenKind>;
using HFONT = Handle<struct FontKind>;
using HRGN = Handle<struct RegionKind>;
using HPALETTE = Handle<struct PaletteKind>;
using HICON = Handle<struct IconKind>;
using HCURSOR = HICON; ///< The platform lets cursors and icons stand for each other.
using HENHMETAFILE = Handle<struct EnhMetaFileKind>;
using HMENU = Handle<struct MenuKind>;
using HINSTANCE = Handle<struct InstanceKind>;
using HGLOBAL = Handle<struct GlobalMemoryKind>;

/// Any object that `SelectObject` and `DeleteObject` take. The kinds convert to it by themselves and
/// back only by an explicit `HBRUSH(object.value)`.
struct HGDIOBJ : Handle<struct GdiObjectKind> {
    constexpr HGDIOBJ() = default;
    constexpr explicit HGDIOBJ(std::uint32_t v) : Handle(v) {}
    constexpr HGDIOBJ(HBITMAP h) : Handle(h.value) {}
    constexpr HGDIOBJ(HBRUSH h) : Handle(h.value) {}
    constexpr HGDIOBJ(HPEN h) : Handle(h.value) {}
    constexpr HGDIOBJ(HFONT h) : Handle(h.value) {}
    constexpr HGDIOBJ(HRGN h) : Handle(h.value) {}
    constexpr HGDIOBJ(HPALETTE h) : Handle(h.value) {}
};

/// A kernel handle: a file, an event, a process. -1 (all bits set) is the platform's invalid value.
using HANDLE = Handle<struct KernelObjectKind>;
inline constexpr HANDLE INVALID_HANDLE_VALUE{0xFFFFFFFFu};

struct POINT {
    LONG x = 0;
    LONG y = 0;
    friend constexpr bool operator==(const POINT&, const POINT&) = default;
};

struct SIZE {
    LONG cx = 0;
    LONG cy = 0;
    friend constexpr bool operator==(const SIZE&, const SIZE&) = default;
};

/// Right and bottom lie one past the last pixel.
struct RECT {
    LONG left = 0;
    LONG top = 0;
    LONG right = 0;
    LONG bottom = 0;
    friend constexpr bool operator==(const RECT&, const RECT&) = default;
};

struct SYSTEMTIME {
    WORD wYear = 0;
    WORD wMonth = 0;
    WORD wDayOfWeek = 0; ///< 0 is Sunday
    WORD wDay = 0;
    WORD wHour = 0;
    WORD wMinute = 0;
    WORD wSecond = 0;
    WORD wMilliseconds = 0;
};

/// 100-nanosecond intervals since 1 January 1601, UTC.
struct FILETIME {
    DWORD dwLowDateTime = 0;
    DWORD dwHighDateTime = 0;
};

constexpr COLORREF RGB(unsigned red, unsigned green, unsigned blue) {
    return (red & 0xFF) | (green & 0xFF) << 8 | (blue & 0xFF) << 16;
}

} // namespace platform
