// The window tree: places, focus, painting, text. Forwards to the system.

#include "platform/windows.h"

#include "platform/windows/callbacks.h"
#include "platform/windows/convert.h"

namespace platform {

using driver::afterCallbacks;
using driver::as;
using driver::guarded;
using driver::handleFrom;
using driver::native;
using driver::wide;

BOOL DestroyWindow(HWND window) {
    return afterCallbacks(::DestroyWindow(native(window)));
}

BOOL IsWindow(HWND window) {
    return ::IsWindow(native(window));
}

BOOL SetPropA(HWND window, const char* name, HANDLE data) {
    return ::SetPropA(native(window), name, native(data));
}

HANDLE GetPropA(HWND window, const char* name) {
    return handleFrom<HANDLE>(::GetPropA(native(window), name));
}

HANDLE RemovePropA(HWND window, const char* name) {
    return handleFrom<HANDLE>(::RemovePropA(native(window), name));
}

BOOL InvalidateRect(HWND window, const RECT* rect, BOOL erase) {
    return afterCallbacks(::InvalidateRect(native(window), as<::RECT>(rect), erase));
}

BOOL ValidateRect(HWND window, const RECT* rect) {
    return ::ValidateRect(native(window), as<::RECT>(rect));
}

BOOL RedrawWindow(HWND window, const RECT* rect, HRGN region, UINT flags) {
    return afterCallbacks(::RedrawWindow(native(window), as<::RECT>(rect), native(region), flags));
}

BOOL UpdateWindow(HWND window) {
    return afterCallbacks(::UpdateWindow(native(window)));
}

BOOL GetUpdateRect(HWND window, RECT* rect, BOOL erase) {
    return ::GetUpdateRect(native(window), as<::RECT>(rect), erase);
}

HDC GetDC(HWND window) {
    return handleFrom<HDC>(::GetDC(native(window)));
}

HDC GetWindowDC(HWND window) {
    return handleFrom<HDC>(::GetWindowDC(native(window)));
}

int ReleaseDC(HWND window, HDC dc) {
    return ::ReleaseDC(native(window), native(dc));
}

HWND WindowFromDC(HDC dc) {
    return handleFrom<HWND>(::WindowFromDC(native(dc)));
}

HWND SetFocus(HWND window) {
    return afterCallbacks(handleFrom<HWND>(::SetFocus(native(window))));
}

HWND GetFocus() {
    return handleFrom<HWND>(::GetFocus());
}

HWND SetActiveWindow(HWND window) {
    return afterCallbacks(handleFrom<HWND>(::SetActiveWindow(native(window))));
}

HWND GetActiveWindow() {
    return handleFrom<HWND>(::GetActiveWindow());
}

BOOL SetForegroundWindow(HWND window) {
    return afterCallbacks(::SetForegroundWindow(native(window)));
}

HWND GetForegroundWindow() {
    return handleFrom<HWND>(::GetForegroundWindow());
}

BOOL BringWindowToTop(HWND window) {
    return afterCallbacks(::BringWindowToTop(native(window)));
}

BOOL EnableWindow(HWND window, BOOL enable) {
    return afterCallbacks(::EnableWindow(native(window), enable));
}

BOOL IsWindowEnabled(HWND window) {
    return ::IsWindowEnabled(native(window));
}

BOOL ShowWindow(HWND window, int command) {
    return afterCallbacks(::ShowWindow(native(window), command));
}

BOOL IsWindowVisible(HWND window) {
    return ::IsWindowVisible(native(window));
}

BOOL IsIconic(HWND window) {
    return ::IsIconic(native(window));
}

BOOL IsZoomed(HWND window) {
    return ::IsZoomed(native(window));
}

BOOL IsChild(HWND parent, HWND window) {
    return ::IsChild(native(parent), native(window));
}

HWND GetParent(HWND window) {
    return handleFrom<HWND>(::GetParent(native(window)));
}

HWND SetParent(HWND child, HWND parent) {
    return afterCallbacks(handleFrom<HWND>(::SetParent(native(child), native(parent))));
}

HWND GetWindow(HWND window, UINT command) {
    return handleFrom<HWND>(::GetWindow(native(window), command));
}

HWND GetTopWindow(HWND window) {
    return handleFrom<HWND>(::GetTopWindow(native(window)));
}

HWND GetDesktopWindow() {
    return handleFrom<HWND>(::GetDesktopWindow());
}

int GetDlgCtrlID(HWND window) {
    return ::GetDlgCtrlID(native(window));
}

HWND WindowFromPoint(POINT screen) {
    return handleFrom<HWND>(::WindowFromPoint({screen.x, screen.y}));
}

HWND ChildWindowFromPoint(HWND parent, POINT client) {
    return handleFrom<HWND>(::ChildWindowFromPoint(native(parent), {client.x, client.y}));
}

HWND FindWindowA(const char* className, const char* windowName) {
    return handleFrom<HWND>(::FindWindowA(className, windowName));
}

BOOL SetWindowPos(HWND window, HWND insertAfter, int x, int y, int width, int height, UINT flags) {
    return afterCallbacks(::SetWindowPos(native(window), native(insertAfter), x, y, width, height, flags));
}

BOOL MoveWindow(HWND window, int x, int y, int width, int height, BOOL repaint) {
    return afterCallbacks(::MoveWindow(native(window), x, y, width, height, repaint));
}

BOOL GetWindowRect(HWND window, RECT* screen) {
    return ::GetWindowRect(native(window), as<::RECT>(screen));
}

BOOL GetClientRect(HWND window, RECT* client) {
    return ::GetClientRect(native(window), as<::RECT>(client));
}

BOOL ClientToScreen(HWND window, POINT* point) {
    return ::ClientToScreen(native(window), as<::POINT>(point));
}

BOOL ScreenToClient(HWND window, POINT* point) {
    return ::ScreenToClient(native(window), as<::POINT>(point));
}

int MapWindowPoints(HWND from, HWND to, POINT* points, UINT count) {
    return ::MapWindowPoints(native(from), native(to), as<::POINT>(points), count);
}

BOOL AdjustWindowRectEx(RECT* rect, DWORD style, BOOL menu, DWORD exStyle) {
    return ::AdjustWindowRectEx(as<::RECT>(rect), style, menu, exStyle);
}

BOOL SetWindowTextA(HWND window, const char* text) {
    return afterCallbacks(::SetWindowTextA(native(window), text));
}

int GetWindowTextA(HWND window, char* text, int size) {
    return afterCallbacks(::GetWindowTextA(native(window), text, size));
}

int GetWindowTextLengthA(HWND window) {
    return afterCallbacks(::GetWindowTextLengthA(native(window)));
}

BOOL SetWindowTextW(HWND window, const char16_t* text) {
    return afterCallbacks(::SetWindowTextW(native(window), wide(text)));
}

int GetWindowTextW(HWND window, char16_t* text, int size) {
    return afterCallbacks(::GetWindowTextW(native(window), wide(text), size));
}

int GetWindowTextLengthW(HWND window) {
    return afterCallbacks(::GetWindowTextLengthW(native(window)));
}

int GetClassNameA(HWND window, char* name, int size) {
    return ::GetClassNameA(native(window), name, size);
}

HDC BeginPaint(HWND window, PAINTSTRUCT* paint) {
    ::PAINTSTRUCT data{};
    const HDC dc = handleFrom<HDC>(afterCallbacks(::BeginPaint(native(window), &data)));
    paint->hdc = dc;
    paint->fErase = data.fErase;
    *as<::RECT>(&paint->rcPaint) = data.rcPaint;
    return dc;
}

BOOL EndPaint(HWND window, const PAINTSTRUCT* paint) {
    ::PAINTSTRUCT data{};
    data.hdc = native(paint->hdc);
    data.fErase = paint->fErase;
    data.rcPaint = *as<::RECT>(&paint->rcPaint);
    return ::EndPaint(native(window), &data);
}

namespace {

struct ChildVisit {
    BOOL (*visit)(HWND, LPARAM);
    LPARAM parameter;
};

BOOL CALLBACK visitChild(::HWND window, ::LPARAM parameter) {
    const auto& child = *reinterpret_cast<const ChildVisit*>(parameter);
    return guarded(FALSE_, [&] { return child.visit(handleFrom<HWND>(window), child.parameter); });
}

} // namespace

BOOL EnumChildWindows(HWND parent, BOOL (*visit)(HWND, LPARAM), LPARAM parameter) {
    const ChildVisit child{visit, parameter};
    return afterCallbacks(::EnumChildWindows(native(parent), visitChild, reinterpret_cast<::LPARAM>(&child)));
}

} // namespace platform
