#pragma once
// Between the platform ring's types and the system's. Include after the ring's headers: it brings in the
// system's, whose macros reuse the names of the ring's constants.
//
// A handle has 32 significant bits on every Windows, so it goes to the system sign-extended and comes back
// cut. Records without handles have the system's own layout and are passed as they are.

#include "platform/types.h"

#include <cstring>
#include <type_traits>

#include <windows.h>

namespace platform::driver {

template <class Kind>
struct NativeHandle;

template <>
struct NativeHandle<WindowKind> {
    using Type = ::HWND;
};
template <>
struct NativeHandle<DeviceContextKind> {
    using Type = ::HDC;
};
template <>
struct NativeHandle<BitmapKind> {
    using Type = ::HBITMAP;
};
template <>
struct NativeHandle<BrushKind> {
    using Type = ::HBRUSH;
};
template <>
struct NativeHandle<PenKind> {
    using Type = ::HPEN;
};
template <>
struct NativeHandle<FontKind> {
    using Type = ::HFONT;
};
template <>
struct NativeHandle<RegionKind> {
    using Type = ::HRGN;
};
template <>
struct NativeHandle<PaletteKind> {
    using Type = ::HPALETTE;
};
template <>
struct NativeHandle<IconKind> {
    using Type = ::HICON;
};
template <>
struct NativeHandle<EnhMetaFileKind> {
    using Type = ::HENHMETAFILE;
};
template <>
struct NativeHandle<MenuKind> {
    using Type = ::HMENU;
};
template <>
struct NativeHandle<GdiObjectKind> {
    using Type = ::HGDIOBJ;
};
template <>
struct NativeHandle<KernelObjectKind> {
    using Type = ::HANDLE;
};

/// The system's handle.
template <class Kind>
typename NativeHandle<Kind>::Type native(Handle<Kind> handle) {
    const auto extended = static_cast<::LONG_PTR>(static_cast<std::int32_t>(handle.value));
    return reinterpret_cast<typename NativeHandle<Kind>::Type>(extended);
}

/// The low 32 bits of a system's handle.
inline std::uint32_t handleValue(const void* handle) {
    return static_cast<std::uint32_t>(reinterpret_cast<::ULONG_PTR>(handle));
}

/// The ring's handle of a system's handle: `handleFrom<HWND>(window)`.
template <class Result>
Result handleFrom(const void* handle) {
    return Result(handleValue(handle));
}

/// Module handles are addresses, which a 64-bit program may have above 32 bits: their whole value is kept by
/// its low half.
::HINSTANCE native(HINSTANCE module);
HINSTANCE moduleFrom(::HINSTANCE module);

/// A record as the system's record of the same layout.
template <class Native, class Ours>
Native* as(Ours* record) {
    static_assert(sizeof(Native) == sizeof(Ours) && alignof(Native) == alignof(Ours));
    return reinterpret_cast<Native*>(record);
}
template <class Native, class Ours>
const Native* as(const Ours* record) {
    static_assert(sizeof(Native) == sizeof(Ours) && alignof(Native) == alignof(Ours));
    return reinterpret_cast<const Native*>(record);
}

inline ::LPWSTR wide(char16_t* text) {
    return reinterpret_cast<::LPWSTR>(text);
}
inline ::LPCWSTR wide(const char16_t* text) {
    return reinterpret_cast<::LPCWSTR>(text);
}

} // namespace platform::driver
