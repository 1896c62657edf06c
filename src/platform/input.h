#pragma once
// Keyboard, mouse, caret, cursor and clipboard. One thread, so one keyboard state: GetKeyState follows the
// messages taken from the queue, GetAsyncKeyState the keys themselves.

#include "platform/types.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

using SHORT = std::int16_t;

// Virtual keys. Letters and digits are their own upper-case ASCII codes.
inline constexpr int VK_LBUTTON = 0x01;
inline constexpr int VK_RBUTTON = 0x02;
inline constexpr int VK_CANCEL = 0x03;
inline constexpr int VK_MBUTTON = 0x04;
inline constexpr int VK_BACK = 0x08;
inline constexpr int VK_TAB = 0x09;
inline constexpr int VK_CLEAR = 0x0C;
inline constexpr int VK_RETURN = 0x0D;
inline constexpr int VK_SHIFT = 0x10;
inline constexpr int VK_CONTROL = 0x11;
inline constexpr int VK_MENU = 0x12; ///< Alt
inline constexpr int VK_PAUSE = 0x13;
inline constexpr int VK_CAPITAL = 0x14;
inline constexpr int VK_ESCAPE = 0x1B;
inline constexpr int VK_SPACE = 0x20;
inline constexpr int VK_PRIOR = 0x21;
inline constexpr int VK_NEXT = 0x22;
inline constexpr int VK_END = 0x23;
inline constexpr int VK_HOME = 0x24;
inline constexpr int VK_LEFT = 0x25;
inline constexpr int VK_UP = 0x26;
inline constexpr int VK_RIGHT = 0x27;
inline constexpr int VK_DOWN = 0x28;
inline constexpr int VK_SELECT = 0x29;
inline constexpr int VK_PRINT = 0x2A;
inline constexpr int VK_SNAPSHOT = 0x2C;
inline constexpr int VK_INSERT = 0x2D;
inline constexpr int VK_DELETE = 0x2E;
inline constexpr int VK_HELP = 0x2F;
inline constexpr int VK_LWIN = 0x5B;
inline constexpr int VK_RWIN = 0x5C;
inline constexpr int VK_APPS = 0x5D;
inline constexpr int VK_NUMPAD0 = 0x60; ///< The next nine follow
inline constexpr int VK_NUMPAD9 = 0x69;
inline constexpr int VK_MULTIPLY = 0x6A;
inline constexpr int VK_ADD = 0x6B;
inline constexpr int VK_SEPARATOR = 0x6C;
inline constexpr int VK_SUBTRACT = 0x6D;
inline constexpr int VK_DECIMAL = 0x6E;
inline constexpr int VK_DIVIDE = 0x6F;
inline constexpr int VK_F1 = 0x70; ///< F2 to F24 follow
inline constexpr int VK_F2 = 0x71;
inline constexpr int VK_F3 = 0x72;
inline constexpr int VK_F4 = 0x73;
inline constexpr int VK_F5 = 0x74;
inline constexpr int VK_F6 = 0x75;
inline constexpr int VK_F7 = 0x76;
inline constexpr int VK_F8 = 0x77;
inline constexpr int VK_F9 = 0x78;
inline constexpr int VK_F10 = 0x79;
inline constexpr int VK_F11 = 0x7A;
inline constexpr int VK_F12 = 0x7B;
inline constexpr int VK_F24 = 0x87;
inline constexpr int VK_NUMLOCK = 0x90;
inline constexpr int VK_SCROLL = 0x91;
inline constexpr int VK_LSHIFT = 0xA0;
inline constexpr int VK_RSHIFT = 0xA1;
inline constexpr int VK_LCONTROL = 0xA2;
inline constexpr int VK_RCONTROL = 0xA3;
inline constexpr int VK_LMENU = 0xA4;
inline constexpr int VK_RMENU = 0xA5;
inline constexpr int VK_OEM_1 = 0xBA;
inline constexpr int VK_OEM_PLUS = 0xBB;
inline constexpr int VK_OEM_COMMA = 0xBC;
inline constexpr int VK_OEM_MINUS = 0xBD;
inline constexpr int VK_OEM_PERIOD = 0xBE;
inline constexpr int VK_OEM_2 = 0xBF;
inline constexpr int VK_OEM_3 = 0xC0;
inline constexpr int VK_OEM_4 = 0xDB;
inline constexpr int VK_OEM_5 = 0xDC;
inline constexpr int VK_OEM_6 = 0xDD;
inline constexpr int VK_OEM_7 = 0xDE;
inline constexpr int VK_OEM_102 = 0xE2;

inline constexpr DWORD KEYEVENTF_EXTENDEDKEY = 0x0001;
inline constexpr DWORD KEYEVENTF_KEYUP = 0x0002;

inline constexpr DWORD MOUSEEVENTF_MOVE = 0x0001;
inline constexpr DWORD MOUSEEVENTF_LEFTDOWN = 0x0002;
inline constexpr DWORD MOUSEEVENTF_LEFTUP = 0x0004;
inline constexpr DWORD MOUSEEVENTF_RIGHTDOWN = 0x0008;
inline constexpr DWORD MOUSEEVENTF_RIGHTUP = 0x0010;
inline constexpr DWORD MOUSEEVENTF_MIDDLEDOWN = 0x0020;
inline constexpr DWORD MOUSEEVENTF_MIDDLEUP = 0x0040;
inline constexpr DWORD MOUSEEVENTF_WHEEL = 0x0800;
inline constexpr DWORD MOUSEEVENTF_ABSOLUTE = 0x8000;

/// Bit 15: the key was down when the last key message was taken from the queue. Bit 0: its toggle.
SHORT GetKeyState(int virtualKey);

/// Bit 15: the key is down now. Bit 0: it went down since the last call.
SHORT GetAsyncKeyState(int virtualKey);

/// 256 bytes, one a virtual key: bit 7 down, bit 0 toggled. The state that GetKeyState reads. Setting it
/// speaks to this thread alone, and for a key until its next message: the lock lights and GetAsyncKeyState
/// keep following the keyboard. To switch a lock for everybody, play its key with keybd_event.
BOOL GetKeyboardState(BYTE* state);
BOOL SetKeyboardState(const BYTE* state);

/// Plays a key (KEYEVENTF_...) as if it came from the keyboard: its messages arrive through the queue.
void keybd_event(BYTE virtualKey, BYTE scanCode, DWORD flags, std::uintptr_t extra);

/// Plays the mouse (MOUSEEVENTF_...). Absolute positions are 0 to 65535 across the screen, relative ones
/// pixels; `data` is the turn of the wheel.
void mouse_event(DWORD flags, DWORD dx, DWORD dy, DWORD data, std::uintptr_t extra);

inline constexpr UINT MAPVK_VK_TO_VSC = 0;
inline constexpr UINT MAPVK_VSC_TO_VK = 1;
inline constexpr UINT MAPVK_VK_TO_CHAR = 2; ///< Bit 31: a dead key

UINT MapVirtualKeyA(UINT code, UINT mapType);

/// The key that types a character of the ANSI code page: low byte its virtual key, high byte 1 Shift,
/// 2 Ctrl, 4 Alt; -1 if none does.
SHORT VkKeyScanA(char character);

// The mouse.
HWND SetCapture(HWND window); ///< Returns the former one, which gets WM_CAPTURECHANGED
BOOL ReleaseCapture();
HWND GetCapture();
BOOL GetCursorPos(POINT* screen);
BOOL SetCursorPos(int x, int y);
UINT GetDoubleClickTime(); ///< Milliseconds

/// The stock cursors.
inline constexpr WORD IDC_ARROW = 32512;
inline constexpr WORD IDC_IBEAM = 32513;
inline constexpr WORD IDC_WAIT = 32514;
inline constexpr WORD IDC_CROSS = 32515;
inline constexpr WORD IDC_UPARROW = 32516;
inline constexpr WORD IDC_SIZENWSE = 32642;
inline constexpr WORD IDC_SIZENESW = 32643;
inline constexpr WORD IDC_SIZEWE = 32644;
inline constexpr WORD IDC_SIZENS = 32645;
inline constexpr WORD IDC_SIZEALL = 32646;
inline constexpr WORD IDC_NO = 32648;
inline constexpr WORD IDC_HAND = 32649;
inline constexpr WORD IDC_APPSTARTING = 32650;
inline constexpr WORD IDC_HELP = 32651;

/// A stock cursor (IDC_...) with `instance` 0; it need not be freed. 0 for an unknown number.
HCURSOR LoadCursorA(HINSTANCE instance, WORD id);

/// The pointer's shape until the next WM_SETCURSOR; 0 hides it. Returns the former one.
HCURSOR SetCursor(HCURSOR cursor);
HCURSOR GetCursor();
int ShowCursor(BOOL show); ///< Returns the display count; the pointer shows at 0 and above

// The caret. There is one; it belongs to the window that created it and blinks where that window has it.

/// `bitmap` 0 gives a solid block of the given size (0: the border's width or height), 1 a grey one. The
/// caret starts hidden.
BOOL CreateCaret(HWND window, HBITMAP bitmap, int width, int height);
BOOL DestroyCaret();
BOOL ShowCaret(HWND window); ///< Undoes one HideCaret; window 0 is the caret's own
BOOL HideCaret(HWND window);
BOOL SetCaretPos(int x, int y); ///< Client coordinates
BOOL GetCaretPos(POINT* point);
UINT GetCaretBlinkTime(); ///< Milliseconds between on and off

/// Beep(): blocks for `milliseconds`. MessageBeep() returns at once.
BOOL Beep(DWORD frequency, DWORD milliseconds);
BOOL MessageBeep(UINT type);

// The clipboard.
inline constexpr UINT CF_TEXT = 1;
inline constexpr UINT CF_BITMAP = 2;
inline constexpr UINT CF_METAFILEPICT = 3;
inline constexpr UINT CF_DIB = 8;
inline constexpr UINT CF_PALETTE = 9;
inline constexpr UINT CF_UNICODETEXT = 13;
inline constexpr UINT CF_ENHMETAFILE = 14;

BOOL OpenClipboard(HWND owner);
BOOL CloseClipboard();
BOOL EmptyClipboard();
BOOL IsClipboardFormatAvailable(UINT format);
int CountClipboardFormats();

/// Puts text on the clipboard, in place of what it held; it is then there as CF_UNICODETEXT and CF_TEXT.
/// Opens and closes the clipboard itself when the caller has not.
bool setClipboardText(std::u16string_view text);

/// Gives the clipboard an object, which belongs to it from then on: a bitmap (CF_BITMAP), a palette
/// (CF_PALETTE) or an enhanced metafile (CF_ENHMETAFILE), by its handle's value. The clipboard must be open.
/// No handle on failure; the object stays the caller's then.
HANDLE SetClipboardData(UINT format, HANDLE object);
/// The clipboard's object of a format, which stays the clipboard's: good until it is emptied. A bitmap is
/// made of a device-independent one and the other way.
HANDLE GetClipboardData(UINT format);

/// The same for formats that are bytes in memory, CF_DIB above all: a bitmap's header, colours and pixels.
bool setClipboardBytes(UINT format, std::span<const BYTE> bytes);
std::vector<BYTE> clipboardBytes(UINT format);

/// The clipboard's text with CR LF line ends; empty when it holds none.
std::u16string clipboardText();

} // namespace platform
