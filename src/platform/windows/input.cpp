// Keyboard, mouse, caret and clipboard: forwards to the system.

#include "platform/input.h"

#include "platform/windows/callbacks.h"
#include "platform/windows/convert.h"

#include <algorithm>
#include <string>

namespace platform {

using driver::afterCallbacks;
using driver::as;
using driver::handleFrom;
using driver::native;

SHORT GetKeyState(int virtualKey) {
    return ::GetKeyState(virtualKey);
}

SHORT GetAsyncKeyState(int virtualKey) {
    return ::GetAsyncKeyState(virtualKey);
}

void keybd_event(BYTE virtualKey, BYTE scanCode, DWORD flags, std::uintptr_t extra) {
    ::keybd_event(virtualKey, scanCode, flags, extra);
}

void mouse_event(DWORD flags, DWORD dx, DWORD dy, DWORD data, std::uintptr_t extra) {
    ::mouse_event(flags, dx, dy, data, extra);
}

UINT MapVirtualKeyA(UINT code, UINT mapType) {
    return ::MapVirtualKeyA(code, mapType);
}

SHORT VkKeyScanA(char character) {
    return ::VkKeyScanA(character);
}

HWND SetCapture(HWND window) {
    return afterCallbacks(handleFrom<HWND>(::SetCapture(native(window))));
}

BOOL ReleaseCapture() {
    return afterCallbacks(::ReleaseCapture());
}

HWND GetCapture() {
    return handleFrom<HWND>(::GetCapture());
}

BOOL GetCursorPos(POINT* screen) {
    return ::GetCursorPos(as<::POINT>(screen));
}

BOOL SetCursorPos(int x, int y) {
    return ::SetCursorPos(x, y);
}

UINT GetDoubleClickTime() {
    return ::GetDoubleClickTime();
}

HCURSOR SetCursor(HCURSOR cursor) {
    return handleFrom<HCURSOR>(::SetCursor(native(cursor)));
}

HCURSOR GetCursor() {
    return handleFrom<HCURSOR>(::GetCursor());
}

int ShowCursor(BOOL show) {
    return ::ShowCursor(show);
}

BOOL CreateCaret(HWND window, HBITMAP bitmap, int width, int height) {
    return ::CreateCaret(native(window), native(bitmap), width, height);
}

BOOL DestroyCaret() {
    return ::DestroyCaret();
}

BOOL ShowCaret(HWND window) {
    return ::ShowCaret(native(window));
}

BOOL HideCaret(HWND window) {
    return ::HideCaret(native(window));
}

BOOL SetCaretPos(int x, int y) {
    return ::SetCaretPos(x, y);
}

BOOL GetCaretPos(POINT* point) {
    return ::GetCaretPos(as<::POINT>(point));
}

UINT GetCaretBlinkTime() {
    return ::GetCaretBlinkTime();
}

BOOL Beep(DWORD frequency, DWORD milliseconds) {
    return ::Beep(frequency, milliseconds);
}

BOOL MessageBeep(UINT type) {
    return ::MessageBeep(type);
}

BOOL EmptyClipboard() {
    return ::EmptyClipboard();
}

BOOL IsClipboardFormatAvailable(UINT format) {
    return ::IsClipboardFormatAvailable(format);
}

int CountClipboardFormats() {
    return ::CountClipboardFormats();
}

BOOL GetKeyboardState(BYTE* state) {
    return ::GetKeyboardState(state);
}

BOOL SetKeyboardState(const BYTE* state) {
    return ::SetKeyboardState(const_cast<::LPBYTE>(state));
}

HCURSOR LoadCursorA(HINSTANCE instance, WORD id) {
    const auto name = reinterpret_cast<::LPCSTR>(static_cast<::ULONG_PTR>(id));
    return handleFrom<HCURSOR>(::LoadCursorA(native(instance), name));
}

namespace {

/// Whether the program holds the clipboard open.
bool clipboardIsOpen = false;

/// Opens the clipboard for the length of a scope if the program has not.
class ClipboardScope {
public:
    ClipboardScope() : opened_(!clipboardIsOpen && ::OpenClipboard(nullptr)) {}
    ~ClipboardScope() {
        if (opened_) ::CloseClipboard();
    }
    ClipboardScope(const ClipboardScope&) = delete;
    ClipboardScope& operator=(const ClipboardScope&) = delete;
    bool usable() const { return opened_ || clipboardIsOpen; }

private:
    bool opened_;
};

/// Memory of the system's that the clipboard can take over, holding the bytes; null when there is none left.
::HGLOBAL memoryWith(std::span<const BYTE> bytes) {
    const ::HGLOBAL memory = ::GlobalAlloc(GMEM_MOVEABLE, bytes.size());
    auto* data = memory ? ::GlobalLock(memory) : nullptr;
    if (!data) return nullptr;
    std::memcpy(data, bytes.data(), bytes.size());
    ::GlobalUnlock(memory);
    return memory;
}

/// Hands memory over to the open clipboard.
bool giveMemory(UINT format, ::HGLOBAL memory) {
    if (!memory) return false;
    if (::SetClipboardData(format, memory)) return true;
    ::GlobalFree(memory);
    return false;
}

std::span<const BYTE> bytesOf(std::u16string_view text) {
    return {reinterpret_cast<const BYTE*>(text.data()), text.size() * sizeof(char16_t)};
}

} // namespace

BOOL OpenClipboard(HWND owner) {
    const BOOL opened = ::OpenClipboard(native(owner));
    if (opened) clipboardIsOpen = true;
    return opened;
}

BOOL CloseClipboard() {
    clipboardIsOpen = false;
    return ::CloseClipboard();
}

bool setClipboardText(std::u16string_view text) {
    const ClipboardScope scope;
    if (!scope.usable() || !::EmptyClipboard()) return false;
    std::u16string ended(text);
    ended += u'\0';
    return giveMemory(CF_UNICODETEXT, memoryWith(bytesOf(ended)));
}

HANDLE SetClipboardData(UINT format, HANDLE object) {
    return handleFrom<HANDLE>(::SetClipboardData(format, native(object)));
}

HANDLE GetClipboardData(UINT format) {
    return handleFrom<HANDLE>(::GetClipboardData(format));
}

bool setClipboardBytes(UINT format, std::span<const BYTE> bytes) {
    const ClipboardScope scope;
    return scope.usable() && giveMemory(format, memoryWith(bytes));
}

std::vector<BYTE> clipboardBytes(UINT format) {
    const ClipboardScope scope;
    const ::HANDLE memory = scope.usable() ? ::GetClipboardData(format) : nullptr;
    const auto* data = memory ? static_cast<const BYTE*>(::GlobalLock(memory)) : nullptr;
    if (!data) return {};
    std::vector<BYTE> bytes(data, data + ::GlobalSize(memory));
    ::GlobalUnlock(memory);
    return bytes;
}

std::u16string clipboardText() {
    const ClipboardScope scope;
    const ::HANDLE memory = scope.usable() ? ::GetClipboardData(CF_UNICODETEXT) : nullptr;
    const void* data = memory ? ::GlobalLock(memory) : nullptr;
    if (!data) return {};
    const auto* text = static_cast<const char16_t*>(data);
    const std::size_t most = ::GlobalSize(memory) / sizeof(char16_t);
    const std::size_t length = std::u16string_view(text, most).find(u'\0');
    std::u16string result(text, std::min(length, most));
    ::GlobalUnlock(memory);
    return result;
}

} // namespace platform
