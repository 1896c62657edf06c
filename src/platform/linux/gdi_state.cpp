// The attributes of a device context.

#include "platform/gdi.h"
#include "platform/linux/colors.h"
#include "platform/linux/device_context.h"

namespace platform::driver {

namespace {

/// Sets one field of the state and returns the value before; `failure` for a dead context.
template <class Value>
Value exchangeField(HDC dc, Value ContextState::*field, Value value, Value failure) {
    DeviceContext* context = find<DeviceContext>(dc);
    if (!context) return failure;
    const Value previous = context->state.*field;
    context->state.*field = value;
    return previous;
}

template <class Value>
Value readField(HDC dc, Value ContextState::*field, Value failure) {
    const DeviceContext* context = find<DeviceContext>(dc);
    return context ? context->state.*field : failure;
}

/// The same for modes that have a range; a value outside it changes nothing.
int exchangeMode(HDC dc, int ContextState::*field, int mode, int first, int last) {
    return mode < first || mode > last ? 0 : exchangeField(dc, field, mode, 0);
}

} // namespace

} // namespace platform::driver

namespace platform {

using namespace driver;

COLORREF SetTextColor(HDC dc, COLORREF color) {
    return exchangeField(dc, &ContextState::textColor, color, CLR_INVALID);
}
COLORREF GetTextColor(HDC dc) {
    return readField(dc, &ContextState::textColor, CLR_INVALID);
}

COLORREF SetBkColor(HDC dc, COLORREF color) {
    return exchangeField(dc, &ContextState::backColor, color, CLR_INVALID);
}
COLORREF GetBkColor(HDC dc) {
    return readField(dc, &ContextState::backColor, CLR_INVALID);
}

COLORREF SetDCBrushColor(HDC dc, COLORREF color) {
    return exchangeField(dc, &ContextState::dcBrushColor, color, CLR_INVALID);
}
COLORREF GetDCBrushColor(HDC dc) {
    return readField(dc, &ContextState::dcBrushColor, CLR_INVALID);
}

COLORREF SetDCPenColor(HDC dc, COLORREF color) {
    return exchangeField(dc, &ContextState::dcPenColor, color, CLR_INVALID);
}
COLORREF GetDCPenColor(HDC dc) {
    return readField(dc, &ContextState::dcPenColor, CLR_INVALID);
}

int SetBkMode(HDC dc, int mode) {
    return exchangeMode(dc, &ContextState::backMode, mode, TRANSPARENT, OPAQUE);
}
int GetBkMode(HDC dc) {
    return readField(dc, &ContextState::backMode, 0);
}

UINT SetTextAlign(HDC dc, UINT align) {
    return exchangeField(dc, &ContextState::textAlign, align, GDI_ERROR);
}
UINT GetTextAlign(HDC dc) {
    return readField(dc, &ContextState::textAlign, GDI_ERROR);
}

int SetROP2(HDC dc, int mode) {
    return exchangeMode(dc, &ContextState::rop2, mode, R2_BLACK, R2_WHITE);
}
int GetROP2(HDC dc) {
    return readField(dc, &ContextState::rop2, 0);
}

int SetPolyFillMode(HDC dc, int mode) {
    return exchangeMode(dc, &ContextState::polyFillMode, mode, ALTERNATE, WINDING);
}
int GetPolyFillMode(HDC dc) {
    return readField(dc, &ContextState::polyFillMode, 0);
}

int SetStretchBltMode(HDC dc, int mode) {
    return exchangeMode(dc, &ContextState::stretchMode, mode, BLACKONWHITE, HALFTONE);
}
int GetStretchBltMode(HDC dc) {
    return readField(dc, &ContextState::stretchMode, 0);
}

int SetTextCharacterExtra(HDC dc, int extra) {
    constexpr int failure = static_cast<int>(0x80000000u);
    return exchangeField(dc, &ContextState::characterExtra, extra, failure);
}
int GetTextCharacterExtra(HDC dc) {
    return readField(dc, &ContextState::characterExtra, 0);
}

BOOL SetTextJustification(HDC dc, int extra, int count) {
    DeviceContext* context = find<DeviceContext>(dc);
    if (!context) return FALSE_;
    ContextState& state = context->state;
    const std::int64_t window = state.mapping.windowExtent.cx;
    const std::int64_t pixels = (std::int64_t{extra} * state.mapping.viewportExtent.cx + window / 2) / window;
    state.breakExtra = count > 0 ? std::abs(boundedCoordinate(pixels)) : 0;
    state.breakCount = count > 0 ? count : 0;
    return TRUE_;
}

int SetArcDirection(HDC dc, int direction) {
    return exchangeMode(dc, &ContextState::arcDirection, direction, AD_COUNTERCLOCKWISE, AD_CLOCKWISE);
}
int GetArcDirection(HDC dc) {
    return readField(dc, &ContextState::arcDirection, 0);
}

BOOL SetMiterLimit(HDC dc, float limit, float* previous) {
    DeviceContext* context = find<DeviceContext>(dc);
    if (!context) return FALSE_;
    if (previous) *previous = context->state.miterLimit;
    context->state.miterLimit = limit;
    return TRUE_;
}
BOOL GetMiterLimit(HDC dc, float* limit) {
    const DeviceContext* context = find<DeviceContext>(dc);
    if (!context || !limit) return FALSE_;
    *limit = context->state.miterLimit;
    return TRUE_;
}

BOOL SetBrushOrgEx(HDC dc, int x, int y, POINT* previous) {
    DeviceContext* context = find<DeviceContext>(dc);
    if (!context) return FALSE_;
    if (previous) *previous = context->state.brushOrigin;
    context->state.brushOrigin = {x, y};
    return TRUE_;
}

BOOL GetBrushOrgEx(HDC dc, POINT* origin) {
    const DeviceContext* context = find<DeviceContext>(dc);
    if (!context || !origin) return FALSE_;
    *origin = context->state.brushOrigin;
    return TRUE_;
}

COLORREF GetNearestColor(HDC dc, COLORREF color) {
    const DeviceContext* context = find<DeviceContext>(dc);
    return context ? colorOfPixel(*context, nearestPixelOf(*context, color)) : CLR_INVALID;
}

} // namespace platform
