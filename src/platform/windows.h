#pragma once
// Windows and their messages, under the platform's names. There is one thread, so one message queue.
//
// - All windows are ANSI windows: WM_CHAR and WM_SETTEXT carry bytes of the ANSI code page.
// - Records that messages point to (CREATESTRUCTA, WINDOWPOS, MINMAXINFO) are the ones of this header.
// - A handle that is dead or was never a window's makes a function fail: it returns 0 and changes nothing.
// - On Linux TESELA_DISPLAY chooses the display: "headless" (memory, injected input, moved clock) or
//   "desktop"; unset, it is the desktop if there is one.

#include "platform/input.h"
#include "platform/system_look.h"
#include "platform/types.h"
#include "platform/window_constants.h"

#include <string>
#include <string_view>

namespace platform {

using UINT_PTR = std::uintptr_t;
using ATOM = WORD;
using WNDPROC = LRESULT (*)(HWND, UINT, WPARAM, LPARAM);
using TIMERPROC = void (*)(HWND, UINT message, UINT_PTR id, DWORD time);

/// What windows of a class have in common.
struct WNDCLASSA {
    UINT style = 0; ///< CS_...
    WNDPROC lpfnWndProc = nullptr;
    int cbClsExtra = 0;
    int cbWndExtra = 0;
    HINSTANCE hInstance;
    HICON hIcon;
    HCURSOR hCursor;
    HBRUSH hbrBackground; ///< A brush, or COLOR_... + 1; 0: WM_ERASEBKGND paints nothing
    const char* lpszMenuName = nullptr;
    const char* lpszClassName = nullptr;
};

/// lParam of WM_NCCREATE and WM_CREATE.
struct CREATESTRUCTA {
    void* lpCreateParams = nullptr;
    HINSTANCE hInstance;
    HMENU hMenu;
    HWND hwndParent;
    int cy = 0;
    int cx = 0;
    int y = 0;
    int x = 0;
    LONG style = 0;
    const char* lpszName = nullptr;
    const char* lpszClass = nullptr;
    DWORD dwExStyle = 0;
};

/// lParam of WM_WINDOWPOSCHANGING and WM_WINDOWPOSCHANGED.
struct WINDOWPOS {
    HWND hwnd;
    HWND hwndInsertAfter;
    int x = 0;
    int y = 0;
    int cx = 0;
    int cy = 0;
    UINT flags = 0; ///< SWP_...
};

/// lParam of WM_GETMINMAXINFO.
struct MINMAXINFO {
    POINT ptReserved;
    POINT ptMaxSize;
    POINT ptMaxPosition;
    POINT ptMinTrackSize;
    POINT ptMaxTrackSize;
};

struct MSG {
    HWND hwnd;
    UINT message = 0;
    WPARAM wParam = 0;
    LPARAM lParam = 0;
    DWORD time = 0; ///< Milliseconds, as GetTickCount
    POINT pt;       ///< The pointer on the screen
};

struct PAINTSTRUCT {
    HDC hdc;
    BOOL fErase = FALSE_; ///< The background is still to be erased
    RECT rcPaint;         ///< Bounds of what is to be painted, client coordinates
};

// Classes.

/// 0 when the name is taken or missing. Names compare without case.
ATOM RegisterClassA(const WNDCLASSA* windowClass);
BOOL UnregisterClassA(const char* name, HINSTANCE instance); ///< Fails while windows of it live

/// Length without the NUL, cut to `size` - 1; 0 for no window.
int GetClassNameA(HWND window, char* name, int size);

// Life.

/// Sends WM_GETMINMAXINFO (sizeable windows), WM_NCCREATE, WM_NCCALCSIZE, WM_CREATE and, to pop-ups and
/// children, WM_SIZE and WM_MOVE; an overlapped window gets these with its first show. `menu` is the number
/// of a child. A WM_CREATE result of -1 or a WM_NCCREATE result of 0 fails the creation.
HWND CreateWindowExA(DWORD exStyle, const char* className, const char* windowName, DWORD style, int x, int y,
                     int width, int height, HWND parent, HMENU menu, HINSTANCE instance, void* parameter);

/// WM_DESTROY to the window and then its children, WM_NCDESTROY to children first. Owned windows go first.
/// Its timers, capture, focus, caret and waiting messages go with it.
BOOL DestroyWindow(HWND window);
BOOL IsWindow(HWND window);

LRESULT DefWindowProcA(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT CallWindowProcA(WNDPROC procedure, HWND window, UINT message, WPARAM wParam, LPARAM lParam);

/// GWL_...; the window procedure and user data keep their full width only in the ...Ptr forms.
LONG GetWindowLongA(HWND window, int index);
LONG SetWindowLongA(HWND window, int index, LONG value); ///< Returns the former value
LONG_PTR GetWindowLongPtrA(HWND window, int index);
LONG_PTR SetWindowLongPtrA(HWND window, int index, LONG_PTR value);

BOOL SetPropA(HWND window, const char* name, HANDLE data);
HANDLE GetPropA(HWND window, const char* name);
HANDLE RemovePropA(HWND window, const char* name);

// Messages.

/// Calls the window's procedure at once.
LRESULT SendMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

/// To the queue; window 0 posts to the thread. HWND_BROADCAST reaches all top-level windows.
BOOL PostMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
void PostQuitMessage(int exitCode);

/// Posted messages come first, then WM_QUIT, input, WM_PAINT, WM_TIMER. `window` and the range (0, 0: all)
/// choose among them.
BOOL PeekMessageA(MSG* message, HWND window, UINT first, UINT last, UINT remove);

/// Waits. 0 on WM_QUIT, -1 on a dead window.
BOOL GetMessageA(MSG* message, HWND window, UINT first, UINT last);

/// Posts the WM_CHAR or WM_DEADCHAR (WM_SYSCHAR with Alt) of a key press.
BOOL TranslateMessage(const MSG* message);
LRESULT DispatchMessageA(const MSG* message);

/// Returns when the queue has something new. With the headless display, whose clock stands still, it moves
/// the clock to the next timer; when nothing can ever come it throws std::logic_error.
BOOL WaitMessage();

/// The same for `milliseconds` at most; true when the queue has something (QS_ALLINPUT).
bool waitMessageFor(DWORD milliseconds);

/// High word: kinds of message waiting, QS_...; low word: those new since the last call.
DWORD GetQueueStatus(UINT flags);
DWORD GetMessageTime();
DWORD GetMessagePos(); ///< Low word x, high word y
LPARAM GetMessageExtraInfo();

/// Messages with equal names have equal numbers, from 0xC000.
UINT RegisterWindowMessageA(const char* name);

// Timers.

/// A window's timer `id` is set again if it runs. With window 0 the id is ignored and a new one is returned.
/// Milliseconds below 10 count as 10. WM_TIMER comes when nothing else waits; late ticks are one.
UINT_PTR SetTimer(HWND window, UINT_PTR id, UINT milliseconds, TIMERPROC procedure);
BOOL KillTimer(HWND window, UINT_PTR id);

// Painting.

/// Null rectangle: the whole client area. Null window (0): all windows.
BOOL InvalidateRect(HWND window, const RECT* rect, BOOL erase);
BOOL ValidateRect(HWND window, const RECT* rect);
BOOL RedrawWindow(HWND window, const RECT* rect, HRGN region, UINT flags);
BOOL UpdateWindow(HWND window); ///< Sends WM_PAINT now if there is something to paint
BOOL GetUpdateRect(HWND window, RECT* rect, BOOL erase);
HDC BeginPaint(HWND window, PAINTSTRUCT* paint);
BOOL EndPaint(HWND window, const PAINTSTRUCT* paint);

HDC GetDC(HWND window);       ///< Client area; window 0: the screen
HDC GetWindowDC(HWND window); ///< With the frame
int ReleaseDC(HWND window, HDC dc);
HWND WindowFromDC(HDC dc);

// Focus, activation, enabled and shown.

/// Activates the top-level parent. Returns the former focus window; 0 also when the window or a parent is
/// disabled.
HWND SetFocus(HWND window);
HWND GetFocus();
HWND SetActiveWindow(HWND window);
HWND GetActiveWindow();
BOOL SetForegroundWindow(HWND window);
HWND GetForegroundWindow(); ///< 0 when another program's window has the foreground
BOOL BringWindowToTop(HWND window);

BOOL EnableWindow(HWND window, BOOL enable); ///< Returns whether it was disabled
BOOL IsWindowEnabled(HWND window);
BOOL ShowWindow(HWND window, int command); ///< Returns whether it was visible
BOOL IsWindowVisible(HWND window);         ///< It and all its parents
BOOL IsIconic(HWND window);
BOOL IsZoomed(HWND window);

// The tree.
BOOL IsChild(HWND parent, HWND window);
HWND GetParent(HWND window); ///< A child's parent, a pop-up's owner
HWND SetParent(HWND child, HWND parent);
HWND GetWindow(HWND window, UINT command);
HWND GetTopWindow(HWND window);
HWND GetDesktopWindow();
int GetDlgCtrlID(HWND window);
HWND WindowFromPoint(POINT screen);
HWND ChildWindowFromPoint(HWND parent, POINT client);            ///< Hidden and disabled ones too
HWND FindWindowA(const char* className, const char* windowName); ///< Top level; null: any

/// Calls `visit` for each child, grandchildren included, top first, until it returns 0.
BOOL EnumChildWindows(HWND parent, BOOL (*visit)(HWND, LPARAM), LPARAM parameter);

// Place.
BOOL SetWindowPos(HWND window, HWND insertAfter, int x, int y, int width, int height, UINT flags);
BOOL MoveWindow(HWND window, int x, int y, int width, int height, BOOL repaint);
BOOL GetWindowRect(HWND window, RECT* screen);
BOOL GetClientRect(HWND window, RECT* client); ///< Left and top are 0
BOOL ClientToScreen(HWND window, POINT* point);
BOOL ScreenToClient(HWND window, POINT* point);

/// Low word of the result: pixels moved right, high word: down. Window 0 is the screen.
int MapWindowPoints(HWND from, HWND to, POINT* points, UINT count);

/// Turns the wanted client area into the window's rectangle.
BOOL AdjustWindowRectEx(RECT* rect, DWORD style, BOOL menu, DWORD exStyle);

// Text.
BOOL SetWindowTextA(HWND window, const char* text);
int GetWindowTextA(HWND window, char* text, int size); ///< Characters copied without the NUL
int GetWindowTextLengthA(HWND window);
BOOL SetWindowTextW(HWND window, const char16_t* text);
int GetWindowTextW(HWND window, char16_t* text, int size);
int GetWindowTextLengthW(HWND window);

} // namespace platform
