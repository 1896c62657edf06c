// The desktop: one SDL window for each top-level window, its pixels copied from ours. The window manager
// draws captions and frames; our frame around the client area is there in coordinates only.

#include "platform/linux/desktop_display.h"

#include "platform/linux/desktop_keys.h"
#include "platform/linux/keyboard.h"
#include "platform/linux/message_queue.h"
#include "platform/linux/x11_extras.h"
#include "platform/locale.h"

#include <SDL.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <map>
#include <vector>

namespace platform::driver {

namespace {

constexpr int UnicodeKey = 0xE7; ///< A key that carries characters and no layout

/// What happened to a window on the desktop and is still to be told to it.
struct WindowChange {
    SDL_WindowEventID what;
    std::uint32_t window;
    int a;
    int b;
};

struct CursorShape {
    WORD id;
    SDL_SystemCursor shape;
};

constexpr CursorShape CursorShapes[] = {{IDC_ARROW, SDL_SYSTEM_CURSOR_ARROW},
                                        {IDC_IBEAM, SDL_SYSTEM_CURSOR_IBEAM},
                                        {IDC_WAIT, SDL_SYSTEM_CURSOR_WAIT},
                                        {IDC_CROSS, SDL_SYSTEM_CURSOR_CROSSHAIR},
                                        {IDC_UPARROW, SDL_SYSTEM_CURSOR_ARROW},
                                        {IDC_SIZENWSE, SDL_SYSTEM_CURSOR_SIZENWSE},
                                        {IDC_SIZENESW, SDL_SYSTEM_CURSOR_SIZENESW},
                                        {IDC_SIZEWE, SDL_SYSTEM_CURSOR_SIZEWE},
                                        {IDC_SIZENS, SDL_SYSTEM_CURSOR_SIZENS},
                                        {IDC_SIZEALL, SDL_SYSTEM_CURSOR_SIZEALL},
                                        {IDC_NO, SDL_SYSTEM_CURSOR_NO},
                                        {IDC_HAND, SDL_SYSTEM_CURSOR_HAND},
                                        {IDC_APPSTARTING, SDL_SYSTEM_CURSOR_WAITARROW},
                                        {IDC_HELP, SDL_SYSTEM_CURSOR_ARROW}};

/// The widths of the frame that the window manager draws.
RECT managedFrame(const Window& window) {
    if (!window.is(WS_CAPTION)) return {};
    return frameWidths(window.style, window.exStyle & ~WS_EX_CLIENTEDGE);
}

/// What of the window we show, on the screen.
RECT shownPart(const Window& window) {
    const RECT widths = managedFrame(window);
    const RECT& f = window.frame;
    return {f.left + widths.left, f.top + widths.top,
            std::max(f.right - widths.right, f.left + widths.left + 1),
            std::max(f.bottom - widths.bottom, f.top + widths.top + 1)};
}

std::string utf8Title(const Window& window) {
    return utf8FromWide(wideFromAnsi(window.text));
}

Uint32 windowFlags(const Window& window) {
    Uint32 flags = 0;
    if (!window.is(WS_CAPTION)) flags |= SDL_WINDOW_BORDERLESS;
    if (window.style & WS_THICKFRAME) flags |= SDL_WINDOW_RESIZABLE;
    if (window.exStyle & WS_EX_TOPMOST) flags |= SDL_WINDOW_ALWAYS_ON_TOP;
    if (window.owner || (window.exStyle & WS_EX_TOOLWINDOW)) flags |= SDL_WINDOW_SKIP_TASKBAR;
    if (window.is(WS_MAXIMIZE)) flags |= SDL_WINDOW_MAXIMIZED;
    const bool popup = !window.is(WS_CAPTION) && (window.exStyle & WS_EX_NOACTIVATE);
    if (popup) flags |= SDL_WINDOW_POPUP_MENU;
    return flags;
}

class DesktopDisplay final : public Display {
public:
    ~DesktopDisplay() override;

    SIZE screenSize() override;
    RECT workArea() override;
    bool drawsFrames() const override { return false; }

    void shown(Window& window) override;
    void hidden(Window& window) override;
    void placed(Window& window) override;
    void stateChanged(Window& window) override;
    void renamed(Window& window) override;
    void activated(Window& window) override;
    void destroyed(Window& window) override;

    void present() override;
    void collectInput() override;
    void settle() override;
    bool mustSettle() const override { return !changes_.empty(); }
    bool waitForInput(std::int64_t milliseconds) override;

    POINT pointer() override { return pointer_; }
    void movePointer(POINT screen) override;
    void showCursor(WORD id) override;
    void captureMouse(bool captured) override { SDL_CaptureMouse(captured ? SDL_TRUE : SDL_FALSE); }
    void setLocks(const BYTE* states) override { lockKeys(states); }
    std::u16string clipboardText() override;
    void setClipboardText(const std::u16string& text) override;
    bool clipboardHasText() override { return SDL_HasClipboardText() == SDL_TRUE; }
    void beep() override { ringBell(); }

    void readLocks();

private:
    SDL_Window* nativeOf(HWND window) const;
    Window* windowOf(std::uint32_t id) const;
    void presentWindow(Window& window, SDL_Window* native);
    void returnKeyboard(const Window& from);

    void take(const SDL_Event& event);
    void takeKey(const SDL_KeyboardEvent& event);
    void takeText(const SDL_TextInputEvent& event);
    void takeButton(const SDL_MouseButtonEvent& event);
    void takeMotion(std::uint32_t id, int x, int y);
    void takeWheel(const SDL_MouseWheelEvent& event);
    void takeWindowEvent(const SDL_WindowEvent& event);
    void postKey(int key, bool up, const SDL_KeyboardEvent& event, std::u16string text);

    void tell(const WindowChange& change);
    void keepNormalPlace(const WindowChange& change);
    void tellFocus();
    void tellPlace(Window& window, int x, int y);
    void tellSize(Window& window, int width, int height);
    void tellState(Window& window, bool minimized, bool maximized);

    std::map<HWND, SDL_Window*> natives_;
    std::vector<WindowChange> changes_;
    std::map<WORD, SDL_Cursor*> cursors_;
    POINT pointer_;
    bool focusChanged_ = false;
};

std::u16string wideText(const char* utf8) {
    return wideFromUtf8(utf8 ? utf8 : "");
}

} // namespace

DesktopDisplay::~DesktopDisplay() {
    for (const auto& [id, cursor] : cursors_)
        SDL_FreeCursor(cursor);
    for (const auto& [handle, native] : natives_)
        SDL_DestroyWindow(native);
    SDL_QuitSubSystem(SDL_INIT_VIDEO);
}

// --- Windows ---------------------------------------------------------------------------------------

SDL_Window* DesktopDisplay::nativeOf(HWND window) const {
    const auto found = natives_.find(window);
    return found == natives_.end() ? nullptr : found->second;
}

Window* DesktopDisplay::windowOf(std::uint32_t id) const {
    SDL_Window* native = SDL_GetWindowFromID(id);
    for (const auto& [handle, known] : natives_)
        if (known == native && native) return findWindow(handle);
    return nullptr;
}

SIZE DesktopDisplay::screenSize() {
    SDL_Rect bounds{};
    SDL_GetDisplayBounds(0, &bounds);
    return {bounds.w, bounds.h};
}

RECT DesktopDisplay::workArea() {
    SDL_Rect bounds{};
    SDL_GetDisplayUsableBounds(0, &bounds);
    return {bounds.x, bounds.y, bounds.x + bounds.w, bounds.y + bounds.h};
}

void DesktopDisplay::shown(Window& window) {
    if (SDL_Window* native = nativeOf(window.handle)) {
        stateChanged(window);
        placed(window);
        SDL_ShowWindow(native);
        return;
    }
    const RECT part = shownPart(window);
    SDL_Window* native = SDL_CreateWindow(utf8Title(window).c_str(), part.left, part.top, widthOf(part),
                                          heightOf(part), windowFlags(window));
    if (!native) return;
    natives_[window.handle] = native;
    if (SDL_Window* owner = nativeOf(window.owner)) SDL_SetWindowModalFor(native, owner);
}

void DesktopDisplay::hidden(Window& window) {
    SDL_Window* native = nativeOf(window.handle);
    if (!native) return;
    SDL_HideWindow(native);
    returnKeyboard(window);
}

void DesktopDisplay::placed(Window& window) {
    SDL_Window* native = nativeOf(window.handle);
    if (!native || (window.style & (WS_MINIMIZE | WS_MAXIMIZE))) return;
    const RECT part = shownPart(window);
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    SDL_GetWindowPosition(native, &x, &y);
    SDL_GetWindowSize(native, &width, &height);
    if (width != widthOf(part) || height != heightOf(part))
        SDL_SetWindowSize(native, widthOf(part), heightOf(part));
    if (x != part.left || y != part.top) SDL_SetWindowPosition(native, part.left, part.top);
}

void DesktopDisplay::stateChanged(Window& window) {
    SDL_Window* native = nativeOf(window.handle);
    if (!native) return;
    const Uint32 shown = SDL_GetWindowFlags(native);
    if (window.is(WS_MINIMIZE)) {
        SDL_MinimizeWindow(native);
        return;
    }
    // A minimised window comes back first as it was; a maximised one that is restored then shrinks.
    if (shown & SDL_WINDOW_MINIMIZED) SDL_RestoreWindow(native);
    if (window.is(WS_MAXIMIZE))
        SDL_MaximizeWindow(native);
    else if (shown & SDL_WINDOW_MAXIMIZED)
        SDL_RestoreWindow(native);
}

void DesktopDisplay::renamed(Window& window) {
    if (SDL_Window* native = nativeOf(window.handle)) SDL_SetWindowTitle(native, utf8Title(window).c_str());
}

void DesktopDisplay::activated(Window& window) {
    SDL_Window* native = nativeOf(window.handle);
    if (native && SDL_GetKeyboardFocus() != native) SDL_RaiseWindow(native);
}

void DesktopDisplay::destroyed(Window& window) {
    const auto found = natives_.find(window.handle);
    if (found == natives_.end()) return;
    SDL_DestroyWindow(found->second);
    natives_.erase(found);
    returnKeyboard(window);
}

/// A list that drops down may have got the keyboard from a desktop without a window manager.
void DesktopDisplay::returnKeyboard(const Window& from) {
    SDL_Window* active = nativeOf(attention().active);
    if (active && (from.exStyle & WS_EX_NOACTIVATE) && !SDL_GetKeyboardFocus())
        SDL_SetWindowInputFocus(active);
}

// --- Pixels ----------------------------------------------------------------------------------------

void DesktopDisplay::present() {
    noteBlink();
    for (const auto& [handle, native] : natives_) {
        Window* window = findWindow(handle);
        if (window && window->pixels && !hasNoArea(window->unpresented) && window->is(WS_VISIBLE))
            presentWindow(*window, native);
    }
}

void DesktopDisplay::presentWindow(Window& window, SDL_Window* native) {
    constexpr Uint32 RedMask = 0xFF0000;
    constexpr Uint32 GreenMask = 0xFF00;
    constexpr Uint32 BlueMask = 0xFF;
    constexpr int Depth = 32;
    SDL_Surface* target = SDL_GetWindowSurface(native);
    if (!target) return;
    PixelStore& pixels = *window.pixels;
    const RECT part = offset(shownPart(window), -window.frame.left, -window.frame.top);
    const RECT drawn = overlapOf(window.unpresented, part);
    window.unpresented = {};
    if (hasNoArea(drawn)) return;
    SDL_Surface* source =
        SDL_CreateRGBSurfaceFrom(pixels.surface.bits, pixels.surface.width, pixels.surface.height, Depth,
                                 pixels.surface.stride, RedMask, GreenMask, BlueMask, 0);
    if (!source) return;
    SDL_Rect from{drawn.left, drawn.top, widthOf(drawn), heightOf(drawn)};
    SDL_Rect to{drawn.left - part.left, drawn.top - part.top, from.w, from.h};
    inkCaret(window, pixels, {});
    SDL_BlitSurface(source, &from, target, &to);
    inkCaret(window, pixels, {});
    SDL_FreeSurface(source);
    if (to.w > 0 && to.h > 0) SDL_UpdateWindowSurfaceRects(native, &to, 1);
}

// --- Input -----------------------------------------------------------------------------------------

void DesktopDisplay::collectInput() {
    SDL_Event event;
    while (SDL_PollEvent(&event))
        take(event);
}

bool DesktopDisplay::waitForInput(std::int64_t milliseconds) {
    constexpr std::int64_t LongestWait = 60'000;
    const std::int64_t wait = milliseconds < 0 ? LongestWait : std::min(milliseconds, LongestWait);
    SDL_WaitEventTimeout(nullptr, static_cast<int>(wait));
    return true;
}

void DesktopDisplay::take(const SDL_Event& event) {
    switch (event.type) {
    case SDL_KEYDOWN:
    case SDL_KEYUP:
        takeKey(event.key);
        break;
    case SDL_TEXTINPUT:
        takeText(event.text);
        break;
    case SDL_MOUSEBUTTONDOWN:
    case SDL_MOUSEBUTTONUP:
        takeButton(event.button);
        break;
    case SDL_MOUSEMOTION:
        takeMotion(event.motion.windowID, event.motion.x, event.motion.y);
        break;
    case SDL_MOUSEWHEEL:
        takeWheel(event.wheel);
        break;
    case SDL_WINDOWEVENT:
        takeWindowEvent(event.window);
        break;
    default:
        break;
    }
}

void DesktopDisplay::postKey(int key, bool up, const SDL_KeyboardEvent& event, std::u16string text) {
    RawInput input;
    input.kind = RawInput::Kind::Key;
    input.virtualKey = key;
    input.up = up;
    input.scanCode = scanCodeOf(key);
    input.extended = isExtendedKey(key) || event.keysym.scancode == SDL_SCANCODE_KP_ENTER;
    input.hasText = true;
    input.text = std::move(text);
    input.plain = plainCharacterOf(event.keysym);
    postInput(std::move(input));
}

/// The text that a key types comes as the event right behind it.
void DesktopDisplay::takeKey(const SDL_KeyboardEvent& event) {
    const int key = virtualKeyOf(event.keysym);
    if (!key) return;
    const bool up = event.type == SDL_KEYUP;
    std::u16string text;
    SDL_Event next;
    if (!up && SDL_PeepEvents(&next, 1, SDL_PEEKEVENT, SDL_FIRSTEVENT, SDL_LASTEVENT) == 1 &&
        next.type == SDL_TEXTINPUT) {
        SDL_PeepEvents(&next, 1, SDL_GETEVENT, SDL_FIRSTEVENT, SDL_LASTEVENT);
        text = wideText(next.text.text);
    }
    // Alt Gr is Ctrl with the right Alt, in that order.
    if (key == VK_RMENU && !up) postKey(VK_LCONTROL, false, event, {});
    if (key == VK_RMENU && up) postKey(VK_LCONTROL, true, event, {});
    postKey(key, up, event, std::move(text));
}

void DesktopDisplay::takeText(const SDL_TextInputEvent& event) {
    RawInput input;
    input.kind = RawInput::Kind::Key;
    input.virtualKey = UnicodeKey;
    input.hasText = true;
    input.text = wideText(event.text);
    postInput(input);
    input.up = true;
    input.text.clear();
    postInput(input);
}

void DesktopDisplay::takeMotion(std::uint32_t id, int x, int y) {
    const Window* window = windowOf(id);
    if (!window) return;
    const RECT part = shownPart(*window);
    pointer_ = {part.left + x, part.top + y};
    RawInput input;
    input.kind = RawInput::Kind::Move;
    input.at = pointer_;
    postInput(input);
}

void DesktopDisplay::takeButton(const SDL_MouseButtonEvent& event) {
    const Window* window = windowOf(event.windowID);
    if (!window) return;
    const RECT part = shownPart(*window);
    pointer_ = {part.left + event.x, part.top + event.y};
    RawInput input;
    input.kind = RawInput::Kind::Button;
    input.virtualKey = event.button == SDL_BUTTON_LEFT    ? VK_LBUTTON
                       : event.button == SDL_BUTTON_RIGHT ? VK_RBUTTON
                                                          : VK_MBUTTON;
    if (event.button > SDL_BUTTON_RIGHT) return;
    input.up = event.type == SDL_MOUSEBUTTONUP;
    input.at = pointer_;
    postInput(input);
}

void DesktopDisplay::takeWheel(const SDL_MouseWheelEvent& event) {
    const int turn = event.direction == SDL_MOUSEWHEEL_FLIPPED ? -event.y : event.y;
    if (!turn) return;
    RawInput input;
    input.kind = RawInput::Kind::Wheel;
    input.wheel = turn * WHEEL_DELTA;
    input.at = pointer_;
    postInput(input);
}

void DesktopDisplay::takeWindowEvent(const SDL_WindowEvent& event) {
    const auto what = static_cast<SDL_WindowEventID>(event.event);
    switch (what) {
    case SDL_WINDOWEVENT_EXPOSED:
        if (Window* window = windowOf(event.windowID); window && window->pixels)
            window->unpresented = {0, 0, window->pixels->surface.width, window->pixels->surface.height};
        break;
    case SDL_WINDOWEVENT_FOCUS_GAINED:
        readLocks();
        [[fallthrough]];
    case SDL_WINDOWEVENT_FOCUS_LOST:
    case SDL_WINDOWEVENT_MOVED:
    case SDL_WINDOWEVENT_RESIZED:
    case SDL_WINDOWEVENT_MINIMIZED:
    case SDL_WINDOWEVENT_MAXIMIZED:
    case SDL_WINDOWEVENT_RESTORED:
    case SDL_WINDOWEVENT_CLOSE:
        changes_.push_back({what, event.windowID, event.data1, event.data2});
        break;
    default:
        break;
    }
}

void DesktopDisplay::readLocks() {
    struct Lock {
        int key;
        int modifier;
    };
    static constexpr Lock Locks[] = {
        {VK_CAPITAL, KMOD_CAPS}, {VK_NUMLOCK, KMOD_NUM}, {VK_SCROLL, KMOD_SCROLL}};
    const int on = SDL_GetModState();
    for (const Lock& lock : Locks)
        for (KeyStates* states : {&keyboard().asynchronous, &keyboard().thread}) {
            BYTE& state = (*states)[static_cast<std::size_t>(lock.key)];
            state = static_cast<BYTE>((state & ~1) | (on & lock.modifier ? 1 : 0));
        }
}

// --- What the desktop did to the windows -----------------------------------------------------------

void DesktopDisplay::settle() {
    while (!changes_.empty()) {
        const std::vector<WindowChange> changes = std::move(changes_);
        changes_.clear();
        for (const WindowChange& change : changes)
            keepNormalPlace(change);
        for (const WindowChange& change : changes)
            tell(change);
        if (focusChanged_) tellFocus();
    }
}

/// A window that the user maximises or minimises can be restored by the program. The news of its new size
/// may come first.
void DesktopDisplay::keepNormalPlace(const WindowChange& change) {
    if (change.what != SDL_WINDOWEVENT_MAXIMIZED && change.what != SDL_WINDOWEVENT_MINIMIZED) return;
    Window* window = windowOf(change.window);
    if (window && !(window->style & (WS_MINIMIZE | WS_MAXIMIZE))) window->restored = window->frame;
}

void DesktopDisplay::tell(const WindowChange& change) {
    Window* window = windowOf(change.window);
    if (!window) return;
    switch (change.what) {
    case SDL_WINDOWEVENT_FOCUS_GAINED:
    case SDL_WINDOWEVENT_FOCUS_LOST:
        focusChanged_ = true;
        break;
    case SDL_WINDOWEVENT_MOVED:
        tellPlace(*window, change.a, change.b);
        break;
    case SDL_WINDOWEVENT_RESIZED:
        tellSize(*window, change.a, change.b);
        break;
    case SDL_WINDOWEVENT_MINIMIZED:
        tellState(*window, true, window->is(WS_MAXIMIZE));
        break;
    case SDL_WINDOWEVENT_MAXIMIZED:
        tellState(*window, false, true);
        break;
    case SDL_WINDOWEVENT_RESTORED:
        tellState(*window, false, (SDL_GetWindowFlags(nativeOf(window->handle)) & SDL_WINDOW_MAXIMIZED) != 0);
        break;
    case SDL_WINDOWEVENT_CLOSE:
        if (!window->is(WS_DISABLED) && !(window->windowClass->style & CS_NOCLOSE))
            PostMessageA(window->handle, WM_SYSCOMMAND, SC_CLOSE, 0);
        break;
    default:
        break;
    }
}

/// The window that the desktop gave the keyboard is the active one; none of ours: the program is in the back.
void DesktopDisplay::tellFocus() {
    focusChanged_ = false;
    SDL_Window* native = SDL_GetKeyboardFocus();
    Window* window = native ? windowOf(SDL_GetWindowID(native)) : nullptr;
    if (!window) {
        loseForeground();
        return;
    }
    if (window->exStyle & WS_EX_NOACTIVATE) return;
    if (!window->is(WS_DISABLED)) {
        if (!attention().foreground && attention().suspended == window->handle)
            regainForeground();
        else
            activate(window->handle, false);
        return;
    }
    for (HWND owned : ownedHandles(window->handle))
        if (IsWindowVisible(owned) && IsWindowEnabled(owned)) activate(owned, false);
}

void DesktopDisplay::tellPlace(Window& window, int x, int y) {
    const RECT part = shownPart(window);
    if (part.left == x && part.top == y) return;
    SetWindowPos(window.handle, {}, window.frame.left + x - part.left, window.frame.top + y - part.top, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void DesktopDisplay::tellSize(Window& window, int width, int height) {
    const RECT part = shownPart(window);
    const int wider = width - widthOf(part);
    const int higher = height - heightOf(part);
    if (!wider && !higher) return;
    SetWindowPos(window.handle, {}, 0, 0, widthOf(window.frame) + wider, heightOf(window.frame) + higher,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void DesktopDisplay::tellState(Window& window, bool minimized, bool maximized) {
    const DWORD former = window.style & (WS_MINIMIZE | WS_MAXIMIZE);
    const DWORD now = (minimized ? WS_MINIMIZE : 0) | (maximized ? WS_MAXIMIZE : 0);
    if (former == now) return;
    window.style = (window.style & ~(WS_MINIMIZE | WS_MAXIMIZE)) | now;
    const WPARAM kind = minimized ? SIZE_MINIMIZED : maximized ? SIZE_MAXIMIZED : SIZE_RESTORED;
    const LPARAM size = minimized ? 0 : MAKELPARAM(widthOf(window.client), heightOf(window.client));
    callProcedure(window, WM_SIZE, kind, size);
}

// --- Pointer and clipboard -------------------------------------------------------------------------

void DesktopDisplay::movePointer(POINT screen) {
    pointer_ = screen;
    SDL_WarpMouseGlobal(screen.x, screen.y);
}

void DesktopDisplay::showCursor(WORD id) {
    SDL_ShowCursor(id ? SDL_ENABLE : SDL_DISABLE);
    if (!id) return;
    SDL_Cursor*& cursor = cursors_[id];
    if (!cursor) {
        const auto found = std::find_if(std::begin(CursorShapes), std::end(CursorShapes),
                                        [&](const CursorShape& c) { return c.id == id; });
        cursor =
            SDL_CreateSystemCursor(found == std::end(CursorShapes) ? SDL_SYSTEM_CURSOR_ARROW : found->shape);
    }
    SDL_SetCursor(cursor);
}

std::u16string DesktopDisplay::clipboardText() {
    char* text = SDL_GetClipboardText();
    std::u16string wide = wideText(text);
    SDL_free(text);
    return wide;
}

void DesktopDisplay::setClipboardText(const std::u16string& text) {
    SDL_SetClipboardText(utf8FromWide(text).c_str());
}

// --- Start -----------------------------------------------------------------------------------------

namespace {

struct Hint {
    const char* name;
    const char* value;
};

/// A plain window system client: signals and the screen saver stay the program's, pixels go without a
/// renderer.
constexpr Hint Hints[] = {
    {SDL_HINT_NO_SIGNAL_HANDLERS, "1"},           {SDL_HINT_FRAMEBUFFER_ACCELERATION, "0"},
    {SDL_HINT_VIDEO_ALLOW_SCREENSAVER, "1"},      {SDL_HINT_MOUSE_FOCUS_CLICKTHROUGH, "1"},
    {SDL_HINT_VIDEO_MINIMIZE_ON_FOCUS_LOSS, "0"}, {SDL_HINT_VIDEO_X11_NET_WM_BYPASS_COMPOSITOR, "0"},
    {SDL_HINT_QUIT_ON_LAST_WINDOW_CLOSE, "0"},    {SDL_HINT_IME_SHOW_UI, "1"}};

/// Where no session bus is known, looking for one would start one, which takes longer than all the rest.
class NoBusSearch {
public:
    NoBusSearch() : quiet_(!std::getenv(Bus) && !hasUserBus()) {
        if (quiet_) setenv(Bus, "disabled:", 1);
    }
    ~NoBusSearch() {
        if (quiet_) unsetenv(Bus);
    }
    NoBusSearch(const NoBusSearch&) = delete;
    NoBusSearch& operator=(const NoBusSearch&) = delete;

private:
    static constexpr const char* Bus = "DBUS_SESSION_BUS_ADDRESS";

    static bool hasUserBus() {
        const char* folder = std::getenv("XDG_RUNTIME_DIR");
        return folder && access((std::string(folder) + "/bus").c_str(), F_OK) == 0;
    }

    const bool quiet_;
};

bool startVideo(const char* driver) {
    if (driver) SDL_SetHint(SDL_HINT_VIDEODRIVER, driver);
    return SDL_InitSubSystem(SDL_INIT_VIDEO) == 0;
}

} // namespace

std::unique_ptr<Display> startDesktopDisplay() {
    for (const Hint& hint : Hints)
        SDL_SetHint(hint.name, hint.value);
    SDL_SetMainReady();
    // Before the start, because SDL goes back to the handler it found when it ends; after it, because SDL's
    // own comes in between.
    outliveRefusals();
    const NoBusSearch noBusSearch;
    const bool chosen = std::getenv("SDL_VIDEODRIVER") != nullptr;
    const bool started = chosen ? startVideo(nullptr) : startVideo("x11") || startVideo("wayland");
    if (!started) return nullptr;
    outliveRefusals();
    auto display = std::make_unique<DesktopDisplay>();
    display->readLocks();
    SDL_StartTextInput();
    return display;
}

} // namespace platform::driver
