#pragma once
// What controls look like, by the pictures that the library makes on the other system.

#include "activex/windows/ControlLibrary.h"

#include <ostream>
#include <span>
#include <vector>

namespace support {

/// Where a control stands on the sheet of tests/golden, in pixels of the inside of its window. Without a
/// height it is as large as it makes itself.
struct SheetPlace {
    int left, top, width, height;
};

/// A control of a sheet: its place there, and what it is made of.
struct Look {
    static constexpr int inactive = -2; ///< Nobody uses the control
    static constexpr int focused = -1;  ///< It has the focus
    using Properties = void (*)(::IDispatch&);

    const char* name;
    const char16_t* className;
    SheetPlace place;
    Properties properties;
    int use = inactive; ///< One of those above, or how far from the right the mouse presses it, in pixels

    /// A new control of this look.
    ComPointer<::IDispatch> make() const;
    /// A rectangle of the sheet from its place on, as the system's colours, row by row.
    std::vector<::COLORREF> golden(::SIZE size) const;

    friend void PrintTo(const Look& look, std::ostream* out) { *out << look.name; }
};

std::span<const Look> looks();

/// The size of a control in pixels.
::SIZE sizeOf(::IUnknown& control);

} // namespace support
