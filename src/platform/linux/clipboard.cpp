// The clipboard, and the sounds.

#include "platform/clock.h"
#include "platform/linux/clipboard_objects.h"
#include "platform/linux/display.h"
#include "platform/linux/time_source.h"
#include "platform/locale.h"

#include <algorithm>
#include <array>

namespace platform {

using namespace driver;

namespace {

struct OpenState {
    bool open = false;
    HWND owner;
};

OpenState& openState() {
    static OpenState state;
    return state;
}

/// The formats that text is there in.
constexpr std::array TextFormats{CF_UNICODETEXT, CF_TEXT};

std::u16string withSystemLineEnds(const std::u16string& text) {
    std::u16string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == u'\n' && (i == 0 || text[i - 1] != u'\r')) result += u'\r';
        result += text[i];
    }
    return result;
}

std::u16string withPlainLineEnds(std::u16string_view text) {
    std::u16string result;
    for (std::size_t i = 0; i < text.size(); ++i)
        if (text[i] != u'\r' || i + 1 == text.size() || text[i + 1] != u'\n') result += text[i];
    return result;
}

} // namespace

BOOL OpenClipboard(HWND owner) {
    if (openState().open && openState().owner != owner) return FALSE_;
    openState() = {true, owner};
    return TRUE_;
}

BOOL CloseClipboard() {
    if (!openState().open) return FALSE_;
    openState() = {};
    return TRUE_;
}

BOOL EmptyClipboard() {
    if (!openState().open) return FALSE_;
    display().setClipboard({});
    clipboardObjects().clear();
    return TRUE_;
}

BOOL IsClipboardFormatAvailable(UINT format) {
    const bool textual = std::find(TextFormats.begin(), TextFormats.end(), format) != TextFormats.end();
    return textual ? display().clipboardHas(PlainText) : clipboardObjects().has(format);
}

int CountClipboardFormats() {
    return (display().clipboardHas(PlainText) ? static_cast<int>(TextFormats.size()) : 0) +
           clipboardObjects().count();
}

HANDLE SetClipboardData(UINT format, HANDLE object) {
    return openState().open && clipboardObjects().set(format, object) ? object : HANDLE();
}

HANDLE GetClipboardData(UINT format) {
    return openState().open ? clipboardObjects().object(format) : HANDLE();
}

bool setClipboardBytes(UINT format, std::span<const BYTE> bytes) {
    return clipboardObjects().setBytes(format, bytes);
}

std::vector<BYTE> clipboardBytes(UINT format) {
    return clipboardObjects().bytes(format);
}

bool setClipboardText(std::u16string_view text) {
    clipboardObjects().clear();
    display().setClipboard({{PlainText, utf8FromWide(withPlainLineEnds(text))}});
    return true;
}

std::u16string clipboardText() {
    return withSystemLineEnds(wideFromUtf8(display().clipboardBytes(PlainText)));
}

BOOL MessageBeep(UINT) {
    display().beep();
    return TRUE_;
}

BOOL Beep(DWORD, DWORD milliseconds) {
    display().beep();
    passMilliseconds(milliseconds);
    return TRUE_;
}

} // namespace platform
