// A window on the real desktop that tells on its standard output what reaches it, one line an event. The
// script beside it plays the user.

#include "platform/clock.h"
#include "platform/gdi.h"
#include "platform/locale.h"
#include "platform/metafiles.h"
#include "platform/windows.h"

#include <cstdio>
#include <string>
#include <vector>

namespace {

using namespace platform;

std::string typedText;

void tell(const char* what, long a = -1, long b = -1) {
    if (b >= 0)
        std::printf("%s %ld %ld\n", what, a, b);
    else if (a >= 0)
        std::printf("%s %ld\n", what, a);
    else
        std::printf("%s\n", what);
    std::fflush(stdout);
}

void tellText(const char* what, std::u16string_view text) {
    std::printf("%s %s\n", what, utf8FromWide(text).c_str());
    std::fflush(stdout);
}

void paint(HWND window) {
    PAINTSTRUCT record;
    const HDC dc = BeginPaint(window, &record);
    constexpr RECT Mark{10, 10, 60, 60};
    const HBRUSH brush = CreateSolidBrush(RGB(200, 30, 30));
    FillRect(dc, &Mark, brush);
    DeleteObject(brush);
    EndPaint(window, &record);
    static bool first = true;
    if (first) tell("painted");
    first = false;
}

/// Texts that are too long for a line are told by their length and last character.
void tellPasted(const std::u16string& text) {
    constexpr std::size_t LongestLine = 200;
    if (text.size() > LongestLine)
        tell("pasted long", static_cast<long>(text.size()), text.back());
    else
        tellText("pasted", text);
}

/// The picture that is copied: blue, with an orange mark in its upper left corner.
void drawPicture(HDC dc) {
    const auto fill = [&](RECT r, COLORREF color) {
        const HBRUSH brush = CreateSolidBrush(color);
        FillRect(dc, &r, brush);
        DeleteObject(brush);
    };
    fill({0, 0, 320, 200}, RGB(0, 100, 200));
    fill({0, 0, 20, 10}, RGB(255, 160, 0));
}

void copyPicture() {
    const HDC screen = GetDC({});
    const HDC dc = CreateCompatibleDC(screen);
    const HBITMAP bitmap = CreateCompatibleBitmap(screen, 320, 200);
    const HGDIOBJ former = SelectObject(dc, bitmap);
    drawPicture(dc);
    SelectObject(dc, former);
    DeleteDC(dc);
    ReleaseDC({}, screen);
    OpenClipboard({});
    EmptyClipboard();
    SetClipboardData(CF_BITMAP, HANDLE(bitmap.value));
    CloseClipboard();
    tell("copied picture");
}

void copyMetafile() {
    const HDC dc = CreateEnhMetaFileA({}, nullptr, nullptr, nullptr);
    drawPicture(dc);
    OpenClipboard({});
    EmptyClipboard();
    SetClipboardData(CF_ENHMETAFILE, HANDLE(CloseEnhMetaFile(dc).value));
    CloseClipboard();
    tell("copied metafile");
}

/// The size of the picture on the clipboard and its first pixel.
void tellPastedPicture(HBITMAP bitmap) {
    BITMAP about;
    GetObjectBitmap(bitmap, &about);
    const HDC dc = CreateCompatibleDC({});
    const HGDIOBJ former = SelectObject(dc, bitmap);
    const COLORREF color = GetPixel(dc, 0, 0);
    SelectObject(dc, former);
    DeleteDC(dc);
    std::printf("pasted picture %d %d #%02X%02X%02X\n", about.bmWidth, about.bmHeight, color & 0xFF,
                color >> 8 & 0xFF, color >> 16 & 0xFF);
    std::fflush(stdout);
}

/// How many records the metafile on the clipboard has.
void tellPastedMetafile(HENHMETAFILE metafile) {
    ENHMETAHEADER header;
    GetEnhMetaFileHeader(metafile, sizeof header, &header);
    tell("pasted metafile", static_cast<long>(header.nRecords));
}

void tellPictureOnClipboard() {
    OpenClipboard({});
    if (IsClipboardFormatAvailable(CF_ENHMETAFILE))
        tellPastedMetafile(HENHMETAFILE(GetClipboardData(CF_ENHMETAFILE).value));
    else if (const HANDLE bitmap = GetClipboardData(CF_BITMAP); bitmap)
        tellPastedPicture(HBITMAP(bitmap.value));
    else
        tell("no picture");
    CloseClipboard();
}

/// Ctrl+C copies what was typed, Ctrl+L a text that is longer than what X servers take at once, Ctrl+V tells
/// what is on the clipboard. Ctrl+B copies a bitmap, Ctrl+E a metafile, Ctrl+P tells of the picture there.
void character(HWND, WPARAM byte) {
    constexpr WPARAM ControlB = 2;
    constexpr WPARAM ControlE = 5;
    constexpr WPARAM ControlP = 16;
    constexpr WPARAM ControlC = 3;
    constexpr WPARAM ControlL = 12;
    constexpr WPARAM ControlV = 22;
    constexpr std::size_t LongText = 3'000'000;
    constexpr WPARAM Enter = 13;
    if (byte == ControlC) {
        setClipboardText(wideFromAnsi(typedText));
        tell("copied");
    } else if (byte == ControlL) {
        setClipboardText(std::u16string(LongText - 1, u'ñ') + u'.');
        tell("copied long");
    } else if (byte == ControlV) {
        tellPasted(clipboardText());
    } else if (byte == ControlB) {
        copyPicture();
    } else if (byte == ControlE) {
        copyMetafile();
    } else if (byte == ControlP) {
        tellPictureOnClipboard();
    } else if (byte == Enter) {
        tellText("typed", wideFromAnsi(typedText));
    } else {
        typedText += static_cast<char>(byte);
        tell("char", static_cast<long>(byte));
    }
}

/// A dialog that keeps its owner out until it is closed.
LRESULT dialogProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const HWND owner = GetWindow(window, GW_OWNER);
    if (message == WM_CHAR) tell("dialog char", static_cast<long>(wParam));
    if (message == WM_LBUTTONDOWN) tell("dialog press", GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam));
    if (message == WM_CLOSE) EnableWindow(owner, TRUE_);
    if (message == WM_DESTROY) tell("dialog closed");
    return DefWindowProcA(window, message, wParam, lParam);
}

/// A list that drops down without taking the focus.
LRESULT listProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_MOUSEACTIVATE) return MA_NOACTIVATE;
    if (message == WM_LBUTTONDOWN) tell("list press", GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam));
    return DefWindowProcA(window, message, wParam, lParam);
}

void registerClass(const char* name, WNDPROC function) {
    WNDCLASSA windowClass;
    windowClass.style = CS_DBLCLKS;
    windowClass.lpfnWndProc = function;
    windowClass.hCursor = LoadCursorA({}, IDC_IBEAM);
    windowClass.hbrBackground = HBRUSH(COLOR_WINDOW + 1);
    windowClass.lpszClassName = name;
    RegisterClassA(&windowClass);
}

void playKey(int key) {
    keybd_event(static_cast<BYTE>(key), 0, 0, 0);
    keybd_event(static_cast<BYTE>(key), 0, KEYEVENTF_KEYUP, 0);
}

void toggleTopmost(HWND window) {
    const bool topmost = GetWindowLongA(window, GWL_EXSTYLE) & WS_EX_TOPMOST;
    SetWindowPos(window, topmost ? HWND_NOTOPMOST : HWND_TOPMOST, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

/// A small icon: a red upper half, below it nothing.
HICON makeIcon() {
    constexpr int Side = 16;
    constexpr int WordBits = 32;
    std::vector<DWORD> colors(Side * Side / 2, 0xFFFF0000);
    colors.resize(Side * Side, 0);
    const std::vector<BYTE> mask(Side * Side / 8, 0);
    ICONINFO info;
    info.fIcon = TRUE_;
    info.hbmColor = CreateBitmap(Side, Side, 1, WordBits, colors.data());
    info.hbmMask = CreateBitmap(Side, Side, 1, 1, mask.data());
    const HICON icon = CreateIconIndirect(&info);
    DeleteObject(info.hbmColor);
    DeleteObject(info.hbmMask);
    return icon;
}

HDC frameContext;

void closeFrame() {
    ReleaseDC({}, frameContext);
    frameContext = {};
}

/// A frame over everything that the screen shows, turned to its opposite; the second time it is taken away.
void turnFrame() {
    const bool isShown = frameContext.value != 0;
    if (!isShown) frameContext = GetDC({});
    SelectObject(frameContext, GetStockObject(NULL_BRUSH));
    SetROP2(frameContext, R2_NOTXORPEN);
    Rectangle(frameContext, 230, 180, 901, 601);
    if (isShown) closeFrame();
}

/// A pixel of the frame in another context, which stays open until the second time.
void readScreen() {
    static HDC other;
    const bool isOpen = other.value != 0;
    if (!isOpen) other = GetDC({});
    tell("seen", static_cast<long>(GetPixel(other, 400, 180)));
    if (!isOpen) return;
    ReleaseDC({}, other);
    other = {};
}

/// A frame that is left in its context, which closes after a sleep.
void leaveFrame() {
    turnFrame();
    Sleep(3000); // in which no messages are taken
    closeFrame();
    const HDC screen = GetDC({});
    tell("left", static_cast<long>(GetPixel(screen, 400, 180)));
    ReleaseDC({}, screen);
}

/// The function keys do what the script wants to try.
void functionKey(HWND window, WPARAM key) {
    if (key == static_cast<WPARAM>(VK_F1)) SendMessageA(window, WM_SETICON, 1, makeIcon().value);
    if (key == static_cast<WPARAM>(VK_F2)) ShowWindow(window, SW_MINIMIZE);
    if (key == static_cast<WPARAM>(VK_F3))
        ShowWindow(window, IsZoomed(window) ? SW_RESTORE : SW_SHOWMAXIMIZED);
    if (key == static_cast<WPARAM>(VK_F4)) toggleTopmost(window);
    if (key == static_cast<WPARAM>(VK_F9)) MoveWindow(window, 100, 120, 500, 400, TRUE_);
    if (key == static_cast<WPARAM>(VK_F11)) playKey(VK_SCROLL);
    if (key == static_cast<WPARAM>(VK_SCROLL)) tell("scroll", GetKeyState(VK_SCROLL) & 1);
    if (key == static_cast<WPARAM>(VK_F6)) {
        EnableWindow(window, FALSE_);
        CreateWindowExA(WS_EX_DLGMODALFRAME, "ProbeDialog", "Pregunta",
                        WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_VISIBLE, 600, 200, 206, 125, window, {}, {},
                        nullptr);
    }
    if (key == static_cast<WPARAM>(VK_F7))
        CreateWindowExA(WS_EX_NOACTIVATE | WS_EX_TOPMOST, "ProbeList", "", WS_POPUP | WS_BORDER | WS_VISIBLE,
                        600, 400, 150, 80, window, {}, {}, nullptr);
    if (key == static_cast<WPARAM>(VK_F12)) turnFrame();
    if (key == static_cast<WPARAM>(VK_INSERT)) readScreen();
    if (key == static_cast<WPARAM>(VK_END)) leaveFrame();
    if (key == static_cast<WPARAM>(VK_F8)) playKey(VK_CAPITAL);
    if (key == static_cast<WPARAM>(VK_CAPITAL)) tell("capitals", GetKeyState(VK_CAPITAL) & 1);
}

/// 0 for a window as it was made, 1 minimised, 2 maximised.
void tellState(WPARAM kind) {
    static WPARAM former = SIZE_RESTORED;
    if (kind != former) tell("state", static_cast<long>(kind));
    former = kind;
}

LRESULT procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_PAINT:
        return paint(window), 0;
    case WM_CHAR:
        return character(window, wParam), 0;
    case WM_SYSCHAR:
        return tell("syschar", static_cast<long>(wParam)), 0;
    case WM_KEYDOWN:
        tell("key", static_cast<long>(wParam));
        functionKey(window, wParam);
        return 0;
    case WM_LBUTTONDOWN:
        return tell("press", GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)), 0;
    case WM_LBUTTONDBLCLK:
        return tell("doubleclick"), 0;
    case WM_MOUSEWHEEL:
        return tell("wheel", GET_WHEEL_DELTA_WPARAM(wParam) / WHEEL_DELTA + 10), 0;
    case WM_SETFOCUS:
        CreateCaret(window, {}, 2, 14);
        SetCaretPos(100, 20);
        ShowCaret(window);
        tell("focus");
        return 0;
    case WM_KILLFOCUS:
        DestroyCaret();
        return tell("unfocus"), 0;
    case WM_SIZE:
        tellState(wParam);
        return tell("size", GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)), 0;
    case WM_TIMER:
        return tell("tick"), 0;
    case WM_DESTROY:
        tell("closed");
        PostQuitMessage(0);
        return 0;
    default:
        return DefWindowProcA(window, message, wParam, lParam);
    }
}

} // namespace

int main() {
    registerClass("DesktopProbe", procedure);
    registerClass("ProbeDialog", dialogProcedure);
    registerClass("ProbeList", listProcedure);
    RECT frame{200, 150, 520, 350};
    AdjustWindowRectEx(&frame, WS_OVERLAPPEDWINDOW, FALSE_, 0);
    const HWND window =
        CreateWindowExA(0, "DesktopProbe", "", WS_OVERLAPPEDWINDOW, frame.left, frame.top,
                        frame.right - frame.left, frame.bottom - frame.top, {}, {}, {}, nullptr);
    SetWindowTextW(window, u"Sonda de a\u00F1o");
    ShowWindow(window, SW_SHOW);
    SetTimer(window, 1, 200, nullptr);
    MSG message;
    while (GetMessageA(&message, {}, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    return 0;
}
