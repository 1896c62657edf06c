#pragma once
// What the parts of cCanvas share among themselves.

#include "drawing/cCanvas.h"
#include "drawing/colours.h"

#include <utility>

namespace tesela {

/// What GDI draws for an automation colour, and the other way round.
inline platform::COLORREF colorRef(host::OLE_COLOR color) {
    return static_cast<platform::COLORREF>(GetVBSysColor(color));
}
inline host::OLE_COLOR oleColor(platform::COLORREF color) {
    return static_cast<host::OLE_COLOR>(color);
}

/// Selects a new object, which the canvas owns from now on, and ends the one that it replaces. Without an
/// object the message is shown and the old one stays in use.
template <class Handle>
bool cCanvas::selectOwned(Handle& owned, Handle object, const char16_t* failure) {
    if (!object) {
        reportGDIError(failure);
        return false;
    }
    platform::SelectObject(nPaintDC, object);
    if (owned) platform::DeleteObject(owned);
    owned = object;
    return true;
}

/// Puts a stock object in the place of an owned one, which ends.
template <class Handle>
void cCanvas::dropOwned(Handle& owned, int stockObject) {
    if (!owned) return;
    platform::SelectObject(nPaintDC, platform::GetStockObject(stockObject));
    platform::DeleteObject(std::exchange(owned, {}));
}

} // namespace tesela
